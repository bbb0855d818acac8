// Animations of several workers: the same frames, lines and failures as those of one.
#include <time.h>

#include <algorithm>
#include <iostream>
#include <sstream>
#include <string>

#include "test_animation.h"

namespace {

using Testing::AnimatedSea;
using Testing::Given;
using Testing::GridText;
using Testing::printed;
using Testing::thrown;

constexpr unsigned worker_counts[] = {1, 2, 3, 7};

const Given oblique = {{5, {0.1, 0.3, 0.4}}, {6, {0.2, -0.2, 0.0}}, {6, {0.1, 2.8, 1.0}}};
const Given straight = {{5, {0.1, 0.0, 0.4}}, {6, {0.2, 0.0, 0.0}}};

// A sea whose builds have that many workers.
struct SharedSea : AnimatedSea {
  explicit SharedSea(unsigned workers, const Given& given = oblique,
                     const Testing::SiteText& text = {})
      : AnimatedSea(given, text) {
    animate.set_executor(Base::Executor(workers));
  }
};

TEST(AnimateWorkers, FramesAndLinesAreTheSameForEveryNumberOfWorkers) {
  for (const Given& given : {oblique, straight}) {
    for (const Testing::SiteText& text : {Testing::SiteText{}, Testing::sloping_site()}) {
      AnimatedSea one(given, text);
      const std::string lines = one.build();
      ASSERT_NE(lines, "");
      for (const unsigned workers : worker_counts) {
        SharedSea several(workers, given, text);
        EXPECT_EQ(several.build(), lines);
        EXPECT_EQ(several.all(), one.all()) << workers;
        EXPECT_TRUE(several.frames().complete());
        EXPECT_FALSE(several.frames().running());
      }
    }
  }
}

TEST(AnimateWorkers, AWholeBuildIsShared) {
  const auto seconds = [](clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
  };
  const Given many(100000, {5, {0.001, 0.3, 0.4}});
  SharedSea sea(3, many);
  const double all = seconds(CLOCK_PROCESS_CPUTIME_ID);
  const double own = seconds(CLOCK_THREAD_CPUTIME_ID);
  sea.build();
  const double by_all = seconds(CLOCK_PROCESS_CPUTIME_ID) - all;
  const double by_caller = seconds(CLOCK_THREAD_CPUTIME_ID) - own;
  // One worker alone does everything in the calling thread. Three would each do a third.
  EXPECT_GT(by_all - by_caller, 0.1 * by_all);
}

TEST(AnimateWorkers, SlicesAreTheSameForEveryNumberOfWorkers) {
  for (const Given& given : {oblique, straight}) {
    AnimatedSea one(given);
    one.init();
    one.slice(0, 21);
    for (const unsigned workers : worker_counts) {
      SharedSea several(workers, given);
      several.init();
      EXPECT_EQ(printed([&] {
                  several.slice(2, 9);
                  EXPECT_EQ(several.frames().progress(), 7.0 / 21.0);
                  several.slice(0, 2);
                  several.slice(9, 30);
                }),
                "");
      EXPECT_TRUE(several.frames().complete());
      EXPECT_EQ(several.all(), one.all()) << workers;
    }
  }
}

TEST(AnimateWorkers, AColumnThatFailsEndsTheBuildAtTheSamePlace) {
  for (const Given& given : {oblique, straight}) {
    for (const unsigned workers : worker_counts) {
      SharedSea sea(workers, given);
      GridText grid;
      grid.x_min = 30.0;
      grid.x_max = 50.0;
      grid.x_step = 2.0;
      Base::Params params = grid.params();
      // The columns at 30 m to 40 m are in the tank.
      EXPECT_EQ(thrown([&] { sea.build(params); }), "Value x=42 is outside dimensions of tank");
      std::ostringstream lines;
      for (int column = 0; column < 6; ++column) {
        for (const auto& [slot, front] : given) lines << front.angle << '\n';
      }
      EXPECT_EQ(sea.output, lines.str());
      EXPECT_EQ(sea.frames().progress(), 6.0 / 11.0);
      EXPECT_TRUE(sea.frames().running());
      const std::vector<std::int16_t>& frame = sea.frames().data(0);
      EXPECT_EQ(std::vector<std::int16_t>(frame.begin() + 6 * 5, frame.end()),
                std::vector<std::int16_t>(5 * 5, 0));
    }
  }
}

TEST(AnimateWorkers, ADryColumnEndsTheBuildAtTheSamePlace) {
  Testing::SiteText text;
  text.x_low = -10.0;
  text.x_high = 10.0;
  text.breaks = {-9.5};
  text.depths = {"0.5-1@m", "1+0.2*cos(5*$[m])@m"};
  GridText grid;
  grid.x_min = -9.75;
  grid.x_max = 0.25;
  // The first column fails after a long way, when other workers are in later columns.
  const Given many(20000, {5, {0.001, 0.3, 0.4}});
  for (const unsigned workers : worker_counts) {
    for (int repeat = 0; repeat < 5; ++repeat) {
      SharedSea sea(workers, many, text);
      Base::Params params = grid.params();
      const std::string failure = thrown([&] { sea.build(params); });
      EXPECT_EQ(failure.rfind("Knum calculation failed for omega=3.14159 and depth = -0.5", 0), 0u)
          << failure;
      // The first column is the only dry one.
      ASSERT_EQ(sea.output, "") << workers;
      ASSERT_EQ(sea.frames().progress(), 0.0) << workers;
    }
  }
}

TEST(AnimateWorkers, TheFirstColumnAfterADryBarEndsTheBuild) {
  Testing::SiteText text;
  text.x_high = 10.0;
  text.breaks = {4.1, 4.2};
  text.depths = {"1@m", "0-0.1@m", "1@m"};
  for (const unsigned workers : worker_counts) {
    SharedSea sea(workers, {{5, {0.1, 0.3, 0.4}}}, text);
    Base::Params params = GridText{}.params();
    const std::string failure = thrown([&] { sea.build(params); });
    EXPECT_TRUE(failure.starts_with("Knum calculation failed for omega=3.14159 and depth = -0.1"))
        << failure;
    // Those at 0 m to 4 m are stored, one in each half metre.
    EXPECT_EQ(sea.frames().progress(), 9.0 / 21.0);
  }
}

TEST(AnimateWorkers, SlicesThatDoNotFitTheFramesAreRefusedAlike) {
  for (const unsigned workers : worker_counts) {
    SharedSea sea(workers);
    sea.init();
    GridText fine;
    fine.x_step = 0.25;
    sea.init(fine);
    EXPECT_EQ(thrown([&] { sea.slice(15, 30); }), "Error x >= x_lim");
    EXPECT_EQ(sea.frames().progress(), 6.0 / 21.0);
    GridText rows;
    rows.y_step = 0.5;
    sea.init(rows);
    EXPECT_EQ(thrown([&] { sea.slice(0, 4); }), "Error y >= y_lim");
    EXPECT_EQ(sea.frames().progress(), 35.0 / 105.0);
    GridText fast;
    fast.rate = 20.0;
    sea.init(fast);
    EXPECT_EQ(
        printed([&] { EXPECT_EQ(thrown([&] { sea.slice(0, 4); }), "Error vec.size() != t_lim"); }),
        "vec.size() 200 t_lim 100\n");
  }
}

TEST(AnimateWorkers, AStopEndsAllWorkersAtTheLineWhereItCame) {
  for (const unsigned workers : worker_counts) {
    for (const int lines : {1, 5, 17}) {
      SharedSea sea(workers);
      Base::Params params = GridText{}.params();
      Testing::StoppingBuffer written(sea.frames(), lines);
      std::streambuf* const shown = std::cout.rdbuf(&written);
      const std::string failure =
          thrown([&] { sea.animate.build(sea.fronts, sea.tank(), sea.run, params); });
      std::cout.rdbuf(shown);
      // A worker that was about to store its series reports the stop.
      EXPECT_TRUE(failure == Testing::nothing_thrown || failure == "Animate Cancelled") << failure;
      const std::string& text = written.text();
      EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), lines);
      EXPECT_EQ(text.substr(0, 4), "0.3\n");
      EXPECT_FALSE(sea.frames().running());
      EXPECT_EQ(sea.frames().size(0), 0u);
      EXPECT_EQ(sea.frames().progress(), 0.0);
    }
  }
}

}  // namespace
