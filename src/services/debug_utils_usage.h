#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "database/adoaccess.h"

namespace vantrel {

/// A row of a component table, as far as it decides which components a design has.
struct UsageRow {
  std::string stage;  ///< The text of its stages.
  std::vector<std::string> stages;
  std::vector<std::string> references;  ///< In upper case.
  std::vector<std::string> disallow;
};

/// The component that a row brings into designs by one of its stage entries.
struct UsageHit {
  const UsageRow* row = nullptr;
  std::size_t kind = 0;  ///< Which of the target's stage lists it is: input, IC or configuration.
  std::string value;     ///< What the selection must be called for it.
};

/// An IC with its stage lists and the rows of its component table in stage order.
class UsageTarget {
 public:
  /// Takes what the current row of [Target:Info] says.
  explicit UsageTarget(const RecordSet& info);

  /// Reads the rows of the component table; false when there is none.
  bool readRows(adoaccess_class& database);

  const std::string& name() const { return name_; }
  const std::string& table() const { return table_; }
  const std::vector<UsageRow>& rows() const { return rows_; }
  /// The rows that bring the component into some design, entry by entry.
  std::vector<UsageHit> hits(std::string_view reference) const;
  /// True when one design would have the component from both.
  bool meet(const UsageHit& one, const UsageHit& other) const;

 private:
  static constexpr std::size_t kKinds = 3;
  static constexpr std::size_t kIc = 1;

  void addHits(const UsageRow& row, std::vector<UsageHit>& found) const;

  std::string name_;
  std::string table_;
  std::array<std::vector<std::string>, kKinds> parts_;  ///< Prefixes of the stage entries.
  std::vector<UsageRow> rows_;
};

}  // namespace vantrel
