#include "app/automation_ops.h"

namespace vantrel {

namespace {

Json scratch_json(const ScratchResult& scratch) {
  Json json = variable_json(scratch.variable);
  json["result"] = scratch.result;
  return json;
}

}  // namespace

Json variable_json(const VariableEntry& variable) {
  return {{"name", variable.variablename},    {"reference", variable.reference},
          {"value", to_json(variable.value)}, {"value_type", variable.value.type_name()},
          {"unit", variable.valueunit},       {"rating", variable.rating},
          {"tolerance", variable.tolerance},  {"description", variable.description},
          {"fixed", variable.fixed},          {"output", variable.ccoutput},
          {"flags", variable.flags}};
}

Json bill_json(const BomStore& store) {
  Json rows = Json::array();
  for (const BillRecord& record : store.BomComponents()) {
    rows.push_back({{"qty", record.qty},
                    {"type", record.type},
                    {"value", record.value},
                    {"rating", record.rating},
                    {"tolerance", record.tolerance},
                    {"reference", record.reference}});
  }
  return rows;
}

Json op_component(Session& session, const Json& command) {
  const std::int32_t number = command.contains("target") ? number_argument(command, "target")
                                                         : session.state().CurrentTarget;
  const Target* target = session.targets().TargetFromNumber(number);
  if (target == nullptr) throw CommandError("Unknown target number");
  const Variant::Array arguments = list_argument(command, "args");
  return scratch_json(session.calculator().engine().CallOnScratch(
      target, text_argument(command, "name"), arguments));
}

Json op_statement(Session& session, const Json& command) {
  return scratch_json(session.calculator().engine().RunOnScratch(text_argument(command, "text")));
}

Json op_design_inductor(Session& session, const Json& command) {
  const std::int32_t index = number_argument(command, "index");
  if (index < 0 || index > 1) throw CommandError("There are inductors 0 and 1 only");
  return {{"result", session.inductor().DesignInductor(index)}};
}

Json op_design_transformer(Session& session, const Json&) {
  return {{"result", session.transformer().DesignTransformer()}};
}

}  // namespace vantrel
