#include "drive/paddle_spectrum.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <limits>
#include <numbers>
#include <random>
#include <sstream>
#include <vector>

#include "drive/row_sums.h"
#include "support/output.h"

namespace {

using Complex = std::complex<double>;
using Maths::HarmonicFront;
using Synthesis::PaddleHarmonic;
using Synthesis::PaddleRow;
using Testing::add_front;
using Testing::plain_sum;
using Testing::printed;

constexpr double pi = std::numbers::pi;

PaddleRow row_of(double width, std::vector<double> x, std::vector<double> y,
                 std::vector<double> angle) {
  return {width, std::move(x), std::move(y), std::move(angle)};
}

TEST(PaddleSpectrum, AgreesWithThePlainSumForAnyRowAndFronts) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> unit(-1.0, 1.0);
  PaddleRow row;
  row.width = 0.6;
  for (int p = 0; p < 60; ++p) {
    row.x.push_back(5.0 * unit(random));
    row.y.push_back(20.0 * unit(random));
    // Runs of neighbours that face the same way, as around the corners of a basin.
    row.angle.push_back(p < 20 ? 0.0 : p < 40 ? pi / 2.0 : unit(random));
  }
  for (const double k : {0.02, 1.0, 4.0, 5.3, 9.0, 25.0}) {
    std::vector<HarmonicFront> fronts;
    for (int i = 0; i < 40; ++i)
      fronts.push_back({unit(random), pi * unit(random), pi * unit(random)});
    const double ratio = 0.1 + std::abs(unit(random));
    std::vector<Complex> sums(row.x.size());
    const PaddleHarmonic harmonic(k, ratio, row.width);
    for (const HarmonicFront& front : fronts) add_front(row, harmonic, front, sums.data());
    double peak = 0.0;
    for (const Complex& sum : sums) peak = std::max(peak, std::abs(sum));
    for (std::size_t p = 0; p < sums.size(); ++p) {
      const Complex expected = plain_sum(row, p, fronts, k, ratio);
      EXPECT_LE(std::abs(sums[p] - expected), 1e-12 * peak) << "k " << k << " paddle " << p;
    }
  }
}

TEST(PaddleSpectrum, LongWavesReachPaddlesAtAnyAngle) {
  const double w = 0.5;
  const PaddleHarmonic harmonic(pi / w * (1.0 - 1e-9), 1.0, w);
  EXPECT_EQ(harmonic.max_offset, std::numeric_limits<double>::infinity());
  const PaddleRow row = row_of(w, {0.0}, {0.0}, {0.0});
  for (const double angle : {0.0, 1.5, -1.5, 3.0}) {
    EXPECT_TRUE(reaches(row, harmonic, {1.0, angle, 0.0})) << angle;
    Complex sum = 0.0;
    add_front(row, harmonic, {1.0, angle, 0.0}, &sum);
    EXPECT_NE(std::abs(sum), 0.0) << angle;
  }
}

TEST(PaddleSpectrum, TheLargestOffsetOfShortWavesFallsFromAQuarterTurn) {
  const double w = 0.5;
  const PaddleRow row = row_of(w, {0.0}, {0.0}, {0.0});
  // At the limit, and just above it, where the arcsine has fallen by sqrt(2e-9).
  EXPECT_NEAR(PaddleHarmonic(pi / w, 1.0, w).max_offset, pi / 2.0, 1e-7);
  const PaddleHarmonic above(pi / w * (1.0 + 1e-9), 1.0, w);
  EXPECT_NEAR(above.max_offset, pi / 2.0 - std::sqrt(2e-9), 1e-8);
  EXPECT_TRUE(reaches(row, above, {1.0, 1.57, 0.0}));
  EXPECT_FALSE(reaches(row, above, {1.0, pi / 2.0, 0.0}));
  EXPECT_FALSE(reaches(row, above, {1.0, -1.6, 0.0}));

  const PaddleHarmonic twice(2.0 * pi / w, 1.0, w);
  EXPECT_NEAR(twice.max_offset, pi / 6.0, 1e-15);
}

