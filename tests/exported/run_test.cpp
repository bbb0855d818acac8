// From a site script to the signal of a paddle.
#include <cmath>
#include <numbers>

#include "run_fixture.h"
#include "support/test_run.h"
#include "support/test_site.h"
#include "support/thrown_item.h"

namespace {

using Testing::RunHostTest;
using Testing::wave_number;

constexpr double pi = std::numbers::pi;

class Run : public RunHostTest {
 protected:
  void SetUp() override {
    experiment = basin();
    make_tree();
  }

  // A definition, a specification and a single wave, none of them set.
  void make_tree() {
    make_run();
    wave = add_single();
  }
  void set_wave(double f, double a, double angle, double phase) {
    set_single(wave, f, a, angle, phase);
  }
  void set_all() {
    set_run(10);
    set_place(0, 0, 0);
    set_wave(0.5, 0.05, 0.3, 0.4);
  }
  Thrown thrown_by_motion(double rate) {
    return thrown_by(NATIVE(Kelpbox_1Experiment_1paddle_1motion_1build), experiment, proxy, run,
                     params({{"rate", rate, "Hz"}}), proxy);
  }
  std::vector<double> signal(jlong bank, jlong paddle) {
    return values_of(host.call(NATIVE(Kelpbox_1Experiment_1paddle_1motion_1data), experiment, proxy,
                               run, bank, paddle));
  }
  std::vector<std::string> messages() {
    const jlong strings =
        own(host.call(NATIVE(Kelpbox_1Experiment_1messages), experiment, proxy, run),
            NATIVE(delete_1Kelpbox_1StdVectorString));
    const jlong size = host.call(NATIVE(Kelpbox_1StdVectorString_1size), strings, proxy);
    std::vector<std::string> result;
    for (jint i = 0; i < size; ++i) {
      result.push_back(string_from(NATIVE(Kelpbox_1StdVectorString_1get), strings, proxy, i));
    }
    return result;
  }

  jlong wave = 0;
};

// The motion of a paddle for one wave of angle theta. The ratio is that of wave height to motion.
double motion(double t, double omega, double k, double amp, double theta, double phase, double x,
              double y, double normal, double ratio) {
  const double width = 0.5;
  const double d = theta - normal;
  const double v = std::abs(std::sin(d) * k * width / 2);
  const double obliquity = std::cos(d) * v / std::sin(v);
  const double lag = k * (x * std::cos(theta) + y * std::sin(theta));
  return amp / ratio * obliquity * std::cos(omega * t + phase - lag - pi / 2);
}

TEST_F(Run, OneWaveMovesEachPaddleByLinearTheory) {
  set_all();
  ASSERT_EQ(thrown_by_run_build(), Thrown{});
  ASSERT_EQ(thrown_by_motion(50), Thrown{});

  const double omega = pi;  // of 0.5 Hz
  const double depth = 1.0;
  const double k = wave_number(omega, depth);
  const double piston = Testing::theory_ratio(k, depth, depth, false);
  // The hinge is 0.25 m above the bed.
  const double flap = Testing::theory_ratio(k, depth, 0.75, true);

  const auto lower = signal(0, 0);
  const auto upper = signal(0, 1);
  const auto south = signal(1, 0);
  ASSERT_EQ(lower.size(), 500u);
  ASSERT_EQ(upper.size(), 500u);
  ASSERT_EQ(south.size(), 500u);
  for (std::size_t j = 0; j < 500; ++j) {
    const double t = static_cast<double>(j) / 50;
    EXPECT_NEAR(lower[j], motion(t, omega, k, 0.05, 0.3, 0.4, 0, -0.25, 0, piston), 1e-9);
    EXPECT_NEAR(upper[j], motion(t, omega, k, 0.05, 0.3, 0.4, 0, 0.75, 0, piston), 1e-9);
    EXPECT_NEAR(south[j], motion(t, omega, k, 0.05, 0.3, 0.4, 3, -5, 1.5, flap), 1e-9);
  }
}

TEST_F(Run, TheRunIsReadBack) {
  set_all();
  set_place(0, 2, 1.5);
  ASSERT_EQ(thrown_by_run_build(), Thrown{});
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Experiment_1run_1size), experiment, proxy, run), 1);

  const jlong grid = host.call(NATIVE(Kelpbox_1Experiment_1repeat), experiment, proxy, run);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1RunData_1value), grid, proxy), 10.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1RunData_1size), grid, proxy), 21);

  const jlong position =
      host.call(NATIVE(Kelpbox_1Experiment_1position), experiment, proxy, run, 0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Position_1get_1x), position, proxy), 0.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Position_1get_1y), position, proxy), 2.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Position_1get_1t), position, proxy), 1.5);
  EXPECT_TRUE(messages().empty());
}

