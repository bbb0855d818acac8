// JONSWAP and TMA against the published formulas, normalised here by an integral of their own.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numbers>

#include "jobs/ready_sea.h"
#include "ready.h"

namespace {

using Testing::completed;
using Testing::LibraryDensity;
using Testing::moment;
using Testing::Values;

constexpr double pi = std::numbers::pi;
constexpr double hs = 0.08;
constexpr double tp = 1.6;

struct Shape {
  double gamma = 3.3;
  double sigma_a = 0.07;
  double sigma_b = 0.09;

  double operator()(double f) const {
    const double x = f * tp;
    const double r = (x - 1) / (x <= 1 ? sigma_a : sigma_b);
    return std::pow(x, -5) * std::exp(-1.25 * std::pow(x, -4)) *
           std::pow(gamma, std::exp(-r * r / 2));
  }
  Values values() const {
    return {{"hs", 80, "mm"},
            {"tp", tp, "s"},
            {"gamma", gamma, ""},
            {"sigma_a", sigma_a, ""},
            {"sigma_b", sigma_b, ""}};
  }
};

// kh of linear theory, by Newton's method for y tanh(y) = (2 pi f)^2 depth / g. Ten steps reach
// rounding.
double exact_kh(double f, double depth) {
  const double a = std::pow(2 * pi * f, 2) * depth / 9.81;
  double y = std::fmax(a, std::sqrt(a));
  for (int step = 0; step < 10; ++step) {
    const double t = std::tanh(y);
    y -= (y * t - a) / (t + y * (1 - t * t));
  }
  return y;
}

// Shape, energy and moments of a density that is `shape` up to a factor.
void expect_scaled(const LibraryDensity& density, const std::function<double(double)>& shape,
                   double tolerance) {
  const double factor = hs * hs / 16 / moment(shape, 1 / tp, 0);
  for (double x = 0.3; x < 12.0; x *= 1.002) {
    const double wanted = factor * shape(x / tp);
    EXPECT_NEAR(density(x / tp), wanted, tolerance * wanted) << x;
  }
  EXPECT_NEAR(moment(density, 1 / tp, 0) / (hs * hs / 16), 1.0, 1e-7);
  for (const int n : {-1, 1, 2}) {
    EXPECT_NEAR(moment(density, 1 / tp, n) / (factor * moment(shape, 1 / tp, n)), 1.0, tolerance);
  }
}

TEST(ReadyPeakedSeas, JonswapIsThePublishedShapeWithTheHeightThatIsAskedFor) {
  for (const double gamma : {1.0, 2.0, 3.3, 7.0, 10.0}) {
    SCOPED_TRACE(gamma);
    const Shape shape{gamma};
    const LibraryDensity density("jonswap", shape.values());
    expect_scaled(density, shape, 1e-6);
    EXPECT_NEAR(Testing::peak_of(density, 0.5 / tp, 2 / tp) * tp, 1.0, 1e-6);
  }
}

TEST(ReadyPeakedSeas, JonswapTakesOtherWidths) {
  for (const Shape shape : {Shape{3.3, 0.001, 0.002}, Shape{5.0, 0.2, 0.05}, Shape{3.3, 1.0, 1.0},
                            Shape{100.0, 0.01, 0.3}}) {
    SCOPED_TRACE(shape.sigma_a);
    expect_scaled(LibraryDensity("jonswap", shape.values()), shape, 1e-6);
  }
}

TEST(ReadyPeakedSeas, JonswapWithAGammaOf1IsBretschneider) {
  const LibraryDensity jonswap("jonswap", Shape{1.0}.values());
  const LibraryDensity plain("bretschneider", {{"hs", hs, "m"}, {"tp", tp, "s"}});
  for (double f = 0.3; f < 3.0; f += 0.01) EXPECT_NEAR(jonswap(f) / plain(f), 1.0, 1e-9) << f;
  EXPECT_NEAR(completed("jonswap", Shape{1.0}.values()).get("norm", ""), 5.0 / 16, 1e-9);
}

TEST(ReadyPeakedSeas, JonswapHasThePublishedRatiosOfPeriods) {
  // Polynomials fitted for gamma 1 to 7: DNV-RP-C205, "Environmental conditions and environmental
  // loads".
  for (const double g : {1.0, 2.0, 3.3, 5.0, 7.0}) {
    const LibraryDensity density("jonswap", Shape{g}.values());
    const double m0 = moment(density, 1 / tp, 0);
    const double tm01 = m0 / moment(density, 1 / tp, 1) / tp;
    const double tm02 = std::sqrt(m0 / moment(density, 1 / tp, 2)) / tp;
    EXPECT_NEAR(tm01, 0.7303 + 0.04936 * g - 0.006556 * g * g + 0.0003610 * g * g * g, 2e-3) << g;
    EXPECT_NEAR(tm02, 0.6673 + 0.05037 * g - 0.006230 * g * g + 0.0003341 * g * g * g, 2e-3) << g;
  }
}

TEST(ReadyPeakedSeas, TmaHasTheDepthFactorOfKitaigorodskiiAtAnyDepth) {
  for (const double depth : {0.02, 0.35, 0.7, 2.0, 5000.0}) {
    SCOPED_TRACE(depth);
    const Shape deep;
    const auto shape = [&](double f) {
      const double kh = exact_kh(f, depth);
      const double spread = kh < 300 ? 2 * kh / std::sinh(2 * kh) : 0.0;
      return deep(f) * std::pow(std::tanh(kh), 2) / (1 + spread);
    };
    Values values = deep.values();
    values.push_back({"depth", depth, "m"});
    // The formula approximates the wave number.
    expect_scaled(LibraryDensity("tma", values), shape, 1e-4);
  }
}

TEST(ReadyPeakedSeas, TmaTakesTheDepthAtThePaddlesWithoutOne) {
  Values values = Shape{}.values();
  const LibraryDensity at_paddles("tma", values);
  values.push_back({"depth", 70, "cm"});
  const LibraryDensity given("tma", values);
  for (double f = 0.3; f < 3.0; f += 0.1) EXPECT_NEAR(at_paddles(f) / given(f), 1.0, 1e-12) << f;
}

TEST(ReadyPeakedSeas, TmaInDeepWaterIsJonswap) {
  Values values = Shape{}.values();
  const LibraryDensity jonswap("jonswap", values);
  values.push_back({"depth", 1000, "m"});
  const LibraryDensity tma("tma", values);
  for (double f = 0.3; f < 3.0; f += 0.01) EXPECT_NEAR(tma(f) / jonswap(f), 1.0, 1e-9) << f;
}

}  // namespace
