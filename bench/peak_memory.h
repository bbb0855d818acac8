// The memory of a job, from what Linux says about this process: the peak while it runs, less what
// the process had before. It means something in a fresh process that runs the job once, which is
// how table.py asks for it: it sets KELPBOX_BENCH_MEMORY.
#ifndef KELPBOX_BENCH_PEAK_MEMORY_H_
#define KELPBOX_BENCH_PEAK_MEMORY_H_

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <string>

namespace Bench {

class PeakMemory {
 public:
  PeakMemory() {
    if (!wanted()) return;
    std::ofstream("/proc/self/clear_refs") << 5;  // the peak becomes what there is now
    before_ = status("VmRSS:");
  }

  // Adds the bytes of the results and the peak to what the benchmark reports.
  void report(benchmark::State& state, std::size_t results) const {
    if (!wanted()) return;
    state.counters["results"] = static_cast<double>(results);
    state.counters["peak"] = status("VmHWM:") - before_;
  }

 private:
  static bool wanted() { return std::getenv("KELPBOX_BENCH_MEMORY") != nullptr; }

  static double status(const std::string& key) {
    std::ifstream lines("/proc/self/status");
    std::string word;
    while (lines >> word && word != key) {
    }
    double kibibytes = 0.0;
    lines >> kibibytes;
    return kibibytes * 1024.0;
  }

  double before_ = 0.0;
};

}  // namespace Bench

#endif  // KELPBOX_BENCH_PEAK_MEMORY_H_
