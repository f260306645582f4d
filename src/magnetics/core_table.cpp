#include "magnetics/core_table.h"

#include <algorithm>
#include <utility>

#include "core/fault.h"
#include "selection/record_fields.h"

namespace vantrel {

namespace {

constexpr std::string_view kStatement =
    "select * from [INDUCTOR:Core Types] order by [Winding Area] ASC";

/// What is no number counts as 0.
double number(const RecordSet& row, std::string_view field) {
  const Variant value = adoaccess_class::rs_get(row, field);
  return value.is_numeric() ? to_double(value) : 0.0;
}

CoreType core_of(const RecordSet& row) {
  return {.size = text_field(row, "Core Size"),
          .le = number(row, "Le Value"),
          .ae = number(row, "Ae Value"),
          .factor = number(row, "Core Factor"),
          .winding_area = number(row, "Winding Area"),
          .max_gap = number(row, "Maximum Allowable Gap")};
}

/// A row that the user left incomplete has no formula that it could enter, and must not take the
/// other cores with it.
bool is_complete(const CoreType& core) {
  return core.le > 0 && core.ae > 0 && core.factor > 0 && core.winding_area > 0;
}

}  // namespace

const std::vector<CoreType>* CoreTable::cores() { return cores_.empty() ? Reread() : &cores_; }

const std::vector<CoreType>* CoreTable::Reread() {
  cores_.clear();
  RecordSet rows;
  if (!database_.read(kStatement, rows)) return nullptr;
  for (; adoaccess_class::RSOK(rows); rows.MoveNext()) {
    if (CoreType core = core_of(rows); is_complete(core)) cores_.push_back(std::move(core));
  }
  return &cores_;
}

const CoreType& core_named(std::span<const CoreType> cores, std::string_view size) {
  const auto found = std::ranges::find(cores, size, &CoreType::size);
  if (found == cores.end()) throw Fault(fault_text::kSubscript);
  return *found;
}

}  // namespace vantrel
