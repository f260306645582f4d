#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/vtl_value.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// A required field that was found empty, and the text that names it.
struct MissingField {
  VTLValue* field;
  std::string text;
};

/// The fields that a load or a calculation found empty, in the order in which they were noted.
class MissingFields {
 public:
  explicit MissingFields(SysMsg& messages) : messages_(messages) {}

  void Reset() { entries_.clear(); }
  void Add(VTLValue& field, const std::string& text) { entries_.push_back({&field, text}); }
  int CountItems() const { return static_cast<int>(entries_.size()); }
  /// True when nothing is missing. Otherwise, with `ask`, asks whether the user wishes to see the
  /// list and shows it on yes.
  bool IsEmpty(bool ask = false);
  const std::vector<MissingField>& entries() const { return entries_; }

  /// The lines of the list as its window shows them.
  std::vector<std::string> PrepareToShow() const;
  /// Shows the field of one line, or says that it cannot be displayed.
  void GoToField(std::size_t position);

  /// Opens the window of the list; empty without windows.
  std::function<void()> showList;
  /// Brings a field in sight; false when it has no place on a screen. Empty without windows.
  std::function<bool(VTLValue&)> displayField;

 private:
  SysMsg& messages_;
  std::vector<MissingField> entries_;
};

}  // namespace vantrel
