#include <algorithm>
#include <unordered_map>

#include "app/automation_ops.h"
#include "app/automation_time_domain.h"
#include "core/number_text.h"

namespace vantrel {

namespace {

/// What a calculation gives: mostly whether it has succeeded.
using Calculation = Json (*)(Session&, const Json&);
using Dump = Json (*)(Session&);
using Operation = Json (*)(Session&, const Json&);

const std::unordered_map<std::string, Calculation>& calculations() {
  static const std::unordered_map<std::string, Calculation> table{
      {"operating-points",
       [](Session& session, const Json& command) -> Json {
         return session.operatingPoints().Calculate(flag_argument(command, "show_results", true));
       }},
      {"simple",
       [](Session& session, const Json&) -> Json {
         return session.simple().calculate_simple(true, true, true, true);
       }},
      {"all",
       [](Session& session, const Json&) -> Json {
         return session.simple().TestAllCalculations();
       }},
      {"components",
       [](Session& session, const Json& command) -> Json {
         return session.calculator().CalculateComponents(flag_argument(command, "full_bom", true),
                                                         false);
       }},
      {"inductor",
       [](Session& session, const Json&) -> Json { return session.inductor().Calculate(true); }},
      {"transformer",
       [](Session& session, const Json&) -> Json { return session.transformer().Calculate(true); }},
      {"time-domain",
       [](Session& session, const Json&) -> Json {
         const double result = session.timeDomainGraph().GenerateTimeDomain();
         session.timeDomainForm().takeRun();
         session.timeDomainForm().RedrawGraph();
         return result;
       }},
  };
  return table;
}

Json candidates(Session& session) {
  Json rows = Json::array();
  for (const PossibleResult& result : session.operatingPoints().PossibleResults()) {
    rows.push_back({{"C", result.C},
                    {"L", result.L},
                    {"VPreheat", result.VPreheat},
                    {"FRun", result.FRun},
                    {"FIgnition", result.FIgnition},
                    {"FPreheat", result.FPreheat}});
  }
  return rows;
}

Json variables(Session& session) {
  Json rows = Json::array();
  for (const VariableEntry& variable : session.calculator().engine().variables().entries()) {
    rows.push_back(variable_json(variable));
  }
  return rows;
}

Json bill(Session& session) { return bill_json(session.bomStore()); }

Json history(Session& session) {
  Json rows = Json::array();
  for (const CalculationRecord& record : session.history().records()) {
    rows.push_back(
        {{"title", record.title}, {"description", record.description}, {"items", record.items}});
  }
  return rows;
}

Json log_lines(Session& session) { return session.log().lines(); }

const std::unordered_map<std::string, Dump>& dumps() {
  static const std::unordered_map<std::string, Dump> table{
      {"candidates", candidates}, {"variables", variables}, {"bom", bill},
      {"history", history},       {"log", log_lines},       {"drawing", dump_drawing}};
  return table;
}

/// Dumps that take arguments, or tell more than rows.
const std::unordered_map<std::string, Operation>& long_dumps() {
  static const std::unordered_map<std::string, Operation> table{{"stages", op_stages},
                                                                {"members", op_members},
                                                                {"samples", op_samples},
                                                                {"envelope", op_envelope},
                                                                {"find_item", op_find_item}};
  return table;
}

template <typename Table>
auto entry_of(const Table& table, const std::string& what, const char* kind) {
  const auto entry = table.find(what);
  if (entry == table.end()) {
    throw CommandError(std::string(kind) + " '" + what + "' is not built");
  }
  return entry->second;
}

}  // namespace

Json op_calculate(Session& session, const Json& command) {
  const auto calculate = entry_of(calculations(), text_argument(command, "what"), "Calculation");
  return {{"result", calculate(session, command)}};
}

Json op_dump(Session& session, const Json& command) {
  const std::string what = text_argument(command, "what");
  const auto long_dump = long_dumps().find(what);
  if (long_dump != long_dumps().end()) return long_dump->second(session, command);
  return {{"rows", entry_of(dumps(), what, "Dump")(session)}};
}

Json op_formula(Session& session, const Json& command) {
  const Variant::Array arguments = list_argument(command, "args");
  const std::int32_t target = command.contains("target") ? number_argument(command, "target")
                                                         : session.state().CurrentTarget;
  TankCalculator& calculator = session.operatingPoints().calculator();
  if (!calculator.SelectTarget(target)) throw CommandError("Unknown target number");
  calculator.CalculationFailed = false;
  const float result =
      calculator.CalculateResult(text_argument(command, "name"), std::span(arguments));
  return {{"result", result}, {"failed", calculator.CalculationFailed}};
}

Json op_sql(Session& session, const Json& command) {
  RecordSet rows;
  if (!session.database().read(text_argument(command, "text"), rows, true)) {
    throw CommandError("The query failed: " + session.database().last_error());
  }
  std::vector<std::string> names;
  for (std::size_t i = 0; i < rows.fieldCount(); ++i) {
    // A further column of the same name gets a number, so that none is lost.
    const std::string& name = rows.fieldName(i);
    std::string own = name;
    for (int number = 2; std::ranges::find(names, own) != names.end(); ++number) {
      own = name + "_" + general_text(number);
    }
    names.push_back(std::move(own));
  }
  Json list = Json::array();
  for (; adoaccess_class::RSOK(rows); rows.MoveNext()) {
    Json row = Json::object();
    for (std::size_t i = 0; i < names.size(); ++i) row[names[i]] = to_json(rows.at(i));
    list.push_back(row);
  }
  return {{"rows", list}};
}

}  // namespace vantrel
