#include "maths/wavemaker_ratio.h"

#include <gtest/gtest.h>

#include <cmath>

#include "simpson.h"

namespace {

using Maths::flap_ratio;
using Maths::flap_ratio_angled;
using Maths::obliquity_factor;
using Maths::piston_ratio;
using Maths::piston_ratio_angled;

// Linear wavemaker theory: the wave height per stroke is 2 sinh(kd) times the integral of
// shape(z) k cosh(kz) over the depth, divided by cosh(kd) sinh(kd) + kd, where shape(z) is the
// stroke at the height z above the bottom.
template <typename Shape>
double theory(double k, double depth, double bottom_edge, Shape&& shape) {
  const double kd = k * depth;
  const double moved =
      simpson([&](double z) { return shape(z) * k * std::cosh(k * z); }, bottom_edge, depth, 2000);
  return 2 * std::sinh(kd) * moved / (std::cosh(kd) * std::sinh(kd) + kd);
}

TEST(WavemakerRatio, APistonFollowsTheTheoryForItsDraught) {
  for (const double k : {0.2, 1.0, 4.0, 12.0}) {
    for (const double e : {0.3, 0.8, 1.0}) {
      EXPECT_NEAR(piston_ratio(k, 1.0, e), theory(k, 1.0, 1.0 - e, [](double) { return 1.0; }),
                  1e-9)
          << k << " " << e;
    }
  }
}

TEST(WavemakerRatio, AFlapFollowsTheTheoryForItsHinge) {
  for (const double k : {0.2, 1.0, 4.0, 12.0}) {
    for (const double e : {0.3, 0.8, 1.0}) {
      // Per radian, a flap moves by its height above the hinge.
      EXPECT_NEAR(flap_ratio(k, 1.0, e),
                  theory(k, 1.0, 1.0 - e, [e](double z) { return z - (1.0 - e); }), 1e-9)
          << k << " " << e;
    }
  }
}

TEST(WavemakerRatio, AFlapHingedBelowTheBottomHasTheSameClosedForm) {
  const double k = 1.5;
  const double d = 1.0;
  const double e = 1.4;
  const double S = std::sinh(k * d);
  const double C = std::cosh(k * d);
  const double expected = 2 * S * (std::cosh(k * (e - d)) + k * e * S - C) / (k * (C * S + k * d));
  EXPECT_NEAR(flap_ratio(k, d, e), expected, 1e-12);
}

TEST(WavemakerRatio, APistonHasTheLimitsOfShallowAndDeepWater) {
  // The whole depth: kd in shallow water, 2 in deep.
  EXPECT_NEAR(piston_ratio(0.01, 0.5, 0.5) / (0.01 * 0.5), 1.0, 1e-4);
  EXPECT_NEAR(piston_ratio(40.0, 0.5, 0.5), 2.0, 1e-6);
  // A draught e in deep water: 2 (1 - exp(-ke)).
  EXPECT_NEAR(piston_ratio(40.0, 0.5, 0.1), 2 * (1 - std::exp(-4.0)), 1e-9);
}

TEST(WavemakerRatio, AFlapHasTheLimitsOfShallowAndDeepWater) {
  // Per radian, hinged at the bottom: kd / 2 of the stroke d at the water line in shallow water. In
  // deep water, with x = ke, 2 (x - 1 + exp(-x)) / k, which approaches 2e.
  EXPECT_NEAR(flap_ratio(0.01, 0.5, 0.5) / (0.01 * 0.5 / 2 * 0.5), 1.0, 1e-4);
  EXPECT_NEAR(flap_ratio(40.0, 0.5, 0.25), 2 * (10.0 - 1 + std::exp(-10.0)) / 40.0, 1e-9);
  EXPECT_NEAR(flap_ratio(300.0, 1.0, 1.0), 2.0, 2.0 / 300.0 + 1e-9);
  // A hinge at e in shallow water: k e^2 / 2.
  EXPECT_NEAR(flap_ratio(0.01, 0.5, 0.2) / (0.01 * 0.2 * 0.2 / 2), 1.0, 1e-4);
}

TEST(WavemakerRatio, AFlapHingedAtTheWaterLineHasANaNRatio) {
  for (const double k : {2.0, 40.0, 400.0}) {
    EXPECT_TRUE(std::isnan(flap_ratio(k, 1.0, 0.0))) << k;
    EXPECT_EQ(piston_ratio(k, 1.0, 0.0), 0.0) << k;
  }
}

// The closed forms in long double, whose range covers the exponentials of these depths.
using Long = long double;
struct ClosedForm {
  ClosedForm(Long k, Long d, Long e)
      : S(std::sinh(k * d)),
        kinetic(std::cosh(k * d) * S + k * d),
        piston((S - std::sinh(k * (d - e))) * 2 * S / kinetic),
        flap((std::cosh(k * (d - e)) + k * e * S - std::cosh(k * d)) * 2 * S / (kinetic * k)) {}
  Long S;
  Long kinetic;
  Long piston;
  Long flap;
};

void expect_closed_forms(double k, double depth, double e) {
  const ClosedForm exact(k, depth, e);
  const double w = 0.3;
  const double theta = 0.6;
  const double angled = 1 / obliquity_factor(k, w, theta);
  const auto expect_ratio = [&](double found, Long expected, const char* what) {
    EXPECT_LT(std::abs(found / expected - 1), 1e-11L)
        << what << " " << k << " " << depth << " " << e;
  };
  expect_ratio(piston_ratio(k, depth, e), exact.piston, "piston");
  expect_ratio(flap_ratio(k, depth, e), exact.flap, "flap");
  expect_ratio(piston_ratio_angled(k, depth, e, w, theta), exact.piston * angled, "angled piston");
  expect_ratio(flap_ratio_angled(k, depth, e, w, theta), exact.flap * angled, "angled flap");
}

TEST(WavemakerRatio, DeepWaterHasTheClosedFormsForAnyEdge) {
  // Up to k depth = 2000, about 7 Hz in 10 m of water.
  for (const double depth : {0.3, 10.0, 30.0}) {
    for (const double kd : {20.0, 24.999, 25.001, 40.0, 200.0, 355.0, 400.0, 712.0, 2000.0}) {
      for (const double e : {0.01, 0.3, 0.999, 1.0, 1.001, 1.9, 2.1}) {
        expect_closed_forms(kd / depth, depth, e * depth);
      }
      // The edge may be above the water line.
      expect_closed_forms(kd / depth, depth, -0.2 * depth);
    }
  }
}

TEST(WavemakerRatio, ASmallEdgeInDeepWaterFollowsTheSeries) {
  // 2 y (1 - y / 2) and y^2 (1 - y / 3) / k, with y = k e.
  const double k = 50.0;
  const double y = 1e-6;
  EXPECT_NEAR(piston_ratio(k, 10.0, y / k) / (2 * y * (1 - y / 2)), 1.0, 1e-11);
  EXPECT_NEAR(flap_ratio(k, 10.0, y / k) * k / (y * y * (1 - y / 3)), 1.0, 1e-9);
}

TEST(WavemakerRatio, ObliquityIsTheCosineDividedByTheMeanOverTheSegment) {
  const double k = 6.0;
  const double w = 0.5;
  for (const double theta : {-1.2, -0.4, 0.1, 0.7, 2.5}) {
    const double mean =
        simpson([&](double y) { return std::cos(k * std::sin(theta) * y); }, -w / 2, w / 2, 400) /
        w;
    EXPECT_NEAR(obliquity_factor(k, w, theta), std::cos(theta) / mean, 1e-10) << theta;
    EXPECT_NEAR(flap_ratio_angled(k, 1.0, 0.8, w, theta),
                flap_ratio(k, 1.0, 0.8) * mean / std::cos(theta), 1e-10);
    EXPECT_NEAR(piston_ratio_angled(k, 1.0, 0.8, w, theta),
                piston_ratio(k, 1.0, 0.8) * mean / std::cos(theta), 1e-10);
  }
}

TEST(WavemakerRatio, AShortSegmentLosesASixthOfItsPhaseSquared) {
  // sin(v) / v = 1 - v^2 / 6, at an edge phase v of 5e-4.
  const double theta = 0.5;
  const double k = 2.0;
  const double v = 5e-4;
  const double w = 2 * v / (k * std::sin(theta));
  const double mean = 1 - v * v / 6;
  EXPECT_NEAR(obliquity_factor(k, w, theta), std::cos(theta) / mean, 1e-13);
  EXPECT_NEAR(piston_ratio_angled(k, 1.0, 0.8, w, theta),
              piston_ratio(k, 1.0, 0.8) * mean / std::cos(theta), 1e-13);
}

TEST(WavemakerRatio, ANarrowSegmentHasTheCosineAlone) {
  EXPECT_EQ(obliquity_factor(1.0, 1e-6, 0.5), std::cos(0.5));
  EXPECT_EQ(obliquity_factor(5.0, 0.5, 0.0), 1.0);
  EXPECT_EQ(flap_ratio_angled(2.0, 1.0, 0.8, 0.5, 0.0), flap_ratio(2.0, 1.0, 0.8));
  EXPECT_NEAR(piston_ratio_angled(2.0, 1.0, 0.8, 1e-7, 0.5),
              piston_ratio(2.0, 1.0, 0.8) / std::cos(0.5), 1e-14);
}

}  // namespace
