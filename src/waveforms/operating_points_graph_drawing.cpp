#include "waveforms/operating_points_graph_drawing.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "core/number_text.h"

namespace vantrel {

namespace {

constexpr double kMarkRadius = 6;
constexpr double kRingRadius = 4;
constexpr double kMarkRim = 2;
constexpr double kCurveWidth = 2;
constexpr double kLongTick = 6;
constexpr double kShortTick = 3;
constexpr double kTickLabelGap = 7;
constexpr double kGainLabelGap = 9;
constexpr double kLeastLabelGap = 6;
constexpr double kLeastTickGap = 2;
constexpr double kLeastGridGap = 8;
constexpr double kLegendShare = 0.5;  // of the plot's width at most
constexpr double kLegendMargin = 10;
constexpr double kLegendPadding = 8;
constexpr double kLegendSwatch = 34;
constexpr double kPlatePadding = 2;
constexpr std::uint8_t kPlateAlpha = 215;
constexpr double kFrequencyCaptionRise = 2;  // above the lower edge
constexpr double kGainCaptionLeft = 5;

constexpr HorizontalAlign kLeft = HorizontalAlign::Left;
constexpr HorizontalAlign kCentre = HorizontalAlign::Centre;
constexpr HorizontalAlign kRight = HorizontalAlign::Right;
constexpr VerticalAlign kTop = VerticalAlign::Top;
constexpr VerticalAlign kMiddle = VerticalAlign::Middle;
constexpr VerticalAlign kBottom = VerticalAlign::Bottom;

const std::vector<double> kCurveDashes{12, 6};

/// In the middle of a row or column of pixels, where a line one pixel wide is sharp.
double crisp(double position) { return std::floor(position) + 0.5; }

Role curve_role(std::size_t curve) {
  return curve == 0 ? Role::Curve0 : curve == 1 ? Role::Curve1 : Role::Curve2;
}

/// The spacing, doubled until ticks on a very long axis stand so many pixels apart.
double widened(double spacing, double least, const GainScale& scale) {
  const double pixels = scale.plot.width / (scale.end - scale.start);
  while (spacing * pixels < least) spacing *= 2;
  return spacing;
}

/// Alternate segments, as the curve of the dimmed lamp is drawn.
std::vector<CurveSegment> alternate(std::vector<CurveSegment> segments) {
  std::erase_if(segments, [](const CurveSegment& segment) { return segment.index % 2 != 0; });
  return segments;
}

void fill(DeviceContext& surface, const Box& box, Colour colour) {
  surface.setNoPen();
  surface.setBrush(colour);
  surface.rectangle(box);
}

void line(DeviceContext& surface, Point from, Point to) {
  surface.moveTo(from);
  surface.lineTo(to);
}

Box around(Point middle, double radius) {
  return {middle.x - radius, middle.y - radius, 2 * radius, 2 * radius};
}

}  // namespace

std::string tank_line(const GraphInputs& inputs) {
  return "L = " + format_mask(inputs.L, "##.00") + " mH,  C = " + format_mask(inputs.C, "##.00") +
         " nF";
}

void draw_notice(DeviceContext& surface, Theme theme, Size area, std::string_view text) {
  surface.save();
  fill(surface, {0, 0, area.width, area.height}, theme_colour(Role::Panel, theme));
  surface.setFont({});
  surface.setTextColour(theme_colour(Role::Text, theme));
  surface.setTextAlign({kCentre, kMiddle});
  surface.text({area.width / 2, area.height / 2}, text);
  surface.restore();
}

GraphDrawing::GraphDrawing(DeviceContext& surface, Theme theme, const GraphInputs& inputs,
                           Size area, double start_offset, double end_offset)
    : surface_(surface),
      theme_(theme),
      inputs_(inputs),
      area_(area),
      scale_(area, inputs, start_offset, end_offset),
      marks_(graph_marks(inputs)),
      room_(scale_.plot) {
  for (std::size_t curve = 0; curve < inputs.loads.size(); ++curve) {
    curves_.push_back(curve_segments(scale_, inputs, curve));
  }
  joinMarks();
  std::erase_if(marks_, [this](const GraphMark& mark) { return !isShown(mark); });
  takeRoom();
}

bool GraphDrawing::isShown(const GraphMark& mark) const {
  return scale_.shows(mark.frequency, static_cast<double>(mark.gain));
}

void GraphDrawing::joinMarks() {
  const GraphMark* before = nullptr;
  for (const GraphMark& mark : marks_) {
    if (!mark.on_path) continue;
    if (before != nullptr && isShown(*before) && isShown(mark)) {
      arrows_.push_back(graph_arrows(*before, mark));
    }
    before = &mark;
  }
}

void GraphDrawing::takeRoom() {
  for (const auto& curve : curves_) {
    for (const auto& points : joined(curve)) room_.avoidLine(points);
  }
  for (const Arrow& arrow : arrows_) room_.avoidLine(arrow.shaft);
  for (const GraphMark& mark : marks_) room_.avoidMark(at(mark), kMarkRadius);
}

void GraphDrawing::draw() {
  surface_.save();
  surface_.setFont({});
  drawPaper();
  drawGainAxis();
  drawFrequencyAxis();
  drawCaptions();
  drawCurves();
  drawLegend();
  for (const Arrow& arrow : arrows_) drawArrow(arrow);
  for (const GraphMark& mark : marks_) drawMark(mark);
  for (const GraphMark& mark : marks_) drawLabel(mark);
  surface_.restore();
}

Pen GraphDrawing::curvePen(std::size_t curve) const {
  return {colour(curve_role(curve)), kCurveWidth,
          curve == 1 ? kCurveDashes : std::vector<double>{}};
}

Point GraphDrawing::at(const GraphMark& mark) const {
  return {scale_.x(mark.frequency), scale_.y(static_cast<double>(mark.gain))};
}

void GraphDrawing::drawPaper() {
  fill(surface_, {0, 0, area_.width, area_.height}, colour(Role::Panel));
}

void GraphDrawing::drawGainAxis() {
  const Box& plot = scale_.plot;
  surface_.setTextColour(colour(Role::Muted));
  surface_.setTextAlign({kRight, kMiddle});
  const double height = surface_.textExtent("0").height;
  double last = HUGE_VAL;
  for (int gain = 0; gain <= static_cast<int>(GainScale::kMaxGain); ++gain) {
    const double y = crisp(scale_.y(gain));
    surface_.setPen({colour(Role::Grid), 1, {}});
    line(surface_, {plot.left, y}, {plot.right(), y});
    surface_.setPen({colour(Role::Muted), 1, {}});
    line(surface_, {plot.left - kShortTick, y}, {plot.left, y});
    if (last - y < height) continue;
    last = y;
    surface_.text({plot.left - kGainLabelGap, y}, general_text(gain));
  }
}

double GraphDrawing::labelStride(double spacing) {
  const double first = std::ceil(scale_.start / spacing) * spacing;
  const double last = std::floor(scale_.end / spacing) * spacing;
  const double widest = std::max(surface_.textExtent(general_text(first / 1000)).width,
                                 surface_.textExtent(general_text(last / 1000)).width);
  const double room = scale_.x(first + spacing) - scale_.x(first);
  return spacing * std::max(1.0, std::ceil((widest + kLeastLabelGap) / room));
}

void GraphDrawing::drawFrequencyAxis() {
  const Box& plot = scale_.plot;
  TickSpacing ticks = tick_spacing(plot.width);
  ticks.step = widened(ticks.step, kLeastTickGap, scale_);
  ticks.labelled = widened(ticks.labelled, kLeastGridGap, scale_);
  const double bottom = crisp(plot.bottom());
  surface_.setPen({colour(Role::Muted), 1, {}});
  for (double f = std::ceil(scale_.start / ticks.step) * ticks.step; f <= scale_.end;
       f += ticks.step) {
    const double x = crisp(scale_.x(f));
    line(surface_, {x, bottom}, {x, bottom + kShortTick});
  }
  surface_.setTextAlign({kCentre, kTop});
  const double stride = labelStride(ticks.labelled);
  for (double f = std::ceil(scale_.start / ticks.labelled) * ticks.labelled; f <= scale_.end;
       f += ticks.labelled) {
    const double x = crisp(scale_.x(f));
    surface_.setPen({colour(Role::Grid), 1, {}});
    line(surface_, {x, plot.top}, {x, bottom});
    surface_.setPen({colour(Role::Muted), 1, {}});
    line(surface_, {x, bottom}, {x, bottom + kLongTick});
    if (std::fmod(f, stride) != 0) continue;
    surface_.text({x, bottom + kTickLabelGap}, general_text(f / 1000));
  }
  line(surface_, {plot.left, bottom}, {plot.right(), bottom});
  line(surface_, {crisp(plot.left), plot.top}, {crisp(plot.left), bottom});
}

void GraphDrawing::drawCaptions() {
  const Box& plot = scale_.plot;
  surface_.setTextColour(colour(Role::Text));
  surface_.setTextAlign({kCentre, kBottom});
  surface_.text({plot.left + plot.width / 2, area_.height - kFrequencyCaptionRise},
                "Frequency (Khz)");
  surface_.setFont({.face = "Arial", .angle = 90});
  surface_.setTextAlign({kCentre, kTop});
  surface_.text({kGainCaptionLeft, plot.top + plot.height / 2}, "V Lamp / V in");
  surface_.setFont({});
}

void GraphDrawing::drawCurve(std::size_t curve) {
  surface_.setPen(curvePen(curve));
  const auto& segments = curves_[curve];
  for (const auto& points : joined(curve == 2 ? alternate(segments) : segments)) {
    surface_.polyline(points);
  }
}

void GraphDrawing::drawCurves() {
  for (std::size_t curve = 0; curve < curves_.size(); ++curve) drawCurve(curve);
  // Once more, so that the open lamp's curve lies above the others where they meet.
  surface_.setPen(curvePen(0));
  for (const auto& points : joined(full_steps(curves_[0]))) surface_.polyline(points);
}

void GraphDrawing::drawLegend() {
  const double row = surface_.textExtent("L").height + 4;
  double width = surface_.textExtent(tank_line(inputs_)).width;
  for (std::size_t curve = 0; curve < curves_.size(); ++curve) {
    width = std::max(width, surface_.textExtent(curve_name(inputs_, curve)).width + kLegendSwatch +
                                kLegendPadding);
  }
  const auto rows = static_cast<double>(curves_.size() + 1);
  Size size{width + 2 * kLegendPadding, rows * row + 2 * kLegendPadding - 4};
  const bool fits =
      size.width < kLegendShare * scale_.plot.width && size.height < scale_.plot.height / 2;
  if (!fits) size = {surface_.textExtent(tank_line(inputs_)).width + 8, row + 4};
  const Box box = room_.placeInCorner(size, fits ? kLegendMargin : 0);

  Colour plate = colour(Role::Panel);
  plate.alpha = kPlateAlpha;
  surface_.setBrush(plate);
  if (fits) {
    surface_.setPen({colour(Role::PanelBorder), 1, {}});
  } else {
    surface_.setNoPen();
  }
  surface_.rectangle({crisp(box.left), crisp(box.top), box.width, box.height});
  surface_.setTextColour(colour(Role::Text));
  surface_.setTextAlign({kLeft, kMiddle});
  const double first = box.top + (fits ? kLegendPadding - 2 : 2) + row / 2;
  surface_.text({box.left + (fits ? kLegendPadding : 4), first}, tank_line(inputs_));
  if (!fits) return;
  for (std::size_t curve = 0; curve < curves_.size(); ++curve) {
    drawLegendRow(box, first + row * static_cast<double>(curve + 1), curve);
  }
}

void GraphDrawing::drawLegendRow(const Box& box, double middle, std::size_t curve) {
  const double left = box.left + kLegendPadding;
  Pen pen = curvePen(curve);
  if (curve == 2) pen.dashes = {5, 5};
  surface_.setPen(pen);
  line(surface_, {left, crisp(middle)}, {left + kLegendSwatch, crisp(middle)});
  surface_.text({left + kLegendSwatch + kLegendPadding, middle}, curve_name(inputs_, curve));
}

void GraphDrawing::drawMark(const GraphMark& mark) {
  const Colour own = colour(curve_role(mark.curve));
  // A ring for a point that the start-up of this IC does not pass.
  surface_.setPen({colour(mark.on_path ? Role::Panel : curve_role(mark.curve)), kMarkRim, {}});
  surface_.setBrush(mark.on_path ? own : colour(Role::Panel));
  surface_.ellipse(around(at(mark), mark.on_path ? kMarkRadius : kRingRadius));
}

void GraphDrawing::drawLabel(const GraphMark& mark) {
  if (mark.label.empty()) return;
  surface_.setFont({.face = "Arial", .bold = true});
  Size size = surface_.textExtent(mark.label);
  size.width += 2 * kPlatePadding;
  const Box box = room_.place(at(mark), size);
  Colour plate = colour(Role::Panel);
  plate.alpha = kPlateAlpha;
  fill(surface_, box, plate);
  surface_.setTextColour(colour(Role::Text));
  surface_.setTextAlign({kCentre, kMiddle});
  surface_.text({box.left + box.width / 2, box.top + box.height / 2}, mark.label);
  surface_.setFont({});
}

}  // namespace vantrel
