#pragma once

#include <span>

#include "core/vtl_value.h"

namespace vantrel {

/// A frame of the component calculator's screen.
struct CalculatorFrame {
  const char* name;
  const char* caption;
};

/// The frames that hold inputs, in control order.
std::span<const CalculatorFrame> calculator_input_frames();

/// Every input field of the component calculator, in control order.
std::span<const FieldSpec> calculator_fields();

/// The field of one output row.
FieldSpec output_row_field(int index);

inline constexpr const char* kOutputsFrame = "outputs_frame";
inline constexpr const char* kOutputRow = "CC_ShowOutputs";

}  // namespace vantrel
