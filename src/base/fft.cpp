#include "base/fft.h"

#include <fftw3.h>

#include <algorithm>
#include <climits>
#include <cstddef>
#include <new>
#include <string>

namespace {

using Samples = std::vector<double>;
using Spectrum = std::vector<std::complex<double>>;

// Vectors serve FFTW as they are, and always by the same plan: results repeat exactly, wherever a
// vector lies.
static_assert(__STDCPP_DEFAULT_NEW_ALIGNMENT__ % 16 == 0);

struct Free {
  void operator()(void* memory) const { fftw_free(memory); }
};

struct DestroyPlan {
  void operator()(fftw_plan plan) const { fftw_destroy_plan(plan); }
};
using Plan = std::unique_ptr<fftw_plan_s, DestroyPlan>;

std::size_t elements_for(std::size_t samples) { return samples / 2 + 1; }

bool counts_once(std::size_t h, std::size_t samples) { return h == 0 || 2 * h == samples; }

fftw_complex* raw(Spectrum& spectrum) { return reinterpret_cast<fftw_complex*>(spectrum.data()); }

// The planner is the only part of FFTW that threads share; it guards itself from here on.
void make_planner_safe() {
  static const bool done = (fftw_make_planner_thread_safe(), true);
  static_cast<void>(done);
}

int checked_size(std::size_t samples) {
  if (samples > INT_MAX) {
    throw "FFT of " + std::to_string(samples) + " samples is too long";
  }
  make_planner_safe();
  return static_cast<int>(samples);
}

Plan checked_plan(fftw_plan plan, std::size_t samples) {
  if (plan == nullptr) {
    throw "FFT of " + std::to_string(samples) + " samples cannot be planned";
  }
  return Plan(plan);
}

// `freq` has room for all elements.
void to_freq(const Samples& time, Spectrum& freq) {
  const int n = checked_size(time.size());
  // Neither planning nor running writes to the samples.
  auto* const samples = const_cast<double*>(time.data());
  const Plan plan =
      checked_plan(fftw_plan_dft_r2c_1d(n, samples, raw(freq), FFTW_ESTIMATE | FFTW_PRESERVE_INPUT),
                   time.size());
  fftw_execute(plan.get());
  const std::size_t elements = elements_for(time.size());
  for (std::size_t h = 0; h < elements; ++h) {
    freq[h] *= counts_once(h, time.size()) ? 1.0 / n : 2.0 / n;
  }
  std::fill(freq.begin() + static_cast<std::ptrdiff_t>(elements), freq.end(), 0.0);
}

// The plan for transforms of one size to time, and the memory of those that keep their spectrum.
class ToTime {
 public:
  explicit ToTime(std::size_t samples) : size_(samples) {
    const int n = checked_size(samples);
    // Only for their alignment: nothing is written there, so that the system gives no memory.
    const std::unique_ptr<fftw_complex[], Free> in(fftw_alloc_complex(elements_for(samples)));
    const std::unique_ptr<double[], Free> out(fftw_alloc_real(samples));
    if (!in || !out) {
      throw std::bad_alloc();
    }
    plan_ = checked_plan(fftw_plan_dft_c2r_1d(n, in.get(), out.get(), FFTW_ESTIMATE), samples);
  }

  void run(const Spectrum& freq, Samples& time) {
    const std::size_t given = std::min(freq.size(), elements_for(size_));
    spectrum_.assign(freq.begin(), freq.begin() + static_cast<std::ptrdiff_t>(given));
    consume(spectrum_, time);
  }

  void consume(Spectrum& freq, Samples& time) {
    freq.resize(elements_for(size_));
    for (std::size_t h = 0; h < freq.size(); ++h) {
      // The transform adds each harmonic's conjugate, except for the mean and the Nyquist element,
      // of which only the real part shows in the samples.
      const bool once = counts_once(h, size_);
      freq[h] = {once ? freq[h].real() : 0.5 * freq[h].real(), once ? 0.0 : 0.5 * freq[h].imag()};
    }
    fftw_execute_dft_c2r(plan_.get(), raw(freq), time.data());
  }

 private:
  std::size_t size_;
  Plan plan_;
  Spectrum spectrum_;
};

std::uint64_t largest_prime_factor(std::uint64_t n) {
  std::uint64_t largest = 1;
  for (std::uint64_t p = 2; p * p <= n; ++p) {
    for (; n % p == 0; n /= p) largest = p;
  }
  return std::max(largest, n);
}

}  // namespace

void KLPFFT_time_to_freq(const std::vector<double>* time, std::vector<std::complex<double>>* freq) {
  if (time->empty()) {
    std::fill(freq->begin(), freq->end(), 0.0);
    return;
  }
  if (freq->size() >= elements_for(time->size())) {
    to_freq(*time, *freq);
    return;
  }
  Spectrum whole(elements_for(time->size()));
  to_freq(*time, whole);
  std::copy_n(whole.begin(), freq->size(), freq->begin());
}

void KLPFFT_freq_to_time(const std::vector<std::complex<double>>* freq, std::vector<double>* time) {
  if (time->empty()) {
    return;
  }
  ToTime(time->size()).run(*freq, *time);
}

namespace Base {

struct FFT_Plan::Buffers : ToTime {
  using ToTime::ToTime;
};

void consume_to_time(std::vector<std::complex<double>>& freq, std::vector<double>& time) {
  if (!time.empty()) {
    ToTime(time.size()).consume(freq, time);
  }
}

std::uint64_t transform_memory(std::size_t samples) {
  // The tables of most lengths have three quarters of the size of the samples. A great prime factor
  // is transformed by way of convolutions, which need padded copies and tables of their own.
  const std::uint64_t prime = largest_prime_factor(samples);
  return 6 * std::uint64_t{samples} + (prime > 1000 ? 40 * prime : 0);
}

FFT_Plan::FFT_Plan(unsigned samples, unsigned, FFT_Type) : samples_(samples) {
  if (samples != 0) {
    buffers_ = std::make_unique<Buffers>(samples);
  }
}

FFT_Plan::~FFT_Plan() = default;

void FFT_Plan::check(const std::vector<double>& time) const {
  if (time.size() != samples_) {
    throw "FFT plan for " + std::to_string(samples_) + " samples given " +
        std::to_string(time.size());
  }
  if (samples_ != 0 && !buffers_) {
    throw std::string("FFT plan without its buffers");
  }
}

void FFT_Plan::execute(const std::vector<std::complex<double>>* freq, std::vector<double>* time) {
  check(*time);
  if (samples_ != 0) {
    buffers_->run(*freq, *time);
  }
}

void FFT_Plan::consume(std::vector<std::complex<double>>& freq, std::vector<double>& time) {
  check(time);
  if (samples_ != 0) {
    buffers_->consume(freq, time);
  }
}

void FFT_Plan::freeFFTBuffers() { buffers_.reset(); }

}  // namespace Base
