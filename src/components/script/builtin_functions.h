#pragma once

#include <span>

#include "components/script/script_limits.h"
#include "core/variant.h"

/// The built-in functions, each named as in VBScript. The caller has checked the number of the
/// arguments and answered a Null first argument where a function passes it on.
namespace vantrel::script::builtin {

using Arguments = std::span<const Variant>;

// Numbers. Abs, Int, Fix and Round keep the type of a number and give Double for a text.
Variant Abs(Arguments args, Budget& budget);
Variant Sgn(Arguments args, Budget& budget);
Variant Sqr(Arguments args, Budget& budget);
/// Down, also below zero.
Variant Int(Arguments args, Budget& budget);
/// Toward zero.
Variant Fix(Arguments args, Budget& budget);
/// To so many decimals (0 to 22), half to even.
Variant Round(Arguments args, Budget& budget);
Variant Exp(Arguments args, Budget& budget);
Variant Log(Arguments args, Budget& budget);
Variant Sin(Arguments args, Budget& budget);
Variant Cos(Arguments args, Budget& budget);
Variant Tan(Arguments args, Budget& budget);
Variant Atn(Arguments args, Budget& budget);

// Conversions and questions.
Variant CInt(Arguments args, Budget& budget);
Variant CLng(Arguments args, Budget& budget);
Variant CSng(Arguments args, Budget& budget);
Variant CDbl(Arguments args, Budget& budget);
Variant CStr(Arguments args, Budget& budget);
Variant CBool(Arguments args, Budget& budget);
Variant IsEmpty(Arguments args, Budget& budget);
Variant IsNull(Arguments args, Budget& budget);
Variant IsNumeric(Arguments args, Budget& budget);
/// With so many decimals (0 to 99, 2 without the argument), half away from zero, "." whatever the
/// locale, digits not grouped.
Variant FormatNumber(Arguments args, Budget& budget);
/// The bits of the number rounded to a whole one: 16 of an Integer, else 32.
Variant Hex(Arguments args, Budget& budget);

// Texts. Positions count characters from 1; texts are UTF-8.
Variant Len(Arguments args, Budget& budget);
Variant Left(Arguments args, Budget& budget);
Variant Right(Arguments args, Budget& budget);
Variant Mid(Arguments args, Budget& budget);
/// `InStr([start,] text, pattern [, compare])`; with `compare`, 0 for exact and 1 for ASCII letters
/// in any case, `start` must stand too.
Variant InStr(Arguments args, Budget& budget);
/// `Replace(text, pattern, replacement [, start [, count [, compare]]])`; the result begins at
/// `start`.
Variant Replace(Arguments args, Budget& budget);
/// ASCII letters only.
Variant UCase(Arguments args, Budget& budget);
Variant LCase(Arguments args, Budget& budget);
Variant Trim(Arguments args, Budget& budget);
Variant LTrim(Arguments args, Budget& budget);
Variant RTrim(Arguments args, Budget& budget);
/// The character of a code from 0 to 255 (Latin-1).
Variant Chr(Arguments args, Budget& budget);
/// The code of the first character, 63 when it is above 255.
Variant Asc(Arguments args, Budget& budget);

}  // namespace vantrel::script::builtin
