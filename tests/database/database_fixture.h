#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

#include "database/adoaccess.h"
#include "support/fixtures.h"

namespace vantrel::test {

inline std::string file_text(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

inline void write_file(const std::filesystem::path& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

/// Makes a database file with the given script.
inline void make_database(const std::filesystem::path& path, std::string_view script) {
  SysMsg messages;
  adoaccess_class database(messages);
  ASSERT_TRUE(database.create_database(path)) << database.last_error();
  ASSERT_TRUE(database.execute_script(script)) << database.last_error();
}

/// An open database in a file of its own.
class DatabaseTest : public ::testing::Test {
 protected:
  void open(std::string_view script) {
    make_database(file, script);
    ASSERT_TRUE(database.open_access(file)) << database.last_error();
  }

  /// The first value of the first row; the query must find one.
  Variant value(std::string_view sql) {
    RecordSet set;
    EXPECT_TRUE(database.read(sql, set)) << sql << ": " << database.last_error();
    return set.at(0);
  }

  TemporaryFolder folder;
  std::filesystem::path file = folder.path() / "VTL.mdb";
  SysMsg messages;
  adoaccess_class database{messages};
};

}  // namespace vantrel::test
