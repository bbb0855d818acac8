#include "maths/spreading.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <limits>
#include <numbers>

#include "base/constants.h"
#include "simpson.h"
#include "support/thrown.h"

namespace {

using Maths::cos_power;
using Maths::cos_power_integral;
using Testing::thrown;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

// A single draw.
double spread_angle(double fraction, double max_angle, double min_angle, double power) {
  return Maths::SpreadAngles().draw(fraction, max_angle, min_angle, power);
}

TEST(CosPower, IsExactAtWholePowers) {
  for (const double theta : {-2.0, -1.1, 0.0, 0.4, 1.5, 3.0}) {
    for (int n = 1; n <= 30; ++n) {
      EXPECT_NEAR(cos_power(n, theta), std::pow(std::cos(theta), n), 1e-14) << n << " " << theta;
    }
  }
}

TEST(CosPower, IsLinearInThePowerBelowTwo) {
  const double c = std::cos(0.7);
  EXPECT_NEAR(cos_power(1.25, 0.7), c + 0.25 * (c * c - c), 1e-15);
  EXPECT_NEAR(cos_power(0.0, 0.7), c - (c * c - c), 1e-15);
  EXPECT_NEAR(cos_power(-1.0, 0.7), c - 2 * (c * c - c), 1e-15);
}

TEST(CosPower, IsAParabolaThroughPowersOfEqualParity) {
  const double c = std::cos(0.7);
  for (const double s : {2.0, 2.3, 2.5, 3.4, 3.5, 6.9, 10.1}) {
    const double n = std::floor(s + 0.5);
    // Lagrange's polynomial through n - 2, n and n + 2.
    const double expected = std::pow(c, n - 2) * (s - n) * (s - n - 2) / 8 +
                            std::pow(c, n) * (s - n + 2) * (n + 2 - s) / 4 +
                            std::pow(c, n + 2) * (s - n) * (s - n + 2) / 8;
    EXPECT_NEAR(cos_power(s, 0.7), expected, 1e-14) << s;
  }
}

TEST(CosPower, IntegralAgreesWithQuadrature) {
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

using Long = long double;

// The parabola through the values at n - 2, n and n + 2.
Long between(double s, Long below, Long middle, Long above) {
  const Long t = (s - std::floor(s + 0.5)) / 2;
  return below * t * (t - 1) / 2 + middle * (1 - t * t) + above * t * (t + 1) / 2;
}

// The reduction formula from the lowest power up, in long double, so that its own rounding is
// negligible. It starts from the sine and cosine rounded to double, as the library does: a large
// power amplifies that rounding to 1e-11.
Long built_up(double s, double theta) {
  const int n = static_cast<int>(std::floor(s + 0.5));
  const double c = std::cos(theta);
  const double S = std::sin(theta);
  const Long c_squared = c * c;
  Long power = n % 2 == 0 ? Long{c} : c_squared;
  Long above = n % 2 == 0 ? theta : S;
  Long middle = 0.0;
  Long below = 0.0;
  for (int m = n % 2 + 2; m <= n + 2; m += 2) {
    below = middle;
    middle = above;
    above = ((m - 1) * above + power * S) / m;
    power *= c_squared;
    if (std::abs(power) < 1e-4000L) power = 0.0;  // denormal numbers take a hundred times as long
  }
  return between(s, below, middle, above);
}

constexpr double large_powers[] = {998.0,   999.4,   1000.4,   1000.6,   1001.0, 1002.0,
                                   4321.37, 20000.0, 123456.7, 999999.0, 1e6};

TEST(CosPower, IntegralOfALargePowerFollowsTheReductionFormula) {
  for (const double s : large_powers) {
    const auto expect_integral = [s](double theta) {
      EXPECT_LT(std::abs(cos_power_integral(s, theta) / built_up(s, theta) - 1), 1e-12L)
          << s << " " << theta;
    };
    // Within some widths of the peak, and elsewhere.
    for (const double z : {1e-6, 0.5, -1.0, 3.5, 8.9, -9.0}) expect_integral(z / std::sqrt(s));
    for (const double theta : {0.7, std::numbers::pi / 2, -3.0, 4.9, -7.3}) expect_integral(theta);
    EXPECT_EQ(cos_power_integral(s, 0.0), 0.0);
    EXPECT_TRUE(std::isnan(cos_power_integral(s, nan)));
  }
}

TEST(CosPower, LargePowersAgreeWithPowAndQuadrature) {
  for (const double s : large_powers) {
    const double n = std::floor(s + 0.5);
    const auto power = [&](Long t) {
      const Long c = std::cos(t);
      return between(s, std::pow(c, n - 2), std::pow(c, n), std::pow(c, n + 2));
    };
    for (const double z : {0.1, 1.0, -2.5, 5.0}) {
      const double theta = z / std::sqrt(s);
      EXPECT_NEAR(cos_power(s, theta), static_cast<double>(power(theta)), 1e-10) << s << " " << z;
      const Long area = simpson(power, 0.0, theta, 2000);
      EXPECT_LT(std::abs(cos_power_integral(s, theta) / area - 1), 5e-11L) << s << " " << z;
    }
  }
}

TEST(CosPower, LargePowersBeyondARightAngleHaveTheSignOfTheirParity) {
  for (const int n : {1000, 1001, 5000, 5001, 1000000}) {
    const double theta = std::numbers::pi - 0.3 / std::sqrt(n);
    const double size = std::pow(std::cos(0.3 / std::sqrt(n)), n);
    EXPECT_NEAR(cos_power(n, theta), n % 2 == 0 ? size : -size, 1e-9) << n;
  }
}

TEST(CosPower, AnExcessivePowerIsRefused) {
  EXPECT_EQ(thrown([] { cos_power(2e9, 0.1); }), "Spreading power::2e+09 is out of range");
  EXPECT_EQ(thrown([] { cos_power_integral(2e9, 0.1); }), "Spreading power::2e+09 is out of range");
  EXPECT_EQ(thrown([] { cos_power(nan, 0.1); }), "Spreading power::nan is out of range");
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

TEST(SpreadAngle, FractionsZeroAndOneGiveTheLimits) {
  EXPECT_NEAR(spread_angle(0.0, 0.8, -0.5, 2.0), -0.5, 1e-6);
  EXPECT_NEAR(spread_angle(1.0, 0.8, -0.5, 2.0), 0.8, 1e-6);
  EXPECT_NEAR(spread_angle(0.5, 0.8, -0.8, 6.0), 0.0, 1e-6);
  EXPECT_NEAR(spread_angle(0.3, 0.4, 0.4, 6.0), 0.4, 1e-6);
  // For power 1: sin(theta) = 0.25 sin(-0.5) + 0.75 sin(0.8).
  EXPECT_NEAR(spread_angle(0.75, 0.8, -0.5, 1.0),
              std::asin(0.25 * std::sin(-0.5) + 0.75 * std::sin(0.8)), 1e-9);
}

TEST(SpreadAngle, LargePowersFollowTheirDistribution) {
  for (const double power : {1000.5, 2000.0, 30000.3, 1e6}) {
    const auto law = [&](Long t) { return std::pow(std::cos(t), Long{power}); };
    const double width = 1 / std::sqrt(power);
    // Beyond ten widths the distribution is negligible.
    const Long whole = simpson(law, -10 * width, 2 * width, 4000);
    for (const double fraction : {0.001, 0.2, 0.5, 0.9, 0.999}) {
      const double theta = spread_angle(fraction, 2 * width, -1.5, power);
      const Long share = simpson(law, -10 * width, theta, 4000) / whole;
      EXPECT_NEAR(static_cast<double>(share), fraction, 2e-6) << power;
    }
  }
}

// The shortest of five times to draw 199 angles.
double draw_time(double power) {
  double best = std::numeric_limits<double>::infinity();
  double sum = 0.0;
  for (int attempt = 0; attempt < 5; ++attempt) {
    const std::clock_t start = std::clock();
    for (int i = 1; i < 200; ++i) sum += spread_angle(i / 200.0, 1.5, -1.5, power);
    best = std::min(best, static_cast<double>(std::clock() - start));
  }
  EXPECT_NEAR(sum, 0.0, 1e-6);
  return best;
}

TEST(SpreadAngle, ALargePowerCostsAtMostTenTimesAsMuchAsAHundred) {
  const double time = draw_time(100.0);
  for (const double power : {1001.0, 20000.5, 1e6}) EXPECT_LT(draw_time(power), 10 * time) << power;
}

TEST(SpreadAngle, LimitsAreCheckedInAFixedOrder) {
  const auto refusal = [](double high, double low) {
    return thrown([&] { spread_angle(0.5, high, low, 2.0); });
  };
  EXPECT_EQ(refusal(1.0, -Base::Pi), "Minimum angle too small");
  EXPECT_EQ(refusal(4.0, -4.0), "Minimum angle too small");
  EXPECT_EQ(refusal(Base::Pi, -1.0), "Maximum angle too big");
  EXPECT_EQ(refusal(4.0, 5.0), "Maximum angle too big");
  EXPECT_EQ(refusal(0.5, 0.6), "Maximum angle less than minimum angle");
}

TEST(SpreadAngle, StopsAfterTwentyFivePasses) {
  // The square of the cosine vanishes at a right angle. There each pass reduces the remaining angle
  // x by about a third. x starts at pi / 4, the value of the integral.
  const double theta = spread_angle(0.5, std::numbers::pi / 2, std::numbers::pi / 2, 2.0);
  long double x = std::numbers::pi_v<long double> / 4;
  for (int pass = 0; pass < 25; ++pass) x -= (x / 2 - sinl(2 * x) / 4) / (sinl(x) * sinl(x));
  EXPECT_GT(x, 1e-5L);
  EXPECT_NEAR(std::numbers::pi / 2 - theta, static_cast<double>(x), 2e-6);
}

TEST(SpreadAngle, StopsAtAStepOfAMillionth) {
  // The cosine vanishes at a right angle. Each pass reduces the remaining angle x by tan(x / 2).
  // The passes start at 1, the value of the integral.
  const double theta = spread_angle(0.5, std::numbers::pi / 2, std::numbers::pi / 2, 1.0);
  double x = std::numbers::pi / 2 - 1;
  for (double step = 1.0; step > 1e-6;) {
    step = std::tan(x / 2);
    x -= step;
  }
  EXPECT_NEAR(std::numbers::pi / 2 - theta, x, 1e-8);
}

TEST(SpreadAngles, FollowAChangeOfThePowerAlone) {
  Maths::SpreadAngles draws;
  for (const double power : {4.0, 7.5, 4.0}) {
    EXPECT_EQ(draws.draw(0.25, 1.0, -1.2, power), spread_angle(0.25, 1.0, -1.2, power)) << power;
  }
}

TEST(SpreadAngles, DrawTheSameAnglesWhateverWasDrawnBefore) {
  Maths::SpreadAngles draws;
  const double infinite = std::numeric_limits<double>::infinity();
  for (const double power : {4.0, 4.0, 7.5, infinite, 7.5, 4.0}) {
    for (const double max_angle : {1.0, 1.0, 1.4}) {
      for (const double min_angle : {-1.2, -1.2, 0.1}) {
        for (const double fraction : {0.0, 0.25, 1.0}) {
          const auto draw = [&] { return draws.draw(fraction, max_angle, min_angle, power); };
          const auto alone = [&] { return spread_angle(fraction, max_angle, min_angle, power); };
          if (power == infinite) {
            EXPECT_EQ(thrown(draw), "Spreading power::inf is out of range");
          } else {
            EXPECT_EQ(draw(), alone());
          }
        }
      }
    }
  }
}

}  // namespace
