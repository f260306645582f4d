#include "waveforms/operating_points_graph.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "core/number_text.h"
#include "core/plain_ports.h"
#include "core/recording_device_context.h"
#include "divider_gain.h"
#include "operating/operating_fixture.h"
#include "support/fixtures.h"
#include "waveforms/operating_points_graph_curves.h"
#include "waveforms/operating_points_graph_labels.h"

namespace vantrel {
namespace {

using Kind = DrawingCall::Kind;

class OperatingPointsGraph : public OperatingFixture {
 protected:
  static constexpr Size kArea{794, 503};

  /// The results of the default design, or of the same lamp on a dimming IC.
  void fill(std::int32_t target) {
    state.CurrentTarget = target;
    for (const auto& [name, value] :
         std::vector<std::pair<const char*, double>>{{"LValue", 5.3},
                                                     {"CValue", 3.3},
                                                     {"preheat_frequency", 57400},
                                                     {"ignition_frequency", 45900},
                                                     {"start_frequency", 82400},
                                                     {"resonance_frequency", 38060}}) {
      set(name, value);
    }
    const bool dimming = target == 2 || target == 8 || target == 9;
    if (dimming) {
      set("lamp_resistance_max", 994.6);
      set("lamp_resistance_min", 16830.0);
      set("max_frequency", 40100);
      set("min_frequency", 54200);
    } else {
      set("lamp_resistance", 994.6);
      set("run_frequency", 40100);
    }
  }
  RecordingDeviceContext draw(Size area = kArea, double start = 0, double end = 0) {
    RecordingDeviceContext surface(area);
    drawn = graph.RenderOperatingPoints(surface, Theme::Light, start, end);
    return surface;
  }
  static bool has(const std::vector<std::string>& texts, const std::string& text) {
    return std::find(texts.begin(), texts.end(), text) != texts.end();
  }
  /// Lines in the colour of a curve that are no legend: those with several points, or outside.
  static std::vector<DrawingCall> curveCalls(const RecordingDeviceContext& surface, Role role) {
    std::vector<DrawingCall> lines = surface.calls(Kind::Polyline);
    std::erase_if(lines, [&](const DrawingCall& call) {
      return call.state.pen->colour != theme_colour(role, Theme::Light) ||
             call.points[0].y == call.points[1].y;
    });
    return lines;
  }
  /// Ticks below the frequency axis of that length.
  static long ticks(const RecordingDeviceContext& surface, double length) {
    const double bottom = std::floor(surface.size().height - 40) + 0.5;
    const auto lines = surface.calls(Kind::Polyline);
    return std::count_if(lines.begin(), lines.end(), [&](const DrawingCall& call) {
      return call.points.size() == 2 && call.points[0].y == bottom &&
             call.points[1].y == bottom + length;
    });
  }

