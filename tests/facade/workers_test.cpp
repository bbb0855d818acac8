// The workers that a host asks for reach its builds.
#include <iostream>
#include <set>
#include <streambuf>
#include <thread>
#include <vector>

#include "facade/experiment.h"
#include "flume.h"
#include "support/test_run.h"
#include "support/test_site.h"

namespace {

// Notes which threads write to the standard output.
class Writers : public std::streambuf {
 public:
  Writers() : shown_(std::cout.rdbuf(this)) {}
  ~Writers() override { std::cout.rdbuf(shown_); }
  Writers(const Writers&) = delete;
  Writers& operator=(const Writers&) = delete;

  std::set<std::thread::id> threads;

 private:
  int_type overflow(int_type c) override {
    threads.insert(std::this_thread::get_id());
    return c;
  }

  std::streambuf* shown_;
};

class WorkersTest : public testing::Test {
 protected:
  WorkersTest() { open_flume(experiment); }

  // Adds one wave to a definition, and builds its run.
  void build_run(std::uint32_t run) {
    const std::uint32_t place = experiment.add_specification(run);
    const std::uint32_t wave = experiment.add_single(place);
    Base::Params params = Testing::run_params(10.0);
    experiment.set(run, params);
    params = Testing::at(0.0, 0.0, 0.0);
    experiment.set(place, params);
    params.clear();
    params.insert("f", 0.7, "Hz");
    params.insert("a", 0.04, "m");
    params.insert("angle", 0.2, "rad");
    params.insert("phase", 0.3, "rad");
    experiment.set(wave, params);
    experiment.run_build(run);
  }

  // The threads that write the angle lines of an animation of 101 columns.
  std::set<std::thread::id> writers(std::uint32_t run) {
    Base::Params grid = Testing::rate_params(10.0);
    grid.insert("x_min", 0.0, "m");
    grid.insert("x_max", 5.0, "m");
    grid.insert("x_step", 0.05, "m");
    grid.insert("y_min", 0.0, "m");
    grid.insert("y_max", 0.8, "m");
    grid.insert("y_step", 0.1, "m");
    Writers written;
    experiment.animate_build(run, grid);
    return written.threads;
  }

  std::vector<std::vector<std::int16_t>> frames(std::uint32_t run) {
    std::vector<std::vector<std::int16_t>> all;
    for (std::uint32_t t = 0; t < experiment.animate_size(run); ++t) {
      all.push_back(experiment.animate_data(run, t));
    }
    return all;
  }

  Kelpbox::Experiment experiment;
};

TEST_F(WorkersTest, OneThreadIsTheDefault) {
  EXPECT_EQ(experiment.workers(), 1u);
  const std::uint32_t run = experiment.add_definition("run");
  build_run(run);
  EXPECT_EQ(writers(run), std::set<std::thread::id>{std::this_thread::get_id()});
  experiment.set_workers(0);
  EXPECT_EQ(experiment.workers(), 1u);
}

TEST_F(WorkersTest, TheyReachTheDefinitionsThatWereNotRemoved) {
  experiment.add_definition("kept");
  experiment.remove(experiment.add_definition("removed"));
  EXPECT_NO_THROW(experiment.set_workers(2));
  EXPECT_EQ(experiment.workers(), 2u);
}

TEST_F(WorkersTest, TheyReachDefinitionsMadeBeforeAndAfter) {
  const std::uint32_t before = experiment.add_definition("before");
  build_run(before);
  writers(before);
  const std::vector<std::vector<std::int16_t>> of_one = frames(before);
  experiment.set_workers(4);
  EXPECT_EQ(experiment.workers(), 4u);
  const std::uint32_t after = experiment.add_definition("after");
  build_run(after);
  for (const std::uint32_t run : {before, after}) {
    // On a busy machine, the first worker may do all of a build.
    std::size_t most = 0;
    for (int round = 0; most < 2 && round < 1000; ++round) most = writers(run).size();
    EXPECT_GE(most, 2u);
    EXPECT_TRUE(frames(run) == of_one);
  }
}

}  // namespace
