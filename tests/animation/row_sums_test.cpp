// The sums over rows against a plain sum, on every instruction set.
#include "animation/row_sums.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <limits>
#include <random>
#include <vector>

#include "support/each_target.h"

namespace {

using Complex = std::complex<double>;
using Synthesis::RowTurns;

struct Fronts {
  explicit Fronts(std::size_t count) {
    std::mt19937_64 random(3);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    for (std::size_t i = 0; i < count; ++i) {
      re.push_back(unit(random));
      im.push_back(unit(random));
      ky.push_back(i % 5 == 0 ? 0.0 : 9.0 * unit(random));
    }
  }
  std::vector<double> re;
  std::vector<double> im;
  std::vector<double> ky;
};

struct Sums {
  Sums(const Fronts& fronts, double step, std::size_t first, std::size_t last, std::uint32_t rows)
      : re(72, 0.5), im(72, -0.5) {
    RowTurns turns;
    turns.take(fronts.ky, step);
    Synthesis::add_rows(fronts.re.data(), fronts.im.data(), turns, first, last, rows, re.data(),
                        im.data());
  }
  std::vector<double> re;
  std::vector<double> im;
};

TEST(RowSums, ArePlainSums) {
  const Fronts fronts(23);
  constexpr double step = 0.31;
  Testing::on_each_target([&] {
    for (const std::uint32_t rows : {2u, 7u, 8u, 9u, 31u, 64u}) {
      const Sums sums(fronts, step, 3, 21, rows);
      for (std::uint32_t row = 0; row < rows; ++row) {
        Complex expected(0.5, -0.5);
        for (std::size_t i = 3; i < 21; ++i) {
          expected +=
              Complex(fronts.re[i], fronts.im[i]) * std::polar(1.0, -fronts.ky[i] * step * row);
        }
        EXPECT_NEAR(sums.re[row], expected.real(), 1e-13) << row;
        EXPECT_NEAR(sums.im[row], expected.imag(), 1e-13) << row;
      }
      // Nothing is written after the group of the last row.
      EXPECT_EQ(sums.re[(rows + 7) / 8 * 8], 0.5);
      EXPECT_EQ(sums.im[(rows + 7) / 8 * 8], -0.5);
    }
  });
}

TEST(RowSums, HaveTheSameBitsOnEveryInstructionSet) {
  const Fronts fronts(40);
  const Sums best(fronts, 0.2, 0, 40, 64);
  Testing::on_each_target([&] {
    const Sums sums(fronts, 0.2, 0, 40, 64);
    EXPECT_EQ(sums.re, best.re);
    EXPECT_EQ(sums.im, best.im);
  });
}

TEST(RowSums, WithoutFrontsStayAsTheyAre) {
  const Sums sums(Fronts(4), 1.0, 2, 2, 64);
  EXPECT_EQ(sums.re, std::vector<double>(72, 0.5));
}

TEST(RowSums, AFrontThatIsNaNMakesAllRowsNaN) {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  constexpr double inf = std::numeric_limits<double>::infinity();
  Testing::on_each_target([&] {
    for (const double bad : {nan, inf}) {
      Fronts fronts(3);
      fronts.ky[1] = bad;
      const Sums sums(fronts, 0.1, 0, 3, 16);
      for (std::size_t row = 1; row < 16; ++row) EXPECT_TRUE(std::isnan(sums.re[row])) << row;
      Fronts amplitudes(3);
      amplitudes.re[2] = bad;
      EXPECT_FALSE(std::isfinite(Sums(amplitudes, 0.1, 0, 3, 16).re[9]));
    }
  });
}

}  // namespace
