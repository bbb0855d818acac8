// The items of an analysis: series, sets and processes, and how each is refused.
#include <cstdint>

#include "analysis_fixture.h"

namespace {

using Testing::AnalysisTest;

class AnalysisTable : public AnalysisTest {};

const std::string already_ready = "create_process: Make ready called when already ready";
const std::string subscript = "create_set: invalid vector<T> subscript";

TEST_F(AnalysisTable, IdsAreCountedOverAllKindsOfItem) {
  EXPECT_EQ(add(sine(0.05)), 0);
  EXPECT_EQ(add(sine(0.03)), 1);
  EXPECT_EQ(group({0, 1}), 2);
  EXPECT_EQ(process(2, 0), 3);
  EXPECT_EQ(add({}), 4);
  EXPECT_EQ(process(2, 1), 5);
  EXPECT_EQ(group({1, 0, 1}), 6);
}

TEST_F(AnalysisTable, ClearKeepsTheItemsAndTheCount) {
  add(sine(0.05));
  const jlong set = group({0});
  host.call(NATIVE(Kelpbox_1Analysis_1clear), self, proxy);
  EXPECT_EQ(add(sine(0.03)), 2);
  EXPECT_EQ(process(set, 0), 3);
  EXPECT_NEAR(value(results(3), "reg_t", "s"), 2.0, 1e-9);
}

TEST_F(AnalysisTable, ASeriesNeedsNoSite) {
  self = empty_analysis();
  EXPECT_EQ(add(sine(0.05)), 0);
  EXPECT_EQ(group({0}), 1);
  EXPECT_EQ(thrown(), Thrown{});
}

TEST_F(AnalysisTable, ASeriesIsACopy) {
  const jlong samples = doubles(sine(0.05));
  const jlong about = params({{"rate", 50, "Hz"}});
  host.call(NATIVE(Kelpbox_1Analysis_1add_1series), self, proxy, about, proxy, samples, proxy);
  host.call(NATIVE(Kelpbox_1StdVectorDouble_1clear), samples, proxy);
  host.call(NATIVE(Kelpbox_1Params_1clear), about, proxy);
  results(process(group({0}), 0));
  EXPECT_EQ(thrown(), Thrown{});
}

// Sets.

TEST_F(AnalysisTable, ASetPrintsTheBoundsOfEachSeries) {
  add(sine(0.05));
  add(sine(0.03));
  EXPECT_EQ(group({1, 0}, window(0.01, 39.99)), 2);
  EXPECT_EQ(output, "first 1 last 2000\nsize 1999\nfirst 1 last 2000\nsize 1999\n");
  EXPECT_EQ(group({}), 3);
  EXPECT_EQ(output, "");
}

TEST_F(AnalysisTable, AnItemOfAnotherKindIsRefusedAsASeries) {
  add(sine(0.05));
  const jlong set = group({0});
  const jlong made = process(set, 1);
  for (const jlong wrong : {set, made}) {
    EXPECT_EQ(group({0, wrong}), 0);
    EXPECT_EQ(thrown(), uncaught("create_set"));
    EXPECT_EQ(output, "");
  }
}

TEST_F(AnalysisTable, AnIdBeyondTheTableIsReportedWithThePrefix) {
  add(sine(0.05));
  add(sine(0.05));
  add(sine(0.05));
  for (const jlong beyond : {jlong{99}, jlong{3}, jlong{-1}}) {
    EXPECT_EQ(group({0, beyond}), 0);
    EXPECT_EQ(thrown(), uncaught(subscript));
    EXPECT_EQ(output, "");
  }
}

TEST_F(AnalysisTable, TheFirstBadIdIsReported) {
  add(sine(0.05));
  const jlong set = group({0});
  group({set, 99});
  EXPECT_EQ(thrown(), uncaught("create_set"));
  group({99, set});
  EXPECT_EQ(thrown(), uncaught(subscript));
  // The parameters are read after the IDs.
  group({99}, params());
  EXPECT_EQ(thrown(), uncaught(subscript));
}

TEST_F(AnalysisTable, ABadWindowIsReportedWithItsMessage) {
  add(sine(0.05));
  group({0}, window(10, 10.009));
  EXPECT_EQ(thrown(), domain("Out of range"));
  EXPECT_EQ(output, "first 500 last 500\n");
  group({0}, window(10, 5));
  EXPECT_EQ(thrown(), domain("Out of range"));
  group({0}, window(0, 40.02));
  EXPECT_EQ(thrown(), domain("out of range 2"));
  EXPECT_EQ(output, "first 0 last 2001\n");
  group({0}, params({{"stop_time", 1, "s"}}));
  EXPECT_EQ(thrown(), domain("start_time::Not found"));
  group({0}, params({{"start_time", 1, "m"}, {"stop_time", 1, "s"}}));
  EXPECT_EQ(thrown(), domain("start_time::not convertable"));
}

TEST_F(AnalysisTable, ASeriesWithoutARateFailsInTheSet) {
  host.call(NATIVE(Kelpbox_1Analysis_1add_1series), self, proxy, params(), proxy,
            doubles(sine(0.05)), proxy);
  EXPECT_EQ(thrown(), Thrown{});
  group({0});
  EXPECT_EQ(thrown(), domain("rate::Not found"));
}

// Processes.

TEST_F(AnalysisTable, EachProcessNeedsASetOfTheSiteBeforeIt) {
  add(sine(0.05));
  const jlong set = group({0});
  EXPECT_EQ(create(set, 0), 0);
  EXPECT_EQ(thrown(), uncaught(already_ready));
  EXPECT_EQ(output, "AA\nAB\nAC\n");

  tune();
  EXPECT_EQ(create(set, 0), 2);
  EXPECT_EQ(create(set, 0), 0);
  EXPECT_EQ(thrown(), uncaught(already_ready));
  tune();
  EXPECT_EQ(create(set, 0), 3);
}

TEST_F(AnalysisTable, EachKindPrintsItsMarksInOrder) {
  add(sine(0.05));
  const jlong set = group({0});
  process(set, 0);
  EXPECT_EQ(output, "AA\nAB\nAC\nAG\n");
  process(set, 1);
  EXPECT_EQ(output, "AA\nAB\nAC\nAG\n");
  process(set, 2);
  EXPECT_EQ(output, "AA\nAB\nAC\nAD\nFreqSingle\nAG\n");
  process(set, 3);
  EXPECT_EQ(output, "AA\nAB\nAC\nAG\n");
}

TEST_F(AnalysisTable, AnItemOfAnotherKindIsRefusedAsASetBeforeTheTankIsMade) {
  add(sine(0.05));
  const jlong set = group({0});
  const jlong made = process(set, 1);
  tune();
  for (const jlong wrong : {jlong{0}, made, jlong{3}, jlong{99}, jlong{-1}}) {
    EXPECT_EQ(create(wrong, 0), 0);
    EXPECT_EQ(thrown(), uncaught("create_process")) << wrong;
    EXPECT_EQ(output, "AA\n");
  }
  EXPECT_EQ(create(set, 0), 3);
}

TEST_F(AnalysisTable, WithoutASiteAProcessEndsAfterItsThirdMark) {
  self = empty_analysis();
  add(sine(0.05));
  EXPECT_EQ(create(group({0}), 0), 0);
  EXPECT_EQ(thrown(), uncaught("create_process"));
  EXPECT_EQ(output, "AA\nAB\nAC\n");
}

TEST_F(AnalysisTable, AnUnknownKindReturnsTheIdOfTheNextItem) {
  add(sine(0.05));
  const jlong set = group({0});
  for (const jlong kind : {jlong{3}, jlong{UINT32_MAX}}) {
    EXPECT_EQ(process(set, kind), 2);
    EXPECT_EQ(thrown(), Thrown{});
    results(2);
    EXPECT_EQ(thrown(), uncaught("get_results"));
    EXPECT_EQ(data(2), 0);
    EXPECT_EQ(thrown(), uncaught("get_data"));
  }
  // The tank has been made nevertheless.
  create(set, 0);
  EXPECT_EQ(thrown(), uncaught(already_ready));

  EXPECT_EQ(process(set, 0), 2);
  EXPECT_NEAR(value(results(2), "reg_t", "s"), 2.0, 1e-9);
}

TEST_F(AnalysisTable, OnlyTheLow32BitsOfAKindCount) {
  add(sine(0.05));
  process(group({0}), (jlong{1} << 32) + 2);
  EXPECT_EQ(output, "AA\nAB\nAC\nAD\nFreqSingle\nAG\n");
}

TEST_F(AnalysisTable, AnItemOfAnotherKindIsRefusedAsAProcess) {
  add(sine(0.05));
  const jlong set = group({0});
  for (const jlong wrong : {jlong{0}, set, jlong{2}, jlong{99}, jlong{-1}}) {
    results(wrong);
    EXPECT_EQ(thrown(), uncaught("get_results")) << wrong;
    EXPECT_EQ(data(wrong), 0);
    EXPECT_EQ(thrown(), uncaught("get_data")) << wrong;
  }
}

TEST_F(AnalysisTable, AFailureLeavesTheTableUnchanged) {
  add(sine(0.05));
  group({0}, window(0, 99));
  EXPECT_EQ(thrown(), domain("out of range 2"));
  EXPECT_EQ(add(sine(0.05)), 1);
  group({99});
  EXPECT_EQ(thrown(), uncaught(subscript));
  EXPECT_EQ(group({0}), 2);
  create(2, 0);
  EXPECT_EQ(thrown(), uncaught(already_ready));
  EXPECT_EQ(process(2, 0), 3);
}

}  // namespace
