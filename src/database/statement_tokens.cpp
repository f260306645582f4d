#include "database/statement_tokens.h"

#include <algorithm>

namespace vantrel {

namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }

bool is_word_start(char c) {
  const auto code = static_cast<unsigned char>(c);
  return (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z') || code == '_' ||
         code >= 0x80;
}

bool is_word_part(char c) { return is_word_start(c) || is_digit(c) || c == '$'; }

bool is_blank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

std::size_t word_length(std::string_view text) {
  const auto end = std::find_if_not(text.begin(), text.end(), is_word_part);
  return static_cast<std::size_t>(end - text.begin());
}

// Length up to and with the end mark, or the whole text.
std::size_t length_through(std::string_view text, std::string_view end, std::size_t from) {
  const std::size_t found = text.find(end, from);
  return found == std::string_view::npos ? text.size() : found + end.size();
}

Token quoted_token(std::string_view text) {
  const char quote = text.front();
  std::size_t at = text.find(quote, 1);
  while (at != std::string_view::npos) {
    if (at + 1 >= text.size() || text[at + 1] != quote) {
      return {TokenKind::Quoted, text.substr(0, at + 1)};
    }
    at = text.find(quote, at + 2);
  }
  return {TokenKind::Broken, text};
}

Token bracket_token(std::string_view text) {
  const std::size_t end = text.find(']');
  if (end == std::string_view::npos) return {TokenKind::Broken, text};
  return {TokenKind::Bracket, text.substr(0, end + 1)};
}

Token word_token(std::string_view text) {
  std::size_t length = word_length(text);
  TokenKind kind = TokenKind::Word;
  if (!is_word_start(text.front())) return {kind, text.substr(0, length)};
  while (length + 1 < text.size() && text[length] == ':' && is_word_start(text[length + 1])) {
    length += 1 + word_length(text.substr(length + 1));
    kind = TokenKind::Joined;
  }
  return {kind, text.substr(0, length)};
}

Token blank_token(std::string_view text) {
  const auto end = std::find_if_not(text.begin(), text.end(), is_blank);
  return {TokenKind::Space, text.substr(0, static_cast<std::size_t>(end - text.begin()))};
}

Token next_token(std::string_view text) {
  const char c = text.front();
  if (is_blank(c)) return blank_token(text);
  if (c == '\'' || c == '"' || c == '`') return quoted_token(text);
  if (c == '[') return bracket_token(text);
  if (is_word_start(c) || is_digit(c)) return word_token(text);
  if (text.starts_with("--")) {
    return {TokenKind::Space, text.substr(0, length_through(text, "\n", 2))};
  }
  if (text.starts_with("/*")) {
    return {TokenKind::Space, text.substr(0, length_through(text, "*/", 2))};
  }
  DateParts date;
  if (const std::size_t length = read_date(text, date)) {
    return {TokenKind::Date, text.substr(0, length)};
  }
  return {TokenKind::Symbol, text.substr(0, 1)};
}

// Reads `least` to `most` digits at `at` and moves it behind them.
bool read_digits(std::string_view text, std::size_t& at, std::size_t least, std::size_t most,
                 int& value) {
  const std::size_t from = at;
  value = 0;
  while (at < text.size() && at - from < most && is_digit(text[at])) {
    value = value * 10 + (text[at++] - '0');
  }
  return at - from >= least;
}

bool read_mark(std::string_view text, std::size_t& at, char mark) {
  return at < text.size() && text[at++] == mark;
}

int days_of_month(int year, int month) {
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  return kDays[month - 1] + (month == 2 && leap ? 1 : 0);
}

}  // namespace

std::vector<Token> statement_tokens(std::string_view statement) {
  std::vector<Token> tokens;
  while (!statement.empty()) {
    tokens.push_back(next_token(statement));
    statement.remove_prefix(tokens.back().text.size());
  }
  return tokens;
}

std::size_t read_date(std::string_view text, DateParts& parts) {
  std::size_t at = 0;
  const bool shaped = read_mark(text, at, '#') && read_digits(text, at, 1, 2, parts.month) &&
                      read_mark(text, at, '/') && read_digits(text, at, 1, 2, parts.day) &&
                      read_mark(text, at, '/') && read_digits(text, at, 4, 4, parts.year) &&
                      read_mark(text, at, '#');
  const bool valid = shaped && parts.month >= 1 && parts.month <= 12 && parts.day >= 1 &&
                     parts.day <= days_of_month(parts.year, parts.month);
  return valid ? at : 0;
}

}  // namespace vantrel
