#include "base/fft.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "base/compose.h"
#include "base/fftw_plan.h"
#include "base/vector.h"

namespace {

using Base::FftwPlan;
using Base::Samples;
using Base::Spectrum;

// Needs a spectrum of at least n / 2 + 1 elements.
void to_freq(const Samples& time, Spectrum& freq) {
  const std::size_t n = time.size();
  FftwPlan::to_freq(n, time.data(), freq.data()).run(time.data(), freq.data());
  const std::size_t elements = Base::spectrum_size(n);
  for (std::size_t h = 0; h < elements; ++h) {
    const auto samples = static_cast<double>(n);
    freq[h] *= Base::counts_once(h, n) ? 1.0 / samples : 2.0 / samples;
  }
  std::fill(freq.begin() + static_cast<std::ptrdiff_t>(elements), freq.end(), 0.0);
}

// Transforms of one size to the time form, with a buffer for a copy of the spectrum.
class ToTime {
 public:
  explicit ToTime(std::size_t samples)
      : size_(samples), plan_(std::make_shared<Base::SharedPlan>()) {
    Base::require_transformable(samples);
  }
  ToTime(const ToTime& other) : size_(other.size_), plan_(other.plan_) {}
  ToTime& operator=(const ToTime&) = delete;

  void run(const Spectrum& freq, Samples& time) {
    // Growing the copy afterwards would hold two of them for a moment.
    spectrum_.reserve(Base::spectrum_size(size_));
    const std::size_t given = std::min(freq.size(), Base::spectrum_size(size_));
    spectrum_.assign(freq.begin(), freq.begin() + static_cast<std::ptrdiff_t>(given));
    consume(spectrum_, time);
  }

  void consume(Spectrum& freq, Samples& time) {
    freq.resize(Base::spectrum_size(size_));
    // Planning on the first arrays takes no others. FFTW looks at their alignment only.
    const FftwPlan& plan =
        plan_->get([&] { return FftwPlan::to_time(size_, freq.data(), time.data()); });
    for (std::size_t h = 0; h < freq.size(); ++h) {
      freq[h] = Base::two_sided(freq[h], Base::counts_once(h, size_));
    }
    plan.run(freq.data(), time.data());
  }

 private:
  std::size_t size_;
  std::shared_ptr<Base::SharedPlan> plan_;
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
  if (freq->size() >= Base::spectrum_size(time->size())) {
    to_freq(*time, *freq);
    return;
  }
  Spectrum whole(Base::spectrum_size(time->size()));
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
  if (samples == 0) return 0;
  // FFTW ends the process if it gets too little, so these are above the measured peaks of its
  // addresses: 9 bytes a sample for powers of two, 20 for other small factors. FFTW transforms a
  // large prime factor by convolution, which needs padded copies and more tables: up to 70 bytes
  // more for each unit of the factor.
  constexpr std::uint64_t planner_bytes = 2 << 20;  // and what the heap takes in advance
  constexpr std::uint64_t table_bytes_per_sample = 21;
  constexpr std::uint64_t convolution_bytes = 80;
  constexpr std::uint64_t large_prime = 1000;
  const std::uint64_t prime = largest_prime_factor(samples);
  return planner_bytes + table_bytes_per_sample * samples +
         (prime > large_prime ? convolution_bytes * prime : 0);
}

FFT_Plan::FFT_Plan(unsigned samples, unsigned, FFT_Type) : samples_(samples) {
  if (samples != 0) {
    buffers_ = std::make_unique<Buffers>(samples);
  }
}

FFT_Plan::FFT_Plan(const FFT_Plan& other) : samples_(other.samples_) {
  if (other.buffers_) buffers_ = std::make_unique<Buffers>(*other.buffers_);
}

FFT_Plan::~FFT_Plan() = default;

void FFT_Plan::require_usable(const std::vector<double>& time) const {
  if (time.size() != samples_) {
    throw compose("FFT plan for ", samples_, " samples given ", time.size());
  }
  if (samples_ != 0 && !buffers_) {
    throw std::string("FFT plan without its buffers");
  }
}

void FFT_Plan::execute(const std::vector<std::complex<double>>* freq, std::vector<double>* time) {
  require_usable(*time);
  if (samples_ != 0) {
    buffers_->run(*freq, *time);
  }
}

void FFT_Plan::consume(std::vector<std::complex<double>>& freq, std::vector<double>& time) {
  require_usable(time);
  if (samples_ != 0) {
    buffers_->consume(freq, time);
  }
}

void FFT_Plan::freeFFTBuffers() { buffers_.reset(); }

const char* transform_library() { return fftw_name(); }

}  // namespace Base
