#include "app/automation_ops.h"
#include "core/fault.h"

namespace vantrel {

namespace {

Json candidates_json(Session& session) {
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

}  // namespace

Json op_calculate(Session& session, const Json& command) {
  const std::string what = text_argument(command, "what");
  if (what == "operating-points") {
    const bool show_results = command.value("show_results", true);
    return {{"result", session.operatingPoints().Calculate(show_results)}};
  }
  throw CommandError("Calculation '" + what + "' is not built yet");
}

Json op_formula(Session& session, const Json& command) {
  const auto target = command.find("target");
  const Variant arguments = from_json(command.value("args", Json::array()));
  if (!arguments.is_array()) throw CommandError("Argument 'args' is no list");
  TankCalculator& calculator = session.operatingPoints().calculator();
  const std::int32_t number =
      target == command.end() ? session.state().CurrentTarget : to_int32(from_json(*target));
  if (!calculator.SelectTarget(number)) throw CommandError("Unknown target number");
  calculator.CalculationFailed = false;
  const float result = calculator.CalculateResult(text_argument(command, "name"),
                                                  std::span(arguments.get<Variant::Array>()));
  return {{"result", result}, {"failed", calculator.CalculationFailed}};
}

Json op_dump(Session& session, const Json& command) {
  const std::string what = text_argument(command, "what");
  if (what == "candidates") return {{"rows", candidates_json(session)}};
  throw CommandError("Dump of '" + what + "' is not built yet");
}

Json op_answers(Session& session, const Json& command) {
  const Json list = command.value("list", Json::array());
  if (!list.is_array()) throw CommandError("Argument 'list' is no list");
  std::vector<int> answers;
  for (const Json& answer : list) answers.push_back(to_int32(from_json(answer)));
  session.messages().injectAnswers(answers);
  return {{"count", answers.size()}};
}

Json op_sql(Session& session, const Json& command) {
  RecordSet rows;
  if (!session.database().read(text_argument(command, "text"), rows, true)) {
    throw CommandError("The query failed: " + session.database().last_error());
  }
  Json list = Json::array();
  for (; adoaccess_class::RSOK(rows); rows.MoveNext()) {
    Json row = Json::object();
    for (std::size_t i = 0; i < rows.fieldCount(); ++i) {
      row[rows.fieldName(i)] = to_json(rows.at(i));
    }
    list.push_back(row);
  }
  return {{"rows", list}};
}

}  // namespace vantrel
