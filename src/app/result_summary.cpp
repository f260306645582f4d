#include "app/result_summary.h"

#include <fmt/format.h>

#include "core/text_parsing.h"

namespace vantrel {

namespace {

constexpr const char* kOperatingFields[] = {
    "run_frequency",     "max_frequency",   "min_frequency",   "ignition_frequency",
    "preheat_frequency", "start_frequency", "preheat_voltage", "ignition_current"};
constexpr const char* kComponentFields[] = {"LValue",
                                            "CValue",
                                            "lamp_resistance",
                                            "lamp_resistance_max",
                                            "lamp_resistance_min",
                                            "pfc_inductor",
                                            "max_pfc_current"};

constexpr const char* kTransformerFields[] = {"tfr_primarycurrent", "tfr_primaryturns",
                                              "tfr_primarydiameter", "tfr_secondaryturns",
                                              "tfr_secondarydiameter"};

constexpr const char* kNoInductor = "The selected IC needs no inductor";
constexpr const char* kNoPfc = "The selected line input has no PFC stage";
constexpr const char* kNoComponents = "The selected IC has no component calculation";

template <std::size_t Count>
std::vector<KeyNumber> shown_fields(Advanced& advanced, const char* const (&names)[Count]) {
  std::vector<KeyNumber> column;
  for (const char* name : names) {
    const VTLValue& field = advanced.field(name);
    const bool applies = field.Visible() && advanced.isFrameInLayout(field.FrameName());
    if (!applies || field.IsItEmpty()) continue;
    column.push_back({trimmed(field.ValueLabel()), field.DisplayText(), field.UnitText()});
  }
  return column;
}

void add_inductor(Session& session, std::vector<KeyNumber>& column) {
  Inductor& inductor = session.inductor();
  if (inductor.field("ind_numberofturns", 0).IsItEmpty()) return;
  column.push_back({"LRES Core", shown_core(*inductor.findPullDown("ind_comboCore", 0)), ""});
}

void add_transformer(Session& session, std::vector<KeyNumber>& column) {
  Transformer& transformer = session.transformer();
  if (transformer.field("tfr_primaryturns").IsItEmpty()) return;
  column.push_back(
      {"Transformer Core", shown_core(*transformer.findPullDown("tfr_ComboCore")), ""});
  for (const char* name : kTransformerFields) {
    const VTLValue& field = transformer.field(name);
    column.push_back({trimmed(field.ValueLabel()), field.DisplayText(), field.UnitText()});
  }
}

}  // namespace

std::array<std::vector<KeyNumber>, 2> result_numbers(Session& session) {
  std::array<std::vector<KeyNumber>, 2> columns{shown_fields(session.advanced(), kOperatingFields),
                                                shown_fields(session.advanced(), kComponentFields)};
  if (session.advanced().says_yes("allow_inductor")) add_inductor(session, columns[1]);
  if (session.advanced().says_yes("allow_transformer")) add_transformer(session, columns[0]);
  return columns;
}

std::string ResultSummary::heading() const {
  const std::int32_t number = status_.calculationNumber();
  return number > 0 ? fmt::format("Calculation #{}", number) : "Calculation";
}

RunOutcome ResultSummary::outcome() const {
  switch (status_.state()) {
    case DesignStatus::State::Stale:
      return RunOutcome::OutOfDate;
    case DesignStatus::State::Failed:
      return RunOutcome::NotComplete;
    default:
      return RunOutcome::Complete;
  }
}

std::string ResultSummary::outcomeText() const {
  const std::string components = status_.componentCount();
  switch (outcome()) {
    case RunOutcome::OutOfDate:
      return "Out of date";
    case RunOutcome::NotComplete: {
      const std::string message =
          trimmed(ReplaceCharacter(with_line_breaks(status_.lastMessage()), '\n', " "));
      return message.empty() ? "Not complete" : "Not complete: " + message;
    }
    default:
      return components.empty() ? "Complete" : "Complete: " + components;
  }
}

std::string ResultSummary::note() const {
  return status_.releasedFixedValues() ? "Fixed values of L, C or Lamp Power were released" : "";
}

std::vector<OutputEntry> ResultSummary::outputs() const {
  Advanced& advanced = session_.advanced();
  const bool inductor = advanced.says_yes("allow_inductor");
  const bool pfc = advanced.says_yes("line_input_pfc");
  const bool components = advanced.says_yes("allow_cc");
  std::vector<OutputEntry> entries{
      {"c_bom", "Bill of Materials", "Materials", components, kNoComponents},
      {"c_schematic", "Circuit Diagram", "Schematic", components, kNoComponents},
      {"c_lres", "LRES Inductor", "inductor", inductor, kNoInductor},
      {"c_pfc", "LPFC Inductor", "inductor", inductor && pfc, inductor ? kNoPfc : kNoInductor},
      {"c_graph_op", "Operating Points Graph", "Edt"},
      {"c_graph_td", "Time Domain Graph", "Pft"},
  };
  // An IC with a transformer in place of the tank shows that one.
  if (!inductor && advanced.says_yes("allow_transformer")) {
    entries[2] = {"c_transformer", "Transformer", "transformer"};
  }
  return entries;
}

}  // namespace vantrel
