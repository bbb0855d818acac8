// What seas ask for, from waves that are filled by hand.
#include "jobs/asked_sea.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "jobs/asked_density.h"
#include "sea/piecewise_text.h"

namespace {

using Jobs::AskedSea;
using Jobs::AskedWave;
using Jobs::SeaKind;

AskedWave sine(double frequency) {
  AskedWave wave;
  wave.kind = "single";
  wave.lines = {{frequency, 0.02}};
  return wave;
}

AskedWave record(double variance) {
  AskedWave wave;
  wave.kind = "time";
  wave.variance = variance;
  return wave;
}

AskedWave band(double low, double high, double density) {
  AskedWave wave;
  wave.kind = "spectrum";
  wave.density = [density](double) { return density; };
  wave.low = low;
  wave.high = high;
  return wave;
}

AskedSea asked(const std::vector<AskedWave>& waves) {
  static std::vector<Jobs::BuiltSea> seas;  // that the result refers to
  seas.assign(1, {});
  seas[0].asked = waves;
  return Jobs::asked_sea(seas, {Jobs::SeaChanges{}}, {Jobs::Carried{}});
}

TEST(AskedSea, ASineBesideASpectrumIsNoRegularWave) {
  EXPECT_EQ(asked({sine(0.5)}).kind, SeaKind::regular);
  EXPECT_EQ(asked({sine(0.5), sine(0.7)}).kind, SeaKind::lines);
  EXPECT_EQ(asked({sine(0.5), band(0.4, 0.6, 1e-4)}).kind, SeaKind::group);
}

TEST(AskedSea, AFormulaOfTimeIsAGroupOfKnownVariance) {
  const AskedSea sea = asked({record(2e-4), record(1e-4)});
  EXPECT_EQ(sea.kind, SeaKind::group);
  EXPECT_TRUE(sea.has_other);
  EXPECT_FALSE(sea.unknown);
  EXPECT_DOUBLE_EQ(sea.other, 3e-4);
  EXPECT_EQ(asked({record(0.0)}).kind, SeaKind::still);
}

TEST(AskedSea, AWaveThatDoesNotSayWhatItAsksForIsUnknown) {
  const AskedSea sea = asked({AskedWave()});
  EXPECT_TRUE(sea.unknown);
  EXPECT_NE(sea.kind, SeaKind::still);
}

TEST(AskedSea, AMeanLevelIsNoWave) { EXPECT_TRUE(asked({sine(0.0)}).lines.empty()); }

TEST(AskedSea, DensitiesAreZeroOutsideTheirLimits) {
  const AskedSea sea = asked({band(0.4, 0.6, 1e-4), band(0.5, 1.0, 2e-4)});
  EXPECT_EQ(sea.low, 0.4);
  EXPECT_EQ(sea.high, 1.0);
  EXPECT_TRUE(sea.peaks.empty());
  EXPECT_EQ(sea.density(0.3), 0.0);
  EXPECT_DOUBLE_EQ(sea.density(0.45), 1e-4);
  EXPECT_DOUBLE_EQ(sea.density(0.55), 3e-4);
  EXPECT_DOUBLE_EQ(sea.density(0.9), 2e-4);
  EXPECT_EQ(sea.density(1.1), 0.0);
}

TEST(AskedSea, AFormulaThatFailsIsNaNThere) {
  const auto fails = [](double f) -> double {
    if (f > 1.0) throw std::string("no value");
    return f;
  };
  EXPECT_EQ(Jobs::value_or_nan(fails, 0.5), 0.5);
  EXPECT_TRUE(std::isnan(Jobs::value_or_nan(fails, 2.0)));
}

std::shared_ptr<const Synthesis::Piecewise> pieces(const std::string& text) {
  auto parsed = std::make_shared<Synthesis::Piecewise>(Synthesis::parse_component_text(text));
  Base::Params unused;
  parsed->bind_with_limits({}, unused);
  return parsed;
}

TEST(AskedDensity, OfTheWholeAxisIsZeroAtZero) {
  const AskedWave wave = Jobs::asked_density(pieces("0.2@Hz#0.0001@m2s#2@Hz"), {true, true});
  EXPECT_EQ(wave.density(0.0), 0.0);
  EXPECT_EQ(wave.density(0.1), 0.0001);
  EXPECT_EQ(wave.density(3.0), 0.0001);
}

TEST(TimeVariance, OfAFormulaThatBeginsLateCountsTheStillWater) {
  // 12 mm from 3 s to 4 s of 4 s: 3 of 4 samples are 0, and 12^2 (1/4 - 1/16) are 27 mm2.
  EXPECT_NEAR(Jobs::time_variance(*pieces("3@s#0.012@m#4@s"), 1.0, 100.0), 27e-6, 1e-15);
}

TEST(TimeVariance, OfTooFewOrTooManySamplesIsZero) {
  const auto formula = pieces("0@s#0.012*$[s]@m#4@s");
  EXPECT_GT(Jobs::time_variance(*formula, 1.0, 100.0), 0.0);
  EXPECT_EQ(Jobs::time_variance(*formula, 0.1, 100.0), 0.0);
  EXPECT_EQ(Jobs::time_variance(*formula, 1e12, 100.0), 0.0);
  EXPECT_EQ(Jobs::variance_of({}), 0.0);
}

}  // namespace
