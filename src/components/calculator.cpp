#include "components/calculator.h"

#include <utility>

#include "components/calculator_fields.h"
#include "core/number_text.h"

namespace vantrel {

namespace {

constexpr const char* kSeriesE12Option = "component_match_e12";
constexpr const char* kSeriesE24Option = "component_match_e24";

/// Ignition time as a part of the preheat time, on the ICs that derive one from the other.
constexpr double kIgnitionShare = 0.4;
constexpr std::int32_t kTiedTargets[] = {7, 8};

void set_time(VTLValue& field, const Variant& other, double factor, bool divide) {
  if (!other.is_numeric()) {
    field.Clear();
    return;
  }
  const double time = to_double(other);
  field.SetValue(divide ? time / factor : time * factor, true);
}

/// A selection reloads the inputs; what the design screen lacks is gone then.
constexpr const char* kLostNote = ". A new selection takes a typed value away";

/// More outputs than any circuit of the design database has.
constexpr int kReservedOutputRows = 64;

}  // namespace

Calculator::Calculator(FieldContext& context, const CalculatorServices& services,
                       InputLoader& loader, BillStore& bill, CalculatorHooks hooks)
    : Screen("Calculator", "Component Calculator", context),
      services_(services),
      loader_(loader),
      bill_(bill),
      hooks_(std::move(hooks)),
      outputs_(*this),
      engine_(services, bill, view()) {
  addControls();
  field("cc_ignition_time").changed.connect([this](Variant& value) { followIgnition(value); });
  field("cc_preheat_time").changed.connect([this](Variant& value) { followPreheat(value); });
}

EngineView Calculator::view() {
  EngineView view;
  view.series = [this] { return series(); };
  view.listOutputs = [this](const std::vector<VariableEntry>& sorted) { outputs_.list(sorted); };
  view.showOutputs = [this](const VariableClass& variables) { outputs_.show(variables); };
  view.started = [this] {
    missing_items_.clear();
    status("");
  };
  view.stopped = [this](const std::vector<std::string>& missing) {
    missing_items_ = missing;
    const auto count = static_cast<std::int32_t>(missing.size());
    status("Processing stopped - " + general_text(count) + " items missing");
  };
  return view;
}

void Calculator::addControls() {
  for (const CalculatorFrame& frame : calculator_input_frames()) {
    addFrame(frame.name, frame.caption);
  }
  addFrame(kOutputsFrame, "Components");
  addFields(calculator_fields());
  for (const auto& input : fields()) input->Tooltip(input->Tooltip() + kLostNote);
  outputs_.reserve(kReservedOutputRows);
  addTickBox(kSeriesE12Option, "E12 Series").tooltip =
      "Match components to the 12 preferred values of a decade";
  addTickBox(kSeriesE24Option, "E24 Series", true).tooltip =
      "Match components to the 24 preferred values of a decade";
  addButton("find_components", "Find Components");
  addButton("design_ballast", "Design Ballast");
  addButton("load_op_points", "Load Operating Points");
  addInfoLine(kStatusLine);
}

std::int32_t Calculator::series() {
  return findTickBox(kSeriesE12Option)->checked ? kSeriesE12 : kSeriesE24;
}

void Calculator::selectSeries(std::int32_t series) {
  findTickBox(kSeriesE12Option)->checked = series == kSeriesE12;
  findTickBox(kSeriesE24Option)->checked = series != kSeriesE12;
  notifyLayoutChanged();
}

void Calculator::status(const std::string& text) {
  findInfoLine(kStatusLine)->text = text;
  notifyLayoutChanged();
}

bool Calculator::Reset(bool load_operating_points) {
  const std::string target = to_text(services_.details.TargetDetails(kTargetName));
  caption(target + " Component Calculator");
  findFrame(kOutputsFrame)->caption = target + " Components";
  CalculateComponents(false, true);
  InputLoader::FrameList frames;
  for (const CalculatorFrame& frame : calculator_input_frames()) {
    frames.emplace_back(this, frame.name);
  }
  if (!loader_.LoadInputs("Calculator", *this, !load_operating_points, frames)) return false;
  const Target& generic = services_.targets.generic();
  const Target* const object = services_.targets.TargetFromNumber(services_.state.CurrentTarget);
  engine_.useTargets(object, &generic);
  if (object != nullptr && !services_.advanced.says_yes("allow_cc")) visible(false);
  return true;
}

bool Calculator::CalculateComponents(bool full_bom, bool outputs_only) {
  return engine_.CalculateComponents(full_bom, outputs_only);
}

bool Calculator::CalculateApart() {
  EngineView unseen;
  unseen.series = [this] { return series(); };
  ComponentEngine apart(services_, bill_, std::move(unseen));
  apart.useTargets(engine_.target(), engine_.generic());
  return apart.CalculateComponents(true, false);
}

bool Calculator::areTimesTied() const {
  if (!times_linked_ || loader_.IsLoading()) return false;
  for (const std::int32_t target : kTiedTargets) {
    if (services_.state.CurrentTarget == target) return true;
  }
  return false;
}

// Each sets the other one without an event, or they would drive each other for ever.
void Calculator::followIgnition(const Variant& ignition) {
  if (!areTimesTied() || field("cc_ignition_time").IsFixed()) return;
  set_time(field("cc_preheat_time"), ignition, kIgnitionShare, true);
}

void Calculator::followPreheat(const Variant& preheat) {
  if (areTimesTied()) set_time(field("cc_ignition_time"), preheat, kIgnitionShare, false);
}

bool Calculator::DesignBallast() {
  const bool inductors = !hooks_.designInductors || hooks_.designInductors();
  const bool transformer = !hooks_.designTransformer || hooks_.designTransformer();
  return inductors && transformer && CalculateComponents(true, false);
}

bool Calculator::command_click(std::string_view button) {
  const CommandButton* const found = findButton(button);
  if (found == nullptr) return false;
  if (found->name == "find_components") {
    CalculateComponents(false, false);
  } else if (found->name == "design_ballast") {
    DesignBallast();
  } else {
    Reset(true);
  }
  return true;
}

}  // namespace vantrel
