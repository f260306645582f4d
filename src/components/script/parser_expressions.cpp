#include <algorithm>
#include <array>
#include <optional>

#include "components/script/builtins.h"
#include "components/script/nesting.h"
#include "components/script/parser.h"
#include "components/script/script_faults.h"
#include "core/text_parsing.h"

namespace vantrel::script {

namespace {

constexpr int kNotPrecedence = 4;
constexpr int kPowerPrecedence = 12;

struct Infix {
  std::string_view spelling;
  BinaryOperator operation;
  int precedence;
};

// Not has 4, the signs have 11: -2 ^ 2 is -(2 ^ 2).
constexpr std::array<Infix, 17> kInfixes = {{
    {"xor", BinaryOperator::Xor, 1},
    {"or", BinaryOperator::Or, 2},
    {"and", BinaryOperator::And, 3},
    {"=", BinaryOperator::Equal, 5},
    {"<>", BinaryOperator::NotEqual, 5},
    {"<", BinaryOperator::Less, 5},
    {">", BinaryOperator::Greater, 5},
    {"<=", BinaryOperator::LessOrEqual, 5},
    {">=", BinaryOperator::GreaterOrEqual, 5},
    {"&", BinaryOperator::Concatenate, 6},
    {"+", BinaryOperator::Add, 7},
    {"-", BinaryOperator::Subtract, 7},
    {"mod", BinaryOperator::Modulo, 8},
    {"\\", BinaryOperator::IntegerDivide, 9},
    {"*", BinaryOperator::Multiply, 10},
    {"/", BinaryOperator::Divide, 10},
    {"^", BinaryOperator::Power, kPowerPrecedence},
}};

const Infix* find_infix(const Token& token) {
  if (token.kind != TokenKind::Symbol && token.kind != TokenKind::Name) return nullptr;
  const auto* found = std::find_if(kInfixes.begin(), kInfixes.end(), [&token](const Infix& infix) {
    return equal_ignoring_case(infix.spelling, token.text);
  });
  return found == kInfixes.end() ? nullptr : found;
}

std::optional<Variant> named_constant(std::string_view name) {
  if (equal_ignoring_case(name, "true")) return Variant(true);
  if (equal_ignoring_case(name, "false")) return Variant(false);
  if (equal_ignoring_case(name, "empty")) return Variant();
  if (equal_ignoring_case(name, "null")) return Variant(Null{});
  return std::nullopt;
}

}  // namespace

void Parser::expression(int least_precedence) {
  const Nesting nesting(depth_left_);
  prefixed_operand(least_precedence);
  for (const Infix* infix = find_infix(token());
       infix != nullptr && infix->precedence >= least_precedence; infix = find_infix(token())) {
    take();
    expression(infix->precedence + 1);
    emit(Instruction::Binary, static_cast<std::size_t>(infix->operation));
  }
}

// Prefixes are counted, not nested, so that a long row of them is no deep expression.
void Parser::prefixed_operand(int least_precedence) {
  std::size_t count = 0;
  UnaryOperator operation = UnaryOperator::Negate;
  if (at_word("not")) {
    operation = UnaryOperator::Not;
    while (take_word("not")) ++count;
    expression(kNotPrecedence + 1);
  } else if (at_symbol("-") || at_symbol("+")) {
    while (at_symbol("-") || at_symbol("+")) count += take() == "-" ? 1 : 0;
    expression(std::max(least_precedence, kPowerPrecedence));
  } else {
    operand();
  }
  while (count-- > 0) emit(Instruction::Unary, static_cast<std::size_t>(operation));
}

void Parser::operand() {
  switch (token().kind) {
    case TokenKind::Number:
    case TokenKind::Hexadecimal:
    case TokenKind::Octal:
    case TokenKind::Text:
      emit_constant(literal_value(token()));
      take();
      return;
    case TokenKind::Name:
      return name_operand();
    default:
      expect(take_symbol("("), script_fault::kSyntaxError);
      expression();
      expect(take_symbol(")"), script_fault::kExpectedClosing);
  }
}

void Parser::name_operand() {
  if (std::optional<Variant> constant = named_constant(token().text)) {
    take();
    return emit_constant(*std::move(constant));
  }
  const std::string_view name = take_identifier(script_fault::kSyntaxError);
  if (take_symbol(".")) {
    const std::string_view member = take_member();
    call_member(name, member, arguments());
  } else if (at_symbol("(") || find_builtin(name)) {
    call(name, arguments());
  } else {
    emit(Instruction::Load, add_name(name));
  }
}

std::uint32_t Parser::arguments() {
  if (!take_symbol("(") || take_symbol(")")) return 0;
  std::uint32_t count = 0;
  do {
    expression();
    ++count;
  } while (take_symbol(","));
  expect(take_symbol(")"), script_fault::kExpectedClosing);
  return count;
}

void Parser::call(std::string_view name, std::uint32_t count) {
  if (const std::optional<std::size_t> builtin = find_builtin(name)) {
    emit(Instruction::CallBuiltin, *builtin, count);
  } else {
    emit(Instruction::CallName, add_name(name), count);
  }
}

void Parser::call_member(std::string_view object, std::string_view member, std::uint32_t count) {
  const std::size_t first = add_name(object);
  add_name(member);
  emit(Instruction::CallMethod, first, count);
  // Methods give values, and a value has no members.
  if (at_symbol(".")) {
    fail(about(script_fault::kObjectRequired, std::string(object) + "." + std::string(member))
             .c_str());
  }
}

}  // namespace vantrel::script
