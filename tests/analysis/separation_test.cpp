// Wave trains separated by linear equations over the probes.
#include "analysis/separation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstddef>
#include <numbers>
#include <random>
#include <vector>

#include "records.h"
#include "solve.h"
#include "support/thrown.h"

namespace {

using Analysis::Cmatrix;
using Analysis::invert;
using Analysis::ProbeRecord;
using Analysis::separate_fundamental;
using Analysis::separate_harmonic;
using Testing::nothing_thrown;
using Testing::thrown;

constexpr double pi = std::numbers::pi;
constexpr Complex i{0.0, 1.0};

Cmatrix matrix(const Rows& rows) {
  Cmatrix out(rows.size());
  out.data.clear();
  for (const auto& row : rows) out.data.insert(out.data.end(), row.begin(), row.end());
  return out;
}

void expect_rows(Cmatrix& found, const Rows& expected, double tolerance) {
  for (std::size_t r = 0; r < expected.size(); ++r) {
    for (std::size_t c = 0; c < expected.size(); ++c) {
      EXPECT_NEAR(std::abs(found.at(r, c) - expected[r][c]), 0.0, tolerance) << r << " " << c;
    }
  }
}

std::vector<ProbeRecord> records(const std::vector<double>& positions,
                                 const std::vector<Complex>& values) {
  std::vector<ProbeRecord> out;
  for (std::size_t n = 0; n < positions.size(); ++n) {
    out.push_back({static_cast<std::uint32_t>(n), positions[n], values[n]});
  }
  return out;
}

std::vector<ProbeRecord> records(const std::vector<double>& positions,
                                 const std::vector<double>& ks,
                                 const std::vector<Complex>& amplitudes) {
  return records(positions, product(trains_at(positions, ks), amplitudes));
}

void expect_near(const Complex& found, const Complex& expected, double tolerance) {
  EXPECT_NEAR(std::abs(found - expected), 0.0, tolerance) << found << " " << expected;
}

TEST(Separation, InvertsAMatrixWithAKnownInverse) {
  // [[2, 1], [i, 3]] has the determinant 6 - i.
  Cmatrix two = matrix({{2.0, 1.0}, {i, 3.0}});
  EXPECT_TRUE(invert(two));
  const Complex d = 6.0 - i;
  expect_rows(two, {{3.0 / d, -1.0 / d}, {-i / d, 2.0 / d}}, 1e-15);

  Cmatrix one = matrix({{4.0 * i}});
  EXPECT_TRUE(invert(one));
  expect_rows(one, {{-0.25 * i}}, 1e-16);

  Cmatrix none(0);
  EXPECT_TRUE(invert(none));
}

TEST(Separation, InvertsRandomMatricesOfAllSizes) {
  std::mt19937 generator(7);
  const auto draw = [&] { return generator() / 2147483648.0 - 1.0; };
  for (std::size_t dim = 1; dim <= 6; ++dim) {
    Rows rows(dim, std::vector<Complex>(dim));
    for (std::size_t r = 0; r < dim; ++r) {
      for (Complex& element : rows[r]) element = {draw(), draw()};
      rows[r][r] += 4.0 * i;
    }
    Cmatrix inverse = matrix(rows);
    ASSERT_TRUE(invert(inverse));
    for (std::size_t c = 0; c < dim; ++c) {
      std::vector<Complex> unit(dim);
      unit[c] = 1.0;
      const std::vector<Complex> column = solve(rows, unit);
      for (std::size_t r = 0; r < dim; ++r) expect_near(inverse.at(r, c), column[r], 1e-13);
    }
  }
}

TEST(Separation, ASmallFirstPivotLeavesTheMatrixUnchanged) {
  const Rows rows = {{9e-7, 1.0}, {2.0, 3.0}};
  Cmatrix found = matrix(rows);
  EXPECT_FALSE(invert(found));
  expect_rows(found, rows, 0.0);
}

TEST(Separation, RowsAreNotExchangedForALargerPivot) {
  Cmatrix found = matrix({{0.0, 1.0}, {1.0, 0.0}});
  EXPECT_FALSE(invert(found));
}

TEST(Separation, TheSmallestPivotIsAMillionth) {
  Cmatrix below = matrix({{0.999999e-6 * i}});
  EXPECT_FALSE(invert(below));
  Cmatrix at = matrix({{-1e-6}});
  EXPECT_TRUE(invert(at));
  Cmatrix apart = matrix({{Complex(0.8e-6, 0.7e-6)}});
  EXPECT_TRUE(invert(apart));
}

TEST(Separation, ASmallLaterPivotLeavesTheMatrixPartlyReduced) {
  // The first pivot is 2. To the right of it, row 0 is divided by 2, and 3 times and once row 0 are
  // subtracted from the other rows. The first column is kept. The second pivot is 9 - 3 * 3.
  Cmatrix found = matrix({{2.0, 6.0, 4.0}, {3.0, 9.0, 1.0}, {1.0, 5.0, 7.0}});
  EXPECT_FALSE(invert(found));
  expect_rows(found, {{2.0, 3.0, 2.0}, {3.0, 0.0, -5.0}, {1.0, 2.0, 5.0}}, 0.0);
}

TEST(Separation, TwoProbesDetermineTwoTrains) {
  for (const double k : {0.4, 2.0, 9.0}) {
    for (const std::vector<double>& positions :
         {std::vector<double>{0.0, 0.3}, {-2.0, -1.9}, {5.0, 5.77}, {0.1, 0.0}}) {
      const std::vector<Complex> amplitudes = {{0.3, -0.4}, {-0.05, 0.02}};
      const auto found = separate_fundamental(records(positions, {k, -k}, amplitudes), k);
      expect_near(found.forward, amplitudes[0], 1e-12);
      expect_near(found.backward, amplitudes[1], 1e-12);
    }
  }
}

TEST(Separation, ConsistentProbesInExcessGiveTheExactTrains) {
  const std::vector<Complex> amplitudes = {{0.3, -0.4}, {-0.05, 0.02}};
  for (const std::vector<double>& positions :
       {std::vector<double>{0.0, 0.3, 0.5}, {-2.0, -1.9, -1.3, 0.2}, {5.0, 5.2, 5.77, 6.1, 6.2}}) {
    const auto found = separate_fundamental(records(positions, {2.0, -2.0}, amplitudes), 2.0);
    expect_near(found.forward, amplitudes[0], 1e-13);
    expect_near(found.backward, amplitudes[1], 1e-13);
  }
}

// The least squares solution, by the conjugate transpose.
std::vector<Complex> least_squares(const Rows& rows, const std::vector<Complex>& values) {
  Rows conjugate = transpose(rows);
  for (auto& row : conjugate) {
    for (Complex& element : row) element = std::conj(element);
  }
  Rows hermitian;
  for (const auto& row : conjugate) hermitian.push_back(product(transpose(rows), row));
  return solve(hermitian, product(conjugate, values));
}

TEST(Separation, InconsistentProbesGiveTheLeastSquaresSolution) {
  // The coefficients of opposite trains are conjugate, so the plain transpose of the library gives
  // the same equations in another order.
  const std::vector<double> positions = {0.0, 0.3, 0.5, 1.3};
  const std::vector<Complex> values = {{1.0, 0.5}, {-0.3, 0.2}, {0.1, -0.7}, {0.4, 0.4}};
  const std::vector<Complex> expected = least_squares(trains_at(positions, {2.0, -2.0}), values);
  const auto found = separate_fundamental(records(positions, values), 2.0);
  expect_near(found.forward, expected[0], 1e-13);
  expect_near(found.backward, expected[1], 1e-13);
}

TEST(Separation, ProbesASixthOfAWaveApartGiveNineSixteenthsOfTheTrains) {
  // With k s of 0, 1/3 and 2/3 of pi both squares sum to 0 and the products to 3/4. The matrix
  // [[0, 3/4], [3/4, 0]] has no first pivot, so it is used in place of its inverse. Forward is 1/2
  // * 3/4 times the sum of V b, which is 1/2 * 3 F: 9/16 F in total.
  const Complex forward{0.3, -0.4};
  const Complex backward{-0.05, 0.02};
  const auto found = separate_fundamental(
      records({0.0, pi / 3.0, 2.0 * pi / 3.0}, {1.0, -1.0}, {forward, backward}), 1.0);
  expect_near(found.forward, 9.0 / 16.0 * forward, 1e-14);
  expect_near(found.backward, 9.0 / 16.0 * backward, 1e-14);
}

TEST(Separation, ProbesHalfAWaveApartGiveAMixtureOfTheTrains) {
  // Every element of the matrix is 3/4. It has no second pivot and is left as [[3/4, 1], [3/4, 0]].
  // Both right sides are 3/2 (F + B).
  const Complex forward{0.3, -0.4};
  const Complex backward{-0.05, 0.02};
  const auto found =
      separate_fundamental(records({0.0, pi, 2.0 * pi}, {1.0, -1.0}, {forward, backward}), 1.0);
  expect_near(found.forward, 0.5 * 1.75 * 1.5 * (forward + backward), 1e-14);
  expect_near(found.backward, 0.5 * 0.75 * 1.5 * (forward + backward), 1e-14);
}

TEST(Separation, TwoProbesNearAQuarterOfAWaveApartFailBelowTheSmallestPivotOnly) {
  // With 2 k s of 0 and pi + e the first pivot has the magnitude e / 4. The second diagonal element
  // is its conjugate, the other elements are 1/2.
  const std::vector<Complex> amplitudes = {{0.3, -0.4}, {-0.05, 0.02}};
  for (const double e : {3.99e-6, 4.01e-6}) {
    const auto found =
        separate_fundamental(records({0.0, 0.5 * (pi + e)}, {1.0, -1.0}, amplitudes), 1.0);
    if (e < 4e-6) {
      // 1/2 * 1/2 times the sum of V b, which is F up to e.
      expect_near(found.forward, 0.25 * amplitudes[0], 1e-5);
      expect_near(found.backward, 0.25 * amplitudes[1], 1e-5);
    } else {
      expect_near(found.forward, amplitudes[0], 1e-9);
      expect_near(found.backward, amplitudes[1], 1e-9);
    }
  }
}

TEST(Separation, FourProbesDetermineFourTrains) {
  // Collocation: four trains give each of four probes any value.
  std::mt19937 generator(3);
  const auto draw = [&] { return generator() / 2147483648.0 - 1.0; };
  for (const std::vector<double>& positions :
       {std::vector<double>{0.0, 0.25, 0.62, 1.1}, {-1.3, -1.0, -0.2, 0.1}, {4.0, 4.2, 4.7, 5.6}}) {
    for (const auto& [bound, free] : {std::pair{3.1, 5.2}, {2.0, 2.9}, {6.0, 9.4}}) {
      std::vector<Complex> values(4);
      for (Complex& value : values) value = {draw(), draw()};
      const std::vector<Complex> expected =
          solve(trains_at(positions, {bound, -bound, free, -free}), values);
      const auto found = separate_harmonic(records(positions, values), bound, free);
      double size = 0.0;
      for (const Complex& amplitude : expected) size = std::max(size, std::abs(amplitude));
      expect_near(found.bound.forward, expected[0], 1e-9 * size);
      expect_near(found.bound.backward, expected[1], 1e-9 * size);
      expect_near(found.free.forward, expected[2], 1e-9 * size);
      expect_near(found.free.backward, expected[3], 1e-9 * size);
    }
  }
}

TEST(Separation, MoreThanFourInconsistentProbesGiveTheLeastSquaresSolution) {
  const std::vector<double> positions = {0.0, 0.25, 0.62, 1.1, 1.9, 2.05};
  const std::vector<Complex> values = {{1.0, 0.5}, {-0.3, 0.2}, {0.1, -0.7},
                                       {0.4, 0.4}, {0.9, -0.1}, {-0.6, -0.2}};
  const std::vector<Complex> expected =
      least_squares(trains_at(positions, {3.1, -3.1, 5.2, -5.2}), values);
  const auto found = separate_harmonic(records(positions, values), 3.1, 5.2);
  expect_near(found.bound.forward, expected[0], 1e-11);
  expect_near(found.bound.backward, expected[1], 1e-11);
  expect_near(found.free.forward, expected[2], 1e-11);
  expect_near(found.free.backward, expected[3], 1e-11);
}

TEST(Separation, FourTrainsWithoutAFirstPivotAreMixed) {
  // With bound phases of 0, pi/4, pi/2 and 3/4 pi the first pivot sums to 0, so the matrix is used
  // in place of its inverse.
  const std::vector<double> positions = {0.0, pi / 4.0, pi / 2.0, 3.0 * pi / 4.0};
  const std::vector<Complex> values = {{1.0, 0.5}, {-0.3, 0.2}, {0.1, -0.7}, {0.4, 0.4}};
  const Rows rows = trains_at(positions, {1.0, -1.0, 1.7, -1.7});
  const std::vector<Complex> right = product(transpose(rows), values);
  // The matrix has the factor 1/4, the right side 1/2 and the result another 1/2.
  const std::vector<Complex> expected = product(normal(rows), right);
  const auto found = separate_harmonic(records(positions, values), 1.0, 1.7);
  expect_near(found.bound.forward, expected[0] / 16.0, 1e-13);
  expect_near(found.bound.backward, expected[1] / 16.0, 1e-13);
  expect_near(found.free.forward, expected[2] / 16.0, 1e-13);
  expect_near(found.free.backward, expected[3] / 16.0, 1e-13);
}

TEST(Separation, TooFewProbesAreRefused) {
  const auto some = [](std::size_t count) { return std::vector<ProbeRecord>(count); };
  for (std::size_t count = 0; count < 2; ++count) {
    EXPECT_EQ(thrown([&] { separate_fundamental(some(count), 1.0); }),
              "Minimum of 2 probes required for fundamental wave analysis");
  }
  EXPECT_EQ(thrown([&] { separate_fundamental(some(2), 1.0); }), nothing_thrown);
  for (std::size_t count = 0; count < 4; ++count) {
    EXPECT_EQ(thrown([&] { separate_harmonic(some(count), 1.0, 2.0); }),
              "Minimum of 4 probes required for harmonic wave analysis");
  }
  EXPECT_EQ(thrown([&] { separate_harmonic(some(4), 1.0, 2.0); }), nothing_thrown);
}

}  // namespace
