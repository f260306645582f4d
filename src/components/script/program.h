#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "components/script/operators.h"
#include "core/variant.h"

namespace vantrel::script {

/// What one instruction does with the stack of values.
enum class Instruction : std::uint8_t {
  PushConstant,  ///< pushes constants[operand]
  Load,          ///< pushes the variable names[operand], Empty when there is none
  Store,         ///< pops into the variable names[operand]
  Declare,       ///< makes the variable names[operand] unless it stands
  Unary,         ///< applies the UnaryOperator `operand` to the top
  Binary,        ///< applies the BinaryOperator `operand` to the two on top
  CallBuiltin,   ///< replaces `count` arguments by the result of built-in function `operand`
  CallMethod,    ///< the same for member names[operand + 1] of object names[operand]
  CallName,      ///< a call of names[operand], which is no function: fails
  Put,           ///< an assignment to member names[operand + 1] of names[operand]: fails
  Drop,          ///< pops and forgets
  Jump,          ///< goes on at `operand`
  JumpUnless,    ///< pops a condition, goes on at `operand` when it is false
  Raise,         ///< fails with the text names[operand]
};

struct Step {
  Instruction instruction;
  std::uint32_t operand = 0;
  std::uint32_t count = 0;
};

/// A statement as steps of a stack machine. Flat, so that running it and throwing it away take no
/// recursion however deep its expressions are.
struct Program {
  std::vector<Step> steps;
  std::vector<Variant> constants;
  std::vector<std::string> names;
};

}  // namespace vantrel::script
