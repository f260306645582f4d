#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/variant.h"

namespace vantrel {

/// Bits of a field: which characters may be typed, and how its value is stored.
enum FieldFlags : std::int32_t {
  kFieldText = 1,         ///< Letters; stored as a text.
  kFieldDigits = 2,       ///< Digits and ".".
  kFieldSpace = 4,        ///< Blank.
  kFieldPunctuation = 8,  ///< Characters 33 to 47, 58 to 63 and 163.
  kFieldDate = 16,        ///< Stored as a date.
  kFieldBoolean = 32,     ///< Stored as true or false.
  kFieldRequired = 64     ///< Must have a value.
};

enum FieldTypes : std::int32_t {
  kFieldBox = 1,
  kFieldPulldown = 2,
  kFieldCheck = 3,
  kFieldPickDate = 4
};

/// One entry of a pull-down field.
struct FieldChoice {
  std::string Caption;
  std::string Value;  ///< What is stored.
};

/// One field of the editor.
struct FieldDefinition {
  std::string Caption;
  std::string Column;
  std::int32_t FieldType = kFieldBox;
  std::int32_t Flags = 0;
  /// Greatest number that a new record may get in this field; -1 when it gets none.
  std::int32_t MaxNumberForUniqueCodePutInThisFieldWhenRecordAdded = -1;
  std::string Format;  ///< Mask of that number, such as "000"; empty for the plain number.
  std::vector<FieldChoice> Choices;
  bool Numeric = false;  ///< Only a number, or nothing, may be stored.
};

/// True when `character` lies in the range, its ends included.
bool IsInChar(char32_t character, char32_t low, char32_t high);
/// Whether a field with these `flags` takes a typed character; one of code 32 or below always.
bool IsCharValid(char32_t character, std::int32_t flags);
/// What may be typed into a field with these `flags`, in words for the user.
std::string typing_rule(std::int32_t flags);

/// "#month/day/year#" for a date as it is shown, "dd/mm/yyyy"; empty when there is no such day.
std::string MakeUSDate(std::string_view date);
/// A stored date, "yyyy-mm-dd", as it is shown: "dd/mm/yyyy"; empty for anything else.
std::string date_caption(std::string_view stored);
std::string date_caption(int day, int month, int year);

/// The value that a field's text is stored as; a text of its own kind where it does not fit. A date
/// that is none and an empty number are Null.
Variant field_value(const FieldDefinition& field, const std::string& text);
/// A stored value as the field shows it. A pull-down shows only what it has on offer.
std::string field_text(const FieldDefinition& field, const Variant& value);
/// Why a field cannot store the text, empty when it can. The words are those for the user.
std::string field_refusal(const FieldDefinition& field, const std::string& text);
/// The text as it is stored by a numeric field: "12,5" becomes "12.5". A text that is no number,
/// and that of any other field, stays as it is.
std::string canonical_text(const FieldDefinition& field, const std::string& text);

/// A table or query text in its two parts.
struct TableText {
  std::string table;   ///< In the form of a statement, brackets and all.
  std::string filter;  ///< What stands behind its "where", empty without one.
};
TableText split_table_text(std::string_view text);
/// A column's name in brackets.
std::string bracketed(std::string_view name);

}  // namespace vantrel
