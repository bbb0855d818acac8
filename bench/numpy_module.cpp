// The jobs that numpy_jobs.py compares with numpy, for Python's ctypes: both then run in one
// process, in turns, and their results can be compared.
#include <array>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "animation/animate.h"
#include "column_job.h"
#include "drive_job.h"
#include "facade/facade.h"
#include "quiet.h"
#include "record_sea.h"
#include "warm_memory.h"

// Visible although the project hides its symbols.
#define KELPBOX_BENCH_EXPORT extern "C" __attribute__((visibility("default")))

namespace {

struct Job {
  Job() = default;
  virtual ~Job() = default;
  Job(const Job&) = delete;
  Job& operator=(const Job&) = delete;
  virtual void prepare() {}  // not measured
  virtual void run() = 0;
  // A signal, a frame, or the results of an analysis.
  virtual const void* result(std::size_t index) = 0;
};

class Drive : public Job {
 public:
  Drive(std::size_t paddles, std::size_t samples, std::size_t fronts)
      : made_({paddles, samples, fronts}) {}
  void run() override {
    motion_.init(made_.tank, made_.run, made_.params);
    motion_.build(made_.bank, made_.fronts);
  }
  const void* result(std::size_t paddle) override { return motion_.series()[paddle].data(); }

 private:
  Bench::PreparedDrive made_;
  Synthesis::BankMotion motion_;
};

class Animation : public Job {
 public:
  Animation(std::size_t columns, std::size_t samples, std::size_t fronts)
      : job_{samples, fronts, 1, columns}, made_(job_), grid_(Bench::column_grid(job_)) {}
  void run() override {
    const Bench::Quiet quiet;
    animate_.build(made_.fronts, made_.tank, made_.run, grid_);
  }
  const void* result(std::size_t t) override {
    return animate_.frames().data(static_cast<std::uint32_t>(t)).data();
  }

 private:
  Bench::ColumnJob job_;
  Bench::PreparedColumns made_;
  Base::Params grid_;
  Synthesis::Animate animate_;
};

// From a host's record to its results. Result 0 is the record, result 1 period and height.
class Crossings : public Job {
 public:
  Crossings(const char* site, std::size_t samples) : record_(Bench::record_sea(samples, 0.0)) {
    const Bench::Quiet quiet;
    static_cast<Kelpbox::Experiment&>(tank_).initialise(site);
  }
  void prepare() override { Bench::warm_up(4 * record_.size() * sizeof(double)); }
  void run() override {
    const Bench::Quiet quiet;
    Base::Params params;
    params.insert("rate", Bench::record_rate, "Hz");
    params.insert("start_time", 0.0, "s");
    params.insert("stop_time", static_cast<double>(record_.size()) / Bench::record_rate, "s");
    Kelpbox::Analysis& analysis = tank_;
    const std::uint32_t set = analysis.create_set(params, {analysis.add_series(params, record_)});
    Base::Params tunable;
    static_cast<Kelpbox::SiteFacade&>(static_cast<Kelpbox::Experiment&>(tank_)).query(tunable);
    analysis.set(tunable);
    const std::uint32_t process = analysis.create_process(set, 0);
    Base::Params results;
    analysis.get_results(process, params, results);
    results_ = {results.get("sig_t", "s"), results.get("sig_h", "m")};
  }
  const void* result(std::size_t index) override {
    return index == 0 ? record_.data() : results_.data();
  }

 private:
  Kelpbox::Facade tank_;
  std::vector<double> record_;
  std::array<double, 2> results_{};
};

template <typename Make>
Job* made_by(Make make) {
  try {
    return make();
  } catch (const std::string& message) {
    std::cerr << message << "\n";
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << "\n";
  }
  return nullptr;
}

}  // namespace

KELPBOX_BENCH_EXPORT Job* bench_drive(std::size_t paddles, std::size_t samples,
                                      std::size_t fronts) {
  return made_by([=] { return new Drive(paddles, samples, fronts); });
}

KELPBOX_BENCH_EXPORT Job* bench_animation(std::size_t columns, std::size_t samples,
                                          std::size_t fronts) {
  return made_by([=] { return new Animation(columns, samples, fronts); });
}

KELPBOX_BENCH_EXPORT Job* bench_crossings(const char* site, std::size_t samples) {
  return made_by([=] { return new Crossings(site, samples); });
}

KELPBOX_BENCH_EXPORT void bench_prepare(Job* job) { job->prepare(); }
KELPBOX_BENCH_EXPORT void bench_run(Job* job) { job->run(); }
KELPBOX_BENCH_EXPORT const void* bench_result(Job* job, std::size_t i) { return job->result(i); }
KELPBOX_BENCH_EXPORT void bench_end(Job* job) { delete job; }
