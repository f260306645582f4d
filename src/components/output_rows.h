#pragma once

#include <vector>

#include "core/screen.h"
#include "core/variable_class.h"

namespace vantrel {

/// The rows of a screen that show calculated components: a control group of fields that grows as
/// far as it has to and hides what it does not use.
class OutputRows {
 public:
  explicit OutputRows(Screen& screen) : screen_(screen) {}

  /// Makes rows in advance, hidden, so that screens of different runs have the same fields and a
  /// stored design finds its rows whatever was listed before.
  void reserve(int count);
  /// Gives each output among the variables, which are sorted by name, an empty row.
  void list(const std::vector<VariableEntry>& sorted);
  /// Shows the values in the rows that are in use; a row whose variable is gone is emptied.
  void show(const VariableClass& variables);

  /// Tops of the rows in use, in 1/1440 inch from the top of their frame.
  const std::vector<int>& tops() const { return tops_; }

 private:
  VTLValue& row(int index);

  Screen& screen_;
  std::vector<VTLValue*> rows_;
  std::vector<int> tops_;
};

}  // namespace vantrel
