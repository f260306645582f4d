#include "app/check_drawings.h"

#include <fmt/format.h>

#include <ostream>

#include "app/exit_status.h"
#include "app/sweep_plan.h"
#include "app/sweep_row.h"

namespace vantrel {

namespace {

/// What is wrong with the drawing of the design on show; empty when all is well.
std::string discrepancies(Session& session) {
  const std::size_t before = session.messages().shown().size();
  if (!session.images().show_schematic() || !session.schematicCheck().validate()) {
    const auto& shown = session.messages().shown();
    return shown.size() > before ? with_line_breaks(shown.back().text) : "no circuit diagram";
  }
  std::string found;
  for (const auto list : {ValidateList::SchematicOnly, ValidateList::BillOnly}) {
    for (const ValidateItem& item : session.schematicCheck().items(list)) {
      found += fmt::format("{}{} only in the {}", found.empty() ? "" : ", ", item.text(),
                           list == ValidateList::BillOnly ? "bill" : "diagram");
    }
  }
  for (const std::string& reference : session.bomStore().BomStages()) {
    if (!found.empty()) break;
    if (!session.images().StartHighlight(reference)) found = reference + " cannot be marked";
  }
  session.images().StopHighlight();
  return found;
}

}  // namespace

int run_check(const CliPlaces& places, const SelectionOptions& filters, std::ostream& out,
              std::ostream& errors) {
  SweepPlan plan;
  {
    // Making the plan leaves a session that no design can start from.
    const auto planner = CliSession::start(places, errors);
    if (planner == nullptr) return kExitBadInput;
    std::string why;
    plan = sweep_plan(planner->session(), filters, why);
    if (!why.empty()) {
      errors << "vantrel-cli: " << why << '\n';
      return kExitBadInput;
    }
  }
  const auto cli = CliSession::start(places, errors);
  if (cli == nullptr) return kExitBadInput;
  cli->keepMessagesQuiet();
  Session& session = cli->session();
  SweepDesigner designer(session, plan, false);
  std::size_t faults = 0;
  for (const Combination& combination : plan.combinations) {
    designer.row(combination);
    const std::string found = discrepancies(session);
    if (found.empty()) continue;
    ++faults;
    out << combination_key(combination) << ": " << found << '\n';
  }
  out << fmt::format("{} combinations, {} with discrepancies\n", plan.combinations.size(), faults);
  return faults == 0 ? kExitDone : kExitEndedEarly;
}

}  // namespace vantrel
