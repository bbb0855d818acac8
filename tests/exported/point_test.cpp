// The wave at a point, as a host reads it.
#include <cmath>
#include <limits>
#include <numbers>

#include "run_fixture.h"
#include "support/wave_group.h"
#include "support/wave_number.h"

namespace {

using Testing::RunHostTest;
using Testing::WaveGroup;

constexpr double pi = std::numbers::pi;

class Point : public RunHostTest {
 protected:
  void SetUp() override {
    experiment = basin();
    make_tree();
  }

  // A run of 10 s with one wave of 0.5 Hz, not built.
  void make_tree() {
    make_run();
    set_run(10);
    set_place(0, 0, 0);
    wave = add_single();
    set_wave(0.5, 0.05, 0.3);
  }
  void set_wave(double f, double a, double angle) { set_single(wave, f, a, angle, 0); }
  void build_run() { ASSERT_EQ(thrown_by_run_build(), Thrown{}); }
  Thrown thrown_by_build(jlong values) {
    return thrown_by(NATIVE(Kelpbox_1Experiment_1twod_1build), experiment, proxy, run, values,
                     proxy);
  }
  Thrown thrown_by_stats(jlong values) {
    return thrown_by(NATIVE(Kelpbox_1Experiment_1twod_1stats), experiment, proxy, run, values,
                     proxy);
  }
  Thrown thrown_by_data(jlong id, jint which) {
    return thrown_by(NATIVE(Kelpbox_1Experiment_1twod_1data), experiment, proxy, id, which);
  }
  jlong point(double rate, double x, double y, double delta_angle) {
    return params(
        {{"rate", rate, "Hz"}, {"x", x, "m"}, {"y", y, "m"}, {"delta_angle", delta_angle, "rad"}});
  }
  jlong data(jint which) {
    return host.call(NATIVE(Kelpbox_1Experiment_1twod_1data), experiment, proxy, run, which);
  }

  jlong wave = 0;
};

TEST_F(Point, TheFourResultsAreRead) {
  build_run();
  for (jint which = 0; which < 4; ++which) EXPECT_TRUE(values_of(data(which)).empty());
  const jlong values = point(50, 0, 2, pi / 6);
  ASSERT_EQ(thrown_by_build(values), Thrown{});

  const std::vector<double> eta = values_of(data(0));
  ASSERT_EQ(eta.size(), 500u);
  // At the paddle line there is only a crosswise phase.
  const double k = Testing::exact_wave_number(pi, 1.0);
  for (std::size_t j = 0; j < eta.size(); ++j) {
    const double t = static_cast<double>(j) / 50;
    EXPECT_NEAR(eta[j], 0.05 * std::cos(pi * t - k * 2 * std::sin(0.3)), 0.05 * 1e-4);
  }
  const std::vector<double> spectrum = values_of(data(1));
  const std::vector<double> variance = values_of(data(2));
  ASSERT_EQ(spectrum.size(), 251u);
  ASSERT_EQ(variance.size(), 251u);
  EXPECT_NEAR(spectrum[5], 0.05, 1e-15);
  EXPECT_NEAR(variance[5], 0.05 * 0.05 / 2 * 10, 1e-15);
  const std::vector<double> direction = values_of(data(3));
  ASSERT_EQ(direction.size(), 12u);
  EXPECT_NEAR(direction[1], 1.0, 1e-15);
}

TEST_F(Point, TheResultsBelongToTheDefinitionAndAreRefilled) {
  build_run();
  ASSERT_EQ(thrown_by_build(point(50, 1, 0, 1)), Thrown{});
  const jlong time = data(0);
  ASSERT_EQ(thrown_by_build(point(20, 1, 0, 1)), Thrown{});
  EXPECT_EQ(data(0), time);
  EXPECT_EQ(values_of(time).size(), 200u);
}

TEST_F(Point, RateAndSectorAreWrittenBackAsFitted) {
  build_run();
  const jlong values =
      params({{"rate", 1.26, "Hz"}, {"x", 1, "m"}, {"y", 0, "m"}, {"delta_angle", 0.9, "rad"}});
  ASSERT_EQ(thrown_by_build(values), Thrown{});
  EXPECT_EQ(value(values, "rate", "Hz"), 1.3);
  EXPECT_EQ(comments(values), std::vector<std::string>{"Warning::Poor match"});
  EXPECT_NEAR(value(values, "delta_angle", "rad"), 2 * pi / 7, 1e-15);
}

TEST_F(Point, StatisticsAreAddedToTheParameters) {
  set_wave(0.8, 0.05, 0.3);
  build_run();
  const jlong regular = params({{"rate", 50, "Hz"}, {"x", 100, "cm"}, {"y", 0, "m"}});
  ASSERT_EQ(thrown_by_stats(regular), Thrown{});
  EXPECT_EQ(names(regular),
            (std::vector<std::string>{"Hs", "Ts", "Var", "rate", "reg_h", "reg_t", "x", "y"}));
  EXPECT_NEAR(value(regular, "reg_t", "s"), 1.25, 1e-3);
  EXPECT_NEAR(value(regular, "reg_h", "cm"), 10, 0.03);
  EXPECT_NEAR(value(regular, "Hs", "m"), 2 * std::sqrt(2.0) * 0.05, 1e-12);
  EXPECT_NEAR(value(regular, "Ts", "s"), 1.25, 1e-12);
  EXPECT_NEAR(value(regular, "Var", ""), std::sqrt(0.05 / std::sqrt(2.0)), 1e-12);
  // A second time they are duplicates.
  EXPECT_EQ(thrown_by_stats(regular), domain("\"reg_t\"::Duplicate parameter:"));
}

TEST_F(Point, AnIrregularSeaHasASignificantAndAHighestWave) {
  set_single(wave, 0.5, WaveGroup::amp, 0, WaveGroup::phase_of_5);
  set_single(add_single(), 0.8, WaveGroup::amp, 0, WaveGroup::phase_of_8);
  build_run();
  const jlong sea = params({{"rate", WaveGroup::rate, "Hz"}, {"x", 0, "m"}, {"y", 0, "m"}});
  ASSERT_EQ(thrown_by_stats(sea), Thrown{});
  EXPECT_EQ(names(sea), (std::vector<std::string>{"Hs", "Ts", "Var", "max_amp", "rate", "sig_h",
                                                  "sig_t", "x", "y"}));
  const std::vector<WaveGroup::Wave> waves = WaveGroup::waves();
  ASSERT_EQ(waves.size(), 8u);
  EXPECT_NEAR(value(sea, "sig_h", "m"), waves[5].height, 1e-12);
  EXPECT_NEAR(value(sea, "sig_t", "s"), waves[5].period, 2 * WaveGroup::crossing_error);
  EXPECT_NEAR(value(sea, "max_amp", "m"), waves[7].height, 1e-12);
}

TEST_F(Point, StatisticsNeedSixWaves) {
  build_run();
  EXPECT_EQ(thrown_by_stats(params({{"rate", 50, "Hz"}, {"x", 1, "m"}, {"y", 0, "m"}})),
            domain("Insufficient zero crossings in time series"));
  EXPECT_EQ(thrown_by_stats(params()), domain("rate::Not found"));
}

TEST_F(Point, UnknownDataIsRefused) {
  for (const jint which : {4, -1, 1000000}) {
    EXPECT_EQ(thrown_by_data(run, which), domain("Unsupported enum to experiment::twod_data"));
  }
}

TEST_F(Point, EveryOperationNeedsTheIdOfADefinition) {
  const auto check = [&](jlong id, const Thrown& refused) {
    EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1twod_1build), experiment, proxy, id,
                        point(50, 1, 0, 1), proxy),
              refused);
    EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1twod_1stats), experiment, proxy, id,
                        point(50, 1, 0, 1), proxy),
              refused);
    // The ID is checked before the kind of data.
    EXPECT_EQ(thrown_by_data(id, 0), refused);
    EXPECT_EQ(thrown_by_data(id, 4), refused);
  };
  check(99, domain("ID out of range"));
  check(group, domain("Trying to access Definition"));
  host.call(NATIVE(Kelpbox_1Experiment_1remove), experiment, proxy, run);
  check(run, domain("Trying to access Definition"));
}

