#include "waveforms/time_domain_view_points.h"

#include <algorithm>
#include <cmath>
#include <random>

#include "time_domain_fixture.h"
#include "waveforms/time_domain_view.h"
#include "waveforms/time_domain_view_lines.h"
#include "waveforms/time_domain_view_traces.h"

namespace vantrel::test {
namespace {

class TimeDomainViewPoints : public TimeDomainFixture {
 protected:
  void SetUp() override {
    graph.GenerateFrom(kDefaultDesign);
    samples = graph.Samples().first(graph.Samples().size() - 1);
    messages.clear();
  }
  double timeOf(std::int32_t i) const { return samples[static_cast<std::size_t>(i)].TimeUs; }

  /// The last sample at or before a true time among those from `first` to `last`.
  std::int32_t scan(std::int32_t first, std::int32_t last, double time) const {
    std::int32_t found = first;
    while (found < last && timeOf(found + 1) <= time) ++found;
    return found;
  }
  /// The sample that stands at a position on the time axis, by the meaning of the axis.
  std::int32_t sampleAt(double position, bool condensed) {
    const std::int32_t start = graph.members().RepeatStart;
    const std::int32_t end = graph.members().RepeatEnd;
    const double ignition = graph.StageTable()[1].StartTime;
    if (position < timeOf(end)) return stepsAfter(0, position - timeOf(0));
    double time = condensed ? position + (ignition - timeOf(end)) : position;
    if (time >= ignition) {
      return std::min(end + 1 + stepsAfter(0, time - ignition),
                      static_cast<std::int32_t>(samples.size()) - 1);
    }
    const double period = (end - start) * 0.05;
    time -= std::floor((time - timeOf(start)) / period) * period;
    return start + stepsAfter(0, time - timeOf(start));
  }
  static std::int32_t stepsAfter(std::int32_t first, double time) {
    return first + std::max(0, static_cast<std::int32_t>(std::floor(time / 0.05)));
  }
  /// Whether a position is so near to a border of samples that rounding decides.
  bool isAmbiguous(double position) const {
    const double steps = (position - timeOf(0)) / 0.05;
    return std::fabs(steps - std::nearbyint(steps)) < 1e-4;
  }

