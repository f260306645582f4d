#include "outputs/image_display.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/recording_device_context.h"
#include "outputs/metafile_writer.h"
#include "outputs/outputs_fixture.h"

namespace vantrel {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kCircuit = "Graphics/Schematic/IC/TV6103/TV6103-ActivePFC-SLCM.wmf";

/// A display on screens without a database; the view is 1000 x 800 pixels.
struct ImageDisplayTest : ::testing::Test {
  test::FieldFixture fields;
  RunState state;
  MissingFields missing{fields.messages};
  adoaccess_class database{fields.messages};
  ScreenRegistry screens;
  SelectionDetails details{database, fields.messages, state};
  InputLoader loader{database, fields.messages, details, state, screens, missing};
  std::string heating = "Voltage Mode";
  std::string config = "SLCM";
  Advanced advanced{fields.context, state, {[](int) { return ""; }, [this] { return heating; }}};
  CoreTable cores{database};
  Inductor inductor{fields.context, advanced, loader, missing, cores};
  Transformer transformer{fields.context, advanced, loader, missing, cores};
  BomStore bill;
  test::TemporaryFolder home;
  ProgramFolder folder{home.path()};
  ManualTimer* timer = nullptr;
  ImageDisplay display{fields.context,
                       {advanced, inductor, transformer, bill, folder},
                       nullptr,
                       {.targetName = [] { return "TV6103"; },
                        .configName = [this] { return config; },
                        .calculate_simple =
                            [this] {
                              bill.add("Resistor", "10 k", "", "", "R1");
                              bill.add("Control IC", "TV6103", "", "", "IC1");
                              return true;
                            },
                        .makeTimer =
                            [this] {
                              auto made = std::make_unique<ManualTimer>();
                              timer = made.get();
                              return made;
                            }}};

