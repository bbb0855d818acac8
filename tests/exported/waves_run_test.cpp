// tidelab.waves.Native: the tree, and the results of runs.
#include <cmath>
#include <numbers>

#include "support/output.h"
#include "support/own_process.h"
#include "waves_fixture.h"

namespace {

using Testing::printed;
using Testing::WavesTest;

class WavesRun : public WavesTest {
 protected:
  void SetUp() override {
    experiment = basin();
    run = waves.call(WAVES(addDefinition), experiment, bytes("run"));
    group = waves.call(WAVES(addSpecification), experiment, run);
    set_run(10);
    set_place(0, 0, 0);
  }
  jlong fronts(std::vector<double> values) {
    return waves.call(WAVES(addFronts), experiment, group, waves.doubles(std::move(values)));
  }
  // Waves of 0.5 Hz and 1.1 Hz.
  void add_waves() { set(fronts({0.5, 0.05, 0.3, 0.4, 1.1, 0.02, -0.2, 0}), params()); }
  void build_run() { ASSERT_EQ(thrown_by_run_build(), Thrown{}); }
  void build_motion() {
    add_waves();
    build_run();
    const jlong rate = params({{"rate", 50, "Hz"}});
    ASSERT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1paddle_1motion_1build), experiment, proxy, run,
                        rate, proxy),
              Thrown{});
  }
  std::vector<double> motion(jlong bank, jlong paddle) {
    return values_of(host.call(NATIVE(Kelpbox_1Experiment_1paddle_1motion_1data), experiment, proxy,
                               run, bank, paddle));
  }
  void build_animation() {
    const jlong grid = params({{"rate", 20, "Hz"},
                               {"x_step", 1, "m"},
                               {"y_step", 1, "m"},
                               {"x_min", 0, "m"},
                               {"x_max", 3, "m"},
                               {"y_min", -1, "m"},
                               {"y_max", 1, "m"}});
    EXPECT_EQ(
        thrown_by(NATIVE(Kelpbox_1Experiment_1animate_1build), experiment, proxy, run, grid, proxy),
        Thrown{});
  }
};

TEST_F(WavesRun, ItemsAreCountedInOneOrder) {
  EXPECT_EQ(run, 0);
  EXPECT_EQ(group, 1);
  EXPECT_EQ(waves.call(WAVES(addSingle), experiment, group), 2);
  EXPECT_EQ(fronts({}), 3);
  EXPECT_EQ(
      waves.call(WAVES(addSpectrum), experiment, group, bytes("s"), bytes("0.2@Hz#0.01@m2s#1@Hz")),
      4);
  EXPECT_EQ(waves.call(WAVES(addTimeExpression), experiment, group, bytes("e"),
                       bytes("0@s#0.01*sin($[s])@m#5@s")),
            5);
  EXPECT_EQ(waves.call(WAVES(addModifier), experiment, group, bytes("GainAdjust"), bytes("2")), 6);
  const jlong vector =
      own(waves.call(WAVES(newVector), bytes("\xC3\xA9"), bytes("mm"), waves.doubles({1, -2.5})),
          NATIVE(delete_1Kelpbox_1Vector));
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Vector_1size), vector, proxy), 2);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Vector_1getValue), vector, proxy, 1), -2.5);
  EXPECT_EQ(waves.call(WAVES(addTimeSeries), experiment, group, vector), 7);
}

TEST_F(WavesRun, RefusedItemsHaveTheMessagesOfTheLibrary) {
  EXPECT_EQ(thrown_in(WAVES(addSpecification), experiment, 99), domain("ID out of range"));
  EXPECT_EQ(thrown_in(WAVES(addSpecification), experiment, -1), domain("ID -1 is out of range"));
  EXPECT_EQ(thrown_in(WAVES(addSpecification), experiment, jlong{1} << 32),
            domain("ID 4294967296 is out of range"));
  EXPECT_EQ(thrown_in(WAVES(addModifier), experiment, group, bytes("Nothing"), bytes("1")),
            domain("Enum type::WaveMod::Nothing::Not found"));
  EXPECT_EQ(thrown_in(WAVES(newVector), bytes("a"), bytes("furlong"), waves.doubles({})),
            domain("Unknown units - furlong"));
  EXPECT_EQ(thrown_in(WAVES(addFronts), experiment, group, waves.doubles({1, 2, 3, 4, 5})),
            domain("The values of a front are incomplete"));
}

TEST_F(WavesRun, FrontsAreReadBackInTheOrderInWhichTheyAreGiven) {
  add_waves();
  build_run();
  for (const jboolean merged : {JNI_TRUE, JNI_FALSE}) {
    const auto read = numbers(waves.call(WAVES(fronts), experiment, run, merged));
    const std::vector<double> given{0.5, 0.05, 0.3, 0.4, 1.1, 0.02, -0.2, 0};
    ASSERT_EQ(read.size(), given.size());
    for (std::size_t i = 0; i < given.size(); ++i) EXPECT_NEAR(read[i], given[i], 1e-12) << i;
  }
  // Harmonics of 10 s.
  const auto set = numbers(waves.call(WAVES(transferFronts), experiment, run, 0));
  const std::vector<double> given{5, 0.05, 0.3, 0.4, 11, 0.02, -0.2, 0};
  ASSERT_EQ(set.size(), given.size());
  for (std::size_t i = 0; i < given.size(); ++i) EXPECT_NEAR(set[i], given[i], 1e-12) << i;
}

