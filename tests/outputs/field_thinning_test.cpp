#include "outputs/field_thinning.h"

#include <gtest/gtest.h>

namespace Outputs {
namespace {

// A wave of 1 Hz in deep water: 1.56 m long.
PageFacts wave() {
  PageFacts facts;
  facts.repeat = 100.0;
  facts.highest_harmonic = 300;
  facts.peak = 1.0;
  return facts;
}

std::size_t values(const FieldThinning& made, const FieldAxis& x, const FieldAxis& y) {
  return thinned(x.count, made.x) * thinned(y.count, made.y) * made.most_frames;
}

TEST(FieldThinning, LeavesASmallFieldAsItIs) {
  const FieldAxis axis{0.0, 0.01, 100};
  const FieldThinning made = field_thinning(axis, axis, 100, 100.0, wave(), 1'000'000);
  EXPECT_EQ(made.x, 1U);
  EXPECT_EQ(made.y, 1U);
  EXPECT_EQ(made.time, 1U);
  EXPECT_EQ(made.most_frames, 100U);
}

TEST(FieldThinning, ThinsInSpaceFirstAndOnlyAsFarAsItTakes) {
  const FieldAxis axis{0.0, 0.02, 300};
  const FieldThinning made = field_thinning(axis, axis, 100, 100.0, wave(), 1'500'000);
  EXPECT_EQ(made.x, 3U);  // 100 x 100 points; with 2, 150 x 150 would be too many
  EXPECT_EQ(made.y, 3U);
  EXPECT_EQ(made.time, 1U);
  EXPECT_EQ(made.most_frames, 100U);
}

TEST(FieldThinning, KeepsEightPointsPerWaveLength) {
  const FieldAxis x{0.0, 0.05, 300};
  const FieldAxis y{0.0, 0.12, 300};
  const FieldThinning made = field_thinning(x, y, 1000, 20.0, wave(), 2'000'000);
  EXPECT_EQ(made.x, 3U);     // 0.15 m; 0.20 m would leave 7.8
  EXPECT_EQ(made.y, 1U);     // 0.12 m
  EXPECT_EQ(made.time, 2U);  // 10 frames per period
  EXPECT_EQ(made.most_frames, 66U);
  EXPECT_LE(values(made, x, y), 2'000'000U);
}

TEST(FieldThinning, GoesOnAlongOneAxisAfterTheOther) {
  const FieldAxis x{0.0, 0.15, 300};  // 10 points per wave length
  const FieldAxis y{0.0, 0.04, 300};  // 39
  const FieldThinning made = field_thinning(x, y, 10, 1.0, wave(), 300 * 75 * 10);
  EXPECT_EQ(made.x, 1U);
  EXPECT_EQ(made.y, 4U);
  EXPECT_EQ(made.most_frames, 10U);
}

TEST(FieldThinning, KnowsThatWavesAreShorterInShallowWater) {
  // In 0.1 m of water, a wave of 1 Hz is 0.92 m long (linear dispersion).
  PageFacts shallow = wave();
  shallow.depth = 0.1;
  const FieldAxis axis{0.0, 0.05, 300};
  EXPECT_EQ(field_thinning(axis, axis, 1000, 10.0, shallow, 2'000'000).x, 2U);
  EXPECT_EQ(field_thinning(axis, axis, 1000, 10.0, wave(), 2'000'000).x, 3U);
}

TEST(FieldThinning, KeepsSomeFramesOfHugeGrids) {
  const FieldAxis axis{0.0, 0.5, 5000};
  const FieldThinning made = field_thinning(axis, axis, 1000, 10.0, wave(), 2'000'000);
  EXPECT_GE(made.most_frames, 20U);
  EXPECT_LE(values(made, axis, axis), 2'000'000U);
}

TEST(FieldThinning, TakesAFieldOfOnePoint) {
  const FieldAxis one{3.0, 0.0, 1};
  const FieldThinning made = field_thinning(one, one, 1, 10.0, wave(), 2'000'000);
  EXPECT_EQ(made.most_frames, 1U);
}

TEST(FirstFrame, PutsTheWantedOneInTheMiddle) { EXPECT_EQ(first_frame(1000, 100, 2, 500), 400U); }

TEST(FirstFrame, StaysWithinTheRun) {
  EXPECT_EQ(first_frame(1000, 100, 2, 3), 0U);
  EXPECT_EQ(first_frame(1000, 100, 2, 999), 801U);  // 801 + 99 * 2 = 999
  EXPECT_EQ(first_frame(7, 7, 1, 6), 0U);
  EXPECT_EQ(first_frame(1, 1, 1, 0), 0U);
}

}  // namespace
}  // namespace Outputs
