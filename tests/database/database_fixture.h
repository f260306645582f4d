#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

#include "database/adoaccess.h"

namespace vantrel::test {

/// A folder that is gone at the end of the test.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "vantrel-XXXXXX").string();
    path_ = ::mkdtemp(pattern.data());
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  std::filesystem::path operator/(std::string_view name) const { return path_ / name; }
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

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
  std::filesystem::path file = folder / "VTL.mdb";
  SysMsg messages;
  adoaccess_class database{messages};
};

}  // namespace vantrel::test
