// Objects of a host on several threads: each object on one thread at a time gives what it gives
// alone. Their lines are collected, since the standard output is one for all threads.
#include <atomic>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "base/streams.h"
#include "four_probes.h"
#include "script/division.h"
#include "support/thrown.h"
#include "whole_road.h"

namespace {

using Testing::FourProbes;
using Testing::SmallTank;
using Testing::WholeRoad;

// Starts at the same moment on as many threads.
template <typename... Works>
void at_once(Works... works) {
  std::atomic<int> waiting{sizeof...(works)};
  const auto started = [&](auto work) {
    return std::thread([&waiting, work] {
      for (--waiting; waiting != 0;) std::this_thread::yield();
      work();
    });
  };
  std::vector<std::thread> threads;
  (threads.push_back(started(works)), ...);
  for (std::thread& thread : threads) thread.join();
}

// What a road gives, with the lines that it writes.
struct Results {
  std::vector<double> numbers;
  std::vector<std::int16_t> frames;
  std::string lines;
  bool operator==(const Results&) const = default;
};

// All results of an experiment. Others with another rate need transforms of another length.
Results synthesised(const std::string& site, double rate, unsigned workers) {
  Base::collect_output(true);
  WholeRoad road(rate);
  road.all(site);
  road.experiment->set_workers(workers);
  road.build_drive();
  road.build_point();
  road.build_animation();
  Results results;
  for (const std::vector<double>& part : {road.fronts(), road.drive(), road.point()}) {
    results.numbers.insert(results.numbers.end(), part.begin(), part.end());
  }
  results.frames = road.frames();
  results.lines = Base::take_output();
  Base::collect_output(false);
  return results;
}

Results analysed(const std::string& site, double period) {
  Base::collect_output(true);
  FourProbes probes(site, period);
  Results results;
  results.numbers = probes.all();
  results.lines = Base::take_output();
  Base::collect_output(false);
  return results;
}

class Threads : public testing::Test {
 protected:
  SmallTank tank;
  static constexpr int rounds = 5;
};

TEST_F(Threads, TwoExperimentsGiveWhatEachGivesAlone) {
  const Results first = synthesised(tank.path, 20.0, 1);
  const Results second = synthesised(tank.path, 23.0, 1);
  ASSERT_FALSE(first == second);
  ASSERT_NE(first.lines.find("Opened file"), std::string::npos);
  for (int round = 0; round < rounds; ++round) {
    Results one, two;
    const unsigned workers = 1U + static_cast<unsigned>(round) % 3;
    at_once([&] { one = synthesised(tank.path, 20.0, workers); },
            [&] { two = synthesised(tank.path, 23.0, workers); });
    EXPECT_TRUE(one == first) << round;
    EXPECT_TRUE(two == second) << round;
  }
}

TEST_F(Threads, TwoAnalysesGiveWhatEachGivesAlone) {
  const Results first = analysed(tank.path, 2.0);
  const Results second = analysed(tank.path, 2.5);
  ASSERT_FALSE(first == second);
  for (int round = 0; round < rounds; ++round) {
    Results one, two;
    at_once([&] { one = analysed(tank.path, 2.0); }, [&] { two = analysed(tank.path, 2.5); });
    EXPECT_TRUE(one == first) << round;
    EXPECT_TRUE(two == second) << round;
  }
}

TEST_F(Threads, AnExperimentAndAnAnalysisGiveWhatEachGivesAlone) {
  const Results sea = synthesised(tank.path, 20.0, 1);
  const Results waves = analysed(tank.path, 2.0);
  for (int round = 0; round < rounds; ++round) {
    Results one, two;
    at_once([&] { one = synthesised(tank.path, 20.0, 2); },
            [&] { two = analysed(tank.path, 2.0); });
    EXPECT_TRUE(one == sea) << round;
    EXPECT_TRUE(two == waves) << round;
  }
}

// Two threads read a script that divides by zero, and two read a good one.
TEST_F(Threads, ADivisionByZeroIsThatOfItsThread) {
  const Testing::TempDir folder;
  const std::string bad = folder.write("bad.site", "context { base_rate = 1/0; }");
  const auto read = [&](const std::string& path, bool& divided, std::string& message) {
    Base::collect_output(true);
    const Script::DivisionScope divisions;
    Kelpbox::Experiment experiment;
    message = Testing::thrown([&] { experiment.initialise(path); });
    divided = divisions.divided_by_zero();
    Base::take_output();
    Base::collect_output(false);
  };
  for (int round = 0; round < rounds; ++round) {
    bool divided[4] = {};
    std::string messages[4];
    at_once([&] { read(bad, divided[0], messages[0]); },
            [&] { read(tank.path, divided[1], messages[1]); },
            [&] { read(bad, divided[2], messages[2]); },
            [&] { read(tank.path, divided[3], messages[3]); });
    for (const int i : {0, 2}) {
      EXPECT_TRUE(divided[i]);
      EXPECT_NE(messages[i].find("divides an integer by zero at line 1"), std::string::npos);
    }
    for (const int i : {1, 3}) {
      EXPECT_FALSE(divided[i]);
      EXPECT_EQ(messages[i], Testing::nothing_thrown);
    }
  }
}

// A watcher looks all the time and stops at a random moment. The next build is whole again.
TEST_F(Threads, AnAnimationIsWatchedAndStoppedAtRandomMoments) {
  std::mt19937 random(1);
  for (const unsigned workers : {1U, 2U, 3U, 8U}) {
    Base::collect_output(true);
    WholeRoad road;
    road.all(tank.path);
    road.experiment->set_workers(workers);
    road.build_animation();
    const std::vector<std::int16_t> whole = road.frames();
    int stopped = 0;
    for (int round = 0; round < 25; ++round) {
      std::atomic<bool> ended{false};
      // Every other stop comes at a share of the frames, and any other after a number of looks.
      const double share = static_cast<double>(random() % 1000) / 1000.0;
      const int looks = round % 2 == 0 ? 1 << 30 : static_cast<int>(random() % 2000);
      at_once(
          [&] {
            Base::collect_output(true);
            const std::string message = Testing::thrown([&] { road.build_animation(); });
            EXPECT_TRUE(message == Testing::nothing_thrown || message == "Animate Cancelled")
                << message;
            Base::take_output();
            ended = true;
          },
          [&] {
            for (int i = 0; i < looks && !ended; ++i) {
              const double progress = road.experiment->animate_progress(road.run);
              EXPECT_GE(progress, 0.0);
              EXPECT_LE(progress, 1.0);
              if (round % 2 == 0 && progress < 1.0 && progress > share) break;
              road.experiment->animate_ready(road.run);
            }
            road.experiment->animate_stop(road.run);
          });
      if (!road.experiment->animate_ready(road.run)) ++stopped;
      road.build_animation();
      ASSERT_TRUE(road.frames() == whole) << workers;
    }
    Base::take_output();
    Base::collect_output(false);
    EXPECT_GT(stopped, 0) << workers;
  }
}

}  // namespace
