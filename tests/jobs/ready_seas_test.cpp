// Ready seas with closed forms: shape, peak and moments against the published formulas.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numbers>
#include <string>

#include "jobs/ready_sea.h"
#include "ready.h"

namespace {

using Testing::completed;
using Testing::LibraryDensity;
using Testing::moment;
using Testing::peak_of;
using Testing::Values;

constexpr double pi = std::numbers::pi;
constexpr double hs = 0.08;

// The formulas' pi differs in the 13th decimal, which an exponent can make a hundred times as
// large.
void expect_shape(const LibraryDensity& found, const std::function<double(double)>& wanted,
                  double peak, double tolerance = 1e-10) {
  const double greatest = wanted(peak);
  for (double f = 0.2 * peak; f < 10.0 * peak; f *= 1.003) {
    // Relative, down to densities that no wave has.
    EXPECT_NEAR(found(f), wanted(f), tolerance * wanted(f) + 1e-18 * greatest) << f;
  }
}

// A spectrum a / f^5 exp(-b / f^4): its moments are a / 4 b^(n/4 - 1) tgamma(1 - n/4), and its peak
// is at (0.8 b)^(1/4).
void expect_fifth_power(const std::string& name, const Values& values, double a, double b) {
  SCOPED_TRACE(name);
  const LibraryDensity density(name, values);
  const double peak = std::pow(0.8 * b, 0.25);
  expect_shape(
      density, [&](double f) { return a / std::pow(f, 5) * std::exp(-b / std::pow(f, 4)); }, peak);
  EXPECT_NEAR(peak_of(density, 0.5 * peak, 2.0 * peak) / peak, 1.0, 1e-6);
  const Base::Params params = completed(name, values);
  EXPECT_NEAR(Jobs::find_ready_sea(name)->peak(params) / peak, 1.0, 1e-12);
  for (int n = -1; n <= 2; ++n) {
    const double wanted = a / 4 * std::pow(b, n / 4.0 - 1) * std::tgamma(1 - n / 4.0);
    EXPECT_NEAR(moment(density, peak, n) / wanted, 1.0, 1e-8) << n;
  }
}

TEST(ReadySeas, PiersonMoskowitzIsThePublishedTailWithACutForTheHeight) {
  const double a = 0.0081 * 9.81 * 9.81 / std::pow(2 * pi, 4);
  const double m0 = hs * hs / 16;
  expect_fifth_power("pierson_moskowitz", {{"hs", 80, "mm"}}, a, a / (4 * m0));
  expect_fifth_power("pierson_moskowitz", {{"hs", 80, "mm"}, {"alpha", 0.0162, ""}}, 2 * a,
                     2 * a / (4 * m0));
}

TEST(ReadySeas, PiersonMoskowitzHasTheCoefficientsOfTheHeightForm) {
  // Per rad/s the literature has 0.78 / w^5 exp(-3.11 / (hs^2 w^4)), for g in m/s2.
  const LibraryDensity density("pierson_moskowitz", {{"hs", 3.0, "m"}});
  for (const double w : {0.5, 0.7, 1.0, 2.0}) {
    const double published = 0.78 / std::pow(w, 5) * std::exp(-3.11 / (9.0 * std::pow(w, 4)));
    EXPECT_NEAR(density(w / (2 * pi)) / (2 * pi) / published, 1.0, 0.02) << w;
  }
}

TEST(ReadySeas, BretschneiderHasItsHeightAndPeak) {
  const double fp = 1 / 1.6;
  expect_fifth_power("bretschneider", {{"hs", 80, "mm"}, {"tp", 1.6, "s"}},
                     5.0 / 16 * hs * hs * std::pow(fp, 4), 1.25 * std::pow(fp, 4));
}

TEST(ReadySeas, IttcHasItsHeightAndMeanPeriod) {
  const double t1 = 1.25;
  const double b = 1 / std::pow(std::tgamma(0.75) * t1, 4);
  expect_fifth_power("ittc", {{"hs", 80, "mm"}, {"t1", t1, "s"}}, hs * hs / 4 * b, b);
  const LibraryDensity density("ittc", {{"hs", 80, "mm"}, {"t1", t1, "s"}});
  EXPECT_NEAR(moment(density, 0.6, 0) / moment(density, 0.6, 1), t1, 1e-8);
}

TEST(ReadySeas, IttcHasThePublishedCoefficients) {
  const LibraryDensity density("ittc", {{"hs", 3.0, "m"}, {"t1", 8.0, "s"}});
  for (const double w : {0.4, 0.6, 0.9, 1.5}) {
    const double published = 173 * 9.0 / std::pow(8.0, 4) / std::pow(w, 5) *
                             std::exp(-691 / (std::pow(8.0, 4) * std::pow(w, 4)));
    EXPECT_NEAR(density(w / (2 * pi)) / (2 * pi) / published, 1.0, 0.004) << w;
  }
}

struct OchiHubbleSea {
  double height, tp, lambda;

