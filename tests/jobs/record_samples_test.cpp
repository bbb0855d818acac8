#include "jobs/record_samples.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Jobs {
namespace {

CsvTable table_of(const std::vector<double>& times, const std::string& time = "time",
                  const std::string& units = "s") {
  CsvTable table;
  table.columns = {{time + " [" + units + "]", time, units, times},
                   {"eta [mm]", "eta", "mm", std::vector<double>(times.size())}};
  return table;
}

TimeColumn times(const CsvTable& table) { return time_column(table, table.columns[1]); }

TEST(RecordSamples, TheRateIsThatOfTheTimes) {
  EXPECT_DOUBLE_EQ(times(table_of({0, 0.1, 0.2, 0.3})).rate, 10.0);
  EXPECT_DOUBLE_EQ(times(table_of({0, 2, 4}, "T", "msec")).rate, 500.0);
  EXPECT_FALSE(times(table_of({0, 0.1, 0.2, 0.3})).uneven_row);
}

TEST(RecordSamples, OneTimeHasNoRate) {
  const TimeColumn one = times(table_of({0.5}));
  EXPECT_EQ(one.rate, 0.0);
  EXPECT_FALSE(one.uneven_row);
}

TEST(RecordSamples, TheRowAfterTheOddestStepIsUneven) {
  EXPECT_EQ(times(table_of({0, 1, 2, 4, 5, 6})).uneven_row, 3U);
  // Many steps that are hardly uneven carry the times away from even ones.
  std::vector<double> drifting = {0.0};
  for (int i = 1; i < 100000; ++i) drifting.push_back(drifting.back() + (i < 50000 ? 1.0 : 1.001));
  EXPECT_TRUE(times(table_of(drifting)).uneven_row);
  // A step that is uneven by more than a hundredth is one part in a million of the whole.
  std::vector<double> jittered(1000000);
  for (std::size_t i = 0; i < jittered.size(); ++i) jittered[i] = static_cast<double>(i);
  jittered[500] += 0.02;
  EXPECT_EQ(times(table_of(jittered)).uneven_row.value_or(0) / 2, 250U);
}

TEST(RecordSamples, RowsAreFoundInTheTextTheyCameFrom) {
  const std::string text = "# a probe\n\ntime [s],eta [mm]\n0,1\n  \n# pause\n0.1,2";
  const CsvTable table = table_of({0, 0.1});
  EXPECT_EQ(line_of_row(text, table, 0), 4U);
  EXPECT_EQ(line_of_row(text, table, 1), 7U);
  EXPECT_EQ(line_of_row(text, table, 9), 7U);  // the last line
  CsvTable bare;
  bare.columns = {{"", "", "", {1, 2}}};
  EXPECT_EQ(line_of_row("1\n2\n", bare, 1), 2U);
}

double variance(const std::vector<double>& samples, double rate, double ramp, double repeat) {
  Base::Params params;
  params.insert("scale_ratio", 1.0, "");
  params.insert("rate", rate, "Hz");
  params.insert("ramp_time", ramp, "s");
  return record_variance(samples, params, repeat);
}

TEST(RecordSamples, TheVarianceIsThatOfTheRecordAsItFillsTheRepeat) {
  EXPECT_DOUBLE_EQ(variance({1, -1, 1, -1}, 1.0, 0.0, 4.0), 1.0);
  // Silence after the end: half the mean square, and a mean of 0.
  EXPECT_DOUBLE_EQ(variance({1, -1, 1, -1}, 1.0, 0.0, 8.0), 0.5);
  // What is beyond the repeat is added to its beginning while the ramp lasts.
  EXPECT_DOUBLE_EQ(variance({1, -1, 1, -1, 2, 9}, 1.0, 1.0, 4.0), 3.0 - 0.25);
}

TEST(RecordSamples, ARecordOfNoUsableLengthHasNoVariance) {
  EXPECT_EQ(variance({1, -1}, 1e-3, 0.0, 4.0), 0.0);
  EXPECT_EQ(variance({1, -1}, 1e9, 0.0, 4.0), 0.0);
}

}  // namespace
}  // namespace Jobs
