// Animations and waves at a point against their floor: the same inverse transforms from one plan, a
// sine and a cosine for each front at each point (or column, if they do not vary across it), and
// one write of the results. Processor time, so that other work on the machine matters little; the
// ratio of a row is that of its two entries.
#include <benchmark/benchmark.h>
#include <fftw3.h>

#include <complex>
#include <cstdint>
#include <string>
#include <vector>

#include "animation/animate.h"
#include "base/params.h"
#include "base/sine_cosine.h"
#include "column_job.h"
#include "peak_memory.h"
#include "point/two_d.h"
#include "quiet.h"

namespace {

using Bench::ColumnJob;
using Bench::PreparedColumns;
using Bench::Quiet;

// The pieces of a bottom that slopes.
constexpr std::size_t slope = 1004;

std::size_t frame_bytes(const ColumnJob& job) {
  return sizeof(std::int16_t) * job.samples * job.columns * job.rows;
}

void whole(benchmark::State& state, const ColumnJob& job, bool fresh, unsigned workers = 1) {
  const PreparedColumns made(job);
  Base::Params params = Bench::column_grid(job);
  Synthesis::Animate animate;
  animate.set_executor(Base::Executor(workers));
  const Bench::PeakMemory memory;
  for (auto _ : state) {
    const Quiet quiet;
    if (fresh) animate.frames().release();
    animate.build(made.fronts, made.tank, made.run, params);
  }
  memory.report(state, frame_bytes(job));
}

// A column at a time.
void slices(benchmark::State& state, const ColumnJob& job) {
  const PreparedColumns made(job);
  Base::Params params = Bench::column_grid(job);
  Synthesis::Animate animate;
  const Bench::PeakMemory memory;
  for (auto _ : state) {
    animate.frames().stop();
    animate.init(made.fronts, made.run, params);
    for (std::uint32_t ix = 0; ix < job.columns; ++ix) {
      animate.build_slice(made.fronts, made.tank, made.run, ix, ix + 1);
    }
  }
  memory.report(state, frame_bytes(job));
}

void point(benchmark::State& state, const ColumnJob& job) {
  const PreparedColumns made(job);
  Base::Params params;
  params.insert("rate", ColumnJob::rate, "Hz");
  params.insert("x", 19.0, "m");
  params.insert("y", 1.0, "m");
  params.insert("delta_angle", 0.1, "rad");
  Synthesis::TwoD two_d;
  const Bench::PeakMemory memory;
  for (auto _ : state) {
    Maths::TankRun tank_run(made.tank, made.run);
    two_d.build(made.fronts, tank_run, Synthesis::fit_point(params, made.run), params);
    benchmark::DoNotOptimize(two_d.data(0).data());
  }
  memory.report(state, sizeof(double) * (job.samples + 3 * (job.samples / 2 + 1)));
}

// One plan for all transforms of a job.
class Transform {
 public:
  explicit Transform(std::size_t samples) : spectrum_(samples / 2 + 1), series_(samples) {
    auto* const input = reinterpret_cast<fftw_complex*>(spectrum_.data());
    plan_ = fftw_plan_dft_c2r_1d(static_cast<int>(samples), input, series_.data(), FFTW_ESTIMATE);
  }
  ~Transform() { fftw_destroy_plan(plan_); }
  Transform(const Transform&) = delete;
  Transform& operator=(const Transform&) = delete;
  const std::vector<double>& run() {
    fftw_execute(plan_);
    benchmark::ClobberMemory();
    return series_;
  }

 private:
  std::vector<std::complex<double>> spectrum_;
  std::vector<double> series_;
  fftw_plan plan_ = nullptr;
};

// The sines and cosines of `count` terms at a time.
class Terms {
 public:
  explicit Terms(std::size_t count) : angles_(count, 0.5), sines_(count), cosines_(count) {}
  void take() {
    Base::sine_cosine(angles_.data(), angles_.size(), sines_.data(), cosines_.data());
    benchmark::DoNotOptimize(sines_.data());
    benchmark::DoNotOptimize(cosines_.data());
    benchmark::ClobberMemory();
  }

