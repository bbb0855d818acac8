#include "sea/time_series.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "base/vector.h"
#include "components.h"
#include "support/thrown.h"

namespace {

using Synthesis::TimeSeries;
using Testing::Evaluated;
using Testing::expect_harmonics;
using Testing::nothing_thrown;
using Testing::pi;
using Testing::run_of;
using Testing::thrown;

// A signal without any symmetry.
std::vector<double> record(std::size_t n) {
  std::vector<double> x(n);
  for (std::size_t i = 0; i < n; ++i) {
    const double t = static_cast<double>(i);
    x[i] = std::sin(0.7 * t) + 0.3 * std::cos(0.05 * t * t) + 0.01 * t;
  }
  return x;
}

Base::Vector vector_of(const std::vector<double>& x) {
  return {"probe 3", Base::resolve_units("m"), x};
}

Base::Params params_of(double scale_ratio, double rate, double ramp_time,
                       const std::string& ramp_type = "Sine") {
  Base::Params in;
  in.insert("scale_ratio", scale_ratio, "");
  in.insert("rate", rate, "Hz");
  in.insert("ramp_time", ramp_time, "s");
  in.insert("ramp_type", ramp_type, "Ramp");
  return in;
}

Evaluated evaluated(const std::vector<double>& x, Base::Params in, const Maths::RunData& run) {
  const Base::Vector data = vector_of(x);
  TimeSeries component(data);
  component.set(in);
  return Testing::evaluate(component, run);
}

// 64 samples at 8 Hz.
Maths::RunData run8() { return run_of(8.0, 0.25, 2.0); }

TEST(TimeSeries, DeclaresItsParametersAndIsNamedAfterItsVector) {
  const Base::Vector data = vector_of({1.0});
  TimeSeries component(data);
  EXPECT_EQ(component.name(), "probe 3");
  Base::Params out;
  component.query(out);
  ASSERT_EQ(out.entries().size(), 4U);
  EXPECT_EQ(Base::units_text(out.at("scale_ratio").units), "");
  EXPECT_EQ(Base::units_text(out.at("rate").units), "Hz");
  EXPECT_EQ(Base::units_text(out.at("ramp_time").units), "s");
  EXPECT_EQ(out.at("ramp_type").enum_type(), 2);
  EXPECT_EQ(thrown([&] { Testing::evaluate(component, run8()); }),
            "probe 3::evaluate::when not ready");
}

TEST(TimeSeries, ParametersAreReadInOrder) {
  const Base::Vector data = vector_of(record(64));
  TimeSeries component(data);
  Base::Params in;
  const auto failure = [&] { return thrown([&] { component.set(in); }); };
  EXPECT_EQ(failure(), "scale_ratio::Not found");
  in.insert("scale_ratio", 1.0, "");
  EXPECT_EQ(failure(), "rate::Not found");
  in.insert("rate", 8.0, "Hz");
  EXPECT_EQ(failure(), "ramp_type::Not found");
  in.insert("ramp_type", "Null", "Ramp");
  EXPECT_EQ(failure(), "ramp_time::Not found");
  in.insert("ramp_time", 0.0, "s");
  EXPECT_EQ(failure(), nothing_thrown);
}

TEST(TimeSeries, DeclaredParametersWithoutAValueAreRefused) {
  const Base::Vector data = vector_of(record(64));
  TimeSeries component(data);
  Base::Params in;
  component.query(in);
  EXPECT_EQ(thrown([&] { component.set(in); }), "Invalid value");
}

TEST(TimeSeries, RampTypeMustBeARamp) {
  const Base::Vector data = vector_of(record(64));
  TimeSeries component(data);
  Base::Params in = params_of(1.0, 8.0, 0.0);
  in.at("ramp_type") = Base::Quantity(1.0, Base::resolve_units(""));
  component.set(in);
  EXPECT_EQ(thrown([&] { Testing::evaluate(component, run8()); }), "ramp_type::wrong enum type");
}

TEST(TimeSeries, ASineOfAHarmonicGivesOneFront) {
  std::vector<double> x(64);
  for (std::size_t i = 0; i < 64; ++i) x[i] = 0.05 * std::cos(2 * pi * 5 * i / 64.0 + 0.4);
  const Evaluated result = evaluated(x, params_of(1.0, 8.0, 0.0), run8());
  EXPECT_NEAR(result.amp(5), 0.05, 1e-14);
  EXPECT_NEAR(result.fronts.slots[5][0].phase, 0.4, 1e-12);
  for (std::size_t h : result.used()) {
    EXPECT_LT(h == 5 ? 0.0 : result.amp(h), 1e-14) << h;
  }
  EXPECT_TRUE(result.messages.empty());
  EXPECT_EQ(result.output, "");
}

TEST(TimeSeries, ARecordOfTheRepeatTimeIsUnchanged) {
  expect_harmonics(evaluated(record(64), params_of(1.0, 8.0, 1.0), run8()), record(64), run8());
}

TEST(TimeSeries, TopHarmonicIsLeftOut) {
  std::vector<double> x(64);
  for (std::size_t i = 0; i < 64; ++i) {
    x[i] = std::cos(2 * pi * 15 * i / 64.0) + std::cos(2 * pi * 16 * i / 64.0) +
           std::cos(2 * pi * i / 64.0);
  }
  const Evaluated result = evaluated(x, params_of(1.0, 8.0, 0.0), run8());
  EXPECT_NEAR(result.amp(15), 1.0, 1e-13);
  EXPECT_TRUE(result.fronts.slots[16].empty()) << "the highest harmonic";
  EXPECT_TRUE(result.fronts.slots[1].empty()) << "below the lowest harmonic";
}

TEST(TimeSeries, FewSamplesGiveTheHarmonicsThatTheyHave) {
  // 13 samples in the repeat: harmonics 0 to 6 of a run that reaches 16.
  const Evaluated result = evaluated(record(13), params_of(1.0, 1.625, 0.0), run8());
  EXPECT_EQ(result.used(), (std::vector<std::size_t>{2, 3, 4, 5, 6}));
  expect_harmonics(result, record(13), run8());
}

TEST(TimeSeries, ARecordLongerByTheRampIsOverlapped) {
  // r = 1 s * 8 Hz = 8 samples of overlap.
  const std::vector<double> x = record(72);
  std::vector<double> folded(x.begin(), x.begin() + 64);
  for (std::size_t i = 0; i < 8; ++i) folded[i] += x[64 + i];
  expect_harmonics(evaluated(x, params_of(1.0, 8.0, 1.0), run8()), folded, run8());
}

TEST(TimeSeries, BetweenRepeatAndRampTheExcessIsOverlapped) {
  const std::vector<double> x = record(69);
  std::vector<double> folded(x.begin(), x.begin() + 64);
  for (std::size_t i = 0; i < 5; ++i) folded[i] += x[64 + i];
  expect_harmonics(evaluated(x, params_of(1.0, 8.0, 1.0), run8()), folded, run8());
}

TEST(TimeSeries, ARecordLongerThanRepeatAndRampLosesItsEnd) {
  const std::vector<double> x = record(100);
  std::vector<double> folded(x.begin(), x.begin() + 64);
  for (std::size_t i = 0; i < 8; ++i) folded[i] += x[64 + i];
  expect_harmonics(evaluated(x, params_of(1.0, 8.0, 1.0), run8()), folded, run8());
}

TEST(TimeSeries, WithoutARampTheRecordIsCut) {
  const std::vector<double> x = record(100);
  expect_harmonics(evaluated(x, params_of(1.0, 8.0, 0.0), run8()),
                   std::vector<double>(x.begin(), x.begin() + 64), run8());
}

TEST(TimeSeries, RepeatIsRoundedToSamples) {
  // 8 s at 8.075 Hz are 64.6 samples, and at 8.05 Hz 64.4.
  expect_harmonics(evaluated(record(65), params_of(1.0, 8.075, 0.0), run8()), record(65), run8());
  expect_harmonics(evaluated(record(64), params_of(1.0, 8.05, 0.0), run8()), record(64), run8());
}

TEST(TimeSeries, RampIsRoundedToSamples) {
  const std::vector<double> x = record(100);
  std::vector<double> folded(x.begin(), x.begin() + 64);
  for (std::size_t i = 0; i < 3; ++i) folded[i] += x[64 + i];
  // 0.32 s * 8 Hz = 2.56 samples.
  expect_harmonics(evaluated(x, params_of(1.0, 8.0, 0.32), run8()), folded, run8());
}

TEST(TimeSeries, RampLongerThanTheRepeatOverlapsAllOfIt) {
  // 100 samples, a ramp of half of them, a repeat of 2 s = 16 samples: cut to 66 samples, of which
  // the last 50 are added to the first 50 before they are cut off.
  const Maths::RunData run = run_of(2.0, 0.5, 3.0);
  const std::vector<double> x = record(100);
  std::vector<double> folded(x.begin(), x.begin() + 16);
  for (std::size_t i = 0; i < 16; ++i) folded[i] += x[16 + i];
  expect_harmonics(evaluated(x, params_of(1.0, 8.0, 6.25), run), folded, run);
}

TEST(TimeSeries, AShortRecordIsPaddedWithZerosAndTheRampIsIgnored) {
  std::vector<double> padded = record(50);
  padded.resize(64, 0.0);
  for (double ramp : {0.0, 3.0}) {
    expect_harmonics(evaluated(record(50), params_of(1.0, 8.0, ramp), run8()), padded, run8());
  }
}

TEST(TimeSeries, ScaleRatioShortensTimeByItsRootAndHeightByItself) {
  // Froude: 1:4 at 8 Hz is 16 Hz in the tank, so that 128 samples fill 8 s.
  const std::vector<double> x = record(128);
  std::vector<double> scaled = x;
  for (double& value : scaled) value /= 4;
  expect_harmonics(evaluated(x, params_of(4.0, 8.0, 0.0), run8()), scaled, run8());
  // The ramp is in the tank's time: 1 s is 16 samples.
  const std::vector<double> longer = record(160);
  std::vector<double> folded(longer.begin(), longer.begin() + 128);
  for (std::size_t i = 0; i < 16; ++i) folded[i] += longer[128 + i];
  for (double& value : folded) value /= 4;
  expect_harmonics(evaluated(longer, params_of(4.0, 8.0, 1.0), run8()), folded, run8());
}

TEST(TimeSeries, RampTypeMakesNoDifference) {
  const std::vector<double> x = record(72);
  const Evaluated null = evaluated(x, params_of(1.0, 8.0, 1.0, "Null"), run8());
  for (const char* type : {"Sine", "Linear"}) {
    const Evaluated other = evaluated(x, params_of(1.0, 8.0, 1.0, type), run8());
    ASSERT_EQ(other.used(), null.used());
    for (std::size_t h : null.used()) {
      EXPECT_EQ(other.complex_amp(h), null.complex_amp(h));
    }
  }
}

TEST(TimeSeries, RampOfMoreThanHalfTheDurationIsWrittenBackReduced) {
  const Base::Vector data = vector_of(record(64));
  TimeSeries component(data);
  Base::Params in = params_of(4.0, 8.0, 3.0);
  component.set(in);
  // 64 samples at 16 Hz last 4 s.
  EXPECT_DOUBLE_EQ(in.get("ramp_time", "s"), 2.0);
  ASSERT_EQ(in.comment_size(), 1U);
  EXPECT_EQ(in.comment(0), "Warning::Poor match");
}

TEST(TimeSeries, ReducedRampKeepsTheHostsUnits) {
  const Base::Vector data = vector_of(record(64));
  TimeSeries component(data);
  Base::Params in;
  in.insert("scale_ratio", 1.0, "");
  in.insert("rate", 2 * pi * 8, "rad/s");
  in.insert("ramp_time", 9000.0, "msec");
  in.insert("ramp_type", "Null", "Ramp");
  component.set(in);
  EXPECT_EQ(in.at("ramp_time").units, Base::resolve_units("msec"));
  EXPECT_NEAR(in.at("ramp_time").value, 4000.0, 1e-9);
  ASSERT_EQ(in.comment_size(), 1U);
  EXPECT_EQ(in.comment(0), "Warning::Poor match");
}

TEST(TimeSeries, AReductionBelowOnePerCentHasNoComment) {
  const Base::Vector data = vector_of(record(64));
  TimeSeries component(data);
  Base::Params in = params_of(1.0, 8.0, 4.03);
  component.set(in);
  EXPECT_DOUBLE_EQ(in.get("ramp_time", "s"), 4.0);
  EXPECT_EQ(in.comment_size(), 0U);
  Base::Params above = params_of(1.0, 8.0, 4.06);
  component.set(above);
  EXPECT_EQ(above.comment_size(), 1U);
  Base::Params fitting = params_of(1.0, 8.0, 3.9);
  component.set(fitting);
  EXPECT_DOUBLE_EQ(fitting.get("ramp_time", "s"), 3.9);
  EXPECT_EQ(fitting.comment_size(), 0U);
}

TEST(TimeSeries, ReadsTheVectorAtEachEvaluation) {
  Base::Vector data = vector_of(record(64));
  TimeSeries component(data);
  Base::Params in = params_of(1.0, 8.0, 0.0);
  component.set(in);
  const Evaluated before = Testing::evaluate(component, run8());
  for (double& value : data.data) value *= 2;
  const Evaluated after = Testing::evaluate(component, run8());
  EXPECT_NEAR(after.amp(3), 2 * before.amp(3), 1e-13);
  EXPECT_EQ(data.data.size(), 64U) << "the host's samples stay";
}

TEST(TimeSeries, ScaleRatioOfZeroIsRefusedWhenEvaluated) {
  for (std::size_t n : {std::size_t{0}, std::size_t{64}}) {
    const Base::Vector data = vector_of(record(n));
    TimeSeries component(data);
    Base::Params in = params_of(0.0, 8.0, 1.0);
    component.set(in);
    EXPECT_EQ(thrown([&] { Testing::evaluate(component, run8()); }), "Scale ratio is zero");
  }
}

TEST(TimeSeries, UnusableSampleCountsAreRefused) {
  const double inf = std::numeric_limits<double>::infinity();
  const double nan = std::nan("");
  const struct {
    double scale_ratio, rate;
    const char* count;
  } cases[] = {{1.0, 0.0, "0"},        {1.0, 0.01, "0.08"},
               {1.0, -8.0, "-64"},     {1.0, 1e9, "8e+09"},
               {1.0, 1e300, "8e+300"}, {1.0, inf, "inf"},
               {1e40, 8.0, "6.4e+21"}, {1.0, 536870912.0, "4.29497e+09"}};
  for (const auto& c : cases) {
    const Base::Vector data = vector_of(record(64));
    TimeSeries component(data);
    Base::Params in = params_of(c.scale_ratio, c.rate, 0.0);
    component.set(in);
    EXPECT_EQ(thrown([&] { Testing::evaluate(component, run8()); }),
              std::string("probe 3::") + c.count + " samples in the signal, not 1 to 134217728");
  }
  for (const auto& [scale_ratio, rate] : {std::pair{1.0, nan}, {nan, 8.0}, {-1.0, 8.0}}) {
    const Base::Vector data = vector_of(record(64));
    TimeSeries component(data);
    Base::Params in = params_of(scale_ratio, rate, 0.0);
    component.set(in);
    EXPECT_NE(
        thrown([&] { Testing::evaluate(component, run8()); }).find("nan samples in the signal"),
        std::string::npos);
  }
}

TEST(TimeSeries, ANegativeRampIsRefusedWhereItIsUsed) {
  for (std::size_t n : {std::size_t{60}, std::size_t{64}, std::size_t{100}}) {
    const Base::Vector data = vector_of(record(n));
    TimeSeries component(data);
    Base::Params in = params_of(1.0, 8.0, -1.0);
    component.set(in);
    EXPECT_EQ(thrown([&] { Testing::evaluate(component, run8()); }),
              "probe 3::ramp_time is not a positive time");
  }
  std::vector<double> padded = record(50);
  padded.resize(64, 0.0);
  expect_harmonics(evaluated(record(50), params_of(1.0, 8.0, -1.0), run8()), padded, run8());
}

TEST(TimeSeries, AnEmptyVectorMakesNoFronts) {
  const Evaluated result = evaluated({}, params_of(1.0, 8.0, 0.0), run8());
  EXPECT_TRUE(result.used().empty());
}

TEST(TimeSeries, OneSampleInTheRepeatHasOnlyAMean) {
  const Evaluated result = evaluated({5.0}, params_of(1.0, 0.125, 0.0), run8());
  EXPECT_TRUE(result.used().empty());
}

}  // namespace
