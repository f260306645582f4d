#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>

#include "core/text_parsing.h"
#include "database/adoaccess.h"
#include "database_builder/build.h"
#include "source_folder.h"

namespace vantrel::builder {
namespace {

using Texts = std::vector<std::string>;

std::string bytes(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

class BuildFile : public testing::Test {
 protected:
  /// The first row that a statement finds in the built database, its fields' type names and texts.
  Texts firstRow(const std::string& sql) {
    SysMsg messages;
    adoaccess_class database(messages);
    Texts texts;
    RecordSet set;
    if (!database.open_access(folder_.database()) || !database.read(sql, set)) return {"failed"};
    for (std::size_t i = 0; i < set.fieldCount(); ++i) {
      texts.push_back(std::string(set.at(i).type_name()) + " " + NullToText(set.at(i)));
    }
    return texts;
  }

  SourceFolder folder_;
};

TEST_F(BuildFile, StoresCellsByTheirColumn) {
  ASSERT_EQ(folder_.problems(), Texts{});
  EXPECT_EQ(firstRow("select [manufacturer], [homepage] from [web]"),
            (Texts{"String Cores, \"large\" and small", "Null "}));
  EXPECT_EQ(firstRow("select [Core Size], [Le Value], [Ae Value], [UserData] from "
                     "[INDUCTOR:Core Types]"),
            (Texts{"String EF25", "Double 57.5", "Null ", "Boolean False"}));
  EXPECT_EQ(firstRow("select [ID], [Include], [UserData], [Pmax% (W)], [Has RDC Yes/No] from "
                     "[DATA:LAMP] where Name = 'T5 28W' and Include = Yes"),
            (Texts{"Long 1", "Boolean True", "Boolean False", "String 28", "Null "}));
  EXPECT_EQ(firstRow("select [Include], [UserData] from [DATA:LAMP] where RecordType = 0"),
            (Texts{"Null ", "Null "}));
  EXPECT_EQ(firstRow("select [Running Bus (VDC)] from [DATA:INPUT] where ID = 1"),
            (Texts{"String $500,400 if target is \"tv6104\", 4E2 IF Config is \" DLSCM \""}));
  EXPECT_EQ(firstRow("select count(*) as n from [TV6110 BOM]"), (Texts{"Long 0"}));
}

TEST_F(BuildFile, ReadsFilesWithCarriageReturns) {
  std::string& text = folder_.file("DATA_LAMP.csv");
  for (std::size_t i = text.find('\n'); i != std::string::npos; i = text.find('\n', i + 2)) {
    text.insert(i, "\r");
  }
  ASSERT_EQ(folder_.problems(), Texts{});
  EXPECT_EQ(firstRow("select [Compact Yes/No] from [DATA:LAMP] where ID = 2"),
            (Texts{"String Linear"}));
}

TEST_F(BuildFile, BlankCellOfAColumnWithADefaultTakesIt) {
  folder_.add("LoadInputs.csv", "LoadID,Locked,InvisibleIfEmpty\nCalculator,,Yes\n");
  folder_.add("ComponentDescriptions.csv", "RefDes,MNR\nRT,\n");
  ASSERT_EQ(folder_.problems(), Texts{});
  EXPECT_EQ(firstRow("select [Locked], [InvisibleIfUnused], [InvisibleIfEmpty] from LoadInputs"),
            (Texts{"Boolean False", "Boolean False", "Boolean True"}));
  EXPECT_EQ(firstRow("select [MNR], [MNC] from ComponentDescriptions"),
            (Texts{"Boolean False", "Boolean False"}));
}

TEST_F(BuildFile, ProblemsLeaveTheOldDatabaseAsItWas) {
  ASSERT_EQ(folder_.problems(), Texts{});
  const std::string before = bytes(folder_.database());
  ASSERT_TRUE(folder_.replace("INDUCTOR_Core_Types.csv", "57.5", "x"));
  ASSERT_TRUE(folder_.replace("web.csv", "homepage", "page"));
  EXPECT_EQ(folder_.problems(),
            (Texts{"web.csv:1: unknown column 'page' of table [web]",
                   "INDUCTOR_Core_Types.csv:2: 'x' in column 'Le Value' is no number"}));
  EXPECT_EQ(bytes(folder_.database()), before);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.database().parent_path()),
                          std::filesystem::directory_iterator{}),
            1);
}

