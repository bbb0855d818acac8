#include "maths/spreading.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "base/constants.h"
#include "support.h"

namespace {

using Maths::cos_power;
using Maths::cos_power_integral;
using Maths::spread_angle;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TEST(CosPower, IsThePowerAtWholePowers) {
  for (const double theta : {-2.0, -1.1, 0.0, 0.4, 1.5, 3.0}) {
    for (int n = 1; n <= 30; ++n) {
      EXPECT_NEAR(cos_power(n, theta), std::pow(std::cos(theta), n), 1e-14) << n << " " << theta;
    }
  }
}

TEST(CosPower, BelowTwoIsALineThroughTheFirstAndSecondPower) {
  const double c = std::cos(0.7);
  EXPECT_NEAR(cos_power(1.25, 0.7), c + 0.25 * (c * c - c), 1e-15);
  EXPECT_NEAR(cos_power(0.0, 0.7), c - (c * c - c), 1e-15);
  EXPECT_NEAR(cos_power(-1.0, 0.7), c - 2 * (c * c - c), 1e-15);
}

TEST(CosPower, BetweenWholePowersIsTheParabolaOfEqualParity) {
  const double c = std::cos(0.7);
  for (const double s : {2.0, 2.3, 2.5, 3.4, 3.5, 6.9, 10.1}) {
    const double n = std::floor(s + 0.5);
    // Lagrange's form through n - 2, n, n + 2.
    const double expected = std::pow(c, n - 2) * (s - n) * (s - n - 2) / 8 +
                            std::pow(c, n) * (s - n + 2) * (n + 2 - s) / 4 +
                            std::pow(c, n + 2) * (s - n) * (s - n + 2) / 8;
    EXPECT_NEAR(cos_power(s, 0.7), expected, 1e-14) << s;
  }
}

TEST(CosPower, IntegralMatchesQuadrature) {
  for (const double s : {-0.5, 0.5, 1.0, 1.7, 2.0, 2.4, 2.6, 3.0, 5.5, 8.2, 25.0}) {
    for (const double theta : {-1.4, -0.3, 0.0, 0.9, 2.2}) {
      const double expected = simpson([s](double t) { return cos_power(s, t); }, 0.0, theta, 2000);
      EXPECT_NEAR(cos_power_integral(s, theta), expected, 1e-11) << s << " " << theta;
    }
  }
}

TEST(CosPower, IntegralHasTheClosedFormsOfLowPowers) {
  const double t = 0.8;
  EXPECT_NEAR(cos_power_integral(1, t), std::sin(t), 1e-15);
  EXPECT_NEAR(cos_power_integral(2, t), t / 2 + std::sin(2 * t) / 4, 1e-15);
  EXPECT_NEAR(cos_power_integral(3, t), std::sin(t) - std::pow(std::sin(t), 3) / 3, 1e-15);
  EXPECT_NEAR(cos_power_integral(4, t), 3 * t / 8 + std::sin(2 * t) / 4 + std::sin(4 * t) / 32,
              1e-15);
}

TEST(CosPower, APowerBeyondReasonIsRefused) {
  EXPECT_EQ(thrown_text([] { cos_power(2e9, 0.1); }), "Spreading power::2e+09 is out of range");
  EXPECT_EQ(thrown_text([] { cos_power_integral(2e9, 0.1); }),
            "Spreading power::2e+09 is out of range");
  EXPECT_EQ(thrown_text([] { cos_power(nan, 0.1); }), "Spreading power::nan is out of range");
}

TEST(SpreadAngle, IsTheInverseOfTheCumulativeSpread) {
  for (const double power : {1.0, 1.6, 2.0, 3.0, 4.5, 10.0, 20.3}) {
    for (const double low : {-1.2, -0.4, 0.1}) {
      for (const double high : {0.3, 1.1}) {
        double last = low - 1e-6;
        for (int i = 0; i <= 10; ++i) {
          const double theta = spread_angle(i * 0.1, high, low, power);
          const double share = (cos_power_integral(power, theta) - cos_power_integral(power, low)) /
                               (cos_power_integral(power, high) - cos_power_integral(power, low));
          EXPECT_NEAR(share, i * 0.1, 1e-5) << power << " " << low << " " << high;
          EXPECT_GT(theta, last);
          last = theta;
        }
      }
    }
  }
}

TEST(SpreadAngle, TheEndsAreTheLimitsAndTheMiddleIsStraightAhead) {
  EXPECT_NEAR(spread_angle(0.0, 0.8, -0.5, 2.0), -0.5, 1e-6);
  EXPECT_NEAR(spread_angle(1.0, 0.8, -0.5, 2.0), 0.8, 1e-6);
  EXPECT_NEAR(spread_angle(0.5, 0.8, -0.8, 6.0), 0.0, 1e-6);
  EXPECT_NEAR(spread_angle(0.3, 0.4, 0.4, 6.0), 0.4, 1e-6);
  // A cosine: sin(theta) = 0.25 sin(-0.5) + 0.75 sin(0.8).
  EXPECT_NEAR(spread_angle(0.75, 0.8, -0.5, 1.0),
              std::asin(0.25 * std::sin(-0.5) + 0.75 * std::sin(0.8)), 1e-9);
}

TEST(SpreadAngle, LimitsAreCheckedInOrder) {
  const auto text = [](double high, double low) {
    return thrown_text([&] { spread_angle(0.5, high, low, 2.0); });
  };
  EXPECT_EQ(text(1.0, -Base::Pi), "Minimum angle too small");
  EXPECT_EQ(text(4.0, -4.0), "Minimum angle too small");
  EXPECT_EQ(text(Base::Pi, -1.0), "Maximum angle too big");
  EXPECT_EQ(text(4.0, 5.0), "Maximum angle too big");
  EXPECT_EQ(text(0.5, 0.6), "Maximum angle less than minimum angle");
}

TEST(SpreadAngle, StopsAfterTwentyFivePasses) {
  // At a right angle the square of the cosine vanishes: each pass takes off about a third of what
  // is left, x, from the integral's value pi / 4 on.
  const double theta = spread_angle(0.5, std::numbers::pi / 2, std::numbers::pi / 2, 2.0);
  long double x = std::numbers::pi_v<long double> / 4;
  for (int pass = 0; pass < 25; ++pass) x -= (x / 2 - sinl(2 * x) / 4) / (sinl(x) * sinl(x));
  EXPECT_GT(x, 1e-5L);
  EXPECT_NEAR(std::numbers::pi / 2 - theta, static_cast<double>(x), 2e-6);
}

TEST(SpreadAngle, StopsAtAStepOfAMillionth) {
  // The cosine vanishes too: each pass takes off tan(x / 2), from the integral's value 1 on.
  const double theta = spread_angle(0.5, std::numbers::pi / 2, std::numbers::pi / 2, 1.0);
  double x = std::numbers::pi / 2 - 1;
  for (double step = 1.0; step > 1e-6;) {
    step = std::tan(x / 2);
    x -= step;
  }
  EXPECT_NEAR(std::numbers::pi / 2 - theta, x, 1e-8);
}

}  // namespace
