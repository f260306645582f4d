#include "screens/about_dialog.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/page_parts.h"
#include "screens/theme_style.h"
#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr int kMargin = 20;
constexpr int kPictureSize = 64;
constexpr int kStatusCharacters = 44;
constexpr qreal kTitleScale = 1.6;

}  // namespace

AboutDialog::AboutDialog(About& about, Appearance& look, QWidget* parent)
    : QDialog(parent),
      about_(about),
      look_(look),
      picture_(new QLabel(this)),
      version_(new QLabel(this)),
      status_(new QLabel(this)),
      check_(new QPushButton(this)) {
  setObjectName("About");
  setWindowTitle("About Vantrel");
  auto* title = new QLabel("Vantrel", this);
  QFont large = title->font();
  large.setBold(true);
  large.setPointSizeF(large.pointSizeF() * kTitleScale);
  title->setFont(large);
  auto* purpose = new QLabel("Design assistant for electronic lamp ballasts", this);
  purpose->setForegroundRole(QPalette::PlaceholderText);
  version_->setObjectName("lblVersion");
  version_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  version_->setFocusPolicy(Qt::ClickFocus);
  status_->setObjectName("status");
  status_->setWordWrap(true);
  status_->setForegroundRole(QPalette::PlaceholderText);
  status_->setMinimumSize(fontMetrics().averageCharWidth() * kStatusCharacters,
                          fontMetrics().height());
  check_->setObjectName("CmdCheckUpdate");
  ThemeStyle::setMainAction(*check_);
  QPushButton* close = plain_button("Close", "close", this);

  auto* texts = new QVBoxLayout;
  texts->setSpacing(4);
  texts->addWidget(title);
  texts->addWidget(purpose);
  texts->addSpacing(8);
  texts->addWidget(version_);
  texts->addWidget(status_);
  texts->addStretch(1);
  auto* head = new QHBoxLayout;
  head->setSpacing(kMargin);
  head->addWidget(picture_, 0, Qt::AlignTop);
  head->addLayout(texts, 1);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addStretch(1);
  for (QPushButton* button : {check_, close}) {
    button->setMinimumHeight(fontMetrics().height() + 12);
    buttons->addWidget(button);
  }
  auto* box = new QVBoxLayout(this);
  box->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  box->setSpacing(kMargin);
  box->addLayout(head, 1);
  box->addLayout(buttons);

  connect(
      check_, &QPushButton::clicked, this, [this] { about_.StartAboutUpdateCheck(); },
      Qt::QueuedConnection);
  connect(close, &QPushButton::clicked, this, &AboutDialog::reject, Qt::QueuedConnection);
  about_.onChanged = [this] { refresh(); };
  about_.onUnloaded = [this] { hide(); };
  connect_view(look.changed, this, [this] { refresh(); });
  refresh();
  // Room beside the caption, and the same button under "Checking ...".
  check_->setMinimumWidth(check_->sizeHint().width() + kCaptionRoom);
}

AboutDialog::~AboutDialog() {
  about_.onChanged = nullptr;
  about_.onUnloaded = nullptr;
}

void AboutDialog::open() {
  if (!about_.loaded()) about_.load();
  show();
  raise();
  activateWindow();
}

void AboutDialog::reject() { about_.unload(); }

void AboutDialog::refresh() {
  picture_->setPixmap(look_.pixmap("vantrel", Role::Accent, kPictureSize, devicePixelRatioF()));
  version_->setText(to_qstring(about_.lblVersion()));
  status_->setText(to_qstring(about_.status()));
  status_->setAccessibleName("Update check: " + to_qstring(about_.status()));
  check_->setText(to_qstring(about_.CmdCheckUpdateCaption()));
  check_->setEnabled(about_.isCmdCheckUpdateEnabled());
}

}  // namespace vantrel
