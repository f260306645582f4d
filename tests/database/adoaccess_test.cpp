#include "database/adoaccess.h"

#include <sqlite3.h>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "database/statement_cache.h"
#include "database_fixture.h"

namespace vantrel::test {
namespace {

using Type = Variant::Type;

std::int32_t as_long(const Variant& value) { return to_int32(value); }

class RecordAccess : public DatabaseTest {
 protected:
  void SetUp() override {
    open(
        "create table items (ID INTEGER, Name TEXT, Size REAL, Good BOOLEAN, Note TEXT);"
        "insert into items values (1, 'one', 1.5, 1, NULL), (3, 'O''Brien', 20, 0, '28');"
        "create table void (ID INTEGER);"
        "create table low (ID INTEGER); insert into low values (-4), (0);");
  }
  RecordSet set;
};

TEST_F(RecordAccess, AnEmptyAnswerIsOpenAndAtItsEnd) {
  for (const bool empty_is_good : {false, true}) {
    EXPECT_EQ(database.read("select * from void", set, empty_is_good), empty_is_good);
    EXPECT_TRUE(adoaccess_class::RSOPEN(set));
    EXPECT_FALSE(adoaccess_class::RSOK(set));
    EXPECT_TRUE(adoaccess_class::rs_get(set, "ID").is_empty());
    EXPECT_FALSE(adoaccess_class::rs_movefirst(set));
    EXPECT_FALSE(adoaccess_class::rs_movelast(set));
  }
}

TEST_F(RecordAccess, AFailedStatementClosesTheSetAndIsSilent) {
  const std::vector<std::string> failing = {"select * from missing",
                                            "select",
                                            "",
                                            ";",
                                            "-- nothing",
                                            "select \"text\"",
                                            "delete from items",
                                            "select 1; select 2",
                                            "insert into items(ID) values (9) returning ID",
                                            "select 1 where ? = 1",
                                            "insert into items in 'x' select * from items",
                                            "begin"};
  for (const std::string& sql : failing) {
    ASSERT_TRUE(database.read("select * from items", set));
    EXPECT_FALSE(database.read(sql, set, true)) << sql;
    EXPECT_FALSE(adoaccess_class::RSOPEN(set)) << sql;
    EXPECT_FALSE(database.last_error().empty());
  }
  EXPECT_EQ(as_long(value("select count(*) from items")), 2);
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_TRUE(database.read("select * from items;\n ", set));
}

TEST_F(RecordAccess, MovesThroughAllRows) {
  ASSERT_TRUE(database.read("select * from items order by ID", set));
  EXPECT_EQ(set.rowCount(), 2u);
  EXPECT_EQ(set.fieldCount(), 5u);
  EXPECT_EQ(set.fieldName(4), "Note");
  EXPECT_EQ(set.fieldIndex("good"), 3);
  EXPECT_EQ(set.fieldIndex("missing"), -1);
  EXPECT_EQ(adoaccess_class::rs_get(set, "NAME"), Variant("one"));
  EXPECT_TRUE(set.at(4).is_null());
  EXPECT_TRUE(adoaccess_class::rs_get(set, "note").is_empty());
  EXPECT_TRUE(adoaccess_class::rs_get(set, "missing").is_empty());
  EXPECT_TRUE(set.at(5).is_empty());

  EXPECT_TRUE(adoaccess_class::rs_movelast(set));
  EXPECT_EQ(adoaccess_class::rs_get(set, "Name"), Variant("O'Brien"));
  set.MoveNext();
  EXPECT_FALSE(adoaccess_class::RSOK(set));
  EXPECT_TRUE(adoaccess_class::RSOPEN(set));
  set.MoveNext();
  EXPECT_TRUE(set.atEnd());
  EXPECT_TRUE(adoaccess_class::rs_movefirst(set));
  EXPECT_EQ(adoaccess_class::rs_get(set, "Name"), Variant("one"));

  // All rows were fetched, so changing the table while walking is harmless.
  database.execute("delete from items");
  set.MoveNext();
  EXPECT_EQ(adoaccess_class::rs_get(set, "Name"), Variant("O'Brien"));
  set.Close();
  EXPECT_FALSE(adoaccess_class::RSOPEN(set));
  EXPECT_FALSE(adoaccess_class::rs_movefirst(set));
}

TEST_F(RecordAccess, AValueHasTheTypeOfItsColumn) {
  ASSERT_TRUE(database.execute_script(
      "create table types (n INTEGER, r REAL, t TEXT, b BOOLEAN, plain);"
      "insert into types values (7, 7, 7, 7, 7), (-8, '2.5', 2.5, -1, 2.5),"
      "(3000000000, 1e300, 'x', 0, 'x'), (0, 0, '', 0.5, x'6162'), (1, 1, 'é', 'Yes', 1),"
      "(1, 1, '', ' true ', 1), (1, 1, '', 'No', 1), ('word', 'word', '', '', 1);"));
  ASSERT_TRUE(database.read("select n, r, t, b, plain from types order by rowid", set));
  const std::vector<std::vector<Variant>> expected = {
      {std::int32_t{7}, 7.0, "7", true, std::int32_t{7}},
      {std::int32_t{-8}, 2.5, "2.5", true, 2.5},
      {3e9, 1e300, "x", false, "x"},
      {std::int32_t{0}, 0.0, "", true, "ab"},
      {std::int32_t{1}, 1.0, "é", true, std::int32_t{1}},
      {std::int32_t{1}, 1.0, "", true, std::int32_t{1}},
      {std::int32_t{1}, 1.0, "", false, std::int32_t{1}},
      {"word", "word", "", false, std::int32_t{1}}};
  for (std::size_t row = 0; row < expected.size(); ++row, set.MoveNext()) {
    ASSERT_TRUE(adoaccess_class::RSOK(set));
    for (std::size_t column = 0; column < expected[row].size(); ++column) {
      EXPECT_EQ(set.at(column), expected[row][column]) << "row " << row << " column " << column;
    }
  }
  EXPECT_EQ(value("select max(Good) from items"), Variant(std::int32_t{1}));  // no declared type
  EXPECT_EQ(value("select Good as g from items where ID = 1"), Variant(true));
  EXPECT_EQ(value("select Good from (select * from items) where ID = 3"), Variant(false));
}

TEST_F(RecordAccess, ParametersAreBoundByTheirTypes) {
  ASSERT_TRUE(database.execute_script("create table p (n INTEGER, r, t TEXT, b BOOLEAN, e)"));
  const std::string hostile = "x'); drop table p; --";
  std::int32_t affected = -1;
  database.execute("insert into p values (?, ?, ?, ?, ?)",
                   {std::int16_t{-5}, 0.1F, hostile, true, Null{}}, &affected);
  EXPECT_EQ(affected, 1);
  ASSERT_TRUE(database.read("select * from p where t = ? and b = Yes", {hostile}, set));
  EXPECT_EQ(set.at(0), Variant(std::int32_t{-5}));
  EXPECT_EQ(set.at(1), Variant(0.1));  // not 0.10000000149
  EXPECT_EQ(set.at(2), Variant(hostile));
  EXPECT_EQ(set.at(3), Variant(true));
  EXPECT_TRUE(set.at(4).is_null());
  EXPECT_EQ(value("select typeof(b) || b from p"), Variant("integer1"));

  const std::string with_zero("a\0b", 3);
  database.execute("update p set t = ?, e = ?", {with_zero, Variant()}, &affected);
  EXPECT_EQ(affected, 1);
  EXPECT_EQ(value("select t from p"), Variant(with_zero));

  const std::vector<std::vector<Variant>> wrong = {{}, {1.0, 2.0}, {Variant(Variant::Array{1.0})}};
  for (const std::vector<Variant>& parameters : wrong) {
    database.execute("update p set n = ?", parameters, &affected);
    EXPECT_EQ(affected, 0);
  }
  EXPECT_EQ(value("select n from p"), Variant(std::int32_t{-5}));
}

TEST_F(RecordAccess, ExecuteCountsTheRowsThatItChanged) {
  const std::pair<const char*, std::int32_t> cases[] = {
      {"update items set Size = 2", 2},
      {"create table more (a INTEGER)", 0},
      {"insert into more select 1 union select 2 union select 3", 3},
      {"select * from items", 0},
      {"update items set Missing = 2", 0},
      {"update items set Size = 2; delete from items", 0},
      {"delete from more where a > 1", 2},
      {"delete from more where a > 1", 0},
      {"drop table more", 0},
  };
  for (const auto& [sql, expected] : cases) {
    std::int32_t affected = -1;
    database.execute(sql, &affected);
    EXPECT_EQ(affected, expected) << sql;
  }
  EXPECT_EQ(as_long(value("select count(*) from items")), 2);
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(RecordAccess, QuotesTextForStatements) {
  EXPECT_EQ(quoted("O'Brien's"), "O''Brien''s");
  std::string name = "O'Brien";
  EXPECT_EQ(quoted(name), "O''Brien");
  EXPECT_EQ(adoaccess_class::ParamNullQuery("Name", Null{}), "Name IS NULL");
  EXPECT_EQ(adoaccess_class::ParamNullQuery("Name", name), "Name = 'O''Brien'");
  EXPECT_EQ(adoaccess_class::ParamNullQuery("Size", 0.5F), "Size = '0.5'");
  EXPECT_EQ(adoaccess_class::ParamNullQuery("Name", Variant()), "Name = ''");
  for (const auto& [field, wanted] : std::vector<std::pair<const char*, Variant>>{
           {"Name", name}, {"ID", std::int32_t{3}}, {"Size", 20.0}, {"Note", "28"}}) {
    const std::string where = adoaccess_class::ParamNullQuery(field, wanted);
    EXPECT_EQ(as_long(value("select ID from items where " + where)), 3) << where;
  }
}

TEST_F(RecordAccess, UniqueIdIsOneAboveTheGreatest) {
  EXPECT_EQ(database.Unique_ID("ID", "items"), 4);
  EXPECT_EQ(database.Unique_ID("ID", "[items]"), 4);
  EXPECT_EQ(database.Unique_ID("ID", "void"), 1);
  EXPECT_EQ(database.Unique_ID("ID", "low"), 1);
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(database.Unique_ID("ID", "[DATA:Lamp]"), -1);
  database.execute("insert into low values (2147483647)");
  EXPECT_EQ(database.Unique_ID("ID", "low"), -1);
  ASSERT_EQ(messages.shown().size(), 2u);
  EXPECT_EQ(messages.shown()[0].title, "ADOAccessClass Error");
  EXPECT_EQ(messages.shown()[0].text,
            "UniqueID : Could not get max(id) from [DATA:Lamp], field ID");
}

TEST_F(RecordAccess, UniqueNumberIsTheLowestFreeOne) {
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  EXPECT_EQ(database.Unique_Number("ID", "items", 1, 3), 2);
  EXPECT_EQ(database.Unique_Number("ID", "items", 3, 9), 4);
  EXPECT_EQ(database.Unique_Number("ID", "items", 3, 3), -1);
  EXPECT_EQ(database.Unique_Number("ID", "void", 5, 9), 5);
  EXPECT_EQ(database.Unique_Number("ID", "items", 0, kMost), 0);
  EXPECT_EQ(database.Unique_Number("ID", "missing", 1, 3), -1);
  EXPECT_EQ(database.Unique_Number("ID", "items", 3, 1), -1);
  database.execute("insert into items(ID) values (2), (2), (NULL), ('word'), (4000000000)");
  EXPECT_EQ(database.Unique_Number("ID", "items", 1, 3), -1);
  EXPECT_EQ(database.Unique_Number("ID", "items", 1, 4), 4);
  database.execute("insert into items(ID) values (2147483647)");
  EXPECT_EQ(database.Unique_Number("ID", "items", kMost, kMost), -1);
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(RecordAccess, KeptStatementsSeeChangesOfRowsAndSchema) {
  const std::string sql = "select * from items where ID = 1";
  for (const char* name : {"one", "uno", "eins"}) {
    database.execute("update items set Name = ? where ID = 1", {name});
    ASSERT_TRUE(database.read(sql, set));
    EXPECT_EQ(adoaccess_class::rs_get(set, "Name"), Variant(name));
  }
  database.execute("alter table items add column Late BOOLEAN not null default 1");
  ASSERT_TRUE(database.read(sql, set));
  EXPECT_EQ(adoaccess_class::rs_get(set, "Late"), Variant(true));
  EXPECT_EQ(set.fieldCount(), 6u);
  database.execute("drop table items");
  EXPECT_FALSE(database.read(sql, set));
  database.execute("create table items (ID TEXT)");
  database.execute("insert into items values ('1')");
  ASSERT_TRUE(database.read(sql, set));
  EXPECT_EQ(set.at(0), Variant("1"));
}

TEST_F(RecordAccess, ManyStatementsAreForgottenAndFinalised) {
  database.close_access();
  const sqlite3_int64 before = sqlite3_memory_used();
  ASSERT_TRUE(database.open_access(file));
  for (int round = 0; round < 2; ++round) {
    for (std::int32_t i = 0; i < 600; ++i) {
      EXPECT_EQ(as_long(value("select ID + " + std::to_string(i) + " from low where ID = 0")), i);
    }
  }
  database.close_access();
  EXPECT_EQ(sqlite3_memory_used(), before);
}

TEST(StatementCacheTest, ReusesByTextAndDropsTheOldest) {
  sqlite3* connection = nullptr;
  ASSERT_EQ(sqlite3_open(":memory:", &connection), SQLITE_OK);
  StatementCache cache(2);
  std::vector<sqlite3_stmt*> made;
  for (const char* source : {"select 1", "select 2"}) {
    sqlite3_stmt* statement = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(connection, source, -1, &statement, nullptr), SQLITE_OK);
    made.push_back(statement);
    cache.keep(source, StatementPtr(statement));
  }
  StatementPtr first = cache.take("select 1");
  EXPECT_EQ(first.get(), made[0]);
  EXPECT_FALSE(cache.take("select 1"));  // in use
  cache.keep("select 1", std::move(first));
  cache.keep("select 3", nullptr);
  EXPECT_EQ(cache.size(), 2u);
  EXPECT_FALSE(cache.take("select 2"));  // its use lay furthest back
  EXPECT_EQ(cache.take("select 1").get(), made[0]);
  cache.clear();
  EXPECT_EQ(sqlite3_next_stmt(connection, nullptr), nullptr);
  sqlite3_close(connection);
}

TEST_F(RecordAccess, HugeAnswersFailCleanly) {
  const std::vector<std::string> queries = {
      "with recursive n(x) as (select 1 union all select x + 1 from n) "
      "select printf('%4000000d', x) from n",
      "select zeroblob(900000000)",
      "select replace(hex(zeroblob(30000000)), '0', '0123456789')",
  };
  for (const std::string& sql : queries) {
    EXPECT_FALSE(database.read(sql, set)) << sql;
    EXPECT_FALSE(set.isOpen());
  }
  EXPECT_TRUE(database.read("select * from items", set));
}

TEST_F(RecordAccess, ScriptsBypassTheDialectAndRunAsOne) {
  EXPECT_TRUE(
      database.execute_script("create table s ([Index] REAL); create index i on s([Index]);"
                              "insert into s values (1)"));
  EXPECT_FALSE(database.execute_script("insert into s values (2); insert into missing values (3)"));
  EXPECT_NE(database.last_error().find("missing"), std::string::npos);
  EXPECT_EQ(as_long(value("select count(*) from s")), 1);
  EXPECT_FALSE(database.create_database(file));  // never over an existing file
  EXPECT_FALSE(database.is_connected());
  EXPECT_FALSE(database.execute_script("select 1"));
  EXPECT_TRUE(database.open_access(file));
}

TEST_F(RecordAccess, AReadScopeKeepsOneViewAndItsOwnChanges) {
  adoaccess_class other(messages);
  ASSERT_TRUE(other.open_access(file));
  const auto names = [this] {
    database.read("select * from items where ID > 1", set, true);
    return set.rowCount();
  };
  {
    const ReadScope outer(database);
    const ReadScope inner(database);
    EXPECT_EQ(names(), 1U);
    std::int32_t affected = -1;
    other.execute("insert into items (ID) values (8)", &affected);
    EXPECT_EQ(affected, 0) << "another program waits, and gives up";
    EXPECT_EQ(names(), 1U);
  }
  other.execute("insert into items (ID) values (8)");
  EXPECT_EQ(names(), 2U);
  {
    const ReadScope scope(database);
    database.execute("insert into items (ID) values (9)");
  }
  RecordSet seen;
  EXPECT_TRUE(other.read("select * from items where ID = 9", seen));
}

TEST_F(RecordAccess, AnInstanceCanBeAimedAnew) {
  make_database(folder.path() / "other.mdb",
                "create table other (a INTEGER); insert into other values(1)");
  ASSERT_TRUE(database.read("select * from items", set));
  ASSERT_TRUE(database.open_access(folder.path() / "other.mdb"));
  EXPECT_FALSE(database.read("select * from items", set));
  EXPECT_TRUE(database.read("select * from other", set));
  EXPECT_FALSE(database.open_access(folder.path() / "missing.mdb"));
  EXPECT_FALSE(database.is_connected());
  EXPECT_FALSE(database.is_writable());

  std::int32_t affected = 9;
  database.execute("delete from other", &affected);
  EXPECT_EQ(affected, 0);
  EXPECT_FALSE(database.read("select * from other", set, true));
  EXPECT_FALSE(set.isOpen());
  EXPECT_EQ(database.Unique_Number("a", "other", 1, 3), -1);
  database.close_access();
}

}  // namespace
}  // namespace vantrel::test
