#include "jobs/tabulated_density.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using Jobs::TabulatedDensity;

constexpr double infinity = std::numeric_limits<double>::infinity();

// A roof from 0.5 Hz to 2 Hz with its top of 3 m2/Hz at 1 Hz.
TabulatedDensity roof() { return {{0.5, 1.0, 2.0}, {0.0, 3.0, 0.0}}; }

TEST(TabulatedDensity, IsLinearBetweenItsPointsAndZeroOutside) {
  const TabulatedDensity table = roof();
  EXPECT_DOUBLE_EQ(table.at(0.5), 0.0);
  EXPECT_DOUBLE_EQ(table.at(0.75), 1.5);
  EXPECT_DOUBLE_EQ(table.at(1.0), 3.0);
  EXPECT_DOUBLE_EQ(table.at(1.25), 2.25);
  EXPECT_DOUBLE_EQ(table.at(2.0), 0.0);
  EXPECT_EQ(table.at(0.49), 0.0);
  EXPECT_EQ(table.at(2.01), 0.0);
  EXPECT_EQ(table.at(std::numeric_limits<double>::quiet_NaN()), 0.0);
}

TEST(TabulatedDensity, ItsIntegralIsTheSumOfTrapezia) {
  const TabulatedDensity table = roof();
  EXPECT_DOUBLE_EQ(table.integral(0.0, infinity), 0.75 + 1.5);
  EXPECT_DOUBLE_EQ(table.integral(0.5, 1.0), 0.75);
  EXPECT_DOUBLE_EQ(table.integral(0.75, 1.25), 0.25 * (1.5 + 3.0) / 2 + 0.25 * (3.0 + 2.25) / 2);
  EXPECT_EQ(table.integral(2.0, 3.0), 0.0);
  EXPECT_EQ(table.integral(0.0, 0.5), 0.0);
  EXPECT_EQ(table.integral(1.5, 1.5), 0.0);
}

TEST(TabulatedDensity, TheFirstBadRowIsFound) {
  EXPECT_FALSE(roof().bad_row());
  const auto expect = [](const TabulatedDensity& table, std::size_t row, const char* fault) {
    const auto bad = table.bad_row();
    ASSERT_TRUE(bad);
    EXPECT_EQ(bad->row, row);
    EXPECT_EQ(bad->fault, fault);
  };
  expect({{-0.5, 1.0}, {0.0, 1.0}}, 0, "the frequency is negative");
  expect({{0.5, 0.5}, {0.0, 1.0}}, 1, "the frequency does not rise");
  expect({{0.5, 1.0, 0.9}, {0.0, 1.0, -1.0}}, 2, "the frequency does not rise");
  expect({{0.5, 1.0}, {0.0, -1.0}}, 1, "the density is negative");
}

}  // namespace
