// tidelab.waves.Native: runs, and what is built from them.
#include <cmath>
#include <numbers>

#include "support/output.h"
#include "waves_fixture.h"

namespace {

using Testing::printed;
using Testing::WavesTest;

class WavesBuilds : public WavesTest {
 protected:
  void SetUp() override {
    experiment = basin();
    make_run();
    set_run(10);
    set_place(1, 2, 0.5);
    set_single(add_single(), 1.5, 0.05, 0, 0);
  }
  void build_run() { ASSERT_EQ(thrown_in(WAVES(buildRun), experiment, run), Thrown{}); }
  jlong rate() { return params({{"rate", 50, "Hz"}}); }
};

// 10 s at 100 Hz, and waves from 0.1 Hz to 2 Hz.
TEST_F(WavesBuilds, TheRepeatAndThePositionsOfARunAreRead) {
  build_run();
  EXPECT_EQ(numbers(waves.call(WAVES(repeat), experiment, run)),
            (std::vector<double>{10, 21, 1, 20, 0, 1}));
  EXPECT_EQ(numbers(waves.call(WAVES(position), experiment, run, 0)),
            (std::vector<double>{1, 2, 0.5}));
}

TEST_F(WavesBuilds, TheRepeatTellsWhetherTheRunIsDalrymples) {
  const jlong values = params({{"repeat", 10, "s"}});
  insert_enum(values, "dalrymple", "True", "Bool");
  insert_enum(values, "wave_merge", "Null", "WaveMerge");
  set(run, values);
  EXPECT_EQ(numbers(waves.call(WAVES(repeat), experiment, run)),
            (std::vector<double>{10, 21, 1, 20, 1, 0}));
}

TEST_F(WavesBuilds, RefusedRunsHaveTheMessagesOfTheLibrary) {
  const jlong another =
      host.call(NATIVE(Kelpbox_1Experiment_1add_1definition), experiment, proxy, "another");
  EXPECT_EQ(thrown_in(WAVES(buildRun), experiment, another),
            domain("Evaluate before setting state"));
  EXPECT_EQ(thrown_in(WAVES(repeat), experiment, another), domain("Repeat time zero or less"));
  EXPECT_EQ(thrown_in(WAVES(position), experiment, another, 0),
            domain("invalid vector<T> subscript"));
  EXPECT_EQ(thrown_in(WAVES(buildRun), experiment, group), domain("Trying to access Definition"));
  EXPECT_EQ(thrown_in(WAVES(buildRun), experiment, -1), domain("ID -1 is out of range"));
}

TEST_F(WavesBuilds, TheMotionIsBuiltWithItsStatistics) {
  build_run();
  EXPECT_EQ(thrown_in(WAVES(motionStatistics), experiment, run, 0, params()),
            domain("Bank out of range or paddle_motion not built"));
  ASSERT_EQ(thrown_in(WAVES(buildMotion), experiment, run, rate()), Thrown{});
  EXPECT_EQ(numbers(waves.call(WAVES(signal), experiment, run, 0, 0)).size(), 500U);
  const jlong calm = params({{"old", 1, "m"}});
  ASSERT_EQ(thrown_in(WAVES(motionStatistics), experiment, run, 0, calm), Thrown{});
  EXPECT_TRUE(names(calm).empty());
  EXPECT_EQ(thrown_in(WAVES(motionStatistics), experiment, run, -1, calm),
            domain("bank -1 is out of range"));
  EXPECT_EQ(thrown_in(WAVES(buildMotion), experiment, run, params()), domain("rate::Not found"));
}

// A paddle motion needs the tank, and leaves a log item without one.
TEST_F(WavesBuilds, AMotionWithoutATankIsAFailure) {
  build_run();
  unmake_tank();
  EXPECT_EQ(thrown_in(WAVES(buildMotion), experiment, run, rate()).class_name,
            domain("").class_name);
}

// A wave of 0.05 m has a standard deviation of 0.05 m / sqrt(2).
TEST_F(WavesBuilds, ThePointIsBuiltWithItsStatistics) {
  build_run();
  const jlong place = params({{"rate", 50, "Hz"},
                              {"x", 1, "m"},
                              {"y", 2, "m"},
                              {"delta_angle", std::numbers::pi / 6, "rad"}});
  ASSERT_EQ(thrown_in(WAVES(buildPoint), experiment, run, place), Thrown{});
  const auto elevation = numbers(waves.call(WAVES(twoD), experiment, run, 0));
  double squares = 0;
  for (const double eta : elevation) squares += eta * eta;
  EXPECT_NEAR(squares / static_cast<double>(elevation.size()), 0.05 * 0.05 / 2, 1e-12);
  const jlong statistics = params({{"rate", 50, "Hz"}, {"x", 1, "m"}, {"y", 2, "m"}});
  ASSERT_EQ(thrown_in(WAVES(pointStatistics), experiment, run, statistics), Thrown{});
  EXPECT_GT(names(statistics).size(), 3U);
  EXPECT_EQ(thrown_in(WAVES(buildPoint), experiment, run, params()), domain("rate::Not found"));
  EXPECT_EQ(thrown_in(WAVES(pointStatistics), experiment, run, params()),
            domain("rate::Not found"));
}

TEST_F(WavesBuilds, AnAnimationIsLaidOutAndBuiltByColumns) {
  build_run();
  const jlong grid = params({{"rate", 20, "Hz"},
                             {"x_step", 1, "m"},
                             {"y_step", 1, "m"},
                             {"x_min", 0, "m"},
                             {"x_max", 3, "m"},
                             {"y_min", -1, "m"},
                             {"y_max", 1, "m"}});
  ASSERT_EQ(thrown_in(WAVES(layOutFrames), experiment, run, grid), Thrown{});
  const auto progress = [&] {
    return host.call(NATIVE(Kelpbox_1Experiment_1animate_1progress), experiment, proxy, run);
  };
  for (jlong column = 0; column < 4; ++column) {
    EXPECT_EQ(progress(), static_cast<double>(column) / 4);
    printed([&] { waves.call(WAVES(buildColumns), experiment, run, column, column + 1); });
  }
  EXPECT_EQ(progress(), 1.0);
  EXPECT_EQ(thrown_in(WAVES(buildColumns), experiment, run, -1, 1),
            domain("column -1 is out of range"));
  EXPECT_EQ(thrown_in(WAVES(buildColumns), experiment, run, 0, -1),
            domain("column -1 is out of range"));
  EXPECT_EQ(thrown_in(WAVES(layOutFrames), experiment, run, params()), domain("rate::Not found"));
}

}  // namespace
