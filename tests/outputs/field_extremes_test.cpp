#include "outputs/field_extremes.h"

#include <gtest/gtest.h>

#include <random>

namespace Outputs {
namespace {

using Frame = std::vector<std::int16_t>;

TEST(FieldExtremes, AreThoseOfASearchOfAllPoints) {
  constexpr std::size_t frames = 7;
  constexpr std::size_t rows = 5;
  constexpr std::size_t columns = 6;
  constexpr double scale = 0.001;
  constexpr double dx = 0.2;
  constexpr double dy = 0.3;
  std::mt19937 random(5);
  std::vector<Frame> field(frames, Frame(rows * columns));
  for (Frame& frame : field) {
    for (std::int16_t& count : frame) count = static_cast<std::int16_t>(random() % 2001 - 1000);
  }
  field[3][17] = -32768;  // NaN
  FieldExtremes extremes({1.0, dx, columns}, {2.0, dy, rows}, scale);
  for (std::size_t t = 0; t < frames; ++t) extremes.add(t, field[t].data());

  const auto height = [&](std::size_t t, std::size_t y, std::size_t x) {
    const int count = field[t][y * columns + x];
    return count == -32768 ? std::nan("") : scale * count;
  };
  double crest = -1e9;
  double slope = -1e9;
  for (std::size_t t = 0; t < frames; ++t) {
    for (std::size_t y = 0; y < rows; ++y) {
      for (std::size_t x = 0; x < columns; ++x) {
        if (height(t, y, x) > crest) crest = height(t, y, x);
        double gx = x + 1 < columns ? (height(t, y, x + 1) - height(t, y, x)) / dx : 0.0;
        double gy = y + 1 < rows ? (height(t, y + 1, x) - height(t, y, x)) / dy : 0.0;
        if (std::isnan(gx)) gx = 0.0;
        if (std::isnan(gy)) gy = 0.0;
        slope = std::max(slope, std::hypot(gx, gy));
      }
    }
  }
  EXPECT_NEAR(extremes.highest() * scale, crest, 1e-12);
  EXPECT_NEAR(height(extremes.crest().frame, extremes.crest().y, extremes.crest().x), crest, 1e-12);
  EXPECT_NEAR(extremes.slope(), slope, 1e-12);
  const FieldPlace& at = extremes.steepest();
  const double gx = at.x + 1 < columns
                        ? (height(at.frame, at.y, at.x + 1) - height(at.frame, at.y, at.x)) / dx
                        : 0.0;
  const double gy = at.y + 1 < rows
                        ? (height(at.frame, at.y + 1, at.x) - height(at.frame, at.y, at.x)) / dy
                        : 0.0;
  EXPECT_NEAR(std::hypot(gx, gy), slope, 1e-12);
}

TEST(FieldExtremes, TakeTheFirstOfEqualOnes) {
  FieldExtremes extremes({0.0, 1.0, 3}, {0.0, 1.0, 1}, 1.0);
  const Frame frame{0, 5, 0};
  extremes.add(4, frame.data());
  extremes.add(5, frame.data());
  EXPECT_EQ(extremes.crest().frame, 4U);
  EXPECT_EQ(extremes.steepest().frame, 4U);
  EXPECT_EQ(extremes.steepest().x, 0U);
}

TEST(FieldExtremes, KnowAFieldThatIsBelowStillWater) {
  FieldExtremes extremes({0.0, 1.0, 2}, {0.0, 1.0, 1}, 1.0);
  const Frame frame{-7, -3};
  extremes.add(0, frame.data());
  EXPECT_EQ(extremes.highest(), -3);
  EXPECT_EQ(extremes.lowest(), -7);
}

TEST(FieldExtremes, AreNoneWithoutHeights) {
  FieldExtremes extremes({0.0, 1.0, 2}, {0.0, 1.0, 1}, 1.0);
  const Frame frame{-32768, -32768};
  extremes.add(0, frame.data());
  EXPECT_FALSE(extremes.any());
  EXPECT_EQ(extremes.slope(), 0.0);
}

TEST(FieldExtremes, HaveNoSlopeAtASinglePoint) {
  FieldExtremes extremes({0.0, 0.0, 1}, {0.0, 0.0, 1}, 1.0);
  const Frame frame{9};
  extremes.add(0, frame.data());
  EXPECT_EQ(extremes.slope(), 0.0);
  EXPECT_EQ(extremes.highest(), 9);
}

TEST(FieldExtremes, HaveNoSlopeAlongAnAxisWithoutStep) {
  const Frame frame{0, 300, 0, 100};
  FieldExtremes across({0.0, 0.0, 2}, {0.0, 2.0, 2}, 0.01);
  across.add(0, frame.data());
  EXPECT_NEAR(across.slope(), 1.0, 1e-12);  // from 3 m to 1 m over 2 m
  FieldExtremes none({0.0, 0.0, 2}, {0.0, -1.0, 2}, 0.01);
  none.add(0, frame.data());
  EXPECT_EQ(none.slope(), 0.0);
}

}  // namespace
}  // namespace Outputs
