#include "magnetics/inductor_fields.h"

#include <cstddef>
#include <string_view>

#include "core/fault.h"

namespace vantrel {

namespace {

constexpr std::array<InductorTraits, kInductorCount> kTraits{{
    {"InductorLRES", "Resonant Inductor", "frame_lres_inputs", "frame_lres_core",
     "frame_lres_results", "Peak Ignition Current",
     "Peak current through the inductor during ignition"},
    {"InductorLPFC", "PFC Inductor", "frame_lpfc_inputs", "frame_lpfc_core", "frame_lpfc_results",
     "Max PFC Current", "Peak current through the inductor at the lowest line input voltage"},
}};

constexpr std::string_view kPeakCurrent = "ind_peakignitioncurrent";

/// One field of either inductor. Inputs are the fields of style kInput; a result that the user can
/// fix stands beside the core.
constexpr FieldSpec kFields[] = {
    // Name, label, unit, places, style, tick, tooltip.
    {"ind_inductance", "Inductance", "mH", "2", kInput, false, "Required inductance"},
    {"ind_peakignitioncurrent", "", "Apk", "2", kInput, false, ""},
    {"ind_runningcurrent", "RMS Running Current", "Arms", "2", kInput, false,
     "Current that the wire is chosen for"},
    {"ind_gapsize", "Gap Size", "mm", "2", kLocked, true,
     "Tick this box to fix the gap, otherwise it will be calculated based on the input values"},
    {"ind_al", "AL Value", "nH", "0", kLocked, false,
     "Inductance of one turn on the core with its gap"},
    {"ind_numberofturns", "Number of Turns", "", "0", kLocked, false, "Turns of the winding"},
    {"ind_primarydiameter", "Wire Diameter", "mm", "1", kLocked, false,
     "Copper diameter at 5 A per square millimetre"},
    {"ind_peakfluxdensity", "Peak Flux Density", "mT", "0", kLocked, false,
     "Flux density in the core at the peak current"},
};

FieldSpec member(const FieldSpec& field, int index) {
  const InductorTraits& traits = inductor_traits(index);
  FieldSpec row = field;
  row.index = index;
  row.frame = field.style == kInput ? traits.input_frame
              : field.tick          ? traits.core_frame
                                    : traits.result_frame;
  if (field.name == kPeakCurrent) {
    row.label = traits.peak_label;
    row.tooltip = traits.peak_tooltip;
  }
  return row;
}

}  // namespace

const InductorTraits& inductor_traits(int index) {
  if (index < 0 || index >= kInductorCount) throw Fault(fault_text::kSubscript);
  return kTraits[static_cast<std::size_t>(index)];
}

std::vector<FieldSpec> inductor_fields() {
  std::vector<FieldSpec> specs;
  for (int index = 0; index < kInductorCount; ++index) {
    for (const FieldSpec& field : kFields) specs.push_back(member(field, index));
  }
  return specs;
}

}  // namespace vantrel
