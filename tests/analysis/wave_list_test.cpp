// Waves found in records of known waves.
#include "analysis/wave_list.h"

#include <gtest/gtest.h>

#include <complex>
#include <cstddef>
#include <limits>
#include <numbers>
#include <utility>
#include <vector>

#include "records.h"

namespace {

using Analysis::Wave;
using Analysis::WaveList;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

std::vector<Wave> waves(std::vector<double> samples, double rate, bool wrap) {
  Base::DataSet set = record(std::move(samples), rate);
  return WaveList(set, wrap).waves;
}

void expect_wave(const Wave& wave, double start, double end, double crest, double trough) {
  EXPECT_DOUBLE_EQ(wave.start, start);
  EXPECT_DOUBLE_EQ(wave.end, end);
  EXPECT_DOUBLE_EQ(wave.crest, crest);
  EXPECT_DOUBLE_EQ(wave.trough, trough);
  EXPECT_DOUBLE_EQ(wave.height(), crest - trough);
  EXPECT_DOUBLE_EQ(wave.period(), end - start);
}

TEST(WaveList, ASampleOfZeroBeforeARiseIsTheCrossing) {
  const auto found = waves({-1.0, 0.0, 2.0, -3.0, 0.0, 1.0, -1.0}, 2.0, false);
  ASSERT_EQ(found.size(), 1u);
  expect_wave(found[0], 0.5, 2.0, 2.0, -3.0);
}

TEST(WaveList, ACrossingIsInterpolatedBetweenTwoSamples) {
  // A quarter of the way from -1 to 3, and four fifths of the way from -2 to 0.5.
  const auto found = waves({-1.0, 3.0, 1.0, -2.0, 0.5, -0.5}, 4.0, false);
  ASSERT_EQ(found.size(), 1u);
  expect_wave(found[0], 0.25 / 4.0, 3.8 / 4.0, 3.0, -2.0);
}

TEST(WaveList, ARecordThatStartsAtZeroStartsWithACrossing) {
  const auto found = waves({0.0, 1.0, -1.0, 1.0}, 1.0, false);
  ASSERT_EQ(found.size(), 1u);
  expect_wave(found[0], 0.0, 2.5, 1.0, -1.0);
}

TEST(WaveList, ARecordThatStartsAboveZeroHasNoCrossingThere) {
  EXPECT_TRUE(waves({2.0, 1.0, -1.0, 1.0, -1.0}, 1.0, false).empty());
}

TEST(WaveList, TheLastOfSeveralZerosIsTheCrossing) {
  const auto found = waves({0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 2.0}, 1.0, false);
  ASSERT_EQ(found.size(), 1u);
  expect_wave(found[0], 2.0, 5.0, 1.0, 0.0);
}

TEST(WaveList, TouchingZeroFromBelowIsNotACrossing) {
  const auto found = waves({-1.0, 1.0, -2.0, 0.0, -3.0, 3.0}, 1.0, false);
  ASSERT_EQ(found.size(), 1u);
  expect_wave(found[0], 0.5, 4.5, 1.0, -3.0);
}

TEST(WaveList, TouchingZeroFromAboveIsACrossing) {
  const auto found = waves({-2.0, 2.0, 0.0, 3.0, -1.0}, 1.0, false);
  ASSERT_EQ(found.size(), 1u);
  expect_wave(found[0], 0.5, 2.0, 2.0, 0.0);
}

TEST(WaveList, WithoutWrapBothEndsAreIgnored) {
  // The ends have higher crests and deeper troughs than the wave between the crossings.
  const auto found = waves({0.0, -9.0, 1.0, -1.0, 1.0, 9.0, -9.0}, 1.0, false);
  ASSERT_EQ(found.size(), 1u);
  expect_wave(found[0], 1.9, 3.5, 1.0, -1.0);
}

TEST(WaveList, WithWrapBothEndsFormAWave) {
  // In order of height: the inner wave, then the joined one with the trough of the start and the
  // crest of the end of the record. It ends one record length after the first crossing.
  const auto found = waves({0.0, -9.0, 1.0, -1.0, 1.0, 7.0, -8.0}, 1.0, true);
  ASSERT_EQ(found.size(), 2u);
  expect_wave(found[0], 1.9, 3.5, 1.0, -1.0);
  expect_wave(found[1], 3.5, 7.0 + 1.9, 7.0, -9.0);
}

TEST(WaveList, AJoinedWaveHasTheHighestCrestAndDeepestTroughOfBothEnds) {
  // The first sample belongs to no wave. The crest is at the start of the record, the trough at the
  // end.
  const auto found = waves({9.0, 5.0, -2.0, 1.0, -3.0}, 1.0, true);
  ASSERT_EQ(found.size(), 1u);
  expect_wave(found[0], 2.0 + 2.0 / 3.0, 5.0 + 2.0 + 2.0 / 3.0, 5.0, -3.0);
}

TEST(WaveList, AJoinedWaveEndsOneRecordLaterInSeconds) {
  const auto found = waves({-1.0, 1.0, 1.0, -1.0}, 10.0, true);
  ASSERT_EQ(found.size(), 1u);
  expect_wave(found[0], 0.05, 0.45, 1.0, -1.0);
}

TEST(WaveList, EachCrossingStartsAWaveExceptTheLastWithoutWrap) {
  for (std::size_t crossings = 1; crossings <= 9; ++crossings) {
    std::vector<double> samples;
    for (std::size_t i = 0; i < crossings; ++i) samples.insert(samples.end(), {-1.0, 1.0});
    EXPECT_EQ(waves(samples, 1.0, false).size(), crossings - 1);
    EXPECT_EQ(waves(samples, 1.0, true).size(), crossings);
  }
}

TEST(WaveList, ARecordWithoutAnUpCrossingHasNoWaves) {
  const std::vector<std::vector<double>> records = {
      {}, {1.0}, {0.0}, {1.0, 2.0, 0.5}, {-1.0, -0.5, 0.0}, {3.0, 1.0, -1.0}, {0.0, 0.0, 0.0}};
  for (const std::vector<double>& samples : records) {
    EXPECT_TRUE(waves(samples, 1.0, false).empty());
    EXPECT_TRUE(waves(samples, 1.0, true).empty());
  }
}

TEST(WaveList, WavesAreSortedByHeight) {
  // The heights are 5, 2, 4 and 3 in order of time.
  const auto found =
      waves({-1.0, 3.0, -2.0, 1.0, -1.0, 1.0, -3.0, 2.0, -1.0, 1.0, -1.0}, 1.0, false);
  ASSERT_EQ(found.size(), 4u);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_DOUBLE_EQ(found[i].height(), 2.0 + static_cast<double>(i));
  }
}

