#include "services/user_data.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>
#include <vector>

#include "service_database.h"

namespace vantrel {
namespace {

using Texts = std::vector<std::string>;

std::string schema() {
  return test::file_text(VANTREL_SCHEMA_FILE) +
         "insert into [DATA:LAMP] ([RecordType],[ID],[Group],[Name],[Include],[UserData])"
         " values (2, 41, 1, 'Shipped', 1, 0);"
         "insert into [INDUCTOR:Core Types] values ('EF25', 57.8, 52, 1.1, 61, 1, 10, 0);";
}

enum LampField : std::size_t { kName, kPullDownName, kPower, kCompact = 15, kRdc = 16 };

class UserData : public test::ServiceDatabase {
 protected:
  void SetUp() override { open(schema()); }
  void addLamp(const std::string& name, const std::string& power) {
    SQLTableEdit& edit = user.SQLTableEdit1;
    ASSERT_TRUE(edit.CommandNew());
    edit.TypeField(kName, name);
    edit.TypeField(kPower, power);
    edit.TypeField(kCompact, "CFL");
    edit.TypeField(kRdc, "No");
    ASSERT_TRUE(edit.CommandSave());
  }
  std::string lamps() {
    return rows(
        "select [RecordType],[ID],[Group],[Include],[UserData],[Name],[Run Lamp Power (W)],"
        "[Compact Yes/No] from [DATA:LAMP] where UserData = Yes order by ID");
  }

