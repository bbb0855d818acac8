#include "base/sine_cosine.h"

#include <algorithm>

// This file is compiled once for each instruction set.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "base/sine_cosine.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "base/sine_cosine-inl.h"

HWY_BEFORE_NAMESPACE();
namespace Base {
namespace HWY_NAMESPACE {

void one_vector(const double* angles, double* sines, double* cosines) {
  const hn::ScalableTag<double> d;
  auto s = hn::Zero(d);
  auto c = s;
  vector_sine_cosine(d, hn::LoadU(d, angles), s, c);
  hn::StoreU(s, d, sines);
  hn::StoreU(c, d, cosines);
}

void sine_cosine_of(const double* angles, std::size_t count, double* sines, double* cosines) {
  const std::size_t lanes = hn::Lanes(hn::ScalableTag<double>());
  std::size_t i = 0;
  for (; i + lanes <= count; i += lanes) one_vector(angles + i, sines + i, cosines + i);
  if (i == count) return;
  constexpr std::size_t most = hn::MaxLanes(hn::ScalableTag<double>());
  double rest[most] = {};
  double rest_sines[most];
  double rest_cosines[most];
  std::copy(angles + i, angles + count, rest);
  one_vector(rest, rest_sines, rest_cosines);
  std::copy_n(rest_sines, count - i, sines + i);
  std::copy_n(rest_cosines, count - i, cosines + i);
}

}  // namespace HWY_NAMESPACE
}  // namespace Base
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace Base {

HWY_EXPORT(sine_cosine_of);

void sine_cosine(const double* angles, std::size_t count, double* sines, double* cosines) {
  HWY_DYNAMIC_DISPATCH(sine_cosine_of)(angles, count, sines, cosines);
}

}  // namespace Base
#endif
