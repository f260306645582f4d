#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "database/adoaccess.h"
#include "support/fixtures.h"

namespace vantrel::test {

inline std::string file_text(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

/// A database in a file of the test's own, and everything that was said.
class ServiceDatabase : public ::testing::Test {
 protected:
  void make(std::string_view script) {
    adoaccess_class maker(messages);
    ASSERT_TRUE(maker.create_database(file)) << maker.last_error();
    ASSERT_TRUE(maker.execute_script(script)) << maker.last_error();
  }
  void open(std::string_view script) {
    make(script);
    ASSERT_TRUE(database.open_access(file)) << database.last_error();
  }
  /// The first value of the first row; the query must find one.
  Variant value(std::string_view sql) {
    RecordSet set;
    EXPECT_TRUE(database.read(sql, set)) << sql << ": " << database.last_error();
    return set.at(0);
  }
  /// The rows of a query, the cells of each one closed by "|"; a Null is "-".
  std::string rows(std::string_view sql) {
    RecordSet set;
    EXPECT_TRUE(database.read(sql, set, true)) << database.last_error();
    std::string text;
    for (; !set.atEnd(); set.MoveNext()) {
      for (std::size_t i = 0; i < set.fieldCount(); ++i) {
        text += (set.at(i).is_null() ? "-" : to_text(set.at(i))) + "|";
      }
      text += "\n";
    }
    return text;
  }
  /// The texts of all messages since the last call.
  std::vector<std::string> take() {
    std::vector<std::string> result = texts(messages);
    messages.clear();
    return result;
  }

  TemporaryFolder folder;
  std::filesystem::path file = folder.path() / "VTL.mdb";
  SysMsg messages;
  adoaccess_class database{messages};
};

}  // namespace vantrel::test
