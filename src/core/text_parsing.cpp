#include "core/text_parsing.h"

#include <algorithm>

#include "core/number_text.h"

namespace vantrel {
namespace {

constexpr std::string_view kWhiteSpace = " \t\r\n\v\f";
constexpr std::string_view kNoToken = " ,()";

char lower_char(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
char upper_char(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

}  // namespace

std::string trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(kWhiteSpace);
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(kWhiteSpace) - first + 1));
}

std::string lower(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), lower_char);
  return result;
}

std::string upper(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), upper_char);
  return result;
}

bool equal_ignoring_case(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           return lower_char(x) == lower_char(y);
         });
}

std::size_t CaseBlindHash::operator()(std::string_view text) const {
  std::size_t hash = 14695981039346656037ULL;  // FNV-1a
  for (const char c : text) {
    hash = (hash ^ static_cast<unsigned char>(lower_char(c))) * 1099511628211ULL;
  }
  return hash;
}

int FieldCount(std::string_view text, char delimiter) {
  return static_cast<int>(std::count(text.begin(), text.end(), delimiter)) + 1;
}

std::string GetField(std::string_view text, int n, char delimiter, bool report, SysMsg& messages) {
  std::string_view rest = text;
  for (int field = 1; n >= 1; ++field) {
    const auto end = rest.find(delimiter);
    if (field == n) return std::string(rest.substr(0, end));
    if (end == std::string_view::npos) break;
    rest.remove_prefix(end + 1);
  }
  if (report) {
    messages.messageBox("Text Parse Error", "Could not find field " + general_text(n) +
                                                " in string '" + std::string(text) +
                                                "' with delimiter '" + delimiter + "'");
  }
  return {};
}

std::string StripCharacter(std::string_view text, char character) {
  return ReplaceCharacter(text, character, "");
}

std::string ReplaceCharacter(std::string_view text, char character, std::string_view replacement) {
  std::string result;
  for (const char c : text) {
    if (c == character) {
      result += replacement;
    } else {
      result += c;
    }
  }
  return result;
}

std::string NullToText(const Variant& value) {
  return value.is_null() ? std::string() : trimmed(to_text(value));
}

void ScriptReader::ScriptInit(std::string_view text) {
  text_ = text;
  original_ = text;
}

std::string ScriptReader::ScriptToken(std::string_view expect) {
  const auto start = std::min(text_.find_first_not_of(kNoToken), text_.size());
  const auto end = std::min(text_.find_first_of(kNoToken, start), text_.size());
  std::string token = text_.substr(start, end - start);
  text_.erase(0, end);
  if (token.empty() && !expect.empty()) ScriptMessage(expect);
  return token;
}

std::string ScriptReader::ScriptCommand(std::string_view expected) {
  std::string token = ScriptToken("Missing Command");
  if (!expected.empty() && token != expected) ScriptMessage("Expected " + std::string(expected));
  return token;
}

bool ScriptReader::ScriptComma(bool report) {
  return ScriptChar(',', report ? "Expected comma" : "");
}

bool ScriptReader::ScriptChar(char character, std::string_view message) {
  text_.erase(0, text_.find_first_not_of(' '));
  if (!text_.empty() && text_.front() == character) {
    text_.erase(0, 1);
    return true;
  }
  if (!message.empty()) ScriptMessage(message);
  return false;
}

std::string ScriptReader::ScriptString(std::string_view what) {
  const auto open = text_.find('"');
  if (open == std::string::npos) {
    text_.clear();
    ScriptMessage("Expected " + std::string(what));
    return {};
  }
  const auto close = text_.find('"', open + 1);
  if (close == std::string::npos) {
    text_.clear();
    ScriptMessage("String Not Delimited");
    return {};
  }
  std::string result = text_.substr(open + 1, close - open - 1);
  text_.erase(0, close + 1);
  return result;
}

void ScriptReader::ScriptMessage(std::string_view message) {
  std::string text = "Error : " + std::string(message);
  if (!original_.empty()) text += " (" + original_ + ")";
  messages_.messageBox("Error in script", text);
}

}  // namespace vantrel
