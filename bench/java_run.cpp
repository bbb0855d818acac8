// A run as a C++ host makes it, for comparison with the same run through Java (bench/java_api.py).
//
// usage: bench_java_run SITE REPETITIONS
//
// Prints the processor time of each repetition in seconds. The first one is not shown: it makes
// plans for the transforms, and takes memory from the system.
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <vector>

#include "base/streams.h"
#include "facade/experiment.h"

namespace {

double processor_seconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

// Returns the number of samples.
std::size_t run(const char* site) {
  Kelpbox::Experiment tank;
  tank.initialise(site);
  const std::uint32_t definition = tank.add_definition("sea");
  const std::uint32_t place = tank.add_specification(definition);
  const std::uint32_t sea = tank.add_spectrum(
      place, "sea", "0.35@Hz#5/16*hs[m]^2/tp[s]^4/$[Hz]^5*exp(-1.25/(tp[s]*$[Hz])^4)@m2s#1.4@Hz");
  const std::uint32_t phases = tank.add_modifier(place, "PhaseRandom", "");
  Base::Params p;
  p.insert("repeat", 512.0, "s");
  p.insert("dalrymple", "False", "Bool");
  p.insert("wave_merge", "Null", "WaveMerge");
  p.insert("ran_gen", "FullRandom", "RanGen");
  p.insert("seed", 7.0, "");
  p.insert("x", 12.0, "m");
  p.insert("y", 10.0, "m");
  p.insert("t", 0.0, "s");
  p.insert("hs", 80.0, "mm");
  p.insert("tp", 1.6, "s");
  p.insert("rate", 64.0, "Hz");
  for (const std::uint32_t item : {place, sea, phases, definition}) tank.set(item, p);
  tank.run_build(definition);
  tank.paddle_motion_build(definition, p);
  // The host's own copy, which stays when the library's signals change.
  std::vector<std::vector<double>> signals;
  for (std::uint32_t i = 0; i < tank.paddle_bank_size(0); ++i) {
    signals.push_back(tank.paddle_motion_data(definition, 0, i));
  }
  return signals.size() * signals.back().size();
}

}  // namespace

int main(int, char** arguments) {
  const int repetitions = std::atoi(arguments[2]);
  for (int i = 0; i <= repetitions; ++i) {
    Base::collect_output(true);
    const double start = processor_seconds();
    const std::size_t samples = run(arguments[1]);
    const double spent = processor_seconds() - start;
    Base::take_output();
    Base::collect_output(false);
    if (i > 0) std::printf("run %.9f %zu\n", spent, samples);
  }
}
