#include "components/script/script_host.h"

#include <functional>
#include <string>

#include "components/script/parser.h"
#include "components/script/script_faults.h"

namespace vantrel {

Fault unsupported_member(std::string_view name) {
  return Fault(script::about(script::script_fault::kUnsupportedMember, name));
}

Fault wrong_arguments(std::string_view name) {
  return Fault(script::about(script::script_fault::kWrongArguments, name));
}

ScriptHost::ScriptHost(const ScriptLimits& limits) : limits_(limits) {}

void ScriptHost::addObject(std::string_view name, ScriptObject& object) {
  objects_.insert_or_assign(std::string(name), std::ref(object));
  variables_.erase(std::string(name));
}

void ScriptHost::execute(std::string_view statement) {
  if (statement.size() > limits_.statement_length) throw Fault(fault_text::kOutOfMemory);
  const script::Program program = script::Parser(statement, limits_.depth).run();
  script::Machine(variables_, objects_, limits_).run(program);
}

void ScriptHost::reset() { variables_.clear(); }

}  // namespace vantrel