TEST_F(Run, FrontsAreReadInThreeForms) {
  set_all();
  set_place(0, 0, 1.5);
  ASSERT_EQ(thrown_by_run_build(), Thrown{});

  const jlong sets =
      host.call(NATIVE(Kelpbox_1Experiment_1fronts_1_1SWIG_11), experiment, proxy, run, JNI_FALSE);
  ASSERT_EQ(host.call(NATIVE(Kelpbox_1StdVectorFront_1size), sets, proxy), 1);
  const jlong given = host.call(NATIVE(Kelpbox_1StdVectorFront_1get), sets, proxy, 0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Front_1get_1freq), given, proxy), 0.5);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Front_1get_1amp), given, proxy), 0.05);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Front_1get_1phase), given, proxy), 0.4);

  // The merged front is referred to the paddles at t = 0.
  const jlong merged =
      host.call(NATIVE(Kelpbox_1Experiment_1fronts_1_1SWIG_12), experiment, proxy, run);
  const jlong front = host.call(NATIVE(Kelpbox_1StdVectorFront_1get), merged, proxy, 0);
  EXPECT_NEAR(host.call(NATIVE(Kelpbox_1Front_1get_1amp), front, proxy), 0.05, 1e-12);
  EXPECT_NEAR(host.call(NATIVE(Kelpbox_1Front_1get_1angle), front, proxy), 0.3, 1e-12);
  EXPECT_NEAR(
      std::remainder(host.call(NATIVE(Kelpbox_1Front_1get_1phase), front, proxy) - (0.4 - 1.5 * pi),
                     2 * pi),
      0.0, 1e-12);

  // The next call refills the same vector.
  EXPECT_EQ(merged, sets);
  EXPECT_EQ(
      host.call(NATIVE(Kelpbox_1Experiment_1fronts_1_1SWIG_11), experiment, proxy, run, JNI_TRUE),
      merged);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1StdVectorFront_1size), merged, proxy), 1);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Front_1get_1angle),
                      host.call(NATIVE(Kelpbox_1StdVectorFront_1get), merged, proxy, 0), proxy),
            host.call(NATIVE(Kelpbox_1Front_1get_1angle), front, proxy));

  const jlong transfer =
      host.call(NATIVE(Kelpbox_1Experiment_1fronts_1_1SWIG_10), experiment, proxy, run, 0);
  EXPECT_NE(transfer, merged);
  ASSERT_EQ(host.call(NATIVE(Kelpbox_1StdVectorTransferFront_1size), transfer, proxy), 1);
  const jlong one = host.call(NATIVE(Kelpbox_1StdVectorTransferFront_1get), transfer, proxy, 0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1TransferFront_1get_1harmonic), one, proxy), 5);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1TransferFront_1get_1amp), one, proxy), 0.05);
}

TEST_F(Run, AnIndexOutsideTheRunIsRefused) {
  set_all();
  ASSERT_EQ(thrown_by_run_build(), Thrown{});
  const Thrown refused = domain("invalid vector<T> subscript");
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1position), experiment, proxy, run, 1), refused);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1fronts_1_1SWIG_10), experiment, proxy, run, 1),
            refused);
}

TEST_F(Run, CommentsOnTheRunAreMessages) {
  set_all();
  set_wave(0.512, 0.05, 0, 0);
  ASSERT_EQ(thrown_by_run_build(), Thrown{});
  EXPECT_EQ(messages(), std::vector<std::string>{
                            "Single frequency 0.512Hz altered to 0.5Hz to fit repeat time"});
}

TEST_F(Run, AChangeTakesEffectAtTheNextBuild) {
  set_all();
  ASSERT_EQ(thrown_by_run_build(), Thrown{});
  ASSERT_EQ(thrown_by_motion(50), Thrown{});
  const auto before = signal(0, 0);
  set_wave(0.5, 0.1, 0.3, 0.4);
  ASSERT_EQ(thrown_by_motion(50), Thrown{});
  EXPECT_EQ(signal(0, 0), before);
  ASSERT_EQ(thrown_by_run_build(), Thrown{});
  EXPECT_EQ(signal(0, 0), before);
  ASSERT_EQ(thrown_by_motion(50), Thrown{});
  const auto after = signal(0, 0);
  for (std::size_t j = 0; j < before.size(); ++j) EXPECT_NEAR(after[j], 2 * before[j], 1e-12);
}

