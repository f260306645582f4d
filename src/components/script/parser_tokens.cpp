#include <algorithm>
#include <array>
#include <utility>

#include "components/script/parser.h"
#include "components/script/script_faults.h"
#include "core/fault.h"
#include "core/text_parsing.h"

namespace vantrel::script {

namespace {

/// Words of the language, those of statements that this host does not run among them.
constexpr std::array<std::string_view, 43> kReserved = {
    "and",  "byref",   "byval",  "call",     "case", "class",  "const", "dim",  "do",
    "each", "else",    "elseif", "empty",    "end",  "eqv",    "erase", "exit", "false",
    "for",  "if",      "imp",    "function", "is",   "let",    "loop",  "mod",  "next",
    "not",  "nothing", "null",   "on",       "or",   "option", "redim", "rem",  "select",
    "set",  "sub",     "then",   "true",     "wend", "while",  "xor",
};

bool is_reserved(std::string_view word) {
  return std::any_of(kReserved.begin(), kReserved.end(),
                     [word](std::string_view entry) { return equal_ignoring_case(word, entry); });
}

}  // namespace

bool Parser::at_symbol(std::string_view symbol) const {
  return token().kind == TokenKind::Symbol && token().text == symbol;
}

bool Parser::at_word(std::string_view word) const {
  return token().kind == TokenKind::Name && equal_ignoring_case(token().text, word);
}

bool Parser::take_symbol(std::string_view symbol) {
  if (!at_symbol(symbol)) return false;
  take();
  return true;
}

bool Parser::take_word(std::string_view word) {
  if (!at_word(word)) return false;
  take();
  return true;
}

std::string_view Parser::take_identifier(const char* text) {
  expect(token().kind == TokenKind::Name && !is_reserved(token().text), text);
  return take();
}

std::string_view Parser::take_member() {
  expect(token().kind == TokenKind::Name, script_fault::kExpectedIdentifier);
  return take();
}

std::size_t Parser::find_in_parentheses(std::string_view symbol) const {
  std::size_t depth = 0;
  for (std::size_t i = position_; i < tokens_.size(); ++i) {
    const Token& candidate = tokens_[i];
    if (candidate.kind == TokenKind::Colon || candidate.kind == TokenKind::LineEnd) break;
    if (candidate.kind != TokenKind::Symbol) continue;
    if (candidate.text == "(") ++depth;
    if (depth == 1 && candidate.text == symbol) return i;
    if (candidate.text == ")" && --depth == 0) break;
  }
  return tokens_.size();
}

void Parser::expect(bool found, const char* otherwise) const {
  if (!found) fail(otherwise);
}

// Where the text could not even be read, that is the fault.
void Parser::fail(const char* text) const {
  if (token().kind == TokenKind::Bad) throw Fault(std::string(token().text));
  throw Fault(text);
}

std::size_t Parser::emit(Instruction instruction, std::size_t operand, std::uint32_t count) {
  program_.steps.push_back({instruction, static_cast<std::uint32_t>(operand), count});
  return program_.steps.size() - 1;
}

std::size_t Parser::add_name(std::string_view name) {
  program_.names.emplace_back(name);
  return program_.names.size() - 1;
}

void Parser::emit_constant(Variant value) {
  program_.constants.push_back(std::move(value));
  emit(Instruction::PushConstant, program_.constants.size() - 1);
}

void Parser::emit_raise(const std::string& text) { emit(Instruction::Raise, add_name(text)); }

void Parser::jump_here(std::size_t step) {
  program_.steps[step].operand = static_cast<std::uint32_t>(program_.steps.size());
}

}  // namespace vantrel::script
