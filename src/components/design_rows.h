#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "components/rule_table.h"
#include "database/adoaccess.h"

namespace vantrel {

/// The rows that one calculation reads, each statement run once. What the user changes in the
/// database is seen after `clear`, which stands at both ends of a calculation.
class DesignRows {
 public:
  explicit DesignRows(adoaccess_class& database) : database_(database) {}

  /// The rows of a statement, at the first one; at the end when there is none or it failed. With
  /// `key` the statement has one "?" for it. A later read of the same rows moves them back.
  RecordSet& read(const std::string& sql);
  RecordSet& read(const std::string& sql, std::string_view key);
  /// The rules of [CC:Calculations].
  const RuleTable& rules();
  void clear();

 private:
  RecordSet& fetch(const std::string& sql, const std::string& kept_by,
                   const std::vector<Variant>& parameters);

  adoaccess_class& database_;
  std::unordered_map<std::string, std::unique_ptr<RecordSet>> kept_;
  std::unique_ptr<RuleTable> rules_;
};

/// The entries of a delimited text, each trimmed; a blank text has none.
std::vector<std::string> entries_of(std::string_view text, char delimiter);

/// True for a Boolean true, a number but 0, and the texts "yes" and "true" in any case.
bool says_true(const Variant& value);

}  // namespace vantrel
