// Complex transforms of one size in both directions, without any factor.
#ifndef KELPBOX_BASE_COMPLEX_TRANSFORM_H_
#define KELPBOX_BASE_COMPLEX_TRANSFORM_H_

#include <complex>
#include <cstddef>
#include <memory>
#include <vector>

namespace Base {

class ComplexTransform {
 public:
  explicit ComplexTransform(std::size_t size);
  ~ComplexTransform();
  ComplexTransform(const ComplexTransform& other) = default;
  ComplexTransform& operator=(const ComplexTransform&) = delete;

  // The way forward reads `in` and fills `out`, the way back reads `out` and fills `in`.
  std::vector<std::complex<double>>& in() { return in_; }
  std::vector<std::complex<double>>& out() { return out_; }
  // The sign of the exponent is - on the way forward, and + on the way back.
  void forward();
  void backward();

 private:
  struct Plans;
  std::vector<std::complex<double>> in_;
  std::vector<std::complex<double>> out_;
  std::shared_ptr<Plans> plans_;
};

}  // namespace Base

#endif  // KELPBOX_BASE_COMPLEX_TRANSFORM_H_
