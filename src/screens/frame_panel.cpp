#include "screens/frame_panel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <algorithm>
#include <array>

#include "core/text_parsing.h"
#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr int kMarginX = 12;
constexpr int kMarginY = 8;
constexpr int kGap = 8;
constexpr int kRowGap = 2;
constexpr qreal kCorner = 5;
/// Longest label that a field takes in any selection; its width is kept free beforehand.
constexpr const char* kLongestRelabel = "Lamp Resistance 100%";

}  // namespace

Panel::Panel(const QString& caption, Appearance& look, QWidget* parent)
    : QWidget(parent), look_(look), caption_(new QLabel(caption, this)), grid_(new QGridLayout) {
  auto* box = new QVBoxLayout(this);
  box->setContentsMargins(kMarginX, kMarginY, kMarginX, kMarginY);
  box->setSpacing(4);
  QFont bold = font();
  bold.setBold(true);
  caption_->setFont(bold);
  box->addWidget(caption_);
  grid_->setHorizontalSpacing(kGap);
  grid_->setVerticalSpacing(kRowGap);
  box->addLayout(grid_);
  connect_view(look.changed, this, [this] { update(); });
}

void Panel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(look_.colour(Role::PanelBorder));
  painter.setBrush(look_.colour(Role::Panel));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
}

FramePanel::FramePanel(Screen& screen, std::string_view frame, Appearance& look, int index,
                       QWidget* parent, std::span<const char* const> first)
    : Panel({}, look, parent), screen_(screen), frame_(frame) {
  setObjectName(to_qstring(frame) + (index < 0 ? QString() : "." + QString::number(index)));
  for (VTLValue* field : fieldsOfFrame(index, first)) {
    auto* row = new FieldRow(*field, look, grid(), static_cast<int>(rows_.size()), *this);
    rows_.push_back(row);
    connect(row, &FieldRow::edited, this, &FramePanel::edited);
    connect(&row->editor(), &ValueEditor::stepRequested, this,
            [this, row](int step) { moveFocus(row->editor(), step); });
    connect_view(field->displayChanged, this, [this] { refresh(); });
  }
  grid().setColumnStretch(FieldRow::kSlack, 1);
  connect_view(screen.layoutChanged, this, [this] { refresh(); });
  refresh();
}

std::vector<VTLValue*> FramePanel::fieldsOfFrame(int index,
                                                 std::span<const char* const> first) const {
  std::vector<VTLValue*> fields;
  for (const auto& field : screen_.fields()) {
    if (!equal_ignoring_case(field->FrameName(), frame_)) continue;
    if (index < 0 || field->Index() == index) fields.push_back(field.get());
  }
  const auto place = [first](const VTLValue* field) {
    return std::find(first.begin(), first.end(), field->Name()) - first.begin();
  };
  std::stable_sort(fields.begin(), fields.end(),
                   [&](const auto* a, const auto* b) { return place(a) < place(b); });
  return fields;
}

int FramePanel::freeRow() const { return static_cast<int>(rows_.size()); }

void FramePanel::refresh() {
  const Frame* frame = screen_.findFrame(frame_);
  if (frame == nullptr) return;
  const QString caption = to_qstring(frame->caption);
  if (captionLabel().text() != caption) captionLabel().setText(caption);
  bool any = rows_.empty();
  for (FieldRow* row : rows_) {
    const bool shown = row->field().Visible();
    if (shown != row->isShown()) row->setShown(shown);
    any = any || shown;
  }
  const bool show = any && frame->visible;
  if (show == has_rows_ && show == !isHidden()) return;
  has_rows_ = show;
  setVisible(show);
  emit shownChanged();
}

void FramePanel::setStale(bool stale) {
  for (FieldRow* row : rows_) row->editor().setStale(stale);
}

void FramePanel::moveFocus(const ValueEditor& from, int step) {
  const auto count = static_cast<int>(rows_.size());
  const auto at = std::find_if(rows_.begin(), rows_.end(),
                               [&](FieldRow* row) { return &row->editor() == &from; });
  for (int i = static_cast<int>(at - rows_.begin()) + step; i >= 0 && i < count; i += step) {
    FieldRow* row = rows_[static_cast<std::size_t>(i)];
    if (!row->isShown()) continue;
    row->editor().setFocus(Qt::TabFocusReason);
    return;
  }
}

void align_columns(std::span<FramePanel* const> panels) {
  std::array<int, FieldRow::kColumnCount> widths{};
  for (FramePanel* panel : panels) {
    const QFontMetrics metrics(panel->font());
    for (FieldRow* row : panel->rows()) {
      const QString label = row->label().text();
      auto& label_width = widths[FieldRow::kLabel];
      label_width = std::max(
          {label_width, metrics.horizontalAdvance(label), row->label().sizeHint().width()});
      if (row->field().Name().ends_with("_max") || row->field().Name().ends_with("_min")) {
        label_width = std::max(label_width, metrics.horizontalAdvance(kLongestRelabel));
      }
      widths[FieldRow::kValue] =
          std::max(widths[FieldRow::kValue], row->editor().sizeHint().width());
      widths[FieldRow::kUnit] = std::max(widths[FieldRow::kUnit], row->unitWidth());
      if (row->tick() != nullptr) {
        widths[FieldRow::kTick] =
            std::max(widths[FieldRow::kTick], row->tick()->sizeHint().width());
      }
    }
  }
  for (FramePanel* panel : panels) {
    for (int column = 0; column < FieldRow::kSlack; ++column) {
      panel->grid().setColumnMinimumWidth(column, widths[static_cast<std::size_t>(column)]);
    }
  }
}

}  // namespace vantrel