  double density(double f) const {
    const double w = 2 * pi * f;
    const double wp = 2 * pi / tp;
    const double c = (4 * lambda + 1) / 4;
    return 2 * pi * 0.25 * std::pow(c * std::pow(wp, 4), lambda) / std::tgamma(lambda) * height *
           height / std::pow(w, 4 * lambda + 1) * std::exp(-c * std::pow(wp / w, 4));
  }
  double moment(int n) const {
    return height * height / 16 * std::pow(lambda + 0.25, n / 4.0) * std::tgamma(lambda - n / 4.0) /
           std::tgamma(lambda) * std::pow(tp, -n);
  }
};

void expect_ochi_hubble(const OchiHubbleSea& one, const OchiHubbleSea& two) {
  const Values values{{"hs1", one.height, "m"}, {"tp1", one.tp, "s"}, {"lambda1", one.lambda, ""},
                      {"hs2", two.height, "m"}, {"tp2", two.tp, "s"}, {"lambda2", two.lambda, ""}};
  const LibraryDensity density("ochi_hubble", values);
  const double peak = Jobs::find_ready_sea("ochi_hubble")->peak(completed("ochi_hubble", values));
  expect_shape(
      density, [&](double f) { return one.density(f) + two.density(f); }, peak);
  for (int n = -1; n <= 2; ++n) {
    EXPECT_NEAR(moment(density, peak, n) / (one.moment(n) + two.moment(n)), 1.0, 1e-7) << n;
  }
  const double greatest = density(peak);
  for (double f = 0.1; f < 5.0; f += 0.001) EXPECT_LT(density(f), 1.1 * greatest) << f;
}

TEST(ReadySeas, OchiHubbleIsTheSumOfItsTwoSeas) {
  expect_ochi_hubble({0.06, 2.2, 6.1}, {0.05, 1.1, 1.0});
  expect_ochi_hubble({0.02, 2.5, 3.0}, {0.09, 0.9, 2.54});
}

TEST(ReadySeas, OchiHubbleWithAShapeOf1IsBretschneider) {
  const LibraryDensity both("ochi_hubble", {{"hs1", 0.06, "m"},
                                            {"tp1", 1.6, "s"},
                                            {"lambda1", 1, ""},
                                            {"hs2", 0.08, "m"},
                                            {"tp2", 1.6, "s"},
                                            {"lambda2", 1, ""}});
  const LibraryDensity one("bretschneider", {{"hs", 0.1, "m"}, {"tp", 1.6, "s"}});
  for (double f = 0.3; f < 3.0; f += 0.01) EXPECT_NEAR(both(f) / one(f), 1.0, 1e-11) << f;
}

TEST(ReadySeas, GaussianSwellIsANormalDensityWithoutItsNegativeFrequencies) {
  for (const double width : {0.02, 0.3, 1.5}) {
    SCOPED_TRACE(width);
    const double fp = 0.5;
    const LibraryDensity density("gaussian_swell",
                                 {{"hs", 80, "mm"}, {"tp", 2, "s"}, {"width", width, "Hz"}});
    const double share = 0.5 * std::erfc(-fp / width / std::sqrt(2.0));
    const auto normal = [&](double f) {
      return std::exp(-0.5 * std::pow((f - fp) / width, 2)) / (width * std::sqrt(2 * pi)) / share;
    };
    const double m0 = hs * hs / 16;
    for (double f = 0.01; f < 3.0; f += 0.01) {
      EXPECT_NEAR(density(f), m0 * normal(f), 1e-12 * density(f)) << f;
    }
    EXPECT_NEAR(peak_of(density, 0.4, 0.6), fp, 1e-6);
    // Of a normal density cut at 0.
    const double edge = width * width * normal(0.0);
    const double reach = fp + 12 * width;
    const auto found = [&](int n) {
      return Testing::simpson([&](double f) { return std::pow(f, n) * density(f); }, 0.0, reach,
                              20000);
    };
    EXPECT_NEAR(found(0) / m0, 1.0, 1e-10);
    EXPECT_NEAR(found(1) / (m0 * (fp + edge)), 1.0, 1e-10);
    EXPECT_NEAR(found(2) / (m0 * (fp * fp + width * width + fp * edge)), 1.0, 1e-10);
  }
}

TEST(ReadySeas, WhiteNoiseHasItsEnergyBetweenItsLimits) {
  const LibraryDensity density("white_noise",
                               {{"hs", 80, "mm"}, {"f_min", 0.5, "Hz"}, {"f_max", 1.0, "Hz"}});
  for (double f = 0.5; f <= 1.0; f += 0.05) {
    EXPECT_NEAR(density(f), hs * hs / 16 / 0.5, 1e-14) << f;
  }
  EXPECT_TRUE(Jobs::find_ready_sea("white_noise")->ends_at_limits);
}

}  // namespace
