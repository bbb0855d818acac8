#include "animation/row_sums.h"

#include "base/sine_cosine.h"

// This file is compiled once for each instruction set.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "animation/row_sums.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace Synthesis {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

// Turns (re, im) backwards by the angle with that cosine and sine.
template <class V>
HWY_INLINE void turn_back(V& re, V& im, V cosine, V sine) {
  const V turned = hn::Add(hn::Mul(re, cosine), hn::Mul(im, sine));
  im = hn::Sub(hn::Mul(im, cosine), hn::Mul(re, sine));
  re = turned;
}

// One front in the rows of the group from `from` on, as far as a vector reaches. Each row is turned
// by the powers of two of a step that its number consists of.
template <class D, class V = hn::Vec<D>>
HWY_INLINE void spread(D d, std::size_t from, double cosine, double sine, V& re, V& im) {
  const hn::RebindToUnsigned<D> du;
  const auto row = hn::Add(hn::Iota(du, 0), hn::Set(du, from));
  for (std::uint64_t rows = 1; rows < row_group; rows *= 2) {
    const auto bit = hn::Set(du, rows);
    const auto turns = hn::RebindMask(d, hn::Eq(hn::And(row, bit), bit));
    turn_back(re, im, hn::IfThenElse(turns, hn::Set(d, cosine), hn::Set(d, 1.0)),
              hn::IfThenElseZero(turns, hn::Set(d, sine)));
    const double twice = cosine * cosine - sine * sine;
    sine = 2 * cosine * sine;
    cosine = twice;
  }
}

void rows_of(const double* re, const double* im, const RowTurns& turns, std::size_t first,
             std::size_t last, std::uint32_t rows, double* sum_re, double* sum_im) {
  const hn::CappedTag<double, row_group> d;
  for (std::size_t i = first; i < last; ++i) {
    const auto group_cos = hn::Set(d, turns.group_cos[i]);
    const auto group_sin = hn::Set(d, turns.group_sin[i]);
    for (std::size_t from = 0; from < row_group; from += hn::Lanes(d)) {
      auto x = hn::Set(d, re[i]);
      auto y = hn::Set(d, im[i]);
      spread(d, from, turns.step_cos[i], turns.step_sin[i], x, y);
      for (std::size_t row = from;; row += row_group) {
        hn::StoreU(hn::Add(hn::LoadU(d, sum_re + row), x), d, sum_re + row);
        hn::StoreU(hn::Add(hn::LoadU(d, sum_im + row), y), d, sum_im + row);
        if (row + row_group - from >= rows) break;
        turn_back(x, y, group_cos, group_sin);
      }
    }
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace Synthesis
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace Synthesis {

HWY_EXPORT(rows_of);

void RowTurns::take(const std::vector<double>& ky, double step) {
  std::vector<double> angles(ky.size());
  const auto turn = [&](double distance, std::vector<double>& cosines, std::vector<double>& sines) {
    for (std::size_t i = 0; i < ky.size(); ++i) angles[i] = ky[i] * distance;
    cosines.resize(ky.size());
    sines.resize(ky.size());
    Base::sine_cosine(angles.data(), angles.size(), sines.data(), cosines.data());
  };
  turn(step, step_cos, step_sin);
  turn(row_group * step, group_cos, group_sin);
}

void add_rows(const double* re, const double* im, const RowTurns& turns, std::size_t first,
              std::size_t last, std::uint32_t rows, double* sum_re, double* sum_im) {
  HWY_DYNAMIC_DISPATCH(rows_of)(re, im, turns, first, last, rows, sum_re, sum_im);
}

}  // namespace Synthesis
#endif
