// The build of a run for 1,000 to 100,000 harmonics, and the reading of a site of 100 to 10,000
// paddles. The times for one harmonic and for one paddle should not grow with their number.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "facade/experiment.h"
#include "quiet.h"

namespace {

constexpr double low_hz = 0.35;
constexpr double high_hz = 1.4;

// Half the tank has a flat bottom, so that a run refers some fronts up a slope and others not.
std::string site_text(std::int64_t paddles) {
  std::ostringstream text;
  text << R"site(context {
  site_name = "a"; tank_name = "b"; config_name = "c";
  rate_units = Hz; base_rate = 64; base_g = 9.81; base_rho = 1000;
  tank {
    geometry = NoSides; units = m; max_y = 20; min_y = 0;
    section[3..1] { offset = Absolute; }
    section[1] { x = 0; depth = "2"; }
    section[2] { x = 15; depth = "2 - 0.05*($[m] - 15)";
}
section[3] { x = 30; }
}
limits {
  frequency {
    units = "Hz";
    maximum = 3;
    minimum = 0.1;
  }
  angle {
    units = "deg";
    maximum = 90;
    minimum = -90;
  }
}
wavemaker_bank[1..1] {
  name = "main";
  flap {
    paddle_width = 0.5;
    critical_dimension = 0.5;
    dimension_type = ToBottom;
    paddle_motion {
      clip_limit = 30;
      maximum = 25;
      minimum = -25;
      units = "deg";
    }
  }
)site";
  text << "    pad_pos[" << paddles << "..1] { x = 0; angle = 0; }\n";
  for (std::int64_t i = 1; i <= paddles; ++i) {
    text << "    pad_pos[" << i << "] { y = " << 0.001 * static_cast<double>(i) << "; }\n";
  }
  text << "  }\n}\n";
  return text.str();
}

// A site script in the folder for temporary files, removed at the end.
class SiteFile {
 public:
  explicit SiteFile(std::int64_t paddles)
      : path_(std::filesystem::temp_directory_path() / "kelpbox_bench_run_build.site") {
    std::ofstream(path_) << site_text(paddles);
  }
  ~SiteFile() { std::filesystem::remove(path_); }
  SiteFile(const SiteFile&) = delete;
  SiteFile& operator=(const SiteFile&) = delete;

  std::string path() const { return path_.string(); }

 private:
  std::filesystem::path path_;
};

void per_item(benchmark::State& state, const char* name) {
  using benchmark::Counter;
  state.counters[name] = Counter(static_cast<double>(state.range(0)),
                                 Counter::kIsIterationInvariantRate | Counter::kInvert);
}

Base::Params parameters(double harmonics, double x) {
  Base::Params p;
  p.insert("repeat", harmonics / (high_hz - low_hz), "s");
  p.insert("dalrymple", "False", "Bool");
  p.insert("wave_merge", "Null", "WaveMerge");
  p.insert("ran_gen", "FullRandom", "RanGen");
  p.insert("seed", 7.0, "");
  p.insert("x", x, "m");
  p.insert("y", 10.0, "m");
  p.insert("t", 0.0, "s");
  p.insert("hs", 80.0, "mm");
  p.insert("tp", 1.6, "s");
  p.insert("function", "Cos2S", "SpreadFunc");
  p.insert("angle", 15.0, "deg");
  p.insert("max_angle", 60.0, "deg");
  p.insert("min_angle", -60.0, "deg");
  p.insert("delta_angle", 10.0, "deg");
  return p;
}

void run_build(benchmark::State& state, const char* change, const char* formula, double x) {
  const Bench::Quiet quiet;
  const SiteFile site(40);
  Kelpbox::Experiment tank;
  tank.initialise(site.path());
  const std::uint32_t run = tank.add_definition("run");
  const std::uint32_t sea = tank.add_specification(run);
  const std::uint32_t wave = tank.add_spectrum(
      sea, "sea", "0.35@Hz#5/16*hs[m]^2/tp[s]^4/$[Hz]^5*exp(-1.25/(tp[s]*$[Hz])^4)@m2s#1.4@Hz");
  Base::Params p = parameters(static_cast<double>(state.range(0)), x);
  for (const std::uint32_t item : {sea, wave, run}) tank.set(item, p);
  if (*change != '\0') tank.set(tank.add_modifier(sea, change, formula), p);
  for (auto _ : state) tank.run_build(run);
  per_item(state, "per_harmonic");
}

void initialise(benchmark::State& state) {
  const Bench::Quiet quiet;
  const SiteFile site(state.range(0));
  for (auto _ : state) {
    Kelpbox::Experiment tank;
    tank.initialise(site.path());
  }
  per_item(state, "per_paddle");
}

void harmonics(benchmark::internal::Benchmark* job) {
  job->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond);
}

}  // namespace

BENCHMARK_CAPTURE(run_build, flat, "", "", 12.0)->Apply(harmonics);
BENCHMARK_CAPTURE(run_build, slope, "", "", 20.0)->Apply(harmonics);
BENCHMARK_CAPTURE(run_build, spread, "AngleSpread", "10", 12.0)->Apply(harmonics);
BENCHMARK_CAPTURE(run_build, sweep, "AngleSweep", "cos($[rad])^2", 12.0)->Apply(harmonics);
BENCHMARK_CAPTURE(run_build, spread_at_paddles, "AngleSpread", "10", 0.0)->Apply(harmonics);
BENCHMARK_CAPTURE(run_build, sweep_at_paddles, "AngleSweep", "cos($[rad])^2", 0.0)
    ->Apply(harmonics);
BENCHMARK(initialise)->RangeMultiplier(10)->Range(100, 10000)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
