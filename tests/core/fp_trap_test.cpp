#include "core/fp_trap.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace vantrel {
namespace {

double arctangent_of_quotient(double a, double b) { return std::atan(a / b); }
double reciprocal_of_quotient(double a, double b) { return 1 / (a / b); }
double product(double a, double b) { return a * b; }
double quotient(double a, double b) { return a / b; }
double root_of_difference(double a, double b) { return std::sqrt(a - b); }
double logarithm_of_difference(double a, double b) { return std::log(a - b); }
double power(double a, double b) { return std::pow(a, b); }

using Formula = double (*)(double, double);

/// Calls through a pointer that the compiler cannot see through, as the dispatcher does.
bool trips(Formula formula, double a, double b) {
  Formula volatile called = formula;
  const FpTrap trap;
  volatile double result = called(a, b);
  (void)result;
  return trap.tripped();
}

TEST(FpTrapTest, FaultsAreSeenEvenBehindAFiniteResult) {
  EXPECT_TRUE(trips(arctangent_of_quotient, -1, 0));
  EXPECT_TRUE(trips(reciprocal_of_quotient, 1, 0));
  EXPECT_TRUE(trips(quotient, 0, 0));
  EXPECT_TRUE(trips(product, 1e200, 1e200));
  EXPECT_TRUE(trips(root_of_difference, 1, 2));
  EXPECT_TRUE(trips(logarithm_of_difference, 1, 1));
  EXPECT_TRUE(trips(logarithm_of_difference, 1, 2));
  EXPECT_TRUE(trips(power, 10, 400));
}

TEST(FpTrapTest, InexactAndUnderflowAreNoFaults) {
  EXPECT_FALSE(trips(quotient, 1, 3));
  EXPECT_FALSE(trips(product, 1e-200, 1e-200));
  EXPECT_FALSE(trips(product, 5e-324, 1));
  EXPECT_FALSE(trips(root_of_difference, 2, 1));
  EXPECT_FALSE(trips(product, std::numeric_limits<double>::infinity(), 2));
}

TEST(FpTrapTest, TrapsNestAndStartAfresh) {
  Formula volatile called = quotient;
  const FpTrap outer;
  EXPECT_TRUE(trips(quotient, 1, 0));
  EXPECT_FALSE(outer.tripped());
  volatile double result = called(1, 0);
  EXPECT_FALSE(trips(quotient, 1, 2));
  EXPECT_TRUE(outer.tripped());
  (void)result;
}

}  // namespace
}  // namespace vantrel
