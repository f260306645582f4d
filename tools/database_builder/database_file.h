#pragma once

#include <filesystem>
#include <string>

#include "database/adoaccess.h"
#include "database_builder/problems.h"
#include "database_builder/source_table.h"

namespace vantrel::builder {

/// A database file in the making. It stands beside its place under a name of its own until
/// `commit`, and is deleted when it is not committed.
class DatabaseFile {
 public:
  DatabaseFile(std::filesystem::path out, Problems& problems);
  ~DatabaseFile();
  DatabaseFile(const DatabaseFile&) = delete;
  DatabaseFile& operator=(const DatabaseFile&) = delete;

  /// Makes the file and runs the schema script in it. Failures are reported.
  bool create(const std::filesystem::path& schema);
  /// The tables of the schema with their columns and without rows, in the order of the script.
  SourceTables tables();
  /// Stores all rows. Failures are reported.
  bool fill(const SourceTables& tables);
  /// Closes the file and moves it to its place. A failure is reported.
  bool commit();

 private:
  bool insertRows(const SourceTable& table);
  bool fail(const std::filesystem::path& file, int line, const std::string& text);

  std::filesystem::path out_;
  std::filesystem::path temporary_;
  Problems& problems_;
  SysMsg messages_;
  adoaccess_class database_{messages_};
};

}  // namespace vantrel::builder
