#include "services/sql_table_edit.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <set>
#include <string>
#include <vector>

#include "service_database.h"

namespace vantrel {
namespace {

using Texts = std::vector<std::string>;

TEST(EditCharacters, PassByTheBitsOfTheField) {
  struct Case {
    std::int32_t flag;
    std::u32string passes;
    std::u32string refused;
  };
  const Case cases[] = {
      {1, U"azAZ", U"@[`{09.,\u044F"},
      {2, U"09.", U"/:a,-"},
      {8, U"!/,.:;?%'\u00A3", U"09@A~\u00A2\u00A4"},
      {15, U"a9 ,%;'", U"@_[\u0416"},
      {0, U"\b\r\t ", U"a1,"},
      {64, U" ", U"a1,"},
  };
  for (const Case& c : cases) {
    for (const char32_t passing : c.passes) EXPECT_TRUE(IsCharValid(passing, c.flag)) << c.flag;
    for (const char32_t refused : c.refused) {
      EXPECT_FALSE(IsCharValid(refused, c.flag)) << c.flag << " " << std::uint32_t{refused};
    }
  }
}

TEST(EditDates, TakeTheFormOfTheDatabase) {
  EXPECT_EQ(MakeUSDate("31/12/2024"), "#12/31/2024#");
  EXPECT_EQ(MakeUSDate("01/02/2003"), "#2/1/2003#");
  EXPECT_EQ(MakeUSDate("29/02/2024"), "#2/29/2024#");
  for (const char* none : {"", "29/02/2023", "31/04/2024", "1/13/2024", "1/257/2024", "a/b/c",
                           "1/2", "1/2/24", "-1/2/2024", "1/2/2024/"}) {
    EXPECT_EQ(MakeUSDate(none), "") << none;
  }
  EXPECT_EQ(date_caption(1, 2, 2003), "01/02/2003");
  EXPECT_EQ(date_caption("2003-02-01"), "01/02/2003");
}

TEST(EditBooleans, AreTrueUnlessAWordSaysNo) {
  FieldDefinition field;
  field.Flags = kFieldBoolean;
  for (const char* no : {"no", "N", "F", "False"}) {
    EXPECT_EQ(field_value(field, no), Variant(false)) << no;
  }
  for (const char* yes : {"", "yes", "0", "nope"}) {
    EXPECT_EQ(field_value(field, yes), Variant(true)) << yes;
  }
}

TEST(EditTables, AreSplitFromTheirCondition) {
  const TableText plain = split_table_text("[DATA:Lamp]");
  EXPECT_EQ(plain.table, "[DATA:Lamp]");
  EXPECT_EQ(plain.filter, "");
  const TableText filtered = split_table_text("[a where b] WHERE x = 'where' or y");
  EXPECT_EQ(filtered.table, "[a where b]");
  EXPECT_EQ(filtered.filter, "x = 'where' or y");
}

constexpr const char* kSchema =
    "create table [Part] ([Name] TEXT, [Size] REAL, [Kind] TEXT, [Made] TEXT, [Good] BOOLEAN,"
    " [Code] INTEGER, [Mine] BOOLEAN, [Hidden] TEXT);"
    "insert into [Part] values ('b', 2, 'X', '2020-05-06', 1, 1, 1, 'h');"
    "insert into [Part] values ('a', 1.5, 'Y', null, 0, 3, 1, null);"
    "insert into [Part] values ('theirs', 9, 'X', null, 0, 2, 0, null);";
constexpr const char* kMine = "[Part] where Mine = Yes or Mine = True";

enum Field : std::size_t { kName, kSize, kKind, kMade, kGood, kCode };

class TableEdit : public test::ServiceDatabase {
 protected:
  void SetUp() override {
    open(kSchema);
    edit.events.recordAdded = [this] {
      edit.SetFieldValue("Mine", true);
      edit.SetFieldValue("NoSuchColumn", 1.0);
    };
    edit.events.recordSaved = [this] { ++saves; };
    edit.events.recordDeleted = [this] { ++deletes; };
    describe();
    ASSERT_TRUE(edit.EditDatabase(kMine, "Part"));
  }
  void describe() {
    edit.initialise();
    edit.AddSelector("Select Part", "Name");
    edit.AddSearchSelector("Find Size", "Size", "Name");
    edit.AddField("Name", "", kFieldBox, 79);
    edit.AddField("How big", "Size", kFieldBox, 2);
    edit.AddField("Kind", "", kFieldPulldown, 64);
    edit.AddPulldown("The X", "X", kKind);
    edit.AddPulldown("The Y", "Y", kKind);
    edit.AddField("Made", "", kFieldPickDate, 16);
    edit.AddField("Good", "", kFieldCheck, 32);
    edit.AddField("Code", "", kFieldBox, 2).MaxNumberForUniqueCodePutInThisFieldWhenRecordAdded = 4;
  }
  Texts shown() const {
    Texts result;
    for (std::size_t i = 0; i < edit.Fields().size(); ++i) result.push_back(edit.FieldText(i));
    return result;
  }
  std::string stored() { return rows("select * from [Part] order by rowid"); }

