#include "sea/spectrum.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "testing_components.h"

namespace {

using Synthesis::Spectrum;
using Testing::Evaluated;
using Testing::run_of;
using Testing::thrown_by;
using Density = std::function<double(double)>;

// One band, from the two rules as they stand in a textbook: with 2^level equal parts, until they
// agree to a thousandth of the density at the band's middle or to 1e-7, at most at level 8.
struct Band {
  double integral = 0.0;
  int level = 0;
};

Band band_of(const Density& g, double from, double to, double left_value) {
  const double tol = std::max(1e-3 * g((from + to) / 2), 1e-7);
  for (int level = 0;; ++level) {
    const int parts = 1 << level;
    const double part = (to - from) / parts;
    double mid = 0.0;
    for (int i = 0; i < parts; ++i) mid += g(from + (i + 0.5) * part) / parts;
    double trap = (left_value + g(to)) / 2;
    for (int i = 1; i < parts; ++i) trap += g(from + i * part);
    trap /= parts;
    if (std::abs(mid - trap) <= tol || level == 8) return {(trap + mid) / 2 * (to - from), level};
  }
}

// The band integrals of a spectrum of one piece, first to last harmonic.
std::vector<double> bands_of(const Density& g, double df, int first, int last) {
  std::vector<double> found;
  for (int h = first; h <= last; ++h) {
    found.push_back(band_of(g, (h - 0.5) * df, (h + 0.5) * df, g((h - 0.5) * df)).integral);
  }
  return found;
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

// Composite Simpson, far finer than any band.
double simpson(const Density& g, double from, double to) {
  const int parts = 200000;
  const double step = (to - from) / parts;
  double sum = g(from) + g(to);
  for (int i = 1; i < parts; ++i) sum += (i % 2 == 0 ? 2 : 4) * g(from + i * step);
  return sum * step / 3;
}

TEST(Spectrum, WantsAndKeepsNothingOfItsOwn) {
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
  EXPECT_NEAR(result.amp(5), 2 * Testing::pi * 5 / 8 / 8, 1e-14);
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
    testing::internal::CaptureStdout();
    Maths::FrontSet fronts = Testing::empty_set(run);
    Synthesis::Messages messages;
    EXPECT_EQ(thrown_by([&] { spectrum.evaluate(fronts, run, messages); }),
              "Wave number out of range");
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              std::string("wave number out of range ") + harmonic + " must be between 4 and 8\n");
  }
}

TEST(Spectrum, ZeroDensityMakesNoFront) {
  const Evaluated result =
      fronts_of("0.5@Hz#0@m2s#1.0625@Hz#3@m2s#1.5@Hz", run_of(8.0, 0.125, 4.0));
  EXPECT_EQ(result.used(), (std::vector<std::size_t>{9, 10, 11, 12}));
}

TEST(Spectrum, SmoothDensityIsNotRefined) {
  // The two rules differ by less than a thousandth: the first two estimates are the answer.
  const Density g = [](double f) { return std::exp(0.5 * f); };
  const Evaluated result = fronts_of("0.5@Hz#exp(0.5*$[Hz])@ms#1@Hz", run_of(8.0, 0.125, 4.0));
  for (std::size_t h = 4; h <= 8; ++h) {
    const double f = static_cast<double>(h) / 8;
    ASSERT_EQ(band_of(g, f - 0.0625, f + 0.0625, g(f - 0.0625)).level, 0);
    const double trap = (g(f - 0.0625) + g(f + 0.0625)) / 2;
    EXPECT_NEAR(result.amp(h), (trap + g(f)) / 2 / 8, 1e-15);
  }
}

TEST(Spectrum, BentDensityIsRefinedUntilTheRulesAgree) {
  const Density g = [](double f) { return 1 + 0.9 * std::sin(40 * f); };
  const Evaluated result =
      fronts_of("0.5@Hz#1+0.9*sin(40*$[Hz])@m2s#1@Hz", run_of(8.0, 0.125, 4.0));
  const std::vector<double> bands = bands_of(g, 0.125, 4, 8);
  EXPECT_GT(band_of(g, 0.4375, 0.5625, g(0.4375)).level, 2);
  for (std::size_t h = 4; h <= 8; ++h) {
    EXPECT_NEAR(result.amp(h), std::sqrt(2 * bands[h - 4]), 1e-13);
  }
}

TEST(Spectrum, SmallDensityIsRefinedToAnAbsoluteTolerance) {
  // 0 at the band's middle and 3.5e-8 at both of its edges: far apart, but within 1e-7.
  const Evaluated result =
      fronts_of("0.5@Hz#0.000009*($[Hz]-0.5)^2@ms#0.6@Hz", run_of(8.0, 0.125, 4.0));
  const double edge = 9e-6 * 0.0625 * 0.0625;
  ASSERT_LT(edge, 1e-7);
  EXPECT_NEAR(result.amp(4), edge / 2 / 8, 1e-20);
}

