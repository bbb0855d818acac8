#include "jobs/nearest.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace {

using Jobs::nearest;
using Names = std::vector<std::string>;

TEST(Nearest, EachKindOfSlipIsFound) {
  const Names known = {"hs", "tp", "gamma"};
  EXPECT_EQ(nearest("gama", known), "gamma");    // a letter is missing
  EXPECT_EQ(nearest("gammma", known), "gamma");  // one too many
  EXPECT_EQ(nearest("gemma", known), "gamma");   // a wrong one
  EXPECT_EQ(nearest("gmama", known), "gamma");   // two are swapped
  EXPECT_EQ(nearest("tpp", known), "tp");
}

TEST(Nearest, NothingIsFoundForAnotherWord) {
  const Names known = {"hs", "tp", "gamma", "repeat"};
  EXPECT_EQ(nearest("depth", known), std::nullopt);
  EXPECT_EQ(nearest("", known), std::nullopt);
  EXPECT_EQ(nearest("hs", {}), std::nullopt);
}

TEST(Nearest, CaseComesBeforeDistance) {
  EXPECT_EQ(nearest("anglespread", {"anglespreads", "AngleSpread"}), "AngleSpread");
  EXPECT_EQ(nearest("HS", {"Hs2", "hs"}), "hs");
}

TEST(Nearest, CaseDoesNotAddToTheDistance) {
  EXPECT_EQ(nearest("ANGLESPRED", {"AngleSpread"}), "AngleSpread");
}

TEST(Nearest, TheSmallestDistanceWins) {
  EXPECT_EQ(nearest("max_angl", {"min_angle", "max_angle"}), "max_angle");
  EXPECT_EQ(nearest("ramp_tim", {"ramp_type", "ramp_time"}), "ramp_time");
}

TEST(Nearest, OfEquallyNearNamesTheFirstWins) {
  EXPECT_EQ(nearest("cat", {"bat", "rat"}), "bat");
  EXPECT_EQ(nearest("cat", {"rat", "bat"}), "rat");
}

TEST(Nearest, TheLimitIsAThirdOfTheLongerName) {
  EXPECT_EQ(nearest("abcdxx", {"abcdef"}), "abcdef");      // 2 of 6
  EXPECT_EQ(nearest("abcxxx", {"abcdef"}), std::nullopt);  // 3 of 6
  EXPECT_EQ(nearest("abcdxxxxx", {"abcdxx"}), "abcdxx");   // 3 of 9
  EXPECT_EQ(nearest("abxx", {"abcd"}), std::nullopt);      // 2 of 4
}

TEST(Nearest, ShortNamesMayDifferByOne) {
  EXPECT_EQ(nearest("h", {"hs"}), "hs");
  EXPECT_EQ(nearest("gs", {"hs"}), "hs");
  EXPECT_EQ(nearest("sh", {"hs"}), "hs");
}

TEST(Nearest, NamesWithoutACommonLetterAreNotAlike) {
  EXPECT_EQ(nearest("x", {"y", "f"}), std::nullopt);
  EXPECT_EQ(nearest("", {"y"}), std::nullopt);
}

TEST(Nearest, WordsInAnotherOrderAreFoundLast) {
  EXPECT_EQ(nearest("merge_wave", {"wave_merge", "repeat"}), "wave_merge");
  EXPECT_EQ(nearest("angle-max", {"max_angle"}), "max_angle");
  EXPECT_EQ(nearest("angle", {"max_angle"}), std::nullopt);
}

TEST(Nearest, AVeryLongNameIsNotCompared) {
  EXPECT_EQ(nearest(std::string(1 << 24, 'a'), {"aaa", "gamma"}), std::nullopt);
}

TEST(Nearest, WordsMayBeInAnotherOrder) {
  EXPECT_EQ(nearest("angle max", {"min_angle", "max_angle"}), "max_angle");
  EXPECT_EQ(nearest("angle-max", {"max_angle"}), "max_angle");
  EXPECT_EQ(nearest("angle_of_all", {"max_angle", "ran_gen"}), std::nullopt);
}

}  // namespace
