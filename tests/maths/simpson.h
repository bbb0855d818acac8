// Quadrature for the tests of wave mathematics.
#ifndef KELPBOX_TESTS_MATHS_SIMPSON_H_
#define KELPBOX_TESTS_MATHS_SIMPSON_H_

// The integral of f from a to b, by Simpson's rule. `pieces` is even.
template <typename F>
auto simpson(F&& f, double a, double b, int pieces) {
  const double h = (b - a) / pieces;
  auto sum = f(a) + f(b);
  for (int i = 1; i < pieces; ++i) sum += f(a + i * h) * (i % 2 == 1 ? 4.0 : 2.0);
  return sum * (h / 3.0);
}

#endif  // KELPBOX_TESTS_MATHS_SIMPSON_H_