TEST_F(Point, AnEmptyExperimentHasNoSuchId) {
  experiment = empty_experiment();
  run = 0;
  EXPECT_EQ(thrown_by_build(params()), domain("ID out of range"));
  EXPECT_EQ(thrown_by_stats(params()), domain("ID out of range"));
  EXPECT_EQ(thrown_by_data(0, 4), domain("ID out of range"));
}

TEST_F(Point, NullParametersAreRefused) {
  EXPECT_EQ(thrown_by_build(0), null_pointer("Base::Params & reference is null"));
  EXPECT_EQ(thrown_by_stats(0), null_pointer("Base::Params & reference is null"));
}

TEST_F(Point, FailuresArriveWithTheirMessages) {
  build_run();
  EXPECT_EQ(thrown_by_build(params()), domain("rate::Not found"));
  EXPECT_EQ(thrown_by_build(params({{"rate", 50, "Hz"}})), domain("x::Not found"));
  EXPECT_EQ(thrown_by_build(params({{"rate", 50, "s"}})), domain("rate::not convertable"));
  EXPECT_EQ(thrown_by_build(point(50, 31, 0, 1)),
            domain("Value x=31 is outside dimensions of tank"));
  EXPECT_EQ(thrown_by_build(point(50, -0.5, 0, 1)),
            domain("Value x=-0.5 is outside dimensions of tank"));
  EXPECT_EQ(thrown_by_build(point(50, 1, 0, 1e-6)), domain("Value of delta_angle too small"));
  EXPECT_EQ(thrown_by_build(point(50, 1, 0, 13)), domain("invalid vector<T> subscript"));
  EXPECT_EQ(thrown_by_build(point(-50, 1, 0, 1)),
            domain("rate::-50 Hz gives no usable number of samples in a repeat time of 10 s"));
  EXPECT_EQ(thrown_by_build(point(50, 1, 0, std::numeric_limits<double>::quiet_NaN())),
            domain("delta_angle::nan rad gives no usable number of direction sectors"));
}

TEST_F(Point, ADefinitionThatWasNotSetHasNoRepeatTime) {
  run = host.call(NATIVE(Kelpbox_1Experiment_1add_1definition), experiment, proxy, "bare");
  EXPECT_EQ(thrown_by_build(point(50, 1, 0, 1)), domain("Repeat time zero or less"));
}

TEST_F(Point, ARunWithoutFrontsGivesStillWater) {
  ASSERT_EQ(thrown_by_build(point(50, 1000, 0, 1)), Thrown{});
  EXPECT_EQ(values_of(data(0)), std::vector<double>(500));
  EXPECT_EQ(values_of(data(3)), std::vector<double>(6));
}

TEST_F(Point, ASiteWithoutATankIsReportedAfterTheFixedMessage) {
  build_run();
  unmake_tank();
  EXPECT_EQ(thrown_by_build(point(50, 1, 0, 1)),
            domain("Uncaught Exception in 2D Build: "
                   "Attempting to access TankConfig when not made ready"));
  EXPECT_EQ(thrown_by_stats(point(50, 1, 0, 1)),
            domain("Uncaught Exception in Stats Build: "
                   "Attempting to access TankConfig when not made ready"));
}

}  // namespace
