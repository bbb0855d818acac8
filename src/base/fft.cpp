#include "base/fft.h"

#include <fftw3.h>

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string>

#include "base/compose.h"
#include "base/forward_transform.h"
#include "base/vector.h"

namespace {

using Samples = std::vector<double>;
using Spectrum = std::vector<std::complex<double>>;

// FFTW chooses its plan by this alignment. Every vector has it, so one input always gives the same
// result, wherever the vector lies in memory.
constexpr std::size_t alignment = 16;
static_assert(__STDCPP_DEFAULT_NEW_ALIGNMENT__ % alignment == 0);

bool aligned(const double* memory) {
  return reinterpret_cast<std::uintptr_t>(memory) % alignment == 0;
}

struct DestroyPlan {
  void operator()(fftw_plan plan) const { fftw_destroy_plan(plan); }
};
using Plan = std::unique_ptr<fftw_plan_s, DestroyPlan>;

// The mean and the Nyquist element have no conjugate of their own in the two-sided spectrum.
bool counts_once(std::size_t h, std::size_t samples) { return h == 0 || 2 * h == samples; }

// FFTW adds each harmonic's conjugate, hence the halves. Only the real parts of the mean and of the
// Nyquist element contribute to the samples.
std::complex<double> two_sided(std::complex<double> element, bool once) {
  return {once ? element.real() : 0.5 * element.real(), once ? 0.0 : 0.5 * element.imag()};
}

fftw_complex* raw(Spectrum& spectrum) { return reinterpret_cast<fftw_complex*>(spectrum.data()); }

// The planner is the only part of FFTW that threads share. After this call it locks itself.
void make_planner_safe() {
  static std::once_flag once;
  std::call_once(once, fftw_make_planner_thread_safe);
}

int checked_size(std::size_t samples) {
  if (samples > INT_MAX) {
    throw Base::compose("FFT of ", samples, " samples is too long");
  }
  make_planner_safe();
  return static_cast<int>(samples);
}

Plan checked_plan(fftw_plan plan, std::size_t samples) {
  if (plan == nullptr) {
    throw Base::compose("FFT of ", samples, " samples cannot be planned");
  }
  return Plan(plan);
}

// A plan that a transform and its copies share. FFTW may run it in several threads at a time.
class SharedPlan {
 public:
  template <typename Make>
  fftw_plan get(Make make) {
    std::call_once(made_, [&] { plan_ = make(); });
    return plan_.get();
  }

 private:
  std::once_flag made_;
  Plan plan_;
};

// FFTW writes nothing to the input of these plans, either when it plans or when it runs.
double* input(const double* samples) { return const_cast<double*>(samples); }

Plan forward_plan(int n, const double* samples, fftw_complex* spectrum) {
  return checked_plan(
      fftw_plan_dft_r2c_1d(n, input(samples), spectrum, FFTW_ESTIMATE | FFTW_PRESERVE_INPUT),
      static_cast<std::size_t>(n));
}

// Needs a spectrum of at least n / 2 + 1 elements.
void to_freq(const Samples& time, Spectrum& freq) {
  const int n = checked_size(time.size());
  const Plan plan = forward_plan(n, time.data(), raw(freq));
  fftw_execute(plan.get());
  const std::size_t elements = Base::spectrum_size(time.size());
  for (std::size_t h = 0; h < elements; ++h) {
    freq[h] *= counts_once(h, time.size()) ? 1.0 / n : 2.0 / n;
  }
  std::fill(freq.begin() + static_cast<std::ptrdiff_t>(elements), freq.end(), 0.0);
}

// Transforms of one size to the time form, with a buffer for a copy of the spectrum.
class ToTime {
 public:
  explicit ToTime(std::size_t samples)
      : size_(samples), n_(checked_size(samples)), plan_(std::make_shared<SharedPlan>()) {}
  ToTime(const ToTime& other) : size_(other.size_), n_(other.n_), plan_(other.plan_) {}
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
    const fftw_plan plan = plan_->get([&] {
      return checked_plan(fftw_plan_dft_c2r_1d(n_, raw(freq), time.data(), FFTW_ESTIMATE), size_);
    });
    for (std::size_t h = 0; h < freq.size(); ++h) {
      freq[h] = two_sided(freq[h], counts_once(h, size_));
    }
    fftw_execute_dft_c2r(plan, raw(freq), time.data());
  }

