// Plans of FFTW. Only fftw_plan.cpp includes its header; everything else transforms through this
// one, or through fft.h and the transforms beside it, which have the scaling of this library.
//
// The arrays of a plan belong to the caller. A plan runs on any arrays that are aligned as memory
// of a vector is. FFTW chooses its plan by the alignment, so one input gives the same result
// wherever its vector lies. Plans are estimated, not timed, for the same reason. Several threads
// may plan, and may run one plan on arrays of their own.
#ifndef KELPBOX_BASE_FFTW_PLAN_H_
#define KELPBOX_BASE_FFTW_PLAN_H_

#include <complex>
#include <cstddef>
#include <memory>
#include <mutex>
#include <vector>

namespace Base {

using Samples = std::vector<double>;
using Spectrum = std::vector<std::complex<double>>;

// Throws "FFT of N samples is too long" above 2^31 - 1 samples.
void require_transformable(std::size_t samples);

class FftwPlan {
 public:
  FftwPlan() = default;

  // Each looks at the alignment of the arrays and leaves them as they are. Throws as
  // require_transformable, and "FFT of N samples cannot be planned".
  static FftwPlan to_freq(std::size_t samples, const double* time, std::complex<double>* freq);
  static FftwPlan to_time(std::size_t samples, std::complex<double>* freq, double* time);
  // The sign of the exponent is - on the way forward, and + on the way back.
  static FftwPlan forward(std::size_t size, std::complex<double>* in, std::complex<double>* out);
  static FftwPlan backward(std::size_t size, std::complex<double>* in, std::complex<double>* out);

  explicit operator bool() const { return plan_ != nullptr; }

  // Runs the plan of the same kind, without any factor. The last one of these overwrites `freq`.
  void run(const double* time, std::complex<double>* freq) const;
  void run(std::complex<double>* in, std::complex<double>* out) const;
  void run(std::complex<double>* freq, double* time) const;

 private:
  struct Destroy {
    void operator()(void* plan) const;
  };
  explicit FftwPlan(void* plan) : plan_(plan) {}
  static FftwPlan checked(void* plan, std::size_t size);

  std::unique_ptr<void, Destroy> plan_;
};

// A plan that a transform and its copies share. The first one that runs makes it.
class SharedPlan {
 public:
  template <typename Make>
  const FftwPlan& get(Make make) {
    std::call_once(made_, [&] { plan_ = make(); });
    return plan_;
  }

 private:
  std::once_flag made_;
  FftwPlan plan_;
};

// Whether memory is aligned as that of a vector.
bool aligned(const double* memory);

// The mean and the Nyquist element have no conjugate of their own in the two-sided spectrum.
inline bool counts_once(std::size_t h, std::size_t samples) { return h == 0 || 2 * h == samples; }

// The element that FFTW takes on the way to time. It adds each harmonic's conjugate, hence the
// halves. Only the real parts of the mean and of the Nyquist element contribute to the samples.
inline std::complex<double> two_sided(std::complex<double> element, bool once) {
  return {once ? element.real() : 0.5 * element.real(), once ? 0.0 : 0.5 * element.imag()};
}

// The name and version of FFTW, such as "fftw-3.3.10-sse2-avx".
const char* fftw_name();

}  // namespace Base

#endif  // KELPBOX_BASE_FFTW_PLAN_H_
