#include "expression/gamma.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/thrown.h"

namespace {

using Testing::thrown;

constexpr double Infinity = std::numeric_limits<double>::infinity();

void expect_relative(double result, double expected, double tolerance) {
  EXPECT_NEAR(result, expected, tolerance * std::fabs(expected));
}

TEST(Gamma, GivesFactorials) {
  double factorial = 1.0;
  for (int n = 1; n <= 20; ++n) {
    expect_relative(Expression::tgamma(n), factorial, 1e-13);
    factorial *= n;
  }
}

// Abramowitz and Stegun, Handbook of Mathematical Functions, tables 6.1 and 1.1, and Gauss's value
// at the minimum, x0 = 1.4616...
TEST(Gamma, GivesPublishedValues) {
  expect_relative(Expression::tgamma(0.5), 1.7724538509055160, 1e-14);
  expect_relative(Expression::tgamma(1.5), 0.8862269254527580, 1e-14);
  expect_relative(Expression::tgamma(1.0 / 3.0), 2.6789385347077476, 1e-14);
  expect_relative(Expression::tgamma(0.25), 3.6256099082219083, 1e-14);
  expect_relative(Expression::tgamma(0.75), 1.2254167024651777, 1e-14);
  expect_relative(Expression::tgamma(1.4616321449683623), 0.8856031944108887, 1e-14);
}

// Below 1 the library forms 1 + x, whose rounding is amplified 1 / x times in the result.
double rational_tolerance(double x) { return 1e-14 + 1.2e-16 / x; }

// Stirling's series takes the exponential of a number up to 710, which amplifies its rounding 710
// times.
TEST(Gamma, AgreesWithTheStandardLibrary) {
  for (double x = 0.001; x < 12.0; x += 0.0137) {
    SCOPED_TRACE(x);
    expect_relative(Expression::tgamma(x), std::tgamma(x), rational_tolerance(x));
  }
  for (double x = 12.0; x < 171.6; x += 0.37) {
    SCOPED_TRACE(x);
    expect_relative(Expression::tgamma(x), std::tgamma(x), 1e-12);
  }
}

// 1 / Gamma(x) = x + 0.5772... x^2 - 0.6558780715 x^3 + ... (Abramowitz and Stegun, 6.1.34). Cut
// after the second term, it is off by the third.
TEST(Gamma, UsesTwoTermsOfTheSeriesBelowAThousandth) {
  for (const double x : {std::nextafter(0.001, 0.0), 0.0005, 1e-10, 1e-300}) {
    SCOPED_TRACE(x);
    EXPECT_NEAR(Expression::tgamma(x) / std::tgamma(x) - 1.0, -0.6558780715 * x * x,
                1e-15 + x * x * x);
  }
  expect_relative(Expression::tgamma(0.001), std::tgamma(0.001), rational_tolerance(0.001));
}

TEST(Gamma, OverflowsToInfinityAboveItsLargestArgument) {
  EXPECT_TRUE(std::isfinite(Expression::tgamma(171.624)));
  EXPECT_EQ(Expression::tgamma(171.6241), Infinity);
  EXPECT_EQ(Expression::tgamma(172.0), Infinity);
  EXPECT_EQ(Expression::tgamma(Infinity), Infinity);
}

TEST(Gamma, RefusesArgumentsThatAreNotPositive) {
  EXPECT_EQ(thrown([] { Expression::tgamma(0.0); }),
            "tgamma: Invalid input argument 0. Argument must be positive.");
  EXPECT_EQ(thrown([] { Expression::tgamma(-0.0); }),
            "tgamma: Invalid input argument -0. Argument must be positive.");
  EXPECT_EQ(thrown([] { Expression::tgamma(-1234567.0); }),
            "tgamma: Invalid input argument -1.23457e+06. Argument must be positive.");
  EXPECT_EQ(thrown([] { Expression::tgamma(std::nan("")); }),
            "tgamma: Invalid input argument nan. Argument must be positive.");
}

TEST(LogGamma, AgreesWithTheStandardLibrary) {
  // The logarithm is 0 at 1 and 2, so the error is measured relative to at least 1.
  for (double x = 0.001; x < 12.0; x += 0.0137) {
    SCOPED_TRACE(x);
    const double expected = std::lgamma(x);
    EXPECT_NEAR(Expression::lgamma(x), expected,
                rational_tolerance(x) * std::fmax(1.0, std::fabs(expected)));
  }
  for (double x = 12.0; x < 1e6; x *= 1.3) {
    SCOPED_TRACE(x);
    expect_relative(Expression::lgamma(x), std::lgamma(x), 1e-14);
  }
}

TEST(LogGamma, RefusesArgumentsThatAreNotPositive) {
  EXPECT_EQ(thrown([] { Expression::lgamma(0.0); }),
            "lgamma: Invalid input argument 0. Argument must be positive.");
  EXPECT_EQ(thrown([] { Expression::lgamma(-2.5); }),
            "lgamma: Invalid input argument -2.5. Argument must be positive.");
  EXPECT_EQ(thrown([] { Expression::lgamma(std::nan("")); }),
            "lgamma: Invalid input argument nan. Argument must be positive.");
}

}  // namespace
