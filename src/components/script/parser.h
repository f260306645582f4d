#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "components/script/lexer.h"
#include "components/script/program.h"

namespace vantrel::script {

/// Turns a statement, or several behind one another, into a Program. The whole text is read before
/// anything runs: a Fault with the text of VBScript's compiler leaves no half of it executed.
class Parser {
 public:
  /// `depth` bounds how far expressions and If statements stand inside one another.
  Parser(std::string_view source, std::size_t depth);

  Program run();

 private:
  // Statements.
  void statements();
  void statement();
  void if_statement();
  void branch();
  void call_statement();
  void dim_statement();
  void let_statement();
  void name_statement();
  void member_statement(std::string_view object);
  void assignment(std::string_view name);
  void index_assignment();
  std::uint32_t statement_arguments();
  bool at_separator() const;
  bool at_statement_end() const;
  bool at_indexed_equals() const;

  // Expressions. Each leaves one value on the stack.
  void expression(int least_precedence = 0);
  void prefixed_operand(int least_precedence);
  void operand();
  void name_operand();
  void call(std::string_view name, std::uint32_t count);
  void call_member(std::string_view object, std::string_view member, std::uint32_t count);
  /// Arguments in parentheses, if there are any; gives their number.
  std::uint32_t arguments();

  // Tokens.
  const Token& token() const { return tokens_[position_]; }
  std::string_view take() { return tokens_[position_++].text; }
  bool at_symbol(std::string_view symbol) const;
  bool at_word(std::string_view word) const;
  bool take_symbol(std::string_view symbol);
  bool take_word(std::string_view word);
  /// A name that is no reserved word; otherwise fails with `text`.
  std::string_view take_identifier(const char* text);
  std::string_view take_member();
  /// From the parenthesis that comes next: where `symbol` stands directly inside it (")" for its
  /// end), or the number of tokens.
  std::size_t find_in_parentheses(std::string_view symbol) const;
  void expect(bool found, const char* otherwise) const;
  [[noreturn]] void fail(const char* text) const;

  // Output.
  std::size_t emit(Instruction instruction, std::size_t operand = 0, std::uint32_t count = 0);
  /// The index of the name in the program.
  std::size_t add_name(std::string_view name);
  void emit_constant(Variant value);
  void emit_raise(const std::string& text);
  /// Makes the jump at `step` lead to the next step.
  void jump_here(std::size_t step);

  std::vector<Token> tokens_;
  std::size_t position_ = 0;
  std::size_t depth_left_;
  std::size_t open_ifs_ = 0;
  std::set<std::string> declared_;
  Program program_;
};

}  // namespace vantrel::script
