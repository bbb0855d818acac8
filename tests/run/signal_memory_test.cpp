// The memory that signals use, in components, in a modifier and at a point.
#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "point/point_stats.h"
#include "sea/phase_noise.h"
#include "sea/time_exp.h"
#include "sea/time_series.h"
#include "support/own_process.h"
#include "support/test_run.h"
#include "support/thrown.h"

namespace {

using Testing::peak_memory;
using Testing::rate_params;
using Testing::Site;
using Testing::thrown;

// A run of 16 samples a second, and its fronts between 0.1 and 0.2 Hz.
struct SampledRun {
  explicit SampledRun(double samples) {
    data.init(samples / 16, 16.0, 0.1, 0.2, false);
    fronts.reset(data.size());
  }
  void fill() {
    for (std::size_t h = data.harmonic(1); h < fronts.slots.size(); ++h) {
      fronts.slots[h] = {{1e-4 * static_cast<double>(h % 3 + 1), 0.1, 0.3}};
    }
  }
  Maths::RunData data;
  Maths::FrontSet fronts;
  Synthesis::Messages messages;
};

void evaluate_time_exp(SampledRun& run) {
  Synthesis::TimeExp wave("wave", "0@s#0.1@m#1000000000@s");
  Base::Params in = rate_params(16.0);
  wave.set(in);
  wave.evaluate(run.fronts, {run.data, {}, run.messages});
}

// A record of 100 samples, which ends in zeros up to the repeat time.
void evaluate_time_series(SampledRun& run) {
  const Base::Vector record("record", Base::default_units(Base::Category::length),
                            std::vector<double>(100, 0.1));
  Synthesis::TimeSeries wave(record);
  Base::Params in = rate_params(16.0);
  in.insert("scale_ratio", 1.0, "");
  in.insert("ramp_time", 0.0, "s");
  in.insert("ramp_type", "Linear", "Ramp");
  wave.set(in);
  wave.evaluate(run.fronts, {run.data, {}, run.messages});
}

void evaluate_noise(SampledRun& run) {
  Synthesis::PhaseWNoiseModifier noise("");
  Base::Params in = rate_params(16.0);
  in.insert("ran_gen", "Default", "RanGen");
  noise.set(in);
  noise.evaluate(run.fronts, {run.data, {}, run.messages});
}

// The peak memory of the work on a run of 2^20 samples, in units of the memory of a signal.
double peak_in_signals(const std::function<void(SampledRun&)>& work) {
  SampledRun run(1 << 20);
  run.fill();
  const double before = peak_memory();
  work(run);
  return (peak_memory() - before) / (8.0 * (1 << 20));
}

// A signal, its spectrum, the tables of the transform, which are at most as large as a signal, and
// half a signal for the rest.
constexpr double few_signals = 3.5;

TEST(SignalMemory, ComponentsAndNoiseHoldASignalOnce) {
  if (Testing::sanitized) GTEST_SKIP() << "the sanitizer's own memory is counted too";
  for (const auto& work : {evaluate_time_exp, evaluate_time_series, evaluate_noise}) {
    EXPECT_TRUE(Testing::good_alone([&] {
      const double peak = peak_in_signals(work);
      return peak > 1.5 && peak < few_signals;
    }));
  }
}

TEST(SignalMemory, StatisticsAtAPointHoldASignalOnce) {
  if (Testing::sanitized) GTEST_SKIP() << "the sanitizer's own memory is counted too";
  EXPECT_TRUE(Testing::good_alone([] {
    Site site;
    return peak_in_signals([&](SampledRun& run) {
             Maths::TankRun tank(site.context().tank_config(), run.data);
             Base::Params params = Testing::point_params(16.0, 1.0, 1.0);
             const Synthesis::PointSpec point = Synthesis::fit_point(params, run.data);
             Synthesis::point_stats(run.fronts, tank, point, params);
           }) < few_signals;
  }));
}

TEST(SignalMemory, AWaveAtAPointHoldsASignalOnceBesidesItsResults) {
  if (Testing::sanitized) GTEST_SKIP() << "the sanitizer's own memory is counted too";
  for (const int builds : {1, 2}) {
    EXPECT_TRUE(Testing::good_alone([&] {
      Site site;
      // The time history counts as the signal. Spectrum and variance are one signal more, the
      // directions half of one.
      return peak_in_signals([&](SampledRun& run) {
               Maths::TankRun tank(site.context().tank_config(), run.data);
               Synthesis::TwoD point_data;
               for (int i = 0; i < builds; ++i) {
                 Base::Params params = Testing::point_params(16.0, 1.0, 1.0);
                 const Synthesis::PointSpec point = Synthesis::fit_point(params, run.data);
                 point_data.build(run.fronts, tank, point, params);
               }
             }) < few_signals + 1.5;
    })) << builds;
  }
}

// Whether a run of 2^24 samples is refused with that message while 150 MB are left, before they are
// used.
bool refused(const std::string& start, const std::function<void(SampledRun&)>& work) {
  return Testing::good_alone([&] {
    SampledRun run(1 << 24);
    Testing::leave_room(1.5e8);
    const double before = peak_memory();
    const std::string text = thrown([&] { work(run); });
    const bool good = text.rfind(start + " GiB of memory, 0.1", 0) == 0 &&
                      text.find(" GiB are available") != std::string::npos &&
                      peak_memory() - before < 1e7;
    if (!good) std::cerr << text << '\n';
    return good;
  });
}

TEST(SignalMemory, SignalsThatTheMachineCannotHoldAreRefused) {
  if (Testing::sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than a limit leaves";
  // 37 bytes per sample and 2 MiB: two values of 8 and the working memory of the transform.
  EXPECT_TRUE(refused("wave::16777216 samples in the signal need 0.58", evaluate_time_exp));
  EXPECT_TRUE(refused("record::16777216 samples in the signal need 0.58", evaluate_time_series));
  EXPECT_TRUE(
      refused("rate::16 Hz gives 16777216 samples of noise, which need 0.58", evaluate_noise));
}

TEST(SignalMemory, APointThatTheMachineCannotHoldIsRefused) {
  if (Testing::sanitized) GTEST_SKIP() << "a sanitizer needs more addresses than a limit leaves";
  Synthesis::TwoD point_data;
  EXPECT_TRUE(refused("rate::16 Hz gives 16777216 samples at the point, which need 0.77",
                      [&](SampledRun& run) {
                        Maths::TankRun tank(Maths::TankConfig(), run.data);
                        Base::Params params = Testing::point_params(16.0, 1.0, 1.0);
                        const Synthesis::PointSpec point = Synthesis::fit_point(params, run.data);
                        point_data.build(run.fronts, tank, point, params);
                      }));
  EXPECT_TRUE(refused("rate::16 Hz gives 16777216 samples at the point, which need 0.58",
                      [&](SampledRun& run) {
                        Maths::TankRun tank(Maths::TankConfig(), run.data);
                        Base::Params params = Testing::point_params(16.0, 1.0, 1.0);
                        const Synthesis::PointSpec point = Synthesis::fit_point(params, run.data);
                        Synthesis::point_stats(run.fronts, tank, point, params);
                      }));
}

}  // namespace
