// Builds of drive signals against their floor: the same inverse transforms from one plan, a sine
// and a cosine for each front at each paddle, and one write of the results. Processor time, so that
// other work on the machine matters little; the ratio of a row is that of its two entries.
#include <benchmark/benchmark.h>
#include <fftw3.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <string>
#include <vector>

#include "base/params.h"
#include "base/sine_cosine.h"
#include "drive/bank_motion.h"

namespace {

constexpr double rate = 32.0;  // Hz
constexpr double lowest = 0.3;
constexpr double highest = 2.0;

struct Job {
  std::size_t paddles;
  std::size_t samples;
  std::size_t fronts;  // of each harmonic
  bool round;

  double repeat() const { return static_cast<double>(samples) / rate; }
};

// A job with its site and fronts, made once.
struct Prepared {
  explicit Prepared(const Job& job) {
    bank.pad_pos.build(static_cast<std::int32_t>(job.paddles), 1);
    for (std::size_t p = 0; p < job.paddles; ++p) {
      const double turn =
          2.0 * std::numbers::pi * static_cast<double>(p) / static_cast<double>(job.paddles);
      const double radius = 0.5 * static_cast<double>(job.paddles) / (2.0 * std::numbers::pi);
      Common::PadPos& place = bank.pad_pos[p];
      place.x = job.round ? radius * std::cos(turn) : 0.0;
      place.y = job.round ? radius * std::sin(turn) : 0.5 * static_cast<double>(p);
      place.angle = job.round ? turn - std::numbers::pi : 0.0;
    }
    bank.piston.build();
    Common::Machine& machine = bank.machine();
    machine.paddle_width = 0.5;
    machine.critical_dimension = 0.0;
    machine.dimension_type.number = 0;
    machine.paddle_motion.build();
    machine.paddle_motion.get()->clip_limit = 100.0;
    machine.paddle_motion.get()->units = "m";
    tank.paddle_depth = 1.0;
    tank.g = 9.81;
    run.init(job.repeat(), rate, lowest, highest, false);
    fronts.reset(run.size());
    for (std::uint64_t h = run.min_harmonic(); h <= run.max_harmonic(); ++h) {
      for (std::size_t i = 0; i < job.fronts; ++i) {
        const double s = static_cast<double>(h * job.fronts + i);
        fronts.slots[h].push_back({1e-3, 0.9 * std::sin(s), s});
        ++terms;
      }
    }
    params.insert("rate", rate, "Hz");
  }

  Common::Paddles bank;
  Maths::TankConfig tank;
  Maths::RunData run;
  Maths::FrontSet fronts;
  Base::Params params;
  std::size_t terms = 0;  // fronts of all harmonics
};

// Builds again and again, as a host does that tries out seas.
void library(benchmark::State& state, const Job& job, unsigned workers) {
  const Prepared made(job);
  const Base::Executor executor(workers);
  Synthesis::BankMotion motion;
  for (auto _ : state) {
    motion.init(made.tank, made.run, made.params);
    motion.build(made.bank, made.fronts, executor);
    benchmark::DoNotOptimize(motion.series().back().data());
  }
}

void library_once(benchmark::State& state, const Job& job) {
  const Prepared made(job);
  for (auto _ : state) {
    Synthesis::BankMotion motion;
    motion.init(made.tank, made.run, made.params);
    motion.build(made.bank, made.fronts);
    benchmark::DoNotOptimize(motion.series().back().data());
  }
}

// The sum of the terms is made in the cache, and the results are written once. With `fresh`, their
// memory is new, as in a first build.
void floor_of(benchmark::State& state, const Job& job, bool fresh) {
  const Prepared made(job);
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

void add(const std::string& name, const Job& job) {
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
void add_workers(const std::string& name, const Job& job) {
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
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
