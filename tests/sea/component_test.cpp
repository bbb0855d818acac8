#include "sea/component.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "components.h"
#include "sea/piecewise.h"
#include "sea/spectrum.h"
#include "support/output.h"
#include "support/thrown.h"

namespace {

using Testing::evaluate;
using Testing::nothing_thrown;
using Testing::printed;
using Testing::run_of;
using Testing::thrown;
namespace Category = Base::Category;
using Strings = std::vector<std::string>;

// A component that records what it is given.
class Probe : public Synthesis::Component {
 public:
  explicit Probe(const std::string& text) : Component("probe", text) {}
  Probe() : Component("plain") {}

  void disable() { enabled_ = false; }

  int sets = 0;
  int evaluations = 0;
  bool fails = false;

 protected:
  void on_query(Base::Params& out) override {
    out.declare("own", Base::default_units(Category::length));
  }
  void on_set(Base::Params& in, Base::Params& stored) override {
    stored.merge(*in.find("own"));
    ++sets;
  }
  // Reports each stored parameter.
  void on_evaluate(const Base::Params& stored, Maths::FrontSet&,
                   const Synthesis::RunContext& context) override {
    ++evaluations;
    if (fails) throw std::string("no sea today");
    for (const auto& [name, quantity] : stored.entries()) {
      std::ostringstream message;
      message << name << " = " << quantity.value << " " << Base::units_text(quantity.units);
      context.messages.push_back(message.str());
    }
  }
};

// The message of a refused text.
std::string refusal(const std::string& text) {
  return thrown([&] { Probe probe(text); });
}

Base::Params own_params() {
  Base::Params params;
  params.insert("own", 1.0, "m");
  return params;
}

Maths::RunData run8() { return run_of(8.0, 0.25, 2.0); }

TEST(PiecewiseText, SplitsAtEveryHashAndKeepsBlanksAndEmptyPieces) {
  EXPECT_EQ(Synthesis::split_pieces(""), Strings{""});
  EXPECT_EQ(Synthesis::split_pieces(" a # b"), (Strings{" a ", " b"}));
  EXPECT_EQ(Synthesis::split_pieces("#a##"), (Strings{"", "a", "", ""}));
}

TEST(PiecewiseText, TextWithoutHashHasTooFewPieces) {
  EXPECT_EQ(refusal("1@Hz"), "There must be at least 2  sub expressions");
  EXPECT_EQ(refusal(""), "There must be at least 2  sub expressions");
}

TEST(PiecewiseText, EvenNumberOfPiecesIsRefused) {
  EXPECT_EQ(refusal("1@Hz#1@m"), "There must be an odd number of sub expressions");
  EXPECT_EQ(refusal("1@Hz#1@m#2@Hz#"), "There must be an odd number of sub expressions");
}

TEST(PiecewiseText, PiecesAreCountedBeforeAnyIsParsed) {
  EXPECT_EQ(refusal("("), "There must be at least 2  sub expressions");
  EXPECT_EQ(refusal("(#("), "There must be an odd number of sub expressions");
}

TEST(PiecewiseText, EmptyLastPieceIsRefusedByTheParser) {
  std::string message;
  printed([&] { message = refusal("1@Hz#1@m#"); });
  EXPECT_EQ(message, "Error while parsing expression ::");
}

TEST(PiecewiseText, PiecesAreParsedBeforeTheirUnitsAreChecked) {
  EXPECT_EQ(refusal("1@kg#1@m#2@furlong"), "Unknown units - furlong");
}

TEST(PiecewiseText, BlankAfterUnitsIsPartOfTheUnits) {
  EXPECT_EQ(refusal("1@Hz #1@m#2@Hz"), "Unknown units - Hz ");
  EXPECT_EQ(refusal("  1@Hz#  1 @m#  2 @Hz"), nothing_thrown);
}

TEST(PiecewiseText, LimitsAreFrequenciesOrTimes) {
  for (const char* text : {"1@Hz#1@m#2@Hz", "1@rad/s#1@m#2@Hz", "1@min#1@m#2@s"}) {
    EXPECT_EQ(refusal(text), nothing_thrown) << text;
  }
  EXPECT_EQ(refusal("1@m#1@m#2@m"), "Unsupported limit units");
  EXPECT_EQ(refusal("1#1@m#2"), "Unsupported limit units");
}

TEST(PiecewiseText, LaterLimitsAgreeWithTheFirst) {
  EXPECT_EQ(refusal("1@Hz#1@m#2@s"), "Inconsistent limit units");
  EXPECT_EQ(refusal("1@rad/s#1@m#2@s"), "Inconsistent limit units");
  EXPECT_EQ(refusal("1@s#1@m#2@s#1@m#3@Hz"), "Inconsistent limit units");
  EXPECT_EQ(refusal("1@min#1@m#2@s#1@m#3@Hz"), "Inconsistent limit units");
}

TEST(PiecewiseText, FunctionsReturnVarianceAmplitudeDensityOrLength) {
  for (const char* text : {"1@Hz#1@ft2s#2@Hz", "1@Hz#1@m/Hz#2@Hz", "1@Hz#1@mm#2@Hz"}) {
    EXPECT_EQ(refusal(text), nothing_thrown) << text;
  }
  EXPECT_EQ(refusal("1@Hz#1@s#2@Hz"), "Unsupported output units");
  EXPECT_EQ(refusal("1@Hz#1#2@Hz"), "Unsupported output units");
}

TEST(PiecewiseText, LaterFunctionsReturnTheSame) {
  const Strings kinds = {"1@ft2s", "1@m/Hz", "1@mm"};
  for (const std::string& first : kinds) {
    for (const std::string& second : kinds) {
      EXPECT_EQ(refusal("1@Hz#" + first + "#2@Hz#" + second + "#3@Hz"),
                first == second ? nothing_thrown : "Inconsistent output units")
          << first << " " << second;
    }
  }
  EXPECT_EQ(refusal("1@Hz#1@m#2@Hz#1@ft#3@Hz"), nothing_thrown);
}

TEST(PiecewiseText, FunctionsTakeFrequencyOrTime) {
  for (const char* text : {"1@Hz#$[Hz]@m#2@Hz", "1@Hz#$[rad/s]@m#2@Hz", "1@Hz#$[s]@m#2@Hz"}) {
    EXPECT_EQ(refusal(text), nothing_thrown) << text;
  }
  EXPECT_EQ(refusal("1@Hz#$[m]@m#2@Hz"), "Unsupported input units");
  EXPECT_EQ(refusal("1@Hz#$[s]*$[Hz]@m#2@Hz"), "Unsupported input units");
}

TEST(PiecewiseText, LaterFunctionsTakeTheSame) {
  EXPECT_EQ(refusal("1@Hz#$[Hz]@m#2@Hz#$[rad/s]@m#3@Hz"), nothing_thrown);
  EXPECT_EQ(refusal("1@Hz#$[Hz]@m#2@Hz#$[s]@m#3@Hz"), "Inconsistent input units");
  EXPECT_EQ(refusal("1@Hz#$[rad/s]@m#2@Hz#$[s]@m#3@Hz"), "Inconsistent input units");
  EXPECT_EQ(refusal("1@Hz#$[s]@m#2@Hz#$[Hz]@m#3@Hz"), "Inconsistent input units");
  EXPECT_EQ(refusal("1@Hz#$[Hz]@m#2@Hz#$[m]@m#3@Hz"), "Inconsistent input units");
}

TEST(PiecewiseText, ConstantFunctionsGoWithAnyInput) {
  for (const char* text : {"1@Hz#1@m2s#2@Hz", "1@Hz#top[m]@m#2@Hz", "1@Hz#4@m#2@Hz#$[Hz]@m#3@Hz",
                           "1@Hz#4@m#2@Hz#$[s]@m#3@Hz", "1@Hz#$[s]@m#2@Hz#4@m#3@Hz"}) {
    EXPECT_EQ(refusal(text), nothing_thrown) << text;
  }
  EXPECT_EQ(refusal("1@Hz#$[Hz]@m#2@Hz#4@m#3@Hz#$[s]@m#4@Hz"), "Inconsistent input units");
}

TEST(PiecewiseText, LimitsHaveNoVariable) {
  EXPECT_EQ(refusal("$[Hz]@Hz#1@m#2@Hz"), "Non constant separator function");
  EXPECT_EQ(refusal("1@Hz#1@m#2@Hz#1@m#2*$[Hz]@Hz"), "Non constant separator function");
}

TEST(PiecewiseText, UnitsAreCheckedInOrder) {
  // Each text fails all later checks as well.
  EXPECT_EQ(refusal("1@m#$[m]@s#$[Hz]@s#1@m#3@Hz"), "Unsupported limit units");
  EXPECT_EQ(refusal("1@Hz#$[m]@s#$[Hz]@s#1@m#3@Hz"), "Inconsistent limit units");
  EXPECT_EQ(refusal("1@Hz#$[m]@s#$[Hz]@Hz#$[s]@m#3@Hz"), "Unsupported output units");
  EXPECT_EQ(refusal("1@Hz#$[m]@m#$[Hz]@Hz#$[s]@s#3@Hz"), "Inconsistent output units");
  EXPECT_EQ(refusal("1@Hz#$[m]@m#$[Hz]@Hz#$[s]@m#3@Hz"), "Unsupported input units");
  EXPECT_EQ(refusal("1@Hz#$[Hz]@m#$[Hz]@Hz#$[s]@m#3@Hz"), "Inconsistent input units");
  EXPECT_EQ(refusal("1@Hz#$[Hz]@m#$[Hz]@Hz#$[Hz]@m#3@Hz"), "Non constant separator function");
}

TEST(Component, WithoutTextHasOnlyTheClasssParameters) {
  Probe probe;
  EXPECT_EQ(probe.name(), "plain");
  Base::Params out;
  probe.query(out);
  EXPECT_EQ(out.entries().size(), 1U);
  Base::Params in = own_params();
  probe.set(in);
  EXPECT_EQ(evaluate(probe, run8()).messages, Strings{"own = 1 m"});
}

TEST(Component, QueryDeclaresTheParametersOfTextAndClass) {
  Probe probe("low[Hz]@Hz#height[m]*$[Hz]@m#high[rad/s]@Hz");
  Base::Params out;
  probe.query(out);
  probe.query(out);
  ASSERT_EQ(out.entries().size(), 4U);
  EXPECT_EQ(Base::units_text(out.at("low").units), "Hz");
  EXPECT_EQ(Base::units_text(out.at("height").units), "m");
  EXPECT_EQ(Base::units_text(out.at("high").units), "rad/s");
  EXPECT_EQ(Base::units_text(out.at("own").units), "m");
  EXPECT_EQ(out.at("low").state.state, 0U);
}

TEST(Component, FormulasDeclareBeforeTheClass) {
  Probe probe("0@Hz#own[s]*$[Hz]@m#1@Hz");
  Base::Params out;
  EXPECT_EQ(thrown([&] { probe.query(out); }), "Incompatible units for => own");
  EXPECT_EQ(Base::units_text(out.at("own").units), "s");
}

TEST(Component, LimitsAreReadInTheirOwnUnits) {
  // 14.32 Hz, 20.5 Hz and 30.24 Hz on a grid of 1 Hz.
  Synthesis::Spectrum spectrum("sea", "low[Hz]@Hz#1@ms#0.0205@kHz#2@ms#190@rad/s");
  Base::Params in;
  in.insert("low", 90.0, "rad/s");
  spectrum.set(in);
  const Testing::Evaluated result = evaluate(spectrum, run_of(1.0, 1.0, 40.0));
  EXPECT_EQ(result.used().front(), 14U);
  EXPECT_EQ(result.used().back(), 30U);
  EXPECT_NEAR(result.amp(20), 1.0, 1e-14);
  EXPECT_NEAR(result.amp(22), 2.0, 1e-14);
}

TEST(Component, SetStoresOnlyTheParametersThatAreUsed) {
  Probe probe("low[Hz]@Hz#1@m#2@Hz");
  Base::Params in = own_params();
  in.insert("low", 1.0, "Hz");
  in.insert("foreign", 1.0, "Hz");
  probe.set(in);
  in.clear();
  EXPECT_EQ(evaluate(probe, run8()).messages, (Strings{"low = 1 Hz", "own = 1 m"}));
}

TEST(Component, ASecondSetReplacesParametersAndLimits) {
  Probe probe("low[Hz]@Hz#1@m#2@Hz");
  Base::Params first = own_params();
  first.insert("low", 0.5, "Hz");
  probe.set(first);
  Base::Params second = own_params();
  second.insert("low", 1.5, "Hz");
  probe.set(second);
  EXPECT_EQ(evaluate(probe, run8()).messages, (Strings{"low = 1.5 Hz", "own = 1 m"}));
}

TEST(Component, LimitsHaveToRise) {
  for (const char* text : {"2@Hz#1@m#2@Hz", "2@Hz#1@m#1@Hz", "1@Hz#1@m#3@Hz#1@m#2@Hz",
                           "0/0@Hz#1@m#2@Hz", "1@Hz#1@m#0/0@Hz"}) {
    Probe probe(text);
    Base::Params in = own_params();
    EXPECT_EQ(thrown([&] { probe.set(in); }), "Limit values do not increase in size") << text;
    EXPECT_EQ(probe.sets, 1) << "the class's own set comes first";
    EXPECT_EQ(thrown([&] { evaluate(probe, run8()); }), "probe::evaluate::when not ready") << text;
  }
}

TEST(Component, AFailedSecondSetLeavesItReady) {
  Probe probe("low[Hz]@Hz#1@m#2@Hz");
  Base::Params good = own_params();
  good.insert("low", 1.0, "Hz");
  probe.set(good);
  Base::Params bad = own_params();
  bad.insert("low", 3.0, "Hz");
  EXPECT_EQ(thrown([&] { probe.set(bad); }), "Limit values do not increase in size");
  EXPECT_EQ(thrown([&] { evaluate(probe, run8()); }), nothing_thrown);
}

TEST(Component, MissingParametersAreReportedInTextOrder) {
  Probe probe("low[Hz]@Hz#1@m#high[Hz]@Hz");
  Base::Params in;
  EXPECT_EQ(thrown([&] { probe.set(in); }), "low::Not found");
  in.insert("low", 1.0, "Hz");
  EXPECT_EQ(thrown([&] { probe.set(in); }), "high::Not found");
  in.insert("high", 2.0, "Hz");
  EXPECT_EQ(thrown([&] { probe.set(in); }), "own::Not found");
  EXPECT_EQ(thrown([&] { evaluate(probe, run8()); }), "probe::evaluate::when not ready");
}

TEST(Component, EvaluateBeforeSetThrowsItsName) {
  Probe probe("1@Hz#1@m#2@Hz");
  EXPECT_EQ(thrown([&] { evaluate(probe, run8()); }), "probe::evaluate::when not ready");
  EXPECT_EQ(probe.evaluations, 0);
}

TEST(Component, EvaluatesWithTheStoredParametersEachTime) {
  Probe probe("1@Hz#1@m#2@Hz");
  Base::Params in = own_params();
  probe.set(in);
  EXPECT_EQ(evaluate(probe, run8()).messages, Strings{"own = 1 m"});
  EXPECT_EQ(evaluate(probe, run8()).messages, Strings{"own = 1 m"});
  EXPECT_EQ(probe.evaluations, 2);
}

TEST(Component, AFailedEvaluationMayBeRepeated) {
  Probe probe("1@Hz#1@m#2@Hz");
  Base::Params in = own_params();
  probe.set(in);
  probe.fails = true;
  EXPECT_EQ(thrown([&] { evaluate(probe, run8()); }), "no sea today");
  probe.fails = false;
  EXPECT_EQ(evaluate(probe, run8()).messages, Strings{"own = 1 m"});
}

// Only a class of component can disable itself.
TEST(Component, ADisabledComponentIsNotEvaluated) {
  Probe probe("1@Hz#1@m#2@Hz");
  probe.disable();
  EXPECT_EQ(thrown([&] { evaluate(probe, run8()); }), "probe::evaluate::when not ready");
  Base::Params in = own_params();
  probe.set(in);
  EXPECT_TRUE(evaluate(probe, run8()).messages.empty());
  EXPECT_EQ(probe.evaluations, 0);
}

TEST(Component, WritesNoFrequenciesUnlessItsClassDoes) {
  std::ostringstream out;
  Probe().write_frequencies(out, "f = ");
  EXPECT_EQ(out.str(), "");
}

}  // namespace
