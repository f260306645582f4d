#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/variant.h"
#include "operating/advanced.h"
#include "selection/control_bar.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// One field of the design screen as it stood after a calculation.
struct FieldSnapshot {
  std::string Name;
  bool IsFixed = false;
  Variant value;  ///< The stored value with its type.

  friend bool operator==(const FieldSnapshot&, const FieldSnapshot&) = default;
};

/// A finished calculation: what was selected and every field of the design screen.
struct CalculationRecord {
  std::string title;                             ///< "Calculation 7"
  std::string description;                       ///< "#7 - configuration, IC, line input, lamp"
  std::array<std::int32_t, kSlotCount> items{};  ///< Selected ID of each slot.
  std::vector<FieldSnapshot> fields;
};

/// The value, tick and name of every field of a screen in control order.
std::vector<FieldSnapshot> snapshot_of(const Screen& screen);

/// What the history has done by other parts of the program. An empty callable does nothing.
struct CalculationHistoryHooks {
  std::function<std::string()> configDescription;  ///< Description of the lamp configuration.
  /// Full name of the selected item of a slot; the bar's short name is taken without it.
  std::function<std::string(int slot)> itemName;
  /// Selects an item without calculating and without rechecking the other slots; false when the
  /// item is not on offer. Without it nothing can be shown.
  std::function<bool(int slot, std::int32_t id)> selectItem;
  std::function<void()> DrawGraph;  ///< The operating points graph.
};

/// The last calculations of the run, which the user can walk back and forward. Lives as long as the
/// process and is in no project file.
class CalculationHistory {
 public:
  static constexpr std::size_t kMostRecords = 20;

  /// `bar` is the bar of `advanced`, on which the ways back and forward are offered. All arguments
  /// must outlive the history.
  CalculationHistory(Advanced& advanced, control_bar& bar, SysMsg& messages,
                     CalculationHistoryHooks hooks);

  /// Adds the present state of the design as the newest record, dropping the oldest of a full
  /// history, and makes it the one on show. Gives its number; numbers are never used twice.
  std::int32_t AddCalculationRecord();
  /// Shows a record: selects its items and refills the fields. With `absolute`, `position` is the
  /// index of the record, and an invalid one is reported. Otherwise it is a step from the record on
  /// show and takes the resulting index; a step that leaves the history does nothing. An item that
  /// has been removed is reported and ends the show; the slots before it are selected by then.
  void ShowCalculationRecord(const bool& absolute, std::int32_t& position);
  /// Lists the records in `CalculationPulldown` and on the bar, with the one on show marked.
  void SetupCalculationPulldown();

  /// The history's own bar commands: `c_browsecalc` with a number from 1, `c_previous`, `c_next`.
  /// False for any other.
  bool execute_command(std::string_view command, std::string_view argument);
  /// Shows the record of a row of `CalculationPulldown`.
  void PulldownClick(std::int32_t row);

  const std::deque<CalculationRecord>& records() const { return records_; }
  /// Index of the record on show, -1 before the first calculation.
  std::int32_t shown() const { return shown_; }

 private:
  bool reselect(const CalculationRecord& record);
  void restore(const CalculationRecord& record);
  bool isRecord(std::int64_t index) const;

  Advanced& advanced_;
  control_bar& bar_;
  SysMsg& messages_;
  CalculationHistoryHooks hooks_;
  std::deque<CalculationRecord> records_;
  std::int32_t shown_ = -1;
};

}  // namespace vantrel
