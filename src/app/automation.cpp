#include "app/automation.h"

#include <unordered_map>

#include "app/automation_explain.h"
#include "app/automation_ops.h"
#include "app/automation_time_domain.h"
#include "app/automation_view.h"
#include "app/design_report.h"

namespace vantrel {

namespace {

using Operation = Json (*)(Session&, const Json&);

const std::unordered_map<std::string, Operation>& operations() {
  static const std::unordered_map<std::string, Operation> table{
      {"select", op_select},
      {"items", op_items},
      {"set", op_set},
      {"get", op_get},
      {"calculate", op_calculate},
      {"formula", op_formula},
      {"component", op_component},
      {"statement", op_statement},
      {"design_inductor", op_design_inductor},
      {"design_transformer", op_design_transformer},
      {"convert", op_convert},
      {"explain", op_explain},
      {"time_domain", op_time_domain},
      {"samples", op_samples},
      {"envelope", op_envelope},
      {"find_item", op_find_item},
      {"view", op_view},
      {"measure", op_measure},
      {"dump", op_dump},
      {"history", op_history},
      {"command", op_command},
      {"option", op_option},
      {"save", op_save},
      {"load", op_load},
      {"validate", op_validate},
      {"export", op_export},
      {"print", op_print},
      {"answers", op_answers},
      {"sql", op_sql},
  };
  return table;
}

/// No command needs more; the parser and what walks its result call themselves for each level.
constexpr int kDeepestNesting = 64;

/// Counts brackets, also those inside texts, so that it may refuse a strange text but never lets a
/// deep structure through.
bool is_nested_too_deep(std::string_view line) {
  int depth = 0;
  for (const char c : line) {
    if (c == '[' || c == '{') ++depth;
    if (c == ']' || c == '}') --depth;
    if (depth > kDeepestNesting) return true;
  }
  return false;
}

Json failure(const std::string& error) { return {{"ok", false}, {"error", error}}; }

}  // namespace

std::string text_argument(const Json& command, const char* name) {
  const auto argument = command.find(name);
  if (argument == command.end() || !argument->is_string()) {
    throw CommandError(std::string("Argument '") + name + "' is missing or no text");
  }
  return argument->get<std::string>();
}

std::int32_t number_argument(const Json& command, const char* name) {
  const auto argument = command.find(name);
  if (argument == command.end() || !argument->is_number_integer()) {
    throw CommandError(std::string("Argument '") + name + "' is missing or no whole number");
  }
  return to_int32(from_json(*argument));
}

bool flag_argument(const Json& command, const char* name, bool fallback) {
  const auto argument = command.find(name);
  if (argument == command.end()) return fallback;
  if (!argument->is_boolean()) {
    throw CommandError(std::string("Argument '") + name + "' is neither true nor false");
  }
  return argument->get<bool>();
}

Variant::Array list_argument(const Json& command, const char* name) {
  const auto argument = command.find(name);
  if (argument == command.end()) return {};
  if (!argument->is_array()) throw CommandError(std::string("Argument '") + name + "' is no list");
  return from_json(*argument).get<Variant::Array>();
}

int slot_argument(const Json& command) {
  static const std::unordered_map<std::string, int> slots{
      {"IC", 0}, {"INPUT", 1}, {"LAMP", 2}, {"CONFIG", 3}};
  const std::string name = text_argument(command, "slot");
  const auto slot = slots.find(name);
  if (slot == slots.end()) throw CommandError("Unknown slot '" + name + "'");
  return slot->second;
}

Json messages_json(const SysMsg& messages, std::size_t from) {
  Json list = Json::array();
  for (std::size_t i = from; i < messages.shown().size(); ++i) {
    const Message& message = messages.shown()[i];
    list.push_back({{"text", message.text},
                    {"title", message.title},
                    {"type", message.type},
                    {"severity", message.severity},
                    {"answer", message.answer}});
  }
  return list;
}

Json Automation::exportReport(const Json& command) {
  ReportOutput output{.files = {text_argument(command, "path")}, .date = present_day()};
  if (command.contains("date")) output.date = text_argument(command, "date");
  if (!is_calendar_day(output.date)) throw CommandError("'date' is a day like \"2026-01-31\"");
  if (command.contains("paper") && !set_paper(output.paper, text_argument(command, "paper"))) {
    throw CommandError("'paper' is 'A4' or 'Letter'");
  }
  const std::string why = write_reports(session_, status_, reports_, output);
  if (!why.empty()) throw CommandError(why);
  return {{"result", true}};
}

Json Automation::perform(const Json& command) {
  if (!command.is_object()) return failure("A command is a JSON object");
  const std::string name = text_argument(command, "op");
  const auto operation = operations().find(name);
  if (operation == operations().end()) return failure("Unknown operation '" + name + "'");
  const bool is_report = name == "export" && text_argument(command, "what") == "report";
  Json reply = is_report ? exportReport(command) : operation->second(session_, command);
  if (name == "set") status_.inputChanged();
  reply["ok"] = true;
  return reply;
}

Json Automation::run(const Json& command) {
  const std::size_t before = session_.messages().shown().size();
  Json reply;
  try {
    reply = perform(command);
  } catch (const std::exception& error) {
    reply = failure(error.what());
  }
  reply["messages"] = messages_json(session_.messages(), before);
  return reply;
}

Json Automation::runLine(std::string_view line) {
  const Json command =
      is_nested_too_deep(line) ? Json(Json::value_t::discarded) : Json::parse(line, nullptr, false);
  if (command.is_discarded()) {
    Json reply = failure("The line is no JSON text");
    reply["messages"] = Json::array();
    return reply;
  }
  return run(command);
}

}  // namespace vantrel
