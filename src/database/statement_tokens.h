#pragma once

#include <string_view>
#include <vector>

namespace vantrel {

enum class TokenKind {
  Space,    ///< Blanks and comments.
  Word,     ///< A name, keyword or number.
  Joined,   ///< Names joined by colons.
  Bracket,  ///< [name]
  Quoted,   ///< Between single quotes, double quotes or backquotes.
  Date,     ///< #m/d/yyyy#
  Symbol,   ///< Any other single character.
  Broken    ///< From an opening quote or bracket without its end to the end of the text.
};

/// A piece of a statement. The pieces of a statement, joined, are the statement.
struct Token {
  TokenKind kind;
  std::string_view text;
};

std::vector<Token> statement_tokens(std::string_view statement);

/// Parts of a date.
struct DateParts {
  int year = 0;
  int month = 0;  ///< 1 to 12
  int day = 0;    ///< 1 to 31
};

/// Reads "#m/d/yyyy#" at the start of the text. Gives its length, 0 when there is none.
std::size_t read_date(std::string_view text, DateParts& parts);

}  // namespace vantrel
