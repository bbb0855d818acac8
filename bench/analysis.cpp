// Analyses of long records against their floors. The floor of zero crossings is one pass over the
// samples at the speed of vector instructions. That of a separation is the same transforms from one
// plan into memory that is already in use. Processor time, so that other work on the machine
// matters little; the ratio of a row is that of its two entries.
//
// An analysis never frees its items, so each repetition runs once, in other memory that has been
// used before.
#include <benchmark/benchmark.h>
#include <fftw3.h>

#include <array>
#include <complex>
#include <iostream>
#include <string>
#include <vector>

#include "facade/facade.h"
#include "peak_memory.h"
#include "quiet.h"
#include "record_sea.h"
#include "warm_memory.h"

namespace {

using Samples = std::vector<double>;

using Bench::Quiet;

constexpr double rate = Bench::record_rate;

struct Job {
  std::size_t probes;
  std::size_t samples;  // of each probe
  std::uint32_t kind;

  std::vector<Samples> records() const {
    std::vector<Samples> made;
    for (std::size_t i = 0; i < probes; ++i)
      made.push_back(Bench::record_sea(samples, 0.2 * double(i * i)));
    return made;
  }
};

// From the host's records to the results.
void analyse(benchmark::State& state, const Job& job, const std::string& site) {
  const std::vector<Samples> records = job.records();
  const Quiet quiet;
  Kelpbox::Facade tank;
  static_cast<Kelpbox::Experiment&>(tank).initialise(site);
  Base::Params window;
  window.insert("start_time", 0.0, "s");
  window.insert("stop_time", static_cast<double>(job.samples) / rate, "s");
  Base::Params settings;
  settings.insert("freq", 1.0, "Hz");
  settings.insert("angle", 0.0, "deg");
  Bench::warm_up(4 * job.probes * job.samples * sizeof(double));
  const Bench::PeakMemory memory;
  for (auto _ : state) {
    Kelpbox::Analysis& analysis = tank;
    std::vector<std::uint32_t> series;
    for (std::size_t i = 0; i < job.probes; ++i) {
      Base::Params params;
      params.insert("rate", rate, "Hz");
      params.insert("x", 3.0 + 0.2 * double(i * i), "m");
      params.insert("y", 0.4, "m");
      series.push_back(analysis.add_series(params, records[i]));
    }
    const std::uint32_t set = analysis.create_set(window, series);
    Base::Params tunable;
    static_cast<Kelpbox::SiteFacade&>(static_cast<Kelpbox::Experiment&>(tank)).query(tunable);
    analysis.set(tunable);
    const std::uint32_t process = analysis.create_process(set, job.kind);
    Base::Params results;
    analysis.get_results(process, settings, results);
  }
  // What remains is the copy of the records.
  memory.report(state, sizeof(double) * job.probes * job.samples);
}

// Compiled for several instruction sets, of which the best one is chosen at run time.
#if defined(__x86_64__) && __has_attribute(target_clones)
#define FLOOR_CLONES __attribute__((target_clones("avx512f", "avx2", "default")))
#else
#define FLOOR_CLONES
#endif

// Highest and lowest sample and the number of upward crossings, in independent lanes.
FLOOR_CLONES void pass(const Samples& samples) {
  constexpr std::size_t lanes = 32;
  std::array<double, lanes> high{};
  std::array<double, lanes> low{};
  std::array<double, lanes> crossings{};
  for (std::size_t i = 1; i + lanes <= samples.size(); i += lanes) {
    const double* const now = samples.data() + i;
    for (std::size_t lane = 0; lane < lanes; ++lane) {
      const double sample = now[lane];
      high[lane] = sample > high[lane] ? sample : high[lane];
      low[lane] = sample < low[lane] ? sample : low[lane];
      crossings[lane] += ((now[lane - 1] <= 0.0) & (sample > 0.0)) ? 1.0 : 0.0;
    }
  }
  benchmark::DoNotOptimize(high);
  benchmark::DoNotOptimize(low);
  benchmark::DoNotOptimize(crossings);
}

void crossings_floor(benchmark::State& state, const Job& job) {
  const std::vector<Samples> records = job.records();
  for (auto _ : state) {
    for (const Samples& samples : records) pass(samples);
  }
}

void separation_floor(benchmark::State& state, const Job& job) {
  const std::vector<Samples> records = job.records();
  std::vector<std::complex<double>> spectrum(job.samples / 2 + 1);
  const auto input = [&](std::size_t i) { return const_cast<double*>(records[i].data()); };
  auto* const output = reinterpret_cast<fftw_complex*>(spectrum.data());
  const fftw_plan plan = fftw_plan_dft_r2c_1d(static_cast<int>(job.samples), input(0), output,
                                              FFTW_ESTIMATE | FFTW_PRESERVE_INPUT);
  for (auto _ : state) {
    for (std::size_t i = 0; i < job.probes; ++i) {
      fftw_execute_dft_r2c(plan, input(i), output);
      benchmark::ClobberMemory();
    }
  }
  fftw_destroy_plan(plan);
}

template <typename Work>
void entry(const std::string& name, Work work) {
  benchmark::RegisterBenchmark(name.c_str(), work)->Unit(benchmark::kMillisecond)->Iterations(1);
}

void job(const std::string& name, const Job& job, const std::string& site) {
  using State = benchmark::State;
  entry(name + "/library", [=](State& state) { analyse(state, job, site); });
  entry(name + "/floor", [=](State& state) {
    job.kind == 0 ? crossings_floor(state, job) : separation_floor(state, job);
  });
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (argc != 2) {
    std::cerr << "usage: bench_analysis [--benchmark_...] SITE\n";
    return 2;
  }
  const std::string site = argv[1];
  job("zero crossings, 16 million samples", {1, 16'000'000, 0}, site);
  job("zero crossings, 4 x 4 million samples", {4, 4'000'000, 0}, site);
  job("separation, 5 x 1 million samples", {5, 1'000'000, 2}, site);
  job("separation, 4 x 5 million samples", {4, 5'000'000, 2}, site);
  benchmark::RunSpecifiedBenchmarks();
}
