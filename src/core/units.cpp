#include "core/units.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

#include "core/fault.h"
#include "core/number_text.h"
#include "core/si_letters.h"
#include "core/text_parsing.h"

namespace vantrel {
namespace {

/// The factor to base units of a prefix text, its inverse with `inverse`. The large prefixes may
/// carry a trailing blank.
std::optional<double> prefix_factor(std::string_view prefix, bool inverse) {
  if (prefix.empty()) return 1.0;
  const SiLetter* letter = find_si_letter(prefix.front());
  if (letter == nullptr) return std::nullopt;
  const std::string_view behind = prefix.substr(1);
  if (!behind.empty() && !(behind == " " && letter->exponent > 0)) return std::nullopt;
  return inverse ? letter->inverse : letter->factor;
}

float convert(double value, std::string_view postfix, std::string_view type, bool inverse,
              SysMsg& messages) {
  const std::string ending = inverse ? " for si-to conversion" : " for si-from conversion";
  const auto found = postfix.find(type);
  if (found == std::string_view::npos) {
    messages.msg("", "Could not find type (" + std::string(type) + ") in postfix " +
                         std::string(postfix) + ending);
    return 0;
  }
  const std::string_view prefix = postfix.substr(0, found);
  const std::optional<double> factor = prefix_factor(prefix, inverse);
  if (!factor) {
    messages.msg("", "Unknown type (" + std::string(prefix) + ") in postfix " +
                         std::string(postfix) + ending);
    return 0;
  }
  try {
    return checked_single(value * *factor);
  } catch (const Fault& fault) {
    messages.msg("", fault.what() + ending);
    return 0;
  }
}

/// One test of the display scale: it holds below (or, for the large prefixes, from) the bound.
struct ScaleTest {
  char fix;
  double bound;
  bool below;
  double factor;  ///< Multiplied by below the bound, divided by from it.
  std::string_view letter;
};

constexpr std::array<ScaleTest, 6> kScaleTests{{{'p', 1e-9, true, 1e12, "p"},
                                                {'n', 1e-6, true, 1e9, "n"},
                                                {'u', 1e-3, true, 1e6, "u"},
                                                {'m', 0.1, true, 1e3, "m"},
                                                {'M', 1e6, false, 1e6, "M"},
                                                {'k', 1e3, false, 1e3, "K"}}};

bool is_fix_known(std::string_view fix, SysMsg& messages) {
  if (fix.empty() || (fix.size() == 1 && find_si_letter(fix.front()) != nullptr)) return true;
  messages.msg("", "Unknown si scale to fix to : " + std::string(fix));
  return false;
}

bool is_fix_of(const ScaleTest& test, std::string_view fix) {
  return !fix.empty() && (fix.front() == test.fix || (test.fix == 'k' && fix.front() == 'K'));
}

/// The test that decides the display scale, nothing when the value stands as it is. A 32-bit value
/// is compared at 32 bits: 1e-9 held as Single lies below the 64-bit 1e-9, yet it is 1 n.
const ScaleTest* deciding_test(double value, bool single, std::string_view fix) {
  const double size = std::abs(value);
  const ScaleTest* decided = nullptr;
  for (const ScaleTest& test : kScaleTests) {
    const double bound = single ? static_cast<float>(test.bound) : test.bound;
    const bool own = is_fix_of(test, fix);
    if (!own && (test.below ? size >= bound : size < bound)) continue;
    decided = &test;
    if (fix.empty() || own) break;
  }
  return decided;
}

double scaled(double value, const ScaleTest* test) {
  if (test == nullptr) return value;
  return test->below ? value * test->factor : value / test->factor;
}

bool is_single(const Variant& value) { return value.type() == Variant::Type::Single; }

/// A result in the width of the value that it comes from.
Variant in_width_of(const Variant& value, double result) {
  if (is_single(value)) return checked_single(result);
  return result;
}

/// True when the value has a size that can be scaled.
bool is_scalable(const Variant& value) { return value.is_numeric() || value.is_empty(); }

}  // namespace

float si_from(double value, std::string_view postfix, std::string_view type, SysMsg& messages) {
  return convert(value, postfix, type, false, messages);
}

float si_to(double value, std::string_view postfix, std::string_view type, SysMsg& messages) {
  return convert(value, postfix, type, true, messages);
}

Variant si_scale(const Variant& value, std::string_view fix, SysMsg& messages) {
  if (!is_scalable(value) || !is_fix_known(fix, messages)) return value;
  const double number = to_double(value);
  const ScaleTest* test = deciding_test(number, is_single(value), fix);
  if (test == nullptr) return value;
  try {
    return in_width_of(value, scaled(number, test));
  } catch (const Fault& fault) {
    messages.msg("", fault.what());
    return value;
  }
}

float si_scale_single(double value, std::string_view fix, SysMsg& messages) {
  try {
    return to_single(si_scale(checked_single(value), fix, messages));
  } catch (const Fault& fault) {
    messages.msg("", fault.what());
    return 0;
  }
}

Variant si_unscale(const Variant& value, std::string_view letter) {
  if (!is_scalable(value) || letter.size() != 1) return value;
  const SiLetter* prefix = find_si_letter(letter.front());
  if (prefix == nullptr) return value;
  const double number = to_double(value);
  const double result = prefix->exponent < 0 ? number / prefix->inverse : number * prefix->factor;
  const bool fits = std::abs(result) <= std::numeric_limits<float>::max();
  return fits ? in_width_of(value, result) : Variant(result);
}

std::string si_prefix(const Variant& value, std::string_view fix, SysMsg& messages) {
  if (!is_scalable(value)) return {};
  const double number = to_double(value);
  if (number == 0 || !is_fix_known(fix, messages)) return {};
  const ScaleTest* test = deciding_test(number, is_single(value), fix);
  return test == nullptr ? std::string() : std::string(test->letter);
}

std::string si_text(double value, std::string_view unit, std::string_view mask,
                    std::string_view fix, SysMsg& messages) {
  const double shown = to_double(si_scale(value, fix, messages));
  const std::string prefix = si_prefix(value, fix, messages);
  const std::string number = value == 0 ? "0" : format_mask(shown, mask);
  if (prefix.size() == 2) unit.remove_prefix(std::min(unit.find_first_not_of(' '), unit.size()));
  return number + prefix + std::string(unit);
}

}  // namespace vantrel
