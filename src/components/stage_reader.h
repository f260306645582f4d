#pragma once

#include <string>

#include "components/engine_context.h"
#include "components/fixed_values.h"

namespace vantrel {

/// Creates the variables of a calculation from the rows of a component table.
class StageReader {
 public:
  StageReader(EngineContext& context, FixedValues& fixed_values)
      : context_(context), fixed_values_(fixed_values) {}

  /// Goes through the parts of `stage_list`, which are parted by "/", and takes every row of
  /// `table` that lists the part followed by `stage_value` among its stages, once for each such
  /// entry. Without `full_bom` only rows that are outputs, or that outputs depend on, count. With
  /// `outputs_only` the variables get a unit and no value. Does nothing once the calculation has to
  /// stop.
  void ComponentAddStage(const std::string& table, const std::string& stage_list,
                         const std::string& stage_value, bool full_bom, bool outputs_only);

 private:
  struct Stage {
    const std::string& table;
    std::string entry;  ///< The part with the stage's value behind it.
    bool full_bom;
    bool outputs_only;
    int created = 0;
  };

  void takeRow(Stage& stage, const RecordSet& row);
  bool isDisallowed(const Stage& stage, const RecordSet& row);
  void declare(Stage& stage, const RecordSet& row, const std::string& reference);
  void fill(std::int32_t index, const RecordSet& row, const std::string& reference);

  EngineContext& context_;
  FixedValues& fixed_values_;
};

}  // namespace vantrel