TEST(Spectrum, RefinementEndsAtEightHalvings) {
  // A step inside the band: the rules differ by one part in 512 when the limit is reached.
  const Density g = [](double f) {
    return 0.5 + std::atan(1e9 * (f - 0.5001)) / 3.1415926535893237;
  };
  const Evaluated result =
      fronts_of("0.5@Hz#0.5+atan(1000000000*($[Hz]-0.5001))/pi@ms#1@Hz", run_of(8.0, 0.125, 4.0));
  const Band band = band_of(g, 0.4375, 0.5625, g(0.4375));
  EXPECT_EQ(band.level, 8);
  EXPECT_NEAR(result.amp(4), band.integral, 1e-12);
}

TEST(Spectrum, FirstBandStartsFromTheDensityAtItsLeftEdge) {
  // Constant but for a spike of no width at the left edge of the first band, 0.4375 Hz, where the
  // formula's second term is 1 and anywhere else below 1e-200.
  const Evaluated result =
      fronts_of("0.5@Hz#1+exp(0-1000000000000*($[Hz]-0.4375)^2)@ms#1@Hz", run_of(8.0, 0.125, 4.0));
  const Density g = [](double f) { return 1 + std::exp(-1e12 * (f - 0.4375) * (f - 0.4375)); };
  const Band band = band_of(g, 0.4375, 0.5625, 2.0);
  EXPECT_EQ(band.level, 8);
  EXPECT_NEAR(result.amp(4), band.integral, 1e-14);
  EXPECT_GT(result.amp(4), 0.125 * (1 + 1e-4));
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
  // 1 below 0.52 Hz, 2 above: the trapezium value of the right part comes from 1 and 2, and the
  // rules agree to a thousandth after 8 halvings.
  const Evaluated result = fronts_of("0.5@Hz#1@ms#0.52@Hz#2@ms#1@Hz", run_of(8.0, 0.125, 4.0));
  const double right = 0.5625 - 0.52;
  EXPECT_NEAR(result.amp(4), (0.52 - 0.4375) + right * (2 - 1.0 / 1024), 1e-14);
  EXPECT_NEAR(result.amp(5), 2.0 / 8, 1e-15);
}

TEST(Spectrum, LimitAtABandsRightEdgeIsTakenInTheNextBand) {
  const Evaluated result = fronts_of("0.5@Hz#1@ms#0.5625@Hz#2@ms#1@Hz", run_of(8.0, 0.125, 4.0));
  EXPECT_NEAR(result.amp(4), 1.0 / 8, 1e-15);
  EXPECT_NEAR(result.amp(5), (2 - 1.0 / 1024) / 8, 1e-15);
  EXPECT_NEAR(result.amp(6), 2.0 / 8, 1e-15);
}

TEST(Spectrum, OneLimitIsHandledInABand) {
  // Both inner limits lie in the band of 0.5 Hz. The second one is met in the next band, where its
  // left part is negative.
  const Evaluated result =
      fronts_of("0.5@Hz#1@ms#0.51@Hz#1@ms#0.53@Hz#0@ms#1@Hz", run_of(8.0, 0.125, 4.0));
  EXPECT_NEAR(result.amp(4), 1.0 / 8, 1e-15);
  // From 0.5625 back to 0.53 at density 1, then from 0.53 on at 0, whose trapezium value starts
  // from 1 and is halved 8 times.
  const double left = 0.53 - 0.5625;
  EXPECT_NEAR(result.amp(5), left + (0.6875 - 0.53) * (1.0 / 512) / 2, 1e-15);
  EXPECT_EQ(result.used(), (std::vector<std::size_t>{4, 5}));
}

TEST(Spectrum, LimitsBelowTheGridAreTakenOneABandWithNegativeLeft) {
  // Densities 5, 7, 2 and 11 with their limits below the lowest harmonic, at 1 Hz.
  const Evaluated result =
      fronts_of("0.1@Hz#5@ms#0.2@Hz#7@ms#0.3@Hz#2@ms#0.4@Hz#11@ms#3@Hz", run_of(8.0, 1.0, 4.0));
  double last = 5.0;
  const double densities[] = {5.0, 7.0, 2.0, 11.0};
  for (int i = 0; i < 3; ++i) {
    const double limit = 0.2 + 0.1 * i;
    const double f = 1.0 + i / 8.0;
    const Density before = [&](double) { return densities[i]; };
    const Density behind = [&](double) { return densities[i + 1]; };
    const double wanted = band_of(before, f - 0.0625, limit, last).integral +
                          band_of(behind, limit, f + 0.0625, densities[i]).integral;
    last = densities[i + 1];
    EXPECT_NEAR(result.amp(static_cast<std::size_t>(8 + i)), wanted, 1e-13);
  }
  EXPECT_NEAR(result.amp(11), 11.0 / 8, 1e-14);
  // By hand for the first: the part taken back is exact, the other lacks its 1/1024.
  EXPECT_LT(result.amp(8), 5 * (0.2 - 0.9375) + 7 * (1.0625 - 0.2));
}

