#include "components/script/machine.h"

#include <algorithm>
#include <utility>

#include "components/script/builtins.h"
#include "components/script/script_faults.h"
#include "core/fault.h"

namespace vantrel::script {

bool NameLess::operator()(std::string_view a, std::string_view b) const {
  const auto folded = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; };
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                      [folded](char x, char y) { return folded(x) < folded(y); });
}

Machine::Machine(Variables& variables, const Objects& objects, const ScriptLimits& limits)
    : variables_(variables),
      objects_(objects),
      most_variables_(limits.variables),
      budget_(limits) {}

void Machine::run(const Program& program) {
  while (next_ < program.steps.size()) {
    budget_.step();
    execute(program, program.steps[next_++]);
  }
}

void Machine::execute(const Program& program, const Step& step) {
  switch (step.instruction) {
    case Instruction::PushConstant:
      return push(program.constants[step.operand]);
    case Instruction::Load:
      return load(program.names[step.operand]);
    case Instruction::Store:
      variable(program.names[step.operand]) = pop();
      return;
    case Instruction::Declare:
      variable(program.names[step.operand]);
      return;
    case Instruction::Unary:
      return replace(1, apply(static_cast<UnaryOperator>(step.operand), stack_.back()));
    case Instruction::Binary:
      return binary(static_cast<BinaryOperator>(step.operand));
    case Instruction::CallBuiltin:
      return replace(step.count, call_builtin(step.operand, top(step.count), budget_));
    case Instruction::CallMethod:
      return call_method(program.names[step.operand], program.names[step.operand + 1], step.count);
    case Instruction::CallName:
      return call_name(program.names[step.operand]);
    case Instruction::Put:
      object(program.names[step.operand]);
      throw unsupported_member(program.names[step.operand + 1]);
    case Instruction::Drop:
      stack_.pop_back();
      return;
    case Instruction::Jump:
      next_ = step.operand;
      return;
    case Instruction::JumpUnless:
      if (!condition()) next_ = step.operand;
      return;
    case Instruction::Raise:
      throw Fault(program.names[step.operand]);
  }
}

void Machine::load(const std::string& name) {
  if (objects_.contains(name)) throw unsupported_member(name);
  const auto found = variables_.find(name);
  push(found == variables_.end() ? Variant() : found->second);
}

Variant& Machine::variable(const std::string& name) {
  if (objects_.contains(name)) throw Fault(about(script_fault::kIllegalAssignment, name));
  const auto found = variables_.find(name);
  if (found != variables_.end()) return found->second;
  if (variables_.size() >= most_variables_) throw Fault(fault_text::kOutOfMemory);
  return variables_[name];
}

ScriptObject& Machine::object(const std::string& name) const {
  const auto found = objects_.find(name);
  if (found == objects_.end()) throw Fault(about(script_fault::kObjectRequired, name));
  return found->second;
}

void Machine::call_method(const std::string& name, const std::string& member, std::size_t count) {
  ScriptObject& receiver = object(name);
  replace(count, receiver.call(member, top(count)));
}

// Objects have no value of their own, and anything else that is called is an empty variable.
void Machine::call_name(const std::string& name) const {
  if (objects_.contains(name)) throw unsupported_member(name);
  throw Fault(about(fault_text::kTypeMismatch, name));
}

void Machine::binary(BinaryOperator operation) {
  const std::span<const Variant> operands = top(2);
  replace(2, apply(operation, operands[0], operands[1]));
}

bool Machine::condition() {
  const Variant value = pop();
  return !value.is_null() && to_bool(value);
}

void Machine::push(Variant value) {
  if (value.is_string()) budget_.text(value.get<std::string>().size());
  stack_.push_back(std::move(value));
}

Variant Machine::pop() {
  Variant value = std::move(stack_.back());
  stack_.pop_back();
  return value;
}

std::span<const Variant> Machine::top(std::size_t count) const {
  return std::span<const Variant>(stack_).last(count);
}

void Machine::replace(std::size_t count, Variant result) {
  stack_.resize(stack_.size() - count);
  push(std::move(result));
}

}  // namespace vantrel::script
