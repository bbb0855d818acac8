// One thread builds while another watches and stops.
#include <atomic>
#include <thread>

#include "run/definition.h"
#include "support/test_run.h"
#include "test_animation.h"

namespace {

using Testing::Given;
using Testing::GridText;
using Testing::printed;

const Given sea = {{5, {0.1, 0.3, 0.4}}, {6, {0.2, -0.2, 0.0}}, {20, {0.1, 0.1, 1.0}}};

// Eleven columns.
Base::Params small_grid() {
  GridText grid;
  grid.x_step = 1.0;
  grid.y_step = 0.25;
  return grid.params();
}

// Each interaction of the threads is repeated, at later and later moments of a build.
constexpr int rounds = 40;

// Of a build, beside the thread that watches it: one in every other round.
Base::Executor workers_of(int round) { return Base::Executor(round % 2 == 0 ? 1 : 3); }

double moment(int round) { return static_cast<double>(round) / rounds; }

// Calls `build` a number of times in a second thread.
class Builder {
 public:
  template <typename Build>
  Builder(int times, Build build)
      : thread_([this, times, build] {
          for (int i = 0; i < times; ++i) {
            const std::string text = Testing::thrown(build);
            if (text != Testing::nothing_thrown && text != "Animate Cancelled" &&
                text != "animate not initialised") {
              unexpected = text;
            }
          }
          done = true;
        }) {}
  ~Builder() { thread_.join(); }

  std::atomic<bool> done{false};
  std::string unexpected;  // read after `done`

 private:
  std::thread thread_;
};

TEST(AnimateThreads, AWatcherSeesProgressRiseFromZeroToOne) {
  printed([&] {
    for (int i = 0; i < rounds; ++i) {
      Testing::BuiltRun run(Testing::SiteText{}, sea);
      run.definition.set_executor(workers_of(i));
      Base::Params params = small_grid();
      Builder builder(1, [&] { run.definition.animate_build(params); });
      double last = 0.0;
      while (!builder.done) {
        const bool ready = run.definition.animate_ready();
        const double progress = run.definition.animate_progress();
        ASSERT_GE(progress, last);
        ASSERT_LE(progress, 1.0);
        // Frames that were ready before stay ready.
        ASSERT_TRUE(!ready || progress == 1.0);
        ASSERT_TRUE(progress < 1.0 || run.definition.animate_ready());
        last = progress;
        std::this_thread::yield();
      }
      ASSERT_TRUE(run.definition.animate_ready());
      ASSERT_EQ(run.definition.animate_progress(), 1.0);
      ASSERT_EQ(builder.unexpected, "");
    }
  });
}

TEST(AnimateThreads, FramesAreCompleteOnceTheyAreReady) {
  printed([&] {
    Testing::BuiltRun reference(Testing::SiteText{}, sea);
    Base::Params same = small_grid();
    reference.definition.animate_build(same);
    for (int i = 0; i < rounds; ++i) {
      Testing::BuiltRun run(Testing::SiteText{}, sea);
      run.definition.set_executor(workers_of(i));
      Base::Params params = small_grid();
      Builder builder(1, [&] { run.definition.animate_build(params); });
      while (!run.definition.animate_ready()) std::this_thread::yield();
      ASSERT_EQ(run.definition.animate_data(99), reference.definition.animate_data(99));
    }
  });
}

TEST(AnimateThreads, ProgressFallsOnceWhenASecondBuildStarts) {
  printed([&] {
    Testing::BuiltRun run(Testing::SiteText{}, sea);
    Base::Params params = small_grid();
    run.definition.animate_build(params);
    for (int i = 0; i < rounds; ++i) {
      run.definition.set_executor(workers_of(i));
      Builder builder(1, [&] { run.definition.animate_build(params); });
      double last = 1.0;
      int falls = 0;
      while (!builder.done) {
        const double progress = run.definition.animate_progress();
        falls += progress < last ? 1 : 0;
        last = progress;
        std::this_thread::yield();
      }
      ASSERT_LE(falls, 1);
      ASSERT_TRUE(run.definition.animate_ready());
    }
  });
}

TEST(AnimateThreads, AStopEndsAWholeBuild) {
  printed([&] {
    Testing::BuiltRun run(Testing::SiteText{}, sea);
    Base::Params params = small_grid();
    for (int i = 0; i < rounds; ++i) {
      run.definition.set_executor(workers_of(i));
      {
        Builder builder(1, [&] { run.definition.animate_build(params); });
        // A stop before the build has begun is lost, so it is repeated.
        while (!builder.done) {
          if (run.definition.animate_progress() > moment(i)) run.definition.animate_stop();
          std::this_thread::yield();
        }
        ASSERT_EQ(builder.unexpected, "");
      }
      run.definition.animate_stop();
      ASSERT_EQ(run.definition.animate_progress(), 0.0);
      ASSERT_FALSE(run.definition.animate_ready());
      ASSERT_EQ(run.definition.animate_size(0), 0u);
    }
  });
}

TEST(AnimateThreads, AStopAtAnyMomentLeavesNothingReady) {
  printed([&] {
    Testing::BuiltRun run(Testing::SiteText{}, sea);
    Base::Params params = small_grid();
    std::atomic<int> round{0};
    for (int i = 0; i < rounds; ++i) {
      run.definition.animate_free();
      {
        Builder builder(1, [&] {
          round = i + 1;
          run.definition.animate_init(params);
        });
        while (round <= i) std::this_thread::yield();
        for (int wait = 0; wait < 20 * i; ++wait) round.load();
        run.definition.animate_stop();
        // Either the stop came first and is lost, or there is nothing ready.
      }
      const bool lost = run.definition.animate_size(0) != 0;
      if (!lost) {
        ASSERT_EQ(Testing::thrown([&] { run.definition.animate_build_slice(0, 1); }),
                  "animate not initialised");
      } else {
        ASSERT_EQ(run.definition.animate_size(0), 100u);
        run.definition.animate_build_slice(0, 1);
        ASSERT_GT(run.definition.animate_progress(), 0.0);
      }
      run.definition.animate_stop();
    }
  });
}

TEST(AnimateThreads, SlicesAreWatchedAndStopped) {
  Testing::BuiltRun run(Testing::SiteText{}, sea);
  Base::Params params = small_grid();
  for (int i = 0; i < rounds; ++i) {
    run.definition.set_executor(workers_of(i));
    run.definition.animate_init(params);
    std::uint32_t column = 0;
    Builder builder(4, [&] {
      run.definition.animate_build_slice(column, column + 3);
      column += 3;
    });
    while (!builder.done) {
      if (run.definition.animate_progress() > moment(i)) run.definition.animate_stop();
      run.definition.animate_ready();
      std::this_thread::yield();
    }
    ASSERT_EQ(builder.unexpected, "");
    run.definition.animate_stop();
  }
}

}  // namespace