TEST(PaddleSpectrum, TheLargestOffsetItselfPasses) {
  const double w = 0.5;
  const PaddleHarmonic harmonic(9.0, 1.0, w);
  const double limit = std::asin(pi / (9.0 * w));
  const PaddleRow row = row_of(w, {0.0}, {0.0}, {0.0});
  const double beyond = std::nextafter(limit, 2.0);
  for (const double sign : {1.0, -1.0}) {
    EXPECT_TRUE(reaches(row, harmonic, {1.0, sign * limit, 0.0}));
    EXPECT_FALSE(reaches(row, harmonic, {1.0, sign * beyond, 0.0}));
    Complex sum = 0.0;
    add_front(row, harmonic, {1.0, sign * beyond, 0.0}, &sum);
    EXPECT_EQ(sum, Complex(0.0));
    add_front(row, harmonic, {1.0, sign * limit, 0.0}, &sum);
    EXPECT_NE(sum, Complex(0.0));
  }
}

TEST(PaddleSpectrum, AnObliqueFrontIsWithheldOnlyFromThePaddlesThatFaceAway) {
  const double w = 0.5;
  const PaddleHarmonic harmonic(9.0, 1.0, w);
  const PaddleRow row = row_of(w, {0.0, 1.0}, {0.0, 1.0}, {0.0, pi / 2.0});
  std::vector<Complex> sums(2);
  add_front(row, harmonic, {1.0, 1.2, 0.0}, sums.data());
  EXPECT_EQ(sums[0], Complex(0.0));
  EXPECT_NE(sums[1], Complex(0.0));
}

TEST(PaddleSpectrum, ZeroAmplitudeAddsNothingEvenWithANanPhase) {
  const PaddleRow row = row_of(0.5, {0.0}, {0.0}, {0.0});
  Complex sum(0.25, -0.5);
  add_front(row, PaddleHarmonic(1.0, 1.0, 0.5),
            {0.0, 0.0, std::numeric_limits<double>::quiet_NaN()}, &sum);
  EXPECT_EQ(sum, Complex(0.25, -0.5));
}

TEST(PaddleSpectrum, ZeroAmplitudeAddsNothingBesideHugeSums) {
  const PaddleRow row = row_of(0.5, {0.0}, {0.0}, {0.0});
  const PaddleHarmonic harmonic(1.0, 1e-11, 0.5);
  const HarmonicFront refused = {0.0, 0.0, std::numeric_limits<double>::quiet_NaN()};
  std::ostringstream expected;
  Complex sum;
  const std::string line = printed([&] {
    const std::vector<HarmonicFront> fronts = {refused, {1.0, 0.0, 0.0}, refused};
    Testing::add_fronts(row, harmonic, fronts, &sum);
    expected << sum << ":";
  });
  EXPECT_EQ(line, expected.str());
  EXPECT_NEAR(sum.imag(), -1e11, 1.0);
}

TEST(PaddleSpectrum, HugeSumsAreWrittenAtEachAddition) {
  const PaddleRow row = row_of(0.5, {0.0, 0.0}, {0.0, 0.0}, {0.0, pi / 2.0});
  const PaddleHarmonic harmonic(1.0, 1e-11, 0.5);
  std::vector<Complex> sums(2);
  std::ostringstream expected;
  const std::string line = printed([&] {
    for (int i = 0; i < 2; ++i) {
      add_front(row, harmonic, {1.0, 0.0, 0.0}, sums.data());
      expected << sums[0] << ":";
    }
  });
  EXPECT_EQ(line, expected.str());
  EXPECT_NEAR(sums[0].imag(), -2e11, 1.0);
  EXPECT_LT(std::abs(sums[1]), 1e10);  // at a right angle almost 0, and not written
}

TEST(PaddleSpectrum, ASumOfExactlyTheThresholdIsNotWritten) {
  const PaddleRow row = row_of(0.5, {0.0}, {0.0}, {0.0});
  const PaddleHarmonic harmonic(1.0, 1.0, 0.5);
  const auto line = [&](double amp) {
    Complex sum = 0.0;
    return printed([&] { add_front(row, harmonic, {amp, 0.0, pi / 2.0}, &sum); });
  };
  Complex exactly = 0.0;
  printed([&] { add_front(row, harmonic, {1e10, 0.0, pi / 2.0}, &exactly); });
  ASSERT_EQ(exactly, Complex(1e10));
  EXPECT_EQ(line(0.999999e10), "");
  EXPECT_EQ(line(1e10), "");
  EXPECT_EQ(line(1.000001e10), "(1e+10,0):");
}

TEST(PaddleSpectrum, ARowWithoutPaddlesIsReachedByNothing) {
  EXPECT_FALSE(reaches(PaddleRow{}, PaddleHarmonic(1.0, 1.0, 0.5), {1.0, 0.0, 0.0}));
}

}  // namespace
