// A user's formula for the JONSWAP spectrum, compared with the published form in C++.
//
// Hasselmann et al., "Measurements of wind-wave growth and swell decay during the Joint North Sea
// Wave Project (JONSWAP)", 1973.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>

#include "testutil.h"

namespace Expression {
namespace {

constexpr double Phillips = 0.0081;
constexpr double Peak = 0.7;  // Hz
constexpr double Enhancement = 3.3;

// m2/Hz
double jonswap(double f) {
  const double g = 9.81;
  const double sigma = f <= Peak ? 0.07 : 0.09;
  const double omega = 2.0 * std::numbers::pi * f;
  // The published tail is per rad/s; per Hz it is 2 pi times as large.
  const double tail =
      Phillips * g * g * 2.0 * std::numbers::pi / (omega * omega * omega * omega * omega);
  const double cut = std::exp(-5.0 / 4.0 / std::pow(f / Peak, 4));
  const double distance = (f - Peak) / (sigma * Peak);
  return tail * cut * std::pow(Enhancement, std::exp(-0.5 * distance * distance));
}

std::string formula(const std::string& sigma) {
  return "alpha*9.81^2*(2*pi)^-4*$[Hz]^-5 * exp(-1.25*(fp[Hz]/$[Hz])^4)"
         " * gamma^exp(-square(($[Hz]-fp[Hz])/(" +
         sigma + "*fp[Hz]))/2) @m2s";
}

TEST(Jonswap, TheFormulaHasThePublishedValues) {
  Function rising(formula("0.07"));
  Function falling(formula("0.09"));
  Base::Params source;
  source.insert("alpha", Phillips, "");
  source.insert("fp", 1000.0 * Peak, "mHz");
  source.insert("gamma", Enhancement, "");
  Base::Params used;
  EXPECT_FALSE(rising.bind(source, used));
  EXPECT_FALSE(falling.bind(source, used));
  EXPECT_EQ(used.entries().size(), 3U);
  for (double f = 0.25; f < 4.0; f += 0.01) {
    SCOPED_TRACE(f);
    const Function& function = f <= Peak ? rising : falling;
    const double expected = jonswap(f);
    for (const Base::Quantity& variable :
         {quantity(f, "Hz"), quantity(2.0 * std::numbers::pi * f, "rad/s")}) {
      const Base::Quantity result = function.evaluate(variable);
      EXPECT_NEAR(result.value, expected, 1e-12 * expected);
      EXPECT_EQ(result.units, Base::resolve_units("m2/Hz"));
    }
  }
}

}  // namespace
}  // namespace Expression
