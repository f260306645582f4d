#include "waveforms/time_domain_view_form.h"

#include <algorithm>
#include <cmath>

#include "core/number_text.h"

namespace vantrel {

namespace {

constexpr std::size_t kVolts = 0;
constexpr std::size_t kAmperes = 1;
constexpr double kVoltsOfStep = 100;
constexpr double kStepsOfAmpere = 10;
constexpr double kTwipsOfPixel = 15;
constexpr double kPaperLessWide = 1000;  // twips
constexpr double kPaperLessHigh = 2000;

/// The length of a run that was neither cancelled nor failed, as its generator gives it.
double run_result(const GraphTD& graph) {
  if (!has_samples(graph) || graph.members().CancelRequested) return GraphTD::kFailed;
  return graph.ReturnStageTime(2, false) - graph.ReturnStageTime(0, true);
}

}  // namespace

GraphTimeDomain::GraphTimeDomain(GraphTD& graph, TimeDomainView& view)
    : graph_(graph), view_(view) {
  shown_[Trace::IL] = shown_[Trace::VR] = shown_[Trace::Freq] = true;
  applySlider(kVolts);
  applySlider(kAmperes);
  view_.SetFScale(0, 200);
  view_.NewMaxV = [this](double volts) { fit(kVolts, volts); };
  view_.NewMaxA = [this](double amperes) { fit(kAmperes, amperes); };
  view_.SetCursorMode(0);
  info_.SetType(kCursorModes[0].info_type);
}

bool GraphTimeDomain::Generate() {
  keep(graph_.GenerateTimeDomain());
  return isGenerated();
}

void GraphTimeDomain::takeRun() { keep(run_result(graph_)); }

void GraphTimeDomain::keep(double result) {
  result_ = result;
  history_.clear();
  zoom_.reset();
  cursors_ = {};
  view_.forget();
  findTotal();
  SetTimeWindow(0);
}

void GraphTimeDomain::DrawGraph() {
  scroll_ = {};
  SetGraphView(kMostWindow);
  RedrawGraph();
  if (onStates) onStates();
}

double GraphTimeDomain::cutOut() const {
  return short_timeline_ && isGenerated() ? graph_.GetDurationBetweenRepeatEndAndIgnition() : 0;
}

void GraphTimeDomain::findTotal() { total_ = isGenerated() ? result_ - cutOut() : 0; }

void GraphTimeDomain::SetGraphView(double ForceWindow) {
  place_.position = 0;
  findTotal();
  SetTimeWindow(ForceWindow);
  scroll_.enabled = true;
  has_view_ = true;
  RedrawGraph();
}

void GraphTimeDomain::RedrawGraph() const {
  if (onRedraw) onRedraw();
}

void GraphTimeDomain::SetTimeWindow(double NewWindow) {
  double window = NewWindow > 0 ? NewWindow : place_.window;
  window = std::max(window, kLeastWindow);
  window = std::min(window, kMostWindow);
  // Without a run there is no total, and the window stays for the next one.
  place_.window = isGenerated() ? std::min(window, total_) : window;
  place();
}

/// Keeps the view within the run and moves the scroll bar along.
void GraphTimeDomain::place() {
  const double room = total_ - place_.window;
  place_.position = std::clamp(place_.position, 0.0, std::max(room, 0.0));
  scroll_.visible = room > 0;
  if (!scroll_.visible) return;
  scroll_.largeChange = std::max(1, round_to_int32(TimeScrollBar::kRange * place_.window / total_));
  scroll_.value =
      TimeScrollBar::kMin + round_to_int32(place_.position / room * TimeScrollBar::kRange);
}

TimeDomainRequest GraphTimeDomain::request(bool printing) const {
  return {.UseShortTimeline = short_timeline_,
          .TimeOffset = place_.position,
          .TimeWindow = place_.window,
          .Printing = printing,
          .DPlotVIN = shown_[Trace::VIN],
          .DPlotIL = shown_[Trace::IL],
          .DPlotVR = shown_[Trace::VR],
          .DPlotIR = shown_[Trace::IR],
          .DPlotIC = shown_[Trace::IC],
          .DPlotFreq = shown_[Trace::Freq],
          .AutofitScale = autofit_};
}

Picture GraphTimeDomain::picture() {
  return {
      .title = "Time Domain Graph", .size = picture_size_, .draw = [this](DeviceContext& surface) {
        if (!view_.RenderTimeDomain(surface, request(), LineFinish::Fine)) return;
        draw_overlay(surface, view_, {{}, cursors_, {}}, Theme::Dark);
      }};
}

bool GraphTimeDomain::PrintScreen(const TimeDomainPaper& paper) {
  paper.setLandscape();
  DeviceContext* page = paper.startPage();
  if (page == nullptr) return false;
  const Size twips = paper.pageSize();
  view_.SetPrintSize((twips.width - kPaperLessWide) / kTwipsOfPixel,
                     (twips.height - kPaperLessHigh) / kTwipsOfPixel);
  view_.RenderTimeDomain(*page, request(true));
  paper.endDocument();
  return true;
}

Role GraphTimeDomain::SetButtonColours(Trace plot) const {
  return shown_[plot] ? trace_row(plot).colour : Role::Muted;
}

void GraphTimeDomain::SetCheckState(Trace plot, bool state) {
  if (shown_[plot] == state) return;
  shown_[plot] = state;
  RedrawGraph();
  if (onStates) onStates();
}

void GraphTimeDomain::shortTimeline(bool condensed) {
  if (short_timeline_ == condensed) return;
  const auto moved = [this](std::optional<double> time, auto convert) {
    if (time) time = convert(graph_, *time);
    return time;
  };
  const MeasuringCursors real{moved(cursors_.a, true_time), moved(cursors_.b, true_time)};
  short_timeline_ = condensed;
  graph_.shortTimeline(condensed);
  cursors_ = {moved(real.a, axis_time), moved(real.b, axis_time)};
  zoom_.reset();
  SetGraphView(kMostWindow);
}

void GraphTimeDomain::autofit(bool on) {
  autofit_ = on;
  for (ScaleSlider& slider : sliders_) slider.enabled = !on;
  if (!on) {
    applySlider(kVolts);
    applySlider(kAmperes);
  }
  RedrawGraph();
}

void GraphTimeDomain::moveSlider(std::size_t slider, std::int32_t value) {
  ScaleSlider& moved = sliders_[slider];
  moved.value = std::clamp(value, moved.least, moved.most);
  applySlider(slider);
  RedrawGraph();
}

void GraphTimeDomain::applySlider(std::size_t slider) {
  const double v = sliders_[slider].value;
  if (slider == kVolts) {
    view_.SetVScale(-kVoltsOfStep * v, kVoltsOfStep * v);
  } else {
    view_.SetAScale(-v / kStepsOfAmpere, v / kStepsOfAmpere);
  }
}

/// The scale takes the maximum itself, the slider the next step above it.
void GraphTimeDomain::fit(std::size_t slider, double maximum) {
  ScaleSlider& moved = sliders_[slider];
  const double steps = slider == kVolts ? maximum / kVoltsOfStep : maximum * kStepsOfAmpere;
  moved.value =
      static_cast<std::int32_t>(std::clamp<double>(std::ceil(steps), moved.least, moved.most));
  if (slider == kVolts) {
    view_.SetVScale(-maximum, maximum);
  } else {
    view_.SetAScale(-maximum, maximum);
  }
}

std::string GraphTimeDomain::rangeText(std::size_t slider) const {
  if (slider == kVolts) return "±" + format_mask(view_.scales().volts.max, "0") + " V";
  return "±" + format_mask(view_.scales().amperes.max, "0.0") + " A";
}

std::string GraphTimeDomain::visibleCsv() const {
  const double end = place_.position + place_.window;
  return samples_csv(graph_, true_time(graph_, place_.position), true_time(graph_, end));
}

TimeDomainRCL::TimeDomainRCL(FieldContext& context, GraphTimeDomain& form)
    : Screen("TimeDomainRCL", "Output Circuit", context), form_(form) {
  SetStates();
}

void TimeDomainRCL::display() {
  SetStates();
  visible(true);
}

void TimeDomainRCL::SetStates() {
  constexpr Colour kOff{240, 240, 240};
  constexpr std::array<Colour, 5> kOn{
      {{208, 255, 208}, {255, 208, 208}, {208, 208, 255}, {255, 255, 176}, {208, 255, 255}}};
  for (std::size_t i = 0; i < images_.size(); ++i) {
    const auto trace = static_cast<Trace>(i);
    const bool on = form_.GetCheckState(trace);
    images_[i] = {trace, on ? 2 : 1, on ? kOn[i] : kOff};
  }
  notifyLayoutChanged();
}

void TimeDomainRCL::click(std::size_t image) {
  const auto trace = static_cast<Trace>(image);
  form_.SetCheckState(trace, !form_.GetCheckState(trace));
  SetStates();
}

}  // namespace vantrel