 private:
  std::vector<double> angles_;
  std::vector<double> sines_;
  std::vector<double> cosines_;
};

void animation_floor(benchmark::State& state, const ColumnJob& job, bool fresh) {
  Transform transform(job.samples);
  Terms terms(PreparedColumns(job).terms);
  const std::size_t points = job.columns * (job.straight() ? 1 : job.rows);
  std::vector<std::vector<std::int16_t>> frames(job.samples);
  for (auto _ : state) {
    for (std::size_t i = 0; i < points; ++i) {
      terms.take();
      transform.run();
    }
    if (fresh) std::vector<std::vector<std::int16_t>>(job.samples).swap(frames);
    for (auto& frame : frames) frame.assign(job.columns * job.rows, 1);
    benchmark::DoNotOptimize(frames.data());
    benchmark::ClobberMemory();
  }
}

void point_floor(benchmark::State& state, const ColumnJob& job) {
  Transform transform(job.samples);
  Terms terms(PreparedColumns(job).terms);
  std::vector<double> time;
  std::vector<double> spectrum;
  std::vector<double> variance;
  for (auto _ : state) {
    terms.take();
    time = transform.run();
    spectrum.assign(job.samples / 2 + 1, 1.0);
    variance.assign(job.samples / 2 + 1, 1.0);
    benchmark::ClobberMemory();
  }
}

template <typename Work>
void entry(const std::string& name, Work work) {
  benchmark::RegisterBenchmark(name.c_str(), work)->Unit(benchmark::kMillisecond);
}

void animations(const std::string& name, const ColumnJob& job) {
  const std::string prefix = "animation, " + name;
  using State = benchmark::State;
  entry(prefix + ", whole/library", [job](State& s) { whole(s, job, false); });
  entry(prefix + ", whole/floor", [job](State& s) { animation_floor(s, job, false); });
  entry(prefix + ", whole, new frames/library", [job](State& s) { whole(s, job, true); });
  entry(prefix + ", whole, new frames/floor", [job](State& s) { animation_floor(s, job, true); });
  entry(prefix + ", slices/library", [job](State& s) { slices(s, job); });
  entry(prefix + ", slices/floor", [job](State& s) { animation_floor(s, job, false); });
}

// One worker against two, by the clock, which needs two processors of their own. The processor time
// is that of all threads.
void animation_workers(const std::string& name, const ColumnJob& job) {
  for (const unsigned workers : {1U, 2U}) {
    const std::string title = "animation, " + name + ", workers: " + std::to_string(workers);
    benchmark::RegisterBenchmark(title.c_str(),
                                 [=](benchmark::State& s) { whole(s, job, false, workers); })
        ->Unit(benchmark::kMillisecond)
        ->MeasureProcessCPUTime()
        ->UseRealTime();
  }
}

void points(const std::string& name, const ColumnJob& job) {
  entry("point, " + name + "/library", [job](benchmark::State& s) { point(s, job); });
  entry("point, " + name + "/floor", [job](benchmark::State& s) { point_floor(s, job); });
}

}  // namespace

int main(int argc, char** argv) {
  animations("31 directions", {8192, 31});
  animations("uniform", {8192, 1});
  animations("31 directions on a slope", {8192, 31, slope});
  animations("uniform on a slope", {8192, 1, slope});
  animation_workers("31 directions", {8192, 31});
  animation_workers("uniform", {8192, 1});
  animation_workers("31 directions on a slope", {8192, 31, slope});
  points("31 directions", {32768, 31});
  points("1 front", {32768, 1});
  points("31 directions on a slope", {32768, 31, slope});
  points("1 front on a slope", {32768, 1, slope});
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
