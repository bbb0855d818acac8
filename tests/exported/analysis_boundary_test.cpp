// The boundary around an analysis: fixed messages, null arguments and handles.
#include <sys/resource.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <new>
#include <utility>

#include "analysis_fixture.h"

namespace {

using Testing::AnalysisTest;

class AnalysisBoundary : public AnalysisTest {};

TEST_F(AnalysisBoundary, ASecondInitialiseThrowsTheFixedMessage) {
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Analysis_1initialise), self, proxy,
                      TEST_ROOT "/exported/data/basin.txt"),
            uncaught("Initialise"));
}

TEST_F(AnalysisBoundary, EachGuardedOperationHasItsOwnMessageBeforeInitialise) {
  const jlong empty = empty_analysis();
  const jlong none = params({{"delta_x", 1, "m"}});
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Analysis_1set), empty, proxy, none, proxy), uncaught("set"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Analysis_1get_1consts), empty, proxy, none, proxy),
            uncaught("get consts"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Analysis_1query), empty, proxy, none, proxy),
            uncaught("Query"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Analysis_1profile), empty, proxy, none, proxy),
            uncaught("profile"));
  EXPECT_EQ(
      thrown_by(NATIVE(Kelpbox_1Analysis_1get_1results), empty, proxy, 0, none, proxy, none, proxy),
      uncaught("get_results"));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Analysis_1get_1data), empty, proxy, 0, none, proxy),
            uncaught("get_data"));
  host.call(NATIVE(Kelpbox_1Analysis_1clear), empty, proxy);
}

// Arguments.

TEST_F(AnalysisBoundary, NullReferencesAreRefusedInOrder) {
  const Thrown in = null_pointer("Base::Params & reference is null");
  const Thrown const_in = null_pointer("Base::Params const & reference is null");
  const jlong some = params();
  for (const auto operation :
       {NATIVE(Kelpbox_1Analysis_1set), NATIVE(Kelpbox_1Analysis_1get_1consts),
        NATIVE(Kelpbox_1Analysis_1query)}) {
    EXPECT_EQ(thrown_by(operation, self, proxy, 0, proxy), in);
  }
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Analysis_1profile), self, proxy, 0, proxy), in);

  const auto add_series = NATIVE(Kelpbox_1Analysis_1add_1series);
  EXPECT_EQ(thrown_by(add_series, self, proxy, 0, proxy, 0, proxy), const_in);
  EXPECT_EQ(thrown_by(add_series, self, proxy, 0, proxy, doubles({}), proxy), const_in);
  EXPECT_EQ(thrown_by(add_series, self, proxy, some, proxy, 0, proxy),
            null_pointer("std::vector< double > const & reference is null"));

  const auto create_set = NATIVE(Kelpbox_1Analysis_1create_1set);
  EXPECT_EQ(thrown_by(create_set, self, proxy, 0, proxy, 0, proxy), const_in);
  EXPECT_EQ(thrown_by(create_set, self, proxy, some, proxy, 0, proxy),
            null_pointer("std::vector< unsigned int > const & reference is null"));

  const auto get_results = NATIVE(Kelpbox_1Analysis_1get_1results);
  EXPECT_EQ(thrown_by(get_results, self, proxy, 0, 0, proxy, 0, proxy), const_in);
  EXPECT_EQ(thrown_by(get_results, self, proxy, 0, some, proxy, 0, proxy), in);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Analysis_1get_1data), self, proxy, 0, 0, proxy), const_in);

  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Analysis_1initialise), self, proxy, jstring{}),
            null_pointer("null std::string"));
  EXPECT_EQ(add(sine(0.05)), 0);
}

TEST_F(AnalysisBoundary, ASeriesThatDoesNotFitMemoryIsRefusedWithThePrefix) {
#ifdef KELPBOX_SANITIZED
  GTEST_SKIP() << "a sanitizer needs more addresses than the limit leaves";
#endif
  const jlong samples = own(host.call(NATIVE(new_1Kelpbox_1StdVectorDouble_1_1SWIG_11), 8 << 20),
                            NATIVE(delete_1Kelpbox_1StdVectorDouble));
  const jlong about = params({{"rate", 50, "Hz"}});
  const auto in_little_memory = [&] {
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const rlim_t limit = pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + (32 << 20);
    const rlimit little{limit, limit};
    if (setrlimit(RLIMIT_AS, &little) != 0) std::exit(2);
    const Thrown failure = thrown_by(NATIVE(Kelpbox_1Analysis_1add_1series), self, proxy, about,
                                     proxy, samples, proxy);
    const bool prefixed =
        failure == uncaught("add_series: " + std::string(std::bad_alloc().what()));
    std::exit(prefixed && add({}) == 0 ? 0 : 1);
  };
  EXPECT_EXIT(in_little_memory(), testing::ExitedWithCode(0), "");
}

// Handles.

TEST_F(AnalysisBoundary, TheDataOfAProcessOutlivesItsAnalysis) {
  add(sine(0.05));
  const jlong made = process(group({0}), 0);
  results(made);
  const jlong heights = data(made);
  jlong other = host.call(NATIVE(new_1Kelpbox_1Analysis));
  std::swap(self, other);
  initialise(self, TEST_ROOT "/exported/data/basin.txt");
  add(sine(0.03));
  const jlong outliving = process(group({0}), 0);
  results(outliving);
  const jlong lower = data(outliving);
  host.call(NATIVE(delete_1Kelpbox_1Analysis), self);
  self = other;
  EXPECT_NEAR(values_of(lower).at(0), 0.06, 1e-12);
  EXPECT_NEAR(values_of(heights).at(0), 0.1, 1e-12);
}

TEST_F(AnalysisBoundary, DeletingNullDoesNothing) {
  host.call(NATIVE(delete_1Kelpbox_1Analysis), 0);
}

TEST_F(AnalysisBoundary, ExperimentAndAnalysisHandlesAreInterchangeable) {
  self = basin();
  add(sine(0.05));
  EXPECT_NEAR(value(results(process(group({0}), 0)), "reg_t", "s"), 2.0, 1e-9);
  host.call(NATIVE(Kelpbox_1Analysis_1clear), self, proxy);

  const jlong made = analysis();
  EXPECT_EQ(string_from(NATIVE(Kelpbox_1Experiment_1context_1name), made, proxy),
            "Basin two banks");
  const jlong run = host.call(NATIVE(Kelpbox_1Experiment_1add_1definition), made, proxy, "run");
  EXPECT_EQ(run, 0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Experiment_1add_1specification), made, proxy, run), 1);
  host.call(NATIVE(Kelpbox_1Experiment_1clear), made, proxy);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Experiment_1add_1definition), made, proxy, "run"), 0);
}

TEST_F(AnalysisBoundary, EitherDeleteFreesEitherHandle) {
  host.call(NATIVE(delete_1Kelpbox_1Experiment), host.call(NATIVE(new_1Kelpbox_1Analysis)));
  const jlong named = host.call(NATIVE(new_1Kelpbox_1Experiment_1_1SWIG_11), "monday");
  host.call(NATIVE(delete_1Kelpbox_1Analysis), named);
}

}  // namespace