TEST_F(Run, WhatHasNotBeenSetIsReported) {
  EXPECT_EQ(thrown_by_run_build(), domain("Evaluate before setting state"));
  set_run(10);
  EXPECT_EQ(thrown_by_run_build(), domain("Evaluating specification before values set"));
  set_place(0, 0, 0);
  EXPECT_EQ(thrown_by_run_build(), domain("Single::evaluate::when not ready"));
  set_wave(0.5, 0.05, 0, 0);
  EXPECT_EQ(thrown_by_run_build(), Thrown{});
}

TEST_F(Run, AnEmptyDefinitionHasAnEmptyRun) {
  run = host.call(NATIVE(Kelpbox_1Experiment_1add_1definition), experiment, proxy, "empty");
  set_run(10);
  EXPECT_EQ(thrown_by_run_build(), Thrown{});
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Experiment_1run_1size), experiment, proxy, run), 0);
}

TEST_F(Run, RemovedItemsAreNotInTheNextRun) {
  set_all();
  const auto remove = NATIVE(Kelpbox_1Experiment_1remove);
  host.call(remove, experiment, proxy, wave);
  ASSERT_EQ(thrown_by_run_build(), Thrown{});
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Experiment_1run_1size), experiment, proxy, run), 1);
  const jlong fronts =
      host.call(NATIVE(Kelpbox_1Experiment_1fronts_1_1SWIG_12), experiment, proxy, run);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1StdVectorFront_1size), fronts, proxy), 0);

  host.call(remove, experiment, proxy, group);
  ASSERT_EQ(thrown_by_run_build(), Thrown{});
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Experiment_1run_1size), experiment, proxy, run), 0);
}

TEST_F(Run, EveryOperationNeedsTheIdOfADefinition) {
  const jlong set = params({{"rate", 50, "Hz"}});
  const auto check = [&](jlong id, const Thrown& refused) {
    EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1run_1build), experiment, proxy, id), refused);
    EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1run_1size), experiment, proxy, id), refused);
    EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1repeat), experiment, proxy, id), refused);
    EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1position), experiment, proxy, id, 0), refused);
    EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1fronts_1_1SWIG_10), experiment, proxy, id, 0),
              refused);
    EXPECT_EQ(
        thrown_by(NATIVE(Kelpbox_1Experiment_1fronts_1_1SWIG_11), experiment, proxy, id, JNI_TRUE),
        refused);
    EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1fronts_1_1SWIG_12), experiment, proxy, id),
              refused);
    EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1messages), experiment, proxy, id), refused);
    EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1paddle_1motion_1build), experiment, proxy, id,
                        set, proxy),
              refused);
    EXPECT_EQ(
        thrown_by(NATIVE(Kelpbox_1Experiment_1paddle_1motion_1data), experiment, proxy, id, 0, 0),
        refused);
    EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1paddle_1motion_1stats), experiment, proxy, id,
                        0, set, proxy),
              refused);
  };
  check(99, domain("ID out of range"));
  check(group, domain("Trying to access Definition"));
  check(wave, domain("Trying to access Definition"));
  host.call(NATIVE(Kelpbox_1Experiment_1remove), experiment, proxy, run);
  check(run, domain("Trying to access Definition"));
}

TEST_F(Run, TheIdIsCheckedBeforeTheSite) {
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1run_1build), empty_experiment(), proxy, 0),
            domain("ID out of range"));
}

TEST_F(Run, ASiteWithoutATankMustBeSetBeforeARun) {
  set_all();
  ASSERT_EQ(thrown_by_run_build(), Thrown{});
  unmake_tank();
  EXPECT_EQ(thrown_by_run_build(), domain("Building run when context not ready"));
  // The site is checked before the type of the item.
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1run_1build), experiment, proxy, group),
            domain("Building run when context not ready"));
  // The paddle motion has no guard.
  EXPECT_EQ(Testing::thrown_item([&] { thrown_by_motion(50); }),
            "item: General: context::Error::Attempting to access TankConfig when not made ready");

  const jlong tuned = params({{"beach", 0.5, "m"}, {"delay", 30, "msec"}});
  host.call(NATIVE(Kelpbox_1Experiment_1set), experiment, proxy, tuned, proxy);
  EXPECT_EQ(thrown_by_run_build(), Thrown{});
}

