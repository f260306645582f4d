#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <random>
#include <string>
#include <vector>

#include "database_fixture.h"

namespace vantrel::test {
namespace {

// Three small tables, one of them over more than one page.
std::string good_script() {
  std::string script =
      "create table web (manufacturer TEXT, homepage TEXT);"
      "create table items (ID INTEGER, Name TEXT); create index by_id on items(ID);";
  for (int i = 0; i < 300; ++i) {
    script += "insert into items values (" + std::to_string(i) + ", 'item number " +
              std::to_string(i) + "');";
  }
  return script;
}

class BadFile : public DatabaseTest {
 protected:
  void SetUp() override { make_database(file, good_script()); }

  bool opens(std::string_view bytes) {
    const std::filesystem::path bad = folder.path() / "bad.mdb";
    write_file(bad, bytes);
    return database.open_access(bad);
  }
};

TEST_F(BadFile, WhatIsNoDatabaseIsNotConnected) {
  const std::vector<std::string> files = {"",
                                          "x",
                                          std::string(4096, '\0'),
                                          std::string(100000, 'x'),
                                          "SQLite format 3",
                                          std::string("SQLite format 3\0", 16),
                                          std::string("SQLite format 3\0", 16).append(8000, 'x')};
  for (const std::string& bytes : files) EXPECT_FALSE(opens(bytes)) << bytes.size() << " bytes";
  EXPECT_FALSE(database.open_access(folder.path() / "missing.mdb"));
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "missing.mdb"));
  EXPECT_FALSE(database.open_access(folder.path()));
  EXPECT_FALSE(database.open_access(""));
  EXPECT_FALSE(database.open_access(":memory:"));
  ASSERT_EQ(::mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
  EXPECT_FALSE(database.open_access(folder.path() / "pipe"));
  EXPECT_FALSE(database.is_connected());
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(BadFile, AFileThatWasCutShortIsNotConnected) {
  const std::string whole = file_text(file);
  ASSERT_GE(whole.size(), 4u * 4096u);
  for (std::size_t length = 0; length < whole.size(); length += 512) {
    EXPECT_FALSE(opens(std::string_view(whole).substr(0, length))) << length;
  }
  EXPECT_FALSE(opens(std::string_view(whole).substr(0, whole.size() - 1)));
  ASSERT_TRUE(opens(whole));
  EXPECT_EQ(to_int32(value("select count(*) from items")), 300);
}

TEST_F(BadFile, ScrambledBytesNeverCrash) {
  const std::string whole = file_text(file);
  std::mt19937 engine(61);
  int opened = 0;
  for (int round = 0; round < 200; ++round) {
    std::string bytes = whole;
    for (int i = 0; i < 40; ++i) bytes[engine() % bytes.size()] = static_cast<char>(engine() % 256);
    if (!opens(bytes)) continue;
    ++opened;
    RecordSet set;
    database.read("select * from items order by ID", set, true);
    database.read("select * from items where ID = 7", set, true);
    database.read("select * from web", set, true);
    database.execute("insert into items values (1000, 'x')");
  }
  EXPECT_GT(opened, 10);  // otherwise the walk above saw too little
}

TEST_F(BadFile, AFileLockedByAnotherConnectionFailsSoon) {
  ASSERT_TRUE(database.open_access(file));
  ASSERT_EQ(to_int32(value("select count(*) from items")), 300);
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(file.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "begin exclusive", nullptr, nullptr, nullptr), SQLITE_OK);

  const auto start = std::chrono::steady_clock::now();
  RecordSet set;
  std::int32_t affected = 9;
  EXPECT_FALSE(database.read("select * from items", set));
  database.execute("delete from items", &affected);
  EXPECT_EQ(affected, 0);
  adoaccess_class second(messages);
  EXPECT_FALSE(second.open_access(file));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));

  ASSERT_EQ(sqlite3_exec(other, "rollback", nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(other);
  EXPECT_TRUE(second.open_access(file));
  EXPECT_TRUE(database.read("select * from items", set));
  EXPECT_EQ(set.rowCount(), 300u);
}

// A process of the superuser may write everywhere, so it takes another user's rights for a while.
class OrdinaryUser {
 public:
  OrdinaryUser() : was_root_(::geteuid() == 0) {
    if (was_root_) changed_ = ::seteuid(65534) == 0;
  }
  ~OrdinaryUser() {
    if (changed_ && ::seteuid(0) != 0) std::abort();
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;
  bool holds() const { return !was_root_ || changed_; }

 private:
  bool was_root_;
  bool changed_ = false;
};

TEST_F(BadFile, WhatCannotBeWrittenIsOpenedForReading) {
  using std::filesystem::perms;
  struct Case {
    const char* name;
    perms folder, file;
    bool opens;
  };
  const perms read_only_file = perms::owner_read | perms::group_read | perms::others_read;
  const perms all = perms::all;
  const perms read_only_folder =
      read_only_file | perms::owner_exec | perms::group_exec | perms::others_exec;
  const Case cases[] = {{"file", all, read_only_file, true},
                        {"folder", read_only_folder, all, true},
                        {"both", read_only_folder, read_only_file, true},
                        {"unreadable", all, perms::none, false}};
  for (const Case& c : cases) {
    std::filesystem::permissions(folder.path(), c.folder);
    std::filesystem::permissions(file, c.file);
    {
      const OrdinaryUser user;
      if (!user.holds()) GTEST_SKIP() << "cannot give up the superuser's rights";
      ASSERT_EQ(database.open_access(file), c.opens) << c.name << ": " << database.last_error();
      EXPECT_FALSE(database.is_writable()) << c.name;
      std::int32_t affected = 9;
      database.execute("delete from items", &affected);
      EXPECT_EQ(affected, 0) << c.name;
      if (c.opens) {
        EXPECT_EQ(to_int32(value("select count(*) from items")), 300) << c.name;
      }
      database.close_access();
    }
    std::filesystem::permissions(folder.path(), all);
    std::filesystem::permissions(file, all);
  }
  ASSERT_TRUE(database.open_access(file));
  EXPECT_TRUE(database.is_writable());
}

TEST_F(BadFile, AWriteAheadLogIsTurnedBackIntoOneFile) {
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(file.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "pragma journal_mode = wal; insert into web values ('a', 'b')",
                         nullptr, nullptr, nullptr),
            SQLITE_OK);
  sqlite3_close(other);
  ASSERT_TRUE(database.open_access(file));
  EXPECT_EQ(value("select homepage from web"), Variant("b"));
  database.execute("insert into web values ('c', 'd')");
  EXPECT_FALSE(std::filesystem::exists(file.string() + "-wal"));
  EXPECT_EQ(file_text(file)[18], '\1');  // the header's sign of a rollback journal
}

}  // namespace
}  // namespace vantrel::test
