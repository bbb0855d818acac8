// The wave field over the tank, as a host builds, watches and reads it.
#include <atomic>
#include <cmath>
#include <numbers>
#include <thread>

#include "run_fixture.h"
#include "support/output.h"
#include "support/wave_number.h"

namespace {

using Testing::exact_wave_number;
using Testing::printed;
using Testing::RunHostTest;

constexpr double pi = std::numbers::pi;

class Animation : public RunHostTest {
 protected:
  void SetUp() override {
    experiment = basin();
    make_tree();
  }

  // A run of 10 s without waves, not built.
  void make_tree() {
    make_run();
    set_run(10);
    set_place(0, 0, 0);
  }
  void add_wave(double f, double a, double angle) { set_single(add_single(), f, a, angle, 0); }
  void build_run() { ASSERT_EQ(thrown_by_run_build(), Thrown{}); }
  // Adds two waves and builds the run.
  void build_oblique_run() {
    add_wave(0.5, 0.05, 0.3);
    add_wave(1.1, 0.02, -0.2);
    build_run();
  }
  jlong grid(double rate = 20, double x_step = 1, double x_max = 10) {
    return params({{"rate", rate, "Hz"},
                   {"x_step", x_step, "m"},
                   {"y_step", 0.5, "m"},
                   {"x_min", 0, "m"},
                   {"x_max", x_max, "m"},
                   {"y_min", -2, "m"},
                   {"y_max", 2, "m"}});
  }
  Thrown thrown_by_build(jlong values) {
    Thrown thrown;
    output = printed([&] {
      thrown = thrown_by(NATIVE(Kelpbox_1Experiment_1animate_1build), experiment, proxy, run,
                         values, proxy);
    });
    return thrown;
  }
  Thrown thrown_by_init(jlong values) {
    return thrown_by(NATIVE(Kelpbox_1Experiment_1animate_1init), experiment, proxy, run, values,
                     proxy);
  }
  Thrown thrown_by_slice(jlong first, jlong last) {
    Thrown thrown;
    output = printed([&] {
      thrown = thrown_by(NATIVE(Kelpbox_1Experiment_1animate_1build_1slice), experiment, proxy, run,
                         params(), proxy, first, last);
    });
    return thrown;
  }
  jlong size() {
    return host.call(NATIVE(Kelpbox_1Experiment_1animate_1size), experiment, proxy, run);
  }
  double progress() {
    return host.call(NATIVE(Kelpbox_1Experiment_1animate_1progress), experiment, proxy, run);
  }
  bool ready() {
    return host.call(NATIVE(Kelpbox_1Experiment_1animate_1ready), experiment, proxy, run) !=
           JNI_FALSE;
  }
  void stop() { host.call(NATIVE(Kelpbox_1Experiment_1animate_1stop), experiment, proxy, run); }
  std::vector<short> frame(jlong index) {
    const jlong samples =
        host.call(NATIVE(Kelpbox_1Experiment_1animate_1data), experiment, proxy, run, index);
    const jlong points = host.call(NATIVE(Kelpbox_1StdVectorShort_1size), samples, proxy);
    std::vector<short> result;
    for (jint i = 0; i < points; ++i) {
      result.push_back(host.call(NATIVE(Kelpbox_1StdVectorShort_1get), samples, proxy, i));
    }
    return result;
  }

