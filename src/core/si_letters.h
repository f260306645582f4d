#pragma once

#include <array>

namespace vantrel {

/// One SI prefix that the program knows. A number with the prefix, times `factor`, is in base
/// units.
struct SiLetter {
  char letter;
  int exponent;  ///< Power of ten of the factor.
  double factor;
  double inverse;  ///< 1 / factor, as the nearest double of its own.
};

inline constexpr std::array<SiLetter, 7> kSiLetters{{{'p', -12, 1e-12, 1e12},
                                                     {'n', -9, 1e-9, 1e9},
                                                     {'u', -6, 1e-6, 1e6},
                                                     {'m', -3, 1e-3, 1e3},
                                                     {'k', 3, 1e3, 1e-3},
                                                     {'K', 3, 1e3, 1e-3},
                                                     {'M', 6, 1e6, 1e-6}}};

/// The prefix of that letter, nothing for any other character.
constexpr const SiLetter* find_si_letter(char letter) {
  for (const SiLetter& entry : kSiLetters) {
    if (entry.letter == letter) return &entry;
  }
  return nullptr;
}

}  // namespace vantrel