  SQLTableEdit edit{database, messages, "Editor", "VTL.mdb"};
  int saves = 0;
  int deletes = 0;
};

constexpr const char* kUnsaved =
    "This Record has been modified and changes will be lost.\r\nDo you wish to save your changes "
    "first (YES), Proceed without Save (NO), or Cancel the operation (CANCEL) ? ";

TEST_F(TableEdit, OpensInTheOrderOfItsSelector) {
  EXPECT_EQ(edit.FrameCaption(), "Select Part Details");
  EXPECT_EQ(edit.SelectorCaption(), "Select Part (2 options available)");
  EXPECT_EQ(edit.SelectorList(), (Texts{"a", "b"}));
  EXPECT_EQ(edit.RecordCountText(), "1 of 2 Records");
  EXPECT_EQ(shown(), (Texts{"a", "1.5", "Y", "", "False", "3"}));
  EXPECT_TRUE(edit.next());
  EXPECT_EQ(shown(), (Texts{"b", "2", "X", "06/05/2020", "True", "1"}));
  EXPECT_EQ(edit.GetFieldValue("hidden"), Variant("h"));
  EXPECT_TRUE(edit.SetSelector(1));
  EXPECT_TRUE(edit.Search("theirs"));  // the search and the condition both hold
  EXPECT_EQ(edit.RecordCountText(), "No Records");
  EXPECT_FALSE(edit.hasRecord());
  EXPECT_TRUE(edit.Search("b"));
  EXPECT_EQ(edit.SelectorCaption(), "Find Size (1 options available)");
  EXPECT_EQ(edit.RecordCountText(), "1 Record");
  EXPECT_EQ(take(), Texts{});
}

TEST_F(TableEdit, SaysWhyItCannotOpen) {
  edit.initialise();
  EXPECT_FALSE(edit.EditDatabase(kMine, "Part"));
  describe();
  EXPECT_FALSE(edit.EditDatabase("[Gone] where x", "Part"));
  edit.initialise();
  edit.AddSelector("Select", "NoColumn");
  EXPECT_FALSE(edit.EditDatabase(kMine, "Part"));
  edit.initialise();
  edit.AddSelector("Select", "1");
  database.close_access();
  EXPECT_FALSE(edit.EditDatabase("Part", "Part"));
  EXPECT_EQ(take(), (Texts{"No selectors have been entered. Cannot edit database",
                           "Could not open table '[Gone] where x'",
                           "Could not open query '" + std::string(kMine) + "'",
                           "Cannot connect to database 'VTL.mdb'"}));
  EXPECT_EQ(edit.RecordCountText(), "No Records");
  EXPECT_FALSE(edit.isOpen());
}

TEST_F(TableEdit, AsksBeforeChangesAreLost) {
  struct Case {
    int answer;
    bool leaves;
    const char* name;  ///< Of the first record afterwards.
    std::size_t at;
  };
  for (const Case& c : {Case{kCancel, false, "a", 0}, Case{kClosed, false, "a", 0},
                        Case{kNo, true, "a", 1}, Case{kYes, true, "a2", 1}}) {
    edit.TypeField(kName, "a2");
    EXPECT_TRUE(edit.RecordSetHasChanged());
    messages.injectAnswers({c.answer});
    EXPECT_EQ(edit.next(), c.leaves) << c.answer;
    EXPECT_EQ(take(), Texts{kUnsaved});
    EXPECT_EQ(edit.SelectorList().front(), c.name);
    EXPECT_EQ(edit.RecordPosition(), c.at);
    if (edit.RecordSetHasChanged()) messages.injectAnswers({kNo});
    edit.first();
    take();
  }
  edit.TypeField(kName, "a2");  // no change
  EXPECT_FALSE(edit.RecordSetHasChanged());
}

TEST_F(TableEdit, RefusesWhatAFieldCannotHold) {
  const std::string before = stored();
  ASSERT_TRUE(edit.CommandNew());
  struct Step {
    std::size_t field;
    const char* text;  ///< Typed after the refusal.
    const char* refusal;
    int refused;
  };
  const Step steps[] = {
      {kName, "n", "Field 'Name' Must have a value, Changes have not been saved", kName},
      {kKind, "Z", "Field 'Kind' Must have a value, Changes have not been saved", kKind},
      {kKind, "X", "Field 'Kind' Must be one of its choices, Changes have not been saved", kKind},
  };
  for (const Step& step : steps) {
    EXPECT_FALSE(edit.CommandSave());
    EXPECT_EQ(take(), Texts{step.refusal});
    EXPECT_EQ(edit.RefusedField(), step.refused);
    edit.TypeField(step.field, step.text);
  }
  edit.TypeField(kSize, "12 x");
  EXPECT_FALSE(edit.CommandSave());
  edit.TypeField(kSize, "12,5");
  edit.TypeField(kMade, "31/02/2024");
  EXPECT_FALSE(edit.CommandSave());
  EXPECT_EQ(take(), (Texts{"Field 'How big' Must be a number, Changes have not been saved",
                           "Field 'Made' Must be a date, Changes have not been saved"}));
  EXPECT_EQ(stored(), before);
  edit.TypeField(kMade, "29/02/2024");
  edit.TypeField(kGood, "no");
  EXPECT_TRUE(edit.CommandSave());
  EXPECT_EQ(stored(), before + "n|12.5|X|2024-02-29|False|4|True|-|\n");
  EXPECT_EQ(edit.RecordCountText(), "3 of 3 Records");
  EXPECT_EQ(saves, 1);
}

TEST_F(TableEdit, GivesNewRecordsTheLowestFreeCode) {
  ASSERT_TRUE(edit.CommandNew());
  EXPECT_EQ(shown(), (Texts{"", "", "", "", "", "4"}));  // 1, 2 and 3 are taken, also by others
  messages.injectAnswers({kNo});
  ASSERT_TRUE(edit.first());
  database.execute("update [Part] set Code = 4 where Name = 'theirs'");
  ASSERT_TRUE(edit.CommandNew());
  EXPECT_EQ(edit.FieldText(kCode), "2");
  messages.injectAnswers({kNo});
  ASSERT_TRUE(edit.first());
  database.execute("insert into [Part] (Code) values (2)");
  take();
  ASSERT_TRUE(edit.CommandNew());
  EXPECT_EQ(take(), Texts{"Could not find a free code for field 'Code' in table [Part]"});
}

TEST_F(TableEdit, DeletesAndTakesChangesBack) {
  const std::string before = stored();
  messages.injectAnswers({kNo, kYes});
  EXPECT_FALSE(edit.CommandDelete());
  EXPECT_TRUE(edit.CommandDelete());
  EXPECT_EQ(take(), Texts(2, "Are you sure you wish to delete this Record ?"));
  EXPECT_EQ(edit.SelectorList(), Texts{"b"});
  EXPECT_EQ(deletes, 1);
  EXPECT_TRUE(edit.UndoLastChange());
  EXPECT_EQ(stored(), before);
  EXPECT_FALSE(edit.UndoLastChange());

  edit.TypeField(kSize, "7");
  EXPECT_TRUE(edit.CommandSave());
  EXPECT_NE(stored(), before);
  EXPECT_TRUE(edit.UndoLastChange());
  EXPECT_EQ(stored(), before);

  ASSERT_TRUE(edit.CommandNew());
  edit.TypeField(kName, "new");
  edit.TypeField(kKind, "X");
  EXPECT_TRUE(edit.CommandSave());
  EXPECT_TRUE(edit.UndoLastChange());
  EXPECT_EQ(stored(), before);
  EXPECT_EQ(deletes, 2);

  database.execute("insert into [Part] (Name, Kind, Mine) values ('c', 'X', 1)");
  EXPECT_TRUE(edit.ReQuery());
  EXPECT_TRUE(edit.Select(1));
  messages.injectAnswers({kYes});
  EXPECT_TRUE(edit.CommandDelete());
  EXPECT_EQ(edit.FieldText(kName), "c");  // the one that has moved up, not the first
}

TEST_F(TableEdit, TellsWhenARecordIsGone) {
  database.execute("delete from [Part] where Name = 'a'");
  edit.TypeField(kSize, "7");
  EXPECT_FALSE(edit.CommandSave());
  EXPECT_EQ(take(), Texts{"The record could not be saved (it is not in the table any more)"});
  EXPECT_TRUE(edit.RecordSetHasChanged());
}

TEST_F(TableEdit, KeepsWhatAnotherProgramHasChangedMeanwhile) {
  const char* row = "select Name, Size, Kind, Made from [Part] where rowid = 2";
  database.execute("update [Part] set Kind = 'X' where rowid = 2");
  edit.TypeField(kSize, "7");
  EXPECT_TRUE(edit.CommandSave());
  EXPECT_EQ(rows(row), "a|7|X|-|\n");
  database.execute("update [Part] set Made = '2001-02-03' where rowid = 2");
  EXPECT_TRUE(edit.UndoLastChange());
  EXPECT_EQ(rows(row), "a|1.5|X|2001-02-03|\n");
  EXPECT_TRUE(edit.CommandSave());  // nothing to store is no failure
}

TEST_F(TableEdit, LosesNothingWhileAnotherProgramHoldsTheDatabase) {
  for (const char* lock : {"begin immediate", "begin exclusive"}) {
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, lock, nullptr, nullptr, nullptr), SQLITE_OK);
    edit.TypeField(kSize, lock == std::string_view("begin immediate") ? "7" : "8");
    EXPECT_FALSE(edit.CommandSave());
    EXPECT_EQ(take(), Texts{"The record could not be saved (database is locked)"}) << lock;
    EXPECT_TRUE(edit.RecordSetHasChanged());
    sqlite3_close(other);
    EXPECT_TRUE(edit.CommandSave());
  }
  EXPECT_EQ(rows("select Size from [Part] where rowid = 2"), "8|\n");
}

TEST_F(TableEdit, KeepsEveryTextAsItIs) {
  for (const std::string& text :
       {std::string("O'Brien \"x\" [y] `z`"), std::string("100 %; drop table [Part];--"),
        std::string("\xD0\x96\xD0\xB5\xD0\xBB\xD1\x82\xD1\x8B\xD0\xB9"), std::string(10000, 'x'),
        std::string("  blanks  "), std::string("line\r\nbreak"), std::string("#1/2/2003# Yes")}) {
    edit.TypeField(kName, text);
    ASSERT_TRUE(edit.CommandSave());
    EXPECT_EQ(edit.FieldText(kName), text);
    EXPECT_EQ(value("select Name from [Part] where rowid = 2"), Variant(text));
  }
}

}  // namespace
}  // namespace vantrel
