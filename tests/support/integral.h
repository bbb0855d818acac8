// Integrals by Simpson's rule.
#ifndef KELPBOX_TESTS_SUPPORT_INTEGRAL_H_
#define KELPBOX_TESTS_SUPPORT_INTEGRAL_H_

namespace Testing {

// The integral of f, in an even number of pieces.
template <typename Function>
double simpson(const Function& f, double from, double to, int pieces) {
  const double h = (to - from) / pieces;
  double sum = f(from) + f(to);
  for (int i = 1; i < pieces; ++i) sum += f(from + i * h) * (i % 2 == 1 ? 4 : 2);
  return sum * h / 3;
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_SUPPORT_INTEGRAL_H_