  std::string output;  // of the last build
};

TEST_F(Animation, AFrameIsTheSurfaceAtItsTime) {
  build_oblique_run();
  const jlong values = grid();
  ASSERT_EQ(thrown_by_build(values), Thrown{});
  EXPECT_EQ(size(), 200);
  EXPECT_EQ(progress(), 1.0);
  EXPECT_TRUE(ready());
  EXPECT_TRUE(comments(values).empty());
  // At the paddle line the phases are the given ones.
  for (const jlong t : {0, 7, 199}) {
    const std::vector<short> samples = frame(t);
    ASSERT_EQ(samples.size(), 11u * 9u);
    for (std::size_t iy = 0; iy < 9; ++iy) {
      const double y = -2.0 + 0.5 * static_cast<double>(iy);
      const double at = static_cast<double>(t) / 20;
      const double height =
          0.05 * std::cos(pi * at - exact_wave_number(pi, 1.0) * y * std::sin(0.3)) +
          0.02 * std::cos(2.2 * pi * at - exact_wave_number(2.2 * pi, 1.0) * y * std::sin(-0.2));
      EXPECT_NEAR(samples[iy], height * 32767 / 4, 0.6) << t << " " << iy;
    }
  }
}

TEST_F(Animation, EachColumnWritesTheAnglesOfItsFronts) {
  build_oblique_run();
  ASSERT_EQ(thrown_by_build(grid(20, 5, 10)), Thrown{});
  EXPECT_EQ(output, "0.3\n-0.2\n0.3\n-0.2\n0.3\n-0.2\n");
}

TEST_F(Animation, StepsAndRateAreWrittenBackAsFitted) {
  build_oblique_run();
  const jlong values = grid(20.04, 1.3, 10);
  ASSERT_EQ(thrown_by_build(values), Thrown{});
  EXPECT_EQ(value(values, "x_step", "m"), 1.25);
  EXPECT_EQ(value(values, "y_step", "m"), 0.5);
  EXPECT_EQ(value(values, "rate", "Hz"), 20.0);
  EXPECT_TRUE(comments(values).empty());
  const jlong poor = grid(20, 3, 5);
  ASSERT_EQ(thrown_by_build(poor), Thrown{});
  EXPECT_EQ(comments(poor), std::vector<std::string>{"Warning::Poor match"});
}

TEST_F(Animation, SlicesMakeTheSameFrames) {
  build_oblique_run();
  ASSERT_EQ(thrown_by_build(grid()), Thrown{});
  const std::vector<short> whole = frame(123);
  stop();
  EXPECT_EQ(progress(), 0.0);
  EXPECT_EQ(frame(123), whole);
  EXPECT_EQ(thrown_by_slice(0, 1), domain("animate not initialised"));
  ASSERT_EQ(thrown_by_init(grid()), Thrown{});
  EXPECT_EQ(size(), 200);
  ASSERT_EQ(thrown_by_slice(0, 4), Thrown{});
  EXPECT_EQ(output, "");
  EXPECT_EQ(progress(), 4.0 / 11.0);
  EXPECT_FALSE(ready());
  ASSERT_EQ(thrown_by_slice(4, 100), Thrown{});
  EXPECT_TRUE(ready());
  EXPECT_EQ(frame(123), whole);
}

TEST_F(Animation, OnlyAWholeBuildShortensTheCycleOfASingleHarmonic) {
  add_wave(0.5, 0.05, 0.3);
  build_run();
  ASSERT_EQ(thrown_by_init(grid()), Thrown{});
  EXPECT_EQ(size(), 200);
  // Harmonic 5 and the lowest one, 1, share 2 with 200 samples.
  ASSERT_EQ(thrown_by_build(grid()), Thrown{});
  EXPECT_EQ(size(), 100);
  ASSERT_EQ(thrown_by_init(grid()), Thrown{});
  EXPECT_EQ(thrown_by_slice(0, 1), domain("Error vec.size() != t_lim"));
  EXPECT_EQ(output, "vec.size() 200 t_lim 100\n");
}

TEST_F(Animation, FreedFramesAreGone) {
  build_oblique_run();
  ASSERT_EQ(thrown_by_build(grid()), Thrown{});
  host.call(NATIVE(Kelpbox_1Experiment_1animate_1free), experiment, proxy, run);
  EXPECT_EQ(size(), 0);
  EXPECT_EQ(progress(), 0.0);
  EXPECT_FALSE(ready());
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1animate_1data), experiment, proxy, run, 0),
            domain("invalid vector<T> subscript"));
}

TEST_F(Animation, RefusalsArriveWithTheirMessages) {
  const Thrown empty = domain("Trying to build animation when wave expression has no data");
  EXPECT_EQ(thrown_by_build(grid()), empty);
  EXPECT_EQ(thrown_by_init(grid()), empty);
  build_oblique_run();
  EXPECT_EQ(thrown_by_build(grid(20, 1, 0)), domain("x_max not greater than x_min"));
  EXPECT_EQ(thrown_by_init(grid(20, 1, -3)), domain("x_max not greater than x_min"));
  EXPECT_EQ(thrown_by_build(params()), domain("rate::Not found"));
  EXPECT_EQ(thrown_by_build(grid(20, -1)),
            domain("x_step::-1 m gives no usable grid from 0 m to 10 m"));
  EXPECT_EQ(thrown_by_build(grid(20, 1, 31)), domain("Value x=31 is outside dimensions of tank"));
  const Thrown null = null_pointer("Base::Params & reference is null");
  EXPECT_EQ(thrown_by_build(0), null);
  EXPECT_EQ(thrown_by_init(0), null);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1animate_1build_1slice), experiment, proxy, run, 0,
                      proxy, 0, 1),
            null);
}

