// Statistics of one spectrum.
#include "analysis/spectrum_stats.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstddef>
#include <numbers>
#include <vector>

#include "records.h"
#include "support/thrown.h"

namespace {

using Analysis::SpectrumStats;
using Testing::thrown;

Base::Params report(Base::DataSet set) {
  Base::Params out;
  SpectrumStats(set).report(out);
  return out;
}

// A sinusoid at one harmonic and a mean, in 200 samples at 20 Hz.
Base::DataSet sinusoid(double amplitude, int harmonic, double mean = 0.0) {
  std::vector<double> samples;
  samples.reserve(200);
  for (int j = 0; j < 200; ++j) {
    samples.push_back(mean +
                      amplitude * std::sin(2.0 * std::numbers::pi * harmonic * j / 200.0 + 0.4));
  }
  return record(samples, 20.0);
}

TEST(SpectrumStats, ASinusoidHasItsHeightAndPeriod) {
  for (const int harmonic : {1, 2, 7, 50, 99}) {
    const Base::Params out = report(sinusoid(0.3, harmonic));
    EXPECT_NEAR(out.get("Hs", "m"), 2.0 * std::numbers::sqrt2 * 0.3, 1e-12) << harmonic;
    EXPECT_NEAR(out.get("Ts", "s"), 10.0 / harmonic, 1e-9) << harmonic;
    EXPECT_NEAR(out.get("Var", ""), std::pow(0.3 * 0.3 / 2.0, 0.25), 1e-12) << harmonic;
  }
}

TEST(SpectrumStats, TheMeanIsIgnored) {
  const Base::Params out = report(sinusoid(0.3, 5, 40.0));
  EXPECT_NEAR(out.get("Hs", "m"), 2.0 * std::numbers::sqrt2 * 0.3, 1e-9);
  EXPECT_NEAR(out.get("Ts", "s"), 2.0, 1e-9);
  EXPECT_NEAR(out.get("Var", ""), std::pow(0.3 * 0.3 / 2.0, 0.25), 1e-9);
}

TEST(SpectrumStats, TheNyquistElementCountsLikeAnyOther) {
  // Alternating samples of a and -a have one element of magnitude a.
  const std::vector<double> samples = {0.2, -0.2, 0.2, -0.2, 0.2, -0.2, 0.2, -0.2, 0.2, -0.2};
  const Base::Params out = report(record(samples, 5.0));
  EXPECT_NEAR(out.get("Hs", "m"), 4.0 * std::sqrt(0.2 * 0.2 / 2.0), 1e-12);
  EXPECT_NEAR(out.get("Ts", "s"), 0.4, 1e-12);
}

TEST(SpectrumStats, ThePeriodIsTheInverseOfTheMeanFrequencyWeightedByEnergy) {
  // 3^2 at 1 Hz and 4^2 at 2 Hz: (9 + 32) / 25 Hz.
  std::vector<std::complex<double>> elements(11);
  elements[2] = {0.0, 3.0};
  elements[4] = {-4.0, 0.0};
  Base::Cvector spectrum("", Base::resolve_units("cm"), elements);
  spectrum.length = 20;
  const Base::Params out = report({spectrum, at_rate(10.0)});
  EXPECT_NEAR(out.get("Ts", "s"), 25.0 / 41.0, 1e-14);
  EXPECT_NEAR(out.get("Hs", "cm"), 4.0 * std::sqrt(12.5), 1e-13);
  EXPECT_NEAR(out.get("Var", ""), std::pow(12.5, 0.25), 1e-14);
}

TEST(SpectrumStats, TheHeightHasTheUnitsOfTheSpectrum) {
  const Base::DataSet millimetres(Base::Vector("", Base::resolve_units("mm"), {1.0, -1.0, 2.0}),
                                  at_rate(1.0));
  const Base::Params out = report(millimetres);
  EXPECT_EQ(Base::units_text(out.at("Hs").units), "mm");
  EXPECT_EQ(Base::units_text(out.at("Ts").units), "s");
  EXPECT_EQ(Base::units_text(out.at("Var").units), "");
  EXPECT_EQ(out.entries().size(), 3u);
}

TEST(SpectrumStats, StillWaterHasNoPeriod) {
  for (const std::size_t count : {std::size_t{0}, std::size_t{1}, std::size_t{2}, std::size_t{9}}) {
    const Base::Params out = report(record(std::vector<double>(count), 10.0));
    EXPECT_EQ(out.get("Hs", "m"), 0.0);
    EXPECT_TRUE(std::isnan(out.get("Ts", "s")));
    EXPECT_EQ(out.get("Var", ""), 0.0);
  }
}

TEST(SpectrumStats, AnExistingResultIsRefused) {
  Base::DataSet set = sinusoid(1.0, 3);
  Base::Params out;
  out.insert("Ts", 1.0, "s");
  EXPECT_EQ(thrown([&] { SpectrumStats(set).report(out); }), "\"Ts\"::Duplicate parameter:");
  EXPECT_TRUE(out.contains("Hs"));
  EXPECT_FALSE(out.contains("Var"));
}

TEST(SpectrumStats, KeepsACopyOfTheSpectrum) {
  Base::DataSet set = sinusoid(0.3, 5);
  const SpectrumStats stats(set);
  set.scale(2.0);
  Base::Params out;
  stats.report(out);
  EXPECT_DOUBLE_EQ(stats.df, 0.1);
  EXPECT_NEAR(out.get("Hs", "m"), 2.0 * std::numbers::sqrt2 * 0.3, 1e-12);
}

}  // namespace
