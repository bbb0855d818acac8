// The sums over whole rows against the plain formula, for each way in which the library adds them.
#include "drive/front_sums.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

#include "drive/row_sums.h"
#include "support/each_target.h"

namespace {

using Complex = std::complex<double>;
using Maths::HarmonicFront;
using Synthesis::PaddleHarmonic;
using Synthesis::PaddleRow;
using Testing::add_fronts;
using Testing::plain_sum;

constexpr double pi = std::numbers::pi;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

// Evenly spaced along a line at the angle `turn` to the y axis.
PaddleRow line(std::size_t paddles, double spacing, double turn = 0.0) {
  PaddleRow row;
  row.width = spacing;
  for (std::size_t p = 0; p < paddles; ++p) {
    const double along = spacing * static_cast<double>(p);
    row.x.push_back(1.5 - along * std::sin(turn));
    row.y.push_back(-0.7 + along * std::cos(turn));
    row.angle.push_back(turn);
  }
  return row;
}

PaddleRow circle(std::size_t paddles, double radius) {
  PaddleRow row;
  row.width = 2.0 * pi * radius / static_cast<double>(paddles);
  for (std::size_t p = 0; p < paddles; ++p) {
    const double place = 2.0 * pi * static_cast<double>(p) / static_cast<double>(paddles);
    row.x.push_back(radius * std::cos(place));
    row.y.push_back(radius * std::sin(place));
    row.angle.push_back(place > pi ? place - pi : place + pi);
  }
  return row;
}

std::vector<HarmonicFront> drawn_fronts(std::size_t count, double phases) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> unit(-1.0, 1.0);
  std::vector<HarmonicFront> fronts;
  for (std::size_t i = 0; i < count; ++i) {
    fronts.push_back({unit(random), pi * unit(random), phases * unit(random)});
  }
  return fronts;
}

std::vector<Complex> library_sums(const PaddleRow& row, const std::vector<HarmonicFront>& fronts,
                                  double k, double ratio) {
  std::vector<Complex> sums(row.x.size());
  add_fronts(row, PaddleHarmonic(k, ratio, row.width), fronts, sums.data());
  return sums;
}

bool same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

// The largest difference between the library and the formula, in units of the largest sum. NaN and
// infinity must be at the same places.
double worst_difference(const PaddleRow& row, const std::vector<HarmonicFront>& fronts, double k,
                        double ratio) {
  const std::vector<Complex> sums = library_sums(row, fronts, k, ratio);
  double peak = 0.0;
  double worst = 0.0;
  for (std::size_t p = 0; p < sums.size(); ++p) {
    const Complex expected = plain_sum(row, p, fronts, k, ratio);
    if (!std::isfinite(expected.real()) || !std::isfinite(expected.imag())) {
      const bool equal =
          same(sums[p].real(), expected.real()) && same(sums[p].imag(), expected.imag());
      if (!equal) return infinity;
      continue;
    }
    peak = std::max(peak, std::abs(expected));
    const double difference = std::abs(sums[p] - expected);
    if (!(difference <= worst)) worst = difference;
  }
  constexpr double smallest = 1e-300;  // below it, numbers lose their last bits
  return worst / std::max(peak, smallest);
}

constexpr double wave_numbers[] = {0.02, 0.7, 3.0, 6.2, 6.4, 9.0, 25.0, 200.0};

TEST(FrontSums, EvenRowsOfAnyLengthAgreeWithTheFormula) {
  const std::vector<HarmonicFront> fronts = drawn_fronts(31, pi);
  for (const std::size_t paddles :
       {0u, 1u, 2u, 7u, 8u, 9u, 16u, 17u, 63u, 128u, 511u, 513u, 1100u}) {
    for (const double turn : {0.0, 0.4, pi / 2.0, -2.0}) {
      const PaddleRow row = line(paddles, 0.5, turn);
      for (const double k : wave_numbers) {
        EXPECT_LE(worst_difference(row, fronts, k, 0.8), 1e-12)
            << paddles << " paddles at " << turn << ", k " << k;
      }
    }
  }
}

TEST(FrontSums, UnevenRowsAgreeWithTheFormula) {
  const std::vector<HarmonicFront> fronts = drawn_fronts(9, pi);
  for (const double shift : {1e-15, 1e-13, 1e-11, 1e-6, 0.1}) {
    PaddleRow row = line(100, 0.5);
    row.y[57] += shift;
    row.x[3] -= shift;
    for (const double k : wave_numbers) {
      EXPECT_LE(worst_difference(row, fronts, k, 0.8), 1e-12) << shift << ", k " << k;
    }
  }
}

TEST(FrontSums, CirclesAgreeWithTheFormula) {
  const std::vector<HarmonicFront> fronts = drawn_fronts(31, pi);
  for (const std::size_t paddles : {3u, 8u, 60u, 128u}) {
    for (const double k : wave_numbers) {
      EXPECT_LE(worst_difference(circle(paddles, 10.0), fronts, k, 0.8), 1e-12)
          << paddles << " paddles, k " << k;
    }
  }
}

