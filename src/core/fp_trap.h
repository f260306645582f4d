#pragma once

#if defined(__SSE2__)
#include <xmmintrin.h>
#else
#include <cfenv>
#endif

namespace vantrel {

/// Watches the floating-point flags over a stretch of arithmetic. A formula that divided by zero,
/// overflowed or took the root of a negative number has failed even when a later step made its
/// result finite again. Underflow and inexact results are no failure.
///
/// The arithmetic under watch must stand in a function of its own that the compiler does not merge
/// with the trap (a call through a pointer does), so that no operation moves past the flag reads.
///
/// Traps nest: a trap sees only what happens during its own life, and its end gives the surrounding
/// one back the flags that it had. What an inner trap has seen is its owner's to deal with.
///
/// The tank search sets thousands of traps per run, so on the common processors this reads the
/// control register, and writes it only when a fault has happened, instead of calling the library.
class FpTrap {
 public:
#if defined(__SSE2__)
  /// Clears the flags.
  FpTrap() : before_(_mm_getcsr()) {
    if ((before_ & kWatched) != 0) _mm_setcsr(before_ & ~kWatched);
  }
  ~FpTrap() {
    const unsigned now = _mm_getcsr();
    if (((now ^ before_) & kWatched) != 0) _mm_setcsr((now & ~kWatched) | (before_ & kWatched));
  }
  /// True when an invalid operation, a division by zero or an overflow has happened since.
  bool tripped() const { return (_mm_getcsr() & kWatched) != 0; }
#else
  /// Clears the flags.
  FpTrap() { std::feholdexcept(&before_); }
  ~FpTrap() { std::fesetenv(&before_); }
  /// True when an invalid operation, a division by zero or an overflow has happened since.
  bool tripped() const { return std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW) != 0; }
#endif
  FpTrap(const FpTrap&) = delete;
  FpTrap& operator=(const FpTrap&) = delete;

 private:
#if defined(__SSE2__)
  static constexpr unsigned kWatched = 0x01 | 0x04 | 0x08;  // invalid, division by zero, overflow
  unsigned before_;
#else
  std::fenv_t before_;
#endif
};

}  // namespace vantrel
