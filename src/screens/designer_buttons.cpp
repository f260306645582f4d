#include "screens/designer_buttons.h"

#include <QHBoxLayout>
#include <QPushButton>

#include "screens/theme_style.h"

namespace vantrel {

namespace {

constexpr int kPadding = 12;

}  // namespace

DesignerButtons::DesignerButtons(Appearance& look, QWidget* parent)
    : QWidget(parent), look_(look), row_(new QHBoxLayout(this)) {
  row_->setContentsMargins(0, 0, 0, 0);
  row_->setSpacing(8);
  row_->addStretch();
}

QPushButton* DesignerButtons::addMain(const QString& name, const QString& caption) {
  QPushButton* button = add(name, caption);
  button->setIcon(look_.icon("play", Role::OnAccent));
  QFont bold = font();
  bold.setBold(true);
  button->setFont(bold);
  button->setMinimumWidth(button->sizeHint().width() + 2 * kPadding);
  button->setToolTip("F5");
  ThemeStyle::setMainAction(*button);
  return button;
}

QPushButton* DesignerButtons::add(const QString& name, const QString& caption, const char* icon) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  if (*icon != '\0') button->setIcon(look_.icon(icon));
  button->setMinimumHeight(QFontMetrics(font()).height() + kPadding);
  row_->insertWidget(buttons_++, button);
  return button;
}

void DesignerButtons::addRight(QWidget* widget) { row_->addWidget(widget); }

}  // namespace vantrel
