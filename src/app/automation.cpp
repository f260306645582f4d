#include "app/automation.h"

#include <unordered_map>

#include "app/automation_ops.h"

namespace vantrel {

namespace {

using Operation = Json (*)(Session&, const Json&);

const std::unordered_map<std::string, Operation>& operations() {
  static const std::unordered_map<std::string, Operation> table{
      {"select", op_select},   {"items", op_items},         {"set", op_set},
      {"get", op_get},         {"calculate", op_calculate}, {"formula", op_formula},
      {"convert", op_convert}, {"dump", op_dump},           {"answers", op_answers},
      {"sql", op_sql},
  };
  return table;
}

Json failure(const std::string& error) { return {{"ok", false}, {"error", error}}; }

Json perform(Session& session, const Json& command) {
  if (!command.is_object()) return failure("A command is a JSON object");
  const std::string name = text_argument(command, "op");
  const auto operation = operations().find(name);
  if (operation == operations().end()) return failure("Unknown operation '" + name + "'");
  Json reply = operation->second(session, command);
  reply["ok"] = true;
  return reply;
}

}  // namespace

std::string text_argument(const Json& command, const char* name) {
  const auto argument = command.find(name);
  if (argument == command.end() || !argument->is_string()) {
    throw CommandError(std::string("Argument '") + name + "' is missing or no text");
  }
  return argument->get<std::string>();
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

Json Automation::run(const Json& command) {
  const std::size_t before = session_.messages().shown().size();
  Json reply;
  try {
    reply = perform(session_, command);
  } catch (const std::exception& error) {
    reply = failure(error.what());
  }
  reply["messages"] = messages_json(session_.messages(), before);
  return reply;
}

Json Automation::runLine(std::string_view line) {
  const Json command = Json::parse(line, nullptr, false);
  if (command.is_discarded()) {
    Json reply = failure("The line is no JSON text");
    reply["messages"] = Json::array();
    return reply;
  }
  return run(command);
}

}  // namespace vantrel