  std::span<const TimeDomainSample> samples;
};

// Every sample that an envelope entry stands for lies within the bounds, and both are reached; the
// last entries of a run, whose windows would pass its end, are zero.
void check_envelope(const PlotPoint& point, std::span<const TimeDomainSample> samples) {
  const auto first = static_cast<std::size_t>(point.SampleNo) / 64 * 64;
  if (first + 1024 > samples.size()) {
    EXPECT_EQ(point.VRMax, 0);
    EXPECT_EQ(point.ILMin, 0);
    return;
  }
  const auto window = samples.subspan(first, 1024);
  for (const TraceRow& row : traces()) {
    if (row.trace == Trace::IC || row.trace == Trace::Freq) continue;
    const auto [low, high] = std::minmax_element(
        window.begin(), window.end(),
        [&](const auto& a, const auto& b) { return row.value(a) < row.value(b); });
    ASSERT_EQ(row.lower(point), row.value(*low)) << row.label;
    ASSERT_EQ(row.upper(point), row.value(*high)) << row.label;
  }
  const TraceRow& ic = trace_row(Trace::IC);
  ASSERT_EQ(ic.upper(point), point.ILMax - point.ILampMax);
  ASSERT_EQ(ic.lower(point), point.ILMin - point.ILampMin);
}

TEST_F(TimeDomainViewPoints, AgreeWithAScanAtRandomWindows) {
  std::mt19937 random(20);
  std::uniform_real_distribution<double> part(0, 1);
  int envelopes = 0;
  for (int i = 0; i < 200; ++i) {
    const bool condensed = i % 2 == 0;
    graph.shortTimeline(condensed);
    const double total = condensed ? 13000 : 1010998.5;
    const double window = 5 * std::pow(std::min(total, 20000.0) / 5, part(random));
    const double offset = (total - window) * part(random);
    const double width = 100 + std::floor(300 * part(random));
    const PlotColumns columns = plot_columns(graph, offset, window, width);
    const double step = std::max(window / width, 0.05);
    ASSERT_EQ(columns.count(), static_cast<std::int32_t>(std::nearbyint(window / step)));
    std::int32_t last_stage = -1;
    std::vector<StageBorder> borders;
    for (std::int32_t c = columns.first; c < columns.count(); ++c) {
      const PlotPoint& point = columns.at(c);
      const double position = offset + c * window / columns.count();
      ASSERT_EQ(point.X, std::nearbyint(100 + c * width / columns.count()));
      if (!isAmbiguous(position)) {
        ASSERT_NEAR(point.SampleNo, sampleAt(position, condensed), 0) << position << condensed;
      }
      const TimeDomainSample& sample = samples[static_cast<std::size_t>(point.SampleNo)];
      ASSERT_EQ(point.Time, condensed ? sample.TimeUs : position);
      ASSERT_EQ(point.FrequencyKHz, static_cast<float>(sample.FrequencyKHz));
      if (sample.Stage != last_stage) borders.push_back({c, sample.Stage});
      last_stage = sample.Stage;
      if (!columns.envelope) {
        ASSERT_EQ(point.VRMin, sample.VR);
        ASSERT_EQ(point.VRMax, sample.VR);
        ASSERT_EQ(point.VINMax, sample.VIN);
        ASSERT_EQ(point.ILMin, sample.IL);
        ASSERT_EQ(point.ILampMax, sample.ILamp);
      } else if (c % 7 == 0) {
        ASSERT_NO_FATAL_FAILURE(check_envelope(point, samples));
      }
    }
    ASSERT_EQ(columns.borders, borders);
    envelopes += columns.envelope ? 1 : 0;
  }
  EXPECT_GT(envelopes, 40);
  EXPECT_LT(envelopes, 160);
  EXPECT_TRUE(said().empty());
}

TEST_F(TimeDomainViewPoints, FollowTheRulesAtTheEdges) {
  graph.shortTimeline(true);
  // 1.55 us at one column a microsecond: 1.55 + 0.99 rounds to 3.
  EXPECT_EQ(plot_columns(graph, 0, 1000, 1000).first, 3);
  EXPECT_EQ(plot_columns(graph, 1.55, 1000, 1000).first, 0);
  // 50 ns a column at least.
  EXPECT_EQ(plot_columns(graph, 3000, 5, 1000).count(), 100);
  EXPECT_EQ(plot_columns(graph, 3000, 5, 1000).at(1).X, 110);
  // From 20 steps a column on.
  for (const double window : {950.0, 980.0, 1030.0, 1050.0}) {
    const PlotColumns columns = plot_columns(graph, 3000.01, window, 1000);
    const std::int32_t apart = columns.at(1).SampleNo - columns.at(0).SampleNo;
    EXPECT_EQ(apart, window < 1000 ? 19 : window == 1030 ? 20 : 21);
    EXPECT_EQ(columns.envelope, apart >= 20);
  }
  // The columns at the end of the run fall to zero in the envelope.
  const double end = timeOf(static_cast<std::int32_t>(samples.size()) - 1) -
                     graph.GetDurationBetweenRepeatEndAndIgnition();
  const PlotColumns tail = plot_columns(graph, end - 2000, 2000, 1000);
  EXPECT_EQ(tail.points.back().VRMax, 0);
  EXPECT_GT(tail.at(900).VRMax, 100);
  EXPECT_TRUE(plot_columns(graph, 0, 0, 1000).points.empty());
  EXPECT_TRUE(plot_columns(graph, 0, 1000, 0).points.empty());
}

TEST(TimeDomainAutofit, LeavesTheColumnsAtBothEndsOut) {
  PlotColumns columns;
  for (const double volts : {900.0, 30.0, -70.0, 50.0, -800.0}) {
    PlotPoint point;
    point.VRMin = volts - 1;
    point.VRMax = point.VINMax = volts;
    point.ILMax = -volts / 100;
    columns.points.push_back(point);
  }
  const auto of = [&columns](Trace trace) {
    TraceSet shown;
    shown[trace] = true;
    return fitted_maxima(columns, shown);
  };
  EXPECT_EQ(of(Trace::VR).volts, 71);
  EXPECT_EQ(of(Trace::VIN).volts, 70);
  EXPECT_EQ(of(Trace::IL).amperes, 0.7);
  EXPECT_FALSE(of(Trace::IL).volts);
  EXPECT_FALSE(of(Trace::Freq).volts || of(Trace::Freq).amperes);
  columns.first = 3;
  EXPECT_EQ(of(Trace::VR).volts, 50);
}

TEST_F(TimeDomainViewPoints, RaiseTheMaximaOfTheShownTraces) {
  TimeDomainView view{graph, messages};
  TimeDomainRequest request{.DPlotVR = true, .AutofitScale = true};
  std::vector<double> volts;
  std::vector<double> amperes;
  view.NewMaxV = [&](double max) { volts.push_back(max); };
  view.NewMaxA = [&](double max) { amperes.push_back(max); };
  for (const double window : {13000.0, 300.0}) {
    request.TimeWindow = window;
    volts.clear();
    ASSERT_TRUE(view.compute({1200, 740}, request));
    EXPECT_EQ(view.PlotPoints().envelope, window == 13000);
    EXPECT_EQ(volts,
              std::vector<double>{*fitted_maxima(view.PlotPoints(), request.traces()).volts});
  }
  EXPECT_TRUE(amperes.empty());  // no current is shown
  request.DPlotIC = true;
  view.compute({1200, 740}, request);
  EXPECT_EQ(amperes.size(), 1U);
  request.AutofitScale = false;
  view.compute({1200, 740}, request);
  EXPECT_EQ(amperes.size(), 1U);
}

TEST_F(TimeDomainViewPoints, TellTrueTimesFromThoseOnTheAxis) {
  const double cut = graph.GetDurationBetweenRepeatEndAndIgnition();
  const double end = timeOf(graph.members().RepeatEnd);
  graph.shortTimeline(true);
  for (const double time : {10.0, end - 1, 1000001.0, 1005000.0}) {
    EXPECT_DOUBLE_EQ(true_time(graph, axis_time(graph, time)), time);
  }
  EXPECT_DOUBLE_EQ(axis_time(graph, 1005000.0), 1005000.0 - cut);
  EXPECT_EQ(axis_time(graph, 500000), end);  // never simulated
  graph.shortTimeline(false);
  EXPECT_EQ(axis_time(graph, 1005000.0), 1005000.0);
  EXPECT_EQ(true_time(graph, 1005000.0), 1005000.0);
}

TEST(TimeDomainLines, AreCutAtTheHeights) {
  const std::vector<Point> line{{0, 50}, {1, -50}, {2, -50}, {3, 150}, {4, 20}};
  const auto parts = within_heights(line, 0, 100);
  ASSERT_EQ(parts.size(), 3U);
  EXPECT_EQ(parts[0], (std::vector<Point>{{0, 50}, {0.5, 0}}));
  EXPECT_EQ(parts[1], (std::vector<Point>{{2.25, 0}, {2.75, 100}}));
  EXPECT_EQ(parts[2][1], (Point{4, 20}));
  EXPECT_EQ(parts[2][0].y, 100);
  EXPECT_EQ(without_idle_points(std::vector<Point>{{0, 1}, {1, 1}, {2, 1}, {3, 2}}),
            (std::vector<Point>{{0, 1}, {2, 1}, {3, 2}}));
}

}  // namespace
}  // namespace vantrel::test