  ImageDisplayTest() {
    display.setViewport({1000, 800});
    advanced.field("line_input_schematic").SetValue(Variant("ActivePFC"));
    for (const char* gate : {"allow_input", "allow_config", "allow_inductor"}) {
      advanced.field(gate).SetValue(Variant("Yes"));
    }
  }
  /// A drawing of 1920 x 960 pixels in 200 units an inch, with some references along its diagonal.
  void draw(const char* file, const Texts& references = {}, const char* layout = "") const {
    MetafileWriter writer(4000, 2000, 200);
    int place = 0;
    for (const std::string& each : references) {
      place += 1000;
      writer.text({place, place / 2}, each);
    }
    const auto bytes = writer.bytes();
    home.write(file, std::string(bytes.begin(), bytes.end()));
    std::filesystem::path beside(file);
    home.write(beside.replace_extension("layout"), layout);
  }
  Texts drawnTexts() {
    RecordingDeviceContext surface({1000, 800});
    display.redraw(surface);
    return surface.texts();
  }
};

TEST_F(ImageDisplayTest, ShowsTheCircuitOnceComponentsAreCalculated) {
  draw(kCircuit, {"R1"}, "value R1 1100 500 60 200 right\nvalue IC1 1100 500 60 100 left\n");
  EXPECT_FALSE(display.show_schematic());
  EXPECT_EQ(fields.takeMessages(),
            Texts{"Schematic cannot be shown until components have been calculated.\r\n\r\n"
                  "Do you wish to calculate now ?"});
  fields.messages.injectAnswers({kYes});
  EXPECT_TRUE(display.show_schematic());
  EXPECT_EQ(display.caption(), "TV6103 Circuit Diagram");
  EXPECT_TRUE(display.isSchematicDisplayed());
  EXPECT_EQ(display.schematicFile(), (home.path() / kCircuit).string());
  EXPECT_EQ(drawnTexts(), (Texts{"R1", "10 k"}));  // the other value is longer than its room
  display.setmin(true);
  EXPECT_EQ(display.caption(), "SCHEMATIC");
}

TEST_F(ImageDisplayTest, NamesTheCircuitBySelection) {
  bill.add("Resistor", "10 k", "", "", "R1");
  const auto message = [this](const char* input, const char* config_gate) {
    advanced.field("allow_input").SetValue(Variant(input));
    advanced.field("allow_config").SetValue(Variant(config_gate));
    EXPECT_FALSE(display.show_schematic());
    return fields.takeMessages().at(0);
  };
  EXPECT_EQ(message("yes", "yes"),
            "Schematic could not be found for IC 'TV6103', Input 'ActivePFC', Config 'SLCM'\r\n"
            "Filename : \\Graphics\\Schematic\\IC\\TV6103\\TV6103-ActivePFC-SLCM.wmf");
  EXPECT_TRUE(message("no", "yes").ends_with("\\TV6103-SLCM.wmf"));
  EXPECT_TRUE(message("no", "no").ends_with("\\TV6103.wmf"));
  EXPECT_EQ(drawnTexts(), Texts{"TV6103.wmf"});  // the sheet names what is missing
  EXPECT_TRUE(display.schematicFile().empty());
}

TEST_F(ImageDisplayTest, PicksTheDrawingOfTheInductor) {
  const struct {
    const char* config;
    const char* heating;
    const char* file;
  } cases[] = {{"DLSVM", "Current Mode", "LRES DLSVM"},
               {"DLPVMB", "Current Mode", "LRES Balance Transformer"},
               {"SLCM", "Current Mode", "LRES Current Mode"},
               {"SLVM", "Voltage Mode", "LRES Voltage Mode"}};
  inductor.findPullDown("ind_comboCore", 0)->items = {"E20/10-5"};
  show_core(*inductor.findPullDown("ind_comboCore", 0), "E20/10-5");
  for (const auto& test : cases) {
    config = test.config;
    heating = test.heating;
    EXPECT_FALSE(display.show_lres());
    ASSERT_EQ(display.document().pictures().size(), 2U);
    EXPECT_EQ(display.document().pictures()[0].file,
              "\\Graphics\\Schematic\\Inductor\\" + std::string(test.file) + ".wmf");
    EXPECT_EQ(display.document().pictures()[1].file,
              "\\Graphics\\Schematic\\CoreDiagrams\\E20105.wmf");
    EXPECT_EQ(fields.takeMessages().size(), 2U);
  }
  advanced.field("allow_inductor").SetValue(Variant("No"));
  display.visible(false);
  EXPECT_FALSE(display.show_pfc());
  EXPECT_FALSE(display.visible());
}

TEST_F(ImageDisplayTest, PrintsTwelveOverlays) {
  std::string layout;
  for (int i = 1; i <= 12; ++i) layout += "overlay " + std::to_string(i) + " 100 100 40\n";
  draw("Graphics/Schematic/Inductor/LPFC.wmf", {}, layout.c_str());
  inductor.field("ind_gapsize", 1).SetValue(Variant(0.45));
  inductor.field("ind_inductance", 1).SetValue(Variant(1.2));
  inductor.field("ind_peakignitioncurrent", 1).SetValue(Variant(2.5));
  inductor.field("ind_numberofturns", 1).SetValue(Variant(120));
  EXPECT_TRUE(display.show_pfc());
  // No core and no diameter: their texts are left out, the others keep their order.
  EXPECT_EQ(drawnTexts(),
            (Texts{"0.45 mm", "1.2 mH", "2.5 Apk", "120", "10", "0.2", "10", "0.2", "10", "0.2"}));
}

TEST_F(ImageDisplayTest, ShowsTheLayersOfTheBoard) {
  using namespace std::string_literals;
  home.write("Graphics/Layer1.gif", "GIF89a\x2c\x01\xc8\x00"s);
  home.write("Graphics/Layer2.gif", "\x89PNG\r\n\x1a\n????IHDR\0\0\0\x50\0\0\0\x28"s);
  home.write("Graphics/Layer3.gif", "GIF89a\0\0\x28\0"s);  // has no width
  EXPECT_FALSE(display.show_photoplot());
  EXPECT_EQ(fields.takeMessages(),
            Texts{"Picture 'Layer3' could not be found\r\nFilename : \\Graphics\\Layer3.gif"});
  EXPECT_EQ(display.caption(), "Board Photoplot");
  RecordingDeviceContext surface({1000, 800});
  display.render_image_details(surface, {0, 0}, 2);
  const auto images = surface.calls(DrawingCall::Kind::Image);
  ASSERT_EQ(images.size(), 2U);
  EXPECT_EQ(images[0].points, (std::vector<Point>{{0, 36}, {600, 436}}));  // 300 x 200, doubled
  EXPECT_EQ(images[1].points[1].x, 808);  // 80 wide, beside the first
  EXPECT_EQ(images[1].points[1].y - images[1].points[0].y, 80);
}

TEST_F(ImageDisplayTest, RingsComponents) {
  bill.add("Resistor", "10 k", "", "", "R1");
  draw(kCircuit, {"R1", "C1", "Q1"}, "component R1 900 400 1100 600  # symbol\ncomponent R2 x\n");
  ASSERT_TRUE(display.show_schematic());
  EXPECT_FALSE(display.StartHighlight("X1"));
  EXPECT_EQ(fields.takeMessages(),
            Texts{"Could not find component 'X1' for display in schematic - invalid reference"});
  const Texts both{"R1", "Q1"};
  EXPECT_TRUE(display.StartHighlight(both));
  ASSERT_EQ(display.highlight().rings().size(), 2U);
  // 96 pixels are 200 units; without a symbol the ring lies about the designator at 3000, 1500.
  EXPECT_EQ(display.highlight().rings()[0].symbol, (Box{432, 192, 96, 96}));
  EXPECT_EQ(display.highlight().rings()[1].symbol, (Box{1416, 696, 48, 48}));
  EXPECT_EQ(timer->interval(), 300);
  for (int i = 1; i <= 6; ++i) {
    timer->fire();
    EXPECT_EQ(display.highlight().isShown(), i % 2 == 0);
  }
  EXPECT_TRUE(display.highlight().isSteady());
  EXPECT_FALSE(timer->running());
  const Point symbol = display.view().toView({480, 240});
  EXPECT_EQ(display.componentText(symbol), "R1  10 k");
  display.StopHighlight();
  EXPECT_TRUE(display.highlight().rings().empty());
}

TEST(ImageDocument, TellsWhyAComponentHasNoPlace) {
  const test::TemporaryFolder home;
  const ProgramFolder folder(home.path());
  MetafileWriter writer(4000, 2000, 200);
  writer.text({100, 3000}, "R1");
  writer.text({-5, 100}, "R2");
  const auto bytes = writer.bytes();
  home.write("a.wmf", std::string(bytes.begin(), bytes.end()));
  ImageDocument document(folder);
  ASSERT_TRUE(document.add_picture("", "\\a.wmf", {}));
  EXPECT_EQ(std::get<std::string>(document.findComponent("R1")),
            "Component R1 has invalid y coordinates");
  EXPECT_EQ(std::get<std::string>(document.findComponent("R2")),
            "Component R2 has invalid x coordinates");
}

TEST(ImageView, ZoomsByPowersOfTwo) {
  ImageView view;
  view.setViewport({1000, 800});
  view.setDocument({2000, 900});
  view.fit();
  EXPECT_DOUBLE_EQ(view.scale(), 0.5);
  EXPECT_FALSE(view.horizontal().visible);
  EXPECT_EQ(view.origin(), (Point{0, 175}));  // centred
  view.setDocument({1900, 1000});
  view.fit();
  EXPECT_DOUBLE_EQ(view.scale(), 10 / 19.0);
  EXPECT_TRUE(view.zoomIn());
  EXPECT_DOUBLE_EQ(view.scale(), 20 / 19.0);
  EXPECT_TRUE(view.zoomIn());
  EXPECT_TRUE(view.zoomIn());  // less than a level, up to the last one
  EXPECT_EQ(view.scale(), 4);
  EXPECT_FALSE(view.zoomIn());
  view.setDocument({1900, 900});
  view.zoomOut();
  view.zoomOut();
  view.zoomOut();
  // The point under the pointer stays there.
  const Point anchor{300, 400};
  const Point before = view.toDocument(anchor);
  EXPECT_TRUE(view.zoomIn(anchor));
  EXPECT_EQ(view.scale(), 1);
  EXPECT_NEAR(view.toDocument(anchor).x, before.x, 1e-9);
  EXPECT_NEAR(view.toDocument(anchor).y, before.y, 1e-9);
  EXPECT_EQ(view.horizontal().most, 900);
  view.MoveDisplayTo(50, 50);
  EXPECT_NEAR(view.GetXPercentageOfCentre(), 50, 1e-9);
  EXPECT_NEAR(view.GetXPercentageOfLeft(), 450 / 19.0, 1e-9);
  EXPECT_NEAR(view.GetYPercentageOfTop(), 50 / 9.0, 1e-9);
  view.scrollTo({1e9, -1e9});
  EXPECT_EQ(view.horizontal().offset, 900);
  EXPECT_EQ(view.vertical().offset, 0);
  while (view.zoomIn()) {
  }
  EXPECT_EQ(view.scale(), 4);
  while (view.zoomOut()) {
  }
  EXPECT_EQ(view.scale(), 0.125);
  view.setDocument({100000, 10});
  view.fit();
  EXPECT_EQ(view.level(), 5);  // nothing smaller, so the bar shows
  EXPECT_TRUE(view.horizontal().visible);
  EXPECT_FALSE(view.vertical().visible);
}

}  // namespace
}  // namespace vantrel