 private:
  std::size_t size_;
  int n_;  // the size as FFTW takes it
  std::shared_ptr<SharedPlan> plan_;
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

struct BandTransform::Work {
  Work(std::size_t samples, std::size_t first_harmonic, std::size_t harmonics)
      : n(checked_size(samples)),
        first(first_harmonic),
        count(harmonics),
        spectrum(spectrum_size(samples)),
        plan(std::make_shared<SharedPlan>()) {}

  int n;
  std::size_t first;
  std::size_t count;
  Spectrum spectrum;
  std::shared_ptr<SharedPlan> plan;
};

BandTransform::BandTransform(std::size_t samples, std::size_t first, std::size_t count) {
  if (samples != 0) work_ = std::make_unique<Work>(samples, first, count);
}

BandTransform::BandTransform(const BandTransform& other) {
  if (other.work_) work_ = std::make_unique<Work>(*other.work_);
}

BandTransform::~BandTransform() = default;

void BandTransform::run(const double* band, double* time) {
  if (!work_) return;
  Work& work = *work_;
  const auto samples = static_cast<std::size_t>(work.n);
  // A transform that leaves its input as it is needs a copy of it, and more time.
  const fftw_plan plan = work.plan->get([&] {
    return checked_plan(fftw_plan_dft_c2r_1d(work.n, raw(work.spectrum), time, FFTW_ESTIMATE),
                        samples);
  });
  Spectrum& spectrum = work.spectrum;
  const auto begin = spectrum.begin() + static_cast<std::ptrdiff_t>(work.first);
  std::fill(spectrum.begin(), begin, 0.0);
  std::fill(begin + static_cast<std::ptrdiff_t>(work.count), spectrum.end(), 0.0);
  for (std::size_t i = 0; i < work.count; ++i) {
    const std::size_t h = work.first + i;
    spectrum[h] = two_sided({band[2 * i], band[2 * i + 1]}, counts_once(h, samples));
  }
  fftw_execute_dft_c2r(plan, raw(spectrum), time);
}

struct ComplexTransform::Plans {
  Plan forward;
  Plan backward;
};

ComplexTransform::ComplexTransform(std::size_t size)
    : in_(size), out_(size), plans_(std::make_shared<Plans>()) {
  const int n = checked_size(size);
  plans_->forward =
      checked_plan(fftw_plan_dft_1d(n, raw(in_), raw(out_), FFTW_FORWARD, FFTW_ESTIMATE), size);
  plans_->backward =
      checked_plan(fftw_plan_dft_1d(n, raw(out_), raw(in_), FFTW_BACKWARD, FFTW_ESTIMATE), size);
}

ComplexTransform::~ComplexTransform() = default;

void ComplexTransform::forward() { fftw_execute_dft(plans_->forward.get(), raw(in_), raw(out_)); }

void ComplexTransform::backward() { fftw_execute_dft(plans_->backward.get(), raw(out_), raw(in_)); }

struct ForwardTransform::Work {
  int n;
  Plan plan;
};

ForwardTransform::ForwardTransform(std::size_t samples)
    : work_(std::make_unique<Work>(Work{checked_size(samples), nullptr})) {}

ForwardTransform::~ForwardTransform() = default;

std::size_t ForwardTransform::samples() const { return static_cast<std::size_t>(work_->n); }

void ForwardTransform::run(std::span<const double> samples, std::span<double> parts) {
  Samples copy;
  if (!aligned(samples.data())) {
    copy.assign(samples.begin(), samples.end());
    samples = copy;
  }
  auto* const spectrum = reinterpret_cast<fftw_complex*>(parts.data());
  if (!work_->plan) work_->plan = forward_plan(work_->n, samples.data(), spectrum);
  fftw_execute_dft_r2c(work_->plan.get(), input(samples.data()), spectrum);
}

const char* transform_library() { return fftw_version; }

}  // namespace Base
