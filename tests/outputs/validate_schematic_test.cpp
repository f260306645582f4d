#include "outputs/validate_schematic.h"

#include <gtest/gtest.h>

#include <utility>

#include "outputs/metafile_writer.h"
#include "outputs/outputs_fixture.h"

namespace vantrel {
namespace {

using test::contents;
using Texts = std::vector<std::string>;

std::string as_text(const std::vector<std::uint8_t>& bytes) { return {bytes.begin(), bytes.end()}; }

struct ValidateTest : ::testing::Test {
  test::FieldFixture fields;
  test::TemporaryFolder home;
  ProgramFolder folder{home.path()};
  test::AnsweredSave dialog;
  BomStore bill;
  bool displayed = true;
  bool bill_visible = false;
  std::string file = (home.path() / "circuit.wmf").string();
  Texts marked;
  ValidateSchematic validation{
      fields.context,
      bill,
      &dialog,
      folder,
      {.isSchematicDisplayed = [this] { return displayed; },
       .schematicFile = [this] { return file; },
       .targetName = [] { return "TV6103"; },
       .inputName = [] { return "ActivePFC"; },
       .configName = [] { return "SLCM"; },
       .isBillVisible = [this] { return bill_visible; },
       .highlightOnSchematic = [this](const std::string& name) { marked.push_back("S " + name); },
       .highlightInBill = [this](const std::string& name) { marked.push_back("B " + name); }}};

