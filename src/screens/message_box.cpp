#include "screens/message_box.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <span>

#include "screens/theme_style.h"

namespace vantrel {

namespace {

constexpr int kPictureSize = 40;
constexpr double kMostOfScreen = 0.7;

struct Button {
  const char* name;
  const char* caption;
  MessageAnswer answer;
};

constexpr Button kOkButtons[] = {{"CommandOK", "&OK", kOk}};
constexpr Button kYesNoCancelButtons[] = {
    {"CommandYes", "&Yes", kYes}, {"CommandNo", "&No", kNo}, {"CommandCancel", "&Cancel", kCancel}};

std::span<const Button> buttons_of(int type) {
  switch (type) {
    case kMessageYesNo:
      return std::span(kYesNoCancelButtons).first(2);
    case kMessageYesNoCancel:
      return kYesNoCancelButtons;
    default:
      return kOkButtons;
  }
}

struct Symbol {
  const char* name;
  Role role;
};

Symbol symbol_of(int severity) {
  switch (severity) {
    case kSeverityQuestion:
      return {"question", Role::Accent};
    case kSeverityWarning:
      return {"warning", Role::Warning};
    default:
      return {"information", Role::Accent};
  }
}

}  // namespace

MessageBox::MessageBox(const Message& message, const Appearance& look, QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint) {
  setWindowTitle(to_qstring(message.title));
  setObjectName("SysMsg");
  const QFontMetrics metrics(font());
  const double width = kLineCharacters * metrics.averageCharWidth();
  QStringList lines;
  for (const std::string& line : wrap_message(message.text, width, [&](std::string_view part) {
         return static_cast<double>(metrics.horizontalAdvance(to_qstring(part)));
       })) {
    lines << to_qstring(line);
  }
  plain_text_ = to_qstring(with_line_breaks(message.text));

  auto* picture = new QLabel(this);
  const Symbol face = symbol_of(message.severity);
  picture->setPixmap(look.pixmap(face.name, face.role, kPictureSize, devicePixelRatioF()));
  picture->setAccessibleName(face.name);
  auto* text = new QLabel(lines.join('\n'), this);
  text->setObjectName("SysMessage");
  text->setTextFormat(Qt::PlainText);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse);
  text->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);

  auto* top = new QHBoxLayout;
  top->setSpacing(16);
  top->addWidget(picture, 0, Qt::AlignTop);
  const int most = static_cast<int>(kMostOfScreen * screen()->availableGeometry().height());
  if (text->sizeHint().height() > most) {
    auto* area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(text);
    area->setMinimumSize(text->sizeHint().width() + 24, most);
    top->addWidget(area, 1);
  } else {
    top->addWidget(text, 1);
  }

  auto* row = new QHBoxLayout;
  row->addStretch();
  const auto buttons = buttons_of(message.type);
  for (const Button& choice : buttons) {
    auto* button = new QPushButton(choice.caption, this);
    button->setObjectName(choice.name);
    button->setMinimumWidth(88);
    connect(button, &QPushButton::clicked, this, [this, answer = choice.answer] {
      answer_ = answer;
      accept();
    });
    if (&choice == &buttons.front()) {
      ThemeStyle::setMainAction(*button);
      button->setFocus();
    }
    row->addWidget(button);
  }
  row->addStretch();
  escape_answer_ = buttons.back().answer;

  auto* box = new QVBoxLayout(this);
  box->setContentsMargins(20, 20, 20, 12);
  box->setSpacing(16);
  box->addLayout(top);
  box->addLayout(row);
  box->setSizeConstraint(QLayout::SetFixedSize);
}

void MessageBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    answer_ = escape_answer_;
    accept();
  } else if (event->matches(QKeySequence::Copy)) {
    QApplication::clipboard()->setText(plain_text_);
  } else {
    QDialog::keyPressEvent(event);
  }
}

int MessageBox::ask() {
  exec();
  return answer_;
}

int QtMessageDialog::show(const Message& message) {
  if (isQuiet && isQuiet()) return message.type == kMessageOk ? kOk : kNo;
  MessageBox box(message, look_, QApplication::activeWindow());
  return box.ask();
}

}  // namespace vantrel
