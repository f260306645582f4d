#include "waveforms/time_domain_view.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/number_text.h"
#include "core/recording_device_context.h"
#include "time_domain_fixture.h"

namespace vantrel::test {
namespace {

using Kind = DrawingCall::Kind;

constexpr Size kViewSize{1200, 740};

class TimeDomainPicture : public TimeDomainFixture {
 protected:
  void SetUp() override {
    graph.GenerateFrom(kDefaultDesign);
    cut = graph.GetDurationBetweenRepeatEndAndIgnition();
    request.TimeWindow = 13000;
  }
  RecordingDeviceContext draw(Size size = kViewSize) {
    RecordingDeviceContext surface(size);
    drawn = view.RenderTimeDomain(surface, request);
    return surface;
  }
  void show(auto is_shown) {
    request.DPlotVIN = is_shown(Trace::VIN);
    request.DPlotIL = is_shown(Trace::IL);
    request.DPlotVR = is_shown(Trace::VR);
    request.DPlotIR = is_shown(Trace::IR);
    request.DPlotIC = is_shown(Trace::IC);
    request.DPlotFreq = is_shown(Trace::Freq);
  }
  void showAll() {
    show([](Trace) { return true; });
  }
  void showOnly(Trace trace) {
    show([trace](Trace each) { return each == trace; });
  }
  static std::vector<DrawingCall> filled(const RecordingDeviceContext& surface, Colour colour) {
    std::vector<DrawingCall> found = surface.calls(Kind::Rectangle);
    std::erase_if(found, [&](const DrawingCall& call) { return call.state.brush != colour; });
    return found;
  }
  static std::vector<std::string> endingWith(const RecordingDeviceContext& surface,
                                             const std::string& end) {
    std::vector<std::string> found = surface.texts();
    std::erase_if(found, [&](const std::string& text) {
      return !text.ends_with(end) || text.starts_with("Freq");
    });
    return found;
  }
  static std::vector<std::string> steps(double from, double to, double by, const char* mask,
                                        const std::string& unit) {
    std::vector<std::string> all;
    for (int i = 0; from + i * by <= to + 1e-9; ++i) {
      const double value = from + i * by;
      all.push_back(format_mask(std::fabs(value) < 1e-9 ? 0 : value, mask) + unit);
    }
    return all;
  }

