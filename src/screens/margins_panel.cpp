#include "screens/margins_panel.h"

#include <QGridLayout>
#include <QLabel>

#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr int kPictureSize = 14;
constexpr const char* kUnknown = "Known after a calculation";

}  // namespace

MarginsPanel::MarginsPanel(DesignStatus& status, Appearance& look, QWidget* parent)
    : Panel("Margins", look, parent), status_(status) {
  setObjectName("margins");
  int at = 0;
  for (Row& row : rows_) {
    const QString name = "margins." + QString::number(at);
    row = {new QLabel(this), new QLabel(this), new QLabel(this)};
    row.label->setObjectName(name + ".label");
    row.value->setObjectName(name + ".value");
    row.value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    row.picture->setFixedSize(kPictureSize, kPictureSize);
    grid().addWidget(row.picture, at, 0);
    grid().addWidget(row.label, at, 1);
    grid().addWidget(row.value, at, 2);
    grid().setRowMinimumHeight(at, fontMetrics().height() + 2);
    ++at;
  }
  grid().setColumnStretch(1, 1);
  connect_view(status.changed, this, [this] { refresh(); });
  connect_view(look.changed, this, [this] { refresh(); });
  refresh();
}

void MarginsPanel::refresh() {
  const std::vector<Margin> margins = status_.margins();
  const bool current = status_.state() == DesignStatus::State::Current;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const Row& row = rows_[i];
    const bool known = i < margins.size();
    const bool hint = margins.empty() && i == 0;
    row.label->setText(known ? to_qstring(margins[i].label) : hint ? kUnknown : "");
    row.value->setText(known ? to_qstring(margins[i].text) : "");
    const auto text = known && current ? QPalette::WindowText : QPalette::PlaceholderText;
    row.label->setForegroundRole(text);
    row.value->setForegroundRole(text);
    if (!known) {
      row.picture->clear();
      continue;
    }
    const bool kept = margins[i].kept;
    const char* picture = !current ? "clock" : kept ? "check" : "warning";
    const Role role = !current ? Role::Muted : kept ? Role::Ok : Role::Warning;
    row.picture->setPixmap(look_.pixmap(picture, role, kPictureSize, devicePixelRatioF()));
    row.picture->setAccessibleName(!current ? "Out of date" : kept ? "Kept" : "Not kept");
  }
}

}  // namespace vantrel
