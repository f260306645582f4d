#include "waveforms/time_domain_view_drawing.h"

#include <algorithm>
#include <cmath>

#include "core/number_text.h"
#include "waveforms/time_domain_view_lines.h"

namespace vantrel {

namespace {

constexpr double kStageLabelRight = 8;
constexpr double kStageLabelTop = 8;
constexpr double kStageLabelPitch = 10;
constexpr double kPlatePadding = 2;
constexpr std::uint8_t kPlateAlpha = 215;
constexpr double kBoundWidth = 1.5;
constexpr std::uint8_t kBandAlpha = 115;  // 45 %
constexpr double kLegendGap = 2;
constexpr double kPrintedLegendGap = 6;  // to the axis, black like the words
/// A line that is so many times longer than the plot is wide is too dense for wide pens: they would
/// only run together.
constexpr double kDense = 6;
constexpr double kDenseFine = 24;
const std::vector<double> kStageDashes{4, 3};

Font bold() { return {.bold = true}; }

}  // namespace

void draw_time_domain_notice(DeviceContext& surface, Theme theme, Size area,
                             std::string_view text) {
  surface.save();
  surface.setNoPen();
  surface.setBrush(theme_colour(Role::TimeBackground, theme));
  surface.rectangle({0, 0, area.width, area.height});
  surface.setFont({});
  surface.setTextColour(theme_colour(Role::TimeText, theme));
  surface.setTextAlign({HorizontalAlign::Centre, VerticalAlign::Middle});
  surface.text({area.width / 2, area.height / 2}, text);
  surface.restore();
}

TimeDomainDrawing::TimeDomainDrawing(DeviceContext& surface, Theme theme, Size area,
                                     const PlotColumns& columns, const TimeDomainScales& scales,
                                     const TraceSet& shown, const StageName& stage_name,
                                     LineFinish finish)
    : surface_(surface),
      theme_(theme),
      area_(area),
      columns_(columns),
      scales_(scales),
      shown_(shown),
      stage_name_(stage_name),
      finish_(finish),
      plot_{kPlotMargin, 0, columns.width, area.height - kTimeAxisHeight} {}

void TimeDomainDrawing::draw() {
  surface_.save();
  surface_.setFont({});
  drawPaper();
  if (columns_.first < columns_.count() && plot_.height > 0) {
    const double volts = tick_interval(scales_.volts, plot_.height, 100.0, 1200.0);
    const double amperes = tick_interval(scales_.amperes, plot_.height, 0.2, 1.0);
    drawStages();
    drawGrid(scales_.volts, volts, true);
    drawGrid(scales_.amperes, amperes, false);
    drawStageLabels();
    drawTraces();
    drawLegends();
    drawValueAxis(scales_.volts, volts, true);
    drawValueAxis(scales_.amperes, amperes, false);
    drawTimeAxis();
    drawFrame();
  }
  surface_.restore();
}

double TimeDomainDrawing::y(double value, const AxisScale& scale) const {
  return plot_.height - (value - scale.min) * plot_.height / (scale.max - scale.min);
}

void TimeDomainDrawing::fill(const Box& box, Colour colour) {
  surface_.setNoPen();
  surface_.setBrush(colour);
  surface_.rectangle(box);
}

// Straight lines one pixel wide are boxes, which are sharp and drawn at no cost.
void TimeDomainDrawing::upright(double x, double top, double bottom) {
  surface_.rectangle({std::floor(x), top, 1, bottom - top});
}

void TimeDomainDrawing::level(double y, double left, double right) {
  surface_.rectangle({left, std::floor(y), right - left, 1});
}

void TimeDomainDrawing::drawPaper() {
  fill({0, 0, area_.width, area_.height}, colour(Role::TimeBackground));
}

namespace {
Role stage_role(std::int32_t stage) {
  return stage == 0 ? Role::Stage0 : stage == 1 ? Role::Stage1 : Role::Stage2;
}
}  // namespace

void TimeDomainDrawing::drawStages() {
  if (isPrint()) return;
  for (std::size_t i = 0; i < columns_.borders.size(); ++i) {
    const StageBorder& border = columns_.borders[i];
    const double left = x(border.column);
    const double right =
        i + 1 < columns_.borders.size() ? x(columns_.borders[i + 1].column) : plot_.right();
    fill({left, 0, right - left, plot_.height}, colour(stage_role(border.stage)));
  }
}

void TimeDomainDrawing::drawStageLabels() {
  surface_.setFont(bold());
  surface_.setTextAlign({});
  for (const StageBorder& border : columns_.borders) {
    if (border.column > columns_.first) {
      const double middle = x(border.column) + 0.5;
      surface_.setPen({colour(Role::TimeText), 1, kStageDashes});
      surface_.moveTo({middle, 0});
      surface_.lineTo({middle, plot_.height});
    }
    const std::string text = stage_name_(border.stage);
    const Point at{x(border.column) + kStageLabelRight,
                   border.stage * kStageLabelPitch + kStageLabelTop};
    if (isPrint()) {
      const Size size = surface_.textExtent(text);
      fill({at.x - kPlatePadding, at.y, size.width + 2 * kPlatePadding, size.height},
           colour(stage_role(border.stage)));
    }
    surface_.setTextColour(colour(Role::TimeText));
    surface_.text(at, text);
  }
}

void TimeDomainDrawing::drawTraces() {
  for (const Trace trace : kDrawingOrder) {
    if (shown_[trace]) drawTrace(trace_row(trace));
  }
}

std::vector<Point> TimeDomainDrawing::linePoints(const TraceRow& row,
                                                 double (*value)(const PlotPoint&)) const {
  const AxisScale& scale = scales_.of(row.axis);
  std::vector<Point> points;
  points.reserve(columns_.points.size());
  for (std::int32_t column = columns_.first; column < columns_.count(); ++column) {
    points.push_back({x(column), y(value(columns_.at(column)), scale)});
  }
  return points;
}

void TimeDomainDrawing::drawTrace(const TraceRow& row) {
  const std::vector<Point> upper = linePoints(row, row.upper);
  if (columns_.envelope && row.axis != TraceAxis::Frequency) {
    drawBand(row, upper, linePoints(row, row.lower));
  } else {
    drawLine(upper, trace_pen(row.trace, theme_));
  }
}

void TimeDomainDrawing::drawBand(const TraceRow& row, const std::vector<Point>& upper,
                                 const std::vector<Point>& lower) {
  Pen pen = trace_pen(row.trace, theme_);
  if (!isPrint()) {
    pen.width = kBoundWidth;
    fillBand(pen.colour, upper, lower);
  }
  drawLine(upper, pen);
  drawLine(lower, pen);
}

/// A vertical line from bound to bound in each column; as one shape of whole pixels, since the
/// columns touch.
void TimeDomainDrawing::fillBand(Colour tint, const std::vector<Point>& upper,
                                 const std::vector<Point>& lower) {
  std::vector<Point> shape;
  shape.reserve(4 * upper.size());
  const auto add = [&](double x, double y) {
    y = std::clamp(std::nearbyint(y), 0.0, plot_.height);
    const std::size_t n = shape.size();
    if (n > 1 && shape[n - 1].y == y && shape[n - 2].y == y) shape.pop_back();
    shape.push_back({x, y});
  };
  const auto end_of = [&](std::size_t i) {
    return i + 1 < upper.size() ? upper[i + 1].x : plot_.right();
  };
  for (std::size_t i = 0; i < upper.size(); ++i) {
    add(upper[i].x, upper[i].y);
    add(end_of(i), upper[i].y);
  }
  for (std::size_t i = lower.size(); i-- > 0;) {
    add(end_of(i), lower[i].y);
    add(lower[i].x, lower[i].y);
  }
  tint.alpha = kBandAlpha;
  surface_.setNoPen();
  surface_.setBrush(tint);
  surface_.polygon(shape);
}

void TimeDomainDrawing::drawLine(const std::vector<Point>& points, const Pen& pen) {
  const auto parts = within_heights(without_idle_points(points), 0, plot_.height);
  double length = 0;
  for (const auto& part : parts) length += line_length(part);
  const double most = finish_ == LineFinish::Fine ? kDenseFine : kDense;
  const bool dense = length > most * plot_.width;
  surface_.setNoBrush();
  for (const auto& part : parts) {
    if (finish_ == LineFinish::Fine) {
      surface_.setPen(dense ? Pen{pen.colour, 1, {}} : pen);
      surface_.polyline(part);
    } else {
      surface_.setPen({pen.colour, 1, pen.dashes});
      surface_.polyline(part);
      if (!dense && pen.width > 1) drawWide(part, pen);
    }
  }
}

/// Widens a line that is drawn already to the right and down.
void TimeDomainDrawing::drawWide(std::span<const Point> line, const Pen& pen) {
  const double more = pen.width - 1;
  for (const Point by : {Point{more, 0}, Point{0, more}}) {
    std::vector<Point> moved(line.begin(), line.end());
    for (Point& point : moved) {
      point = {std::min(point.x + by.x, plot_.right()), std::min(point.y + by.y, plot_.height)};
    }
    surface_.polyline(moved);
  }
}

void TimeDomainDrawing::drawLegends() {
  surface_.setFont(bold());
  surface_.setTextAlign({});
  std::vector<Legend> list = legends();
  moveApart(list);
  for (const Legend& legend : list) {
    const bool pale = legend.row->trace == Trace::VR && !isPrint();
    Colour plate = colour(pale ? Role::TimeText : Role::TimeBackground);
    plate.alpha = kPlateAlpha;
    fill(legend.box, plate);
    surface_.setTextColour(colour(pale ? legend.row->colour : legend.row->text_colour));
    surface_.text({legend.box.left + kPlatePadding, legend.box.top}, legend.text);
  }
}

std::vector<TimeDomainDrawing::Legend> TimeDomainDrawing::legends() {
  std::vector<Legend> list;
  addLegend(list, Trace::Freq, 120);
  addLegend(list, Trace::IC, 80);
  addLegend(list, Trace::IR, 80);
  addLegend(list, Trace::VIN, 60);
  addLegend(list, Trace::VR, 40);
  addLegend(list, Trace::IL, 1);
  return list;
}

/// Beside the curve at the column that lies so far from the end, inside the plot.
void TimeDomainDrawing::addLegend(std::vector<Legend>& list, Trace trace, std::int32_t from_end) {
  const std::int32_t column = columns_.count() - from_end;
  if (!shown_[trace] || column < columns_.first || (from_end > 1 && column <= 0)) return;
  const TraceRow& row = trace_row(trace);
  const PlotPoint& point = columns_.at(column);
  std::string text(row.label);
  if (trace == Trace::Freq) text += " " + format_mask(row.upper(point), "0.00") + " KHz";
  const Size size = surface_.textExtent(text);
  const double width = size.width + 2 * kPlatePadding;
  const double top = y(row.upper(point), scales_.of(row.axis)) - size.height - kLegendGap;
  const double right = plot_.right() - (isPrint() ? kPrintedLegendGap : 0);
  list.push_back(
      {&row,
       std::move(text),
       {std::min(x(column), right - width),
        std::clamp(top, 0.0, std::max(0.0, plot_.height - size.height)), width, size.height}});
}

void TimeDomainDrawing::moveApart(std::vector<Legend>& list) const {
  const auto meets = [](const Box& a, const Box& b) {
    return a.left < b.right() && b.left < a.right() && a.top < b.bottom() && b.top < a.bottom();
  };
  for (std::size_t i = 1; i < list.size(); ++i) {
    const auto is_free = [&](double top) {
      Box box = list[i].box;
      box.top = top;
      return top >= 0 && box.bottom() <= plot_.height &&
             std::none_of(list.begin(), list.begin() + static_cast<std::ptrdiff_t>(i),
                          [&](const Legend& other) { return meets(box, other.box); });
    };
    const double wanted = list[i].box.top;
    for (double away = 0; away < plot_.height; away += kLegendGap) {
      const double top = is_free(wanted - away) ? wanted - away : wanted + away;
      if (!is_free(top)) continue;
      list[i].box.top = top;
      break;
    }
  }
}

}  // namespace vantrel
