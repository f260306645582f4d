#include "screens/output_panel.h"

#include <QGridLayout>
#include <QPushButton>

namespace vantrel {

namespace {

constexpr int kColumns = 2;
constexpr int kRowGap = 6;

}  // namespace

OutputPanel::OutputPanel(Appearance& look, QWidget* parent)
    : Panel("Output windows", look, parent) {
  setObjectName("outputs");
  grid().setVerticalSpacing(kRowGap);
  for (int column = 0; column < kColumns; ++column) grid().setColumnStretch(column, 1);
}

QPushButton& OutputPanel::buttonAt(std::size_t position) {
  if (position == buttons_.size()) {
    auto* button = new QPushButton(this);
    const auto place = static_cast<int>(position);
    grid().addWidget(button, place / kColumns, place % kColumns);
    connect(button, &QPushButton::clicked, this,
            [this, position] { emit requested(buttons_[position].command); });
    buttons_.push_back({button, {}});
  }
  return *buttons_[position].button;
}

void OutputPanel::show(const std::vector<OutputEntry>& entries) {
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const OutputEntry& entry = entries[i];
    QPushButton& button = buttonAt(i);
    if (buttons_[i].command != entry.command) {
      buttons_[i].command = entry.command;
      button.setObjectName(entry.command);
      button.setText(entry.caption);
      const QIcon own = look_.icon(entry.picture);
      button.setIcon(own.isNull() ? look_.barIcon(entry.picture) : own);
    }
    button.setEnabled(entry.enabled);
    button.setToolTip(entry.enabled ? "" : entry.reason);
  }
}

}  // namespace vantrel
