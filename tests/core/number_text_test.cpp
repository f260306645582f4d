#include "core/number_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

#include "core/fault.h"

namespace vantrel {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(GeneralText, Doubles) {
  const struct {
    double value;
    const char* want;
  } cases[] = {
      {0, "0"},
      {-0.0, "0"},
      {1, "1"},
      {-1234.5, "-1234.5"},
      {0.1, "0.1"},
      {0.1 + 0.2, "0.30000000000000004"},
      {100000, "100000"},
      {1.005, "1.005"},
      {1e-15, "0.000000000000001"},
      {1.25e-15, "0.00000000000000125"},
      {9.9e-16, "9.9E-16"},
      {-1e-16, "-1E-16"},
      {999999999999999, "999999999999999"},
      {1e15, "1E+15"},
      {1.5e22, "1.5E+22"},
      {123456789012345.6, "123456789012345.6"},
      {DBL_MAX, "1.7976931348623157E+308"},
      {5e-324, "5E-324"},
      {double{0.21F}, "0.20999999344348907"},
      {kInfinity, "inf"},
      {-kInfinity, "-inf"},
      {std::numeric_limits<double>::quiet_NaN(), "nan"},
  };
  for (const auto& c : cases) EXPECT_EQ(general_text(c.value), c.want);
}

TEST(GeneralText, SinglesAreShortestInTheirOwnWidth) {
  const struct {
    float value;
    const char* want;
  } cases[] = {{0.21F, "0.21"},
               {43144.453125F, "43144.453"},
               {1e-15F, "0.000000000000001"},
               {1e15F, "1E+15"},
               {16777216.0F, "16777216"},
               {4.7e-9F, "0.0000000047"},
               {FLT_MAX, "3.4028235E+38"},
               {-0.0F, "0"}};
  for (const auto& c : cases) {
    EXPECT_EQ(general_text(c.value), c.want);
    EXPECT_EQ(number_text(c.value), c.want);
  }
}

TEST(GeneralText, Integers) {
  EXPECT_EQ(general_text(std::int32_t{-2147483647 - 1}), "-2147483648");
  EXPECT_EQ(general_text(std::int32_t{0}), "0");
}

/// How many significant digits a text spells.
std::size_t digits_of(std::string text) {
  text.erase(std::min(text.find('E'), text.size()));
  std::erase_if(text, [](char c) { return c == '-' || c == '.'; });
  const auto first = text.find_first_not_of('0');
  const auto last = text.find_last_not_of('0');
  return last - first + 1;
}

/// The fewest digits with which the C library prints the number so that it reads back.
template <typename Float>
std::size_t fewest_digits(Float value) {
  for (int digits = 1;; ++digits) {
    std::array<char, 64> text;
    std::snprintf(text.data(), text.size(), "%.*e", digits - 1, static_cast<double>(value));
    const Float back = std::is_same_v<Float, float>
                           ? static_cast<Float>(std::strtof(text.data(), nullptr))
                           : static_cast<Float>(std::strtod(text.data(), nullptr));
    if (back == value) {
      return digits_of(std::string(text.data()).substr(0, std::string(text.data()).find('e')));
    }
  }
}

template <typename Float, typename Bits>
void read_back_random_numbers(int count) {
  std::mt19937_64 random(20240611);
  for (int i = 0; i < count; ++i) {
    const auto value = std::bit_cast<Float>(static_cast<Bits>(random()));
    if (!std::isfinite(value) || value == 0) continue;
    const std::string text = general_text(value);
    Float back = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), back);
    ASSERT_EQ(read.ptr, text.data() + text.size()) << text;
    ASSERT_EQ(back, value) << text;
    ASSERT_EQ(digits_of(text), fewest_digits(value)) << text;
    if constexpr (std::is_same_v<Float, double>) {
      ASSERT_EQ(parse_number(text), value) << text;
    }
  }
}

TEST(GeneralText, RandomDoublesReadBackFromTheFewestDigits) {
  read_back_random_numbers<double, std::uint64_t>(8000);
}

TEST(GeneralText, RandomSinglesReadBackFromTheFewestDigits) {
  read_back_random_numbers<float, std::uint32_t>(8000);
}

TEST(GeneralText, NumbersOfEverydaySizeStayPlain) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> exponent(-14.9, 14.9);
  for (int i = 0; i < 20000; ++i) {
    const double value = std::pow(10.0, exponent(random));
    const std::string text = general_text(value);
    ASSERT_EQ(text.find('E'), std::string::npos) << text;
    ASSERT_EQ(parse_number(text), value) << text;
  }
}

