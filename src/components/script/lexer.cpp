#include "components/script/lexer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "components/script/script_faults.h"
#include "core/fault.h"
#include "core/number_text.h"
#include "core/text_parsing.h"

namespace vantrel::script {

namespace {

constexpr std::size_t kLongestName = 255;
constexpr std::string_view kDecimalDigits = "0123456789";
constexpr std::string_view kHexadecimalDigits = "0123456789ABCDEFabcdef";
constexpr std::string_view kOctalDigits = "01234567";
constexpr std::array<std::string_view, 3> kLongSymbols = {"<>", "<=", ">="};
constexpr std::string_view kSymbols = "(),.=<>+-*/\\^&";

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_letter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool is_name_character(char c) { return is_letter(c) || is_digit(c) || c == '_'; }

class Lexer {
 public:
  explicit Lexer(std::string_view source) : rest_(source) {}

  std::vector<Token> run() {
    while (tokens_.empty() || !finished()) next();
    return std::move(tokens_);
  }

 private:
  bool finished() const {
    return tokens_.back().kind == TokenKind::End || tokens_.back().kind == TokenKind::Bad;
  }
  char at(std::size_t index) const { return index < rest_.size() ? rest_[index] : '\0'; }
  std::size_t digits(std::size_t from, std::string_view set) const {
    return std::min(rest_.find_first_not_of(set, from), rest_.size()) - from;
  }
  void add(TokenKind kind, std::size_t length) {
    tokens_.push_back({kind, rest_.substr(0, length)});
    rest_.remove_prefix(length);
  }
  void add_bad(const char* why) { tokens_.push_back({TokenKind::Bad, why}); }

  void next();
  void name();
  void number();
  void text();
  bool based_number();
  void symbol();
  void skip_comment() { rest_.remove_prefix(std::min(rest_.find_first_of("\r\n"), rest_.size())); }

  std::string_view rest_;
  std::vector<Token> tokens_;
};

void Lexer::next() {
  rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t"), rest_.size()));
  const char c = at(0);
  if (rest_.empty()) {
    add(TokenKind::End, 0);
  } else if (c == '\'') {
    skip_comment();
  } else if (c == '\r' || c == '\n') {
    add(TokenKind::LineEnd, 1);
  } else if (c == ':') {
    add(TokenKind::Colon, 1);
  } else if (c == '"') {
    text();
  } else if (is_letter(c)) {
    name();
  } else if (is_digit(c) || (c == '.' && is_digit(at(1)))) {
    number();
  } else if (c != '&' || !based_number()) {
    symbol();
  }
}

void Lexer::name() {
  std::size_t length = 1;
  while (is_name_character(at(length))) ++length;
  const bool member =
      !tokens_.empty() && tokens_.back().kind == TokenKind::Symbol && tokens_.back().text == ".";
  if (length > kLongestName) {
    add_bad(script_fault::kIdentifierTooLong);
  } else if (!member && equal_ignoring_case(rest_.substr(0, length), "rem")) {
    skip_comment();
  } else {
    add(TokenKind::Name, length);
  }
}

void Lexer::number() {
  std::size_t length = digits(0, kDecimalDigits);
  if (at(length) == '.') length += 1 + digits(length + 1, kDecimalDigits);
  if (at(length) == 'e' || at(length) == 'E') {
    const std::size_t sign = at(length + 1) == '+' || at(length + 1) == '-' ? 1 : 0;
    const std::size_t exponent = digits(length + 1 + sign, kDecimalDigits);
    if (exponent == 0) return add_bad(script_fault::kInvalidNumber);
    length += 1 + sign + exponent;
  }
  add(TokenKind::Number, length);
}

void Lexer::text() {
  std::size_t end = 1;
  while (end < rest_.size() && rest_[end] != '\r' && rest_[end] != '\n') {
    if (rest_[end] != '"') {
      ++end;
    } else if (at(end + 1) == '"') {
      end += 2;
    } else {
      rest_.remove_prefix(1);
      add(TokenKind::Text, end - 1);
      return rest_.remove_prefix(1);
    }
  }
  add_bad(script_fault::kUnterminatedString);
}

// "&" in front of "H1F" starts a number, in front of a name like "height" it joins texts.
bool Lexer::based_number() {
  const bool hexadecimal = at(1) == 'h' || at(1) == 'H';
  const bool octal = at(1) == 'o' || at(1) == 'O';
  if (!hexadecimal && !octal) return false;
  const std::size_t count = digits(2, hexadecimal ? kHexadecimalDigits : kOctalDigits);
  if (count == 0 || is_name_character(at(2 + count))) return false;
  rest_.remove_prefix(2);
  const bool marked_long = at(count) == '&';
  add(hexadecimal ? TokenKind::Hexadecimal : TokenKind::Octal, count + (marked_long ? 1 : 0));
  return true;
}

void Lexer::symbol() {
  const auto two = rest_.substr(0, 2);
  if (std::find(kLongSymbols.begin(), kLongSymbols.end(), two) != kLongSymbols.end()) {
    add(TokenKind::Symbol, 2);
  } else if (kSymbols.find(rest_.front()) != std::string_view::npos) {
    add(TokenKind::Symbol, 1);
  } else {
    add_bad(script_fault::kInvalidCharacter);
  }
}

Variant decimal_value(std::string_view text) {
  const std::optional<double> value = parse_number(text);
  if (!value || !std::isfinite(*value)) throw Fault(fault_text::kOverflow);
  const bool whole = text.find_first_not_of(kDecimalDigits) == std::string_view::npos;
  if (whole && *value <= std::numeric_limits<std::int16_t>::max()) {
    return static_cast<std::int16_t>(*value);
  }
  if (whole && *value <= std::numeric_limits<std::int32_t>::max()) {
    return static_cast<std::int32_t>(*value);
  }
  return *value;
}

std::uint64_t digit_value(char c) {
  return static_cast<std::uint64_t>(is_digit(c) ? c - '0' : (c | 0x20) - 'a' + 10);
}

Variant based_value(std::string_view text, std::uint64_t base) {
  const bool marked_long = text.back() == '&';
  if (marked_long) text.remove_suffix(1);
  std::uint64_t value = 0;
  for (const char c : text) {
    value = value * base + digit_value(c);
    if (value > std::numeric_limits<std::uint32_t>::max())
      throw Fault(script_fault::kInvalidNumber);
  }
  // The bits are taken as they stand: &HFFFF is the Integer -1, &HFFFF& the Long 65535.
  if (!marked_long && value <= std::numeric_limits<std::uint16_t>::max()) {
    return static_cast<std::int16_t>(value);
  }
  return static_cast<std::int32_t>(value);
}

Variant text_value(std::string_view text) {
  std::string value;
  value.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    value += text[i];
    if (text[i] == '"') ++i;
  }
  return value;
}

}  // namespace

std::vector<Token> tokenize(std::string_view source) { return Lexer(source).run(); }

Variant literal_value(const Token& token) {
  switch (token.kind) {
    case TokenKind::Hexadecimal:
      return based_value(token.text, 16);
    case TokenKind::Octal:
      return based_value(token.text, 8);
    case TokenKind::Text:
      return text_value(token.text);
    default:
      return decimal_value(token.text);
  }
}

}  // namespace vantrel::script
