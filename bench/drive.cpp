// Builds of drive signals against their floor: the same inverse transforms from one plan, a sine
// and a cosine for each front at each paddle, and one write of the results. Processor time, so that
// other work on the machine matters little; the ratio of a row is that of its two entries.
#include <benchmark/benchmark.h>
#include <fftw3.h>
#include <hwy/highway.h>

#include <complex>
#include <string>
#include <vector>

#include "base/sine_cosine.h"
#include "drive/bank_motion.h"
#include "drive_job.h"
#include "peak_memory.h"

namespace {

using Bench::DriveJob;
using Bench::PreparedDrive;

// Builds again and again, as a host does that tries out seas.
void library(benchmark::State& state, const DriveJob& job, unsigned workers) {
  const PreparedDrive made(job);
  const Base::Executor executor(workers);
  Synthesis::BankMotion motion;
  const Bench::PeakMemory memory;
  for (auto _ : state) {
    motion.init(made.tank, made.run, made.params);
    motion.build(made.bank, made.fronts, executor);
    benchmark::DoNotOptimize(motion.series().back().data());
  }
  memory.report(state, sizeof(double) * job.paddles * job.samples);
}

void library_once(benchmark::State& state, const DriveJob& job) {
  const PreparedDrive made(job);
  for (auto _ : state) {
    Synthesis::BankMotion motion;
    motion.init(made.tank, made.run, made.params);
    motion.build(made.bank, made.fronts);
    benchmark::DoNotOptimize(motion.series().back().data());
  }
}

// The sum of the terms is made in the cache, and the results are written once. With `fresh`, their
// memory is new, as in a first build.
void floor_of(benchmark::State& state, const DriveJob& job, bool fresh) {
  const PreparedDrive made(job);
  std::vector<std::vector<double>> results(job.paddles);
  std::vector<std::complex<double>> spectrum(job.samples / 2 + 1);
  std::vector<double> angles(job.paddles, 0.5);
  std::vector<double> sines(job.paddles);
  std::vector<double> cosines(job.paddles);
  std::vector<double> signal(job.samples);
  auto* const input = reinterpret_cast<fftw_complex*>(spectrum.data());
  fftw_plan plan =
      fftw_plan_dft_c2r_1d(static_cast<int>(job.samples), input, signal.data(), FFTW_ESTIMATE);
  for (auto _ : state) {
    for (std::size_t i = 0; i < made.terms; ++i) {
      Base::sine_cosine(angles.data(), angles.size(), sines.data(), cosines.data());
      benchmark::DoNotOptimize(sines.data());
      benchmark::DoNotOptimize(cosines.data());
      benchmark::ClobberMemory();
    }
    if (fresh) std::vector<std::vector<double>>(job.paddles).swap(results);
    for (std::vector<double>& result : results) {
      fftw_execute(plan);
      benchmark::ClobberMemory();
      result.assign(signal.begin(), signal.end());
    }
  }
  fftw_destroy_plan(plan);
}

void add(const std::string& name, const DriveJob& job) {
  const auto set = [](benchmark::internal::Benchmark* entry) {
    entry->Unit(benchmark::kMillisecond);
  };
  set(benchmark::RegisterBenchmark((name + "/library").c_str(),
                                   [job](benchmark::State& s) { library(s, job, 1); }));
  set(benchmark::RegisterBenchmark((name + "/floor").c_str(),
                                   [job](benchmark::State& s) { floor_of(s, job, false); }));
  set(benchmark::RegisterBenchmark((name + ", first build/library").c_str(),
                                   [job](benchmark::State& s) { library_once(s, job); }));
  set(benchmark::RegisterBenchmark((name + ", first build/floor").c_str(),
                                   [job](benchmark::State& s) { floor_of(s, job, true); }));
}

// One worker against two, by the clock, which needs two processors of their own. The processor time
// is that of all threads.
void add_workers(const std::string& name, const DriveJob& job) {
  for (const unsigned workers : {1U, 2U}) {
    const std::string entry = name + ", workers: " + std::to_string(workers);
    benchmark::RegisterBenchmark(entry.c_str(),
                                 [=](benchmark::State& s) { library(s, job, workers); })
        ->Unit(benchmark::kMillisecond)
        ->MeasureProcessCPUTime()
        ->UseRealTime();
  }
}

}  // namespace

int main(int argc, char** argv) {
  add("drive, 128 paddles, 1 front", {128, 32768, 1, false});
  add("drive, 128 paddles, 31 directions", {128, 32768, 31, false});
  add("drive, circle, 1 front", {128, 32768, 1, true});
  add("drive, circle, 31 directions", {128, 32768, 31, true});
  add("drive, prime length, 1 front", {128, 32771, 1, false});
  add_workers("drive, 128 paddles, 1 front", {128, 32768, 1, false});
  add_workers("drive, 128 paddles, 31 directions", {128, 32768, 31, false});
  const std::int64_t sets = HWY_TARGETS & hwy::SupportedTargets();
  benchmark::AddCustomContext("instruction_set", hwy::TargetName(sets & -sets));  // the best one
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
