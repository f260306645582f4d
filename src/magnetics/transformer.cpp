#include "magnetics/transformer.h"

#include <cmath>
#include <string>
#include <utility>

#include "core/fault.h"
#include "core/number_text.h"
#include "core/text_parsing.h"

namespace vantrel {

namespace {

constexpr const char* kInputFrame = "frame_inputs";
constexpr const char* kCoreFrame = "frame_core";
constexpr const char* kResultFrame = "frame_results";

constexpr FieldSpec kTransformerFields[] = {
    // Name, label, unit, places, style, tick, tooltip, frame.
    {"tfr_inputvoltage", "Input Voltage (Min)", "V", "2", kInput, false,
     "The minimum line input voltage", kInputFrame},
    {"tfr_totalballastpower", "Total Ballast Power", "W", "2", kInput, false,
     "Power of all lamps together", kInputFrame},
    {"tfr_outputvoltage", "Output Voltage", "V", "2", kInput, false, "Voltage of the lamps",
     kInputFrame},
    {"tfr_runfrequency", "Run Frequency", "KHz", "2", kInput, false,
     "Halfbridge oscillating frequency during running", kInputFrame},
    {"tfr_peakfluxdensity", "Peak Flux Density", "mT", "2", kInput, false,
     "Flux density in the core that the turns are chosen for", kInputFrame},
    {"tfr_imag", "Magnetizing Current", "nA", "2", kInput, false,
     "Current that magnetizes the core, in nanoamperes: 40000000 nA = 40 mA", kInputFrame},
    {"tfr_al", "AL Value", "nH", "0", kLocked, false,
     "Inductance of one turn on the core, which has no gap", kResultFrame},
    {"tfr_primarycurrent", "Primary Current", "A", "2", kLocked, false,
     "Primary current at an efficiency of 90 %", kResultFrame},
    {"tfr_primaryturns", "No. of Turns(Primary)", "", "0", kLocked, false,
     "Turns of the primary winding", kResultFrame},
    {"tfr_primarydiameter", "Wire diameter(Primary)", "mm", "1", kLocked, false,
     "Copper diameter at 5 A per square millimetre", kResultFrame},
    {"tfr_secondaryturns", "No. of Turns(Secondary)", "", "2", kLocked, false,
     "Turns of the secondary winding", kResultFrame},
    {"tfr_secondarydiameter", "Wire diameter(Secondary)", "mm", "1", kLocked, false,
     "Copper diameter at 5 A per square millimetre", kResultFrame},
    {"tfr_BOMValue", "BOM Output Value", "", "", kLocked, false,
     "Turns as the bill of materials shows them", kResultFrame, kTextual},
};

constexpr const char* kRequiredInputs[] = {"tfr_totalballastpower", "tfr_inputvoltage"};

constexpr CountedUnit kVolts{"V", "V"};
constexpr CountedUnit kWatts{"W", "W"};
constexpr CountedUnit kMilliteslas{"mT", "T"};
constexpr CountedUnit kNanoamperes{"nA", "A"};

}  // namespace

Transformer::Transformer(FieldContext& context, Advanced& advanced, InputLoader& loader,
                         MissingFields& missing, CoreTable& cores, DesignerHooks hooks)
    : Screen("Transformer", "Transformer Design", context),
      messages_(context.messages),
      advanced_(advanced),
      loader_(loader),
      missing_(missing),
      cores_(cores),
      hooks_(std::move(hooks)) {
  addFrame(kInputFrame, "Inputs");
  addFrame(kCoreFrame, "Core");
  addFrame(kResultFrame, "Results");
  addFields(kTransformerFields);
  addTickBox("tfr_fixcoresize", "Fix Core Size");
  addPullDown("tfr_ComboCore");
  addButton("CommandLoadTheInputs", "Load Inputs");
  addButton("CalculateTransformer", "Calculate");
  addButton("CommandEditUserData", "Edit User Cores");
  addButton("ShowDatasheet", "Core Drawing");
}

PullDown& Transformer::comboCore() { return *findPullDown("tfr_ComboCore"); }
TickBox& Transformer::fixCoreSize() { return *findTickBox("tfr_fixcoresize"); }

std::uint32_t Transformer::comboCoreColour() {
  return fixCoreSize().checked ? kFixedCoreColour : kFreeCoreColour;
}

bool Transformer::offer(const std::vector<CoreType>* cores) {
  if (cores == nullptr) messages_.msg(name(), kCoreTableFailure);
  fill_core_list(comboCore(), cores == nullptr ? std::span<const CoreType>() : *cores);
  notifyLayoutChanged();
  return cores != nullptr;
}

bool Transformer::initialise() { return offer(cores_.cores()); }

bool Transformer::ReInitialise() { return offer(cores_.Reread()); }

bool Transformer::Calculate(bool start_afresh) {
  if (!advanced_.says_yes("allow_transformer")) return true;
  if (start_afresh) fixCoreSize().checked = false;
  return CommandLoadTheInputs() && DesignTransformer();
}

bool Transformer::CommandLoadTheInputs() {
  // The loader itself tells of the sources that it found empty.
  if (!loader_.LoadInputs("Transformer", *this, false, {{this, kInputFrame}})) return false;
  for (const char* input : kRequiredInputs) field(input).GetValue(true);
  return missing_.IsEmpty(true);
}

void Transformer::clearOutputs() {
  ClearFrameValues(*this, kResultFrame);
  if (!fixCoreSize().checked) show_core(comboCore(), "");
  notifyLayoutChanged();
}

bool Transformer::DesignTransformer() {
  if (!advanced_.says_yes("allow_transformer")) return true;
  try {
    return design();
  } catch (const Fault&) {
    messages_.msg(name(), "Transformer Calculation error");
    return false;
  }
}

bool Transformer::design() {
  clearOutputs();
  missing_.Reset();
  const TransformerInputs inputs = readInputs();
  if (!missing_.IsEmpty(true)) return false;
  const std::vector<CoreType>* cores = cores_.cores();
  if (cores == nullptr) {
    messages_.msg(name(), kCoreTableFailure);
    return false;
  }
  const TransformerDesign result = design_transformer(inputs, *cores);
  // Also the core that failed is shown: the message speaks of it.
  show_core(comboCore(), result.core);
  notifyLayoutChanged();
  if (!result.fits) {
    messages_.msg(name(), "Windings cannot fit this core size, larger core size required");
    return false;
  }
  showDesign(result);
  return true;
}

TransformerInputs Transformer::readInputs() {
  const auto number = [this](const char* field_name, const CountedUnit& unit) {
    return required_number(field(field_name), unit, messages_);
  };
  TransformerInputs inputs;
  inputs.input_voltage = number("tfr_inputvoltage", kVolts);
  inputs.power = number("tfr_totalballastpower", kWatts);
  inputs.output_voltage = number("tfr_outputvoltage", kVolts);
  // No formula uses the frequency, but a design without it is incomplete.
  field("tfr_runfrequency").GetValue(true);
  inputs.magnetizing_current = number("tfr_imag", kNanoamperes);
  inputs.flux_density = number("tfr_peakfluxdensity", kMilliteslas);
  inputs.core_fixed = fixCoreSize().checked;
  inputs.core = shown_core(comboCore());
  return inputs;
}

void Transformer::showDesign(const TransformerDesign& design) {
  const double primary = design.primary_turns;
  field("tfr_al").SetValue(std::floor(1000000000.0 * design.al));
  field("tfr_primarycurrent").SetValue(design.primary_current);
  field("tfr_primaryturns").SetValue(primary);
  field("tfr_secondaryturns").SetValue(design.secondary_turns);
  field("tfr_primarydiameter").SetValue(design.primary_diameter);
  field("tfr_secondarydiameter").SetValue(design.secondary_diameter);
  field("tfr_BOMValue")
      .SetValue(general_text(primary) + "T, " + general_text(std::floor(design.secondary_turns)) +
                "T");
}

bool Transformer::command_click(std::string_view button) {
  const CommandButton* found = findButton(button);
  if (found == nullptr) return false;
  if (found->name == "CalculateTransformer") {
    DesignTransformer();
  } else if (found->name == "CommandLoadTheInputs") {
    CommandLoadTheInputs();
  } else if (found->name == "CommandEditUserData") {
    CommandEditUserData();
  } else {
    ShowDatasheet();
  }
  return true;
}

}  // namespace vantrel
