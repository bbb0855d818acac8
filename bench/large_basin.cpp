// The drive signals of a large basin: a sea of 31 directions at each harmonic from 0.3 Hz to 2 Hz,
// which repeats after the given hours, at 100 Hz.
//
// usage: bench_large_basin PADDLES [HOURS [WORKERS]]
#include <sys/resource.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <iostream>

#include "drive_job.h"

namespace {

double seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
}

rusage used() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage;
}

double processor_seconds() { return seconds(used().ru_utime) + seconds(used().ru_stime); }

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2 || argc > 4) {
    std::cerr << "usage: bench_large_basin PADDLES [HOURS [WORKERS]]\n";
    return 2;
  }
  const auto paddles = static_cast<std::size_t>(std::atoll(argv[1]));
  const double hours = argc > 2 ? std::atof(argv[2]) : 3.0;
  const auto workers = static_cast<unsigned>(argc > 3 ? std::atoi(argv[3]) : 1);
  constexpr double rate = 100.0;  // Hz
  const auto samples = static_cast<std::size_t>(std::lround(hours * 3600.0 * rate));
  const Bench::PreparedDrive made({paddles, samples, 31, false, rate});

  const auto start = std::chrono::steady_clock::now();
  const double before = processor_seconds();
  Synthesis::BankMotion motion;
  motion.init(made.tank, made.run, made.params);
  motion.build(made.bank, made.fronts, Base::Executor(workers));
  const std::chrono::duration<double> clock = std::chrono::steady_clock::now() - start;
  std::cout << paddles << " paddles, " << samples << " samples, " << made.terms
            << " fronts, workers: " << workers << "\n"
            << "clock " << clock.count() << " s, processor time " << processor_seconds() - before
            << " s\n"
            << "signals " << static_cast<double>(8 * paddles * samples) / 1e9 << " GB, fronts "
            << static_cast<double>(made.terms * sizeof(Maths::HarmonicFront)) / 1e9 << " GB, peak "
            << static_cast<double>(used().ru_maxrss) * 1024.0 / 1e9 << " GB\n";
}
