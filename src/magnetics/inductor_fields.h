#pragma once

#include <array>
#include <vector>

#include "core/vtl_value.h"

namespace vantrel {

/// The inductors that one screen designs, by their index in its control groups.
enum InductorIndex { kInductorLres = 0, kInductorLpfc = 1 };
inline constexpr int kInductorCount = 2;

/// What tells the two inductors apart on the screen.
struct InductorTraits {
  const char* load_id;  ///< Of the rows that load its inputs.
  const char* caption;
  const char* input_frame;  ///< The one that a load fills.
  const char* core_frame;
  const char* result_frame;
  const char* peak_label;  ///< Of its peak current.
  const char* peak_tooltip;
};

/// The traits of an inductor; a Fault for an index that is none.
const InductorTraits& inductor_traits(int index);

/// Every field of the screen in control order: those of the resonant inductor, then the same of the
/// PFC inductor.
std::vector<FieldSpec> inductor_fields();

}  // namespace vantrel
