#include "waveforms/time_domain_view_form.h"

#include <cmath>

#include "core/number_text.h"
#include "core/recording_device_context.h"
#include "time_domain_fixture.h"

namespace vantrel::test {
namespace {

constexpr Size kControl{1200, 740};

class TimeDomainForm : public TimeDomainFixture {
 protected:
  void SetUp() override {
    graph.GenerateFrom(kDefaultDesign);
    form.onRedraw = [this] { ++redraws; };
    form.takeRun();
    form.DrawGraph();
    cut = graph.GetDurationBetweenRepeatEndAndIgnition();
    total = graph.report().result - cut;
    render();
  }
  void render() {
    RecordingDeviceContext surface(kControl);
    form.render(surface);
  }

  TimeDomainView view{graph, messages};
  GraphTimeDomain form{graph, view};
  int redraws = 0;
  double cut = 0;
  double total = 0;
};

TEST_F(TimeDomainForm, StartsWithTheWholeCondensedStart) {
  EXPECT_TRUE(form.IsShortTimeline());
  EXPECT_DOUBLE_EQ(form.TotalTime(), total);
  EXPECT_DOUBLE_EQ(form.TimeWindow(), total);
  EXPECT_EQ(form.TimePosition(), 0);
  EXPECT_FALSE(form.timeScroll().visible);
  EXPECT_TRUE(form.timeScroll().enabled);
  EXPECT_EQ(view.scales().volts, (AxisScale{-1000, 1000}));
  EXPECT_EQ(view.scales().amperes, (AxisScale{-2, 2}));
  EXPECT_EQ(view.scales().frequency, (AxisScale{0, 200}));
  EXPECT_EQ(form.rangeText(0), "±1000 V");
  EXPECT_EQ(form.rangeText(1), "±2.0 A");
  form.shortTimeline(false);
  EXPECT_DOUBLE_EQ(form.TotalTime(), graph.report().result);
  EXPECT_EQ(form.TimeWindow(), 20000);
}

TEST_F(TimeDomainForm, KeepsWindowAndPositionWithinTheRun) {
  struct Case {
    double asked;
    double window;
  };
  for (const auto& [asked, window] :
       {Case{100, 100}, Case{0, 100}, Case{-3, 100}, Case{4.9, 5}, Case{30000, total}}) {
    form.SetTimeWindow(asked);
    EXPECT_DOUBLE_EQ(form.TimeWindow(), window);
  }
  form.SetTimeWindow(1000);
  form.moveTo(-5);
  EXPECT_EQ(form.TimePosition(), 0);
  form.moveTo(1e9);
  EXPECT_DOUBLE_EQ(form.TimePosition(), total - 1000);
  // The total wins over the least window.
  graph.GenerateFrom({{"TargetNumber", 5}, {"PreheatTime", -9996}, {"RepeatEnd", 0}});
  form.takeRun();
  form.SetGraphView(100);
  EXPECT_EQ(form.TimeWindow(), 3);
}

TEST_F(TimeDomainForm, ScrollBarGoesAlong) {
  form.SetTimeWindow(1000);
  form.moveTo(0);
  EXPECT_TRUE(form.timeScroll().visible);
  EXPECT_EQ(form.timeScroll().value, -32768);
  EXPECT_EQ(form.timeScroll().largeChange, std::lround(65535 * 1000 / total));
  form.scrollTo(32767);
  EXPECT_DOUBLE_EQ(form.TimePosition(), total - 1000);
  form.scrollTo(-32768 + 6553);
  EXPECT_NEAR(form.TimePosition(), (total - 1000) * 6553 / 65535, 1e-9);
  EXPECT_EQ(form.timeScroll().value, -32768 + 6553);
  const double before = form.TimePosition();
  form.scrollLeft(true);
  EXPECT_DOUBLE_EQ(form.TimePosition(), before - 25);
  EXPECT_TRUE(form.pressKey("Right"));
  EXPECT_DOUBLE_EQ(form.TimePosition(), before);
}

TEST_F(TimeDomainForm, ZoomsAndFindsBack) {
  EXPECT_FALSE(form.mnuZoomIn());
  form.zoomSpan(600, 500);  // backwards
  ASSERT_TRUE(form.mnuZoomIn());
  form.zoomIn();
  EXPECT_NEAR(form.TimePosition(), total * 0.4, 1e-6);
  EXPECT_NEAR(form.TimeWindow(), total * 0.1, 1e-6);
  EXPECT_FALSE(form.mnuZoomIn());
  EXPECT_EQ(form.ViewHistory(), (std::vector<TimeDomainPlace>{{total, 0}}));
  EXPECT_FALSE(form.mnuPrevious());  // needs two
  const TimeDomainPlace zoomed{form.TimeWindow(), form.TimePosition()};
  form.zoomOut();
  EXPECT_NEAR(form.TimeWindow(), total * 0.2, 1e-6);
  EXPECT_NEAR(form.TimePosition(), total * 0.35, 1e-6);
  ASSERT_TRUE(form.mnuPrevious());
  form.previousView();
  EXPECT_EQ(form.TimeWindow(), zoomed.window);
  EXPECT_EQ(form.TimePosition(), zoomed.position);
  EXPECT_FALSE(form.mnuPrevious());
  form.zoomSpan(500, 500.2);
  EXPECT_FALSE(form.mnuZoomIn());
  for (int i = 0; i < 120; ++i) form.zoomOut();
  EXPECT_EQ(form.ViewHistory().size(), 100U);
  form.takeRun();
  EXPECT_TRUE(form.ViewHistory().empty());
  // The wheel keeps what is under the pointer.
  form.SetGraphView(1000);
  form.moveTo(4000);
  form.zoomAbout(0.25, 0.5);
  EXPECT_DOUBLE_EQ(form.TimePosition() + 0.25 * 500, 4250);
  EXPECT_TRUE(form.ViewHistory().empty());
}

TEST_F(TimeDomainForm, JumpsToTheStages) {
  form.SetTimeWindow(500);
  const double ignition = 1000000 - cut;
  const double run = graph.StageTable()[2].StartTime - cut;
  struct Case {
    GraphTimeDomain::Jump to;
    double condensed;
    double full;
  };
  const std::vector<Case> cases{{GraphTimeDomain::kStart, 0, 1.5},
                                {GraphTimeDomain::kIgnition, ignition, 1000000},
                                {GraphTimeDomain::kRun, run, run + cut},
                                {GraphTimeDomain::kEnd, total - 500, total + cut - 500}};
  for (const bool condensed : {true, false}) {
    form.shortTimeline(condensed);
    form.SetTimeWindow(500);
    for (const Case& c : cases) {
      form.jumpTo(c.to);
      EXPECT_NEAR(form.TimePosition(), condensed ? c.condensed : c.full, 1e-6) << c.to;
    }
  }
  EXPECT_EQ(form.MnuJumpTo(), (std::array<std::string_view, 4>{"Start", "Ignition", "Run", "End"}));
  graph.GenerateFrom({{"TargetNumber", 9}, {"PreheatTime", 10000}});
  EXPECT_EQ(form.MnuJumpTo()[1], "Frequency Sweep");
}

TEST_F(TimeDomainForm, TogglesSlidersAndOutputCircuitGoInStep) {
  TimeDomainRCL circuit(context, form);
  form.onStates = [&] { circuit.SetStates(); };
  circuit.display();
  const std::array<Colour, 5> on{
      {{208, 255, 208}, {255, 208, 208}, {208, 208, 255}, {255, 255, 176}, {208, 255, 255}}};
  for (std::size_t i = 0; i < on.size(); ++i) {
    const auto trace = static_cast<Trace>(i);
    for (int click = 0; click < 2; ++click) {
      const bool wanted = !form.GetCheckState(trace);
      circuit.click(i);
      EXPECT_EQ(form.GetCheckState(trace), wanted);
      EXPECT_EQ(circuit.images()[i].picture, wanted ? 2 : 1);
      EXPECT_EQ(circuit.images()[i].background, wanted ? on[i] : (Colour{240, 240, 240}));
    }
  }
  EXPECT_EQ(form.request().traces(), (TraceSet{{false, true, true, false, false, true}}));
  form.pressKey("1");  // the first toggle is the inductor current
  EXPECT_FALSE(form.GetCheckState(Trace::IL));
  EXPECT_EQ(form.SetButtonColours(Trace::IL), Role::Muted);
  EXPECT_EQ(circuit.images()[1].picture, 1);
  form.pressKey("4");
  EXPECT_FALSE(form.GetCheckState(Trace::Freq));

  form.moveSlider(0, 7);
  form.moveSlider(1, 99);
  EXPECT_EQ(view.scales().volts, (AxisScale{-700, 700}));
  EXPECT_EQ(view.scales().amperes, (AxisScale{-5, 5}));
  form.autofit(true);
  EXPECT_FALSE(form.slider(0).enabled);
  render();
  const double fitted = view.scales().volts.max;
  EXPECT_EQ(form.slider(0).value, std::ceil(fitted / 100));
  EXPECT_GT(fitted, 600);
  form.autofit(false);
  EXPECT_TRUE(form.slider(1).enabled);
  EXPECT_EQ(view.scales().volts.max, form.slider(0).value * 100.0);
}

TEST_F(TimeDomainForm, ReadsTheCursorOut) {
  for (const Trace trace : kToggleOrder) form.SetCheckState(trace, true);
  form.SetTimeWindow(13000);
  render();
  ASSERT_TRUE(view.PlotPoints().envelope);
  const PlotPoint point = view.PlotPoints().at(400);
  EXPECT_EQ(form.cursorCaption(), "Absolute Values");
  EXPECT_EQ(form.info().type(), 4);
  const auto at = form.DisplayInfo({500, 100}, {150, 90});
  EXPECT_EQ(at, (Box{516, 100, 150, 90}));
  const auto& rows = form.info().rows();
  ASSERT_EQ(rows.size(), 7U);
  const TimeDomainSample& sample = graph.Samples()[static_cast<std::size_t>(point.SampleNo)];
  EXPECT_EQ(rows[0].text, format_mask(point.Time / 1e6, "0.00####") + "S");
  EXPECT_EQ(rows[2].text, format_mask(sample.VR, "0.0") + "V");
  EXPECT_EQ(rows[3].text, format_mask(sample.IL, "0.000") + "A");
  EXPECT_EQ(rows[6].text, format_mask(sample.FrequencyKHz, "0.00") + " KHz");

  form.pressKey("V");
  EXPECT_EQ(form.cursorCaption(), "Domain Values");
  EXPECT_EQ(form.info().type(), 6);
  EXPECT_EQ(form.DisplayInfo({1000, 690}, {150, 90}), (Box{834, 650, 150, 90}));
  form.DisplayInfo({500, 100}, {150, 90});
  const double first = point.SampleNo / 64 * 64;
  const double from = point.Time - (point.SampleNo - first) * 0.05;
  EXPECT_EQ(rows[0].text, format_mask(from / 1e6, "0.00####") + "S to " +
                              format_mask((from + 1023 * 0.05) / 1e6, "0.00####") + "S");
  EXPECT_EQ(rows[2].text, format_mask(point.VRMin, "0.0") + " to " +
                              format_mask(point.VRMax, "0.0") + "V (" +
                              format_mask((point.VRMin + point.VRMax) / 2, "0.0") + "V)");
  EXPECT_TRUE(rows[4].text.ends_with("A)"));
  EXPECT_TRUE(rows[6].text.ends_with(" KHz)"));
  EXPECT_FALSE(form.DisplayInfo({50, 100}, {150, 90}));
  EXPECT_FALSE(form.DisplayInfo({500, 720}, {150, 90}));

  form.ToggleCursorInfo();
  EXPECT_EQ(form.cursorCaption(), "No Values");
  EXPECT_FALSE(form.DisplayInfo({500, 100}, {150, 90}));
  form.ToggleCursorInfo();
  EXPECT_EQ(form.cursorCaption(), "Absolute Values");
}

TEST_F(TimeDomainForm, MeasuresBetweenTwoCursors) {
  form.SetTimeWindow(100);
  form.jumpTo(GraphTimeDomain::kIgnition);
  form.moveTo(form.TimePosition() - 50);
  render();
  const double ignition = 1000000 - cut;
  form.setCursor(false, 597);  // 3 pixels beside the border, which attracts it
  EXPECT_DOUBLE_EQ(*form.cursors().a, ignition);
  form.setCursor(true, 850);
  const double b = *form.cursors().b;
  EXPECT_NEAR(b, ignition + 25, 0.11);
  const CursorTable table = form.cursorTable();
  ASSERT_EQ(table.rows.size(), 6U);
  EXPECT_EQ(table.header,
            (std::vector<std::string>{"", "Time", "Freq", "VIN", "VR", "IL", "IR", "IC"}));
  EXPECT_EQ(table.rows[0][1], "1.0000000 S");
  EXPECT_EQ(table.rows[2][1], format_mask(b - ignition, "0.00") +
                                  " us = " + format_mask(1000 / (b - ignition), "0.00") + " KHz");
  const double at_a = graph.Samples()[static_cast<std::size_t>(graph.FindItemNo(ignition))].VR;
  const double at_b = graph.Samples()[static_cast<std::size_t>(graph.FindItemNo(b))].VR;
  EXPECT_EQ(table.rows[0][4], format_mask(at_a, "0.0") + " V");
  EXPECT_EQ(table.rows[2][4], format_mask(at_b - at_a, "0.0") + " V");
  const Measurement between = measure(graph, 1000000, b + cut, Trace::VR);
  EXPECT_EQ(table.rows[3][4], format_mask(between.rms, "0.0") + " V");
  EXPECT_EQ(table.rows[5][4], format_mask(between.maximum, "0.0") + " V");

  form.pressKey("Ctrl+Shift+Left");
  EXPECT_NEAR(*form.cursors().b, b - 0.1, 1e-6);
  form.shortTimeline(false);  // the same moments on the other axis
  EXPECT_DOUBLE_EQ(*form.cursors().a, 1000000);
  form.pressKey("A");
  EXPECT_TRUE(form.cursorTable().rows.empty());
  EXPECT_FALSE(form.pressKey("Q"));
}

TEST_F(TimeDomainForm, PrintsOneLandscapePage) {
  RecordingDeviceContext page({1000, 700});
  std::vector<std::string> order;
  TimeDomainPaper paper{[&] { order.push_back("landscape"); },
                        [] {
                          return Size{16838, 11906};
                        },
                        [&]() -> DeviceContext* {
                          order.push_back("page");
                          return &page;
                        },
                        [&] { order.push_back("end"); }};
  EXPECT_TRUE(form.PrintScreen(paper));
  EXPECT_EQ(order, (std::vector<std::string>{"landscape", "page", "end"}));
  // 15 twips to a pixel, less 1000 and 2000 twips, less the margins of the plot.
  EXPECT_NEAR(view.plotArea().width, 15838.0 / 15 - 200, 1e-9);
  EXPECT_NEAR(view.plotArea().height, 9906.0 / 15 - 32, 1e-9);
  paper.startPage = [] { return nullptr; };
  EXPECT_FALSE(form.PrintScreen(paper));
}

TEST_F(TimeDomainForm, HasNothingWithoutARun) {
  graph.GenerateFrom({{"DeadTime", 0}});
  form.takeRun();
  form.DrawGraph();
  EXPECT_FALSE(form.isGenerated());
  EXPECT_EQ(form.TotalTime(), 0);
  for (const char* key :
       {"Left", "Right", "+", "-", "Home", "End", "A", "Ctrl+Left", "Backspace"}) {
    EXPECT_TRUE(form.pressKey(key));
  }
  form.setCursor(false, 500);
  EXPECT_TRUE(form.cursorTable().rows.empty());
  EXPECT_FALSE(form.DisplayInfo({500, 100}, {10, 10}));
  EXPECT_EQ(form.summary(), "");
  EXPECT_THROW(form.visibleCsv(), Fault);
}

}  // namespace
}  // namespace vantrel::test
