// Analysis as a C++ host uses it: on the site of an experiment, or on one of its own.
#include "facade/analysis.h"

#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "facade/experiment.h"
#include "flume.h"
#include "support/output.h"
#include "support/test_site.h"
#include "support/thrown.h"

using Kelpbox::ProcessKind;
using Testing::thrown;

namespace {

constexpr double rate = 50.0;      // Hz
constexpr double duration = 40.0;  // s

// A record of a regular wave that starts in a trough.
std::vector<double> regular_wave(double height, double period) {
  std::vector<double> samples;
  for (int j = 0; j < duration * rate; ++j) {
    samples.push_back(-0.5 * height * std::cos(2.0 * std::numbers::pi * j / rate / period));
  }
  return samples;
}

// An analysis with the steps of its use, whose progress lines are not shown.
struct OpenAnalysis : Kelpbox::Analysis {
  explicit OpenAnalysis(Kelpbox::SiteFacade& its_site) : Analysis(its_site), site(its_site) {}

  std::uint32_t record(double height, double period) {
    return add_series(Testing::rate_params(rate), regular_wave(height, period));
  }

  std::uint32_t set_of(const std::vector<std::uint32_t>& series) {
    Base::Params window;
    window.insert("start_time", 0.0, "s");
    window.insert("stop_time", duration, "s");
    return quietly([&] { return create_set(window, series); });
  }

  std::uint32_t process_without_set(std::uint32_t records, std::uint32_t kind) {
    return quietly([&] { return create_process(records, kind); });
  }

  // Sets the site's values, as each process needs, and creates a process.
  std::uint32_t process(std::uint32_t records, std::uint32_t kind) {
    Base::Params values;
    site.query(values);
    set(values);
    return process_without_set(records, kind);
  }
  std::uint32_t process(std::uint32_t records, ProcessKind kind) {
    return process(records, static_cast<std::uint32_t>(kind));
  }

  template <typename Operation>
  std::uint32_t quietly(Operation operation) {
    std::uint32_t id = 0;
    progress = Testing::printed([&] { id = operation(); });
    return id;
  }

  Kelpbox::SiteFacade& site;
  std::string progress;  // of the latest step
};

class AnalysisTest : public testing::Test {
 protected:
  AnalysisTest() { open_flume(site); }

  Kelpbox::SiteFacade site;
  OpenAnalysis analysis{site};
  Base::Params none;
};

TEST_F(AnalysisTest, FindsHeightAndPeriodOfARegularWave) {
  const std::uint32_t set =
      analysis.set_of({analysis.record(0.10, 2.0), analysis.record(0.06, 2.0)});
  const std::uint32_t waves = analysis.process(set, ProcessKind::zero_crossings);
  Base::Params results;
  analysis.get_results(waves, none, results);
  EXPECT_NEAR(results.get("reg_t", "s"), 2.0, 1e-9);
  const std::vector<double>& heights = analysis.get_data(waves, none);
  ASSERT_EQ(heights.size(), 2u);
  EXPECT_NEAR(heights[0], 0.10, 1e-12);
  EXPECT_NEAR(heights[1], 0.06, 1e-12);
}

TEST_F(AnalysisTest, GivesEachNewItemTheNextId) {
  EXPECT_EQ(analysis.record(0.1, 2.0), 0u);
  EXPECT_EQ(analysis.set_of({0}), 1u);
  EXPECT_EQ(analysis.process(1, ProcessKind::nothing), 2u);
  analysis.clear();
  EXPECT_EQ(analysis.record(0.1, 2.0), 3u);
}

TEST_F(AnalysisTest, WritesItsProgressMarks) {
  const std::uint32_t set = analysis.set_of({analysis.record(0.1, 2.0)});
  analysis.process(set, ProcessKind::zero_crossings);
  EXPECT_EQ(analysis.progress, "AA\nAB\nAC\nAG\n");
  analysis.process(set, ProcessKind::wave_trains);
  EXPECT_EQ(analysis.progress, "AA\nAB\nAC\nAD\nFreqSingle\nAG\n");
}

TEST_F(AnalysisTest, ReturnsTheNextIdForAnUnknownKind) {
  const std::uint32_t set = analysis.set_of({analysis.record(0.1, 2.0)});
  const std::uint32_t next = analysis.process(set, 3u);
  EXPECT_EQ(next, set + 1);
  EXPECT_EQ(analysis.process(set, 0xFFFFFFFFu), next);
  EXPECT_EQ(thrown([&] { analysis.get_data(next, none); }),
            "Uncaught Exception in Experiment get_data");
  EXPECT_EQ(analysis.record(0.1, 2.0), next);
}

TEST_F(AnalysisTest, NeedsASetBeforeEachProcess) {
  const std::uint32_t set = analysis.set_of({analysis.record(0.1, 2.0)});
  const std::string refused =
      "Uncaught Exception in Experiment create_process: Make ready called when already ready";
  EXPECT_EQ(thrown([&] { analysis.process_without_set(set, 0); }), refused);
  analysis.process(set, ProcessKind::zero_crossings);
  EXPECT_EQ(thrown([&] { analysis.process_without_set(set, 0); }), refused);
}

TEST_F(AnalysisTest, ReportsIdsThatDoNotFit) {
  const std::uint32_t set = analysis.set_of({analysis.record(0.1, 2.0)});
  const std::string start = "Uncaught Exception in Experiment ";
  Base::Params results;
  EXPECT_EQ(thrown([&] { analysis.set_of({set}); }), start + "create_set");
  EXPECT_EQ(thrown([&] { analysis.set_of({99}); }),
            start + "create_set: invalid vector<T> subscript");
  EXPECT_EQ(thrown([&] { analysis.get_results(set, none, results); }), start + "get_results");
  EXPECT_EQ(thrown([&] { analysis.get_data(99, none); }), start + "get_data");
}

TEST_F(AnalysisTest, LeavesTheDataOfItsProcessesWhenItEnds) {
  const std::vector<double>* heights = nullptr;
  {
    OpenAnalysis ending(site);
    const std::uint32_t set = ending.set_of({ending.record(0.1, 2.0)});
    const std::uint32_t waves = ending.process(set, ProcessKind::zero_crossings);
    Base::Params results;
    ending.get_results(waves, none, results);
    heights = &ending.get_data(waves, none);
  }
  ASSERT_EQ(heights->size(), 1u);
  EXPECT_NEAR(heights->front(), 0.1, 1e-12);
}

TEST_F(AnalysisTest, LeavesTheTankNotReadyUntilItsNextProcess) {
  Kelpbox::Experiment experiment;
  open_flume(experiment);
  Kelpbox::Analysis on_its_site(experiment);
  const std::uint32_t run = experiment.add_definition("run");
  Base::Params values;
  experiment.query(values);
  on_its_site.set(values);
  EXPECT_EQ(thrown([&] { experiment.run_build(run); }), "Building run when context not ready");
}

}  // namespace
