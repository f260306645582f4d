#pragma once

#include <string_view>
#include <vector>

#include "core/variant.h"

namespace vantrel::script {

enum class TokenKind { Number, Hexadecimal, Octal, Text, Name, Symbol, Colon, LineEnd, End, Bad };

/// A piece of a statement. `text` is a view into the statement: the digits of a number, the
/// characters between the quotes of a text, a name, an operator. For Bad it is the fault's text.
struct Token {
  TokenKind kind;
  std::string_view text;
};

/// The tokens of `source` up to an End, or up to a Bad that tells why reading stopped. The fault is
/// raised only when the parser gets there, so that an earlier mistake is reported first.
std::vector<Token> tokenize(std::string_view source);

/// The value of a Number, Hexadecimal, Octal or Text token. Whole decimal numbers are Integer, Long
/// or Double, the narrowest that holds them; hexadecimal and octal ones are Integer up to 16 bits
/// unless an "&" follows, else Long. Raises a Fault for a number that fits nothing.
Variant literal_value(const Token& token);

}  // namespace vantrel::script
