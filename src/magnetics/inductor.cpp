#include "magnetics/inductor.h"

#include <cmath>
#include <utility>

#include "core/fault.h"
#include "core/text_parsing.h"

namespace vantrel {

namespace {

constexpr CountedUnit kMillihenries{"mH", "H"};
constexpr CountedUnit kAmperes{"A", "A"};

constexpr const char* kClearedResults[] = {"ind_al", "ind_numberofturns", "ind_peakfluxdensity",
                                           "ind_primarydiameter"};
constexpr const char* kCurrents[] = {"ind_peakignitioncurrent", "ind_runningcurrent"};

constexpr std::string_view kFluxWarning =
    "Warning! Peak Flux Density is too high, try a larger core or gap !";

/// The words for a design that failed, empty for one that did not.
std::string_view refusal(InductorOutcome outcome) {
  switch (outcome) {
    case InductorOutcome::kNoSolution:
      return "No Solution Found";
    case InductorOutcome::kNoGap:
      return "You must specify a valid Gap Size";
    case InductorOutcome::kGapTooLarge:
      return "Gap too Large !";
    case InductorOutcome::kNoCoreLargeEnough:
      return "No Core Large enough in database !";
    case InductorOutcome::kWindingTooBig:
      return "Try a Larger Core or Smaller Gap, or reducing the Running Current";
    case InductorOutcome::kDesigned:
      break;
  }
  return {};
}

}  // namespace

Inductor::Inductor(FieldContext& context, Advanced& advanced, InputLoader& loader,
                   MissingFields& missing, CoreTable& cores, DesignerHooks hooks)
    : Screen("Inductor", "Inductor Design", context),
      messages_(context.messages),
      advanced_(advanced),
      loader_(loader),
      missing_(missing),
      cores_(cores),
      hooks_(std::move(hooks)) {
  for (int index = 0; index < kInductorCount; ++index) {
    const InductorTraits& traits = inductor_traits(index);
    addFrame(traits.input_frame, "Inputs");
    addFrame(traits.core_frame, "Core and Gap");
    addFrame(traits.result_frame, "Results");
  }
  addFields(inductor_fields());
  for (int index = 0; index < kInductorCount; ++index) {
    addTickBox("ind_checkFixCore", "Fix Core Size", false, index).tooltip =
        "Tick this box to fix the core size, otherwise it will be calculated based on the input "
        "values";
    addPullDown("ind_comboCore", index);
    addButton("CommandLoadInputs", "Load Inputs", index);
    addButton("CalculateInductor", "Calculate", index);
  }
  addButton("CommandEditUserData", "Edit User Cores");
  addButton("ShowDatasheet", "Core Drawing");
}

PullDown& Inductor::comboCore(int index) {
  static_cast<void>(inductor_traits(index));
  return *findPullDown("ind_comboCore", index);
}

TickBox& Inductor::checkFixCore(int index) {
  static_cast<void>(inductor_traits(index));
  return *findTickBox("ind_checkFixCore", index);
}

bool Inductor::offer(const std::vector<CoreType>* cores) {
  if (cores == nullptr) messages_.msg(name(), kCoreTableFailure);
  for (int index = 0; index < kInductorCount; ++index) {
    fill_core_list(comboCore(index), cores == nullptr ? std::span<const CoreType>() : *cores);
  }
  notifyLayoutChanged();
  return cores != nullptr;
}

bool Inductor::initialise() { return offer(cores_.cores()); }

bool Inductor::ReInitialise() { return offer(cores_.Reread()); }

bool Inductor::Calculate(bool start_afresh) {
  if (!advanced_.says_yes("allow_inductor")) return true;
  if (!designAfter(start_afresh, kInductorLres)) return false;
  return !advanced_.says_yes("line_input_pfc") || designAfter(start_afresh, kInductorLpfc);
}

bool Inductor::designAfter(bool start_afresh, int index) {
  if (start_afresh) releaseFixes(index);
  ClearInductorOutputs(index);
  return CommandLoadInputsAction(index) && DesignInductor(index);
}

void Inductor::releaseFixes(int index) {
  checkFixCore(index).checked = false;
  field("ind_gapsize", index).SetFixed(false);
}

bool Inductor::CommandLoadInputsAction(int index) {
  const InductorTraits& traits = inductor_traits(index);
  // The loader itself tells of the sources that it found empty.
  if (!loader_.LoadInputs(traits.load_id, *this, false, {{this, traits.input_frame}})) return false;
  for (const char* current : kCurrents) field(current, index).GetValue(true);
  return missing_.IsEmpty(true);
}

void Inductor::ClearInductorOutputs(int index) {
  for (const char* result : kClearedResults) field(result, index).Clear();
  if (!checkFixCore(index).checked) show_core(comboCore(index), "");
  VTLValue& gap = field("ind_gapsize", index);
  if (!gap.IsFixed()) gap.Clear();
  notifyLayoutChanged();
}

bool Inductor::DesignInductor(int index) {
  try {
    return design(index);
  } catch (const Fault&) {
    messages_.msg(name(), "Inductor Calculation error");
    return false;
  }
}

bool Inductor::design(int index) {
  ClearInductorOutputs(index);
  missing_.Reset();
  const InductorInputs inputs = readInputs(index);
  if (!missing_.IsEmpty(true)) return false;
  const std::vector<CoreType>* cores = cores_.cores();
  if (cores == nullptr) {
    messages_.msg(name(), kCoreTableFailure);
    return false;
  }
  const InductorDesign result = design_inductor(inputs, *cores);
  if (const std::string_view words = refusal(result.outcome); !words.empty()) {
    messages_.msg(name(), words);
    return false;
  }
  showDesign(index, result);
  if (result.flux_density > kFluxDensityLimit) messages_.msg(name(), kFluxWarning);
  return true;
}

InductorInputs Inductor::readInputs(int index) {
  const auto number = [&](const char* field_name, const CountedUnit& unit) {
    return required_number(field(field_name, index), unit, messages_);
  };
  InductorInputs inputs;
  inputs.inductance = number("ind_inductance", kMillihenries) / 1000.0;
  inputs.peak_current = number("ind_peakignitioncurrent", kAmperes);
  inputs.running_current = number("ind_runningcurrent", kAmperes);
  inputs.core_fixed = checkFixCore(index).checked;
  inputs.core = shown_core(comboCore(index));
  VTLValue& gap = field("ind_gapsize", index);
  inputs.gap_fixed = gap.IsFixed();
  if (inputs.gap_fixed && !gap.IsItEmpty()) inputs.fixed_gap = to_double(gap.GetValue());
  return inputs;
}

void Inductor::showDesign(int index, const InductorDesign& design) {
  show_core(comboCore(index), design.core);
  field("ind_gapsize", index).SetValue(design.gap);
  field("ind_al", index).SetValue(std::floor(1000000000.0 * design.al));
  field("ind_numberofturns", index).SetValue(design.turns);
  field("ind_peakfluxdensity", index).SetValue(std::floor(1000.0 * design.flux_density));
  field("ind_primarydiameter", index).SetValue(design.wire_diameter);
  notifyLayoutChanged();
}

bool Inductor::command_click(std::string_view button, int index) {
  const CommandButton* found = findButton(button, index);
  if (found == nullptr || found->index != index) return false;
  if (found->name == "CalculateInductor") {
    DesignInductor(index);
  } else if (found->name == "CommandLoadInputs") {
    CommandLoadInputsAction(index);
  } else if (found->name == "CommandEditUserData") {
    CommandEditUserData();
  } else {
    ShowDatasheet();
  }
  return true;
}

}  // namespace vantrel
