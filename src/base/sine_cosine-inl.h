// The sine and the cosine of one vector of angles, for kernels that run on every instruction set.
// Included once for each of them, as Highway does, hence the unusual guard. Not installed.
//
// The angle is reduced by a multiple of pi/2 in two parts (Cody and Waite 1980, "Software Manual
// for the Elementary Functions"). The polynomials are those of fdlibm. Products and sums are
// rounded separately, because a fused operation would give other bits.
#if defined(KELPBOX_BASE_SINE_COSINE_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef KELPBOX_BASE_SINE_COSINE_INL_H_
#undef KELPBOX_BASE_SINE_COSINE_INL_H_
#else
#define KELPBOX_BASE_SINE_COSINE_INL_H_
#endif

#include <hwy/highway.h>

#include <cmath>
#include <cstddef>

HWY_BEFORE_NAMESPACE();
namespace Base {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

// Larger angles lose too much in the reduction.
constexpr double largest_reducible = 1.6e6;

// Of angles up to largest_reducible. The others, and NaN, get any value.
template <class D, class V = hn::Vec<D>>
HWY_INLINE void reduced_sine_cosine(D d, V x, V& sines, V& cosines) {
  const hn::RebindToUnsigned<D> bits;
  // Adding 1.5 * 2^52 rounds to an integer, which is then the low bits of the sum.
  const V magic = hn::Set(d, 6755399441055744.0);
  const V shifted = hn::Add(hn::Mul(x, hn::Set(d, 0.63661977236758134308)), magic);
  const V quarters = hn::Sub(shifted, magic);
  // The first part of pi/2 has 33 bits, so that this product is exact.
  const V r = hn::Sub(x, hn::Mul(quarters, hn::Set(d, 1.57079632673412561417)));
  const V w = hn::Mul(quarters, hn::Set(d, 6.07710050650619224932e-11));
  const V y = hn::Sub(r, w);
  const V low = hn::Sub(hn::Sub(r, y), w);

  const V half = hn::Set(d, 0.5);
  const V z = hn::Mul(y, y);
  const V zz = hn::Mul(z, z);

  const V v = hn::Mul(z, y);
  const V s2 = hn::Set(d, 8.33333333332248946124e-03);
  const V s34 = hn::Add(hn::Set(d, -1.98412698298579493134e-04),
                        hn::Mul(z, hn::Set(d, 2.75573137070700676789e-06)));
  const V s56 = hn::Add(hn::Set(d, -2.50507602534068634195e-08),
                        hn::Mul(z, hn::Set(d, 1.58969099521155010221e-10)));
  const V s = hn::Add(hn::Add(s2, hn::Mul(z, s34)), hn::Mul(hn::Mul(z, zz), s56));
  const V bend = hn::Sub(hn::Mul(z, hn::Sub(hn::Mul(half, low), hn::Mul(v, s))), low);
  const V sine = hn::Sub(y, hn::Sub(bend, hn::Mul(v, hn::Set(d, -1.66666666666666324348e-01))));

  const V c23 = hn::Add(hn::Set(d, -1.38888888888741095749e-03),
                        hn::Mul(z, hn::Set(d, 2.48015872894767294178e-05)));
  const V c56 = hn::Add(hn::Set(d, 2.08757232129817482790e-09),
                        hn::Mul(z, hn::Set(d, -1.13596475577881948265e-11)));
  const V c14 = hn::Mul(z, hn::Add(hn::Set(d, 4.16666666666666019037e-02), hn::Mul(z, c23)));
  const V c46 = hn::Add(hn::Set(d, -2.75573143513906633035e-07), hn::Mul(z, c56));
  const V c = hn::Add(c14, hn::Mul(hn::Mul(zz, zz), c46));
  const V one = hn::Set(d, 1.0);
  const V drop = hn::Mul(half, z);
  const V main = hn::Sub(one, drop);
  const V rest = hn::Sub(hn::Mul(z, c), hn::Mul(y, low));
  const V cosine = hn::Add(main, hn::Add(hn::Sub(hn::Sub(one, main), drop), rest));

  // Odd quarters exchange the two. The second bit of the quarter is the sign of the sine, and that
  // of the next quarter the sign of the cosine.
  const auto q = hn::BitCast(bits, shifted);
  const auto first = hn::Set(bits, 1);
  const auto second = hn::Set(bits, 2);
  const auto odd = hn::MaskFromVec(hn::BitCast(d, hn::Sub(hn::Zero(bits), hn::And(q, first))));
  const V sine_sign = hn::BitCast(d, hn::ShiftLeft<62>(hn::And(q, second)));
  const V cosine_sign = hn::BitCast(d, hn::ShiftLeft<62>(hn::And(hn::Add(q, first), second)));
  sines = hn::Xor(hn::IfThenElse(odd, cosine, sine), sine_sign);
  cosines = hn::Xor(hn::IfThenElse(odd, sine, cosine), cosine_sign);
}

// Of any angles. The large ones are rare and take the C library.
template <class D, class V = hn::Vec<D>>
HWY_INLINE void vector_sine_cosine(D d, V x, V& sines, V& cosines) {
  reduced_sine_cosine(d, x, sines, cosines);
  if (HWY_LIKELY(hn::AllTrue(d, hn::Le(hn::Abs(x), hn::Set(d, largest_reducible))))) return;
  HWY_ALIGN double angle[hn::MaxLanes(d)];
  HWY_ALIGN double sine[hn::MaxLanes(d)];
  HWY_ALIGN double cosine[hn::MaxLanes(d)];
  hn::Store(x, d, angle);
  hn::Store(sines, d, sine);
  hn::Store(cosines, d, cosine);
  for (std::size_t i = 0; i < hn::Lanes(d); ++i) {
    if (std::fabs(angle[i]) <= largest_reducible) continue;
    sine[i] = std::sin(angle[i]);
    cosine[i] = std::cos(angle[i]);
  }
  sines = hn::Load(d, sine);
  cosines = hn::Load(d, cosine);
}

}  // namespace HWY_NAMESPACE
}  // namespace Base
HWY_AFTER_NAMESPACE();

#endif  // KELPBOX_BASE_SINE_COSINE_INL_H_
