// How results of an analysis are shown, for results that are filled in by hand.
#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>
#include <numbers>

#include "cli/analysis_doubts.h"
#include "cli/analysis_text.h"
#include "cli/record_peak.h"
#include "cli/tool_json.h"

namespace {

using Cli::Probe;
using Cli::RecordAnalysis;

bool has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

Probe probe(std::vector<double> samples = std::vector<double>(16)) {
  Probe made;
  made.name = "p";
  made.samples = std::move(samples);
  return made;
}

// Of 16 samples in 16 s.
Probe sine(double periods) {
  std::vector<double> samples(16);
  for (std::size_t i = 0; i < samples.size(); ++i) {
    samples[i] = std::cos(2.0 * std::numbers::pi * periods * static_cast<double>(i) / 16.0);
  }
  return probe(samples);
}

RecordAnalysis bare(std::size_t probes = 1) {
  RecordAnalysis analysis;
  analysis.records.file = "r.csv";
  analysis.records.rate = 1.0;
  analysis.records.probes.assign(probes, probe());
  return analysis;
}

RecordAnalysis irregular(std::size_t probes) {
  RecordAnalysis analysis = bare(probes);
  analysis.crossings = Cli::ZeroCrossings{false, 2.5, 0.125, {}};
  return analysis;
}

TEST(AnalysisText, LeavesOutWhatWasNotFound) {
  const std::string text = analysis_text(bare());
  EXPECT_TRUE(has(text, "1 probe, 16 samples at 1 Hz, from 0 s to 16 s"));
  EXPECT_FALSE(has(text, "zero crossings"));
  EXPECT_FALSE(has(text, "wave trains"));
}

TEST(AnalysisText, GivesTheMeanOfSeveralProbes) {
  EXPECT_FALSE(has(analysis_text(irregular(1)), "mean over the probes"));
  EXPECT_TRUE(has(analysis_text(irregular(2)), "mean over the probes"));
}

TEST(AnalysisText, ShowsLongLengthsInMetres) {
  RecordAnalysis analysis = irregular(1);
  analysis.crossings->height = 0.999;
  EXPECT_TRUE(has(analysis_text(analysis), "999.00 mm"));
  analysis.crossings->height = 1.25;
  EXPECT_TRUE(has(analysis_text(analysis), "1.2500 m"));
}

TEST(AnalysisTable, ExplainsOnlyWhatItHas) {
  const std::string empty = Cli::analysis_table({bare()});
  EXPECT_TRUE(has(empty, "r.csv       1  -                  -           -           -"));
  EXPECT_FALSE(has(empty, "regular"));
  const std::string table = Cli::analysis_table({irregular(1)});
  EXPECT_TRUE(has(table, "irregular    2.500 s   125.00 mm           -"));
  EXPECT_TRUE(has(table, "irregular: period and height of the wave at two thirds"));
  EXPECT_FALSE(has(table, "\nregular: "));
}

TEST(AnalysisJson, HasOnlyWhatWasFound) {
  const auto file = [](const RecordAnalysis& analysis) {
    return nlohmann::json::parse(Cli::json_of(std::vector<RecordAnalysis>{analysis}))["files"][0];
  };
  const auto empty = file(bare());
  EXPECT_FALSE(empty.contains("zero_crossings"));
  EXPECT_FALSE(empty.contains("wave_trains"));
  EXPECT_FALSE(empty["probes"][0].contains("x"));
  const auto found = file(irregular(1))["zero_crossings"];
  EXPECT_EQ(found, (nlohmann::json{{"regular", false}, {"sig_t", 2.5}, {"sig_h", 0.125}}));
}

TEST(AnalysisDoubts, NameIrregularWaves) {
  const auto doubts = Cli::doubts_of(bare().records, {8, 0.5, 8.0, 0.3}, {});
  ASSERT_EQ(doubts.size(), 1U);
  EXPECT_TRUE(has(doubts[0], "only 30 % of the energy lies at 0.5 Hz and its harmonics"));
}

TEST(AnalysisDoubts, NameLayoutsThatHardlyTellHarmonicsApart) {
  Cli::WaveTrains trains;
  trains.has_harmonics = true;
  trains.gain.fundamental = 1.0;
  trains.gain.harmonic = 10.0;
  const auto doubts = Cli::doubts_of(bare().records, {8, 0.5, 8.0, 1.0}, trains);
  ASSERT_EQ(doubts.size(), 1U);
  EXPECT_TRUE(has(doubts[0], "noise in them is amplified 10 times"));
}

TEST(AnalysisDoubts, ExplainWhyTrainsCannotBeSeparated) {
  const Cli::RecordPeak peak{8, 0.5, 8.0, 1.0};
  EXPECT_EQ(Cli::separation_failure("Too few independant probes to process", peak, 3.0),
            "the probes stand too close together for waves of 0.5 Hz");
  EXPECT_EQ(Cli::separation_failure("Index 40 of 20", peak, 3.0),
            "the fourth harmonic of 0.5 Hz lies above half of the rate, 1.5 Hz");
  EXPECT_EQ(Cli::separation_failure("anything else", peak, 3.0), "anything else");
}

TEST(RecordPeak, MayBeTheLowestOrTheHighestElement) {
  Cli::ProbeRecords records = bare(0).records;
  records.probes = {sine(1.0)};
  EXPECT_EQ(Cli::find_peak(records).element, 1U);
  EXPECT_NEAR(Cli::find_peak(records).periods, 1.0, 1e-9);
  EXPECT_NEAR(Cli::find_peak(records).share, 1.0, 1e-9);
  records.probes = {sine(8.0)};
  EXPECT_EQ(Cli::find_peak(records).element, 8U);
  EXPECT_EQ(Cli::find_peak(records).frequency, 0.5);
}

TEST(RecordPeak, IsTheLowestOfAllProbes) {
  Cli::ProbeRecords records = bare(0).records;
  records.probes = {sine(4.0), sine(2.0), sine(3.0)};
  EXPECT_EQ(Cli::find_peak(records).element, 2U);
}

}  // namespace
