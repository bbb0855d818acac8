#include "maths/short_waves.h"

#include <algorithm>
#include <limits>

// This file is compiled once for each instruction set.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "maths/short_waves.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>
// After the two above, which it needs.
#include <hwy/contrib/math/math-inl.h>

HWY_BEFORE_NAMESPACE();
namespace Maths {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

// Roots give the power 1.25. The Newton step removes the rounding of the first guess.
template <class D, class V = hn::Vec<D>>
HWY_INLINE V vector_of_waves(D d, V omega, V depth, V g) {
  const V one = hn::Set(d, 1.0);
  const V a = hn::Mul(omega, omega);
  const V deep = hn::Div(a, g);
  const V kd0 = hn::Mul(depth, deep);
  const V power = hn::Mul(kd0, hn::Sqrt(hn::Sqrt(kd0)));
  const V lack = hn::Sub(one, hn::Exp(d, hn::Neg(power)));
  const V k = hn::Mul(deep, hn::Exp(d, hn::Mul(hn::Set(d, -0.4), hn::Log(d, lack))));
  const V kd = hn::Mul(k, depth);
  // With q = exp(-2 k depth), tanh is (1 - q) / (1 + q) and 1 / cosh^2 is 4 q / (1 + q)^2. The
  // quotients of the step have (1 + q)^2 as their common divisor.
  const V q = hn::Exp(d, hn::Mul(hn::Set(d, -2.0), kd));
  const V sum = hn::Add(one, q);
  const V product = hn::Mul(sum, hn::Sub(one, q));
  const V missing = hn::Sub(hn::Mul(deep, hn::Mul(sum, sum)), hn::Mul(k, product));
  const V slope = hn::Add(product, hn::Mul(hn::Set(d, 4.0), hn::Mul(kd, q)));
  const V step = hn::Div(missing, slope);
  const V k_new = hn::Add(k, step);
  // Signed on purpose, as in the formula for all waves.
  const auto good =
      hn::And(hn::Gt(hn::Mul(k_new, hn::Set(d, 0.01)), step), hn::Ge(kd0, hn::Set(d, 0.0625)));
  return hn::IfThenElse(good, k_new, hn::Set(d, std::numeric_limits<double>::quiet_NaN()));
}

// `wave(d, varied)` gives the wave numbers of a vector of `varied`.
template <class Wave>
HWY_INLINE void fill(const double* varied, std::size_t count, double* out, const Wave& wave) {
  const hn::ScalableTag<double> d;
  const std::size_t lanes = hn::Lanes(d);
  std::size_t i = 0;
  for (; i + lanes <= count; i += lanes) {
    hn::StoreU(wave(d, hn::LoadU(d, varied + i)), d, out + i);
  }
  if (i == count) return;
  constexpr std::size_t most = hn::MaxLanes(hn::ScalableTag<double>());
  double rest[most] = {};
  std::copy(varied + i, varied + count, rest);
  hn::StoreU(wave(d, hn::LoadU(d, rest)), d, rest);
  std::copy_n(rest, count - i, out + i);
}

void waves_of_omegas(const double* omegas, double depth, double g, std::size_t count, double* out) {
  fill(omegas, count, out, [&](auto d, auto omega) HWY_ATTR {
    return vector_of_waves(d, omega, hn::Set(d, depth), hn::Set(d, g));
  });
}

void waves_of_depths(double omega, const double* depths, double g, std::size_t count, double* out) {
  fill(depths, count, out, [&](auto d, auto depth) HWY_ATTR {
    return vector_of_waves(d, hn::Set(d, omega), depth, hn::Set(d, g));
  });
}

double single_wave(double omega, double depth, double g) {
  const hn::CappedTag<double, 1> d;
  return hn::GetLane(vector_of_waves(d, hn::Set(d, omega), hn::Set(d, depth), hn::Set(d, g)));
}

}  // namespace HWY_NAMESPACE
}  // namespace Maths
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace Maths {

HWY_EXPORT(waves_of_omegas);
HWY_EXPORT(waves_of_depths);
HWY_EXPORT(single_wave);

void short_waves(const double* omegas, double depth, double g, std::size_t count, double* out) {
  HWY_DYNAMIC_DISPATCH(waves_of_omegas)(omegas, depth, g, count, out);
}

void short_waves(double omega, const double* depths, double g, std::size_t count, double* out) {
  HWY_DYNAMIC_DISPATCH(waves_of_depths)(omega, depths, g, count, out);
}

double short_wave(double omega, double depth, double g) {
  return HWY_DYNAMIC_DISPATCH(single_wave)(omega, depth, g);
}

}  // namespace Maths
#endif
