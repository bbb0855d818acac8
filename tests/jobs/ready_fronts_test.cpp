// Ready seas through the library: the fronts that a run gets.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

#include "jobs/ready_sea.h"
#include "ready.h"
#include "sea/single.h"
#include "sea/spectrum.h"
#include "support/modifiers.h"

namespace {

using Testing::completed;
using Testing::Values;

constexpr double repeat = 64.0;

Jobs::ReadyContext context() {
  Jobs::ReadyContext made = Testing::basin();
  made.repeat = repeat;
  return made;
}

// The fronts of a ready sea in a run over the basin's frequencies.
Testing::Sea built(const std::string& name, const Values& values) {
  Testing::Sea sea;
  sea.run = Testing::run_of(repeat, 0.35, 1.4);
  sea.fronts = Testing::empty_set(sea.run);
  Synthesis::Spectrum spectrum(name, Jobs::find_ready_sea(name)->formula);
  Base::Params params = completed(name, values, context());
  spectrum.set(params);
  spectrum.evaluate(sea.fronts, {sea.run, sea.tank, sea.messages});
  return sea;
}

template <typename Term>
double sum_over(const Testing::Sea& sea, Term term) {
  double sum = 0.0;
  for (const auto& slot : sea.fronts.slots) {
    for (const Maths::HarmonicFront& front : slot) sum += term(front.amp);
  }
  return sum;
}

double height(const Testing::Sea& sea) {
  return 4 * std::sqrt(sum_over(sea, [](double a) { return a * a / 2; }));
}

double total(const Testing::Sea& sea) {
  return sum_over(sea, [](double a) { return a; });
}

double jonswap_shape(double f, double tp) {
  const double x = f * tp;
  const double r = (x - 1) / (x <= 1 ? 0.07 : 0.09);
  return std::pow(x, -5) * std::exp(-1.25 * std::pow(x, -4)) * std::pow(3.3, std::exp(-r * r / 2));
}

TEST(ReadyFronts, JonswapGivesEachHarmonicTheEnergyOfItsBand) {
  const double tp = 1.6;
  const auto shape = [&](double f) { return jonswap_shape(f, tp); };
  const double factor = 0.08 * 0.08 / 16 / Testing::moment(shape, 1 / tp, 0);
  const Testing::Sea sea = built("jonswap", {{"hs", 80, "mm"}, {"tp", tp, "s"}});
  ASSERT_EQ(sea.run.min_harmonic(), 22U);
  ASSERT_EQ(sea.run.max_harmonic(), 90U);
  for (std::uint64_t h = 22; h <= 90; ++h) {
    const double f = static_cast<double>(h) / repeat;
    const double band = factor * Testing::simpson(shape, f - 0.5 / repeat, f + 0.5 / repeat, 2000);
    ASSERT_EQ(sea.fronts.slots[h].size(), 1U) << h;
    const double amp = sea.fronts.slots[h][0].amp;
    // The library integrates to a thousandth of the density in the middle.
    EXPECT_NEAR(amp * amp / 2, band, 1e-3 * factor * shape(f) / repeat + 1e-7 / repeat) << h;
  }
}

TEST(ReadyFronts, TheCrestOfAFocusedGroupIsMadeThoughTheRunCutsItsSpectrum) {
  for (const double tp : {1.0, 1.6, 2.6}) {
    const Values values{{"crest", 120, "mm"}, {"tp", tp, "s"}};
    EXPECT_NEAR(total(built("focused", values)), 0.12, 1e-4 * 0.12) << tp;
  }
  const Values cut{
      {"crest", 120, "mm"}, {"tp", 1.6, "s"}, {"f_min", 0.6, "Hz"}, {"f_max", 0.803, "Hz"}};
  EXPECT_NEAR(total(built("focused", cut)), 0.12, 1e-3 * 0.12);
  const Values wide{
      {"crest", 120, "mm"}, {"tp", 1.6, "s"}, {"f_min", 0.01, "Hz"}, {"f_max", 8, "Hz"}};
  EXPECT_NEAR(total(built("focused", wide)), 0.12, 1e-4 * 0.12);
}

TEST(ReadyFronts, AmplitudesOfAFocusedGroupAreProportionalToTheSpectrum) {
  const double tp = 1.6;
  const auto shape = [&](double f) { return jonswap_shape(f, tp); };
  const Testing::Sea sea = built("focused", {{"crest", 120, "mm"}, {"tp", tp, "s"}});
  const double whole = Testing::simpson(shape, 21.5 / repeat, 90.5 / repeat, 20000);
  for (std::uint64_t h = 30; h <= 90; ++h) {
    const double f = static_cast<double>(h) / repeat;
    const double band = Testing::simpson(shape, f - 0.5 / repeat, f + 0.5 / repeat, 2000);
    EXPECT_NEAR(sea.fronts.slots[h].at(0).amp / (0.12 * band / whole), 1.0, 1e-3) << h;
  }
}

TEST(ReadyFronts, WhiteNoiseHasItsHeightWhereverItsLimitsLie) {
  for (const double low : {0.5, 0.503, 0.5078125, 0.515}) {
    for (const double high : {0.6, 0.75, 1.0}) {
      const Values values{{"hs", 80, "mm"}, {"f_min", low, "Hz"}, {"f_max", high, "Hz"}};
      const Testing::Sea sea = built("white_noise", values);
      EXPECT_NEAR(height(sea), 0.08, 1e-5 * 0.08) << low << " to " << high;
      const auto first = static_cast<std::size_t>(std::floor(low * repeat + 0.5));
      EXPECT_TRUE(sea.fronts.slots[first - 1].empty());
      EXPECT_FALSE(sea.fronts.slots[first].empty());
    }
  }
  EXPECT_NEAR(height(built("white_noise", {{"hs", 80, "mm"}})), 0.08, 1e-5 * 0.08);
}

TEST(ReadyFronts, ARegularWaveIsOneSineOfHalfTheHeight) {
  Base::Params params =
      completed("regular", {{"height", 100, "mm"}, {"period", 1.6, "s"}, {"angle", 15, "deg"}});
  Synthesis::Single single;
  single.set(params);
  Testing::Sea sea(repeat);
  single.evaluate(sea.fronts, {sea.run, sea.tank, sea.messages});
  ASSERT_EQ(sea.at(40).size(), 1U);
  EXPECT_DOUBLE_EQ(sea.at(40)[0].amp, 0.05);
  EXPECT_DOUBLE_EQ(sea.at(40)[0].angle, 15 * Testing::degree);
  EXPECT_EQ(sea.at(40)[0].phase, 0.0);
}

}  // namespace