TEST_F(Animation, ExhaustedMemoryIsReported) {
  build_oblique_run();
  for (const Thrown& thrown : {thrown_by_build(grid(1e7, 1e-7)), thrown_by_init(grid(1e7, 1e-7))}) {
    EXPECT_EQ(thrown.class_name, domain("").class_name);
    EXPECT_EQ(thrown.message.find("Uncaught Exception in Animate "), 0u) << thrown.message;
  }
  ASSERT_EQ(thrown_by_build(grid()), Thrown{});
}

TEST_F(Animation, ASiteWithoutATankIsRefusedByEachBuild) {
  build_oblique_run();
  ASSERT_EQ(thrown_by_init(grid()), Thrown{});
  unmake_tank();
  const std::string text = ": Attempting to access TankConfig when not made ready";
  EXPECT_EQ(thrown_by_build(grid()), domain("Uncaught Exception in Animate Build" + text));
  EXPECT_EQ(thrown_by_init(grid()), domain("Uncaught Exception in Animate Init" + text));
  EXPECT_EQ(thrown_by_slice(0, 1), domain("Uncaught Exception in Animate Build slice" + text));
}

TEST_F(Animation, EveryOperationNeedsTheIdOfADefinition) {
  const jlong set = grid();
  const auto check = [&](jlong id, const Thrown& refused) {
    EXPECT_EQ(
        thrown_by(NATIVE(Kelpbox_1Experiment_1animate_1build), experiment, proxy, id, set, proxy),
        refused);
    EXPECT_EQ(
        thrown_by(NATIVE(Kelpbox_1Experiment_1animate_1init), experiment, proxy, id, set, proxy),
        refused);
    EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1animate_1build_1slice), experiment, proxy, id,
                        set, proxy, 0, 1),
              refused);
    EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1animate_1data), experiment, proxy, id, 0),
              refused);
    EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1animate_1size), experiment, proxy, id),
              refused);
    EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1animate_1progress), experiment, proxy, id),
              refused);
    EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1animate_1ready), experiment, proxy, id),
              refused);
    EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1animate_1stop), experiment, proxy, id),
              refused);
    EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1animate_1free), experiment, proxy, id),
              refused);
  };
  check(99, domain("ID out of range"));
  check(group, domain("Trying to access Definition"));
}

TEST_F(Animation, AnotherThreadWatchesAndStops) {
  build_oblique_run();
  Host watcher;
  const auto on_watcher = [&](auto function) {
    return watcher.call(function, experiment, proxy, run);
  };
  // Stopped at moments that move on through the build.
  const int rounds = 30;
  for (int i = 0; i < rounds; ++i) {
    const jlong values = grid();
    std::atomic<bool> done{false};
    Thrown thrown;
    printed([&] {
      std::thread builder([&] {
        host.call(NATIVE(Kelpbox_1Experiment_1animate_1build), experiment, proxy, run, values,
                  proxy);
        thrown = host.take_thrown();
        done = true;
      });
      while (!done) {
        const double seen = on_watcher(NATIVE(Kelpbox_1Experiment_1animate_1progress));
        on_watcher(NATIVE(Kelpbox_1Experiment_1animate_1ready));
        if (seen > static_cast<double>(i) / rounds) {
          on_watcher(NATIVE(Kelpbox_1Experiment_1animate_1stop));
        }
        std::this_thread::yield();
      }
      builder.join();
    });
    ASSERT_TRUE(thrown == Thrown{} || thrown == domain("Animate Cancelled")) << thrown.message;
    stop();
    ASSERT_EQ(progress(), 0.0);
    ASSERT_EQ(watcher.take_thrown(), Thrown{});
  }
}

}  // namespace
