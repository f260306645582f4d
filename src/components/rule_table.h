#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "database/adoaccess.h"

namespace vantrel {

/// One rule: for which variables it is, where it fits, and what it does.
struct RuleRow {
  std::string calculate;               ///< As it stands in the row.
  std::vector<std::string> variables;  ///< The entries of `calculate`, trimmed.
  bool multiple = false;               ///< Read for every variable.
  std::string input;                   ///< Comma list of line inputs, empty for any.
  std::string target;                  ///< Comma list of ICs, empty for any.
  std::string config;                  ///< Comma list of lamp configurations, empty for any.
  std::string function;
  bool functionisvar = false;
  bool set_value_directly = false;
  std::vector<std::string> parameters;  ///< V0 and so on, up to the first empty one.

  /// Whether it looks its value up between rows of a table instead of calling a function.
  bool interpolates() const;
};

/// The texts with ", " between them.
std::string comma_list(const std::vector<std::string>& texts);

/// Rules in the order of their table, with a current row.
class RuleCursor {
 public:
  explicit RuleCursor(std::vector<const RuleRow*> rows) : rows_(std::move(rows)) {}
  bool atEnd() const { return at_ >= rows_.size(); }
  bool isEmpty() const { return rows_.empty(); }
  const RuleRow& row() const { return *rows_[at_]; }
  void MoveFirst() { at_ = 0; }
  void MoveNext() { ++at_; }

 private:
  std::vector<const RuleRow*> rows_;
  std::size_t at_ = 0;
};

/// All rules of the database, found by the variable that they are for.
class RuleTable {
 public:
  /// Reads all rows; a column that the table lacks counts as empty.
  explicit RuleTable(RecordSet& rows);

  /// The rules that "select * from CC:Calculations where Calculate = '`name`' or Multiple = Yes"
  /// gives. They live as long as the table.
  RuleCursor find(std::string_view name) const;

 private:
  std::vector<RuleRow> rules_;
  std::vector<std::size_t> multiples_;
  std::unordered_map<std::string, std::vector<std::size_t>> by_name_;
};

}  // namespace vantrel