  std::vector<std::int32_t> edited;
  int cores = 0;
  int shown = 0;
  EditUserData user{database,
                    messages,
                    nullptr,
                    {.lampsChanged = [this](std::int32_t id) { edited.push_back(id); },
                     .coresChanged = [this] { ++cores; }}};
};

TEST_F(UserData, LampsGetTheirHiddenColumns) {
  user.show = [this] { ++shown; };
  ASSERT_TRUE(user.InitialiseLamp());
  EXPECT_EQ(user.caption(), "User Lamps");
  EXPECT_EQ(user.SQLTableEdit1.FrameCaption(), "Select Lamp Details");
  EXPECT_EQ(user.SQLTableEdit1.SelectorCaption(), "Select Lamp (0 options available)");
  EXPECT_EQ(user.SQLTableEdit1.Fields().size(), 17U);
  EXPECT_EQ(shown, 1);
  addLamp("Mine", "28,5");
  EXPECT_EQ(lamps(), "2|42|9|True|True|Mine|28.5|CFL|\n");
  EXPECT_EQ(edited, std::vector<std::int32_t>{42});
  user.SQLTableEdit1.TypeField(kPower, "$28 if target is \"TV6103\", 30");  // a data statement
  EXPECT_TRUE(user.SQLTableEdit1.CommandSave());
  user.SQLTableEdit1.TypeField(kPower, "much");
  EXPECT_FALSE(user.SQLTableEdit1.CommandSave());
  EXPECT_EQ(take(),
            Texts{"Field 'Run Lamp Power (W)' Must be a number, Changes have not been saved"});
}

TEST_F(UserData, CoresAreAddedAndDeleted) {
  ASSERT_TRUE(user.InitialiseInductor());
  EXPECT_EQ(user.caption(), "User Core Types");
  SQLTableEdit& edit = user.SQLTableEdit1;
  EXPECT_EQ(edit.FrameCaption(), "Select User Core Details");
  ASSERT_TRUE(edit.CommandNew());
  const char* const texts[] = {"My core", "50", "40,5", "1.2", "70", "0.8", "8"};
  for (std::size_t i = 0; i < 7; ++i) {
    EXPECT_FALSE(edit.CommandSave());
    EXPECT_EQ(edit.RefusedField(), static_cast<int>(i));
    edit.TypeField(i, texts[i]);
  }
  ASSERT_TRUE(edit.CommandSave());
  EXPECT_EQ(value("select [Ae Value] from [INDUCTOR:Core Types] where UserData = Yes"),
            Variant(40.5));
  messages.injectAnswers({kYes});
  EXPECT_TRUE(edit.CommandDelete());
  EXPECT_EQ(cores, 2);
  EXPECT_EQ(edit.RecordCountText(), "No Records");
  EXPECT_EQ(value("select count(*) from [INDUCTOR:Core Types]"), Variant(std::int32_t{1}));
}

TEST_F(UserData, EveryFieldKeepsAnyTextOrSaysWhyNot) {
  const std::string texts[] = {"O'Brien \"x\" [y]",
                               "100 %; drop table [DATA:LAMP];--",
                               "\xD0\x96\xD0\xB5\xD0\xBB\xD1\x82\xD1\x8B\xD0\xB9",
                               std::string(10000, 'x'),
                               "0,25",
                               "$1 if target is \"TV6103\", 2"};
  SQLTableEdit& edit = user.SQLTableEdit1;
  const auto check = [&](std::size_t field, const std::string& text) {
    SCOPED_TRACE(edit.Fields()[field].Caption + " = " + text.substr(0, 40));
    const std::string before = edit.FieldText(field);
    edit.TypeField(field, text);
    if (edit.CommandSave()) {
      EXPECT_TRUE(edit.ReQuery());
      EXPECT_EQ(edit.FieldText(field),
                edit.Fields()[field].Numeric && text == "0,25" ? "0.25" : text);
      EXPECT_EQ(take(), Texts{});
      return;
    }
    const Texts said = take();
    ASSERT_EQ(said.size(), 1U);
    EXPECT_TRUE(said[0].starts_with("Field '" + edit.Fields()[field].Caption + "' Must be "));
    EXPECT_TRUE(edit.ReQuery());
    EXPECT_EQ(edit.FieldText(field), before);
  };
  ASSERT_TRUE(user.InitialiseLamp());
  addLamp("L", "28");
  const Variant lamps_before = value("select count(*) from [DATA:LAMP]");
  for (std::size_t field = 0; field < edit.Fields().size(); ++field) {
    for (const std::string& text : texts) check(field, text);
  }
  EXPECT_EQ(value("select count(*) from [DATA:LAMP]"), lamps_before);
  ASSERT_TRUE(user.InitialiseInductor());
  ASSERT_TRUE(edit.CommandNew());
  for (std::size_t i = 0; i < edit.Fields().size(); ++i) edit.TypeField(i, "1");
  ASSERT_TRUE(edit.CommandSave());
  for (std::size_t field = 0; field < edit.Fields().size(); ++field) {
    for (const std::string& text : texts) check(field, text);
  }
}

TEST_F(UserData, TravelsAsCsv) {
  const auto exchange = folder.path() / "lamps.csv";
  ASSERT_TRUE(user.InitialiseLamp());
  addLamp("A, \"quoted\"", "28");
  addLamp("\xD0\x96 two\r\nlines ", "");
  const std::string before = lamps();
  ASSERT_TRUE(user.ExportRowsTo(exchange));
  EXPECT_TRUE(test::file_text(exchange).starts_with("Name,PullDownName,Run Lamp Power (W),"));
  EXPECT_TRUE(user.ImportRowsFrom(exchange));
  EXPECT_EQ(lamps(), before);
  database.execute("delete from [DATA:LAMP] where UserData = Yes");
  edited.clear();
  EXPECT_TRUE(user.ImportRowsFrom(exchange));
  EXPECT_EQ(lamps(), before);
  EXPECT_EQ(edited, std::vector<std::int32_t>{-1});
  EXPECT_EQ(user.SQLTableEdit1.RecordCount(), 2U);
  EXPECT_EQ(take(), (Texts{"0 rows imported, 2 were there already",
                           "2 rows imported, 0 were there already"}));

  // What another program keeps from being read is neither exported as nothing nor imported twice.
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(file.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "begin exclusive", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_FALSE(user.ExportRowsTo(exchange));
  EXPECT_FALSE(user.ImportRowsFrom(exchange));
  sqlite3_close(other);
  const std::string reason = "'" + exchange.string() + "' (database is locked)";
  EXPECT_EQ(take(), (Texts{"Could not export to " + reason, "Could not import " + reason}));
  EXPECT_EQ(lamps(), before);
}

TEST_F(UserData, ImportTakesAllRowsOrNone) {
  ASSERT_TRUE(user.InitialiseLamp());
  const std::string titles = "Name,Compact Yes/No,Has RDC Yes/No,Run Lamp Power (W)\n";
  const std::pair<std::string, const char*> cases[] = {
      {"", "the file is empty"},
      {"Name,Volts\n", "there is no column 'Volts'"},
      {"Name,name\n", "column 'name' comes twice"},
      {titles + "x,CFL,No,1\ny,CFL\n", "line 3: 2 cells instead of 4"},
      {titles + "x,CFL,No,1\n,CFL,No,1\n",
       "line 3: Field 'Name' Must have a value, Changes have not been saved"},
      {titles + "x,Round,No,1\n",
       "line 2: Field 'Compact Yes/No' Must be one of its choices, Changes have not been saved"},
      {titles + "x,CFL,No,\"1\n", "line 2: a quote is not closed"},
  };
  const auto exchange = folder.path() / "lamps.csv";
  for (const auto& [text, reason] : cases) {
    folder.write("lamps.csv", text);
    EXPECT_FALSE(user.ImportRowsFrom(exchange));
    EXPECT_EQ(take(), Texts{"Could not import '" + exchange.string() + "' (" + reason + ")"});
    EXPECT_EQ(lamps(), "");
  }
  folder.write("lamps.csv", "\xEF\xBB\xBF" + titles + "x,CFL,No,\"1,5\"\r\n\r\n");
  EXPECT_TRUE(user.ImportRowsFrom(exchange));
  EXPECT_EQ(lamps(), "2|42|9|True|True|x|1.5|CFL|\n");
}

}  // namespace
}  // namespace vantrel
