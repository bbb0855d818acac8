// What a build needs beside its frames.
#include <new>

#include "support/own_process.h"
#include "test_animation.h"

namespace {

using Testing::good_alone;
using Testing::GridText;
using Testing::leave_room;
using Testing::peak_memory;
using Testing::sanitized;
using Testing::Sea;

TEST(AnimateMemory, APeakIsTheFramesAndAFewBlocks) {
  if (sanitized) GTEST_SKIP() << "the sanitizer's own memory is counted too";
  EXPECT_TRUE(good_alone([] {
    Sea sea({{5, {0.1, 0.3, 0.4}}, {6, {0.2, -0.2, 0.0}}, {20, {0.1, 0.1, 1.0}}});
    GridText grid;
    grid.rate = 200.0;
    grid.x_step = 10.0 / 99;
    grid.y_step = 4.0 / 199;
    const double frames = 2.0 * 100 * 200 * 2000;
    const double before = peak_memory();
    sea.build(grid);
    const double growth = peak_memory() - before;
    const bool whole = sea.frames().complete() && sea.frames().size(0) == 2000;
    return whole && growth > frames && growth < frames + 4e6;
  }));
}

TEST(AnimateMemory, ALongCycleHoldsOneSpectrumAndOneSeries) {
  if (sanitized) GTEST_SKIP() << "the sanitizer's own memory is counted too";
  EXPECT_TRUE(good_alone([] {
    Sea sea({{5, {0.1, 0.3, 0.4}}, {6, {0.2, -0.2, 0.0}}, {20, {0.1, 0.1, 1.0}}});
    GridText grid;
    grid.rate = 120000.0;
    grid.x_step = 10.0;
    grid.y_step = 4.0;
    const double samples = 1.2e6;
    // Four points of 2 bytes, a place in the list of frames and the least piece of the heap.
    const double frames = samples * (4 * 2 + 24 + 32);
    const double before = peak_memory();
    sea.build(grid);
    const double growth = peak_memory() - before;
    // The tables of the transform are nearly a signal more, the codes a quarter of one.
    return sea.frames().size(0) == 1200000 && growth < frames + 3.5 * 8 * samples;
  }));
}

TEST(AnimateMemory, WhatAColumnNeedsIsRefusedAsTheFramesAre) {
  if (sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than the limit leaves";
  EXPECT_TRUE(good_alone([] {
    Sea sea({{5, {0.1, 0.3, 0.4}}, {6, {0.2, -0.2, 0.0}}});
    GridText grid;
    grid.rate = 400000.0;
    grid.x_step = 10.0;
    grid.y_step = 4.0;
    sea.init(grid);
    leave_room(6e7);
    const double before = peak_memory();
    try {
      sea.slice(0, 1);
    } catch (const std::bad_alloc&) {
      // Of the 90 MB nothing was used.
      return peak_memory() - before < 1e6 && sea.frames().ready();
    }
    return false;
  }));
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
      // A refusal halfway would have cost the frames that were there.
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
    frames.setup(1 << 10, 1 << 10, 64);
    leave_room(2e7);
    frames.setup(1 << 10, 1, 1 << 16);
    return frames.ready() && frames.data(0).capacity() == 1 << 10;
  }));
}

}  // namespace
