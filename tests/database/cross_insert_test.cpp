#include <sqlite3.h>

#include <string>
#include <vector>

#include "database_fixture.h"

namespace vantrel::test {
namespace {

class CrossInsertTest : public DatabaseTest {
 protected:
  void SetUp() override {
    open(
        "create table [INDUCTOR:Core Types] ([Core Size] TEXT, [Le Value] REAL, Lost TEXT,"
        " UserData BOOLEAN);"
        "insert into [INDUCTOR:Core Types] values ('EF25', 57.5, 'x', 1), ('EE16', 35, 'x', 0),"
        " ('O''Brien', 1, 'x', 1), ('Imported', 2, 'x', -1);"
        "create table [DATA:Lamp] (ID INTEGER, name TEXT, UserData BOOLEAN);"
        "insert into [DATA:Lamp] values (9, 'mine', 1);"
        "create table Unlike (x TEXT); insert into Unlike values ('x');");
    make_database(target,
                  "create table [INDUCTOR:Core Types] ([core size] TEXT, Pins REAL DEFAULT 8,"
                  " [LE VALUE] REAL, UserData BOOLEAN NOT NULL DEFAULT 0);"
                  "insert into [INDUCTOR:Core Types] values ('EF25', 10, 57.5, 0);"
                  "create table [DATA:LAMP] (ID INTEGER, Name TEXT CHECK (length(Name) < 9),"
                  " UserData BOOLEAN);"
                  "create table Unlike (y TEXT);");
  }

  std::string insert(const std::string& table, const std::string& path, const std::string& tail) {
    return "insert into " + table + " in '" + quoted(path) + "' select * from " + table + tail;
  }

  std::int32_t copied(const std::string& sql) {
    std::int32_t affected = -1;
    database.execute(sql, &affected);
    return affected;
  }

  // Cores of the target as "size/pins/le/user", in order of insertion.
  std::vector<std::string> target_cores() {
    adoaccess_class other(messages);
    EXPECT_TRUE(other.open_access(target));
    RecordSet set;
    EXPECT_TRUE(other.read("select * from [INDUCTOR:Core Types] order by rowid", set));
    std::vector<std::string> rows;
    for (; adoaccess_class::RSOK(set); set.MoveNext()) {
      rows.push_back(to_text(set.at(0)) + "/" + to_text(set.at(1)) + "/" + to_text(set.at(2)) +
                     "/" + to_text(set.at(3)));
    }
    return rows;
  }

  std::filesystem::path target = folder.path() / "O'Brien new.mdb";
  const std::string cores = "[INDUCTOR:Core Types]";
};

TEST_F(CrossInsertTest, CopiesTheCommonColumnsOfUserRows) {
  EXPECT_EQ(copied(insert(cores, target.string(), " where UserData = Yes")), 2);
  EXPECT_EQ(target_cores(), (std::vector<std::string>{"EF25/10/57.5/False", "EF25/8/57.5/True",
                                                      "O'Brien/8/1/True"}));
  EXPECT_EQ(copied(insert("[DATA:LAMP]", target.string(), " where UserData = Yes")), 1);
  adoaccess_class other(messages);
  ASSERT_TRUE(other.open_access(target));
  RecordSet set;
  ASSERT_TRUE(other.read("select ID, Name from [DATA:LAMP] where UserData = Yes", set));
  EXPECT_EQ(set.at(0), Variant(std::int32_t{9}));
  EXPECT_EQ(set.at(1), Variant("mine"));
}

TEST_F(CrossInsertTest, WritesTruthAsOne) {
  EXPECT_EQ(copied(insert(cores, target.string(), " where [Core Size] = 'Imported'")), 1);
  adoaccess_class other(messages);
  ASSERT_TRUE(other.open_access(target));
  RecordSet set;
  EXPECT_TRUE(other.read("select * from [INDUCTOR:Core Types] where UserData = Yes", set));
  EXPECT_EQ(set.rowCount(), 1u);
}

TEST_F(CrossInsertTest, ReadsThePathsOfTheProgram) {
  std::filesystem::create_directory(folder.path() / "Data");
  std::filesystem::rename(target, folder.path() / "Data" / "VTL.mdb");
  target = folder.path() / "Data" / "VTL.mdb";
  EXPECT_EQ(copied(insert(cores, folder.path().string() + "\\Data\\VTL.mdb", "")), 4);
}

TEST_F(CrossInsertTest, AFailureChangesNothingAndLetsTheFileGo) {
  const std::filesystem::path garbage = folder.path() / "garbage.mdb";
  write_file(garbage, std::string(5000, 'x'));
  const std::string before = file_text(target);
  database.execute("insert into [DATA:Lamp] values (10, 'a name too long for the check', 1)");
  const std::vector<std::string> failing = {
      insert(cores, (folder.path() / "missing.mdb").string(), ""),
      insert(cores, garbage.string(), ""),
      insert(cores, folder.path().string(), ""),
      insert(cores, target.string(), " where Missing = Yes"),
      insert(cores, target.string(), " where"),
      insert(cores, target.string(), " where 1; delete from [DATA:Lamp]"),
      insert("[DATA:Lamp]", target.string(), ""),  // its second row breaks the check
      insert("Unlike", target.string(), ""),
      insert("Missing", target.string(), ""),
      insert(cores, file.string(), ""),  // into itself
  };
  for (const std::string& sql : failing) {
    EXPECT_EQ(copied(sql), 0) << sql;
    EXPECT_FALSE(database.last_error().empty());
    RecordSet attached;
    ASSERT_TRUE(database.read("select name from pragma_database_list", attached));
    EXPECT_EQ(attached.rowCount(), 1u) << sql;
  }
  EXPECT_EQ(file_text(target), before);
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "missing.mdb"));
  EXPECT_EQ(to_int32(value("select count(*) from [INDUCTOR:Core Types]")), 4);
  EXPECT_TRUE(messages.shown().empty());

  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(target.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "begin exclusive", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_EQ(copied(insert(cores, target.string(), "")), 0);
  sqlite3_close(other);
  EXPECT_EQ(copied(insert(cores, target.string(), "")), 4);
}

}  // namespace
}  // namespace vantrel::test
