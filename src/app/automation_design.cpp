#include <unordered_map>

#include "app/automation_ops.h"
#include "app/automation_time_domain.h"

namespace vantrel {

namespace {

using Export = bool (*)(Session&, const Json& command);

bool export_bill(Session& session, const Json& command) {
  const std::string path = text_argument(command, "path");
  return session.billOfMaterials().setup_bom() && session.billOfMaterials().ExportTableTo(path);
}

bool export_graph(Session& session, const Json& command) {
  const std::string path = text_argument(command, "path");
  GraphOP& graph = session.operatingPointsGraph();
  if (!graph.inputsAvailable()) throw CommandError(std::string(GraphOP::kMissingText));
  if (const auto why = session.writePicture(path, graph.picture())) throw CommandError(*why);
  return true;
}

template <bool (ImageDisplay::*show)()>
bool export_drawing(Session& session, const Json& command) {
  const std::string path = text_argument(command, "path");
  return (session.images().*show)() && session.images().export_schematic_to(path);
}

template <bool (BoardFiles::*copy)(const std::string& folder)>
bool export_board(Session& session, const Json& command) {
  return (session.board().*copy)(text_argument(command, "path"));
}

const std::unordered_map<std::string, Export>& exports() {
  static const std::unordered_map<std::string, Export> table{
      {"bom", export_bill},
      {"operating-points", export_graph},
      {"time-domain", export_time_domain},
      {"spice", export_spice},
      {"schematic", export_drawing<&ImageDisplay::show_schematic>},
      {"lres", export_drawing<&ImageDisplay::show_lres>},
      {"pfc", export_drawing<&ImageDisplay::show_pfc>},
      {"transformer", export_drawing<&ImageDisplay::show_transformer>},
      {"balance-transformer", export_drawing<&ImageDisplay::show_balancetransformer>},
      {"gerber", export_board<&BoardFiles::exportGerberTo>},
      {"photoplot", export_board<&BoardFiles::exportLayersTo>}};
  return table;
}

}  // namespace

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
  const bool wanted = flag_argument(command, "value", false);
  if (!session.options().tick(name, wanted)) throw CommandError("Unknown option '" + name + "'");
  session.options().Apply();
  if (session.options().isChecked(name) != wanted) {
    throw CommandError("Option '" + name + "' is cleared by setting another of its group");
  }
  return {{"value", wanted}};
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
  const auto export_it = exports().find(what);
  if (export_it == exports().end()) throw CommandError("Export of '" + what + "' is not built");
  return {{"result", export_it->second(session, command)}};
}

Json op_validate(Session& session, const Json& /*command*/) {
  const bool result = session.images().show_schematic() && session.schematicCheck().validate();
  Json reply{{"result", result}};
  if (!result) return reply;
  const auto listed = [&](ValidateList list) {
    Json items = Json::array();
    for (const ValidateItem& item : session.schematicCheck().items(list))
      items.push_back(item.text());
    return items;
  };
  reply["schematic_only"] = listed(ValidateList::SchematicOnly);
  reply["bill_only"] = listed(ValidateList::BillOnly);
  return reply;
}

Json dump_drawing(Session& session) {
  Json rows = Json::array();
  for (const ImagePicture& picture : session.images().document().pictures()) {
    for (const SchematicReference& reference : picture.texts.references) {
      Json row{
          {"picture", picture.name}, {"text", reference.name}, {"duplicate", reference.duplicate}};
      if (reference.x) row["x"] = *reference.x;
      if (reference.y) row["y"] = *reference.y;
      rows.push_back(std::move(row));
    }
  }
  return rows;
}

Json op_answers(Session& session, const Json& command) {
  std::vector<int> answers;
  for (const Variant& answer : list_argument(command, "list")) {
    const std::int32_t number = answer.is_numeric() ? to_int32(answer) : 0;
    if (number < kYes || number > kCancel) {
      throw CommandError("An answer is 1 yes, 2 no, 3 OK or 4 cancel");
    }
    answers.push_back(number);
  }
  session.messages().injectAnswers(answers);
  return {{"count", answers.size()}};
}

}  // namespace vantrel
