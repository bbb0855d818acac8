#include "maths/dispersion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>
#include <sstream>

#include "base/constants.h"
#include "maths/angle.h"
#include "maths/power_of_two.h"
#include "support/thrown.h"
#include "support/wave_number.h"

namespace {

using Maths::knum;
using Maths::next_pow2;
using Maths::wrap_angle;
using Testing::exact_wave_number;
using Testing::nothing_thrown;
using Testing::thrown;

constexpr double g = 9.81;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double inf = std::numeric_limits<double>::infinity();

// A wave so long that 1 - exp(-x), with x = kd0^1.25, rounds to 2^-53. The first guess is then too
// large by the factor (x / 2^-53)^0.4, and the step has the closed form of shallow water.
struct LongWave {
  explicit LongWave(double x)
      : omega(std::sqrt(std::pow(x, 0.8) * g)),
        exact(omega / std::sqrt(g)),
        guess(exact * std::pow(x / std::ldexp(1.0, -53), 0.4)),
        stepped(0.5 * (guess + exact * exact / guess)) {}
  double omega;    // in 1 m of water
  double exact;    // omega / sqrt(g depth)
  double guess;    // before the Newton step
  double stepped;  // after it
};

// The sign of a NaN depends on the machine.
std::string without_sign_of_nan(std::string message) {
  const std::size_t at = message.find("-nan");
  if (at != std::string::npos) message.erase(at, 1);
  return message;
}

TEST(Dispersion, SolvesTheRelationWithinATenThousandth) {
  for (double omega = 0.05; omega < 60.0; omega *= 1.1) {
    for (double depth = 0.02; depth < 60.0; depth *= 1.2) {
      const double k = knum(omega, depth, g);
      EXPECT_NEAR(g * k * std::tanh(k * depth) / (omega * omega), 1.0, 2e-4)
          << omega << " " << depth;
      EXPECT_NEAR(k / exact_wave_number(omega, depth, g), 1.0, 1e-4) << omega << " " << depth;
    }
  }
}

// The tangent to the relation at the published guess passes through the result. Its slope comes
// from a central difference, with an error of 1e-10 in steps of at most a hundredth.
TEST(Dispersion, IsOneNewtonStepFromThePublishedApproximation) {
  for (const double omega : {0.5, 2.0, 4.0, 9.0}) {
    for (const double depth : {0.3, 1.0, 2.5}) {
      const auto relation = [&](long double k) { return g * k * std::tanh(k * depth); };
      const long double squared = static_cast<long double>(omega) * omega;
      // Guo (2002), k = omega^2 / g (1 - exp(-(omega sqrt(depth / g))^(5/2)))^(-2/5).
      const long double guess =
          squared / g * std::pow(1 - std::exp(-std::pow(squared * depth / g, 1.25L)), -0.4L);
      const long double h = 1e-5L * guess;
      const long double slope = (relation(guess + h) - relation(guess - h)) / (2 * h);
      const long double expected = guess + (squared - relation(guess)) / slope;
      EXPECT_NEAR(knum(omega, depth, g), static_cast<double>(expected), 1e-11) << omega << depth;
    }
  }
}

// The formula with the powers and the hyperbolic functions as published, in that order.
double plain_knum(double omega, double depth) {
  const double a = omega * omega;
  const double k = (a / g) * std::pow(1 - std::exp(-std::pow(depth * a / g, 1.25)), -0.4);
  const double C = std::cosh(k * depth);
  const double T = std::tanh(k * depth);
  return k + (a - g * T * k) / (g * T + g * k * depth / (C * C));
}

// The angle of a front at the limit of the tank is asin(sin(angle) * k / k), which the last bit of
// k takes to one side of the limit or the other.
TEST(Dispersion, IsTheFormulaAsPublishedToTheLastBit) {
  for (double omega = 1e-3; omega < 200.0; omega *= 1.013) {
    for (double depth = 1e-3; depth < 1e5; depth *= 1.17) {
      EXPECT_EQ(knum(omega, depth, g), plain_knum(omega, depth)) << omega << " " << depth;
    }
  }
}

TEST(Dispersion, DeepWaterIsOmegaSquaredOverG) {
  // k * depth is 41, 1000 and 100000; at the last one cosh overflows.
  for (const double depth : {41.0 * 9.81 / 25.0, 1000.0 * 9.81 / 25.0, 1e5 * 9.81 / 25.0}) {
    EXPECT_NEAR(knum(5.0, depth, g), 25.0 / 9.81, 1e-14);
  }
}

TEST(Dispersion, ShallowWaterIsOmegaOverTheRootOfGTimesDepth) {
  EXPECT_NEAR(knum(0.01, 1.0, g), 0.01 / std::sqrt(9.81), 1e-7);
}

TEST(Dispersion, AcceptsANegativeStepOfAnySize) {
  const LongWave wave(1.6e-16);
  ASSERT_LT((wave.stepped - wave.guess) / wave.stepped, -0.1);
  EXPECT_NEAR(knum(wave.omega, 1.0, g) / wave.stepped, 1.0, 1e-9);
}

TEST(Dispersion, RefusesAPositiveStepAboveAHundredth) {
  const LongWave wave(0.9e-16);
  ASSERT_GT((wave.stepped - wave.guess) / wave.stepped, 0.01);
  std::ostringstream expected;
  expected << "Knum calculation failed for omega=" << wave.omega
           << " and depth = 1 with return value " << wave.stepped;
  EXPECT_EQ(thrown([&] { knum(wave.omega, 1.0, g); }), expected.str());
}

TEST(Dispersion, TheLargestPositiveStepIsAHundredthOfTheWaveNumber) {
  const LongWave below(std::ldexp(0.98, -53));
  ASSERT_NEAR((below.stepped - below.guess) / below.stepped, 0.008, 1e-3);
  EXPECT_NEAR(knum(below.omega, 1.0, g) / below.stepped, 1.0, 1e-9);
  const LongWave above(std::ldexp(0.97, -53));
  ASSERT_NEAR((above.stepped - above.guess) / above.stepped, 0.012, 1e-3);
  EXPECT_NE(thrown([&] { knum(above.omega, 1.0, g); }), nothing_thrown);
}

TEST(Dispersion, TheMessageHasSixSignificantDigits) {
  // A negative gravity and depth give a negative wave number, -100 / 9.81 = -10.19367992, and a
  // step of zero, which is above a hundredth of it.
  EXPECT_EQ(thrown([] { knum(10.0, -10.0, -9.81); }),
            "Knum calculation failed for omega=10 and depth = -10 with return value -10.1937");
}

TEST(Dispersion, AnOmegaOfZeroIsRefused) {
  EXPECT_EQ(without_sign_of_nan(thrown([] { knum(0.0, 0.5, g); })),
            "Knum calculation failed for omega=0 and depth = 0.5 with return value nan");
}

TEST(Dispersion, NaNIsRefused) {
  EXPECT_EQ(without_sign_of_nan(thrown([] { knum(nan, 2.0, g); })),
            "Knum calculation failed for omega=nan and depth = 2 with return value nan");
  EXPECT_EQ(without_sign_of_nan(thrown([] { knum(1.5, nan, g); })),
            "Knum calculation failed for omega=1.5 and depth = nan with return value nan");
  EXPECT_EQ(without_sign_of_nan(thrown([] { knum(1.5, 1.0, nan); })),
            "Knum calculation failed for omega=1.5 and depth = 1 with return value nan");
}

TEST(Dispersion, ZeroDepthAndZeroGravityAreRefused) {
  EXPECT_EQ(without_sign_of_nan(thrown([] { knum(1.0, 0.0, g); })),
            "Knum calculation failed for omega=1 and depth = 0 with return value nan");
  EXPECT_EQ(without_sign_of_nan(thrown([] { knum(1.0, 1.0, 0.0); })),
            "Knum calculation failed for omega=1 and depth = 1 with return value nan");
}

TEST(WrapAngle, KeepsBothLimits) {
  EXPECT_EQ(wrap_angle(Base::Pi), Base::Pi);
  EXPECT_EQ(wrap_angle(-Base::Pi), -Base::Pi);
  EXPECT_EQ(wrap_angle(0.0), 0.0);
  EXPECT_EQ(wrap_angle(-1.25), -1.25);
}

TEST(WrapAngle, RemovesWholeTurns) {
  constexpr double turn = 2 * std::numbers::pi;
  EXPECT_NEAR(wrap_angle(3.5), 3.5 - turn, 1e-15);
  EXPECT_NEAR(wrap_angle(-3.5), turn - 3.5, 1e-15);
  EXPECT_NEAR(wrap_angle(1.0 + 9 * turn), 1.0, 1e-13);
  EXPECT_NEAR(wrap_angle(-2.0 - 9 * turn), -2.0, 1e-13);
}

TEST(WrapAngle, AcceptsHugeAngles) {
  for (const double theta : {1e7, -1e7, 1e15, 1e300}) {
    const double wrapped = wrap_angle(theta);
    EXPECT_LE(std::fabs(wrapped), Base::Pi) << theta;
  }
  EXPECT_NEAR(wrap_angle(1e7), std::atan2(std::sin(1e7), std::cos(1e7)), 1e-8);
  EXPECT_TRUE(std::isnan(wrap_angle(inf)));
  EXPECT_TRUE(std::isnan(wrap_angle(-inf)));
  EXPECT_TRUE(std::isnan(wrap_angle(nan)));
}

TEST(NextPow2, IsTheSmallestPowerOfTwoNotBelow) {
  std::uint64_t power = 1;
  for (std::uint64_t n = 1; n <= 5000; ++n) {
    while (power < n) power *= 2;
    EXPECT_EQ(next_pow2(n), power) << n;
  }
  EXPECT_EQ(next_pow2((std::uint64_t{1} << 40) + 1), std::uint64_t{1} << 41);
  EXPECT_EQ(next_pow2(std::uint64_t{1} << 63), std::uint64_t{1} << 63);
}

}  // namespace
