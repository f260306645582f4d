#include "app/automation_ops.h"

namespace vantrel {

Json op_history(Session& session, const Json& command) {
  std::int32_t position = number_argument(command, "position");
  session.history().ShowCalculationRecord(flag_argument(command, "absolute", false), position);
  return {{"shown", session.history().shown()}};
}

Json op_command(Session& session, const Json& command) {
  const std::string screen = text_argument(command, "screen");
  control_bar* bar = session.bar(screen);
  if (bar == nullptr) throw CommandError("Screen '" + screen + "' has no commands");
  const std::string argument =
      command.contains("argument") ? text_argument(command, "argument") : std::string();
  return {{"handled", bar->execute_command(text_argument(command, "command"), argument)}};
}

Json op_option(Session& session, const Json& command) {
  const std::string name = text_argument(command, "name");
  if (!command.contains("value")) throw CommandError("Argument 'value' is missing");
  if (!session.options().tick(name, flag_argument(command, "value", false))) {
    throw CommandError("Unknown option '" + name + "'");
  }
  session.options().Apply();
  return {{"value", session.options().isChecked(name)}};
}

Json op_save(Session& session, const Json& command) {
  const std::string path = text_argument(command, "path");
  return {{"result", session.project().SaveProjectTo(session.simple().name(), path)}};
}

Json op_load(Session& session, const Json& command) {
  const std::string path = text_argument(command, "path");
  return {{"result", session.project().LoadProjectFrom(session.simple().name(), path)}};
}

Json op_export(Session& session, const Json& command) {
  const std::string what = text_argument(command, "what");
  const std::string path = text_argument(command, "path");
  if (what != "bom") throw CommandError("Export of '" + what + "' is not built");
  const bool shown = session.billOfMaterials().setup_bom();
  return {{"result", shown && session.billOfMaterials().ExportTableTo(path)}};
}

Json op_answers(Session& session, const Json& command) {
  std::vector<int> answers;
  for (const Variant& answer : list_argument(command, "list")) {
    answers.push_back(to_int32(answer));
  }
  session.messages().injectAnswers(answers);
  return {{"count", answers.size()}};
}

}  // namespace vantrel