TEST(FormatMask, RoundsHalfAwayOnTheDecimalText) {
  const struct {
    double value;
    const char* mask;
    const char* want;
  } cases[] = {
      {45.25, "0.0", "45.3"},
      {-45.25, "0.0", "-45.3"},
      {45.24, "0.0", "45.2"},
      {1.005, "0.00", "1.01"},
      {2.5, "0", "3"},
      {0.5, "##.00", ".50"},
      {0.999, "##.00", "1.00"},
      {0, "##.00", ".00"},
      {12.5, "##.00", "12.50"},
      {0.05, "0.000####", "0.050"},
      {1.23456789, "0.000####", "1.2345679"},
      {double{0.21F}, "0.000####", "0.210"},
      {0.1234, "0.00####", "0.1234"},
      {7, "00", "07"},
      {7, "0000", "0007"},
      {12345, "00", "12345"},
      {99.95, "0.0", "100.0"},
      {0.06, "0.0", "0.1"},
      {0.04, "0.0", "0.0"},
      {-0.04, "0.0", "0.0"},
      {0.0005, "0.000", "0.001"},
      {0.00049999, "0.000", "0.000"},
      {1234567.89, "#########0.0", "1234567.9"},
      {0, "#########0.0", "0.0"},
      {1e20, "0.0", "100000000000000000000.0"},
      {1e-20, "0.00", "0.00"},
  };
  for (const auto& c : cases) EXPECT_EQ(format_mask(c.value, c.mask), c.want) << c.mask;
  EXPECT_EQ(format_mask(0.21F, "0.0000000"), "0.2100000");
  EXPECT_EQ(format_mask(double{0.21F}, "0.000000000"), "0.209999993");
}

TEST(ParseNumber, TheWholeTextOrNothing) {
  const struct {
    const char* text;
    double want;
  } good[] = {{" 12 ", 12},  {"+5", 5},        {"-.5", -0.5},     {"5.", 5},
              {"1E3", 1000}, {"1e-3", 0.001},  {"0.1", 0.1},      {"1E+15", 1e15},
              {"-0", 0},     {"0004.70", 4.7}, {"1e-320", 1e-320}};
  for (const auto& c : good) EXPECT_EQ(parse_number(c.text), c.want) << c.text;
  for (const char* text :
       {"",     " ",  ".",   "-",   "+",     "1,5", "1 000", "1.000.000", "nan", "inf", "-inf",
        "0x10", "1e", "1e+", "45n", "4.7uF", "--1", "+-1",   "1e999",     "12a", "e5"}) {
    EXPECT_FALSE(parse_number(text).has_value()) << text;
  }
}

TEST(ValTest, LongestNumericStart) {
  const struct {
    const char* text;
    double want;
  } cases[] = {{"4.7 uF", 4.7},   {"1,5", 1},     {"", 0},
               {" - 3", -3},      {"abc", 0},     {"1e3x", 1000},
               {"1e", 1},         {".5k", 0.5},   {"1 615 198", 1615198},
               {"2E-3 m", 0.002}, {"1.2.3", 1.2}, {"1e999", 0},
               {"nan", 0},        {"0x10", 0}};
  for (const auto& c : cases) EXPECT_EQ(Val(c.text), c.want) << c.text;
}

TEST(LocalDecimal, ReplacesTheLastSeparatorOnly) {
  EXPECT_EQ(local_decimal("1.234.5", '.', ','), "1.234,5");
  EXPECT_EQ(local_decimal("12", '.', ','), "12");
  EXPECT_EQ(local_decimal("1.5", '.', '.'), "1.5");
}

TEST(Rounding, RoundToIsHalfEvenOnTheBinaryValue) {
  const struct {
    double value;
    std::int32_t places;
    double want;
  } cases[] = {{2.5, 0, 2},
               {3.5, 0, 4},
               {-2.5, 0, -2},
               {1.005, 2, 1},
               {43144.453125, 1, 43144.5},
               {1.23456, -1, 1.23456},
               {21474836.47, 2, 21474836.47},
               {21474836.48, 2, 21474836.48},
               {-21474836.48, 2, -21474836.48},
               {3000000000.5, 0, 3000000000.5},
               {5.25, 400, 5.25},
               {0, 400, 0}};
  for (const auto& c : cases) EXPECT_EQ(round_to(c.value, c.places), c.want) << c.value;
  EXPECT_FALSE(std::signbit(round_to(-0.001, 2)));
  EXPECT_TRUE(std::isnan(round_to(std::nan(""), 2)));
}

TEST(Rounding, IntegersAndSinglesFaultWhenOutOfRange) {
  EXPECT_EQ(round_to_int32(2147483647.4), 2147483647);
  EXPECT_THROW(round_to_int32(2147483647.5), Fault);
  EXPECT_EQ(round_to_int32(-2147483648.5), -2147483647 - 1);
  EXPECT_THROW(round_to_int32(-2147483649.0), Fault);
  EXPECT_THROW(round_to_int32(std::nan("")), Fault);
  EXPECT_EQ(round_to_int16(32766.5), 32766);
  EXPECT_EQ(round_to_int16(32767.4), 32767);
  EXPECT_THROW(round_to_int16(32767.5), Fault);
  EXPECT_EQ(checked_single(3.4028235e38), FLT_MAX);
  EXPECT_THROW(checked_single(3.4028236e38), Fault);
  EXPECT_THROW(checked_single(-kInfinity), Fault);
  EXPECT_THROW(checked_single(std::nan("")), Fault);
  EXPECT_EQ(checked_single(1e-60), 0.0F);
}

}  // namespace
}  // namespace vantrel