TEST(Spectrum, ConstantFormulasWorkThoughTheyTakeTime) {
  const Evaluated result = fronts_of("0.5@Hz#top[m]*1@m#1@Hz", run_of(8.0, 0.125, 4.0), [] {
    Base::Params in;
    in.insert("top", 40.0, "cm");
    return in;
  }());
  EXPECT_DOUBLE_EQ(result.amp(5), 0.4 / 8);
}

TEST(Spectrum, FormulaOfTimeIsRefused) {
  Spectrum spectrum("sea", "0.5@Hz#$[s]@m2s#1@Hz");
  Base::Params in;
  spectrum.set(in);
  EXPECT_EQ(thrown_by([&] { Testing::evaluate(spectrum, run_of(8.0, 0.125, 4.0)); }),
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
  EXPECT_EQ(thrown_by([&] { spectrum.set(none); }), "middle::Not found");
  EXPECT_EQ(thrown_by([&] { Testing::evaluate(spectrum, run); }),
            "Evaluate has been called before set");
  none.insert("middle", 0.7, "Hz");
  EXPECT_EQ(thrown_by([&] { spectrum.set(none); }), "high::Not found");
  EXPECT_EQ(thrown_by([&] { Testing::evaluate(spectrum, run); }),
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

Base::Params sea_state(double hs, double fp, double gamma) {
  Base::Params in;
  in.insert("hs", hs, "m");
  in.insert("fp", fp, "Hz");
  in.insert("gamma", gamma, "");
  return in;
}

// Pierson and Moskowitz (1964) in terms of significant height and peak frequency.
const std::string pm_text = "5/16*hs[m]^2*fp[Hz]^4/$[Hz]^5*exp(0-1.25*(fp[Hz]/$[Hz])^4)";

TEST(Spectrum, PiersonMoskowitzEnergyIsTheIntegralOfItsDensity) {
  const double hs = 0.12;
  const double fp = 0.6;
  const Evaluated result =
      fronts_of("0.2@Hz#" + pm_text + "@m2s#2@Hz", run_of(64.0, 0.1, 2.5), sea_state(hs, fp, 0.0));
  EXPECT_EQ(result.used().front(), 13U);
  EXPECT_EQ(result.used().back(), 128U);
  const double from = 12.5 / 64;
  const double to = 128.5 / 64;
  const double integral =
      hs * hs / 16 *
      (std::exp(-1.25 * std::pow(fp / to, 4)) - std::exp(-1.25 * std::pow(fp / from, 4)));
  EXPECT_NEAR(energy(result) / integral, 1.0, 1e-4);
  // Each harmonic by itself, from the same plan of rules.
  const Density g = [&](double f) {
    return 5.0 / 16 * hs * hs * std::pow(fp, 4) / std::pow(f, 5) *
           std::exp(-1.25 * std::pow(fp / f, 4));
  };
  const std::vector<double> bands = bands_of(g, 1.0 / 64, 13, 128);
  for (std::size_t h = 13; h <= 128; ++h) {
    EXPECT_NEAR(result.amp(h), std::sqrt(2 * bands[h - 13]), 1e-13) << h;
  }
}

TEST(Spectrum, JonswapEnergyIsTheIntegralOfItsDensity) {
  // Hasselmann and others (1973): the peak is narrower below the peak frequency than above it, so
  // that two formulas meet there.
  const double hs = 0.12;
  const double fp = 0.6;
  const double gamma = 3.3;
  const auto side = [](const std::string& sigma) {
    return pm_text + "*gamma^exp(0-square(($[Hz]-fp[Hz])/(" + sigma + "*fp[Hz]))/2)@m2s#";
  };
  const Density g = [&](double f) {
    const double r = (f - fp) / ((f <= fp ? 0.07 : 0.09) * fp);
    return 5.0 / 16 * hs * hs * std::pow(fp, 4) / std::pow(f, 5) *
           std::exp(-1.25 * std::pow(fp / f, 4)) * std::pow(gamma, std::exp(-r * r / 2));
  };
  const Evaluated result =
      fronts_of("0.2@Hz#" + side("0.07") + "fp[Hz]@Hz#" + side("0.09") + "2@Hz",
                run_of(64.0, 0.1, 2.5), sea_state(hs, fp, gamma));
  const double integral = simpson(g, 12.5 / 64, fp) + simpson(g, fp, 128.5 / 64);
  EXPECT_NEAR(energy(result) / integral, 1.0, 3e-4);
  for (std::size_t h : {25U, 36U, 37U, 38U, 39U, 40U, 60U}) {
    const double f = static_cast<double>(h) / 64;
    const double band =
        simpson(g, f - 0.5 / 64, std::max(f - 0.5 / 64, std::min(fp, f + 0.5 / 64))) +
        simpson(g, std::min(f + 0.5 / 64, std::max(fp, f - 0.5 / 64)), f + 0.5 / 64);
    EXPECT_NEAR(result.amp(h) * result.amp(h) / 2 / band, 1.0, 1e-3) << h;
  }
}

}  // namespace
