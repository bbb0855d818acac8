#include "drive/paddle_terms.h"

#include <algorithm>

#include "base/constants.h"

// This file is compiled once for each instruction set.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "drive/paddle_terms.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "base/sine_cosine-inl.h"

HWY_BEFORE_NAMESPACE();
namespace Synthesis {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;
using Base::HWY_NAMESPACE::vector_sine_cosine;

// At most a group, so that groups are whole vectors.
using D = hn::CappedTag<double, paddle_group>;
using V = hn::Vec<D>;
using M = hn::Mask<D>;

constexpr double quarter_cycle = 1.57079632679489661923;

// sin(v) / v up to v = pi/2, by its series.
HWY_INLINE V sine_ratio(D d, V v) {
  constexpr double terms[] = {-1.0 / 121645100408832000.0,
                              1.0 / 355687428096000.0,
                              -1.0 / 1307674368000.0,
                              1.0 / 6227020800.0,
                              -1.0 / 39916800.0,
                              1.0 / 362880.0,
                              -1.0 / 5040.0,
                              1.0 / 120.0,
                              -1.0 / 6.0,
                              1.0};
  const V z = hn::Mul(v, v);
  V sum = hn::Set(d, 1.0 / 51090942171709440000.0);
  for (const double term : terms) sum = hn::Add(hn::Set(d, term), hn::Mul(z, sum));
  return sum;
}

// The obliquity factor of offsets with these sines and cosines (maths/wavemaker_ratio.h).
HWY_INLINE V obliquity(D d, V sine, V cosine, double kw) {
  const V v = hn::Abs(hn::Mul(hn::Mul(sine, hn::Set(d, kw)), hn::Set(d, 0.5)));
  V ratio = sine_ratio(d, v);
  // Only a paddle that does not make the front has a larger v, or one of negative width.
  constexpr double series_end = 1.5708;
  if (HWY_UNLIKELY(!hn::AllTrue(d, hn::Le(v, hn::Set(d, series_end))))) {
    V s = v;
    V c = v;
    vector_sine_cosine(d, v, s, c);
    ratio = hn::IfThenElse(hn::Le(v, hn::Set(d, series_end)), ratio, hn::Div(s, v));
  }
  return hn::IfThenElse(hn::Gt(v, hn::Set(d, 1e-6)), hn::Div(cosine, ratio), cosine);
}

void factors_of(const double* offsets, std::size_t count, double kw, double* factors) {
  const D d;
  const std::size_t lanes = hn::Lanes(d);
  for (std::size_t i = 0; i < count; i += lanes) {
    V s = hn::Zero(d);
    V c = s;
    double part[hn::MaxLanes(d)] = {};
    const std::size_t size = std::min(lanes, count - i);
    std::copy_n(offsets + i, size, part);
    vector_sine_cosine(d, hn::LoadU(d, part), s, c);
    hn::StoreU(obliquity(d, s, c, kw), d, part);
    std::copy_n(part, size, factors + i);
  }
}

// The sine and cosine of the front's phase at the paddles from p on.
HWY_INLINE void phase_at(D d, const RowArrays& row, double k, const FrontTerm& front, std::size_t p,
                         V& sine, V& cosine) {
  const V along = hn::Mul(hn::Set(d, front.sine * k), hn::LoadU(d, row.y + p));
  const V out = hn::Mul(hn::Set(d, front.cosine * k), hn::LoadU(d, row.x + p));
  const V lag = hn::Add(hn::Add(along, out), hn::Set(d, quarter_cycle));
  vector_sine_cosine(d, hn::Sub(hn::Set(d, front.phase), lag), sine, cosine);
}

HWY_INLINE void add_at(D d, SumArrays sums, std::size_t p, V real, V imaginary) {
  hn::StoreU(hn::Add(hn::LoadU(d, sums.real + p), real), d, sums.real + p);
  hn::StoreU(hn::Add(hn::LoadU(d, sums.imaginary + p), imaginary), d, sums.imaginary + p);
}

void straight_terms(const RowArrays& row, double k, const FrontTerm* fronts, std::size_t count,
                    SumArrays sums) {
  const D d;
  for (std::size_t f = 0; f < count; ++f) {
    const V gain = hn::Set(d, fronts[f].gain);
    for (std::size_t p = 0; p < row.count; p += hn::Lanes(d)) {
      V s = gain;
      V c = gain;
      phase_at(d, row, k, fronts[f], p, s, c);
      add_at(d, sums, p, hn::Mul(gain, c), hn::Mul(gain, s));
    }
  }
}

void even_terms(const RowArrays& row, double k, const FrontTerm* fronts, std::size_t count,
                SumArrays sums) {
  const D d;
  constexpr std::size_t stretch = 64 * paddle_group;
  for (std::size_t f = 0; f < count; ++f) {
    const V gain = hn::Set(d, fronts[f].gain);
    const V step_c = hn::Set(d, fronts[f].step_cosine);
    const V step_s = hn::Set(d, fronts[f].step_sine);
    for (std::size_t first = 0; first < row.count; first += stretch) {
      const std::size_t end = std::min(first + stretch, row.count);
      for (std::size_t lane = 0; lane < paddle_group; lane += hn::Lanes(d)) {
        V s = gain;
        V c = gain;
        phase_at(d, row, k, fronts[f], first + lane, s, c);
        c = hn::Mul(gain, c);
        s = hn::Mul(gain, s);
        for (std::size_t p = first + lane; p < end; p += paddle_group) {
          add_at(d, sums, p, c, s);
          const V turned = hn::Add(hn::Mul(c, step_c), hn::Mul(s, step_s));
          s = hn::Sub(hn::Mul(s, step_c), hn::Mul(c, step_s));
          c = turned;
        }
      }
    }
  }
}

// The gains of the paddles from p on, and which of them make the front.
HWY_INLINE V turned_gain(D d, const RowArrays& row, const PaddleHarmonic& harmonic, double kw,
                         const FrontTerm& front, std::size_t p, M& made) {
  const V offset = hn::Sub(hn::Set(d, front.angle), hn::LoadU(d, row.normal + p));
  made = hn::Not(hn::Gt(hn::Abs(offset), hn::Set(d, harmonic.max_offset)));
  const V front_c = hn::Set(d, front.cosine);
  const V front_s = hn::Set(d, front.sine);
  const V normal_c = hn::LoadU(d, row.normal_cosine + p);
  const V normal_s = hn::LoadU(d, row.normal_sine + p);
  V c = hn::Add(hn::Mul(front_c, normal_c), hn::Mul(front_s, normal_s));
  V s = hn::Sub(hn::Mul(front_s, normal_c), hn::Mul(front_c, normal_s));
  // Near a right angle the sum cancels, and the small cosine is all that counts.
  const M cancels = hn::Not(hn::Gt(hn::Abs(c), hn::Set(d, 1e-3)));
  if (HWY_UNLIKELY(!hn::AllFalse(d, cancels))) {
    V exact_s = s;
    V exact_c = c;
    vector_sine_cosine(d, offset, exact_s, exact_c);
    s = hn::IfThenElse(cancels, exact_s, s);
    c = hn::IfThenElse(cancels, exact_c, c);
  }
  return hn::Mul(hn::Mul(obliquity(d, s, c, kw), hn::Set(d, front.amp)),
                 hn::Set(d, harmonic.inverse));
}

void turned_terms(const RowArrays& row, const PaddleHarmonic& harmonic, double width,
                  const FrontTerm* fronts, std::size_t count, SumArrays sums) {
  const D d;
  for (std::size_t f = 0; f < count; ++f) {
    for (std::size_t p = 0; p < row.count; p += hn::Lanes(d)) {
      M made = hn::FirstN(d, 0);
      const V gain = turned_gain(d, row, harmonic, harmonic.k * width, fronts[f], p, made);
      V s = gain;
      V c = gain;
      phase_at(d, row, harmonic.k, fronts[f], p, s, c);
      // A withheld front adds nothing, even if its phase is NaN.
      add_at(d, sums, p, hn::IfThenElseZero(made, hn::Mul(gain, c)),
             hn::IfThenElseZero(made, hn::Mul(gain, s)));
    }
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace Synthesis
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace Synthesis {

HWY_EXPORT(factors_of);
HWY_EXPORT(straight_terms);
HWY_EXPORT(even_terms);
HWY_EXPORT(turned_terms);

void obliquity_factors(const double* offsets, std::size_t count, double kw, double* factors) {
  HWY_DYNAMIC_DISPATCH(factors_of)(offsets, count, kw, factors);
}

void add_straight_terms(const RowArrays& row, double k, const FrontTerm* fronts, std::size_t count,
                        SumArrays sums) {
  HWY_DYNAMIC_DISPATCH(straight_terms)(row, k, fronts, count, sums);
}

void add_even_terms(const RowArrays& row, double k, const FrontTerm* fronts, std::size_t count,
                    SumArrays sums) {
  HWY_DYNAMIC_DISPATCH(even_terms)(row, k, fronts, count, sums);
}

void add_turned_terms(const RowArrays& row, const PaddleHarmonic& harmonic, double width,
                      const FrontTerm* fronts, std::size_t count, SumArrays sums) {
  HWY_DYNAMIC_DISPATCH(turned_terms)(row, harmonic, width, fronts, count, sums);
}

}  // namespace Synthesis
#endif
