#include "components/script/parser.h"

#include <utility>

#include "components/script/builtins.h"
#include "components/script/nesting.h"
#include "components/script/script_faults.h"
#include "core/text_parsing.h"

namespace vantrel::script {

Parser::Parser(std::string_view source, std::size_t depth)
    : tokens_(tokenize(source)), depth_left_(depth) {}

Program Parser::run() {
  statements();
  return std::move(program_);
}

void Parser::statements() {
  while (token().kind != TokenKind::End) {
    if (at_separator()) {
      take();
    } else {
      statement();
      expect(at_statement_end(), script_fault::kExpectedEndOfStatement);
    }
  }
}

bool Parser::at_separator() const {
  return token().kind == TokenKind::Colon || token().kind == TokenKind::LineEnd;
}

bool Parser::at_statement_end() const {
  if (at_separator() || token().kind == TokenKind::End) return true;
  return open_ifs_ > 0 && (at_word("else") || at_word("end"));
}

void Parser::statement() {
  expect(token().kind == TokenKind::Name, script_fault::kExpectedStatement);
  if (at_word("if")) {
    if_statement();
  } else if (at_word("call")) {
    call_statement();
  } else if (at_word("dim")) {
    dim_statement();
  } else if (at_word("let")) {
    let_statement();
  } else {
    name_statement();
  }
}

void Parser::if_statement() {
  const Nesting nesting(depth_left_);
  take();
  expression();
  expect(take_word("then"), script_fault::kExpectedThen);
  // Without a branch on its line this would be the head of a block.
  if (token().kind == TokenKind::End || token().kind == TokenKind::LineEnd) {
    fail(script_fault::kExpectedEnd);
  }
  ++open_ifs_;
  const std::size_t when_false = emit(Instruction::JumpUnless);
  branch();
  if (take_word("else")) {
    const std::size_t when_done = emit(Instruction::Jump);
    jump_here(when_false);
    branch();
    jump_here(when_done);
  } else {
    jump_here(when_false);
  }
  --open_ifs_;
  if (take_word("end")) expect(take_word("if"), script_fault::kExpectedIf);
}

void Parser::branch() {
  while (token().kind == TokenKind::Colon || !at_statement_end()) {
    if (!at_separator()) {
      statement();
      expect(at_statement_end(), script_fault::kExpectedEndOfStatement);
    } else {
      take();
    }
  }
}

void Parser::call_statement() {
  take();
  const std::string_view name = take_identifier(script_fault::kExpectedIdentifier);
  if (take_symbol(".")) {
    const std::string_view member = take_member();
    call_member(name, member, arguments());
  } else {
    call(name, arguments());
  }
  emit(Instruction::Drop);
}

void Parser::dim_statement() {
  take();
  do {
    const std::string_view name = take_identifier(script_fault::kExpectedIdentifier);
    const bool fresh = declared_.insert(lower(name)).second;
    if (!fresh || find_builtin(name)) fail(script_fault::kNameRedefined);
    emit(Instruction::Declare, add_name(name));
  } while (take_symbol(","));
}

void Parser::let_statement() {
  take();
  const std::string_view name = take_identifier(script_fault::kExpectedIdentifier);
  expect(take_symbol("="), script_fault::kExpectedEquals);
  assignment(name);
}

void Parser::name_statement() {
  const std::string_view name = take_identifier(script_fault::kSyntaxError);
  if (take_symbol("=")) {
    assignment(name);
  } else if (take_symbol(".")) {
    member_statement(name);
  } else if (at_indexed_equals()) {
    index_assignment();
    emit_raise(about(fault_text::kTypeMismatch, name));
  } else {
    call(name, statement_arguments());
    emit(Instruction::Drop);
  }
}

void Parser::member_statement(std::string_view object) {
  const std::string_view member = take_member();
  if (at_symbol("=") || at_indexed_equals()) {
    index_assignment();
    const std::size_t first = add_name(object);
    add_name(member);
    emit(Instruction::Put, first);
  } else {
    call_member(object, member, statement_arguments());
    emit(Instruction::Drop);
  }
}

void Parser::assignment(std::string_view name) {
  expression();
  if (find_builtin(name)) {
    emit_raise(about(script_fault::kIllegalAssignment, name));
  } else {
    emit(Instruction::Store, add_name(name));
  }
}

// Nothing that a script can name takes an index or lets a member be set; the values are worked out
// all the same, because their own faults come first.
void Parser::index_assignment() {
  arguments();
  expect(take_symbol("="), script_fault::kExpectedEquals);
  expression();
}

bool Parser::at_indexed_equals() const {
  if (!at_symbol("(")) return false;
  const std::size_t closing = find_in_parentheses(")");
  if (closing == tokens_.size()) return false;
  const Token& next = tokens_[closing + 1];
  return next.kind == TokenKind::Symbol && next.text == "=";
}

// A statement's arguments stand without parentheses; a pair around the first one belongs to its
// expression.
std::uint32_t Parser::statement_arguments() {
  if (at_statement_end()) return 0;
  if (at_symbol("(")) {
    if (find_in_parentheses(",") != tokens_.size()) fail(script_fault::kParenthesesInSubCall);
    if (find_in_parentheses(")") == position_ + 1) return arguments();
  }
  std::uint32_t count = 0;
  do {
    expression();
    ++count;
  } while (take_symbol(","));
  return count;
}

}  // namespace vantrel::script
