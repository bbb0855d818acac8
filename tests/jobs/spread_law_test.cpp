#include "jobs/spread_law.h"

#include <cmath>

#include "gtest/gtest.h"
#include "support/integral.h"

using Jobs::SpreadLaw;

namespace {

SpreadLaw law_of(bool half_angle, double mean, double below, double above, bool asked) {
  SpreadLaw law;
  law.half_angle = half_angle;
  law.mean = mean;
  law.below = below;
  law.above = above;
  law.limits_asked = asked;
  return law;
}

// By Simpson's rule with many steps.
std::complex<double> integrated(const SpreadLaw& law, double s) {
  const auto weight = [&](double d) {
    return std::pow(law.half_angle ? std::cos(d / 2) : std::cos(d), law.half_angle ? 2 * s : s);
  };
  const auto part = [&](double (*wave)(double)) {
    return Testing::simpson([&](double d) { return weight(d) * wave(d); }, -law.below, law.above,
                            20000);
  };
  const double all =
      Testing::simpson([&](double d) { return weight(d); }, -law.below, law.above, 20000);
  return std::complex<double>(part(std::cos), part(std::sin)) / all * std::polar(1.0, law.mean);
}

void expect_near(std::complex<double> a, std::complex<double> b) {
  EXPECT_NEAR(a.real(), b.real(), 1e-6);
  EXPECT_NEAR(a.imag(), b.imag(), 1e-6);
}

}  // namespace

TEST(SpreadLaw, MomentsWithinLimitsAreThoseOfTheIntegral) {
  for (const double s : {1.0, 4.0, 10.0, 75.0}) {
    const SpreadLaw half = law_of(true, 0.3, 1.2, 0.7, true);
    expect_near(Jobs::first_moment(half, s), integrated(half, s));
    const SpreadLaw whole = law_of(false, -0.2, 1.2, 0.7, true);
    expect_near(Jobs::first_moment(whole, s), integrated(whole, s));
  }
}

TEST(SpreadLaw, LimitsOfTheSiteAreNotAskedFor) {
  for (const double s : {1.0, 4.0, 10.0, 75.0}) {
    expect_near(Jobs::asked_moment(law_of(true, 0.3, 1.2, 0.7, false), s),
                integrated(law_of(true, 0.3, M_PI, M_PI, false), s));
    expect_near(Jobs::asked_moment(law_of(false, 0.3, 1.2, 0.7, false), s),
                integrated(law_of(false, 0.3, M_PI / 2, M_PI / 2, false), s));
    const SpreadLaw asked = law_of(true, 0.3, 1.2, 0.7, true);
    expect_near(Jobs::asked_moment(asked, s), integrated(asked, s));
  }
}

TEST(SpreadLaw, AVeryHighPowerHasNoSpread) {
  EXPECT_NEAR(std::abs(Jobs::first_moment(law_of(true, 0, 1, 1, true), 1e6)), 1, 1e-5);
}

TEST(SpreadLaw, APowerThatIsNotFiniteIsNaN) {
  EXPECT_TRUE(std::isnan(std::abs(Jobs::first_moment(law_of(true, 0, 1, 1, true), NAN))));
  EXPECT_TRUE(std::isnan(std::abs(Jobs::asked_moment(law_of(true, 0, 1, 1, false), -1))));
  for (const bool asked : {false, true}) {
    const SpreadLaw law = law_of(false, 0, 1, 1, asked);
    EXPECT_TRUE(std::isnan(std::abs(Jobs::asked_moment(law, INFINITY)))) << asked;
  }
}