TEST_F(WavesRun, ManyFrontsKeepTheirOrder) {
  set_run(1000);
  std::vector<double> given;
  for (int h = 200; h < 1000; ++h) given.insert(given.end(), {h / 1000.0, 1e-3 * h, 0.1, 0.2});
  set(fronts(given), params());
  build_run();
  const auto set = numbers(waves.call(WAVES(transferFronts), experiment, run, 0));
  ASSERT_EQ(set.size(), given.size());
  for (std::size_t i = 0; i < 800; ++i) {
    EXPECT_EQ(set[4 * i], 200.0 + static_cast<double>(i));
    EXPECT_NEAR(set[4 * i + 1], given[4 * i + 1], 1e-12);
  }
}

TEST_F(WavesRun, RefusedFrontsHaveTheMessagesOfTheLibrary) {
  build_run();
  EXPECT_EQ(thrown_in(WAVES(fronts), experiment, group, JNI_TRUE),
            domain("Trying to access Definition"));
  const Thrown set = thrown_in(WAVES(transferFronts), experiment, run, 7);
  EXPECT_EQ(set,
            thrown_by(NATIVE(Kelpbox_1Experiment_1fronts_1_1SWIG_10), experiment, proxy, run, 7));
  EXPECT_NE(set, Thrown{});
  EXPECT_EQ(thrown_in(WAVES(transferFronts), experiment, run, -1),
            domain("set -1 is out of range"));
  EXPECT_EQ(thrown_in(WAVES(position), experiment, run, -1), domain("set -1 is out of range"));
}

TEST_F(WavesRun, MessagesOfARunAreRead) {
  set_single(add_single(), 0.512, 0.05, 0, 0);
  build_run();
  EXPECT_EQ(
      ArrayHost::texts_of(waves.call(WAVES(messages), experiment, run)),
      std::vector<std::string>{"Single frequency 0.512Hz altered to 0.5Hz to fit repeat time"});
  EXPECT_EQ(thrown_in(WAVES(messages), experiment, 99), domain("ID out of range"));
}

TEST_F(WavesRun, SignalsAreThoseOfThePaddles) {
  build_motion();
  const auto west = ArrayHost::values_of<jobject>(waves.call(WAVES(signals), experiment, run, 0));
  ASSERT_EQ(west.size(), 2U);
  for (jlong paddle = 0; paddle < 2; ++paddle) {
    const auto samples = motion(0, paddle);
    ASSERT_EQ(samples.size(), 500U);
    EXPECT_EQ(numbers(west[static_cast<std::size_t>(paddle)]), samples);
    EXPECT_EQ(numbers(waves.call(WAVES(signal), experiment, run, 0, paddle)), samples);
  }
  EXPECT_NE(numbers(west[0]), numbers(west[1]));
  const auto south = ArrayHost::values_of<jobject>(waves.call(WAVES(signals), experiment, run, 1));
  ASSERT_EQ(south.size(), 1U);
  EXPECT_EQ(numbers(south[0]), motion(1, 0));
}

TEST_F(WavesRun, SignalsThatDoNotExistAreFailures) {
  const Thrown missing = domain("Bank out of range or paddle_motion not built");
  EXPECT_EQ(thrown_in(WAVES(signals), experiment, run, 0), missing);
  EXPECT_EQ(thrown_in(WAVES(signal), experiment, run, 0, 0), missing);
  build_motion();
  EXPECT_EQ(thrown_in(WAVES(signals), experiment, run, 2), domain("Paddle bank out of range"));
  EXPECT_EQ(thrown_in(WAVES(signals), experiment, run, -1), domain("bank -1 is out of range"));
  EXPECT_EQ(thrown_in(WAVES(signal), experiment, run, 2, 0), missing);
  EXPECT_EQ(thrown_in(WAVES(signal), experiment, run, 0, -1), domain("paddle -1 is out of range"));
  EXPECT_EQ(thrown_in(WAVES(signal), experiment, run, 0, 2),
            domain("Paddle out of range in paddle_motion_data::bank 0 has no signal of paddle 2"));
  EXPECT_EQ(thrown_in(WAVES(signals), experiment, group, 0), domain("Trying to access Definition"));
}

TEST_F(WavesRun, ExhaustedMemoryOfJavaStaysPending) {
  build_motion();
  // The array of arrays, and each array in it.
  for (int objects = 0; objects < 3; ++objects) {
    waves.objects_left = objects;
    EXPECT_EQ(waves.call(WAVES(signals), experiment, run, 0), nullptr);
    EXPECT_EQ(waves.take_thrown(), (Thrown{"java/lang/OutOfMemoryError", "array"}));
  }
  waves.objects_left = 0;
  EXPECT_EQ(thrown_in(WAVES(fronts), experiment, run, JNI_TRUE),
            (Thrown{"java/lang/OutOfMemoryError", "array"}));
}

