#include "support/close.h"

#include <gtest/gtest.h>

#include <limits>

namespace vantrel::test {
namespace {

TEST(Close, EqualInsideAndOutside) {
  EXPECT_TRUE(close(1000, 1000, 0));
  EXPECT_TRUE(close(1000.9, 1000, 1e-3));
  EXPECT_TRUE(close(-999.1, -1000, 1e-3));
  EXPECT_FALSE(close(1001.1, 1000, 1e-3));
  EXPECT_FALSE(close(-1000, 1000, 1e-3));
}

TEST(Close, AroundZeroTheBoundIsAbsolute) {
  EXPECT_TRUE(close(0.0009, 0, 1e-3));
  EXPECT_FALSE(close(0.0011, 0, 1e-3));
}

TEST(Close, WhatIsNoNumberIsCloseToNothing) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(close(nan, 1, 1));
  EXPECT_FALSE(close(1, nan, 1));
  EXPECT_FALSE(close(nan, nan, 1));
}

}  // namespace
}  // namespace vantrel::test
