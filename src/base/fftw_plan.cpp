#include "base/fftw_plan.h"

#include <fftw3.h>

#include <climits>
#include <cstdint>

#include "base/compose.h"

namespace Base {
namespace {

constexpr std::size_t alignment = 16;
static_assert(__STDCPP_DEFAULT_NEW_ALIGNMENT__ % alignment == 0);

fftw_complex* raw(std::complex<double>* elements) {
  return reinterpret_cast<fftw_complex*>(elements);
}

// FFTW writes nothing to the input of plans that preserve it, either when it plans or when it runs.
double* input(const double* samples) { return const_cast<double*>(samples); }

fftw_plan plan_of(void* plan) { return static_cast<fftw_plan>(plan); }

int planned_size(std::size_t samples) {
  require_transformable(samples);
  // The planner is the only part of FFTW that threads share. After this call it locks itself.
  static std::once_flag once;
  std::call_once(once, fftw_make_planner_thread_safe);
  return static_cast<int>(samples);
}

}  // namespace

void require_transformable(std::size_t samples) {
  if (samples > INT_MAX) {
    throw compose("FFT of ", samples, " samples is too long");
  }
}

void FftwPlan::Destroy::operator()(void* plan) const { fftw_destroy_plan(plan_of(plan)); }

FftwPlan FftwPlan::checked(void* plan, std::size_t size) {
  if (plan == nullptr) {
    throw compose("FFT of ", size, " samples cannot be planned");
  }
  return FftwPlan(plan);
}

FftwPlan FftwPlan::to_freq(std::size_t samples, const double* time, std::complex<double>* freq) {
  return checked(fftw_plan_dft_r2c_1d(planned_size(samples), input(time), raw(freq),
                                      FFTW_ESTIMATE | FFTW_PRESERVE_INPUT),
                 samples);
}

FftwPlan FftwPlan::to_time(std::size_t samples, std::complex<double>* freq, double* time) {
  return checked(fftw_plan_dft_c2r_1d(planned_size(samples), raw(freq), time, FFTW_ESTIMATE),
                 samples);
}

FftwPlan FftwPlan::forward(std::size_t size, std::complex<double>* in, std::complex<double>* out) {
  return checked(
      fftw_plan_dft_1d(planned_size(size), raw(in), raw(out), FFTW_FORWARD, FFTW_ESTIMATE), size);
}

FftwPlan FftwPlan::backward(std::size_t size, std::complex<double>* in, std::complex<double>* out) {
  return checked(
      fftw_plan_dft_1d(planned_size(size), raw(in), raw(out), FFTW_BACKWARD, FFTW_ESTIMATE), size);
}

void FftwPlan::run(const double* time, std::complex<double>* freq) const {
  fftw_execute_dft_r2c(plan_of(plan_.get()), input(time), raw(freq));
}

void FftwPlan::run(std::complex<double>* in, std::complex<double>* out) const {
  fftw_execute_dft(plan_of(plan_.get()), raw(in), raw(out));
}

void FftwPlan::run(std::complex<double>* freq, double* time) const {
  fftw_execute_dft_c2r(plan_of(plan_.get()), raw(freq), time);
}

bool aligned(const double* memory) {
  return reinterpret_cast<std::uintptr_t>(memory) % alignment == 0;
}

const char* fftw_name() { return fftw_version; }

}  // namespace Base
