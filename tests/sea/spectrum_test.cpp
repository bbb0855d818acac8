#include "sea/spectrum.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "components.h"
#include "support/sea_states.h"
#include "support/thrown.h"

namespace {

using Synthesis::Spectrum;
using Testing::Evaluated;
using Testing::pi;
using Testing::run_of;
using Testing::SeaState;
using Testing::thrown;

// A band is integrated by the mean of the trapezium rule and the midpoint rule in n equal parts.
// n is 1, or the first power of 2 at which the rules agree to a thousandth of the density at the
// band's middle or to 1e-7, but at most 256.
constexpr int most_parts = 256;

// The mean of the rules for a constant density that starts from another value at its left end: the
// midpoint rule is exact, and the trapezium rule is too large by half a part of the difference.
double from_another_value(double left_value, double density, double width, int parts) {
  return width * (density + (left_value - density) / (4.0 * parts));
}

Evaluated fronts_of(const std::string& text, const Maths::RunData& run, Base::Params in = {}) {
  Spectrum spectrum("sea", text);
  spectrum.set(in);
  return Testing::evaluate(spectrum, run);
}

double energy(const Evaluated& result) {
  double sum = 0.0;
  for (std::size_t h : result.used()) sum += result.amp(h) * result.amp(h) / 2;
  return sum;
}

TEST(Spectrum, HasNoParametersExceptThoseOfItsText) {
  Spectrum spectrum("sea", "1@Hz#1@m2s#2@Hz");
  Base::Params params;
  spectrum.query(params);
  spectrum.set(params);
  EXPECT_EQ(params.entries().size(), 0U);
  EXPECT_EQ(params.comment_size(), 0U);
}

TEST(Spectrum, ConstantVarianceDensityGivesEachHarmonicItsBand) {
  const Evaluated result = fronts_of("0.5@Hz#3@m2s#1@Hz", run_of(8.0, 0.125, 4.0));
  ASSERT_EQ(result.used(), (std::vector<std::size_t>{4, 5, 6, 7, 8}));
  for (std::size_t h : result.used()) {
    EXPECT_DOUBLE_EQ(result.amp(h), std::sqrt(2 * 3.0 * 0.125));
    EXPECT_EQ(result.fronts.slots[h][0].angle, 0.0);
    EXPECT_EQ(result.fronts.slots[h][0].phase, 0.0);
  }
  EXPECT_TRUE(result.messages.empty());
  EXPECT_EQ(result.output, "");
}

TEST(Spectrum, LinearDensityIsIntegratedExactly) {
  const Evaluated result = fronts_of("0.5@Hz#2*$[Hz]+1@m2s#1@Hz", run_of(8.0, 0.125, 4.0));
  for (std::size_t h = 4; h <= 8; ++h) {
    const double f = static_cast<double>(h) / 8;
    EXPECT_NEAR(result.amp(h), std::sqrt(2 * (2 * f + 1) / 8), 1e-14);
  }
}

TEST(Spectrum, AmplitudeDensityAndLengthGiveTheIntegralItself) {
  const Maths::RunData run = run_of(8.0, 0.125, 4.0);
  EXPECT_DOUBLE_EQ(fronts_of("0.5@Hz#3@ms#1@Hz", run).amp(5), 3.0 / 8);
  EXPECT_DOUBLE_EQ(fronts_of("0.5@Hz#3@m#1@Hz", run).amp(5), 3.0 / 8);
  EXPECT_DOUBLE_EQ(fronts_of("0.5@Hz#0-3@ms#1@Hz", run).amp(5), -3.0 / 8);
}

TEST(Spectrum, DoublingTheRepeatHalvesAmplitudesOfLengthOutput) {
  const double single = fronts_of("0.5@Hz#3@mm#1@Hz", run_of(8.0, 0.125, 4.0)).amp(6);
  const double doubled = fronts_of("0.5@Hz#3@mm#1@Hz", run_of(16.0, 0.125, 4.0)).amp(12);
  EXPECT_DOUBLE_EQ(single, 0.003 / 8);
  EXPECT_DOUBLE_EQ(doubled, single / 2);
}

TEST(Spectrum, DensityIsReadInTheBaseUnitOfItsCategory) {
  const Maths::RunData run = run_of(8.0, 0.125, 4.0);
  EXPECT_NEAR(fronts_of("0.5@Hz#3@mm2s#1@Hz", run).amp(5), std::sqrt(2 * 3e-6 / 8), 1e-16);
  EXPECT_NEAR(fronts_of("0.5@Hz#3@m2s/rad#1@Hz", run).amp(5), std::sqrt(2 * 3 * 6.28319 / 8),
              1e-14);
}

TEST(Spectrum, FrequencyIsGivenInTheUnitsThatTheFormulaAsksFor) {
  const Evaluated result = fronts_of("500@mHz#$[rad/s]@ms#6.4@rad/s", run_of(8.0, 0.125, 4.0));
  EXPECT_EQ(result.used(), (std::vector<std::size_t>{4, 5, 6, 7, 8}));
  EXPECT_NEAR(result.amp(5), 2 * pi * 5 / 8 / 8, 1e-14);
}

TEST(Spectrum, LimitsBetweenHarmonicsRoundToTheNearestAndKeepItsWholeBand) {
  const Maths::RunData run = run_of(8.0, 0.125, 4.0);
  const double whole = std::sqrt(2 * 3.0 / 8);
  const Evaluated inward = fronts_of("0.44@Hz#3@m2s#1.05@Hz", run);
  EXPECT_EQ(inward.used(), (std::vector<std::size_t>{4, 5, 6, 7, 8}));
  EXPECT_DOUBLE_EQ(inward.amp(4), whole);
  EXPECT_DOUBLE_EQ(inward.amp(8), whole);
  const Evaluated outward = fronts_of("0.43@Hz#3@m2s#1.07@Hz", run);
  EXPECT_EQ(outward.used(), (std::vector<std::size_t>{3, 4, 5, 6, 7, 8, 9}));
}

TEST(Spectrum, IsCutToTheRangeOfTheRunWithBothEndsIncluded) {
  const Evaluated result = fronts_of("0@Hz#3@m2s#100@Hz", run_of(8.0, 0.5, 1.0));
  EXPECT_EQ(result.used(), (std::vector<std::size_t>{4, 5, 6, 7, 8}));
}

TEST(Spectrum, OutsideTheRangeIsRefused) {
  const Maths::RunData run = run_of(8.0, 0.5, 1.0);
  // The line names the harmonic of the limit that lies nearer to the run.
  for (const auto& [text, harmonic] :
       {std::pair{"2@Hz#3@m2s#3@Hz", "16"}, {"0.1@Hz#3@m2s#0.2@Hz", "2"}}) {
    Spectrum spectrum("sea", text);
    Base::Params in;
    spectrum.set(in);
    const Testing::Refused failure = Testing::refused(spectrum, run);
    EXPECT_EQ(failure.message, "Wave number out of range");
    EXPECT_EQ(failure.output,
              std::string("wave number out of range ") + harmonic + " must be between 4 and 8\n");
  }
}

TEST(Spectrum, ZeroDensityMakesNoFront) {
  const Evaluated result =
      fronts_of("0.5@Hz#0@m2s#1.0625@Hz#3@m2s#1.5@Hz", run_of(8.0, 0.125, 4.0));
  EXPECT_EQ(result.used(), (std::vector<std::size_t>{9, 10, 11, 12}));
}

TEST(Spectrum, SmoothDensityIsIntegratedInOnePart) {
  const Evaluated result = fronts_of("0.5@Hz#exp(0.5*$[Hz])@ms#1@Hz", run_of(8.0, 0.125, 4.0));
  for (std::size_t h = 4; h <= 8; ++h) {
    const double mid = std::exp(static_cast<double>(h) / 16);
    const double trap = mid * std::cosh(0.5 / 16);
    ASSERT_LT(trap - mid, 1e-3 * mid);
    EXPECT_NEAR(result.amp(h), (trap + mid) / 2 / 8, 1e-15);
  }
}

TEST(Spectrum, BentDensityIsRefinedUntilTheRulesAgree) {
  const Evaluated result =
      fronts_of("0.5@Hz#1+0.9*sin(40*$[Hz])@m2s#1@Hz", run_of(8.0, 0.125, 4.0));
  // Both rules have closed forms for a sine, from the sum of a geometric series of exp(i x). With
  // 2.5 rad to half a band, the midpoint rule gives sin(2.5) / (n sin(2.5 / n)) of the middle's
  // value, and the trapezium rule sin(2.5) / (n tan(2.5 / n)).
  const int parts[] = {32, 16, 128, 32, 32};
  for (std::size_t h = 4; h <= 8; ++h) {
    const double sine = 0.9 * std::sin(5.0 * static_cast<double>(h));
    const auto mid = [&](int n) { return 1 + sine * std::sin(2.5) / (n * std::sin(2.5 / n)); };
    const auto trap = [&](int n) { return 1 + sine * std::sin(2.5) / (n * std::tan(2.5 / n)); };
    const int n = parts[h - 4];
    ASSERT_LT(std::abs(mid(n) - trap(n)), 1e-3 * (1 + sine)) << h;
    ASSERT_GT(std::abs(mid(n / 2) - trap(n / 2)), 1e-3 * (1 + sine)) << h;
    EXPECT_NEAR(result.amp(h), std::sqrt(mid(n) + trap(n)) / std::sqrt(8.0), 1e-13) << h;
  }
}

TEST(Spectrum, SmallDensityIsIntegratedToAnAbsoluteTolerance) {
  // 0 at the band's middle and 3.5e-8 at both of its edges: far apart, but within 1e-7.
  const Evaluated result =
      fronts_of("0.5@Hz#0.000009*($[Hz]-0.5)^2@ms#0.6@Hz", run_of(8.0, 0.125, 4.0));
  const double edge = 9e-6 * 0.0625 * 0.0625;
  ASSERT_LT(edge, 1e-7);
  EXPECT_NEAR(result.amp(4), edge / 2 / 8, 1e-20);
}

TEST(Spectrum, RefinementEndsAt256Parts) {
  // A step from 0 to 1 at 0.5001 Hz, where 256 parts from 0.4375 Hz on are at 128.2. The ordinates
  // above it are the ends of 127 parts, half of the band's own end, and the middles of 128.
  const Evaluated result =
      fronts_of("0.5@Hz#0.5+atan(10^15*($[Hz]-0.5001))/pi@ms#1@Hz", run_of(8.0, 0.125, 4.0));
  EXPECT_NEAR(result.amp(4), (127.5 + 128) / 2 / most_parts / 8, 1e-13);
}

TEST(Spectrum, FirstBandStartsFromTheDensityAtItsLeftEdge) {
  // The formula's second term is 1 at 0.4375 Hz, the left edge of the first band, and below 1e-200
  // anywhere else.
  const Evaluated result =
      fronts_of("0.5@Hz#1+exp(0-1000000000000*($[Hz]-0.4375)^2)@ms#1@Hz", run_of(8.0, 0.125, 4.0));
  EXPECT_NEAR(result.amp(4), from_another_value(2, 1, 0.125, most_parts), 1e-14);
  EXPECT_NEAR(result.amp(5), 0.125, 1e-14);
}

TEST(Spectrum, LimitInsideABandSplitsIt) {
  // Linear densities meeting at 0.7 Hz: every rule is exact.
  const Evaluated result =
      fronts_of("0.5@Hz#$[Hz]@ms#0.7@Hz#1.4-$[Hz]@ms#1@Hz", run_of(8.0, 0.125, 4.0));
  const auto area = [](double from, double to) {
    const auto below = [](double f) {
      return f < 0.7 ? f * f / 2 : 0.245 + 1.4 * (f - 0.7) - (f * f - 0.49) / 2;
    };
    return below(to) - below(from);
  };
  for (std::size_t h = 4; h <= 8; ++h) {
    const double f = static_cast<double>(h) / 8;
    EXPECT_NEAR(result.amp(h), area(f - 0.0625, f + 0.0625), 1e-14) << h;
  }
}

TEST(Spectrum, RightPartOfASplitStartsFromTheLeftFunctionsEnd) {
  // 1 below 0.52 Hz, 2 above. The rules differ by half a part of 1, so that they agree to a
  // thousandth of 2 in 256 parts.
  const Evaluated result = fronts_of("0.5@Hz#1@ms#0.52@Hz#2@ms#1@Hz", run_of(8.0, 0.125, 4.0));
  EXPECT_NEAR(result.amp(4), (0.52 - 0.4375) + from_another_value(1, 2, 0.5625 - 0.52, most_parts),
              1e-14);
  EXPECT_NEAR(result.amp(5), 2.0 / 8, 1e-15);
}

TEST(Spectrum, LimitAtABandsRightEdgeIsTakenInTheNextBand) {
  const Evaluated result = fronts_of("0.5@Hz#1@ms#0.5625@Hz#2@ms#1@Hz", run_of(8.0, 0.125, 4.0));
  EXPECT_NEAR(result.amp(4), 1.0 / 8, 1e-15);
  EXPECT_NEAR(result.amp(5), from_another_value(1, 2, 0.125, most_parts), 1e-15);
  EXPECT_NEAR(result.amp(6), 2.0 / 8, 1e-15);
}

TEST(Spectrum, OnlyOneLimitIsTakenInABand) {
  // Both inner limits lie in the band of 0.5 Hz. The second one is passed in the next band, where
  // its left part is negative.
  const Evaluated result =
      fronts_of("0.5@Hz#1@ms#0.51@Hz#1@ms#0.53@Hz#0@ms#1@Hz", run_of(8.0, 0.125, 4.0));
  EXPECT_NEAR(result.amp(4), 1.0 / 8, 1e-15);
  // From 0.5625 back to 0.53 at density 1, then from 0.53 on at 0, starting from 1.
  EXPECT_NEAR(result.amp(5), (0.53 - 0.5625) + from_another_value(1, 0, 0.6875 - 0.53, most_parts),
              1e-15);
  EXPECT_EQ(result.used(), (std::vector<std::size_t>{4, 5}));
}

TEST(Spectrum, LimitsBelowTheGridAreTakenOnePerBandWithANegativeLeftPart) {
  // Densities 5, 7, 2 and 11 with their limits below the lowest harmonic, at 1 Hz.
  const Evaluated result =
      fronts_of("0.1@Hz#5@ms#0.2@Hz#7@ms#0.3@Hz#2@ms#0.4@Hz#11@ms#3@Hz", run_of(8.0, 1.0, 4.0));
  const double densities[] = {5.0, 7.0, 2.0, 11.0};
  for (int i = 0; i < 3; ++i) {
    const double limit = 0.2 + 0.1 * i;
    const double f = 1.0 + i / 8.0;
    // The left part is negative and exact; the differences of 2, 5 and 9 all need 256 parts.
    const double wanted =
        densities[i] * (limit - (f - 0.0625)) +
        from_another_value(densities[i], densities[i + 1], f + 0.0625 - limit, most_parts);
    EXPECT_NEAR(result.amp(static_cast<std::size_t>(8 + i)), wanted, 1e-13);
  }
  EXPECT_NEAR(result.amp(11), 11.0 / 8, 1e-14);
}

TEST(Spectrum, ConstantFormulasAreEvaluated) {
  const Evaluated result = fronts_of("0.5@Hz#top[m]*1@m#1@Hz", run_of(8.0, 0.125, 4.0), [] {
    Base::Params in;
    in.insert("top", 40.0, "cm");
    return in;
  }());
  EXPECT_DOUBLE_EQ(result.amp(5), 0.4 / 8);
}

TEST(Spectrum, FormulaOfTimeIsRefusedAtEvaluation) {
  Spectrum spectrum("sea", "0.5@Hz#$[s]@m2s#1@Hz");
  Base::Params in;
  spectrum.set(in);
  EXPECT_EQ(thrown([&] { Testing::evaluate(spectrum, run_of(8.0, 0.125, 4.0)); }),
            "Unable to convert from \"Hz\" to \"s\"");
}

TEST(Spectrum, LimitsLeftByAFailedSetAreRefused) {
  const Maths::RunData run = run_of(8.0, 0.125, 4.0);
  Spectrum spectrum("sea", "0.5@Hz#1@m2s#middle[Hz]@Hz#2@m2s#high[Hz]@Hz");
  Base::Params good;
  good.insert("middle", 0.7, "Hz");
  good.insert("high", 1.0, "Hz");
  spectrum.set(good);
  Base::Params none;
  EXPECT_EQ(thrown([&] { spectrum.set(none); }), "middle::Not found");
  EXPECT_EQ(thrown([&] { Testing::evaluate(spectrum, run); }),
            "Evaluate has been called before set");
  none.insert("middle", 0.7, "Hz");
  EXPECT_EQ(thrown([&] { spectrum.set(none); }), "high::Not found");
  EXPECT_EQ(thrown([&] { Testing::evaluate(spectrum, run); }),
            "Mismatched number of functions and limits");
}

TEST(Spectrum, EvaluationRepeats) {
  const Maths::RunData run = run_of(8.0, 0.125, 4.0);
  Spectrum spectrum("sea", "0.5@Hz#1+sin(40*$[Hz])@m2s#1@Hz");
  Base::Params in;
  spectrum.set(in);
  const Evaluated first = Testing::evaluate(spectrum, run);
  const Evaluated second = Testing::evaluate(spectrum, run);
  for (std::size_t h = 4; h <= 8; ++h) EXPECT_EQ(first.amp(h), second.amp(h));
}

constexpr SeaState sea_state{0.12, 0.6};

TEST(Spectrum, PiersonMoskowitzHarmonicsHaveTheEnergyOfTheirBands) {
  const Evaluated result = fronts_of(Testing::pierson_moskowitz_text("0.2@Hz", "2@Hz"),
                                     run_of(64.0, 0.1, 2.5), sea_state.params());
  EXPECT_EQ(result.used().front(), 13U);
  EXPECT_EQ(result.used().back(), 128U);
  EXPECT_NEAR(energy(result) / sea_state.pierson_moskowitz(12.5 / 64, 128.5 / 64), 1.0, 1e-4);
  for (std::size_t h = 13; h <= 128; ++h) {
    const double f = static_cast<double>(h) / 64;
    const double band = sea_state.pierson_moskowitz(f - 0.5 / 64, f + 0.5 / 64);
    // The rules' own tolerance.
    const double density = std::max(1e-3 * sea_state.pierson_moskowitz(f), 1e-7);
    EXPECT_NEAR(result.amp(h) * result.amp(h) / 2, band, density / 64) << h;
  }
}

// Two formulas meet at the peak frequency.
TEST(Spectrum, JonswapHarmonicsHaveTheEnergyOfTheirBands) {
  const Evaluated result = fronts_of(Testing::jonswap_text("0.2@Hz", "2@Hz"),
                                     run_of(64.0, 0.1, 2.5), sea_state.params());
  EXPECT_NEAR(energy(result) / sea_state.jonswap(12.5 / 64, 128.5 / 64), 1.0, 3e-4);
  for (const std::size_t h : {25U, 36U, 37U, 38U, 39U, 40U, 60U}) {
    const double f = static_cast<double>(h) / 64;
    const double band = sea_state.jonswap(f - 0.5 / 64, f + 0.5 / 64);
    EXPECT_NEAR(result.amp(h) * result.amp(h) / 2 / band, 1.0, 1e-3) << h;
  }
}

}  // namespace
