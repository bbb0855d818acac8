#include "sea/time_exp.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "components.h"
#include "support/thrown.h"

namespace {

using Synthesis::TimeExp;
using Testing::Evaluated;
using Testing::expect_harmonics;
using Testing::run_of;
using Testing::thrown;

Base::Params at_rate(double rate) {
  Base::Params in;
  in.insert("rate", rate, "Hz");
  return in;
}

Evaluated evaluated(const std::string& text, double rate, const Maths::RunData& run) {
  TimeExp component("wave", text);
  Base::Params in = at_rate(rate);
  component.set(in);
  return Testing::evaluate(component, run);
}

std::string refusal(const std::string& text, double rate) {
  return thrown([&] { evaluated(text, rate, run_of(8.0, 0.25, 2.0)); });
}

// The same, with what is printed before the failure.
Testing::Refused refused(const std::string& text, double rate) {
  TimeExp component("wave", text);
  Base::Params in = at_rate(rate);
  component.set(in);
  return Testing::refused(component, run_of(8.0, 0.25, 2.0));
}

// 64 samples at 8 Hz.
Maths::RunData run8() { return run_of(8.0, 0.25, 2.0); }

// The samples of a formula of time, `count` of them at 8 Hz.
template <typename Formula>
std::vector<double> samples_of(std::size_t count, Formula formula) {
  std::vector<double> x(count);
  for (std::size_t i = 0; i < count; ++i) x[i] = formula(static_cast<double>(i) / 8);
  return x;
}

TEST(TimeExp, DeclaresTheRateAndTheParametersOfItsFormulas) {
  TimeExp component("wave", "0@s#height[m]*sin($[s])@m#8@s");
  Base::Params out;
  component.query(out);
  ASSERT_EQ(out.entries().size(), 2U);
  EXPECT_EQ(Base::units_text(out.at("rate").units), "Hz");
  EXPECT_EQ(Base::units_text(out.at("height").units), "m");
  EXPECT_EQ(thrown([&] { Testing::evaluate(component, run8()); }),
            "wave::evaluate::when not ready");
}

TEST(TimeExp, SetReportsTheRunTime) {
  TimeExp component("wave", "0@s#1@m#2@s#1@m#7500@msec");
  Base::Params in = at_rate(8.0);
  component.set(in);
  ASSERT_EQ(in.comment_size(), 1U);
  EXPECT_EQ(in.comment(0), "Warning::Run time of time expression \"wave\" is 7.5 seconds");
  EXPECT_EQ(in.entries().size(), 1U);
}

TEST(TimeExp, SetNeedsARate) {
  TimeExp component("wave", "0@s#1@m#8@s");
  Base::Params in;
  EXPECT_EQ(thrown([&] { component.set(in); }), "rate::Not found");
  EXPECT_EQ(in.comment_size(), 0U);
}

TEST(TimeExp, ReportsTheRunTimeBeforeTheLimitsAreChecked) {
  TimeExp component("wave", "9@s#1@m#8@s");
  Base::Params in = at_rate(8.0);
  EXPECT_EQ(thrown([&] { component.set(in); }), "Limit values do not increase in size");
  EXPECT_EQ(in.comment_size(), 1U);
}

TEST(TimeExp, UnsetRateIsRefusedWhenEvaluated) {
  TimeExp component("wave", "0@s#1@m#8@s");
  Base::Params in;
  component.query(in);
  component.set(in);
  EXPECT_EQ(thrown([&] { Testing::evaluate(component, run8()); }), "Invalid value");
}

TEST(TimeExp, ASineOfAHarmonicGivesOneFront) {
  const Evaluated result =
      evaluated("0@s#0.05*cos(3.926990816987241548*$[s]+0.4)@m#8@s", 8.0, run8());
  EXPECT_NEAR(result.amp(5), 0.05, 1e-14);
  EXPECT_NEAR(result.fronts.slots[5][0].phase, 0.4, 1e-12);
  EXPECT_EQ(result.fronts.slots[5][0].angle, 0.0);
  for (std::size_t h : result.used()) {
    EXPECT_LT(h == 5 ? 0.0 : result.amp(h), 1e-14) << h;
  }
  EXPECT_TRUE(result.messages.empty());
}

TEST(TimeExp, ReadsResultsInMetres) {
  const Evaluated result = evaluated("0@s#50*cos(2*pi*0.625*$[s])@mm#8@s", 8.0, run8());
  EXPECT_NEAR(result.amp(5), 0.05, 1e-14);
}

TEST(TimeExp, SpectraAreRefused) {
  EXPECT_EQ(refusal("0@s#1@m2s#8@s", 8.0), "Unable to convert from \"m2s\" to \"m\"");
  EXPECT_EQ(refusal("0@Hz#$[Hz]@m#8@Hz", 8.0), "Unable to convert from \"s\" to \"Hz\"");
}

TEST(TimeExp, PiecesChangeAfterTheirLimit) {
  // The sample exactly on a later limit belongs to the function before it.
  const auto formula = [](double t) { return t <= 2.0 ? 1.0 + t : t <= 5.1 ? 9.0 - t : 2.0; };
  const Evaluated result = evaluated("0@s#1+$[s]@m#2@s#9-$[s]@m#5.1@s#2@m#8@s", 8.0, run8());
  expect_harmonics(result, samples_of(64, formula), run8());
}

TEST(TimeExp, OnlyOneLimitIsPassedPerSample) {
  // Both inner limits lie between two samples: the sample after them takes the middle function.
  const auto formula = [](double t) { return t <= 2.0 ? 1.0 : t <= 2.125 ? 5.0 : 3.0; };
  const Evaluated result = evaluated("0@s#1@m#2.01@s#5@m#2.02@s#3@m#8@s", 8.0, run8());
  expect_harmonics(result, samples_of(64, formula), run8());
}

TEST(TimeExp, FirstLimitAboveZeroStartsWithZeros) {
  const auto formula = [](double t) { return t < 1.0 ? 0.0 : 3.0; };
  const Evaluated result = evaluated("1@s#3@m#8@s", 8.0, run8());
  expect_harmonics(result, samples_of(64, formula), run8());
  // Eight zeros, then a step up to a constant 3 m. At the join, 3 m is followed by 0.
  EXPECT_EQ(result.output,
            "64 64 8\n"
            "Time series \"wave\" has max rate of 24 and acceleration of 192\n");
}

TEST(TimeExp, LeadingZerosDoNotCountAsARate) {
  // The signal is 0 from its first sample on.
  const Evaluated result = evaluated("1.01@s#0*$[s]@m#8@s", 8.0, run8());
  EXPECT_EQ(result.output,
            "64 64 8\n"
            "Time series \"wave\" has max rate of 0 and acceleration of 0\n");
  EXPECT_TRUE(result.used().empty());
}

TEST(TimeExp, FirstLimitBelowZeroStartsInside) {
  const auto formula = [](double t) { return 4.0 + t; };
  expect_harmonics(evaluated("0-2@s#4+$[s]@m#8@s", 8.0, run8()), samples_of(64, formula), run8());
}

TEST(TimeExp, ASignalLongerThanTheRepeatTimeIsCut) {
  const auto formula = [](double t) { return t; };
  const Evaluated result = evaluated("0@s#$[s]@m#100@s", 8.0, run8());
  expect_harmonics(result, samples_of(64, formula), run8());
  EXPECT_EQ(result.output.substr(0, result.output.find('\n')), "64 64 100");
}

TEST(TimeExp, ASignalFarLongerThanTheRepeatTimeIsCutToo) {
  const auto formula = [](double t) { return t; };
  // At 8 Hz 2^29 s are 2^32 samples.
  const Evaluated result = evaluated("0@s#$[s]@m#536870912@s", 8.0, run8());
  expect_harmonics(result, samples_of(64, formula), run8());
  EXPECT_EQ(result.output.substr(0, result.output.find('\n')), "64 64 5.36871e+08");
}

TEST(TimeExp, RepeatAndRunTimeAreRoundedToSamples) {
  const auto counts = [](const std::string& text, double rate) {
    const std::string output = evaluated(text, rate, run8()).output;
    return output.substr(0, output.find('\n'));
  };
  EXPECT_EQ(counts("0@s#1@m#100@s", 8.075), "65 65 100");  // 64.6 samples
  EXPECT_EQ(counts("0@s#1@m#100@s", 8.05), "64 64 100");   // 64.4
  EXPECT_EQ(counts("0@s#1@m#4.07@s", 8.0), "64 33 4.07");  // 32.56
  EXPECT_EQ(counts("0@s#1@m#4.05@s", 8.0), "64 32 4.05");  // 32.4
}

TEST(TimeExp, AShortSignalIsTransformedAsIfItFilledTheRepeatTime) {
  // 40 samples of a cosine with four periods: harmonic 4 of the signal, filed under 4.
  const Evaluated result = evaluated("0@s#cos(2*pi*0.8*$[s])@m#5@s", 8.0, run8());
  EXPECT_NEAR(result.amp(4), 1.0, 1e-13);
  EXPECT_EQ(result.output.substr(0, result.output.find('\n')), "64 40 5");
  const auto formula = [](double t) { return t * t; };
  expect_harmonics(evaluated("0@s#$[s]^2@m#3@s", 8.0, run8()), samples_of(24, formula), run8());
}

TEST(TimeExp, TopHarmonicIsLeftOut) {
  const Evaluated result = evaluated(
      "0@s#cos(12.566370614359172954*$[s])+cos(11.780972450961724644*$[s])@m#8@s", 8.0, run8());
  EXPECT_TRUE(result.fronts.slots[16].empty());
  EXPECT_NEAR(result.amp(15), 1.0, 1e-12);
}

TEST(TimeExp, WritesCountsAndSteepnessOfASmoothJoin) {
  // 0 1 2 1 0 -1 -2 -1 at 1 Hz, repeated: steps of 1 m, which turn by 2 m at the crests.
  const Evaluated result =
      evaluated("0@s#$[s]@m#2.5@s#4-$[s]@m#6.5@s#$[s]-8@m#8@s", 1.0, run_of(8.0, 0.125, 0.5));
  EXPECT_EQ(result.output,
            "8 8 8\n"
            "Time series \"wave\" has max rate of 1 and acceleration of 2\n");
}

TEST(TimeExp, FirstDifferencesCountFromTheSecondSampleAndSecondOnesFromTheThird) {
  // 5 7 10 at 2 Hz: differences 2 and 3, second difference 1, join 5.
  const Evaluated result =
      evaluated("0@s#5+3*$[s]+2*$[s]*$[s]@m#1.5@s", 2.0, run_of(1.5, 0.6, 1.4));
  EXPECT_EQ(result.output.substr(0, result.output.find("Maximum")),
            "3 3 1.5\n"
            "Time series \"wave\" has max rate of 6 and acceleration of 4\n");
}

std::string join_line(const std::string& output) {
  const std::size_t at = output.find("Maximum");
  return at == std::string::npos ? "" : output.substr(at);
}

TEST(TimeExp, JoinOfMoreThanTwiceTheLargestStepComesFirst) {
  // 0 1 2 3 4 5 6 7 at 1 Hz: steps of 1 m, 7 m at the join.
  const Maths::RunData run = run_of(8.0, 0.125, 0.5);
  EXPECT_EQ(join_line(evaluated("0@s#$[s]@m#8@s", 1.0, run).output),
            "Maximum end difference is 7m/s\n");
  // The same samples at 2 Hz.
  EXPECT_EQ(join_line(evaluated("0@s#2*$[s]@m#4@s", 2.0, run_of(4.0, 0.25, 1.0)).output),
            "Maximum end difference is 14m/s\n");
}

TEST(TimeExp, JoinAboveTheLargestTurnComesLast) {
  // 0 2 4 6 7 6 4 2 at 1 Hz: steps of at most 2, turns of at most 2. Join: a step of 2, and a turn
  // of 4 from falling to rising. It is not more than twice 2, so that it comes as the last line.
  const Evaluated result =
      evaluated("0@s#2*$[s]@m#3.5@s#7@m#4.5@s#16-2*$[s]@m#8@s", 1.0, run_of(8.0, 0.125, 0.5));
  EXPECT_EQ(result.output,
            "8 8 8\n"
            "Time series \"wave\" has max rate of 2 and acceleration of 2\n"
            "Maximum end rate is 4m/s2\n");
}

TEST(TimeExp, JoinOfMoreThanTwiceTheLargestTurnComesSecond) {
  // 0 3 6 8 9 9 8 6 3 at 2 Hz: steps of at most 3, turns of at most 1 + 0. Join: a step of 3, and
  // a turn of |3 - 0 + 3| = 6. The step is not above the largest.
  const Evaluated result = evaluated(
      "0@s#6*$[s]@m#1.25@s#5+2*$[s]@m#2.25@s#9@m#2.75@s#14-2*$[s]@m#3.25@s#"
      "27-6*$[s]@m#4.5@s",
      2.0, run_of(4.5, 0.3, 1.0));
  EXPECT_EQ(result.output,
            "9 9 4.5\n"
            "Time series \"wave\" has max rate of 6 and acceleration of 4\n"
            "Maximum end rate is 24m/s2\n");
  // The same backwards: 3 6 8 9 9 8 6 3 0, where the turn at the last sample is the larger one.
  const Evaluated back = evaluated(
      "0@s#3+6*$[s]@m#0.75@s#6+2*$[s]@m#1.75@s#9@m#2.25@s#13-2*$[s]@m#2.75@s#"
      "24-6*$[s]@m#4.5@s",
      2.0, run_of(4.5, 0.3, 1.0));
  EXPECT_EQ(back.output, result.output);
  // 0 3 6 8 9 9 8 7 5 at 1 Hz: steps of at most 3, turns of at most 1. The step of 5 at the join is
  // above the largest, but not above twice that, so that the turn of |3 - 0 + 5| = 8 comes first.
  EXPECT_EQ(evaluated("0@s#3*$[s]@m#2.5@s#5+$[s]@m#4.5@s#14-$[s]@m#7.5@s#5@m#9@s", 1.0,
                      run_of(9.0, 0.12, 0.5))
                .output,
            "9 9 9\n"
            "Time series \"wave\" has max rate of 3 and acceleration of 1\n"
            "Maximum end rate is 8m/s2\n");
}

TEST(TimeExp, JoinAboveTheLargestStepComesThird) {
  // 0 2 4 3 at 1 Hz: largest step 2, largest turn |-1 - 2| = 3. Join: step 3; turns |2 - 0 + 3| = 5
  // and |0 - 6 + 4| = 2. Neither above twice; the step above the largest.
  const Evaluated result = evaluated("0@s#2*$[s]@m#2.5@s#3@m#4@s", 1.0, run_of(4.0, 0.25, 0.5));
  EXPECT_EQ(result.output,
            "4 4 4\n"
            "Time series \"wave\" has max rate of 2 and acceleration of 3\n"
            "Maximum end difference is 3m/s\n");
}

TEST(TimeExp, AnEarlyEndIsComparedWithStillWater) {
  // 5 5 5 5 in a repeat of 8 samples: no step inside, 5 m at both ends.
  const Evaluated flat = evaluated("0@s#5@m#4@s", 1.0, run_of(8.0, 0.125, 0.5));
  EXPECT_EQ(flat.output,
            "8 4 4\n"
            "Time series \"wave\" has max rate of 0 and acceleration of 0\n"
            "Maximum end difference is 5m/s\n");
  // 0 1 2 1 0: ends at 0, but with a slope of 1 against a turn of 2 at its crest: no line.
  const Evaluated tent = evaluated("0@s#$[s]@m#2.5@s#4-$[s]@m#5@s", 1.0, run_of(8.0, 0.125, 0.5));
  EXPECT_EQ(tent.output,
            "8 5 5\n"
            "Time series \"wave\" has max rate of 1 and acceleration of 2\n");
}

TEST(TimeExp, AnEarlyEndIsReportedByItsWorseSide) {
  // 0 3 5 6 6 5 4 3 2 1 0: turns of 1, slopes of 3 and 1 at the ends; then the same backwards.
  for (const char* text : {"0@s#3*$[s]@m#1.5@s#3+$[s]@m#3.5@s#10-$[s]@m#11@s",
                           "0@s#$[s]@m#6.5@s#13-$[s]@m#8.5@s#30-3*$[s]@m#11@s"}) {
    EXPECT_EQ(evaluated(text, 1.0, run_of(16.0, 0.0625, 0.5)).output,
              "16 11 11\n"
              "Time series \"wave\" has max rate of 3 and acceleration of 1\n"
              "Maximum end rate is 3m/s2\n")
        << text;
  }
  // 7 5: the greater of the two heights.
  EXPECT_EQ(join_line(evaluated("0@s#7-2*$[s]@m#2@s", 1.0, run_of(8.0, 0.125, 0.5)).output),
            "Maximum end difference is 7m/s\n");
}

TEST(TimeExp, SingleSampleHasNoRates) {
  const Maths::RunData run = run_of(8.0, 0.125, 0.5);
  EXPECT_EQ(evaluated("0@s#5@m#1@s", 1.0, run).output,
            "8 1 1\n"
            "Time series \"wave\" has max rate of 0 and acceleration of 0\n"
            "Maximum end difference is 5m/s\n");
  EXPECT_EQ(evaluated("0@s#5@m#8@s", 0.125, run).output,
            "1 1 8\n"
            "Time series \"wave\" has max rate of 0 and acceleration of 0\n");
}

TEST(TimeExp, TwoSamplesHaveNoAcceleration) {
  // 5 7 of 8 samples at 1 Hz: ends of 7 m, slope 2.
  EXPECT_EQ(evaluated("0@s#5+2*$[s]@m#2@s", 1.0, run_of(8.0, 0.125, 0.5)).output,
            "8 2 2\n"
            "Time series \"wave\" has max rate of 2 and acceleration of 0\n"
            "Maximum end difference is 7m/s\n");
}

TEST(TimeExp, RateOfZeroIsRefusedWithoutALine) {
  const Testing::Refused failure = refused("0@s#1@m#8@s", 0.0);
  EXPECT_EQ(failure.message, "data rate is zero");
  EXPECT_EQ(failure.output, "");
}

TEST(TimeExp, NoSamplesAreRefusedAfterTheirLine) {
  const Testing::Refused short_signal = refused("0@s#1@m#0.05@s", 8.0);
  EXPECT_EQ(short_signal.message, "limit_steps is zero");
  EXPECT_EQ(short_signal.output, "64 0 0.05\n");
  const Testing::Refused low_rate = refused("0@s#1@m#8@s", 0.05);
  EXPECT_EQ(low_rate.message, "limit_steps is zero");
  EXPECT_EQ(low_rate.output, "0 0 8\n");
}

TEST(TimeExp, UnusableSampleCountsAreRefused) {
  const double inf = std::numeric_limits<double>::infinity();
  EXPECT_EQ(refusal("0@s#1@m#8@s", 1e8), "wave::8e+08 samples in the signal, not 1 to 134217728");
  EXPECT_EQ(refusal("0@s#1@m#8@s", 1e9), "wave::8e+09 samples in the signal, not 1 to 134217728");
  EXPECT_EQ(refusal("0@s#1@m#8@s", -8.0), "wave::-64 samples in the signal, not 1 to 134217728");
  for (double rate : {std::nan(""), inf, -inf, 1e300}) {
    const std::string text = refusal("0@s#1@m#8@s", rate);
    EXPECT_TRUE(text == "limit_steps is zero" ||
                text.find("samples in the signal") != std::string::npos)
        << text;
  }
}

TEST(TimeExp, RunTimeBeforeZeroIsRefused) {
  EXPECT_EQ(refusal("0-5@s#1@m#0-3@s", 8.0), "wave::no function for the time 0.125s");
}

TEST(TimeExp, LimitsLeftByAFailedSetAreRefused) {
  TimeExp component("wave", "start[s]@s#rate[Hz]*1@m#stop[s]@s");
  Base::Params good = at_rate(8.0);
  good.insert("start", 0.0, "s");
  good.insert("stop", 8.0, "s");
  component.set(good);
  Base::Params bad = at_rate(8.0);
  bad.insert("start", 0.0, "s");
  EXPECT_EQ(thrown([&] { component.set(bad); }), "stop::Not found");
  EXPECT_EQ(thrown([&] { Testing::evaluate(component, run8()); }),
            "wave::evaluate::limits are not set");
  // All limits, but not rising: the last one lies before the first.
  bad.at("start") = Base::Quantity(9.0, Base::Category::time);
  bad.insert("stop", 1.0, "s");
  EXPECT_EQ(thrown([&] { component.set(bad); }), "Limit values do not increase in size");
  EXPECT_TRUE(Testing::evaluate(component, run8()).used().empty());
  bad.at("start") = Base::Quantity(std::nan(""), Base::Category::time);
  EXPECT_EQ(thrown([&] { component.set(bad); }), "Limit values do not increase in size");
  EXPECT_EQ(thrown([&] { Testing::evaluate(component, run8()); }), "wave::a limit is not a number");
}

TEST(TimeExp, EvaluationRepeats) {
  TimeExp component("wave", "0@s#sin($[s]^2)@m#8@s");
  Base::Params in = at_rate(8.0);
  component.set(in);
  const Evaluated first = Testing::evaluate(component, run8());
  const Evaluated second = Testing::evaluate(component, run8());
  ASSERT_EQ(first.used(), second.used());
  for (std::size_t h : first.used()) EXPECT_EQ(first.complex_amp(h), second.complex_amp(h));
}

}  // namespace
