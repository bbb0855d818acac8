// Every allocation of an analysis fails: the call throws, and succeeds when it is repeated.
#include <set>
#include <string>

#include "four_probes.h"
#include "support/every_failure.h"

namespace {

using Testing::every_failure;
using Testing::Failures;
using Testing::FourProbes;

class AnalysisMemory : public testing::Test {
 protected:
  template <typename Steps>
  auto after(Steps steps) {
    return [this, steps] {
      auto probes = std::make_unique<FourProbes>(site);
      steps(*probes);
      return probes;
    };
  }
  // It has tunable values.
  const std::string site = TEST_ROOT "/../examples/basin.site";
};

void expect_messages(const Failures& failures, const std::set<std::string>& operations) {
  std::set<std::string> messages;
  for (const std::string& operation : operations) {
    messages.insert("Uncaught Exception in Experiment " + operation + ": std::bad_alloc");
  }
  EXPECT_EQ(failures.messages, messages);
  testing::Test::RecordProperty("allocations", static_cast<int>(failures.allocations));
}

TEST_F(AnalysisMemory, SeriesAreAdded) {
  const Failures failures = every_failure(
      after([](FourProbes&) {}), [](FourProbes& probes) { probes.add_series(); },
      [](FourProbes& probes) { return probes.all(); });
  EXPECT_GT(failures.allocations, 0);
}

TEST_F(AnalysisMemory, ASetIsCreated) {
  const Failures failures = every_failure(
      after([](FourProbes& probes) { probes.add_series(); }),
      [](FourProbes& probes) { probes.create_set(); },
      [](FourProbes& probes) { return probes.all(); });
  EXPECT_GT(failures.allocations, 0);
}

TEST_F(AnalysisMemory, ProcessesAreCreated) {
  const Failures failures = every_failure(
      after([](FourProbes& probes) {
        probes.add_series();
        probes.create_set();
      }),
      [](FourProbes& probes) { probes.create_processes(); },
      [](FourProbes& probes) { return probes.all(); });
  expect_messages(failures, {"Query", "create_process"});
}

TEST_F(AnalysisMemory, ResultsAreComputed) {
  const Failures failures = every_failure(
      after([](FourProbes& probes) {
        probes.add_series();
        probes.create_set();
        probes.create_processes();
      }),
      [](FourProbes& probes) { probes.get_results(); },
      [](FourProbes& probes) { return probes.all(); });
  EXPECT_GT(failures.allocations, 0);
}

}  // namespace