TEST_F(BuildFile, ReplacesTheOldDatabase) {
  ASSERT_EQ(folder_.problems(), Texts{});
  folder_.add("web.csv", "manufacturer,homepage\nLamps,https://www.example.org\n");
  ASSERT_EQ(folder_.problems(), Texts{});
  EXPECT_EQ(firstRow("select count(*) as n from web where manufacturer = 'Lamps'"),
            (Texts{"Long 1"}));
}

TEST_F(BuildFile, EveryTableHasAFileAndEveryFileATable) {
  folder_.remove("web.csv");
  folder_.add("TV6111_BOM.csv", "Stage\n");
  folder_.add("LoadInputs.csv", "");
  EXPECT_EQ(folder_.problems(), (Texts{"TV6111_BOM.csv: belongs to no table of the schema",
                                       "LoadInputs.csv:1: the line of column names is missing",
                                       "web.csv: could not be read; table [web] has no rows"}));
}

TEST_F(BuildFile, FaultySchemaAndUnwritablePlaceAreReported) {
  const Vocabulary vocabulary = program_vocabulary();
  const std::filesystem::path schema = folder_.path() / "schema.sql";
  const std::filesystem::path out = folder_.path() / "VTL.mdb";
  EXPECT_EQ(build_database({schema, VANTREL_DATA, out}, vocabulary).list().at(0).text,
            "could not be read");
  std::ofstream(schema) << "CREATE TABLE [web] (;\n";
  const Problems broken = build_database({schema, VANTREL_DATA, out}, vocabulary);
  ASSERT_EQ(broken.list().size(), 1U);
  EXPECT_EQ(broken.list()[0].file, schema);
  EXPECT_NE(broken.list()[0].text.find("syntax error"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(out));

  // A file where a folder should be.
  const Problems unwritable = build_database(
      {std::filesystem::path(VANTREL_DATA) / "schema.sql", VANTREL_DATA, schema / "VTL.mdb"},
      vocabulary);
  ASSERT_EQ(unwritable.list().size(), 1U);
  EXPECT_TRUE(unwritable.list()[0].text.starts_with("could not be made"))
      << unwritable.list()[0].text;
}

TEST_F(BuildFile, ExitStatusTellsBadSourcesFromWrongUse) {
  const auto status = [this](const std::string& options) {
    const std::filesystem::path output = folder_.path() / "output.txt";
    const std::string command = std::string("\"") + VANTREL_BUILD_DATABASE + "\" " + options +
                                " >\"" + output.string() + "\" 2>&1";
    return WEXITSTATUS(std::system(command.c_str()));
  };
  const std::string sources = std::string("--schema \"") + VANTREL_DATA + "/schema.sql\" --out \"" +
                              folder_.database().string() + "\" --data \"";
  const std::string data = (folder_.path() / "data").string();
  ASSERT_EQ(folder_.problems(), Texts{});
  EXPECT_EQ(status(sources + data + "\""), 0);
  EXPECT_EQ(status(sources + data + "\" --fast"), 1);
  EXPECT_EQ(status(""), 1);
  ASSERT_TRUE(folder_.replace("web.csv", "homepage", "page"));
  ASSERT_EQ(folder_.problems().size(), 1U);
  EXPECT_EQ(status(sources + data + "\""), 3);
  EXPECT_EQ(bytes(folder_.path() / "output.txt"),
            data + "/web.csv:1: unknown column 'page' of table [web]\n");
}

}  // namespace
}  // namespace vantrel::builder
