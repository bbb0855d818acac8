#include "maths/snell_sum.h"

#include <cmath>

// This file is compiled once for each instruction set.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "maths/snell_sum.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace Maths {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

void piece_of(const double* k2, const double* ky2, double dx, std::size_t count, const double* from,
              double* to) {
  const hn::ScalableTag<double> d;
  const auto length = hn::Set(d, dx);
  std::size_t i = 0;
  for (; i + hn::Lanes(d) <= count; i += hn::Lanes(d)) {
    const auto along = hn::Sqrt(hn::Sub(hn::LoadU(d, k2 + i), hn::LoadU(d, ky2 + i)));
    hn::StoreU(hn::Add(hn::LoadU(d, from + i), hn::Mul(along, length)), d, to + i);
  }
  for (; i < count; ++i) to[i] = from[i] + std::sqrt(k2[i] - ky2[i]) * dx;
}

}  // namespace HWY_NAMESPACE
}  // namespace Maths
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace Maths {

HWY_EXPORT(piece_of);

void add_piece(const double* k2, const double* ky2, double dx, std::size_t count,
               const double* from, double* to) {
  HWY_DYNAMIC_DISPATCH(piece_of)(k2, ky2, dx, count, from, to);
}

}  // namespace Maths
#endif
