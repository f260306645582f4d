#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "waveforms/time_domain_view_form.h"

namespace vantrel {

namespace {

constexpr double kScrollShare = 40;

}  // namespace

void GraphTimeDomain::scrollTo(std::int32_t value) {
  const double per_unit = (total_ - place_.window) / TimeScrollBar::kRange;
  moveTo((static_cast<double>(value) - TimeScrollBar::kMin) * per_unit);
}

void GraphTimeDomain::scrollLeft(bool left) {
  const double distance = place_.window / kScrollShare;
  moveTo(place_.position + (left ? -distance : distance));
}

void GraphTimeDomain::moveTo(double position) {
  place_.position = position;
  place();
  RedrawGraph();
}

void GraphTimeDomain::remember() {
  if (history_.size() < kMostHistory) history_.push_back(place_);
}

void GraphTimeDomain::zoomSpan(double from_x, double to_x) {
  const PlotColumns& columns = view_.PlotPoints();
  const std::int32_t one = columns.columnAtX(std::min(from_x, to_x));
  const std::int32_t other = columns.columnAtX(std::max(from_x, to_x));
  zoom_.reset();
  if (one >= 0 && one < other) zoom_ = {columns.timeOf(one), columns.timeOf(other)};
}

void GraphTimeDomain::zoomIn() {
  if (!zoom_) return;
  remember();
  const auto [from, to] = *zoom_;
  zoom_.reset();
  place_.position = from;
  SetTimeWindow(to - from);
  RedrawGraph();
}

void GraphTimeDomain::zoomOut() {
  remember();
  const double before = place_.window;
  const double position = place_.position;
  SetTimeWindow(2 * before);
  place_.position = position - (place_.window - before) / 2;
  place();
  RedrawGraph();
}

void GraphTimeDomain::previousView() {
  if (!mnuPrevious()) return;
  const TimeDomainPlace former = history_.back();
  history_.pop_back();
  place_.position = former.position;
  SetTimeWindow(former.window);
  RedrawGraph();
}

void GraphTimeDomain::wholeView() {
  remember();
  SetGraphView(kMostWindow);
}

void GraphTimeDomain::zoomAbout(double share, double factor) {
  const double before = place_.window;
  const double fixed = place_.position + share * before;
  SetTimeWindow(before * factor);
  moveTo(fixed - share * place_.window);
}

void GraphTimeDomain::jumpTo(Jump where) {
  if (!isGenerated()) return;
  if (where == kEnd) {
    moveTo(total_ - place_.window);
  } else {
    moveTo(graph_.ReturnStageTime(where, true) - cutOut());
  }
}

std::array<std::string_view, 4> GraphTimeDomain::MnuJumpTo() const {
  return {"Start", graph_.GetStageString(1), "Run", "End"};
}

void GraphTimeDomain::ToggleCursorInfo() {
  const auto count = static_cast<std::int32_t>(kCursorModes.size());
  const std::int32_t mode = (view_.cursorMode() + 1) % count;
  view_.SetCursorMode(mode);
  info_.SetType(kCursorModes[static_cast<std::size_t>(mode)].info_type);
}

std::string_view GraphTimeDomain::cursorCaption() const {
  return kCursorModes[static_cast<std::size_t>(view_.cursorMode())].caption;
}

std::optional<Box> GraphTimeDomain::DisplayInfo(Point pointer, Size info_size) {
  const PlotColumns& columns = view_.PlotPoints();
  const std::int32_t column = columns.columnAtX(pointer.x);
  info_.SetInfo(cursor_rows(graph_, columns, column, shown_, view_.cursorMode()));
  if (info_.rows().empty()) return std::nullopt;
  const Box plot = view_.plotArea();
  return place_info(pointer, info_size, plot,
                    {plot.width + 2 * kPlotMargin, plot.height + kTimeAxisHeight});
}

void GraphTimeDomain::setCursor(bool b, double x) {
  if (view_.PlotPoints().columnAtX(x) < 0) return;
  (b ? cursors_.b : cursors_.a) = snapped_time(graph_, view_.PlotPoints(), x);
  RedrawGraph();
}

void GraphTimeDomain::moveCursor(bool b, std::int32_t columns) {
  std::optional<double>& cursor = b ? cursors_.b : cursors_.a;
  const PlotColumns& shown = view_.PlotPoints();
  if (!cursor || shown.count() == 0) return;
  cursor = std::clamp(*cursor + columns * shown.window / shown.count(), 0.0, total_);
  RedrawGraph();
}

void GraphTimeDomain::toggleCursors() {
  if (cursors_.a || cursors_.b) {
    cursors_ = {};
  } else if (isGenerated()) {
    // A third of the view from either side.
    cursors_ = {place_.position + place_.window / 3, place_.position + place_.window * 2 / 3};
  }
  RedrawGraph();
}

CursorTable GraphTimeDomain::cursorTable() const {
  return cursor_table(graph_, view_.PlotPoints().envelope, cursors_);
}

bool GraphTimeDomain::pressKey(std::string_view key) {
  using Form = GraphTimeDomain;
  static const std::unordered_map<std::string_view, void (*)(Form&)> kKeys{
      {"Left", [](Form& form) { form.scrollLeft(true); }},
      {"Right", [](Form& form) { form.scrollLeft(false); }},
      {"+",
       [](Form& form) {
         form.remember();
         form.zoomAbout(0.5, 0.5);
       }},
      {"-", [](Form& form) { form.zoomOut(); }},
      {"Home", [](Form& form) { form.moveTo(0); }},
      {"End", [](Form& form) { form.jumpTo(kEnd); }},
      {"V", [](Form& form) { form.ToggleCursorInfo(); }},
      {"A", [](Form& form) { form.toggleCursors(); }},
      {"Backspace", [](Form& form) { form.previousView(); }},
      {"Ctrl+Left", [](Form& form) { form.moveCursor(false, -1); }},
      {"Ctrl+Right", [](Form& form) { form.moveCursor(false, 1); }},
      {"Ctrl+Shift+Left", [](Form& form) { form.moveCursor(true, -1); }},
      {"Ctrl+Shift+Right", [](Form& form) { form.moveCursor(true, 1); }},
  };
  if (key.size() == 1 && key[0] >= '1' && key[0] <= '6') {
    const Trace trace = kToggleOrder[static_cast<std::size_t>(key[0] - '1')];
    SetCheckState(trace, !GetCheckState(trace));
    return true;
  }
  const auto found = kKeys.find(key);
  if (found == kKeys.end()) return false;
  found->second(*this);
  return true;
}

}  // namespace vantrel
