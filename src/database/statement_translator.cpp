#include "database/statement_translator.h"

#include <algorithm>
#include <array>
#include <vector>

#include "core/text_parsing.h"
#include "database/statement_tokens.h"

namespace vantrel {

namespace {

bool is_word(const Token* token, std::string_view word) {
  return token && token->kind == TokenKind::Word && equal_ignoring_case(token->text, word);
}

bool is_symbol(const Token* token, char symbol) {
  return token && token->kind == TokenKind::Symbol && token->text.front() == symbol;
}

std::string bracketed(std::string_view name) { return '[' + std::string(name) + ']'; }

std::string digits(int value, std::size_t width) {
  const std::string text = std::to_string(value);
  return std::string(width - std::min(width, text.size()), '0') + text;
}

std::string date_text(std::string_view token) {
  DateParts date;
  read_date(token, date);
  return "'" + digits(date.year, 4) + "-" + digits(date.month, 2) + "-" + digits(date.day, 2) + "'";
}

// True when an operand can end with this token, so that "desc" behind it gives a direction.
bool ends_operand(const Token* token) {
  static constexpr std::array<std::string_view, 18> kOpen = {
      "by",   "case", "when",    "then",     "else",   "and",    "or",   "not", "in",
      "like", "glob", "between", "distinct", "select", "escape", "from", "on",  "is"};
  if (!token) return false;
  switch (token->kind) {
    case TokenKind::Word:
      return std::none_of(kOpen.begin(), kOpen.end(),
                          [&](std::string_view word) { return is_word(token, word); });
    case TokenKind::Symbol:
      return token->text == ")" || token->text == "?";
    default:
      return true;
  }
}

// Walks the tokens of a statement and writes the store's text. Keeps, for each open parenthesis,
// whether the walk is inside an "order by".
class Writer {
 public:
  explicit Writer(const std::vector<Token>& tokens) : tokens_(tokens) {}

  std::string write(std::size_t from) {
    std::string sql;
    for (std::size_t i = from; i < tokens_.size(); ++i) {
      const Token& token = tokens_[i];
      sql += text_of(token, i);
      if (token.kind == TokenKind::Space) continue;
      follow(token);
      previous_ = &token;
    }
    return sql;
  }

 private:
  std::string text_of(const Token& token, std::size_t at) const {
    if (token.kind == TokenKind::Date) return date_text(token.text);
    if (token.kind == TokenKind::Joined) return bracketed(token.text);
    if (token.kind == TokenKind::Word) return word_text(token, at);
    return std::string(token.text);
  }

  std::string word_text(const Token& token, std::size_t at) const {
    const bool qualified = is_symbol(previous_, '.');
    const bool parameter =
        is_symbol(previous_, ':') || is_symbol(previous_, '@') || is_symbol(previous_, '$');
    if (!parameter && is_column_name(token, at)) return bracketed(token.text);
    if (qualified || parameter) return std::string(token.text);
    if (is_word(&token, "yes") || is_word(&token, "true")) return "1";
    if (is_word(&token, "no") || is_word(&token, "false")) return "0";
    return std::string(token.text);
  }

  bool is_column_name(const Token& token, std::size_t at) const {
    if (is_word(&token, "index")) return true;
    if (is_word(&token, "group")) return !is_word(next(at), "by");
    if (is_word(&token, "desc")) return !order_by_.back() || !ends_operand(previous_);
    return false;
  }

  const Token* next(std::size_t at) const {
    while (++at < tokens_.size()) {
      if (tokens_[at].kind != TokenKind::Space) return &tokens_[at];
    }
    return nullptr;
  }

  void follow(const Token& token) {
    if (is_symbol(&token, '(')) {
      order_by_.push_back(false);
    } else if (is_symbol(&token, ')')) {
      if (order_by_.size() > 1) order_by_.pop_back();
    } else if (is_word(&token, "by")) {
      order_by_.back() = is_word(previous_, "order");
    } else if (is_word(&token, "select") || is_word(&token, "limit") || is_symbol(&token, ';')) {
      order_by_.back() = false;
    }
  }

  const std::vector<Token>& tokens_;
  const Token* previous_ = nullptr;
  std::vector<bool> order_by_ = {false};
};

// Reads the fixed words of a cross-database insert, skipping blanks.
class Reader {
 public:
  explicit Reader(const std::vector<Token>& tokens) : tokens_(tokens) { skip(); }

  bool word(std::string_view expected) { return take(is_word(current(), expected)); }
  bool symbol(char expected) { return take(is_symbol(current(), expected)); }

  bool name(std::string& name) {
    const Token* token = current();
    if (!token) return false;
    switch (token->kind) {
      case TokenKind::Word:
      case TokenKind::Joined:
        name = token->text;
        break;
      case TokenKind::Bracket:
        name = token->text.substr(1, token->text.size() - 2);
        break;
      default:
        return false;
    }
    return take(true);
  }

  bool text(std::string& text) {
    const Token* token = current();
    if (!token || token->kind != TokenKind::Quoted || token->text.front() != '\'') return false;
    text.clear();
    for (std::size_t i = 1; i + 1 < token->text.size(); ++i) {
      text += token->text[i];
      if (token->text[i] == '\'') ++i;  // two quotes stand for one
    }
    return take(true);
  }

  bool at_end() const { return at_ >= tokens_.size(); }
  std::size_t position() const { return at_; }

 private:
  const Token* current() const { return at_end() ? nullptr : &tokens_[at_]; }

  bool take(bool fits) {
    if (!fits) return false;
    ++at_;
    skip();
    return true;
  }

  void skip() {
    while (!at_end() && tokens_[at_].kind == TokenKind::Space) ++at_;
  }

  const std::vector<Token>& tokens_;
  std::size_t at_ = 0;
};

std::optional<CrossInsert> read_cross_insert(const std::vector<Token>& tokens) {
  CrossInsert insert;
  Reader reader(tokens);
  const bool matches = reader.word("insert") && reader.word("into") && reader.name(insert.target) &&
                       reader.word("in") && reader.text(insert.path) && reader.word("select") &&
                       reader.symbol('*') && reader.word("from") && reader.name(insert.source);
  if (!matches) return std::nullopt;
  if (reader.word("where")) {
    // Without its condition the statement is cut short, and must not copy every row.
    if (reader.at_end()) return std::nullopt;
    insert.where = Writer(tokens).write(reader.position());
    return insert;
  }
  while (reader.symbol(';')) continue;
  if (!reader.at_end()) return std::nullopt;
  return insert;
}

}  // namespace

Translation translate_statement(std::string_view statement) {
  const std::vector<Token> tokens = statement_tokens(statement);
  return {Writer(tokens).write(0), read_cross_insert(tokens)};
}

}  // namespace vantrel
