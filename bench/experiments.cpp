// Two experiments, each built by a thread of its own, against one by one. Hosts keep one experiment
// for each tank or each operator, and nothing that they share should make one wait for the other.
// By the clock, which needs two processors of their own.
#include <benchmark/benchmark.h>

#include <array>
#include <string>
#include <thread>

#include "facade/experiment.h"
#include "quiet.h"

namespace {

// A sea with a direction for each front over the basin of examples/, up to its drive signals.
class Host {
 public:
  explicit Host(const std::string& site) {
    tank_.initialise(site);
    run_ = tank_.add_definition("basin");
    const std::uint32_t sea = tank_.add_specification(run_);
    const std::uint32_t wave = tank_.add_spectrum(
        sea, "sea", "0.35@Hz#5/16*hs[m]^2/tp[s]^4/$[Hz]^5*exp(-1.25/(tp[s]*$[Hz])^4)@m2s#1.4@Hz");
    const std::uint32_t spread = tank_.add_modifier(sea, "AngleSpread", "10");
    const std::uint32_t phases = tank_.add_modifier(sea, "PhaseRandom", "");
    settings_.insert("repeat", 4096.0, "s");
    settings_.insert("dalrymple", "False", "Bool");
    settings_.insert("wave_merge", "Null", "WaveMerge");
    settings_.insert("ran_gen", "FullRandom", "RanGen");
    settings_.insert("seed", 7.0, "");
    settings_.insert("x", 12.0, "m");
    settings_.insert("y", 10.0, "m");
    settings_.insert("t", 0.0, "s");
    settings_.insert("hs", 80.0, "mm");
    settings_.insert("tp", 1.6, "s");
    settings_.insert("function", "Cos2S", "SpreadFunc");
    settings_.insert("angle", 15.0, "deg");
    settings_.insert("max_angle", 60.0, "deg");
    settings_.insert("min_angle", -60.0, "deg");
    settings_.insert("rate", 32.0, "Hz");
    for (const std::uint32_t item : {sea, wave, spread, phases, run_}) tank_.set(item, settings_);
  }

  void build() {
    tank_.run_build(run_);
    tank_.paddle_motion_build(run_, settings_);
  }

 private:
  Kelpbox::Experiment tank_;
  Base::Params settings_;
  std::uint32_t run_ = 0;
};

void build_two(benchmark::State& state, const std::string& site, bool at_once) {
  const Bench::Quiet quiet;
  std::array<Host, 2> hosts{Host(site), Host(site)};
  for (auto _ : state) {
    if (at_once) {
      std::thread other([&] { hosts[1].build(); });
      hosts[0].build();
      other.join();
    } else {
      for (Host& host : hosts) host.build();
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (argc != 2) return 2;
  const std::string site = argv[1];
  for (const bool at_once : {false, true}) {
    const char* name = at_once ? "two experiments, workers: 2" : "two experiments, workers: 1";
    benchmark::RegisterBenchmark(name,
                                 [=](benchmark::State& state) { build_two(state, site, at_once); })
        ->Unit(benchmark::kMillisecond)
        ->MeasureProcessCPUTime()
        ->UseRealTime();
  }
  benchmark::RunSpecifiedBenchmarks();
}