TEST(WaveList, WavesOfASecondRecordAreSortedIntoTheList) {
  Base::DataSet low = record({-1.0, 1.0, -1.0, 1.0}, 1.0);
  Base::DataSet high = record({-1.0, 0.5, -0.5, 1.0, -4.0, 1.0}, 1.0);
  WaveList list(low, false);
  Analysis::find_waves(list, high, false);
  ASSERT_EQ(list.waves.size(), 3u);
  EXPECT_DOUBLE_EQ(list.waves[0].height(), 1.0);
  EXPECT_DOUBLE_EQ(list.waves[1].height(), 2.0);
  EXPECT_DOUBLE_EQ(list.waves[2].height(), 5.0);
}

TEST(WaveList, ASpectrumIsReadAsItsTimeForm) {
  // Harmonic 4 of 64 samples: a sine of amplitude 0.3 m that starts at zero.
  std::vector<std::complex<double>> elements(33);
  elements[4] = {0.0, -0.3};
  Base::DataSet set(Base::Cvector("", Base::default_units(Base::Category::length), elements),
                    at_rate(16.0));
  set.freq().length = 64;
  const WaveList list(set, true);
  ASSERT_EQ(list.waves.size(), 4u);
  for (const Wave& wave : list.waves) {
    EXPECT_NEAR(wave.height(), 0.6, 1e-12);
    EXPECT_NEAR(wave.period(), 1.0, 1e-12);
  }
}

TEST(WaveList, TheRateMayBeAngular) {
  Base::Params params;
  params.insert("rate", 4.0 * std::numbers::pi, "rad/s");
  Base::DataSet set(Base::Vector("", {}, {0.0, 1.0, 0.0, 1.0}), params);
  const WaveList list(set, false);
  ASSERT_EQ(list.waves.size(), 1u);
  EXPECT_DOUBLE_EQ(list.waves[0].period(), 1.0);
}

TEST(WaveList, NaNSamplesMakeNoCrossing) {
  const auto found = waves({-1.0, nan, 1.0, -1.0, 1.0, nan, -1.0, 1.0}, 1.0, false);
  ASSERT_EQ(found.size(), 1u);
  expect_wave(found[0], 3.5, 6.5, 1.0, -1.0);
}

TEST(WaveList, NonFiniteSamplesCanBeSorted) {
  std::vector<double> samples;
  for (int i = 0; i < 60; ++i) {
    samples.insert(samples.end(), {-1.0 - i, i % 3 == 0 ? infinity : 1.0, i % 7 == 0 ? nan : 0.5,
                                   i % 5 == 0 ? -infinity : -1.0});
  }
  Base::DataSet set = record(samples, 1.0);
  WaveList list(set, true);
  EXPECT_EQ(list.waves.size(), 60u);
  EXPECT_FALSE(Analysis::is_regular(list));
}

}  // namespace
