// The report of a list of waves: regular or not, medians, the significant wave.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "analysis/wave_list.h"
#include "records.h"
#include "support/thrown.h"

namespace {

using Analysis::WaveList;
using Testing::thrown;

const char* const too_few_crossings = "Insufficient zero crossings in time series";
const char* const too_few_points = "Insufficient points for irregular wave analysis";

// Waves in the given order with these periods and heights. The trough is a third of the height.
WaveList list_of(const std::vector<double>& periods, const std::vector<double>& heights) {
  WaveList list;
  double start = 0.0;
  for (std::size_t i = 0; i < periods.size(); ++i) {
    list.waves.push_back({heights[i] * 2.0 / 3.0, -heights[i] / 3.0, start + periods[i], start});
    start += periods[i];
  }
  return list;
}

WaveList of_periods(const std::vector<double>& periods) {
  return list_of(periods, std::vector<double>(periods.size(), 1.0));
}

WaveList equal_waves(std::size_t count) { return of_periods(std::vector<double>(count, 2.0)); }

std::vector<std::string> names(const Base::Params& params) {
  std::vector<std::string> all;
  for (const auto& [name, quantity] : params.entries()) all.push_back(name);
  return all;
}

TEST(WaveReports, FewerThanSixWavesCannotBeClassified) {
  for (std::size_t count = 0; count < 6; ++count) {
    WaveList list = equal_waves(count);
    EXPECT_EQ(thrown([&] { Analysis::is_regular(list); }), too_few_crossings) << count;
  }
  WaveList list = equal_waves(6);
  EXPECT_TRUE(Analysis::is_regular(list));
}

TEST(WaveReports, TheLongestAndTheShortestPeriodAreIgnored) {
  WaveList list = of_periods({2.0, 9.0, 2.0, 0.1, 2.0, 2.0});
  EXPECT_TRUE(Analysis::is_regular(list));
}

TEST(WaveReports, TwoLongOrTwoShortPeriodsAreIrregular) {
  WaveList longer = of_periods({2.0, 9.0, 2.0, 9.0, 2.0, 2.0, 2.0});
  EXPECT_FALSE(Analysis::is_regular(longer));
  WaveList shorter = of_periods({2.0, 0.1, 2.0, 0.1, 2.0, 2.0, 2.0});
  EXPECT_FALSE(Analysis::is_regular(shorter));
}

TEST(WaveReports, ASpreadBelowOnePerCentOfTheMedianIsRegular) {
  // The median of six periods is the fourth.
  for (const auto& [spread, regular] : {std::pair{0.99, true}, {1.01, false}}) {
    WaveList list = of_periods({1.0, 100.0, 100.0, 100.0, 100.0 + spread, 200.0});
    EXPECT_EQ(Analysis::is_regular(list), regular) << spread;
  }
}

TEST(WaveReports, ASpreadOfExactlyOnePerCentIsIrregular) {
  WaveList list;
  for (const double period : {1.0, 99.0, 100.0, 100.0, 100.0, 300.0}) {
    list.waves.push_back({1.0, 0.0, period, 0.0});
  }
  ASSERT_EQ(0.01 * 100.0, 100.0 - 99.0);
  EXPECT_FALSE(Analysis::is_regular(list));
}

TEST(WaveReports, TheUpperMedianOfAnEvenNumberIsUsed) {
  // The spread is below a hundredth of 101.005 and above a hundredth of 100.
  WaveList list = of_periods({0.1, 100.0, 100.0, 101.005, 101.005, 900.0});
  EXPECT_TRUE(Analysis::is_regular(list));
}

TEST(WaveReports, TheListIsLeftSortedByPeriod) {
  WaveList list = list_of({3.0, 1.0, 6.0, 2.0, 5.0, 4.0}, {1.0, 2.0, 3.0, 4.0, 5.0, 6.0});
  Analysis::is_regular(list);
  for (std::size_t i = 0; i < 6; ++i) {
    EXPECT_NEAR(list.waves[i].period(), 1.0 + static_cast<double>(i), 1e-12);
  }
}

TEST(WaveReports, RegularWavesHaveTheMedianPeriodAndTheMedianHeight) {
  // Seven waves, index 3 of each order; the two medians belong to different waves.
  WaveList list = list_of({1.0, 7.0, 2.0, 6.0, 4.0, 3.0, 5.0}, {0.7, 0.4, 0.1, 0.2, 0.3, 0.5, 0.6});
  Base::Params out;
  Analysis::report_regular(list, out);
  EXPECT_EQ(names(out), (std::vector<std::string>{"reg_h", "reg_t"}));
  EXPECT_NEAR(out.get("reg_t", "s"), 4.0, 1e-12);
  EXPECT_NEAR(out.get("reg_h", "m"), 0.4, 1e-12);
  EXPECT_EQ(Base::units_text(out.at("reg_t").units), "s");
  EXPECT_EQ(Base::units_text(out.at("reg_h").units), "m");
}

TEST(WaveReports, TheFourthOfSixWavesIsTheMedian) {
  WaveList list = list_of({1.0, 2.0, 3.0, 4.0, 5.0, 6.0}, {6.0, 5.0, 4.0, 3.0, 2.0, 1.0});
  Base::Params out;
  Analysis::report_regular(list, out);
  EXPECT_NEAR(out.get("reg_t", "s"), 4.0, 1e-12);
  EXPECT_NEAR(out.get("reg_h", "m"), 4.0, 1e-12);
}

TEST(WaveReports, FewerThanSixWavesHaveNoRegularReport) {
  WaveList list = equal_waves(5);
  Base::Params out;
  EXPECT_EQ(thrown([&] { Analysis::report_regular(list, out); }), too_few_crossings);
  EXPECT_TRUE(out.entries().empty());
}

TEST(WaveReports, FewerThanSixWavesHaveNoMedians) {
  WaveList list = equal_waves(5);
  EXPECT_EQ(thrown([&] { Analysis::regular_period(list); }), too_few_crossings);
  EXPECT_EQ(thrown([&] { Analysis::regular_height(list); }), too_few_crossings);
}

TEST(WaveReports, TheSignificantWaveIsAtTwoThirdsOfTheList) {
  for (std::size_t count = 6; count <= 30; ++count) {
    // Heights 1 to count in a permuted order; each period is the height plus 100.
    std::vector<double> heights;
    std::vector<double> periods;
    const std::size_t stride = count % 7 == 0 ? 11 : 7;
    for (std::size_t i = 0; i < count; ++i) {
      heights.push_back(static_cast<double>(i * stride % count + 1));
      periods.push_back(100.0 + heights.back());
    }
    WaveList list = list_of(periods, heights);
    Base::Params out;
    Analysis::report_irregular(list, out);
    const std::size_t index = 2 * count / 3;
    const double at = static_cast<double>(index + 1);
    EXPECT_NEAR(out.get("sig_h", "m"), at, 1e-9) << count;
    EXPECT_NEAR(out.get("sig_t", "s"), 100.0 + at, 1e-9) << count;
    EXPECT_NEAR(out.get("max_amp", "m"), static_cast<double>(count), 1e-9) << count;
  }
}

TEST(WaveReports, TheFifthLowestOfSixWavesIsSignificant) {
  WaveList list = list_of({1.0, 2.0, 3.0, 4.0, 5.0, 6.0}, {0.3, 0.5, 0.1, 0.6, 0.2, 0.4});
  Base::Params out;
  Analysis::report_irregular(list, out);
  EXPECT_NEAR(out.get("sig_h", "m"), 0.5, 1e-12);
  EXPECT_NEAR(out.get("sig_t", "s"), 2.0, 1e-12);
  EXPECT_NEAR(out.get("max_amp", "m"), 0.6, 1e-12);
  EXPECT_EQ(names(out), (std::vector<std::string>{"max_amp", "sig_h", "sig_t"}));
  EXPECT_EQ(Base::units_text(out.at("sig_t").units), "s");
  EXPECT_EQ(Base::units_text(out.at("sig_h").units), "m");
  EXPECT_EQ(Base::units_text(out.at("max_amp").units), "m");
}

TEST(WaveReports, FewerThanSixWavesHaveNoSignificantWave) {
  for (std::size_t count = 0; count < 6; ++count) {
    WaveList list = equal_waves(count);
    Base::Params out;
    EXPECT_EQ(thrown([&] { Analysis::report_irregular(list, out); }), too_few_points) << count;
    EXPECT_TRUE(out.entries().empty());
  }
}

TEST(WaveReports, AnExistingResultIsRefusedInOrderOfAdding) {
  WaveList list = equal_waves(9);
  const auto with = [](const char* name) {
    Base::Params out;
    out.insert(name, 1.0, "");
    return out;
  };
  Base::Params out = with("reg_h");
  EXPECT_EQ(thrown([&] { Analysis::report_regular(list, out); }),
            "\"reg_h\"::Duplicate parameter:");
  EXPECT_EQ(names(out), (std::vector<std::string>{"reg_h", "reg_t"}));
  out = with("sig_h");
  EXPECT_EQ(thrown([&] { Analysis::report_irregular(list, out); }),
            "\"sig_h\"::Duplicate parameter:");
  EXPECT_EQ(names(out), (std::vector<std::string>{"max_amp", "sig_h", "sig_t"}));
  out = with("sig_t");
  EXPECT_EQ(thrown([&] { Analysis::report_irregular(list, out); }),
            "\"sig_t\"::Duplicate parameter:");
  EXPECT_EQ(names(out), (std::vector<std::string>{"max_amp", "sig_t"}));
}

}  // namespace
