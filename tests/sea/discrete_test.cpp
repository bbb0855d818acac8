#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "components.h"
#include "sea/set_fronts.h"
#include "sea/single.h"
#include "support/output.h"
#include "support/thrown.h"

namespace {

using Synthesis::DispFronts;
using Synthesis::Front;
using Synthesis::SetFronts;
using Synthesis::Single;
using Testing::evaluate;
using Testing::Evaluated;
using Testing::pi;
using Testing::printed;
using Testing::run_of;
using Testing::thrown;

Base::Params wave(double f, double a, double angle, double phase) {
  Base::Params in;
  in.insert("f", f, "Hz");
  in.insert("a", a, "m");
  in.insert("angle", angle, "rad");
  in.insert("phase", phase, "rad");
  return in;
}

Evaluated single(double f, const Maths::RunData& run) {
  Single component;
  Base::Params in = wave(f, 0.05, 0.2, 0.3);
  component.set(in);
  return evaluate(component, run);
}

TEST(Single, DeclaresItsFourParameters) {
  Single component;
  EXPECT_EQ(component.name(), "Single");
  Base::Params out;
  component.query(out);
  ASSERT_EQ(out.entries().size(), 4U);
  EXPECT_EQ(Base::units_text(out.at("f").units), "Hz");
  EXPECT_EQ(Base::units_text(out.at("a").units), "m");
  EXPECT_EQ(Base::units_text(out.at("angle").units), "rad");
  EXPECT_EQ(Base::units_text(out.at("phase").units), "rad");
  EXPECT_EQ(out.at("f").state.state, 0U);
}

TEST(Single, ParametersMustBePresentAndSet) {
  Single component;
  Base::Params in;
  EXPECT_EQ(thrown([&] { component.set(in); }), "f::Not found");
  component.query(in);
  EXPECT_EQ(thrown([&] { component.set(in); }), "Invalid value");
  EXPECT_EQ(thrown([&] { evaluate(component, run_of(8.0, 0.25, 2.0)); }),
            "Single::evaluate::when not ready");
  Base::Params wrong = wave(1.0, 1.0, 0.0, 0.0);
  wrong.at("a").units = Base::resolve_units("s");
  EXPECT_EQ(thrown([&] { component.set(wrong); }), "a::not convertable");
}

TEST(Single, OnAHarmonicItMakesOneFrontWithoutAMessage) {
  const Evaluated result = single(0.5, run_of(8.0, 0.25, 2.0));
  ASSERT_EQ(result.used(), std::vector<std::size_t>{4});
  EXPECT_EQ(result.fronts.slots[4][0].amp, 0.05);
  EXPECT_EQ(result.fronts.slots[4][0].angle, 0.2);
  EXPECT_EQ(result.fronts.slots[4][0].phase, 0.3);
  EXPECT_TRUE(result.messages.empty());
  EXPECT_EQ(result.output, "");
}

TEST(Single, UnitsAreReadAndTheAngleIsWrappedButNotThePhase) {
  Single component;
  Base::Params in;
  in.insert("f", 2 * pi, "rad/s");
  in.insert("a", 5.0, "cm");
  in.insert("angle", 4.0, "rad");
  in.insert("phase", 400.0, "deg");
  component.set(in);
  const Evaluated result = evaluate(component, run_of(8.0, 0.25, 2.0));
  ASSERT_EQ(result.used(), std::vector<std::size_t>{8});
  EXPECT_DOUBLE_EQ(result.fronts.slots[8][0].amp, 0.05);
  EXPECT_DOUBLE_EQ(result.fronts.slots[8][0].angle, 4.0 - 2 * pi);
  EXPECT_DOUBLE_EQ(result.fronts.slots[8][0].phase, 400 * 0.0174533);
}

TEST(Single, MovesToTheNearestHarmonicWithAMessage) {
  const Evaluated result = single(0.52, run_of(8.0, 0.25, 2.0));
  EXPECT_EQ(result.used(), std::vector<std::size_t>{4});
  EXPECT_EQ(result.messages,
            Synthesis::Messages{"Single frequency 0.52Hz altered to 0.5Hz to fit repeat time"});
  EXPECT_EQ(result.amp(4), 0.05);
}

TEST(Single, AChangeUpToAThousandthHasNoMessage) {
  const Maths::RunData run = run_of(2.0, 0.5, 4.0);
  for (double f : {0.4995, 0.50049, 0.4996, 0.999, 0.9995}) {
    const Evaluated result = single(f, run);
    EXPECT_TRUE(result.messages.empty()) << f << ": " << result.messages[0];
    EXPECT_EQ(result.used().size(), 1U) << f;
  }
  EXPECT_EQ(single(0.49949, run).messages,
            Synthesis::Messages{"Single frequency 0.49949Hz altered to 0.5Hz to fit repeat time"});
  EXPECT_EQ(single(0.50051, run).messages,
            Synthesis::Messages{"Single frequency 0.50051Hz altered to 0.5Hz to fit repeat time"});
}

TEST(Single, OutOfRangeIsDiscardedWithAMessage) {
  const Maths::RunData run = run_of(8.0, 0.25, 2.0);
  for (double f : {2.0626, 0.18, 0.0, -1.0, 1e30, std::numeric_limits<double>::infinity()}) {
    const Evaluated result = single(f, run);
    EXPECT_TRUE(result.used().empty()) << f;
    std::ostringstream text;
    text << "Discarding single frequency " << f << " as it is out of range";
    EXPECT_EQ(result.messages, Synthesis::Messages{text.str()});
    EXPECT_EQ(result.output, "");
  }
  const Evaluated result = single(std::nan(""), run);
  EXPECT_TRUE(result.used().empty());
  EXPECT_EQ(result.messages,
            Synthesis::Messages{"Discarding single frequency nan as it is out of range"});
}

TEST(Single, HalfAStepOutsideStillRoundsIntoRange) {
  const Maths::RunData run = run_of(8.0, 0.25, 2.0);
  EXPECT_EQ(single(0.1875, run).used(), std::vector<std::size_t>{2});
  EXPECT_EQ(single(2.0624, run).used(), std::vector<std::size_t>{16});
}

TEST(Single, ZeroAmplitudeMakesNoFront) {
  Single component;
  Base::Params in = wave(0.5, 0.0, 0.0, 0.0);
  component.set(in);
  const Evaluated result = evaluate(component, run_of(8.0, 0.25, 2.0));
  EXPECT_TRUE(result.used().empty());
  EXPECT_TRUE(result.messages.empty());
}

DispFronts at(const std::vector<double>& frequencies) {
  DispFronts fronts;
  for (double f : frequencies) fronts.emplace_back(f, 0.01 + f, 0.0, f / 10);
  return fronts;
}

double repeat_of(const std::vector<double>& frequencies) {
  return SetFronts(at(frequencies)).fitted_repeat();
}

std::string comment_on(const DispFronts& fronts) {
  SetFronts component(fronts);
  Base::Params out;
  component.query(out);
  EXPECT_EQ(out.comment_size(), 1U);
  EXPECT_TRUE(out.entries().empty());
  return out.comment(0);
}

Evaluated evaluated(const DispFronts& fronts, const Maths::RunData& run) {
  SetFronts component(fronts);
  Base::Params in;
  component.set(in);
  return evaluate(component, run);
}

TEST(SetFronts, FittedRepeatOfEvenStepsIsTheirInverse) {
  EXPECT_EQ(repeat_of({0.5, 0.75, 1.0, 1.25}), 4.0);
  EXPECT_EQ(repeat_of({1.0, 0.5, 1.25, 0.75}), 4.0) << "in any order";
}

TEST(SetFronts, FittedRepeatCountsALargerStepAsAMultiple) {
  // One step of 0.25, then 0.5, which is twice the mean: 1 * 2 + 1 steps in 0.75 Hz.
  EXPECT_EQ(repeat_of({0.5, 0.75, 1.25}), 4.0);
  // Two steps of 0.25, then 0.5: counted as 2 * 2 + 1 steps in 1 Hz. Hosts rely on this count.
  EXPECT_EQ(repeat_of({0.5, 0.75, 1.0, 1.5}), 5.0);
  // The multiple is the nearest one: 0.45 is 1.8 steps of 0.25, and counts as two.
  EXPECT_NEAR(repeat_of({0.5, 0.75, 1.2}), 3 / 0.7, 1e-12);
  EXPECT_NEAR(repeat_of({0.5, 0.75, 1.1}), 2 / 0.6, 1e-12);
}

TEST(SetFronts, FittedRepeatCountsASmallerStepAsTheGrid) {
  // One step of 0.5, then 0.25, half of it: 0 + 2 + 1 steps in 0.75 Hz.
  EXPECT_EQ(repeat_of({0.5, 1.0, 1.25}), 4.0);
  // Two steps of 0.5, then 0.25: 1 + 2 + 1 steps in 1.25 Hz.
  EXPECT_EQ(repeat_of({0.5, 1.0, 1.5, 1.75}), 3.2);
  // The nearest count again: 0.5 is 1.67 steps of 0.3, and 1.43 steps of 0.35.
  EXPECT_NEAR(repeat_of({0.5, 1.0, 1.3}), 3 / 0.8, 1e-12);
  EXPECT_NEAR(repeat_of({0.5, 1.0, 1.35}), 2 / 0.85, 1e-12);
}

TEST(SetFronts, FittedRepeatSkipsStepsBelowATenThousandth) {
  EXPECT_NEAR(repeat_of({0.5, 0.50009, 0.75009, 1.00009}), 4.0, 1e-12);
  EXPECT_NEAR(repeat_of({0.5, 0.5002}), 5000.0, 1e-6);
}

TEST(SetFronts, FittedRepeatNeedsTwoDistinctFrequencies) {
  EXPECT_TRUE(std::isnan(repeat_of({})));
  EXPECT_TRUE(std::isnan(repeat_of({0.5})));
  EXPECT_TRUE(std::isnan(repeat_of({0.5, 0.5, 0.50005})));
}

TEST(SetFronts, FrequencyErrorIsTheRootMeanSquareDistanceFromTheGrid) {
  EXPECT_EQ(SetFronts(at({0.25, 0.5})).frequency_error(4.0), 0.0);
  EXPECT_NEAR(SetFronts(at({0.26, 0.5})).frequency_error(4.0), 0.01 / std::sqrt(2.0), 1e-15);
  EXPECT_NEAR(SetFronts(at({0.375, -0.2})).frequency_error(4.0),
              std::sqrt((0.125 * 0.125 + 0.05 * 0.05) / 2), 1e-15);
  EXPECT_TRUE(std::isnan(SetFronts(at({})).frequency_error(4.0)));
}

TEST(SetFronts, QueryReportsRepeatTimeAndErrorInPerCent) {
  EXPECT_EQ(comment_on(at({0.25, 0.5, 0.75})), "Detail::Repeat time = 4s with error = 0%");
  // Two steps in 0.51 Hz; distances of 0.005, 0.01 and 0.005 Hz make 0.00707.
  EXPECT_EQ(comment_on(at({0.25, 0.5, 0.76})), "Detail::Repeat time = 3.92157s with error = 0.7%");
  // With 0.001 Hz more they make 0.00778, which rounds up.
  EXPECT_EQ(comment_on(at({0.25, 0.5, 0.761})), "Detail::Repeat time = 3.91389s with error = 0.8%");
}

TEST(SetFronts, SetReportsTheSame) {
  SetFronts component(at({0.25, 0.5, 0.75}));
  EXPECT_EQ(component.name(), "Set of fronts");
  Base::Params in;
  component.set(in);
  ASSERT_EQ(in.comment_size(), 1U);
  EXPECT_EQ(in.comment(0), "Detail::Repeat time = 4s with error = 0%");
}

TEST(SetFronts, QueryReportsARepeatTimeThatIsNan) {
  for (const std::vector<double>& frequencies : {std::vector<double>{}, {0.5}}) {
    const std::string text = comment_on(at(frequencies));
    EXPECT_TRUE(text.rfind("Detail::Repeat time = nans with error = ", 0) == 0 ||
                text.rfind("Detail::Repeat time = -nans with error = ", 0) == 0)
        << text;
    // NaN as a 32-bit integer is -2147483648, here in tenths.
    EXPECT_TRUE(text.ends_with(" = -2.14748e+08%")) << text;
  }
}

TEST(SetFronts, EvaluateBeforeSetIsRefused) {
  SetFronts component(at({0.5, 0.75}));
  EXPECT_EQ(thrown([&] { evaluate(component, run_of(4.0, 0.25, 2.0)); }),
            "Set of fronts::evaluate::when not ready");
}

TEST(SetFronts, PutsEachFrontIntoItsSlotWithItsAngleWrapped) {
  const DispFronts fronts = {Front(1.0, 0.3, 4.0, 9.0), Front(0.5, 0.1, -0.5, 0.6),
                             Front(0.75, 0.2, pi, 0.0), Front(0.5, 0.4, 0.5, -0.6)};
  const Evaluated result = evaluated(fronts, run_of(4.0, 0.25, 2.0));
  EXPECT_EQ(result.used(), (std::vector<std::size_t>{2, 3, 4}));
  ASSERT_EQ(result.fronts.slots[2].size(), 2U);
  EXPECT_EQ(result.fronts.slots[2][0].amp, 0.1);
  EXPECT_EQ(result.fronts.slots[2][0].angle, -0.5);
  EXPECT_EQ(result.fronts.slots[2][1].amp, 0.4) << "equal frequencies keep their order";
  EXPECT_EQ(result.fronts.slots[3][0].angle, pi);
  EXPECT_DOUBLE_EQ(result.fronts.slots[4][0].angle, 4.0 - 2 * pi);
  EXPECT_EQ(result.fronts.slots[4][0].phase, 9.0);
  EXPECT_TRUE(result.messages.empty());
}

TEST(SetFronts, ReportsARunOfSeveralRepeatTimes) {
  EXPECT_EQ(evaluated(at({0.5, 0.75, 1.0}), run_of(8.0, 0.25, 2.0)).messages,
            Synthesis::Messages{"Repeat time 8s is 2 times the repeat time of the wave"});
}

TEST(SetFronts, ReportsARunThatDoesNotFitTheWave) {
  EXPECT_EQ(evaluated(at({0.5, 0.75, 1.0}), run_of(10.0, 0.25, 2.0)).messages,
            Synthesis::Messages{"Repeat time 10 does not match synthetic wave 4"});
  // The run is less than half of the wave's repeat time.
  EXPECT_EQ(evaluated(at({1.0, 1.05}), run_of(1.0, 1.0, 2.0)).messages,
            Synthesis::Messages{"Repeat time 1 does not match synthetic wave 20"});
}

TEST(SetFronts, RepeatTimesWithinAMillionthAreEqual) {
  const double step = 0.25 * (1 + 5e-7);
  EXPECT_TRUE(evaluated(at({step, 2 * step, 3 * step}), run_of(4.0, 0.25, 2.0)).messages.empty());
  const double off = 0.25 * (1 + 2e-6);
  EXPECT_EQ(evaluated(at({off, 2 * off, 3 * off}), run_of(4.0, 0.25, 2.0)).messages,
            Synthesis::Messages{"Repeat time 4 does not match synthetic wave 3.99999"});
  EXPECT_EQ(evaluated(at({step, 2 * step, 3 * step}), run_of(12.0, 0.25, 2.0)).messages,
            Synthesis::Messages{"Repeat time 12s is 3 times the repeat time of the wave"});
  const double under = 0.25 * (1 - 5e-7);
  EXPECT_EQ(evaluated(at({under, 2 * under, 3 * under}), run_of(12.0, 0.25, 2.0)).messages,
            Synthesis::Messages{"Repeat time 12s is 3 times the repeat time of the wave"});
}

TEST(SetFronts, FrequencyErrorIsReportedAsAHundredthAfterTheRepeatTime) {
  const Evaluated result = evaluated(at({0.75, 1.25}), run_of(1.0, 1.0, 2.0));
  EXPECT_EQ(result.messages, (Synthesis::Messages{"Repeat time 1 does not match synthetic wave 2",
                                                  "Frequency mismath of 0.0025%"}));
  EXPECT_EQ(result.fronts.slots[1].size(), 2U);
  // The distance from the run's grid counts, 0.15 Hz, not that from the wave's own, 0.05 Hz.
  EXPECT_EQ(evaluated(at({0.85, 1.15}), run_of(1.0, 1.0, 2.0)).messages,
            (Synthesis::Messages{"Repeat time 1 does not match synthetic wave 3.33333",
                                 "Frequency mismath of 0.0015%"}));
  // An error of 0.1 Hz or less is not reported.
  EXPECT_EQ(evaluated(at({0.9004, 1.0996}), run_of(1.0, 1.0, 2.0)).messages.size(), 1U);
  EXPECT_EQ(evaluated(at({0.8996, 1.1004}), run_of(1.0, 1.0, 2.0)).messages.size(), 2U);
}

TEST(SetFronts, ASingleFrontIsMadeThoughItHasNoRepeatTime) {
  const Evaluated result = evaluated(at({0.5}), run_of(4.0, 0.25, 2.0));
  EXPECT_EQ(result.used(), std::vector<std::size_t>{2});
  ASSERT_EQ(result.messages.size(), 1U);
  const std::string& text = result.messages[0];
  EXPECT_TRUE(text == "Repeat time 4 does not match synthetic wave nan" ||
              text == "Repeat time 4 does not match synthetic wave -nan")
      << text;
}

TEST(SetFronts, ZeroAndNegativeFrequenciesAreSkipped) {
  const Evaluated result = evaluated(at({-0.25, 0.0, 0.25, 0.5}), run_of(4.0, 0.25, 2.0));
  EXPECT_EQ(result.used(), (std::vector<std::size_t>{1, 2}));
  EXPECT_TRUE(result.messages.empty());
}

TEST(SetFronts, NanFrequenciesAreSortedLastAndSkipped) {
  const DispFronts fronts = at({0.75, std::nan(""), 0.5, std::nan(""), 0.25});
  EXPECT_EQ(evaluated(fronts, run_of(4.0, 0.25, 2.0)).used(), (std::vector<std::size_t>{1, 2, 3}));
  SetFronts component(fronts);
  component.fitted_repeat();
  std::ostringstream sorted;
  component.write_frequencies(sorted, "");
  EXPECT_EQ(sorted.str(), "0.25\n0.5\n0.75\nnan\nnan\n");
}

TEST(SetFronts, PositiveFrequencyOutOfRangeIsRefused) {
  SetFronts component(at({0.5, 0.75, 2.5}));
  Base::Params in;
  component.set(in);
  const Testing::Refused failure = Testing::refused(component, run_of(4.0, 0.25, 2.0));
  EXPECT_EQ(failure.message, "Wave number out of range");
  EXPECT_EQ(failure.output, "wave number out of range 10 must be between 1 and 8\n");
}

TEST(SetFronts, AFrontSetTooSmallForTheRunIsRefused) {
  SetFronts component(at({0.5, 0.75, 1.0}));
  Base::Params in;
  component.set(in);
  Maths::FrontSet fronts;
  fronts.reset(4);
  Synthesis::Messages messages;
  const Synthesis::RunContext context = {run_of(4.0, 0.25, 2.0), {}, messages};
  std::string message;
  const std::string line =
      printed([&] { message = thrown([&] { component.evaluate(fronts, context); }); });
  EXPECT_EQ(message, "Help");
  EXPECT_EQ(line, "front error 4 4\n");
}

TEST(SetFronts, WritesOneFrequencyPerLine) {
  SetFronts component(at({0.75, 0.5}));
  std::ostringstream unsorted;
  component.write_frequencies(unsorted, "f = ");
  EXPECT_EQ(unsorted.str(), "f = 0.75\nf = 0.5\n");
  component.fitted_repeat();
  std::ostringstream sorted;
  component.write_frequencies(sorted, "");
  EXPECT_EQ(sorted.str(), "0.5\n0.75\n");
}

TEST(SetFronts, CopiesTheHostsList) {
  DispFronts fronts = at({0.5, 0.75});
  SetFronts component(fronts);
  fronts[0].freq = 1.5;
  Base::Params in;
  component.set(in);
  EXPECT_EQ(evaluate(component, run_of(4.0, 0.25, 2.0)).used(), (std::vector<std::size_t>{2, 3}));
}

}  // namespace
