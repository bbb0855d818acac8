// The separation of several records: parameters, output, checks and results.
#include "analysis/freq_single.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstddef>
#include <limits>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

#include "support/output.h"
#include "support/thrown.h"
#include "trains.h"

namespace {

using Analysis::FreqSingle;
using Analysis::Record;
using Analysis::Series;
using Testing::nothing_thrown;
using Testing::printed;
using Testing::thrown;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

const std::vector<double> layout = {3.0, 3.25, 3.62, 4.1};

std::vector<Series> sea_under(const std::vector<double>& positions) {
  return measure(Sea().trains(0.7), row(positions));
}

void expect_failure(const Separation& found, const std::string& message, const std::string& lines) {
  EXPECT_EQ(found.failure, message);
  EXPECT_EQ(found.lines, lines);
  EXPECT_TRUE(found.out.entries().empty());
}

TEST(FreqSingle, PrintsItsProgress) {
  const auto found = separate(sea_under(layout), flat_tank(0.7));
  EXPECT_EQ(found.lines, "FreqSingle\nDA\nDB\nDC\nDD\nDE\nDF\nDG\nDH\nDI\n");
  EXPECT_EQ(found.failure, nothing_thrown);
}

TEST(FreqSingle, HasSixResultsWithoutUnits) {
  const auto found = separate(sea_under(layout), flat_tank(0.7));
  ASSERT_EQ(found.out.entries().size(), 6u);
  for (const char* name :
       {"Forward free fundamental", "Backward free fundamental", "Forward bound harmonic",
        "Backward bound harmonic", "Forward free harmonic", "Backward free harmonic"}) {
    EXPECT_EQ(Base::units_text(found.out.at(name).units), "") << name;
  }
}

TEST(FreqSingle, AddsItsResultsInOrder) {
  Records records(sea_under(layout));
  const Maths::TankConfig tank = flat_tank(0.7);
  const std::vector<const char*> order = {"Forward free fundamental", "Backward free fundamental",
                                          "Forward bound harmonic",   "Backward bound harmonic",
                                          "Forward free harmonic",    "Backward free harmonic"};
  printed([&] {
    FreqSingle process(tank, records.set());
    process.process(settings());
    for (std::size_t n = 0; n < order.size(); ++n) {
      Base::Params out;
      out.insert(order[n], 0.0, "");
      EXPECT_EQ(thrown([&] { process.results(out); }),
                "\"" + std::string(order[n]) + "\"::Duplicate parameter:");
      EXPECT_EQ(out.entries().size(), n + 1);
    }
  });
}

TEST(FreqSingle, NeedsAFrequencyButIgnoresItsValue) {
  const auto series = sea_under(layout);
  Base::Params params;
  expect_failure(separate(series, flat_tank(0.7), params), "freq::Not found", marks('A'));
  params.insert("angle", 0.0, "rad");
  expect_failure(separate(series, flat_tank(0.7), params), "freq::Not found", marks('A'));
  params.insert("freq", 1.0, "s");
  expect_failure(separate(series, flat_tank(0.7), params), "freq::not convertable", marks('A'));

  Base::Params unset;
  unset.declare("freq", Base::default_units(Base::Category::frequency));
  expect_failure(separate(series, flat_tank(0.7), unset), "Invalid value", marks('A'));

  for (const double value : {0.0, -3.0, 0.8, nan, infinity}) {
    Base::Params any;
    any.insert("freq", value, "rad/s");
    any.insert("angle", 0.0, "deg");
    expect_sea(separate(series, flat_tank(0.7), any), Sea(), 1e-9);
  }
}

TEST(FreqSingle, NeedsAnAngle) {
  Base::Params params;
  params.insert("freq", 1.0, "Hz");
  expect_failure(separate(sea_under(layout), flat_tank(0.7), params), "angle::Not found",
                 marks('A'));
  params.insert("angle", 1.0, "m");
  expect_failure(separate(sea_under(layout), flat_tank(0.7), params), "angle::not convertable",
                 marks('A'));
}

TEST(FreqSingle, NeedsTwoRecords) {
  const char* const message = "At least two data sets must be provided for frequency analysis";
  expect_failure(separate(std::vector<Series>(), flat_tank(0.7)), message, marks('A'));
  expect_failure(separate(sea_under({3.0}), flat_tank(0.7)), message, marks('A'));
  // The settings are checked first.
  expect_failure(separate(sea_under({3.0}), flat_tank(0.7), {}), "freq::Not found", marks('A'));
}

TEST(FreqSingle, TwoIndependentProbesAreTooFew) {
  expect_failure(separate(sea_under({3.0, 3.4}), flat_tank(0.7)),
                 "Too few independant probes to process", marks('G'));
}

TEST(FreqSingle, ProbesCloserThanATenthOfARadianAreOneProbe) {
  const char* const message = "Too few independant probes to process";
  expect_failure(separate(sea_under({3.0, 3.0, 3.0, 3.0}), flat_tank(0.7)), message, marks('G'));
  // At 0.8 Hz in 0.7 m of water a tenth of a radian is 3.7 cm.
  expect_failure(separate(sea_under({3.0, 3.01, 3.02, 3.03}), flat_tank(0.7)), message, marks('G'));
  expect_failure(separate(sea_under({3.0, 3.3, 3.31, 3.32}), flat_tank(0.7)), message, marks('G'));
  // A row across the wave direction.
  expect_failure(separate(sea_under(layout), flat_tank(0.7), settings(std::numbers::pi / 2.0)),
                 message, marks('G'));
  expect_failure(separate(sea_under(layout), flat_tank(0.7), settings(nan)), message, marks('G'));
}

TEST(FreqSingle, RecordsMustHaveEqualLengths) {
  const char* const message = "Inconsistent sizes of data sets";
  for (const std::size_t odd : {0u, 1u, 3u}) {
    auto series = sea_under(layout);
    series[odd].samples.pop_back();
    expect_failure(separate(series, flat_tank(0.7)), message, marks('A'));
  }
  // 400 and 401 samples have the same number of elements.
  auto longer = sea_under(layout);
  longer[2].samples.push_back(0.0);
  expect_failure(separate(longer, flat_tank(0.7)), message, marks('A'));
}

TEST(FreqSingle, RecordsMustBeElevations) {
  for (const char* const unit : {"s", "m/s", ""}) {
    Records records(sea_under(layout));
    auto& first = records.set().data.front();
    const Base::Params params = at_rate(20.0);
    first = Record(first.samples(), params, Base::resolve_units(unit));
    expect_failure(separate(records.set(), flat_tank(0.7)), "Units not of distance", marks('B'));
  }
  // Only the units of the first record are checked. Any length is accepted, and nothing is
  // converted.
  Records records(sea_under(layout));
  auto& sets = records.set().data;
  for (std::size_t n = 0; n < sets.size(); ++n) {
    sets[n] = Record(sets[n].samples(), records.set().series[n]->params,
                     Base::resolve_units(n == 0 ? "mm" : "s"));
  }
  expect_sea(separate(records.set(), flat_tank(0.7)), Sea(), 1e-9);
}

TEST(FreqSingle, ProbesMustHaveAPosition) {
  auto series = sea_under(layout);
  const auto failure = [&](const Base::Params& params, const std::string& message) {
    auto changed = series;
    changed[2].params = params;
    expect_failure(separate(changed, flat_tank(0.7)), message, marks('D'));
  };
  Base::Params params = at_rate(20.0);
  failure(params, "x::Not found");
  params.insert("x", 3.0, "m");
  failure(params, "y::Not found");
  params.insert("y", 3.0, "s");
  failure(params, "Unable to convert from \"s\" to \"m\"");
  Base::Params unset = at_rate(20.0);
  unset.declare("x", Base::default_units(Base::Category::length));
  failure(unset, "Invalid value");
}

TEST(FreqSingle, TheMeanPositionMustBeInTheTank) {
  expect_failure(separate(sea_under({3.0, 3.25, 3.62, 230.13}), flat_tank(0.7)),
                 "Value x=60 is outside dimensions of tank", marks('F'));
  expect_failure(separate(sea_under({3.0, nan, 3.62, 4.1}), flat_tank(0.7)),
                 "Value x=nan is outside dimensions of tank", marks('F'));
  expect_failure(separate(sea_under(layout), Maths::TankConfig()), "TankConfig not built",
                 marks('F'));
}

TEST(FreqSingle, AFailureToFindAWaveNumberIsPassedOn) {
  const auto found = separate(sea_under(layout), flat_tank(0.0));
  EXPECT_TRUE(found.failure.starts_with("Knum calculation failed for omega=")) << found.failure;
  EXPECT_EQ(found.lines, marks('F'));
}

TEST(FreqSingle, TheFundamentalIsTheLowestPeakOfTheRecords) {
  // The second harmonic exceeds the fundamental at one probe of four.
  const Sea sea;
  for (std::size_t odd = 0; odd < 4; ++odd) {
    auto series = measure(sea.trains(0.7), row(layout));
    // 1 m at harmonic 32 at this probe only: the fundamental is still found.
    const auto extra = surface({{32, 0.0, 1.0}}, 0.0, {});
    for (std::size_t j = 0; j < extra.size(); ++j) series[odd].samples[j] += extra[j];
    const Results found = separate(series, flat_tank(0.7)).results();
    EXPECT_NEAR(found.forward_free, std::abs(sea.forward), 1e-9);
    EXPECT_NEAR(found.backward_free, std::abs(sea.backward), 1e-9);
    EXPECT_GT(found.forward_free2, 0.05);
  }
}

// A single fundamental at this element, in 40 samples of each probe.
Separation lone(std::size_t bin, const std::vector<double>& positions) {
  const Reading reading{40, 10.0};
  const Sea sea;
  const double k = Maths::knum(reading.omega(bin), 0.7, 9.81);
  std::vector<double> places;
  places.reserve(positions.size());
  for (const double phase : positions) places.push_back(phase / k);
  return separate(measure({{bin, k, sea.forward}, {bin, -k, sea.backward}}, row(places), reading),
                  flat_tank(0.7));
}

TEST(FreqSingle, HarmonicsBeyondTheSpectrumAreRefused) {
  // There are 21 elements. The fourth harmonic of element 5 is the last one, the third harmonic of
  // element 7 is just beyond.
  const std::vector<double> apart = {0.3, 0.8, 1.7, 2.5};
  EXPECT_EQ(lone(5, apart).failure, nothing_thrown);
  expect_failure(lone(6, apart), "Index 24 out of range", marks('H'));
  expect_failure(lone(7, apart), "Index 28 out of range", marks('H'));
  expect_failure(lone(8, apart), "Index 24 out of range", marks('H'));
  expect_failure(lone(10, apart), "Index 30 out of range", marks('H'));
  expect_failure(lone(11, apart), "Index 22 out of range", marks('H'));
}

TEST(FreqSingle, WithThreeProbesOnlyTheResultsNeedTheSecondHarmonic) {
  const std::vector<double> three = {0.3, 0.8, 1.7};
  const Sea sea;
  for (const std::size_t bin : {10u, 11u}) {
    const auto found = lone(bin, three);
    EXPECT_EQ(found.lines, marks('I'));
    EXPECT_NEAR(found.out.get("Forward free fundamental", ""), std::abs(sea.forward), 1e-10);
    EXPECT_EQ(found.failure, bin == 10 ? nothing_thrown : "Index 22 out of range");
  }
}

TEST(FreqSingle, TheElementAfterTheSpectrumCountsAsZero) {
  // 42 samples have 22 elements. The second harmonic of element 11 is the one after them.
  const Reading reading{42, 10.0};
  const double k = Maths::knum(reading.omega(11), 0.7, 9.81);
  const auto series = measure({{11, k, 1.0}}, row({0.3 / k, 0.8 / k, 1.7 / k}), reading);
  const auto found = separate(series, flat_tank(0.7));
  ASSERT_EQ(found.failure, nothing_thrown);
  EXPECT_NEAR(found.results().forward_free, 1.0, 1e-10);
  EXPECT_EQ(found.results().forward_bound2, 0.0);
}

TEST(FreqSingle, StillWaterHasZeroResults) {
  const Reading reading{400, 2.0};  // at element 1, 5 mHz, a tenth of a radian is 8 m
  const auto series = measure({}, row({3.0, 60.0, 150.0, 190.0}), reading);
  Maths::TankConfig tank = flat_tank(0.7);
  tank.x_high = 500.0;
  tank.profile.back().x = 500.0;
  const auto found = separate(series, tank);
  ASSERT_EQ(found.failure, nothing_thrown);
  EXPECT_EQ(found.results().forward_free, 0.0);
  EXPECT_EQ(found.results().backward_free2, 0.0);
}

TEST(FreqSingle, RecordsOfFewerThanSixSamplesAreRefused) {
  const auto failure = [](std::size_t samples) {
    const Reading reading{samples, 1.0};
    return separate(measure({}, row({0.1, 1.0, 2.0, 4.0}), reading), flat_tank(0.7)).failure;
  };
  EXPECT_TRUE(failure(0).starts_with("Knum calculation failed for omega=inf")) << failure(0);
  // Element 1 is taken as the fundamental even if it does not exist.
  EXPECT_EQ(failure(1), "Index 2 out of range");
  EXPECT_EQ(failure(2), "Index 3 out of range");
  EXPECT_EQ(failure(3), "Index 3 out of range");
  EXPECT_EQ(failure(4), "Index 4 out of range");
  EXPECT_EQ(failure(6), nothing_thrown);
}

TEST(FreqSingle, NonFiniteSamplesGiveNaNResults) {
  for (const double bad : {nan, infinity}) {
    auto series = measure({}, row({3.0, 4.0, 7.0, 9.0}), {40, 10.0});
    for (auto& one : series) one.samples[7] = bad;
    const auto found = separate(series, flat_tank(0.7));
    ASSERT_EQ(found.failure, nothing_thrown);
    EXPECT_TRUE(std::isnan(found.results().forward_free));
    EXPECT_TRUE(std::isnan(found.results().backward_bound2));
  }
}

TEST(FreqSingle, OneNaNSampleMakesTheFirstElementTheFundamental) {
  auto series = sea_under(layout);
  series[2].samples[100] = nan;
  // At 0.05 Hz a tenth of a radian is 0.8 m.
  expect_failure(separate(series, flat_tank(0.7)), "Too few independant probes to process",
                 marks('G'));
  auto apart = sea_under({3.0, 4.0, 5.0, 6.0});
  apart[2].samples[100] = nan;
  const auto found = separate(apart, flat_tank(0.7));
  ASSERT_EQ(found.failure, nothing_thrown);
  EXPECT_TRUE(std::isnan(found.results().forward_free));
  EXPECT_TRUE(std::isnan(found.results().forward_bound2));
}

TEST(FreqSingle, EachRoundDiscardsThePreviousOne) {
  Records records(sea_under(layout));
  const Maths::TankConfig tank = flat_tank(0.7);
  printed([&] {
    FreqSingle process(tank, records.set());
    for (int round = 0; round < 3; ++round) {
      Separation found;
      found.failure = thrown([&] {
        process.process(settings());
        process.results(found.out);
      });
      expect_sea(found, Sea(), 1e-9);
    }
    // A failed round also discards the results of the previous one.
    EXPECT_NE(thrown([&] { process.process(settings(std::numbers::pi / 2.0)); }), nothing_thrown);
    Base::Params out;
    process.results(out);
    EXPECT_EQ(out.get("Forward free fundamental", ""), 0.0);
  });
}

TEST(FreqSingle, ResultsBeforeProcessAreZero) {
  Records records(sea_under(layout));
  const Maths::TankConfig tank = flat_tank(0.7);
  Base::Params out;
  printed([&] { FreqSingle(tank, records.set()).results(out); });
  EXPECT_EQ(out.entries().size(), 6u);
  for (const auto& [name, quantity] : out.entries()) EXPECT_EQ(quantity.value, 0.0) << name;
}

TEST(FreqSingle, HasNoDataButChecksTheParametersOfARequest) {
  Records records(sea_under(layout));
  const Maths::TankConfig tank = flat_tank(0.7);
  printed([&] {
    FreqSingle process(tank, records.set());
    process.process(settings());
    Base::Params params;
    EXPECT_TRUE(process.data(params).empty());
    params.insert("rate", 1.0, "m");
    EXPECT_TRUE(process.data(params).empty());

    const struct {
      const char* name;
      const char* unit;
    } wanted[] = {
        {"x", "m"}, {"y", "ft"}, {"start_time", "s"}, {"stop_time", "min"}, {"rate", "Hz"}};
    params.clear();
    for (const auto& entry : wanted) {
      if (params.contains("x")) {
        EXPECT_EQ(thrown([&] { process.data(params); }), std::string(entry.name) + "::Not found");
      }
      Base::Params wrong = params;
      wrong.insert(entry.name, 1.0, "kg");
      EXPECT_EQ(thrown([&] { process.data(wrong); }),
                std::string(entry.name) + "::not convertable");
      params.insert(entry.name, -1.0, entry.unit);
    }
    EXPECT_TRUE(process.data(params).empty());
  });
}

}  // namespace
