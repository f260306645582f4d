#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/variant.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// One variable of the component calculator with its columns of the bill of materials.
struct VariableEntry {
  bool fixed = false;  ///< Set from data and not calculated.
  std::string variablename;
  std::string reference;
  Variant value;  ///< Empty until set.
  std::string valueunit;
  std::string rating;
  std::string description;
  std::string tolerance;
  bool ccoutput = false;         ///< Belongs in the output.
  bool removeifnomatch = false;  ///< Dropped when no rule matches.
  std::int32_t flags = 0;
};

/// The symbol table of the component calculator: an ordered list of variables with a hash index on
/// their names. A `Variable` argument is a name when it is a text (trimmed, exact in case) and an
/// index from 0 otherwise. Field keys are the member names of VariableEntry in any case of letters.
/// Failures are reported and the calculation goes on.
class VariableClass {
 public:
  explicit VariableClass(SysMsg& messages) : messages_(messages) {}

  /// Empties the table.
  void initialise();
  /// The index of the new entry. A name that exists is reported and gives the count, so success is
  /// a result below the count afterwards.
  std::int32_t CreateVariableEntry(std::string_view name);
  /// Deletes by name, or by index when the name is empty. False, reported, when there is no such
  /// entry.
  bool DeleteVariableEntry(std::string_view name, std::int32_t index);
  /// The index of a name, or -1.
  std::int32_t GetVariableEntryNumber(std::string_view name) const;
  /// Sorts by character codes.
  void SortVariablesAlphabetically(bool ascending);

  /// Sets the value to Empty; false for an unknown variable.
  bool VEmpty(const Variant& variable);
  /// True when the value is not Empty.
  bool HasValue(const Variant& variable);
  /// Stores a value, converted to the field's type. True also for an unknown field, which is
  /// reported; "variablename" counts as one. False, reported, for an unknown variable and for a
  /// value that cannot be converted; nothing is stored then.
  bool VSet(const Variant& variable, std::string_view field, const Variant& new_value);
  /// The field's value; Empty, reported, for an unknown field or variable.
  Variant VGet(const Variant& variable, std::string_view field);
  /// The type name of the field's present value, "" for an unknown one. "fixed" is unknown here.
  std::string VType(const Variant& variable, std::string_view field);
  std::int32_t VariableCount() const { return static_cast<std::int32_t>(entries_.size()); }

  /// The variables in the order of the list.
  const std::vector<VariableEntry>& entries() const { return entries_; }

 private:
  VariableEntry* find(const Variant& variable);
  void reindex(std::size_t from);
  void report(std::string_view routine, const Variant& variable, const std::string& text);

  SysMsg& messages_;
  std::vector<VariableEntry> entries_;
  std::unordered_map<std::string, std::int32_t> index_;
};

}  // namespace vantrel