  void draw(const Texts& references, const Texts& labels = {}) {
    MetafileWriter writer(2000, 1000, 200);
    int y = 0;
    for (const std::string& each : references) writer.text({50, y += 20}, each);
    for (const std::string& each : labels) writer.label({500, y += 20}, each);
    home.write("circuit.wmf", as_text(writer.bytes()));
  }
  void addToBill(const Texts& references) {
    for (const std::string& each : references) bill.add("Part", "1", "", "", each);
  }
  Texts shown(ValidateList list) const {
    Texts texts;
    for (const ValidateItem& item : validation.items(list)) texts.push_back(item.text());
    return texts;
  }
};

TEST_F(ValidateTest, SaysInOrderWhyThereIsNothingToCheck) {
  const auto expect = [this](const char* message) {
    EXPECT_FALSE(validation.validate());
    EXPECT_EQ(fields.takeMessages(), Texts{message});
    EXPECT_FALSE(validation.visible());
  };
  displayed = false;
  expect("Schematic must be displayed for check");
  displayed = true;
  expect("No reference items in BOM to check");
  addToBill({"R1"});
  const std::string path = std::exchange(file, "");
  expect("Could not access schematic filename to validate");
  file = path;
  expect("Could not find schematic filename to validate");
  MetafileWriter writer(10, 10, 10);
  home.write("circuit.wmf", as_text(writer.bytes()).substr(22));  // without the placeable key
  expect("Schematic is not in valid .wmf format for comparison");
  draw({"1R", "R", "  Q  ", "", "µ"}, {"VBUS", "Lamp"});
  expect("No reference items in Schematic to check");
}

TEST_F(ValidateTest, ListsWhatOnlyOneSideHas) {
  draw({"R1", " C1 ", "VBUS", "Q2A", "R1", "R1", "X9"}, {"COM", "VCC"});
  addToBill({"R1", "C1", "L1", "RPH"});
  ASSERT_TRUE(validation.validate());
  EXPECT_EQ(shown(ValidateList::SchematicOnly),
            (Texts{"VBUS ?", "Q2A ?", "R1 (duplicate)", "R1 (duplicate)", "X9"}));
  EXPECT_EQ(shown(ValidateList::BillOnly), (Texts{"L1", "RPH"}));
  EXPECT_EQ(validation.caption(), "BOM vs Schematic : TV6103 : ActivePFC, SLCM");
  EXPECT_EQ(validation.scale().width(), 2000);
  EXPECT_EQ(validation.scale().unitsPerInch, 200);

  draw({"L1", "C1", "RPH", "R1"});
  ASSERT_TRUE(validation.validate());
  EXPECT_FALSE(validation.hasDiscrepancies());
  EXPECT_TRUE(fields.takeMessages().empty());
}

TEST_F(ValidateTest, MarksAComponentWhereItIs) {
  draw({"R1", "X9"});
  addToBill({"R1", "L1"});
  ASSERT_TRUE(validation.validate());
  EXPECT_TRUE(validation.ValidateHighlightComponent(ValidateList::SchematicOnly, 0));
  EXPECT_FALSE(validation.ValidateHighlightComponent(ValidateList::SchematicOnly, 1));
  EXPECT_FALSE(validation.ValidateHighlightComponent(ValidateList::BillOnly, 0));
  EXPECT_EQ(fields.takeMessages(), Texts{"BOM must be visible to highlight"});
  bill_visible = true;
  EXPECT_TRUE(validation.ValidateHighlightComponent(ValidateList::BillOnly, 0));
  EXPECT_EQ(marked, (Texts{"S X9", "B L1"}));
}

TEST_F(ValidateTest, ExportsBothLists) {
  draw({"R1", "X9"});
  addToBill({"R1", "L1"});
  ASSERT_TRUE(validation.validate());
  dialog.answer = (home.path() / "out.txt").string();
  EXPECT_TRUE(validation.ExportList());
  EXPECT_EQ(dialog.asked.front(), "Select export filename");
  EXPECT_EQ(contents(*dialog.answer),
            "BOM / Schematic discrepancies for TV6103 : ActivePFC, SLCM\r\n"
            "------------------------------------------------------------\r\n"
            "\r\nSchematic components not found in BOM\r\nX9\r\n"
            "\r\nBOM Components not found in schematic\r\nL1\r\n");
  EXPECT_FALSE(validation.ExportListTo((home.path() / "none" / "out.txt").string()));
  EXPECT_EQ(fields.takeMessages(), Texts{"Could not export file"});
  dialog.answer = "";
  EXPECT_FALSE(validation.ExportList());
  EXPECT_TRUE(fields.takeMessages().empty());
}

TEST(SchematicTexts, TakesOnlyPlainTextRecords) {
  MetafileWriter writer(2000, 1000, 200);
  writer.text({101, 51}, "R1");
  auto bytes = writer.bytes();
  const std::size_t record = bytes.size() - 6 - 16;  // 8 words: head, y, x, count, options, "R1"
  const auto found = [&bytes] { return read_schematic_texts(bytes)->references; };
  ASSERT_EQ(found().size(), 1U);
  EXPECT_EQ(found()[0].x, 101);
  EXPECT_EQ(found()[0].y, 51);
  const struct {
    const char* what;
    std::size_t byte;
    std::uint8_t value;
  } cases[] = {{"high byte of the count", 11, 1},
               {"clipped", 12, 4},
               {"high byte of the options", 13, 1},
               {"longer than the record", 10, 200},
               {"another function", 5, 0x0B}};
  for (const auto& test : cases) {
    const std::uint8_t before = std::exchange(bytes[record + test.byte], test.value);
    EXPECT_TRUE(found().empty()) << test.what;
    bytes[record + test.byte] = before;
  }
}

TEST(SchematicTexts, ScalesPositionsByTheExtent) {
  MetafileWriter writer(2000, 1000, 200);
  writer.text({101, 51}, "R1");
  auto bytes = writer.bytes();
  // The extent stands in the third record: map mode of 4 words, origin of 5, then 3 words of head.
  const std::size_t extent = 40 + (4 + 5 + 3) * 2;
  const auto set = [&](std::uint8_t y_low, std::uint8_t x_low) {
    for (std::size_t i = 0; i < 4; ++i) bytes[extent + i] = 0;
    bytes[extent] = y_low;
    bytes[extent + 2] = x_low;
    return read_schematic_texts(bytes)->references.at(0);
  };
  const auto scaled = set(100, 250);
  EXPECT_EQ(scaled.x, 808);  // 2000 * 101 / 250
  EXPECT_EQ(scaled.y, 510);  // 1000 * 51 / 100
  EXPECT_FALSE(set(0, 250).y);
  EXPECT_FALSE(set(100, 0).x);
}

TEST(SchematicTexts, KnowsNumbers) {
  EXPECT_TRUE(IsOnlyNumbers("0123456789"));
  EXPECT_TRUE(IsOnlyNumbers(""));
  EXPECT_FALSE(IsOnlyNumbers("1.5"));
  EXPECT_FALSE(IsOnlyNumbers("R1"));
}

}  // namespace
}  // namespace vantrel
