#include "services/debug_utils.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "service_database.h"
#include "services/textfile_viewer.h"

namespace vantrel {
namespace {

using Texts = std::vector<std::string>;

bool holds(const Texts& lines, const std::string& line) {
  return std::ranges::find(lines, line) != lines.end();
}

/// The checks on a copy of the shipped design database that a test may break.
class Diagnostics : public test::ServiceDatabase {
 protected:
  void SetUp() override {
    std::filesystem::copy_file(VANTREL_DATABASE, file);
    ASSERT_TRUE(database.open_access(file));
  }

  DebugUtils checks{database, messages};
};

TEST_F(Diagnostics, FindNothingInTheShippedDatabase) {
  ASSERT_TRUE(checks.Start(DebugUtils::kDescriptions));
  EXPECT_EQ(checks.Findings(), 0) << checks.Report().front();
  ASSERT_EQ(checks.Report().size(), 2U);
  const std::string described = to_text(value("select count(*) from ComponentDescriptions"));
  EXPECT_EQ(checks.Report()[0], described + " component descriptions found");
  EXPECT_TRUE(checks.Report()[1].starts_with("BOM has " + described + " unique components"));

  ASSERT_TRUE(checks.Start(DebugUtils::kUsage, DebugUtils::kAllReferences));
  for (const std::string& line : checks.Report()) {
    EXPECT_FALSE(line.starts_with(">>>") || line.starts_with("ERROR")) << line;
  }
  EXPECT_EQ(checks.Findings(), 0);
  ASSERT_TRUE(checks.Start(DebugUtils::kUsage, "JIN"));
  EXPECT_EQ(checks.Report().front(), "Component : JIN");
  EXPECT_TRUE(holds(checks.Report(), "... [TV6108] (INPUT:ACMains) "));
}

TEST_F(Diagnostics, AskForWhatIsMissing) {
  EXPECT_FALSE(checks.Start(""));
  EXPECT_FALSE(checks.Start(DebugUtils::kUsage));
  EXPECT_FALSE(checks.Start(DebugUtils::kUsage, "NoSuchPart"));
  const std::string select = "You must select a valid reference designator to check";
  EXPECT_EQ(take(), (Texts{"You must select a valid test", select, select}));
  checks.load();
  EXPECT_EQ(checks.Components()[0], "Select Component");
  EXPECT_EQ(checks.Components()[1], "All Reference Designators");
  EXPECT_TRUE(std::is_sorted(checks.Components().begin() + 2, checks.Components().end()));
}

TEST_F(Diagnostics, FindEachFault) {
  struct Case {
    const char* name;
    std::vector<const char*> statements;  ///< They break the database.
    bool usage;
    Texts lines;
  };
  // Rows of their own stages, so that each stands first or last in stage order.
  const Case cases[] = {
      {"no descriptions",
       {"delete from ComponentDescriptions"},
       false,
       {"ERROR: Could not find component descriptions in database",
        "0 component descriptions found"}},
      {"no reference",
       {"insert into [TV6103 BOM] (Stage) values ('A')"},
       false,
       {"ERROR: BOM Record 1 of table TV6103 BOM has missing reference designator field"}},
      {"no value",
       {"insert into [TV6103 BOM] (Stage,RefDes,Fixed) values ('A','JIN',1)"},
       false,
       {"WARNING: BOM Record 1 of table TV6103 BOM : Fixed item has no value(Stage 'A', RefDes "
        "'JIN')"}},
      {"no unit",
       {"insert into [TV6103 BOM] (Stage,RefDes,Fixed,value) values ('A','JIN',1,'4.7')",
        "insert into [TV6104 BOM] (Stage,RefDes) values ('A','C1')"},
       false,
       {"WARNING: BOM Record 1 of table TV6103 BOM : Item has no value unit specified(Stage 'A', "
        "RefDes 'JIN')",
        "WARNING: BOM Record 1 of table TV6104 BOM : Item has no value unit specified(Stage 'A', "
        "RefDes 'C1')"}},
      {"no description",
       {"insert into [TV6103 BOM] (Stage,RefDes,Fixed,value) values ('A','ZZ1,ZZ2',1,'part')"},
       false,
       {"WARNING: BOM Record 1 of table TV6103 BOM : Item has no description and none found in "
        "the ComponentDescriptions table(Stage 'A', RefDes 'ZZ1,ZZ2')"}},
      {"not in the BOM",
       {"insert into ComponentDescriptions (RefDes) values ('ZZ1')"},
       false,
       {"WARNING: Component 'ZZ1' has a ComponentDescription but is not found in the BOM"}},
      {"no rows",
       {"update Target:Info set BOMTable = 'Lookup:Scale:Unity'"},
       false,
       {"ERROR: Could not find BOM components table Lookup:Scale:Unity in components database",
        "ERROR: Could not find BOM components in components database"}},
      {"no table name",
       {"update Target:Info set BOMTable = '' where Target = 'TV6103'"},
       false,
       {"Entry in Target:Info has empty or missing BOMTable Entry"}},
      {"no targets",
       {"delete from Target:Info"},
       false,
       {"Could not find Target:Info table in VTL Database"}},
      {"no targets",
       {"delete from Target:Info"},
       true,
       {"ERROR: Could not find Target:Info in components database"}},
      {"no table",
       {"drop table [TV6105 BOM]"},
       true,
       {"ERROR: Could not find BOM components table TV6105 BOM in components database"}},
      {"a stage of nobody",
       {"insert into [TV6103 BOM] (Stage,RefDes) values ('IC:TV6104,PART:x','ZZ1')"},
       true,
       {"Component : ZZ1", ">>> ERROR : Component ZZ1 is NOT referenced by any stage for any IC"}},
      {"twice in one stage",
       {"insert into [TV6103 BOM] (Stage,RefDes) values ('IC:TV6103','zz1, ZZ1')"},
       true,
       {"... [TV6103] (IC:TV6103) ",
        ">>> ERROR : Component ZZ1 is referenced multiple times for IC TV6103"}},
      {"in two that go together",
       {"insert into [TV6103 BOM] (Stage,RefDes) values ('INPUT:DC','ZZ1'),('CONFIG:SLCM','ZZ1')"},
       true,
       {"... [TV6103] (INPUT:DC) ", "... [TV6103] (CONFIG:SLCM) ",
        ">>> ERROR : Component ZZ1 is referenced multiple times for IC TV6103"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    database.close_access();
    std::filesystem::copy_file(VANTREL_DATABASE, file,
                               std::filesystem::copy_options::overwrite_existing);
    ASSERT_TRUE(database.open_access(file));
    for (const char* statement : c.statements) database.execute(statement);
    ASSERT_TRUE(c.usage ? checks.Start(DebugUtils::kUsage, DebugUtils::kAllReferences)
                        : checks.Start(DebugUtils::kDescriptions));
    for (const std::string& line : c.lines) EXPECT_TRUE(holds(checks.Report(), line)) << line;
    EXPECT_GT(checks.Findings(), 0);
  }
}

TEST_F(Diagnostics, AllowAReferenceInStagesThatExcludeEachOther) {
  database.execute(
      "insert into [TV6103 BOM] (Stage,RefDes,Disallow) values ('INPUT:DC','ZZ1',null),"
      "('INPUT:ActivePFC','ZZ1',null),('CONFIG:SLCM','ZZ1','INPUT:DC,INPUT:ActivePFC')");
  ASSERT_TRUE(checks.Start(DebugUtils::kUsage, "ZZ1"));
  EXPECT_EQ(checks.Findings(), 0);
  EXPECT_EQ(checks.Report().size(), 4U);
}

TEST_F(Diagnostics, TheViewerFindsAndMarksLines) {
  CalculationLog log(messages);
  std::string title;
  TextfileViewerHooks hooks;
  hooks.askText = [&](std::string_view name, std::string_view prompt, const std::string&) {
    title = std::string(name) + "|" + std::string(prompt);
    return std::optional<std::string>(" RT ");
  };
  TextfileViewer viewer(messages, log, hooks);
  EXPECT_FALSE(viewer.ShowFile(folder.path() / "none.txt"));
  EXPECT_FALSE(viewer.ShowFile(folder.path()));
  EXPECT_EQ(take(), (Texts{"File '" + (folder.path() / "none.txt").string() +
                               "' does not exist and cannot be viewed",
                           "Could not open file '" + folder.path().string() + "' for display"}));

  folder.write("log.txt", "first RT\r\n\r\nsecond \xE9\nthird rt");
  ASSERT_TRUE(viewer.ShowFile(folder.path() / "log.txt"));
  EXPECT_EQ(viewer.lines(), (Texts{"first RT", "", "second \xC3\xA9", "third rt"}));
  EXPECT_TRUE(viewer.FindNext("RT"));
  EXPECT_EQ(viewer.currentLine(), 0U);
  EXPECT_TRUE(viewer.FindNext("RT"));
  EXPECT_EQ(viewer.currentLine(), 3U);
  EXPECT_TRUE(viewer.FindNext("third"));  // another text may stand in the line of the last hit
  EXPECT_FALSE(viewer.FindNext("RT2"));
  EXPECT_FALSE(viewer.FindNext(""));
  viewer.selectLine(2);
  viewer.MnuSetBreak();
  viewer.MnuSetTrapVariable();
  EXPECT_EQ(title, "Calculation Debug|Enter variable to watch");
  EXPECT_TRUE(viewer.isBreakLine(2));
  EXPECT_TRUE(viewer.isWatchedLine(0));
  EXPECT_FALSE(viewer.isWatchedLine(3));
  EXPECT_EQ(log.breakText(), "second \xC3\xA9");
  EXPECT_EQ(log.watchText(), "RT");
  viewer.MnuClearBreak();
  viewer.MnuClearTrapVariable();
  EXPECT_EQ(log.breakText() + log.watchText(), "");
  EXPECT_EQ(take(),
            (Texts{"The string 'RT2' could not be found", "You must enter a valid search string",
                   "Break message cleared", "Variable watch cleared"}));
  log.keepLines(true);
  log.write("a line");
  viewer.ShowLog();
  EXPECT_EQ(viewer.lines(), Texts{"a line"});
}

}  // namespace
}  // namespace vantrel
