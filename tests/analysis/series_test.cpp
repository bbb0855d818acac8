// Records cut to a window of time.
#include "analysis/series.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>
#include <numeric>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "records.h"
#include "support/output.h"
#include "support/thrown.h"

namespace {

using Analysis::Series;
using Analysis::Set;
using Testing::nothing_thrown;
using Testing::printed;
using Testing::thrown;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

// Sample j has the value j.
Series counting(std::size_t samples, const Base::Params& params) {
  Series series{params, std::vector<double>(samples)};
  std::iota(series.samples.begin(), series.samples.end(), 0.0);
  return series;
}

Series counting(std::size_t samples, double rate) { return counting(samples, at_rate(rate)); }

std::vector<double> samples(const Analysis::Record& record) {
  return {record.samples().begin(), record.samples().end()};
}

// The output and failure of building a set.
struct Outcome {
  std::string lines;
  std::string failure;
  bool operator==(const Outcome&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
  return out << outcome.lines << "! " << outcome.failure;
}

Outcome outcome(const std::vector<const Series*>& series, const Base::Params& params) {
  Outcome found;
  found.lines = printed([&] { found.failure = thrown([&] { Set(params, series); }); });
  return found;
}

Outcome outcome(const Series& series, double start, double stop) {
  return outcome({&series}, window(start, stop));
}

// A set that must print these lines while it is built.
Set built(const std::vector<const Series*>& series, const Base::Params& params,
          const std::string& lines) {
  std::optional<Set> set;
  EXPECT_EQ(printed([&] { set.emplace(params, series); }), lines);
  return std::move(set).value();
}

TEST(Series, AWindowExcludesTheSampleAtItsStop) {
  const Series series = counting(100, 10.0);
  Set set = built({&series}, window(2.0, 2.5), "first 20 last 25\nsize 5\n");
  ASSERT_EQ(set.data.size(), 1u);
  EXPECT_EQ(samples(set.data[0]), (std::vector<double>{20, 21, 22, 23, 24}));
  EXPECT_EQ(Base::units_text(set.data[0].units()), "m");
  EXPECT_EQ(set.series, (std::vector<const Series*>{&series}));
  EXPECT_EQ(series.samples.size(), 100u);
}

TEST(Series, EachRecordHasItsOwnRateAndParameters) {
  Base::Params first = at_rate(10.0);
  first.insert("x", 3.0, "m");
  Base::Params second = at_rate(4.0);
  second.insert("x", 5.0, "ft");
  const Series slow = counting(40, second);
  const Series fast = counting(100, first);
  Set set = built({&fast, &slow}, window(1.0, 2.0),
                  "first 10 last 20\nsize 10\nfirst 4 last 8\nsize 4\n");
  ASSERT_EQ(set.data.size(), 2u);
  EXPECT_EQ(set.data[0].samples().front(), 10.0);
  EXPECT_EQ(samples(set.data[1]), (std::vector<double>{4, 5, 6, 7}));
  EXPECT_EQ(set.data[0].param("x").value, 3.0);
  EXPECT_EQ(set.data[1].param("x").value, 5.0);
  EXPECT_EQ(set.data[1].rate(), 4.0);
}

TEST(Series, ARecordMayOccurTwiceInASet) {
  const Series series = counting(10, 1.0);
  EXPECT_EQ(outcome({&series, &series}, window(0.0, 2.0)),
            (Outcome{"first 0 last 2\nsize 2\nfirst 0 last 2\nsize 2\n", nothing_thrown}));
}

TEST(Series, TimesAreRoundedToTheNearestSample) {
  const Series series = counting(100, 2.0);
  EXPECT_EQ(outcome(series, 1.24, 2.26), (Outcome{"first 2 last 5\nsize 3\n", nothing_thrown}));
  EXPECT_EQ(outcome(series, 1.25, 2.25), (Outcome{"first 3 last 5\nsize 2\n", nothing_thrown}));
}

TEST(Series, AWindowMayEndWithTheRecord) {
  const Series series = counting(100, 10.0);
  EXPECT_EQ(outcome(series, 0.0, 10.0), (Outcome{"first 0 last 100\nsize 100\n", nothing_thrown}));
  EXPECT_EQ(outcome(series, 9.9, 10.0), (Outcome{"first 99 last 100\nsize 1\n", nothing_thrown}));
}

TEST(Series, AWindowBeyondTheRecordIsRefused) {
  const Series series = counting(100, 10.0);
  EXPECT_EQ(outcome(series, 0.0, 10.1), (Outcome{"first 0 last 101\n", "out of range 2"}));
  EXPECT_EQ(outcome(series, 50.0, 60.0), (Outcome{"first 500 last 600\n", "out of range 2"}));
  EXPECT_EQ(outcome(counting(0, 10.0), 0.0, 1.0), (Outcome{"first 0 last 10\n", "out of range 2"}));
}

TEST(Series, AnEmptyWindowIsRefused) {
  const Series series = counting(100, 10.0);
  EXPECT_EQ(outcome(series, 2.0, 2.0), (Outcome{"first 20 last 20\n", "Out of range"}));
  EXPECT_EQ(outcome(series, 2.0, 2.04), (Outcome{"first 20 last 20\n", "Out of range"}));
  EXPECT_EQ(outcome(series, 3.0, 2.0), (Outcome{"first 30 last 20\n", "Out of range"}));
  // This check comes before that of the end.
  EXPECT_EQ(outcome(series, 90.0, 80.0), (Outcome{"first 900 last 800\n", "Out of range"}));
  EXPECT_EQ(outcome(counting(0, 10.0), 0.0, 0.0), (Outcome{"first 0 last 0\n", "Out of range"}));
}

TEST(Series, NegativeTimesWrapTo32Bits) {
  const Series series = counting(100, 10.0);
  EXPECT_EQ(outcome(series, -1.0, 5.0), (Outcome{"first 4294967286 last 50\n", "Out of range"}));
  EXPECT_EQ(outcome(series, -1.0, -0.5),
            (Outcome{"first 4294967286 last 4294967291\n", "out of range 2"}));
  EXPECT_EQ(outcome(series, 0.0, -0.5), (Outcome{"first 0 last 4294967291\n", "out of range 2"}));
  // A start that rounds to sample 0 is accepted.
  EXPECT_EQ(outcome(series, -0.04, 0.5), (Outcome{"first 0 last 5\nsize 5\n", nothing_thrown}));
}

TEST(Series, TimesThatDoNotFitCountAsZero) {
  const Series series = counting(100, 10.0);
  for (const double stop : {nan, infinity, -infinity, 1e300}) {
    EXPECT_EQ(outcome(series, 0.0, stop), (Outcome{"first 0 last 0\n", "Out of range"})) << stop;
  }
  for (const double start : {nan, infinity, -infinity, -1e300}) {
    EXPECT_EQ(outcome(series, start, 1.0), (Outcome{"first 0 last 10\nsize 10\n", nothing_thrown}))
        << start;
  }
}

TEST(Series, TimesBeyond32BitsKeepTheirLowBits) {
  const Series series = counting(100, 1.0);
  EXPECT_EQ(outcome(series, 0.0, 4294967296.0 + 7.0),
            (Outcome{"first 0 last 7\nsize 7\n", nothing_thrown}));
}

TEST(Series, TimesAndRatesMayHaveAnyUnits) {
  const Series series = counting(100, [] {
    Base::Params params;
    params.insert("rate", 0.01, "kHz");
    return params;
  }());
  Base::Params params;
  params.insert("start_time", 500.0, "msec");
  params.insert("stop_time", 0.05, "min");
  EXPECT_EQ(outcome({&series}, params), (Outcome{"first 5 last 30\nsize 25\n", nothing_thrown}));

  Base::Params angular;
  angular.insert("rate", 4.0 * std::numbers::pi, "rad/s");
  EXPECT_EQ(outcome(counting(10, angular), 0.0, 3.0),
            (Outcome{"first 0 last 6\nsize 6\n", nothing_thrown}));
}

TEST(Series, TheTimesMustBePresentAndConvertible) {
  const Series series = counting(100, 10.0);
  Base::Params params;
  EXPECT_EQ(outcome({&series}, params), (Outcome{"", "start_time::Not found"}));
  params.insert("start_time", 0.0, "s");
  EXPECT_EQ(outcome({&series}, params), (Outcome{"", "stop_time::Not found"}));
  params.insert("stop_time", 1.0, "m");
  EXPECT_EQ(outcome({&series}, params), (Outcome{"", "stop_time::not convertable"}));
  // They are checked even without records.
  EXPECT_EQ(outcome({}, params), (Outcome{"", "stop_time::not convertable"}));
  EXPECT_EQ(outcome({}, window(3.0, 1.0)), (Outcome{"", nothing_thrown}));

  Base::Params unset;
  unset.declare("start_time", Base::default_units(Base::Category::time));
  EXPECT_EQ(outcome({&series}, unset), (Outcome{"", "Invalid value"}));
}

TEST(Series, TheRateMustBePresentAndAFrequency) {
  EXPECT_EQ(outcome(counting(10, Base::Params()), 0.0, 1.0), (Outcome{"", "rate::Not found"}));
  Base::Params interval;
  interval.insert("rate", 0.1, "s");
  EXPECT_EQ(outcome(counting(10, interval), 0.0, 1.0), (Outcome{"", "rate::not convertable"}));
}

TEST(Series, AnInvalidRateIsRefused) {
  for (const double rate : {0.0, nan, infinity}) {
    const Outcome found = outcome(counting(10, rate), 0.0, 5.0);
    EXPECT_EQ(found, (Outcome{"first 0 last 0\n", "Out of range"})) << rate;
  }
  EXPECT_EQ(outcome(counting(10, -1.0), 0.0, 5.0),
            (Outcome{"first 0 last 4294967291\n", "out of range 2"}));
}

TEST(Series, TheFirstRecordThatFailsEndsTheSet) {
  const Series good = counting(100, 10.0);
  const Series bad = counting(10, 10.0);
  EXPECT_EQ(outcome({&good, &bad, &good}, window(0.0, 5.0)),
            (Outcome{"first 0 last 50\nsize 50\nfirst 0 last 50\n", "out of range 2"}));
}

TEST(Series, NonFiniteSamplesAreCutLikeOthers) {
  const Series series{at_rate(1.0), {1.0, nan, infinity, 4.0}};
  Set set = built({&series}, window(1.0, 3.0), "first 1 last 3\nsize 2\n");
  ASSERT_EQ(set.data[0].samples().size(), 2u);
  EXPECT_TRUE(std::isnan(set.data[0].samples()[0]));
  EXPECT_EQ(set.data[0].samples()[1], infinity);
}

}  // namespace