TEST(FrontSums, AFrontAlmostAtARightAngleToEveryPaddleIsAsExact) {
  for (const double offset : {1e-2, 1e-4, 1e-9, 1e-13}) {
    const std::vector<HarmonicFront> front = {{0.3, pi / 2.0 - offset, 0.2}};
    EXPECT_LE(worst_difference(line(20, 0.5), front, 1.0, 0.8), 1e-12) << offset;
    PaddleRow turned = line(20, 0.5);
    for (std::size_t p = 10; p < 20; ++p) turned.angle[p] = 1e-3 * offset;
    EXPECT_LE(worst_difference(turned, front, 1.0, 0.8), 1e-12) << offset;
  }
}

TEST(FrontSums, HugePhasesAndPlacesAgreeWithTheFormula) {
  for (const double phases : {1e3, 1e6, 1e9}) {
    const std::vector<HarmonicFront> fronts = drawn_fronts(5, phases);
    EXPECT_LE(worst_difference(line(64, 0.5), fronts, 0.0, 0.8), 1e-12) << phases;
    EXPECT_LE(worst_difference(circle(30, 4.0), fronts, 0.0, 0.8), 1e-12) << phases;
  }
  // Here the phase itself is only good to 1e-9.
  PaddleRow far = line(64, 0.5);
  for (double& y : far.y) y += 1e7;
  const std::vector<HarmonicFront> fronts = drawn_fronts(5, pi);
  EXPECT_LE(worst_difference(far, fronts, 1.0, 0.8), 1e-12);
}

TEST(FrontSums, NanAndInfinityComeOutWhereTheFormulaHasThem) {
  const std::vector<HarmonicFront> odd = {
      {nan, 0.1, 0.2},      {0.1, nan, 0.2},      {0.1, 0.2, nan},
      {0.1, 0.2, infinity}, {0.1, infinity, 0.2}, {0.0, 0.2, nan},
      {5e-324, 0.2, 0.1},   {0.1, -0.0, 0.0},     {-1e-310, 3.0, 0.1}};
  for (const HarmonicFront& front : odd) {
    if (front.amp == 0.0) continue;  // adds nothing; see below
    for (const double k : {0.0, 1.0, 30.0, nan}) {
      for (const double ratio : {0.8, nan, infinity}) {
        EXPECT_LE(worst_difference(line(20, 0.5), {front}, k, ratio), 1e-12) << k << " " << ratio;
        EXPECT_LE(worst_difference(circle(20, 2.0), {front}, k, ratio), 1e-12) << k << " " << ratio;
      }
    }
  }
  for (const PaddleRow& row : {line(20, 0.5), circle(20, 2.0)}) {
    EXPECT_EQ(library_sums(row, {{0.0, 0.2, nan}}, 1.0, 0.8), std::vector<Complex>(20, 0.0));
  }
  PaddleRow broken = line(20, 0.5);
  broken.y[4] = nan;
  broken.x[9] = infinity;
  EXPECT_LE(worst_difference(broken, {{0.1, 0.2, 0.3}}, 1.0, 0.8), 1e-12);
}

TEST(FrontSums, AWithheldFrontAddsNothingEvenIfItsPhaseIsNan) {
  // Only the second half of the row faces the front.
  PaddleRow row = line(16, 0.5);
  for (std::size_t p = 8; p < 16; ++p) row.angle[p] = 1.0;
  const std::vector<Complex> sums = library_sums(row, {{0.1, 1.0, nan}}, 20.0, 0.8);
  for (std::size_t p = 0; p < 8; ++p) EXPECT_EQ(sums[p], Complex(0.0)) << p;
  for (std::size_t p = 8; p < 16; ++p) EXPECT_TRUE(std::isnan(sums[p].real())) << p;
}

TEST(FrontSums, PaddlesOfNegativeWidthAgreeWithTheFormula) {
  const std::vector<HarmonicFront> fronts = drawn_fronts(9, pi);
  for (PaddleRow row : {line(20, 0.5), circle(20, 2.0)}) {
    row.width = -0.9;
    EXPECT_LE(worst_difference(row, fronts, 5.0, 0.8), 1e-12);
  }
}

TEST(FrontSums, EveryInstructionSetGivesTheSameBits) {
  std::vector<std::vector<Complex>> first;
  std::size_t targets = 0;
  Testing::on_each_target([&] {
    std::vector<std::vector<Complex>> all;
    for (const PaddleRow& row : {line(75, 0.5), line(700, 0.1, 0.3), circle(37, 5.0)}) {
      for (const double k : wave_numbers) {
        all.push_back(library_sums(row, drawn_fronts(11, 5.0), k, 0.7));
      }
    }
    if (targets++ == 0) first = all;
    EXPECT_TRUE(all == first);
  });
  EXPECT_GE(targets, 1u);
}

}  // namespace
