// How the cost of drive signals and of animations grows with each of their sizes. The time for one
// item should not grow with their number, except by the logarithm in that of the transforms.
#include <benchmark/benchmark.h>

#include <functional>
#include <string>
#include <vector>

#include "animation/animate.h"
#include "column_job.h"
#include "drive/bank_motion.h"
#include "drive_job.h"
#include "quiet.h"

namespace {

using Bench::ColumnJob;
using Bench::DriveJob;

void drive(benchmark::State& state, const DriveJob& job) {
  const Bench::PreparedDrive made(job);
  Synthesis::BankMotion motion;
  for (auto _ : state) {
    motion.init(made.tank, made.run, made.params);
    motion.build(made.bank, made.fronts);
  }
}

void animate(benchmark::State& state, const ColumnJob& job) {
  const Bench::PreparedColumns made(job);
  Base::Params params = Bench::column_grid(job);
  Synthesis::Animate animation;
  for (auto _ : state) {
    const Bench::Quiet quiet;
    animation.build(made.fronts, made.tank, made.run, params);
  }
}

// One entry for each size, with the time for one item.
template <typename Job, typename Work>
void series(const std::string& name, const std::vector<std::size_t>& sizes,
            const std::function<Job(std::size_t)>& job, Work work) {
  using benchmark::Counter;
  for (const std::size_t size : sizes) {
    benchmark::RegisterBenchmark((name + "/" + std::to_string(size)).c_str(), [=](benchmark::State&
                                                                                      state) {
      work(state, job(size));
      state.counters["per_item"] =
          Counter(static_cast<double>(size), Counter::kIsIterationInvariantRate | Counter::kInvert);
    })->Unit(benchmark::kMillisecond);
  }
}

void drives(const std::string& name, const std::vector<std::size_t>& sizes,
            const std::function<DriveJob(std::size_t)>& job) {
  series(name, sizes, job, drive);
}

void animations(const std::string& name, const std::vector<std::size_t>& sizes,
                const std::function<ColumnJob(std::size_t)>& job) {
  series(name, sizes, job, animate);
}

}  // namespace

int main(int argc, char** argv) {
  using N = std::size_t;
  drives("drive, paddles", {16, 64, 256, 1024}, [](N n) { return DriveJob{n, 16384, 31}; });
  drives("drive, samples", {8192, 32768, 131072}, [](N n) { return DriveJob{64, n, 31}; });
  drives("drive, directions", {1, 10, 100, 1000}, [](N n) { return DriveJob{64, 8192, n}; });
  animations("animation, columns", {11, 101, 1001}, [](N n) {
    return ColumnJob{2048, 31, 1, n, 16};
  });
  animations("animation, samples", {1024, 4096, 16384}, [](N n) {
    return ColumnJob{n, 31, 1, 26, 16};
  });
  animations("animation, directions", {2, 20, 200, 2000}, [](N n) {
    return ColumnJob{2048, n, 1, 26, 16};
  });
  animations("animation, profile points", {10, 100, 1000, 10000}, [](N n) {
    return ColumnJob{2048, 31, n - 1, 26, 16};
  });
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