  GraphOP graph{advanced, missing, messages, [this](int slot) { return names[slot]; }};
  bool drawn = false;
};

TEST_F(OperatingPointsGraph, ShowsTheDefaultDesign) {
  fill(1);
  const RecordingDeviceContext surface = draw();
  EXPECT_TRUE(drawn);
  EXPECT_EQ(graph.AreaWidth(), 794);
  EXPECT_EQ(graph.AreaHeight(), 503);
  const std::vector<std::string> want{"0",
                                      "1",
                                      "2",
                                      "3",
                                      "4",
                                      "5",
                                      "6",
                                      "7",
                                      "5",
                                      "10",
                                      "15",
                                      "20",
                                      "25",
                                      "30",
                                      "35",
                                      "40",
                                      "45",
                                      "50",
                                      "55",
                                      "60",
                                      "65",
                                      "70",
                                      "75",
                                      "80",
                                      "85",
                                      "Frequency (Khz)",
                                      "V Lamp / V in",
                                      "L = 5.30 mH,  C = 3.30 nF",
                                      "before ignition, lamp open",
                                      "running, lamp 994.6 Ohm",
                                      "Preheat",
                                      "Ignition",
                                      "Run"};
  EXPECT_EQ(surface.texts(), want);
  EXPECT_EQ(surface.findText("V Lamp / V in")->state.font.face, "Arial");
  EXPECT_EQ(surface.findText("Frequency (Khz)")->state.font.face, "Arial");

  // The axis ends at 1.5 x 57.4 kHz, so a mark at f stands at 50 + (f - 5000) / 81100 x 734; gains
  // worked out apart: 0.7846 at preheat, and 1/7 of the height is (503 - 54) / 7.
  const auto marks = surface.calls(Kind::Ellipse);
  ASSERT_EQ(marks.size(), 3U);
  const Point preheat{marks[0].points[0].x + 6, marks[0].points[0].y + 6};
  EXPECT_NEAR(preheat.x, 50 + 52400.0 / 81100 * 734, 1e-9);
  EXPECT_NEAR(preheat.y, 463 - 449.0 / 7 * divider_gain(5.3e-3, 3.3e-9, 1e6, 57400), 0.01);
  EXPECT_EQ(surface.calls(Kind::Polygon).size(), 2U);  // heads of the two arrows
}

TEST_F(OperatingPointsGraph, CurvesStepByFivePixelsAndLeaveAtTheTop) {
  fill(1);
  const RecordingDeviceContext surface = draw();
  const auto open = curveCalls(surface, Role::Curve0);
  ASSERT_EQ(open.size(), 4U);  // both branches, drawn twice
  EXPECT_EQ(open[0].points.front().x, 50);
  EXPECT_EQ(open[0].points[1].x, 55);
  EXPECT_NEAR(open[0].points.front().y, 463 - 449.0 / 7 * divider_gain(5.3e-3, 3.3e-9, 1e6, 5000),
              0.01);
  EXPECT_NEAR(open[0].points.back().y, 14, 1e-9);
  EXPECT_NEAR(open[1].points.front().y, 14, 1e-9);
  EXPECT_EQ(open[1].points.back().x, 50 + 730);
  for (std::size_t again = 2; again < 4; ++again) {
    EXPECT_EQ(open[again].points.size() % 3, 1U);  // steps of 15 pixels
    for (const Point point : open[again].points) EXPECT_GT(point.y, 14);
  }
  const auto running = curveCalls(surface, Role::Curve1);
  ASSERT_EQ(running.size(), 1U);  // one line, so that its dashes run on
  EXPECT_EQ(running[0].points.size(), 147U);
  EXPECT_EQ(running[0].state.pen->dashes, (std::vector<double>{12, 6}));
}

TEST_F(OperatingPointsGraph, DimmedLampHasAlternateSegmentsAndATenthOfItsResistance) {
  fill(2);
  const RecordingDeviceContext surface = draw();
  const auto dimmed = curveCalls(surface, Role::Curve2);
  ASSERT_EQ(dimmed.size(), 73U);  // of 146
  for (std::size_t at = 0; at < dimmed.size(); ++at) {
    EXPECT_EQ(dimmed[at].points.front().x, 50 + 10.0 * static_cast<double>(at));
    EXPECT_EQ(dimmed[at].points.back().x, 55 + 10.0 * static_cast<double>(at));
  }
  const double f = 5000 + 81100.0 * 300 / 734;
  EXPECT_NEAR(dimmed[30].points.front().y, 463 - 449.0 / 7 * divider_gain(5.3e-3, 3.3e-9, 1683, f),
              0.01);
  const auto texts = surface.texts();
  EXPECT_TRUE(has(texts, "100%"));
  EXPECT_TRUE(has(texts, "10%"));
  EXPECT_TRUE(has(texts, "at 10%, lamp 1683 Ohm"));
  EXPECT_FALSE(has(texts, "Run"));
  EXPECT_EQ(surface.calls(Kind::Ellipse).size(), 4U);
  EXPECT_EQ(surface.calls(Kind::Polygon).size(), 3U);
}

TEST_F(OperatingPointsGraph, TicksFollowTheWidthOfThePlot) {
  fill(1);
  struct Case {
    double width;
    long labelled;  // multiples of the spacing from 5000 to 86100 Hz
    long steps;
    std::vector<std::string> texts;
  };
  for (const Case& each : std::initializer_list<Case>{{660, 17, 82, {"5", "85"}},
                                                      {659, 8, 82, {"10", "80"}},
                                                      {460, 8, 82, {"10", "80"}},
                                                      {459, 4, 41, {"20", "80"}},
                                                      {260, 4, 41, {"20", "80"}},
                                                      {259, 1, 41, {"50"}}}) {
    const RecordingDeviceContext surface = draw({each.width, 400});
    EXPECT_EQ(ticks(surface, 6), each.labelled) << each.width;
    EXPECT_EQ(ticks(surface, 3), each.steps) << each.width;
    for (const auto& text : each.texts) EXPECT_TRUE(has(surface.texts(), text)) << each.width;
  }
}

TEST_F(OperatingPointsGraph, AxisEndsByTargetAndMovesWithTheOffsets) {
  struct Case {
    std::int32_t target;
    double start_offset;
    double end_offset;
    double left;
    double right;
  };
  for (const Case& each : std::initializer_list<Case>{{1, 0, 0, 5000, 86100},  // 1.5 x preheat
                                                      {9, 0, 0, 5000, 86100},
                                                      {5, 0, 0, 5000, 92400},  // start + 10000
                                                      {0, 0, 0, 5000, 86100},
                                                      {1, 2000, -6000, 7000, 80100}}) {
    fill(each.target);
    const GainScale scale(kArea, *read_graph_inputs(advanced, nullptr), each.start_offset,
                          each.end_offset);
    EXPECT_EQ(scale.frequency(0), each.left) << each.target;
    EXPECT_NEAR(scale.frequency(734), each.right, 1e-6) << each.target;
    const RecordingDeviceContext surface = draw(kArea, each.start_offset, each.end_offset);
    EXPECT_EQ(ticks(surface, 3), std::floor(each.right / 1000) - each.left / 1000 + 1);
  }
}

TEST_F(OperatingPointsGraph, WithoutPreheatTheStartIsMarked) {
  for (const std::int32_t target : {5, 9}) {
    fill(target);
    const RecordingDeviceContext surface = draw();
    EXPECT_TRUE(has(surface.texts(), "Start")) << target;
    EXPECT_TRUE(has(surface.texts(), "Ignition")) << target;
    EXPECT_FALSE(has(surface.texts(), "Preheat")) << target;
    EXPECT_EQ(surface.calls(Kind::Ellipse).size(), target == 5 ? 4U : 5U);
    EXPECT_EQ(surface.calls(Kind::Polygon).size(), target == 5 ? 2U : 3U);
    missing.Reset();
    advanced.field("start_frequency").Clear();
    EXPECT_EQ(draw().texts(), std::vector<std::string>{std::string(GraphOP::kMissingText)});
    EXPECT_EQ(missing.CountItems(), 1);
  }
}

TEST_F(OperatingPointsGraph, MissingInputsAreNotedOnceWithoutAQuestion) {
  fill(1);
  advanced.field("CValue").Clear();
  advanced.field("lamp_resistance").Clear();
  const RecordingDeviceContext surface = draw();
  EXPECT_FALSE(drawn);
  EXPECT_EQ(surface.texts(),
            std::vector<std::string>{"Graph Inputs Not Available, Retry Calculation"});
  EXPECT_EQ(surface.calls(Kind::Text)[0].points[0], (Point{397, 251.5}));
  EXPECT_TRUE(surface.calls(Kind::Polyline).empty());
  draw();
  EXPECT_EQ(missing.PrepareToShow(),
            (std::vector<std::string>{advanced.caption() + " Screen : C",
                                      advanced.caption() + " Screen : Lamp Resistance"}));
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(graph.tttext({400, 200}, kArea), "");
  EXPECT_TRUE(operating_point_rows(advanced).empty());
}

TEST_F(OperatingPointsGraph, TheElectronicTransformerHasNoTank) {
  fill(1);
  state.CurrentTarget = 6;
  EXPECT_EQ(draw().texts(), std::vector<std::string>{std::string(GraphOP::kMissingText)});
  EXPECT_FALSE(graph.inputsAvailable());
}

TEST_F(OperatingPointsGraph, FailuresAreReported) {
  fill(1);
  set("lamp_resistance", 0.0);
  draw();
  EXPECT_FALSE(drawn);
  set("lamp_resistance", 994.6);
  set("preheat_frequency", 3000.0);  // the axis would end before it begins
  draw();
  EXPECT_EQ(texts(), (std::vector<std::string>{"There was a problem drawing the graph",
                                               "There was a problem drawing the graph"}));
}

TEST_F(OperatingPointsGraph, MarksOutsideThePlotTakeTheirArrowsAlong) {
  fill(1);
  set("ignition_frequency", 38100.0);  // at resonance, far above a gain of 7
  const RecordingDeviceContext surface = draw();
  EXPECT_FALSE(has(surface.texts(), "Ignition"));
  EXPECT_EQ(surface.calls(Kind::Ellipse).size(), 2U);
  EXPECT_TRUE(surface.calls(Kind::Polygon).empty());
}

TEST_F(OperatingPointsGraph, LabelsKeepClearOfEachOtherAndTheCurves) {
  for (const std::int32_t target : {0, 1, 2, 3, 4, 5, 7, 8, 9}) {
    for (const Size area : {Size{1080, 600}, Size{794, 503}, Size{500, 340}}) {
      fill(target);
      const RecordingDeviceContext surface = draw(area);
      const auto words = surface.calls(Kind::Text);
      for (std::size_t a = 0; a < words.size(); ++a) {
        const Box box = text_box(words[a]);
        EXPECT_TRUE(box.left >= 0 && box.top >= 0 && box.right() <= area.width &&
                    box.bottom() <= area.height)
            << words[a].text << " is clipped, target " << target;
        for (std::size_t b = a + 1; b < words.size(); ++b) {
          EXPECT_FALSE(boxes_overlap(box, text_box(words[b])))
              << words[a].text << " on " << words[b].text << ", target " << target;
        }
        if (!words[a].state.font.bold) continue;
        for (const Role role : {Role::Curve0, Role::Curve1}) {
          for (const DrawingCall& line : curveCalls(surface, role)) {
            for (std::size_t at = 1; at < line.points.size(); ++at) {
              EXPECT_FALSE(line_meets_box(line.points[at - 1], line.points[at], box))
                  << words[a].text << ", target " << target << ", width " << area.width;
            }
          }
        }
      }
    }
  }
}

TEST_F(OperatingPointsGraph, CaptionTipAndTable) {
  EXPECT_EQ(graph.caption(), "Operating Points");
  fill(1);
  EXPECT_EQ(graph.caption(), "Graph L = 5.3mH, C = 3.3nF, TV6103, 90 to 265VAC/500VDC, T5 28W");
  // 40.5 kHz stands at 50 + 35500 / 81100 x 734; both gains by the divider.
  const double f = 40500;
  const Point cursor{50 + (f - 5000) / 81100 * 734, 100};
  EXPECT_EQ(graph.tttext(cursor, kArea),
            "40.5 KHz   before ignition " +
                format_mask(divider_gain(5.3e-3, 3.3e-9, 1e6, f), "0.00") + "   running " +
                format_mask(divider_gain(5.3e-3, 3.3e-9, 994.6, f), "0.00"));
  EXPECT_EQ(graph.tttext({20, 100}, kArea), "");
  const auto rows = operating_point_rows(advanced);
  ASSERT_EQ(rows.size(), 5U);
  // 500 V on the bus make 318.3 V peak of first harmonic.
  EXPECT_EQ(rows[2].name + " " + rows[2].frequency + " " + rows[2].gain, "Ignition 45.9 2.20");
  EXPECT_NEAR(parse_number(rows[2].lamp_voltage).value_or(0), 700, 2);
  EXPECT_NEAR(parse_number(rows[3].lamp_voltage).value_or(0), 236, 1);
  EXPECT_EQ(rows[4].name + " " + rows[4].frequency + rows[4].gain, "Resonance 38.1");
}

TEST_F(OperatingPointsGraph, PrintsOnTheSizeOfThePaper) {
  fill(1);
  graph.SetPrintSize({900, 600});
  RecordingDeviceContext page({1123, 794});
  EXPECT_TRUE(graph.RenderOperatingPoints(page, Theme::Print));
  EXPECT_EQ(graph.AreaWidth(), 900);
  EXPECT_EQ(page.calls(Kind::Rectangle)[0].points[1], (Point{900, 600}));
  for (const DrawingCall& call : page.calls(Kind::Text)) {
    EXPECT_LE(call.state.textColour.red, 0x40) << call.text;
  }
}

/// A dialog that gives a fixed answer and keeps what it was asked.
struct FixedDialogs : FileDialogs {
  std::optional<std::string> answer;
  std::string title;
  std::string proposed;
  std::optional<std::string> askSave(std::string_view given_title, std::string_view,
                                     std::string_view given_name) override {
    title = given_title;
    proposed = given_name;
    return answer;
  }
  std::optional<std::string> askOpen(std::string_view, std::string_view,
                                     std::string_view) override {
    return std::nullopt;
  }
};

TEST_F(OperatingPointsGraph, ExportAsksForAFileAndReportsAFailure) {
  fill(1);
  const test::TemporaryFolder home;
  const ProgramFolder folder(home.path());
  FixedDialogs dialogs;
  std::string written;
  std::optional<std::string> failure;
  const PictureWriter write = [&](const std::filesystem::path& file, const Picture& picture) {
    written = file.string();
    RecordingDeviceContext surface(picture.size);
    picture.draw(surface);
    EXPECT_TRUE(has(surface.texts(), "Ignition"));
    return failure;
  };
  EXPECT_FALSE(graph.ExportGraph(dialogs, folder, write));  // Cancel
  EXPECT_EQ(written, "");
  EXPECT_EQ(dialogs.title, "Export Graph Image");
  EXPECT_EQ(dialogs.proposed, (home.path() / "Export" / "Operating Points Graph.bmp").string());
  dialogs.answer = "/elsewhere/graph.svg";
  EXPECT_TRUE(graph.ExportGraph(dialogs, folder, write));
  EXPECT_EQ(written, "/elsewhere/graph.svg");
  EXPECT_TRUE(messages.shown().empty());
  failure = "No space left on device";
  EXPECT_FALSE(graph.ExportGraph(dialogs, folder, write));
  EXPECT_EQ(
      texts(),
      (std::vector<std::string>{"Could not export file 'graph.svg' (No space left on device)"}));
}

}  // namespace
}  // namespace vantrel
