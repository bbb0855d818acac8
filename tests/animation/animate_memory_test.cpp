// The memory that a build needs besides its frames.
#include <new>

#include "support/own_process.h"
#include "test_animation.h"

namespace {

using Testing::AnimatedSea;
using Testing::good_alone;
using Testing::GridText;
using Testing::leave_room;
using Testing::peak_memory;
using Testing::sanitized;

TEST(AnimateMemory, APeakIsTheFramesAndAFewBlocks) {
  if (sanitized) GTEST_SKIP() << "the sanitizer's own memory is counted too";
  EXPECT_TRUE(good_alone([] {
    AnimatedSea sea({{5, {0.1, 0.3, 0.4}}, {6, {0.2, -0.2, 0.0}}, {20, {0.1, 0.1, 1.0}}});
    GridText grid;
    grid.rate = 100.0;
    grid.x_step = 10.0 / 49;
    grid.y_step = 4.0 / 99;
    const double frames = 2.0 * 50 * 100 * 1000;
    const double before = peak_memory();
    sea.build(grid);
    const double growth = peak_memory() - before;
    const bool whole = sea.frames().complete() && sea.frames().size(0) == 1000;
    return whole && growth > frames && growth < frames + 4e6;
  }));
}

TEST(AnimateMemory, ALongCycleHoldsOneSpectrumAndOneSeries) {
  if (sanitized) GTEST_SKIP() << "the sanitizer's own memory is counted too";
  EXPECT_TRUE(good_alone([] {
    AnimatedSea sea({{5, {0.1, 0.3, 0.4}}, {6, {0.2, -0.2, 0.0}}, {20, {0.1, 0.1, 1.0}}});
    GridText grid;
    grid.rate = 60000.0;
    grid.x_step = 10.0;
    grid.y_step = 4.0;
    const double samples = 6e5;
    // Per frame: four points of 2 bytes, an entry in the list of frames and the least heap block.
    const double frames = samples * (4 * 2 + 24 + 32);
    const double before = peak_memory();
    sea.build(grid);
    const double growth = peak_memory() - before;
    // Plus a spectrum, a series, the tables of the transform and the codes.
    return sea.frames().size(0) == 600000 && growth < frames + 3.5 * 8 * samples;
  }));
}

TEST(AnimateMemory, TheMemoryOfAColumnIsRefusedAsThatOfTheFrames) {
  if (sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than the limit leaves";
  EXPECT_TRUE(good_alone([] {
    AnimatedSea sea({{5, {0.1, 0.3, 0.4}}, {6, {0.2, -0.2, 0.0}}});
    GridText grid;
    grid.rate = 100000.0;
    grid.x_step = 10.0;
    grid.y_step = 4.0;
    sea.init(grid);
    leave_room(1.5e7);
    const double before = peak_memory();
    try {
      sea.slice(0, 1);
    } catch (const std::bad_alloc&) {
      // None of the 40 MB was used.
      return peak_memory() - before < 1e6 && sea.frames().ready();
    }
    return false;
  }));
}

TEST(AnimateMemory, FramesAreRefusedIfTheirColumnsDoNotFitBesideThem) {
  if (sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than the limit leaves";
  GridText grid;
  grid.rate = 100000.0;
  grid.x_step = 10.0;
  grid.y_step = 4.0;
  const auto refused_unused = [&](const auto& start) {
    return good_alone([&] {
      AnimatedSea sea({{5, {0.1, 0.3, 0.4}}, {6, {0.2, -0.2, 0.0}}});
      // Frames of 64 MB and columns of 40 MB.
      leave_room(8e7);
      const double before = peak_memory();
      try {
        start(sea);
      } catch (const std::bad_alloc&) {
        return peak_memory() - before < 2e6 && !sea.frames().ready();
      }
      return false;
    });
  };
  EXPECT_TRUE(refused_unused([&](AnimatedSea& sea) { sea.build(grid); }));
  EXPECT_TRUE(refused_unused([&](AnimatedSea& sea) { sea.init(grid); }));
}

TEST(AnimateMemory, ManySmallFramesAreRefusedBeforeAnyIsMade) {
  if (sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than the limit leaves";
  EXPECT_TRUE(good_alone([] {
    Synthesis::AnimationFrames frames;
    frames.begin();
    frames.setup(2, 3, 4);
    // 2^24 samples of 2 bytes, but each in a frame of its own.
    leave_room(5e8);
    try {
      frames.setup(1, 1, 1 << 24);
    } catch (const std::bad_alloc&) {
      // Refused beforehand: the old frames are still there.
      return frames.ready() && frames.data(3).size() == 6;
    }
    return false;
  }));
}

TEST(AnimateMemory, LargerFramesMakeRoomForMoreSmallOnes) {
  if (sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than the limit leaves";
  EXPECT_TRUE(good_alone([] {
    Synthesis::AnimationFrames frames;
    frames.begin();
    frames.setup(1 << 9, 1 << 8, 64);
    // Less than the 17 MB of either.
    leave_room(1e7);
    frames.setup(1 << 8, 1, 1 << 15);
    return frames.ready() && frames.data(0).capacity() == 1 << 8;
  }));
}

// A frame that grows moves to a new block, and both exist for a moment.
TEST(AnimateMemory, AFrameThatGrowsNeedsItsNewBlockBesideItsOldOne) {
  if (sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than the limit leaves";
  const auto grown = [](double room, bool fits) {
    return good_alone([=] {
      Synthesis::AnimationFrames frames;
      frames.begin();
      frames.setup(1 << 12, 1 << 12, 1);  // 34 MB
      leave_room(room);
      try {
        frames.setup(1 << 12, 3 << 11, 1);  // 50 MB
      } catch (const std::bad_alloc&) {
        return !fits && frames.ready() && frames.data(0).size() == 1 << 24;
      }
      return fits && frames.ready() && frames.data(0).size() == 3 << 23;
    });
  };
  EXPECT_TRUE(grown(4e7, false));
  EXPECT_TRUE(grown(6e7, true));
}

TEST(AnimateMemory, FramesOfAnUnchangedSizeNeedNoMoreMemory) {
  if (sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than the limit leaves";
  EXPECT_TRUE(good_alone([] {
    Synthesis::AnimationFrames frames;
    frames.begin();
    frames.setup(1 << 12, 1 << 12, 1);  // 34 MB
    leave_room(1e6);
    frames.setup(1 << 12, 1 << 12, 1);
    return frames.ready();
  }));
}

}  // namespace
