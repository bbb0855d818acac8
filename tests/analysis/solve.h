// An independent solution of linear equations: Gaussian elimination with row exchanges.
#ifndef KELPBOX_TESTS_ANALYSIS_SOLVE_H_
#define KELPBOX_TESTS_ANALYSIS_SOLVE_H_

#include <cmath>
#include <complex>
#include <cstddef>
#include <utility>
#include <vector>

using Complex = std::complex<double>;
using Rows = std::vector<std::vector<Complex>>;

// exp(i phase).
inline Complex turn(double phase) { return std::polar(1.0, phase); }

inline std::vector<Complex> solve(Rows rows, std::vector<Complex> right) {
  const std::size_t n = rows.size();
  for (std::size_t i = 0; i < n; ++i) {
    std::size_t best = i;
    for (std::size_t r = i + 1; r < n; ++r) {
      if (std::abs(rows[r][i]) > std::abs(rows[best][i])) best = r;
    }
    std::swap(rows[i], rows[best]);
    std::swap(right[i], right[best]);
    for (std::size_t r = i + 1; r < n; ++r) {
      const Complex factor = rows[r][i] / rows[i][i];
      for (std::size_t c = i; c < n; ++c) rows[r][c] -= factor * rows[i][c];
      right[r] -= factor * right[i];
    }
  }
  for (std::size_t i = n; i-- > 0;) {
    for (std::size_t c = i + 1; c < n; ++c) right[i] -= rows[i][c] * right[c];
    right[i] /= rows[i][i];
  }
  return right;
}

// A row for each position, a column exp(-i k s) for each wave number. A returning train has a
// negative wave number.
inline Rows trains_at(const std::vector<double>& positions, const std::vector<double>& ks) {
  Rows rows;
  for (const double s : positions) {
    rows.emplace_back();
    for (const double k : ks) rows.back().push_back(turn(-k * s));
  }
  return rows;
}

inline std::vector<Complex> product(const Rows& rows, const std::vector<Complex>& vector) {
  std::vector<Complex> out;
  for (const auto& row : rows) {
    out.emplace_back();
    for (std::size_t c = 0; c < row.size(); ++c) out.back() += row[c] * vector[c];
  }
  return out;
}

inline Rows transpose(const Rows& rows) {
  Rows out(rows[0].size(), std::vector<Complex>(rows.size()));
  for (std::size_t r = 0; r < rows.size(); ++r) {
    for (std::size_t c = 0; c < rows[r].size(); ++c) out[c][r] = rows[r][c];
  }
  return out;
}

// The plain transpose times the matrix.
inline Rows normal(const Rows& rows) {
  const Rows turned = transpose(rows);
  Rows out;
  for (std::size_t r = 0; r < turned.size(); ++r) {
    out.emplace_back();
    for (std::size_t c = 0; c < turned.size(); ++c) {
      out.back().emplace_back();
      for (std::size_t i = 0; i < rows.size(); ++i) {
        out.back().back() += rows[i][r] * rows[i][c];
      }
    }
  }
  return out;
}

// The matrix from values at the probes to amplitudes: the inverse of the normal matrix times the
// transpose, with a row for each train.
inline Rows estimator(const Rows& rows) {
  Rows columns;
  for (const auto& row : rows) columns.push_back(solve(normal(rows), row));
  return transpose(columns);
}

#endif  // KELPBOX_TESTS_ANALYSIS_SOLVE_H_
