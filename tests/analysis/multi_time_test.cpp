// Wave heights and periods over several probes.
#include "analysis/multi_time.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "analysis/multi_freq.h"
#include "records.h"
#include "support/output.h"
#include "support/thrown.h"

namespace {

using Analysis::MultiTime;
using Analysis::Series;
using Testing::nothing_thrown;
using Testing::printed;
using Testing::thrown;

const char* const too_few_crossings = "Insufficient zero crossings in time series";

struct Shape {
  double height;
  int samples;  // at 10 Hz; a multiple of 4, so that crest and trough are samples
};

// Whole waves, each a sine that starts at zero, and the crossing that ends the last one.
std::vector<double> waves_of(const std::vector<Shape>& shapes) {
  std::vector<double> samples;
  for (const Shape& shape : shapes) {
    samples.push_back(0.0);
    for (int j = 1; j < shape.samples; ++j) {
      samples.push_back(0.5 * shape.height * std::sin(2.0 * std::numbers::pi * j / shape.samples));
    }
  }
  samples.insert(samples.end(), {0.0, 1e-3});
  return samples;
}

// Heights 0.1 to 0.1 * count, all periods 2 s.
std::vector<double> regular(int count, double scale = 1.0) {
  std::vector<Shape> shapes;
  for (int i = 1; i <= count; ++i) shapes.push_back({0.1 * scale * i, 20});
  return waves_of(shapes);
}

// Heights 0.1 to 0.1 * count, periods of 2, 2.4, 2.8, ... s.
std::vector<double> irregular(int count, double scale = 1.0) {
  std::vector<Shape> shapes;
  for (int i = 1; i <= count; ++i) shapes.push_back({0.1 * scale * i, 16 + 4 * i});
  return waves_of(shapes);
}

Records probes(const std::vector<std::vector<double>>& records) {
  std::vector<Series> series;
  series.reserve(records.size());
  for (const std::vector<double>& samples : records) series.push_back({at_rate(10.0), samples});
  return Records(series);
}

// The results of one round of a process.
struct Answer {
  Base::Params out;
  std::vector<double> data;
};

Answer answer(MultiTime& process) {
  Answer given;
  process.process({});
  process.results(given.out);
  given.data = process.data({});
  return given;
}

Answer answer(const std::vector<std::vector<double>>& records) {
  Records set = probes(records);
  const Maths::TankConfig tank;
  MultiTime process(tank, set.set());
  return answer(process);
}

std::string failure(const std::vector<std::vector<double>>& records) {
  return thrown([&] { answer(records); });
}

TEST(MultiTime, RegularProbesHaveAMeanPeriodAndAHeightEach) {
  const Answer given = answer({regular(7), regular(8, 2.0)});
  ASSERT_EQ(given.out.entries().size(), 1u);
  EXPECT_NEAR(given.out.get("reg_t", "s"), 2.0, 1e-12);
  EXPECT_EQ(Base::units_text(given.out.at("reg_t").units), "s");
  ASSERT_EQ(given.data.size(), 2u);
  EXPECT_NEAR(given.data[0], 0.4, 1e-12);
  EXPECT_NEAR(given.data[1], 2.0 * 0.5, 1e-12);
}

TEST(MultiTime, ThePeriodIsTheMeanOverProbes) {
  std::vector<Shape> longer(6, {0.3, 40});
  EXPECT_NEAR(answer({regular(6), waves_of(longer)}).out.get("reg_t", "s"), 3.0, 1e-12);
}

TEST(MultiTime, IrregularProbesHaveTheMeanOfTheirSignificantWaves) {
  // The seventh of 9 waves: 0.7 m and 4.4 s. The fifth of 6 at twice the height: 1.0 m and 3.6 s.
  const Answer given = answer({irregular(9), irregular(6, 2.0)});
  ASSERT_EQ(given.out.entries().size(), 2u);
  EXPECT_NEAR(given.out.get("sig_h", "m"), 0.85, 1e-12);
  EXPECT_NEAR(given.out.get("sig_t", "s"), 4.0, 1e-12);
  EXPECT_EQ(Base::units_text(given.out.at("sig_h").units), "m");
  EXPECT_EQ(Base::units_text(given.out.at("sig_t").units), "s");
  EXPECT_TRUE(given.data.empty());
}

TEST(MultiTime, HalfOfTheProbesBeingRegularMakesTheSetRegular) {
  const Answer given = answer({irregular(7), regular(7)});
  ASSERT_EQ(given.out.entries().size(), 1u);
  // The fourth of seven periods, 3.2 s, and 2 s.
  EXPECT_NEAR(given.out.get("reg_t", "s"), 2.6, 1e-12);
  ASSERT_EQ(given.data.size(), 2u);
  EXPECT_NEAR(given.data[0], 0.4, 1e-12);
}

TEST(MultiTime, FewerThanHalfOfTheProbesBeingRegularMakesTheSetIrregular) {
  const Answer given = answer({irregular(7), regular(7), irregular(7)});
  EXPECT_TRUE(given.out.contains("sig_h"));
  EXPECT_FALSE(given.out.contains("reg_t"));
}

TEST(MultiTime, OneProbeWithTooFewWavesIsRefused) {
  EXPECT_EQ(failure({regular(7), regular(5)}), too_few_crossings);
  EXPECT_EQ(failure({irregular(7), irregular(5)}), too_few_crossings);
  EXPECT_EQ(failure({std::vector<double>(100, -1.0)}), too_few_crossings);
  EXPECT_EQ(failure({{}}), too_few_crossings);
  EXPECT_EQ(failure({regular(6)}), nothing_thrown);
  EXPECT_EQ(failure({irregular(6)}), nothing_thrown);
}

TEST(MultiTime, ResultsAreRefusedBeforeProcess) {
  Records set = probes({regular(7)});
  const Maths::TankConfig tank;
  MultiTime process(tank, set.set());
  Base::Params out;
  EXPECT_EQ(thrown([&] { process.results(out); }), too_few_crossings);
  EXPECT_TRUE(process.data({}).empty());
}

TEST(MultiTime, TheEndsOfARecordDoNotFormAWave) {
  // Six waves lie between seven crossings. Joined, the ends would be a seventh wave of 1.2 m.
  std::vector<double> samples = irregular(6);
  samples.insert(samples.end(), {0.6, -0.6});
  const Answer given = answer({samples});
  EXPECT_NEAR(given.out.get("sig_h", "m"), 0.5, 1e-12);
}

TEST(MultiTime, ASecondRoundAddsTheWavesAgain) {
  // Four waves are too few, eight are enough. The sixth of 0.1 0.1 0.2 0.2 0.3 0.3 0.4 0.4 counts.
  Records set = probes({irregular(4)});
  const Maths::TankConfig tank;
  MultiTime process(tank, set.set());
  EXPECT_EQ(thrown([&] { answer(process); }), too_few_crossings);
  const Answer given = answer(process);
  EXPECT_NEAR(given.out.get("sig_h", "m"), 0.3, 1e-12);
  EXPECT_NEAR(given.out.get("sig_t", "s"), 2.8, 1e-12);
}

TEST(MultiTime, DoubledListsHaveTheSameSignificantWave) {
  for (int count = 6; count <= 12; ++count) {
    Records set = probes({irregular(count)});
    const Maths::TankConfig tank;
    MultiTime process(tank, set.set());
    const int index = 2 * count / 3;
    for (int round = 0; round < 4; ++round) {
      EXPECT_NEAR(answer(process).out.get("sig_h", "m"), 0.1 * (index + 1), 1e-12);
    }
  }
}

TEST(MultiTime, ASecondRoundMayMakeTheWavesIrregular) {
  // One longest wave is ignored; after the second round there are two.
  std::vector<Shape> shapes(8, {0.2, 20});
  shapes[3].samples = 40;
  Records set = probes({waves_of(shapes)});
  const Maths::TankConfig tank;
  MultiTime process(tank, set.set());
  EXPECT_TRUE(answer(process).out.contains("reg_t"));
  EXPECT_EQ(process.data({}).size(), 1u);
  EXPECT_TRUE(answer(process).out.contains("sig_t"));
  EXPECT_TRUE(process.data({}).empty());
}

TEST(MultiTime, HeightsOfThePreviousRoundAreDiscarded) {
  Records set = probes({regular(7), regular(7)});
  const Maths::TankConfig tank;
  MultiTime process(tank, set.set());
  answer(process);
  EXPECT_EQ(answer(process).data.size(), 2u);
}

TEST(MultiTime, AnExistingResultIsRefused) {
  const Maths::TankConfig tank;
  const auto with = [](const char* name) {
    Base::Params out;
    out.insert(name, 9.0, "");
    return out;
  };
  Records even = probes({regular(7)});
  MultiTime process(tank, even.set());
  process.process({});
  Base::Params out = with("reg_t");
  EXPECT_EQ(thrown([&] { process.results(out); }), "\"reg_t\"::Duplicate parameter:");
  // The heights are stored before the results.
  EXPECT_EQ(process.data({}).size(), 1u);

  Records uneven = probes({irregular(9)});
  MultiTime other(tank, uneven.set());
  other.process({});
  out = with("sig_t");
  EXPECT_EQ(thrown([&] { other.results(out); }), "\"sig_t\"::Duplicate parameter:");
  EXPECT_EQ(out.entries().size(), 1u);
  // The period is added before the height and kept.
  out = with("sig_h");
  EXPECT_EQ(thrown([&] { other.results(out); }), "\"sig_h\"::Duplicate parameter:");
  EXPECT_NEAR(out.get("sig_t", "s"), 4.4, 1e-12);
}

TEST(MultiTime, ASetOfAnotherSizeIsRefused) {
  Records set = probes({regular(7), regular(7)});
  const Maths::TankConfig tank;
  MultiTime process(tank, set.set());
  set.set().data.pop_back();
  EXPECT_EQ(thrown([&] { process.process({}); }), "Mismatched sizes");
}

TEST(MultiTime, ASetWithoutRecordsIsRegularWithANaNPeriod) {
  const Answer given = answer(std::vector<std::vector<double>>{});
  EXPECT_TRUE(std::isnan(given.out.get("reg_t", "s")));
  EXPECT_TRUE(given.data.empty());
}

TEST(MultiTime, PrintsNothing) {
  EXPECT_EQ(printed([] { answer({regular(7)}); }), "");
}

TEST(MultiFreq, HasNoResultsAndNoData) {
  Records set = probes({regular(7)});
  const Maths::TankConfig tank;
  Base::Params out;
  const std::string output = printed([&] {
    Analysis::MultiFreq process(tank, set.set());
    process.process({});
    process.results(out);
    EXPECT_TRUE(process.data({}).empty());
  });
  EXPECT_TRUE(out.entries().empty());
  EXPECT_EQ(output, "");
}

}  // namespace
