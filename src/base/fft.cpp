#include "base/fft.h"

#include <fftw3.h>

#include <algorithm>
#include <climits>
#include <cstddef>
#include <new>
#include <string>

namespace {

struct Free {
  void operator()(void* memory) const { fftw_free(memory); }
};
using Samples = std::unique_ptr<double[], Free>;
using Spectrum = std::unique_ptr<fftw_complex[], Free>;

struct DestroyPlan {
  void operator()(fftw_plan plan) const { fftw_destroy_plan(plan); }
};
using Plan = std::unique_ptr<fftw_plan_s, DestroyPlan>;

std::size_t elements_for(std::size_t samples) { return samples / 2 + 1; }

// The planner is the only part of FFTW that threads share; it guards itself from here on.
void make_planner_safe() {
  static const bool done = (fftw_make_planner_thread_safe(), true);
  static_cast<void>(done);
}

// Working memory and plan of one size and direction. The memory is FFTW's, so that it is always
// aligned alike: results repeat exactly, wherever the caller's vectors lie.
class Transform {
 public:
  enum class Direction { to_freq, to_time };

  Transform(std::size_t samples, Direction direction) : size_(samples) {
    if (samples > INT_MAX) {
      throw "FFT of " + std::to_string(samples) + " samples is too long";
    }
    samples_.reset(fftw_alloc_real(samples));
    spectrum_.reset(fftw_alloc_complex(elements_for(samples)));
    if (!samples_ || !spectrum_) {
      throw std::bad_alloc();
    }
    make_planner_safe();
    const int n = static_cast<int>(samples);
    plan_.reset(direction == Direction::to_freq
                    ? fftw_plan_dft_r2c_1d(n, samples_.get(), spectrum_.get(), FFTW_ESTIMATE)
                    : fftw_plan_dft_c2r_1d(n, spectrum_.get(), samples_.get(), FFTW_ESTIMATE));
    if (!plan_) {
      throw "FFT of " + std::to_string(samples) + " samples cannot be planned";
    }
  }

  std::size_t size() const { return size_; }

  // For the direction to_freq: `freq` of any size, filled as far as there are harmonics.
  void run(const std::vector<double>& time, std::vector<std::complex<double>>& freq) {
    std::copy(time.begin(), time.end(), samples_.get());
    fftw_execute(plan_.get());
    const double n = static_cast<double>(size_);
    const std::size_t filled = std::min(freq.size(), elements_for(size_));
    for (std::size_t h = 0; h < filled; ++h) {
      const double scale = counts_once(h) ? 1.0 / n : 2.0 / n;
      freq[h] = {spectrum_[h][0] * scale, spectrum_[h][1] * scale};
    }
    std::fill(freq.begin() + static_cast<std::ptrdiff_t>(filled), freq.end(), 0.0);
  }

  // For the direction to_time.
  void run(const std::vector<std::complex<double>>& freq, std::vector<double>& time) {
    const std::size_t elements = elements_for(size_);
    const std::size_t given = std::min(freq.size(), elements);
    for (std::size_t h = 0; h < given; ++h) {
      // The transform adds each harmonic's conjugate, but for the mean and the Nyquist element,
      // of which only the real part shows in the samples.
      const bool once = counts_once(h);
      spectrum_[h][0] = once ? freq[h].real() : 0.5 * freq[h].real();
      spectrum_[h][1] = once ? 0.0 : 0.5 * freq[h].imag();
    }
    for (std::size_t h = given; h < elements; ++h) {
      spectrum_[h][0] = 0.0;
      spectrum_[h][1] = 0.0;
    }
    fftw_execute(plan_.get());
    std::copy_n(samples_.get(), size_, time.begin());
  }

 private:
  bool counts_once(std::size_t h) const { return h == 0 || 2 * h == size_; }

  std::size_t size_;
  Samples samples_;
  Spectrum spectrum_;
  Plan plan_;
};

}  // namespace

void KLPFFT_time_to_freq(const std::vector<double>* time, std::vector<std::complex<double>>* freq) {
  if (time->empty()) {
    std::fill(freq->begin(), freq->end(), 0.0);
    return;
  }
  Transform(time->size(), Transform::Direction::to_freq).run(*time, *freq);
}

void KLPFFT_freq_to_time(const std::vector<std::complex<double>>* freq, std::vector<double>* time) {
  if (time->empty()) {
    return;
  }
  Transform(time->size(), Transform::Direction::to_time).run(*freq, *time);
}

namespace Base {

struct FFT_Plan::Buffers : Transform {
  using Transform::Transform;
};

FFT_Plan::FFT_Plan(unsigned samples, unsigned, FFT_Type) : samples_(samples) {
  if (samples != 0) {
    buffers_ = std::make_unique<Buffers>(samples, Transform::Direction::to_time);
  }
}

FFT_Plan::~FFT_Plan() = default;

void FFT_Plan::execute(const std::vector<std::complex<double>>* freq, std::vector<double>* time) {
  if (time->size() != samples_) {
    throw "FFT plan for " + std::to_string(samples_) + " samples given " +
        std::to_string(time->size());
  }
  if (samples_ == 0) {
    return;
  }
  if (!buffers_) {
    throw std::string("FFT plan without its buffers");
  }
  buffers_->run(*freq, *time);
}

void FFT_Plan::freeFFTBuffers() { buffers_.reset(); }

}  // namespace Base
