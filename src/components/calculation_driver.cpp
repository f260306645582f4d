// The course of a calculation: stages, passes and what comes of them.

#include <ctime>

#include "components/component_engine.h"
#include "core/fault.h"
#include "core/number_text.h"
#include "core/units.h"
#include "selection/record_fields.h"

namespace vantrel {

namespace {

/// Time and date in the short forms of the locale.
std::string time_and_date() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char text[128];
  const std::size_t length = std::strftime(text, sizeof text, "%X, %x", &local);
  return std::string(text, length);
}

bool is_open(const VariableEntry& entry) { return !entry.fixed || entry.value.is_empty(); }

std::string bill_text(const VariableEntry& entry, SysMsg& messages) {
  if (entry.value.is_empty()) return {};
  if (entry.value.is_string()) return entry.value.get<std::string>();
  const double scaled = to_double(si_scale(entry.value, "", messages));
  return general_text(round_to(scaled, 2)) + " " + si_prefix(entry.value, "", messages) +
         entry.valueunit;
}

}  // namespace

bool ComponentEngine::CalculateComponents(bool full_bom, bool outputs_only) {
  context_.abort = false;
  context_.rows.clear();
  ProgressScreen& progress = context_.services.progress;
  progress.Setup(full_bom);
  bool result = false;
  try {
    const ReadScope one_view(context_.services.database);
    result = run(full_bom, outputs_only);
  } catch (const Fault& fault) {
    context_.logAndShow("CalculateComponents Error : " + std::string(fault.what()));
  }
  context_.rows.clear();
  progress.Progress(result ? ProgressScreen::kFinished : ProgressScreen::kUnload, false);
  return result;
}

bool ComponentEngine::run(bool full_bom, bool outputs_only) {
  CalculatorServices& services = context_.services;
  context_.readSelection();
  const RecordSet& info =
      context_.rows.read("select * from Target:Info where Target = ?", context_.selection.ic);
  if (info.atEnd()) {
    context_.box("Could not find Target:Info for IC '" + context_.selection.ic +
                 "' in VTL Database");
    return false;
  }
  if (view_.started) view_.started();
  context_.variables.initialise();
  services.missing.Reset();
  context_.series = view_.series ? view_.series() : std::int32_t{kSeriesE24};
  services.advanced.prepare_calculation_data();
  if (outputs_only) {
    // A mere listing must not stand behind the lines of the last calculation.
    const bool kept = services.log.keepsLines();
    services.log.keepLines(false);
    addStages(info, full_bom, true);
    services.log.keepLines(kept);
    listOutputs();
    return false;
  }
  logStart(info, full_bom);
  addStages(info, full_bom, false);
  return calculate();
}

/// Opens the log afresh for this run.
void ComponentEngine::logStart(const RecordSet& info, bool full_bom) {
  context_.services.log.clearLines();
  context_.log("Component calculation for IC " + context_.selection.ic + " - " + time_and_date() +
               " ... Full BOM : " + to_text(full_bom));
  context_.log("");
  context_.log("Input Stage  : '" + text_field(info, "Input") + "'");
  context_.log("IC Stage     : '" + text_field(info, "IC") + "'");
  context_.log("Config Stage : '" + text_field(info, "Config") + "'");
  context_.log("");
}

void ComponentEngine::addStages(const RecordSet& info, bool full_bom, bool outputs_only) {
  const PresentSelection& selection = context_.selection;
  const std::string table = text_field(info, "BOMTable");
  const std::pair<const char*, const std::string&> stages[] = {
      {"Input", selection.input}, {"IC", selection.ic}, {"Config", selection.config}};
  for (const auto& [field, value] : stages) {
    const std::string list = text_field(info, field);
    if (!list.empty()) stages_.ComponentAddStage(table, list, value, full_bom, outputs_only);
  }
}

void ComponentEngine::listOutputs() {
  context_.variables.SortVariablesAlphabetically(true);
  if (view_.listOutputs) view_.listOutputs(context_.variables.entries());
}

bool ComponentEngine::calculate() {
  const std::int32_t open = ComponentCalculateStages();
  // A fatal condition in the last step of a pass, or while the stages were added, leaves no count
  // behind; the calculation has failed all the same.
  if (open < 1 && !context_.abort) {
    finish();
    return true;
  }
  stop();
  return false;
}

/// Gives the number of variables that the last pass left open, as far as it went.
std::int32_t ComponentEngine::ComponentCalculateStages() {
  if (context_.abort) return 0;
  std::int32_t open = 0;
  int stalled = 0;
  for (std::int32_t pass = 1;; ++pass) {
    context_.log("");
    context_.log("BOM Variable calculations (Iteration " + general_text(pass) + ") ...");
    const std::int32_t before = open;
    if (!runPass(open)) return open;
    stalled = open == before && open > 0 ? stalled + 1 : 0;
    if (stalled >= 2 || open == 0) return open;
  }
}

/// Visits the variables that exist now and are not settled, and counts those that stay `open`; the
/// ones that it creates wait for the next pass. A variable that is removed gives its place to the
/// one behind it. False when the calculation has to stop before the next visit.
bool ComponentEngine::runPass(std::int32_t& open) {
  VariableClass& variables = context_.variables;
  open = 0;
  std::int32_t count = variables.VariableCount();
  for (std::int32_t index = 0; index < count;) {
    if (context_.abort) return false;
    const std::int32_t before = variables.VariableCount();
    if (is_open(context_.entry(index))) open += matching_.CalculateVariableUsingCalculation(index);
    if (variables.VariableCount() < before) {
      --count;
    } else {
      ++index;
    }
  }
  return true;
}

void ComponentEngine::finish() {
  if (view_.showOutputs) view_.showOutputs(context_.variables);
  MissingFields& missing = context_.services.missing;
  if (missing.CountItems() > 0 && missing.showList) missing.showList();
  fillBill();
}

void ComponentEngine::stop() {
  context_.log("");
  context_.log("Processing stopped - missing items are ...");
  std::vector<std::string> missing;
  for (const VariableEntry& entry : context_.variables.entries()) {
    if (!is_open(entry)) continue;
    missing.push_back(entry.variablename);
    context_.log(general_text(static_cast<std::int32_t>(missing.size())) + " ... " +
                 entry.variablename);
  }
  context_.log("");
  if (view_.stopped) view_.stopped(missing);
}

void ComponentEngine::fillBill() {
  bill_.clear();
  for (const VariableEntry& entry : context_.variables.entries()) {
    if (entry.reference.empty()) continue;
    bill_.add(entry.description, bill_text(entry, context_.services.messages), entry.rating,
              entry.tolerance, entry.reference);
  }
}

}  // namespace vantrel