TEST_F(WavesRun, ArraysThatDoNotFitIntoMemoryAreRefused) {
  if (Testing::sanitized) GTEST_SKIP() << "needs a limit of addresses";
  EXPECT_TRUE(Testing::good_alone([&] {
    Testing::leave_room(64.0 * 1048576);
    const auto refused = [](const Thrown& thrown) {
      return thrown.class_name == domain("").class_name &&
             thrown.message.find("2147483647 values need 16.00 GiB of memory") == 0;
    };
    jdoubleArray huge = waves.endless(2147483647);
    return refused(thrown_in(WAVES(newVector), bytes("a"), bytes("m"), huge)) &&
           refused(thrown_in(WAVES(addFronts), experiment, group, huge)) &&
           refused(thrown_in(WAVES(addSeries), experiment, params(), huge));
  }));
}

TEST_F(WavesRun, ThePointIsRead) {
  add_waves();
  build_run();
  const jlong place = params({{"rate", 50, "Hz"},
                              {"x", 0, "m"},
                              {"y", 2, "m"},
                              {"delta_angle", std::numbers::pi / 6, "rad"}});
  ASSERT_EQ(
      thrown_by(NATIVE(Kelpbox_1Experiment_1twod_1build), experiment, proxy, run, place, proxy),
      Thrown{});
  for (jint which = 0; which < 4; ++which) {
    const auto read = numbers(waves.call(WAVES(twoD), experiment, run, which));
    EXPECT_FALSE(read.empty());
    EXPECT_EQ(read, values_of(host.call(NATIVE(Kelpbox_1Experiment_1twod_1data), experiment, proxy,
                                        run, which)));
  }
  EXPECT_EQ(thrown_in(WAVES(twoD), experiment, run, 4),
            domain("Unsupported enum to experiment::twod_data"));
  EXPECT_EQ(thrown_in(WAVES(twoD), experiment, run, -1),
            domain("Unsupported enum to experiment::twod_data"));
}

TEST_F(WavesRun, FramesAreRead) {
  add_waves();
  build_run();
  printed([&] { build_animation(); });
  const auto read = ArrayHost::values_of<jshort>(waves.call(WAVES(frame), experiment, run, 7));
  ASSERT_EQ(read.size(), 12U);
  const jlong samples =
      host.call(NATIVE(Kelpbox_1Experiment_1animate_1data), experiment, proxy, run, 7);
  for (jint i = 0; i < 12; ++i) {
    EXPECT_EQ(read[static_cast<std::size_t>(i)],
              host.call(NATIVE(Kelpbox_1StdVectorShort_1get), samples, proxy, i));
  }
  EXPECT_EQ(thrown_in(WAVES(frame), experiment, run, 200), domain("invalid vector<T> subscript"));
  EXPECT_EQ(thrown_in(WAVES(frame), experiment, run, -1), domain("frame -1 is out of range"));
}

TEST_F(WavesRun, WhatWorkersWriteIsCollectedForTheThreadThatBuilds) {
  add_waves();
  build_run();
  waves.call(WAVES(setWorkers), experiment, 3);
  const std::string written = printed([&] { build_animation(); });
  // Four columns of two fronts.
  EXPECT_EQ(written, "0.3\n-0.2\n0.3\n-0.2\n0.3\n-0.2\n0.3\n-0.2\n");
  waves.call(WAVES(captureOutput), JNI_TRUE);
  EXPECT_EQ(printed([&] { build_animation(); }), "");
  waves.call(WAVES(captureOutput), JNI_FALSE);
  EXPECT_EQ(Host::characters_of(waves.call(WAVES(takeOutput))), written);
}

TEST_F(WavesRun, TheProfileIsRead) {
  const jlong step = params({{"delta_x", 500, "cm"}});
  EXPECT_EQ(numbers(waves.call(WAVES(profile), experiment, step)),
            (std::vector<double>{1, 1, 1, 1, 1, 0.5, 0.5}));
  EXPECT_EQ(thrown_in(WAVES(profile), experiment, params()), domain("delta_x::Not found"));
}

TEST_F(WavesRun, RemarksAreRead) {
  set_single(add_single(), 0.5, 0.05, 0.3, 0);
  build_run();
  const jlong place =
      params({{"rate", 1.26, "Hz"}, {"x", 1, "m"}, {"y", 0, "m"}, {"delta_angle", 0.9, "rad"}});
  host.call(NATIVE(Kelpbox_1Experiment_1twod_1build), experiment, proxy, run, place, proxy);
  EXPECT_EQ(ArrayHost::texts_of(waves.call(WAVES(paramComments), place)),
            std::vector<std::string>{"Warning::Poor match"});
}

}  // namespace
