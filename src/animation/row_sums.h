// The sums of fronts over neighbouring rows of a column, with the vector instructions of the
// machine.
#ifndef KELPBOX_ANIMATION_ROW_SUMS_H_
#define KELPBOX_ANIMATION_ROW_SUMS_H_

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Synthesis {

// Rows that are summed side by side, so that none waits for another.
inline constexpr std::uint32_t row_group = 8;

// How each front turns along the rows: the cosine and the sine of the angle by which its phase
// falls from one row to the next, and from one group of rows to the next.
struct RowTurns {
  void take(const std::vector<double>& ky, double step);

  std::vector<double> step_cos;
  std::vector<double> step_sin;
  std::vector<double> group_cos;
  std::vector<double> group_sin;
};

// Adds the fronts from `first` to `last` - 1 to the sums of `rows` rows. re[i] and im[i] are front
// i at the first row. The sums have room for whole groups of rows.
void add_rows(const double* re, const double* im, const RowTurns& turns, std::size_t first,
              std::size_t last, std::uint32_t rows, double* sum_re, double* sum_im);

}  // namespace Synthesis

#endif  // KELPBOX_ANIMATION_ROW_SUMS_H_
