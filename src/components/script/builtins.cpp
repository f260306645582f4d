#include "components/script/builtins.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "components/script/builtin_functions.h"
#include "components/script/script_object.h"
#include "core/text_parsing.h"

namespace vantrel::script {

namespace {

enum class NullRule {
  Passes,   ///< a Null first argument is the result
  Reaches,  ///< the function meets it
};

struct Builtin {
  std::string_view name;
  std::size_t least;  ///< arguments
  std::size_t most;
  NullRule null_rule;
  Variant (*run)(std::span<const Variant>, Budget&);
};

constexpr std::array<Builtin, 36> kBuiltins = {{
    {"Abs", 1, 1, NullRule::Passes, builtin::Abs},
    {"Asc", 1, 1, NullRule::Reaches, builtin::Asc},
    {"Atn", 1, 1, NullRule::Reaches, builtin::Atn},
    {"CBool", 1, 1, NullRule::Reaches, builtin::CBool},
    {"CDbl", 1, 1, NullRule::Reaches, builtin::CDbl},
    {"Chr", 1, 1, NullRule::Reaches, builtin::Chr},
    {"CInt", 1, 1, NullRule::Reaches, builtin::CInt},
    {"CLng", 1, 1, NullRule::Reaches, builtin::CLng},
    {"Cos", 1, 1, NullRule::Reaches, builtin::Cos},
    {"CSng", 1, 1, NullRule::Reaches, builtin::CSng},
    {"CStr", 1, 1, NullRule::Reaches, builtin::CStr},
    {"Exp", 1, 1, NullRule::Reaches, builtin::Exp},
    {"Fix", 1, 1, NullRule::Passes, builtin::Fix},
    {"FormatNumber", 1, 2, NullRule::Reaches, builtin::FormatNumber},
    {"Hex", 1, 1, NullRule::Passes, builtin::Hex},
    {"InStr", 2, 4, NullRule::Passes, builtin::InStr},
    {"Int", 1, 1, NullRule::Passes, builtin::Int},
    {"IsEmpty", 1, 1, NullRule::Reaches, builtin::IsEmpty},
    {"IsNull", 1, 1, NullRule::Reaches, builtin::IsNull},
    {"IsNumeric", 1, 1, NullRule::Reaches, builtin::IsNumeric},
    {"LCase", 1, 1, NullRule::Passes, builtin::LCase},
    {"Left", 2, 2, NullRule::Passes, builtin::Left},
    {"Len", 1, 1, NullRule::Passes, builtin::Len},
    {"Log", 1, 1, NullRule::Reaches, builtin::Log},
    {"LTrim", 1, 1, NullRule::Passes, builtin::LTrim},
    {"Mid", 2, 3, NullRule::Passes, builtin::Mid},
    {"Replace", 3, 6, NullRule::Reaches, builtin::Replace},
    {"Right", 2, 2, NullRule::Passes, builtin::Right},
    {"Round", 1, 2, NullRule::Passes, builtin::Round},
    {"RTrim", 1, 1, NullRule::Passes, builtin::RTrim},
    {"Sgn", 1, 1, NullRule::Passes, builtin::Sgn},
    {"Sin", 1, 1, NullRule::Reaches, builtin::Sin},
    {"Sqr", 1, 1, NullRule::Reaches, builtin::Sqr},
    {"Tan", 1, 1, NullRule::Reaches, builtin::Tan},
    {"Trim", 1, 1, NullRule::Passes, builtin::Trim},
    {"UCase", 1, 1, NullRule::Passes, builtin::UCase},
}};

}  // namespace

std::optional<std::size_t> find_builtin(std::string_view name) {
  const auto* found =
      std::find_if(kBuiltins.begin(), kBuiltins.end(),
                   [name](const Builtin& entry) { return equal_ignoring_case(entry.name, name); });
  if (found == kBuiltins.end()) return std::nullopt;
  return static_cast<std::size_t>(std::distance(kBuiltins.begin(), found));
}

Variant call_builtin(std::size_t index, std::span<const Variant> args, Budget& budget) {
  const Builtin& entry = kBuiltins[index];
  if (args.size() < entry.least || args.size() > entry.most) throw wrong_arguments(entry.name);
  if (entry.null_rule == NullRule::Passes && args.front().is_null()) return Null{};
  return entry.run(args, budget);
}

}  // namespace vantrel::script
