// Storing frames: the encoding, the order of refusals, progress and stopping.
#include "animation/animation_frames.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "animation/surface_code.h"
#include "support/each_target.h"
#include "support/output.h"
#include "support/thrown.h"

namespace {

using Synthesis::AnimationFrames;
using Synthesis::surface_code;
using Testing::thrown;

constexpr double infinity = std::numeric_limits<double>::infinity();

// The series of one row.
Synthesis::SeriesBlock row(const std::vector<std::int16_t>& samples) {
  return {samples.data(), samples.size(), samples.size(), 1};
}

// Frames of 2 columns, 3 rows and 4 moments, in a running build.
struct SmallFrames {
  SmallFrames() {
    frames.begin();
    frames.setup(2, 3, 4);
  }
  AnimationFrames frames;
  std::vector<std::int16_t> series = {1, 2, 3, 4};
};

TEST(SurfaceCode, FourMetresAreTheFullScale) {
  EXPECT_EQ(surface_code(4.0), 32767);
  EXPECT_EQ(surface_code(-4.0), -32767);
  EXPECT_EQ(surface_code(0.0), 0);
  EXPECT_EQ(surface_code(-0.0), 0);
  EXPECT_EQ(surface_code(1.0), 8192);  // 8191.75
}

TEST(SurfaceCode, HalvesAreRoundedAwayFromZero) {
  const double half = 0.5 * 4.0 / 32767.0;
  EXPECT_EQ(surface_code(half * 1.000001), 1);
  EXPECT_EQ(surface_code(-half * 1.000001), -1);
  EXPECT_EQ(surface_code(half * 0.999999), 0);
  EXPECT_EQ(surface_code(-half * 0.999999), 0);
  // 2 m are 16383.5 counts exactly.
  EXPECT_EQ(surface_code(2.0), 16384);
  EXPECT_EQ(surface_code(-2.0), -16384);
}

TEST(SurfaceCode, HigherWavesWrapAround) {
  EXPECT_EQ(surface_code(4.0002), 32769 - 65536);
  EXPECT_EQ(surface_code(-4.0002), -32769 + 65536);
  EXPECT_EQ(surface_code(8.0), 65534 - 65536);
  // 4e6 m are 32767 million counts, beyond 32 bits.
  EXPECT_EQ(surface_code(4e6), static_cast<std::int16_t>(32767000000LL & 0xFFFF));
  EXPECT_EQ(surface_code(-4e6), static_cast<std::int16_t>(-32767000000LL & 0xFFFF));
}

TEST(SurfaceCode, NonFiniteAndHugeHeightsAreFlat) {
  EXPECT_EQ(surface_code(std::numeric_limits<double>::quiet_NaN()), 0);
  EXPECT_EQ(surface_code(infinity), 0);
  EXPECT_EQ(surface_code(-infinity), 0);
  EXPECT_EQ(surface_code(1e300), 0);
}

TEST(SurfaceCode, ASeriesIsEncodedAsItsHeights) {
  std::vector<double> heights = {0.0, -0.0, 4.0, -4.0, 2.0, -2.0, 4.0002, -65535.9, 65535.9};
  for (int i = -500; i < 500; ++i) heights.push_back(i * 0.5 * 4.0 / 32767.0);
  const auto check = [&] {
    std::vector<std::int16_t> codes(heights.size());
    Synthesis::surface_codes(heights.data(), heights.size(), codes.data());
    for (std::size_t i = 0; i < heights.size(); ++i) {
      EXPECT_EQ(codes[i], surface_code(heights[i])) << heights[i];
    }
  };
  Testing::on_each_target([&] {
    check();
    for (const double far :
         {65536.0, -4e6, 1e300, infinity, std::numeric_limits<double>::quiet_NaN()}) {
      const double before = std::exchange(heights[500], far);
      check();
      heights[500] = before;
    }
  });
}

TEST(AnimationFrames, APointIsFoundByColumnAndRow) {
  SmallFrames small;
  small.frames.add_series(1, 2, row(small.series));
  for (std::uint32_t t = 0; t < 4; ++t) {
    std::vector<std::int16_t> expected(6, 0);
    expected[3 * 1 + 2] = static_cast<std::int16_t>(t + 1);
    EXPECT_EQ(small.frames.data(t), expected);
  }
}

TEST(AnimationFrames, ABlockFillsNeighbouringRows) {
  SmallFrames small;
  const std::vector<std::int16_t> two = {1, 2, 3, 4, 99, 5, 6, 7, 8, 99};
  small.frames.add_series(0, 1, {two.data(), 4, 5, 2});
  EXPECT_EQ(small.frames.data(0), (std::vector<std::int16_t>{0, 1, 5, 0, 0, 0}));
  EXPECT_EQ(small.frames.data(3), (std::vector<std::int16_t>{0, 4, 8, 0, 0, 0}));
  EXPECT_EQ(small.frames.progress(), 2.0 / 6.0);
  small.frames.add_series(1, 0, {two.data(), 4, 0, 3});
  EXPECT_EQ(small.frames.data(1), (std::vector<std::int16_t>{0, 2, 6, 2, 2, 2}));
  EXPECT_EQ(small.frames.progress(), 5.0 / 6.0);
}

TEST(AnimationFrames, ABlockWithoutRowsChangesNothing) {
  AnimationFrames frames;
  frames.begin();
  frames.setup(2, 3, 40);
  const std::vector<std::int16_t> series(40, 7);
  frames.add_series(1, 1, {series.data(), series.size(), series.size(), 0});
  for (std::uint32_t t = 0; t < 40; ++t) {
    EXPECT_EQ(frames.data(t), std::vector<std::int16_t>(6, 0));
  }
  EXPECT_EQ(frames.progress(), 0.0);
}

TEST(AnimationFrames, TakeColumnsOfTheirOwnShapeOnly) {
  EXPECT_EQ(AnimationFrames().columns_for(4, 3), 0u);
  const SmallFrames small;
  EXPECT_EQ(small.frames.columns_for(4, 3), 2u);
  EXPECT_EQ(small.frames.columns_for(4, 2), 2u);
  EXPECT_EQ(small.frames.columns_for(4, 4), 0u);
  EXPECT_EQ(small.frames.columns_for(3, 3), 0u);
}

TEST(AnimationFrames, RefusalsComeInOrder) {
  AnimationFrames frames;
  const std::vector<std::int16_t> wrong(5);
  const auto add = [&](std::uint32_t x, std::uint32_t y) {
    return thrown([&] { frames.add_series(x, y, row(wrong)); });
  };
  EXPECT_EQ(add(9, 9), "Animate Cancelled");
  frames.begin();
  EXPECT_EQ(add(9, 9), "Adding a time series to uninitialised animation object");
  frames.setup(2, 3, 4);
  EXPECT_EQ(add(2, 3), "Error x >= x_lim");
  EXPECT_EQ(add(1, 3), "Error y >= y_lim");
  EXPECT_EQ(Testing::printed([&] { EXPECT_EQ(add(1, 2), "Error vec.size() != t_lim"); }),
            "vec.size() 5 t_lim 4\n");
  EXPECT_EQ(frames.progress(), 0.0);
  frames.stop();
  EXPECT_EQ(add(9, 9), "Animate Cancelled");
}

TEST(AnimationFrames, RowsBeforeOneThatDoesNotFitAreStored) {
  SmallFrames small;
  EXPECT_EQ(thrown([&] {
              small.frames.add_series(0, 1, {small.series.data(), 4, 0, 3});
            }),
            "Error y >= y_lim");
  EXPECT_EQ(small.frames.data(2), (std::vector<std::int16_t>{0, 3, 3, 0, 0, 0}));
  EXPECT_EQ(small.frames.progress(), 2.0 / 6.0);
}

TEST(AnimationFrames, ProgressRunsFromZeroToOne) {
  AnimationFrames frames;
  EXPECT_EQ(frames.progress(), 0.0);
  EXPECT_FALSE(frames.complete());
  frames.begin();
  EXPECT_EQ(frames.progress(), 0.0);
  frames.setup(2, 2, 1);
  const std::vector<std::int16_t> series(1);
  for (std::uint32_t done = 0; done < 4; ++done) {
    EXPECT_EQ(frames.progress(), done / 4.0);
    EXPECT_FALSE(frames.complete());
    frames.add_series(done / 2, done % 2, row(series));
  }
  EXPECT_EQ(frames.progress(), 1.0);
  EXPECT_TRUE(frames.complete());
  // A series that is added again is counted again, but not above 1.
  frames.add_series(0, 0, row(series));
  EXPECT_EQ(frames.progress(), 1.0);
  EXPECT_TRUE(frames.complete());
  // New frames start at 0.
  frames.setup(2, 2, 1);
  EXPECT_EQ(frames.progress(), 0.0);
  EXPECT_FALSE(frames.complete());
}

TEST(AnimationFrames, SizesAreReadByNumber) {
  SmallFrames small;
  EXPECT_EQ(small.frames.size(AnimationFrames::t_size), 4u);
  EXPECT_EQ(small.frames.size(0), 4u);
  EXPECT_EQ(small.frames.size(1), 2u);
  EXPECT_EQ(small.frames.size(2), 3u);
  EXPECT_EQ(thrown([&] { small.frames.size(3); }), "unknown Size type");
  small.frames.stop();
  for (const std::uint32_t type : {0u, 1u, 2u, 3u}) EXPECT_EQ(small.frames.size(type), 0u);
}

TEST(AnimationFrames, AStopLeavesTheFramesInMemory) {
  SmallFrames small;
  small.frames.add_series(0, 0, row(small.series));
  small.frames.stop();
  EXPECT_FALSE(small.frames.running());
  EXPECT_FALSE(small.frames.ready());
  EXPECT_FALSE(small.frames.complete());
  EXPECT_EQ(small.frames.progress(), 0.0);
  EXPECT_EQ(small.frames.data(3)[0], 4);
}

TEST(AnimationFrames, ReleaseLeavesTheBuildRunning) {
  SmallFrames small;
  small.frames.release();
  EXPECT_TRUE(small.frames.running());
  EXPECT_FALSE(small.frames.ready());
  EXPECT_EQ(small.frames.size(0), 0u);
  EXPECT_EQ(small.frames.progress(), 0.0);
  EXPECT_EQ(thrown([&] { small.frames.data(0); }), "invalid vector<T> subscript");
  EXPECT_EQ(thrown([&] { small.frames.add_series(0, 0, row(small.series)); }),
            "Adding a time series to uninitialised animation object");
}

TEST(AnimationFrames, AFrameBeyondTheLastIsRefused) {
  SmallFrames small;
  EXPECT_EQ(small.frames.data(3).size(), 6u);
  EXPECT_EQ(thrown([&] { small.frames.data(4); }), "invalid vector<T> subscript");
  EXPECT_EQ(thrown([&] { small.frames.data(0xFFFFFFFF); }), "invalid vector<T> subscript");
}

TEST(AnimationFrames, NoFramesAreMadeOnceStopped) {
  AnimationFrames frames;
  frames.setup(2, 3, 4);
  EXPECT_FALSE(frames.ready());
  EXPECT_EQ(thrown([&] { frames.data(0); }), "invalid vector<T> subscript");

  // Old frames are freed but still reported as ready. Nothing is written into them.
  SmallFrames small;
  small.frames.end();
  small.frames.setup(2, 3, 4);
  EXPECT_TRUE(small.frames.ready());
  EXPECT_EQ(small.frames.columns_for(4, 3), 0u);
  EXPECT_EQ(thrown([&] { small.frames.data(0); }), "invalid vector<T> subscript");
  small.frames.begin();
  EXPECT_EQ(thrown([&] { small.frames.add_series(0, 0, row(small.series)); }),
            "Adding a time series to uninitialised animation object");
}

TEST(AnimationFrames, ATooLargeRequestFailsAsAnAllocationAndKeepsTheFrames) {
  SmallFrames small;
  small.frames.add_series(0, 0, row(small.series));
  // 2^46 bytes and more, which no machine has.
  EXPECT_THROW(small.frames.setup(1 << 15, 1 << 15, 1 << 15), std::bad_alloc);
  EXPECT_THROW(small.frames.setup(0xFFFFFFFF, 0xFFFFFFFF, 1), std::length_error);
  EXPECT_TRUE(small.frames.running());
  EXPECT_EQ(small.frames.size(0), 4u);
  EXPECT_EQ(small.frames.data(3)[0], 4);
  EXPECT_EQ(small.frames.progress(), 1.0 / 6.0);
}

}  // namespace
