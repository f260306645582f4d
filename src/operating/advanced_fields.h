#pragma once

#include <span>

#include "core/vtl_value.h"

namespace vantrel {

/// Every field of the design screen in control order: inputs, results, then the fields that are
/// never shown. This is the only place where a field's label, unit, places, tick, tooltip and frame
/// are written.
std::span<const FieldSpec> advanced_fields();

/// A group of fields on the design screen and the tab that shows it.
struct AdvancedFrame {
  const char* name;
  const char* caption;
  bool input;  ///< On the input tab strip, otherwise on the output tab strip.
  int tab;     ///< Index of the tab in its strip.
};

/// The frames of the design screen in control order.
std::span<const AdvancedFrame> advanced_frames();

}  // namespace vantrel
