#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "core/variant.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// ASCII helpers: the program's names and keys are ASCII. `trimmed` drops white space at both ends.
std::string trimmed(std::string_view text);
std::string lower(std::string_view text);
std::string upper(std::string_view text);
bool equal_ignoring_case(std::string_view a, std::string_view b);

/// Hash and equality of a container whose keys ignore case.
struct CaseBlindHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const;
};
struct CaseBlindEqual {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const {
    return equal_ignoring_case(a, b);
  }
};

/// The count of `delimiter` characters plus 1; an empty text gives 1.
int FieldCount(std::string_view text, char delimiter);
/// The nth field from 1, not trimmed. Past the last one the empty text, and with `report` a box
/// titled "Text Parse Error".
std::string GetField(std::string_view text, int n, char delimiter, bool report, SysMsg& messages);
std::string StripCharacter(std::string_view text, char character);
std::string ReplaceCharacter(std::string_view text, char character, std::string_view replacement);
/// A Null gives the empty text, anything else its trimmed text.
std::string NullToText(const Variant& value);

/// Reads one statement token by token. Failures show a box titled "Error in script".
class ScriptReader {
 public:
  explicit ScriptReader(SysMsg& messages) : messages_(messages) {}

  void ScriptInit(std::string_view text);
  /// The next run of characters other than blank, comma and parentheses. An empty one shows
  /// `expect` unless that is empty.
  std::string ScriptToken(std::string_view expect);
  /// A token, reported as "Missing Command" when empty, and as "Expected ..." when it differs from
  /// a non-empty `expected`.
  std::string ScriptCommand(std::string_view expected);
  bool ScriptComma(bool report);
  /// Skips blanks, then consumes `character` when it comes next. Otherwise shows `message` unless
  /// it is empty, and gives false.
  bool ScriptChar(char character, std::string_view message);
  /// The text between the next two double quotes. Without an opening one the script message is
  /// "Expected " + what, without a closing one "String Not Delimited"; both use up the whole text.
  std::string ScriptString(std::string_view what = "String");
  /// Shows "Error : " + message with the whole statement in parentheses.
  void ScriptMessage(std::string_view message);

 private:
  SysMsg& messages_;
  std::string text_;
  std::string original_;
};

}  // namespace vantrel
