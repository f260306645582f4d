#include "screens/options_dialog.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "screens/frame_panel.h"
#include "screens/theme_style.h"
#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr int kMargin = 12;
constexpr int kButtonCharacters = 14;
constexpr std::array kThemes{"System", "Light", "Dark"};

QLabel* heading(const QString& text) {
  auto* label = new QLabel(text);
  label->setForegroundRole(QPalette::PlaceholderText);
  return label;
}

}  // namespace

OptionsDialog::OptionsDialog(Workbench bench)
    : options_(bench.session.options()),
      bench_(std::move(bench)),
      tabs_(new QTabWidget(this)),
      themes_(new QButtonGroup(this)) {
  setObjectName(to_qstring(options_.name()));
  setWindowTitle(to_qstring(options_.caption()));
  tabs_->setObjectName("configure.tabs");
  tabs_->setAccessibleName("Groups of options");
  for (const OptionFrame& frame : option_frames()) {
    if (frame.tab == OptionFrame::kEveryTab) continue;
    tabs_->addTab(makePage(frame), frame.tab_caption);
  }
  auto* box = new QVBoxLayout(this);
  box->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  box->setSpacing(kMargin);
  box->addWidget(tabs_, 1);
  box->addWidget(makeButtons());
  connect(tabs_, &QTabWidget::currentChanged, this, [this](int tab) { options_.set_display(tab); });
  connect(themes_, &QButtonGroup::idClicked, this, [this] { refresh(); });
  connect_view(options_.layoutChanged, this, [this] { refresh(); });
  refresh();
  resize(560, 380);
}

QWidget* OptionsDialog::makePage(const OptionFrame& frame) {
  auto* page = new QWidget;
  page->setObjectName(frame.name);
  auto* box = new QVBoxLayout(page);
  box->setContentsMargins(kMargin, 8, kMargin, 8);
  box->setSpacing(8);
  auto* caption = new QLabel(frame.caption);
  caption->setWordWrap(true);
  QFont bold = caption->font();
  bold.setBold(true);
  caption->setFont(bold);
  box->addWidget(caption);
  addOptions(frame, OptionKind::kTickBox, *box);
  addOptions(frame, OptionKind::kOptionButton, *box);
  if (frame.tab == 0) addThemes(*box);
  box->addStretch(1);
  return page;
}

void OptionsDialog::addOptions(const OptionFrame& frame, OptionKind kind, QVBoxLayout& box) {
  const bool is_tick = kind == OptionKind::kTickBox;
  bool first = true;
  for (const OptionSpec& option : option_specs()) {
    if (std::string_view(option.frame) != frame.name || option.kind != kind) continue;
    if (!is_tick && first) {
      box.addSpacing(8);
      box.addWidget(heading("Preferred values of components"));
    }
    first = false;
    QAbstractButton* button = is_tick ? static_cast<QAbstractButton*>(new QCheckBox(option.caption))
                                      : new QRadioButton(option.caption);
    button->setObjectName(QString("configure.") + option.name);
    button->setAccessibleName(option.caption);
    connect(button, &QAbstractButton::clicked, this,
            [this, &option](bool on) { options_.tick(option.name, on); });
    box.addWidget(button);
    controls_.push_back({&option, button});
  }
}

void OptionsDialog::addThemes(QVBoxLayout& box) {
  box.addSpacing(8);
  box.addWidget(heading("Theme"));
  for (std::size_t i = 0; i < kThemes.size(); ++i) {
    auto* button = new QRadioButton(kThemes[i]);
    button->setObjectName(QString("theme.") + kThemes[i]);
    button->setAccessibleName(QString("Theme ") + kThemes[i]);
    themes_->addButton(button, static_cast<int>(i));
    box.addWidget(button);
  }
  themes_->button(static_cast<int>(bench_.theme.get()))->setChecked(true);
}

QWidget* OptionsDialog::makeButtons() {
  auto* strip = new QWidget(this);
  auto* row = new QHBoxLayout(strip);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(8);
  const auto add = [&](const char* name, const QString& caption) {
    auto* button = new QPushButton(caption, strip);
    button->setObjectName(name);
    button->setAccessibleName(caption);
    button->setAutoDefault(false);
    button->setMinimumHeight(fontMetrics().height() + 12);
    button->setMinimumWidth(fontMetrics().averageCharWidth() * kButtonCharacters);
    // Queued: a click may end the run, and this window with it.
    connect(
        button, &QPushButton::clicked, this, [this, name] { click(name); }, Qt::QueuedConnection);
    row->addWidget(button);
    return button;
  };
  const auto caption = [this](const char* name) {
    return to_qstring(options_.findButton(name)->caption);
  };
  add("command_debug", caption("command_debug") + "...");
  row->addStretch(1);
  ThemeStyle::setMainAction(*add("command_ok", caption("command_ok")));
  apply_ = add("command_apply", caption("command_apply"));
  add("command_cancel", caption("command_cancel"));
  return strip;
}

void OptionsDialog::click(const char* button) {
  const std::string_view name = button;
  if (name == "command_ok" || name == "command_apply") {
    bench_.theme.set(static_cast<ThemeChoice>(themes_->checkedId()));
  }
  options_.command_click(name);
}

void OptionsDialog::reject() { click("command_cancel"); }

bool OptionsDialog::isChanged() const {
  return themes_->checkedId() != static_cast<int>(bench_.theme.get()) ||
         std::any_of(controls_.begin(), controls_.end(), [this](const Control& control) {
           return control.button->isChecked() != options_.isChecked(control.option->name);
         });
}

void OptionsDialog::refresh() {
  for (const Control& control : controls_) {
    control.button->setChecked(options_.findTickBox(control.option->name)->checked);
  }
  // A sheet that is not on show has dropped what was chosen and not applied.
  if (!options_.visible()) {
    themes_->button(static_cast<int>(bench_.theme.get()))->setChecked(true);
  }
  tabs_->setCurrentIndex(options_.tab());
  apply_->setEnabled(isChanged());
}

}  // namespace vantrel
