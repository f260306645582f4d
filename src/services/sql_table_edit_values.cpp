#include "services/sql_table_edit_values.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/number_text.h"
#include "core/text_parsing.h"
#include "database/statement_tokens.h"

namespace vantrel {

namespace {

/// Characters that a bit of the flags lets through.
struct CharacterRange {
  std::int32_t bit;
  char32_t low, high;
};

constexpr CharacterRange kRanges[] = {
    {kFieldText, 'a', 'z'},      {kFieldText, 'A', 'Z'},        {kFieldDigits, '0', '9'},
    {kFieldDigits, '.', '.'},    {kFieldSpace, ' ', ' '},       {kFieldPunctuation, 33, 47},
    {kFieldPunctuation, 58, 63}, {kFieldPunctuation, 163, 163},
};

/// The same in words.
constexpr std::pair<std::int32_t, const char*> kTypedWords[] = {
    {kFieldText, "letters a to z"},
    {kFieldDigits, "digits and \".\""},
    {kFieldSpace, "blanks"},
    {kFieldPunctuation, "the signs ! \" # $ % & ' ( ) * + , - . / : ; < = > ? \xC2\xA3"},
};

constexpr std::string_view kFalseWords[] = {"no", "n", "f", "false"};

std::string masked(int number, std::string_view mask) {
  return format_mask(static_cast<double>(number), mask);
}

/// The whole number that the text spells with digits alone.
std::optional<int> whole_number(std::string_view text) {
  if (text.empty() || text.size() > 4) return std::nullopt;
  int number = 0;
  for (const char digit : text) {
    if (digit < '0' || digit > '9') return std::nullopt;
    number = 10 * number + (digit - '0');
  }
  return number;
}

/// Three whole numbers with `separator` between them.
std::optional<std::vector<int>> three_numbers(std::string_view text, char separator) {
  std::vector<int> numbers;
  for (int part = 0; part < 3; ++part) {
    const std::size_t end = part < 2 ? text.find(separator) : text.size();
    if (end == std::string_view::npos) return std::nullopt;
    const std::optional<int> number = whole_number(text.substr(0, end));
    if (!number) return std::nullopt;
    numbers.push_back(*number);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return numbers;
}

Variant date_value(std::string_view text) {
  const std::string date = MakeUSDate(text);
  DateParts parts;
  if (date.empty() || read_date(date, parts) == 0) return Null{};
  return masked(parts.year, "0000") + "-" + masked(parts.month, "00") + "-" +
         masked(parts.day, "00");
}

Variant number_value_of(const std::string& text) {
  if (text.empty()) return Null{};
  const std::optional<double> number = parse_number(text);
  return number ? Variant(*number) : Variant(text);
}

/// A data statement takes the place of a number.
bool is_statement(const std::string& text) { return trimmed(text).starts_with('$'); }

bool is_choice(const FieldDefinition& field, const std::string& text) {
  return std::ranges::find(field.Choices, text, &FieldChoice::Value) != field.Choices.end();
}

}  // namespace

bool IsInChar(char32_t character, char32_t low, char32_t high) {
  return character >= low && character <= high;
}

bool IsCharValid(char32_t character, std::int32_t flags) {
  if (character <= 32) return true;
  return std::ranges::any_of(kRanges, [&](const CharacterRange& range) {
    return (flags & range.bit) != 0 && IsInChar(character, range.low, range.high);
  });
}

std::string typing_rule(std::int32_t flags) {
  std::string rule;
  for (const auto& [bit, words] : kTypedWords) {
    if ((flags & bit) != 0) rule += (rule.empty() ? "" : ", ") + std::string(words);
  }
  return rule.empty() ? "Nothing can be typed here" : "Can be typed here: " + rule;
}

std::string MakeUSDate(std::string_view date) {
  constexpr std::size_t kYearDigits = 4;
  const auto parts = three_numbers(date, '/');
  if (!parts || date.size() - date.rfind('/') != kYearDigits + 1) return {};
  const std::string us_date = "#" + general_text((*parts)[1]) + "/" + general_text((*parts)[0]) +
                              "/" + masked((*parts)[2], "0000") + "#";
  DateParts known;
  return read_date(us_date, known) == us_date.size() ? us_date : std::string();
}

std::string date_caption(int day, int month, int year) {
  return masked(day, "00") + "/" + masked(month, "00") + "/" + masked(year, "0000");
}

std::string date_caption(std::string_view stored) {
  const auto parts = three_numbers(stored.substr(0, 10), '-');
  return parts ? date_caption((*parts)[2], (*parts)[1], (*parts)[0]) : std::string();
}

Variant field_value(const FieldDefinition& field, const std::string& text) {
  if ((field.Flags & kFieldText) != 0) return text;
  if ((field.Flags & kFieldBoolean) != 0) {
    return std::ranges::find(kFalseWords, lower(text)) == std::end(kFalseWords);
  }
  if ((field.Flags & kFieldDate) != 0) return date_value(text);
  if (field.FieldType == kFieldPulldown) return text;
  return number_value_of(text);
}

std::string field_text(const FieldDefinition& field, const Variant& value) {
  if (value.is_null() || value.is_array()) return {};
  const std::string text = to_text(value);
  if (field.FieldType == kFieldPulldown && !is_choice(field, text)) return {};
  return (field.Flags & kFieldDate) != 0 ? date_caption(text) : text;
}

std::string field_refusal(const FieldDefinition& field, const std::string& text) {
  const auto words = [&](const std::string& rule) {
    return "Field '" + field.Caption + "' " + rule + ", Changes have not been saved";
  };
  if (text.empty()) return (field.Flags & kFieldRequired) != 0 ? words("Must have a value") : "";
  if (field.FieldType == kFieldPulldown && !is_choice(field, text)) {
    return words("Must be one of its choices");
  }
  if (field.Numeric && !is_statement(text) && !typed_number(text)) {
    return words("Must be a number");
  }
  if ((field.Flags & (kFieldText | kFieldDate)) == kFieldDate && MakeUSDate(text).empty()) {
    return words("Must be a date");
  }
  return {};
}

std::string canonical_text(const FieldDefinition& field, const std::string& text) {
  if (!field.Numeric || parse_number(text)) return text;
  const std::optional<double> number = typed_number(text);
  return number ? general_text(*number) : text;
}

TableText split_table_text(std::string_view text) {
  std::size_t at = 0;
  for (const Token& token : statement_tokens(text)) {
    if (token.kind == TokenKind::Word && lower(token.text) == "where") {
      return {trimmed(text.substr(0, at)), trimmed(text.substr(at + token.text.size()))};
    }
    at += token.text.size();
  }
  return {trimmed(text), {}};
}

std::string bracketed(std::string_view name) { return "[" + std::string(name) + "]"; }

}  // namespace vantrel