TEST_F(Run, BanksWithoutMotionAreRefused) {
  const Thrown refused = domain("Bank out of range or paddle_motion not built");
  const auto data = NATIVE(Kelpbox_1Experiment_1paddle_1motion_1data);
  const auto stats = NATIVE(Kelpbox_1Experiment_1paddle_1motion_1stats);
  EXPECT_EQ(thrown_by(data, experiment, proxy, run, 0, 0), refused);
  EXPECT_EQ(thrown_by(stats, experiment, proxy, run, 0, params(), proxy), refused);
  set_all();
  ASSERT_EQ(thrown_by_run_build(), Thrown{});
  ASSERT_EQ(thrown_by_motion(50), Thrown{});
  EXPECT_EQ(thrown_by(data, experiment, proxy, run, 2, 0), refused);
  EXPECT_EQ(thrown_by(stats, experiment, proxy, run, 2, params(), proxy), refused);
}

TEST_F(Run, MotionNeedsARate) {
  set_all();
  ASSERT_EQ(thrown_by_run_build(), Thrown{});
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1paddle_1motion_1build), experiment, proxy, run,
                      params(), proxy),
            domain("rate::Not found"));
}

TEST_F(Run, StatisticsReportOnlyClipping) {
  const auto stats = NATIVE(Kelpbox_1Experiment_1paddle_1motion_1stats);
  set_all();
  ASSERT_EQ(thrown_by_run_build(), Thrown{});
  ASSERT_EQ(thrown_by_motion(50), Thrown{});
  const jlong calm = params({{"old", 1, "m"}});
  host.call(stats, experiment, proxy, run, 0, calm, proxy);
  EXPECT_TRUE(names(calm).empty());

  set_wave(0.5, 2.0, 0, 0);
  ASSERT_EQ(thrown_by_run_build(), Thrown{});
  ASSERT_EQ(thrown_by_motion(50), Thrown{});
  const jlong rough = params();
  host.call(stats, experiment, proxy, run, 0, rough, proxy);
  EXPECT_EQ(names(rough), (std::vector<std::string>{"clip_peak_ratio", "clip_power_ratio"}));
  EXPECT_EQ(value(rough, "clip_peak_ratio", ""), 1.0);
}

TEST_F(Run, ATimeSeriesReadsTheHostsVector) {
  // Four periods of a wave in the repeat time: harmonic 4.
  std::vector<double> samples(1000);
  for (std::size_t j = 0; j < samples.size(); ++j) {
    samples[j] = 0.02 * std::cos(2 * pi * 4 * static_cast<double>(j) / 1000);
  }
  const jlong eta =
      own(host.call(NATIVE(new_1Kelpbox_1Vector), "eta", "m", doubles(samples), proxy),
          NATIVE(delete_1Kelpbox_1Vector));
  host.call(NATIVE(Kelpbox_1Experiment_1remove), experiment, proxy, wave);
  wave =
      host.call(NATIVE(Kelpbox_1Experiment_1add_1timeseries), experiment, proxy, group, eta, proxy);
  set_run(10);
  set_place(0, 0, 0);
  const jlong values = params({{"scale_ratio", 1, ""}, {"rate", 100, "Hz"}, {"ramp_time", 0, "s"}});
  insert_enum(values, "ramp_type", "Null", "Ramp");
  set(wave, values);
  ASSERT_EQ(thrown_by_run_build(), Thrown{});

  const jlong list =
      host.call(NATIVE(Kelpbox_1Experiment_1fronts_1_1SWIG_10), experiment, proxy, run, 0);
  const jlong size = host.call(NATIVE(Kelpbox_1StdVectorTransferFront_1size), list, proxy);
  double amplitude = 0;
  for (jint i = 0; i < size; ++i) {
    const jlong front = host.call(NATIVE(Kelpbox_1StdVectorTransferFront_1get), list, proxy, i);
    if (host.call(NATIVE(Kelpbox_1TransferFront_1get_1harmonic), front, proxy) == 4) {
      amplitude = host.call(NATIVE(Kelpbox_1TransferFront_1get_1amp), front, proxy);
    }
  }
  EXPECT_NEAR(amplitude, 0.02, 1e-12);
}

}  // namespace
