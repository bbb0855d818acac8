#include "base/forward_transform.h"

#include <fftw3.h>

#include <cstdint>
#include <string>
#include <vector>

#include "base/compose.h"
#include "base/vector.h"

namespace Base {
namespace {

// FFTW chooses its plan by this alignment. With the same one, a record has the same spectrum
// wherever it lies in memory.
bool aligned(const double* memory) {
  constexpr std::uintptr_t alignment = 16;
  return reinterpret_cast<std::uintptr_t>(memory) % alignment == 0;
}

}  // namespace

ForwardTransform::ForwardTransform(std::size_t samples) : samples_(samples) {
  // Refuses the same sizes with the same message, and prepares the planner for threads.
  static_cast<void>(FFT_Plan(static_cast<unsigned>(samples), 0, FFT_Type::freq_to_time));
}

ForwardTransform::~ForwardTransform() {
  if (plan_ != nullptr) fftw_destroy_plan(plan_);
}

void ForwardTransform::run(std::span<const double> samples, std::span<double> parts) {
  std::vector<double> copy;
  if (!aligned(samples.data())) {
    copy.assign(samples.begin(), samples.end());
    samples = copy;
  }
  // With these flags FFTW writes nothing to the samples, either when it plans or when it runs.
  auto* const input = const_cast<double*>(samples.data());
  auto* const output = reinterpret_cast<fftw_complex*>(parts.data());
  if (plan_ == nullptr) {
    plan_ = fftw_plan_dft_r2c_1d(static_cast<int>(samples_), input, output,
                                 FFTW_ESTIMATE | FFTW_PRESERVE_INPUT);
    if (plan_ == nullptr) throw compose("FFT of ", samples_, " samples cannot be planned");
  }
  fftw_execute_dft_r2c(plan_, input, output);
}

}  // namespace Base