  TimeDomainView view{graph, messages};
  TimeDomainRequest request;
  double cut = 0;
  bool drawn = false;
};

TEST_F(TimeDomainPicture, NamesTheStagesOnTheirTints) {
  const RecordingDeviceContext surface = draw();
  ASSERT_TRUE(drawn);
  struct Case {
    const char* text;
    Colour tint;
    int stage;
  };
  const auto& borders = view.PlotPoints().borders;
  ASSERT_EQ(borders.size(), 3U);
  for (const auto& [text, tint, stage] :
       {Case{"Stage: Preheat", {0, 0, 8}, 0}, Case{"Stage: Skip To Ignition", {0, 8, 0}, 1},
        Case{"Stage: Run", {8, 0, 0}, 2}}) {
    const auto i = static_cast<std::size_t>(stage);
    const double x = view.PlotPoints().at(borders[i].column).X;
    const double next = stage == 2 ? 1100 : view.PlotPoints().at(borders[i + 1].column).X;
    const DrawingCall* label = surface.findText(text);
    ASSERT_NE(label, nullptr) << text;
    EXPECT_EQ(label->points[0], (Point{x + 8, stage * 10.0 + 8}));
    EXPECT_EQ(label->state.textColour, (Colour{255, 255, 255}));
    const auto spans = filled(surface, tint);
    ASSERT_EQ(spans.size(), 1U) << text;
    EXPECT_EQ(spans[0].points, (std::vector<Point>{{x, 0}, {next, 708}}));
  }
  // Full timeline: no skip, and neither on paper a tinted span.
  request.UseShortTimeline = false;
  request.TimeOffset = 995000;
  const RecordingDeviceContext full = draw();
  EXPECT_NE(full.findText("Stage: Ignition"), nullptr);
  EXPECT_EQ(full.findText("Stage: Skip To Ignition"), nullptr);
}

TEST_F(TimeDomainPicture, AxesFollowTheTickRules) {
  struct Case {
    double volts;
    double amperes;
    double height;
    double volt_step;
    double ampere_step;
  };
  // A tick interval spans 20 pixels at least, until the spacing has reached 1200 V or 1.0 A.
  for (const auto& c :
       {Case{1000, 2, 708, 100, 0.2}, Case{2000, 5, 708, 200, 0.4}, Case{1000, 2, 200, 200, 0.4},
        Case{2000, 4, 100, 800, 1.6}, Case{4000, 5, 60, 1600, 1.6}, Case{5000, 5, 30, 1600, 1.6}}) {
    view.SetVScale(-c.volts, c.volts);
    view.SetAScale(-c.amperes, c.amperes);
    const RecordingDeviceContext surface = draw({1200, c.height + 32});
    const double v = std::floor(c.volts / c.volt_step) * c.volt_step;
    const double a = std::floor(c.amperes / c.ampere_step + 1e-9) * c.ampere_step;
    EXPECT_EQ(endingWith(surface, " V"), steps(-v, v, c.volt_step, "0", " V"));
    EXPECT_EQ(endingWith(surface, " A"), steps(-a, a, c.ampere_step, "0.0", " A"));
  }
  view.SetVScale(-1000, 1000);
  view.SetAScale(-2, 2);
  view.SetVScale(5, 5);  // no range: changes nothing
  view.SetAScale(1, std::nan(""));
  const RecordingDeviceContext surface = draw();
  const DrawingCall* volts = surface.findText("500 V");
  EXPECT_EQ(volts->state.textColour, (Colour{190, 190, 190}));
  EXPECT_EQ(volts->points[0], (Point{92, 177}));  // 708 / 4
  const DrawingCall* amperes = surface.findText("-1.0 A");
  EXPECT_EQ(amperes->state.textColour, (Colour{64, 64, 255}));
  EXPECT_TRUE(amperes->state.font.bold);
  EXPECT_EQ(amperes->points[0], (Point{1108, 531}));
  EXPECT_EQ(filled(surface, {0, 0, 96}).size(), 21U);
  EXPECT_EQ(filled(surface, {96, 0, 0}).size(), 21U);
}

TEST_F(TimeDomainPicture, TimeAxisTellsSeconds) {
  for (const bool condensed : {true, false}) {
    request.UseShortTimeline = condensed;
    request.TimeOffset = 100;
    for (const double width : {1200.0, 500.0, 260.0}) {
      const RecordingDeviceContext surface = draw({width, 740});
      std::vector<DrawingCall> labels = surface.calls(Kind::Text);
      std::erase_if(labels, [](const DrawingCall& call) {
        return call.state.textColour != Colour{0, 140, 0};
      });
      ASSERT_FALSE(labels.empty());
      EXPECT_LE(labels.size(), 8U);
      EXPECT_EQ(labels.size() == 8, width == 1200);
      EXPECT_EQ(labels[0].text, condensed ? format_mask(1e-4, "0.0000####") + "S" : "0.0001S");
      for (std::size_t i = 0; i < labels.size(); ++i) {
        const PlotColumns& columns = view.PlotPoints();
        const std::int32_t column = columns.columnAtX(labels[i].points[0].x - 0.5);
        EXPECT_EQ(labels[i].text,
                  format_mask(columns.at(column).Time / 1000000, "0.000####") + "S");
        if (i > 0) {
          EXPECT_GT(text_box(labels[i]).left, text_box(labels[i - 1]).right());
        }
      }
    }
  }
}

TEST_F(TimeDomainPicture, DrawsTheTracesInOrder) {
  showAll();
  const std::vector<Colour> order{{0, 255, 255}, {255, 255, 0}, {0, 190, 0},
                                  {0, 0, 255},   {220, 0, 0},   {0, 128, 0}};
  for (const double window : {13000.0, 400.0}) {
    request.TimeWindow = window;
    request.TimeOffset = window == 400 ? 4000 : 0;
    const RecordingDeviceContext surface = draw();
    EXPECT_EQ(view.PlotPoints().envelope, window == 13000);
    std::vector<Colour> lines;
    for (const DrawingCall& call : surface.calls(Kind::Polyline)) {
      const Colour colour = call.state.pen->colour;
      if (colour == Colour{255, 255, 255}) continue;  // stage marks
      if (lines.empty() || lines.back() != colour) lines.push_back(colour);
    }
    EXPECT_EQ(lines, order);
    EXPECT_EQ(surface.calls(Kind::Polygon).size(), window == 13000 ? 5U : 0U);
    for (std::size_t trace = 0; trace < kTraceCount; ++trace) {
      showOnly(traces()[trace].trace);
      const RecordingDeviceContext one = draw();
      for (const DrawingCall& call : one.calls(Kind::Polyline)) {
        const Colour colour = call.state.pen->colour;
        if (colour == Colour{255, 255, 255}) continue;
        EXPECT_EQ(colour, theme_colour(traces()[trace].colour, Theme::Dark));
      }
    }
    showAll();
  }
}

TEST_F(TimeDomainPicture, GoesStepByStep) {
  showAll();
  const RecordingDeviceContext surface = draw();
  const auto step_of = [](const DrawingCall& call) {
    const std::string& text = call.text;
    if (call.kind == Kind::Rectangle && call.state.brush) {
      const Colour& fill = *call.state.brush;
      const int sum = fill.red + fill.green + fill.blue;
      return sum == 8 ? 1 : sum == 96 ? 2 : 0;  // tint, grid
    }
    if (call.kind == Kind::Polyline) return call.state.pen->colour.red == 255 ? 0 : 4;
    if (call.kind != Kind::Text) return 0;
    if (find_trace(text.substr(0, text.find(' ')))) return 5;
    if (text.starts_with("Stage: ")) return 3;
    return text.ends_with(" V") ? 6 : text.ends_with(" A") ? 7 : 8;
  };
  std::vector<int> steps;
  for (const DrawingCall& call : surface.calls()) {
    const int step = step_of(call);
    if (step > 0 && (steps.empty() || steps.back() != step)) steps.push_back(step);
  }
  EXPECT_EQ(steps, (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST_F(TimeDomainPicture, PutsValuesWhereTheScaleHasThem) {
  request.DPlotVR = true;
  request.TimeOffset = 5000;
  request.TimeWindow = 40;
  const RecordingDeviceContext fine = draw();
  std::vector<DrawingCall> lines = fine.calls(Kind::Polyline);
  std::erase_if(lines, [](const auto& call) { return call.state.pen->colour.blue != 255; });
  ASSERT_FALSE(lines.empty());
  const PlotColumns& columns = view.PlotPoints();
  ASSERT_EQ(lines[0].points.size(), columns.points.size());
  for (std::size_t i = 0; i < columns.points.size(); i += 17) {
    EXPECT_EQ(lines[0].points[i].x, columns.points[i].X);
    EXPECT_NEAR(lines[0].points[i].y, 708 - (columns.points[i].VRMax + 1000) * 708 / 2000, 1e-9);
  }
  // From bound to bound, to the pixel, in each column.
  request.TimeOffset = 0;
  request.TimeWindow = 13000;
  const RecordingDeviceContext band = draw();
  const auto shape = band.calls(Kind::Polygon);
  ASSERT_EQ(shape.size(), 1U);
  EXPECT_EQ(shape[0].state.brush, (Colour{0, 0, 255, 115}));
  const auto covers = [&](double x, double y) {  // even-odd
    bool inside = false;
    const auto& p = shape[0].points;
    for (std::size_t i = 0, j = p.size() - 1; i < p.size(); j = i++) {
      if ((p[i].y > y) != (p[j].y > y) && x < p[i].x) inside = !inside;
    }
    return inside;
  };
  for (std::int32_t c = columns.first + 1; c < columns.count(); c += 31) {
    const PlotPoint& point = columns.at(c);
    const double top = std::nearbyint(708 - (point.VRMax + 1000) * 708 / 2000);
    const double bottom = std::nearbyint(708 - (point.VRMin + 1000) * 708 / 2000);
    const double x = point.X + 0.5;
    EXPECT_FALSE(covers(x, top - 0.5)) << c;
    EXPECT_FALSE(covers(x, bottom + 0.5)) << c;
    EXPECT_EQ(covers(x, top + 0.5) && covers(x, bottom - 0.5), bottom > top) << c;
  }
  // Nothing leaves the plot when the values do.
  view.SetVScale(-100, 100);
  const RecordingDeviceContext tall = draw();
  for (const DrawingCall& call : tall.calls()) {
    if (call.kind != Kind::Polyline && call.kind != Kind::Polygon) continue;
    for (const Point& point : call.points) {
      EXPECT_GE(point.y, 0);
      EXPECT_LE(point.y, 708);
      EXPECT_LE(point.x, 1100);
    }
  }
}

TEST_F(TimeDomainPicture, LegendsNeedEnoughColumns) {
  showAll();
  struct Case {
    double width;
    std::vector<std::string> labels;
  };
  for (const auto& [width, labels] :
       std::vector<Case>{{121, {"Freq", "IC", "IR", "VIN", "VR", "IL"}},
                         {120, {"IC", "IR", "VIN", "VR", "IL"}},
                         {80, {"VIN", "VR", "IL"}},
                         {60, {"VR", "IL"}},
                         {40, {"IL"}}}) {
    request.TimeOffset = 4000;
    request.TimeWindow = 400;
    const RecordingDeviceContext surface = draw({200 + width, 740});
    std::vector<std::string> found;
    std::vector<Box> boxes;
    for (const DrawingCall& call : surface.calls(Kind::Text)) {
      const std::string name = call.text.substr(0, call.text.find(' '));
      if (!find_trace(name)) continue;
      found.push_back(name);
      boxes.push_back(text_box(call));
      for (std::size_t i = 0; i + 1 < boxes.size(); ++i) {
        const Box& a = boxes[i];
        const Box& b = boxes.back();
        EXPECT_TRUE(a.right() <= b.left || b.right() <= a.left || a.bottom() <= b.top ||
                    b.bottom() <= a.top);
      }
    }
    EXPECT_EQ(found, labels) << width;
  }
}

TEST_F(TimeDomainPicture, LegendsStandAtTheirColumns) {
  request.TimeOffset = 4000;
  request.TimeWindow = 100;
  const std::array<std::int32_t, kTraceCount> from_end{60, 1, 40, 80, 80, 120};
  const std::array<Colour, kTraceCount> inks{
      {{0, 190, 0}, {220, 0, 0}, {0, 0, 255}, {255, 255, 0}, {0, 255, 255}, {0, 190, 0}}};
  for (const TraceRow& row : traces()) {
    showOnly(row.trace);
    const RecordingDeviceContext surface = draw();
    const auto texts = surface.calls(Kind::Text);
    const auto found = std::find_if(texts.begin(), texts.end(), [&](const DrawingCall& call) {
      return call.text.starts_with(row.label);
    });
    ASSERT_NE(found, texts.end());
    const PlotColumns& columns = view.PlotPoints();
    const auto number = static_cast<std::size_t>(row.trace);
    const PlotPoint& point = columns.at(columns.count() - from_end[number]);
    const std::string value = " " + format_mask(point.FrequencyKHz, "0.00") + " KHz";
    EXPECT_EQ(found->text, std::string(row.label) + (row.trace == Trace::Freq ? value : ""));
    EXPECT_EQ(found->state.textColour, inks[number]) << row.label;
    const Box box = text_box(*found);
    EXPECT_EQ(box.left, std::min<double>(point.X, 1100 - 4 - box.width) + 2) << row.label;
    const AxisScale& scale = view.scales().of(row.axis);
    const double y = 708 - (row.upper(point) - scale.min) * 708 / (scale.max - scale.min);
    EXPECT_NEAR(box.bottom(), y - 2, 1e-9) << row.label;
  }
}

TEST_F(TimeDomainPicture, PaperIsBlackOnWhite) {
  showAll();
  request.Printing = true;
  view.SetPrintSize(1000, 600);
  const RecordingDeviceContext surface = draw({2000, 2000});
  EXPECT_EQ(view.plotArea(), (Box{100, 0, 800, 568}));
  EXPECT_TRUE(surface.calls(Kind::Polygon).empty());
  for (const DrawingCall& call : surface.calls()) {
    const bool is_text = call.kind == Kind::Text;
    if (!is_text && call.kind != Kind::Polyline) continue;
    EXPECT_EQ(is_text ? call.state.textColour : call.state.pen->colour, (Colour{0, 0, 0}));
  }
  // The pale tints stand behind the stage labels only.
  for (const Colour tint : {Colour{210, 210, 255}, Colour{210, 255, 210}, Colour{255, 210, 210}}) {
    const auto plates = filled(surface, tint);
    ASSERT_EQ(plates.size(), 1U);
    EXPECT_LT(plates[0].points[1].y, 50);
  }
  std::vector<std::vector<double>> dashes;
  for (const DrawingCall& call : surface.calls(Kind::Polyline)) {
    if (std::find(dashes.begin(), dashes.end(), call.state.pen->dashes) == dashes.end()) {
      dashes.push_back(call.state.pen->dashes);
    }
  }
  EXPECT_GE(dashes.size(), 5U);  // told apart without colours
}

TEST_F(TimeDomainPicture, SaysWhenThereIsNothingToShow) {
  for (const bool lost : {true, false}) {
    if (lost) {
      graph.GenerateFrom({{"DeadTime", 0}});  // a run that fails
    } else {
      graph.InitialiseGraph();  // and inputs that are missing
    }
    const RecordingDeviceContext surface = draw();
    EXPECT_FALSE(drawn);
    EXPECT_EQ(surface.texts(),
              std::vector<std::string>{"Graph Inputs Not Available, Retry Calculation"});
    const DrawingCall& text = *surface.findText(GraphTD::kNoInputs);
    EXPECT_EQ(text.points[0], (Point{600, 370}));
    EXPECT_EQ(text.state.textColour, (Colour{255, 255, 255}));
    EXPECT_EQ(text.state.textAlign, (TextAlign{HorizontalAlign::Centre, VerticalAlign::Middle}));
    EXPECT_TRUE(view.PlotPoints().points.empty());
  }
}

}  // namespace
}  // namespace vantrel::test
