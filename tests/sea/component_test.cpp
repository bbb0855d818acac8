#include "sea/component.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "sea/piecewise.h"
#include "testing_components.h"

namespace {

using Testing::thrown_by;
namespace Category = Base::Category;

// A component that shows its fields and records what reaches it.
class Probe : public Synthesis::Component {
 public:
  explicit Probe(const std::string& text) : Component("probe", text) {}
  Probe() : Component("plain") {}

  using Component::enabled_;
  using Component::evaluated_;
  using Component::functions_;
  using Component::input_units_;
  using Component::limit_units_;
  using Component::limits_;
  using Component::output_units_;
  using Component::params_;
  using Component::ready_;

  int evaluations = 0;
  bool fails = false;
  std::size_t limits_at_set = 0;

 protected:
  void on_query(Base::Params& out) override {
    out.declare("own", Base::default_units(Category::length));
  }
  void on_set(Base::Params& in, Base::Params& stored) override {
    limits_at_set = limits_.size();
    stored.merge(*in.find("own"));
  }
  void on_evaluate(const Base::Params& stored, Maths::FrontSet&, const Maths::RunData&,
                   Synthesis::Messages& messages) override {
    ++evaluations;
    if (fails) throw std::string("no sea today");
    messages.push_back(stored.contains("own") ? "stored" : "not stored");
  }
};

std::string refusal(const std::string& text) {
  return thrown_by([&] { Probe probe(text); });
}

Base::Params own_params() {
  Base::Params params;
  params.insert("own", 1.0, "m");
  return params;
}

TEST(PiecewiseText, SplitsAtEveryHashAndKeepsBlanksAndEmptyPieces) {
  using Pieces = std::vector<std::string>;
  EXPECT_EQ(Synthesis::split_pieces(""), Pieces{""});
  EXPECT_EQ(Synthesis::split_pieces(" a # b"), (Pieces{" a ", " b"}));
  EXPECT_EQ(Synthesis::split_pieces("#a##"), (Pieces{"", "a", "", ""}));
}

TEST(PiecewiseText, WithoutHashIsTooFewPieces) {
  EXPECT_EQ(refusal("1@Hz"), "There must be at least 2  sub expressions");
  EXPECT_EQ(refusal(""), "There must be at least 2  sub expressions");
}

TEST(PiecewiseText, OneLimitAndOneFunctionIsAnEvenNumber) {
  EXPECT_EQ(refusal("1@Hz#1@m"), "There must be an odd number of sub expressions");
  EXPECT_EQ(refusal("1@Hz#1@m#2@Hz#"), "There must be an odd number of sub expressions");
}

TEST(PiecewiseText, CountIsJudgedBeforeAnyPieceIsParsed) {
  EXPECT_EQ(refusal("("), "There must be at least 2  sub expressions");
  EXPECT_EQ(refusal("(#("), "There must be an odd number of sub expressions");
}

TEST(PiecewiseText, EmptyLastPieceIsJudgedByTheParser) {
  testing::internal::CaptureStdout();
  EXPECT_EQ(refusal("1@Hz#1@m#"), "Error while parsing expression ::");
  testing::internal::GetCapturedStdout();
}

TEST(PiecewiseText, PiecesAreParsedBeforeUnitsAreJudged) {
  EXPECT_EQ(refusal("1@kg#1@m#2@furlong"), "Unknown units - furlong");
}

TEST(PiecewiseText, BlankBehindUnitsBelongsToTheUnitText) {
  EXPECT_EQ(refusal("1@Hz #1@m#2@Hz"), "Unknown units - Hz ");
  EXPECT_EQ(refusal("  1@Hz#  1 @m#  2 @Hz"), "(nothing thrown)");
}

TEST(PiecewiseText, LimitsAreFrequenciesOrTimes) {
  EXPECT_EQ(Probe("1@Hz#1@m#2@Hz").limit_units_, Category::frequency);
  EXPECT_EQ(Probe("1@rad/s#1@m#2@Hz").limit_units_, Category::frequency);
  EXPECT_EQ(Probe("1@min#1@m#2@s").limit_units_, Category::time);
  EXPECT_EQ(refusal("1@m#1@m#2@m"), "Unsupported limit units");
  EXPECT_EQ(refusal("1#1@m#2"), "Unsupported limit units");
}

TEST(PiecewiseText, LaterLimitsAgreeWithTheFirst) {
  EXPECT_EQ(refusal("1@Hz#1@m#2@s"), "Inconsistent limit units");
  EXPECT_EQ(refusal("1@s#1@m#2@s#1@m#3@Hz"), "Inconsistent limit units");
}

TEST(PiecewiseText, FunctionsReturnVarianceAmplitudeDensityOrLength) {
  EXPECT_EQ(Probe("1@Hz#1@ft2s#2@Hz").output_units_, Category::variance);
  EXPECT_EQ(Probe("1@Hz#1@m/Hz#2@Hz").output_units_, Category::length_time);
  EXPECT_EQ(Probe("1@Hz#1@mm#2@Hz").output_units_, Category::length);
  EXPECT_EQ(refusal("1@Hz#1@s#2@Hz"), "Unsupported output units");
  EXPECT_EQ(refusal("1@Hz#1#2@Hz"), "Unsupported output units");
}

TEST(PiecewiseText, LaterFunctionsReturnTheSame) {
  EXPECT_EQ(refusal("1@Hz#1@m#2@Hz#1@m2s#3@Hz"), "Inconsistent output units");
  EXPECT_EQ(refusal("1@Hz#1@m#2@Hz#1@ft#3@Hz"), "(nothing thrown)");
}

TEST(PiecewiseText, FunctionsTakeFrequencyOrTime) {
  EXPECT_EQ(Probe("1@Hz#$[Hz]@m#2@Hz").input_units_, Category::frequency);
  EXPECT_EQ(Probe("1@Hz#$[rad/s]@m#2@Hz").input_units_, Category::frequency);
  EXPECT_EQ(Probe("1@Hz#$[s]@m#2@Hz").input_units_, Category::time);
  EXPECT_EQ(refusal("1@Hz#$[m]@m#2@Hz"), "Unsupported input units");
  EXPECT_EQ(refusal("1@Hz#$[s]*$[Hz]@m#2@Hz"), "Unsupported input units");
}

TEST(PiecewiseText, LaterFunctionsTakeTheSameAndConstantsTakeAnything) {
  EXPECT_EQ(refusal("1@Hz#$[Hz]@m#2@Hz#$[s]@m#3@Hz"), "Inconsistent input units");
  EXPECT_EQ(refusal("1@Hz#$[s]@m#2@Hz#$[Hz]@m#3@Hz"), "Inconsistent input units");
  EXPECT_EQ(refusal("1@Hz#$[Hz]@m#2@Hz#$[m]@m#3@Hz"), "Inconsistent input units");
  EXPECT_EQ(Probe("1@Hz#4@m#2@Hz#$[Hz]@m#3@Hz").input_units_, Category::frequency);
  EXPECT_EQ(Probe("1@Hz#$[s]@m#2@Hz#4@m#3@Hz").input_units_, Category::time);
}

TEST(PiecewiseText, ConstantFunctionsTakeTimeEvenBetweenFrequencies) {
  EXPECT_EQ(Probe("1@Hz#1@m2s#2@Hz").input_units_, Category::time);
  EXPECT_EQ(Probe("1@Hz#top[m]@m#2@Hz").input_units_, Category::time);
}

TEST(PiecewiseText, LimitsHaveNoVariable) {
  EXPECT_EQ(refusal("$[Hz]@Hz#1@m#2@Hz"), "Non constant separator function");
  EXPECT_EQ(refusal("1@Hz#1@m#2@Hz#1@m#2*$[Hz]@Hz"), "Non constant separator function");
}

TEST(PiecewiseText, ChecksComeInOrder) {
  // Each text fails every later check too.
  EXPECT_EQ(refusal("1@m#$[m]@s#$[Hz]@s#1@m#3@Hz"), "Unsupported limit units");
  EXPECT_EQ(refusal("1@Hz#$[m]@s#$[Hz]@s#1@m#3@Hz"), "Inconsistent limit units");
  EXPECT_EQ(refusal("1@Hz#$[m]@s#$[Hz]@Hz#$[s]@m#3@Hz"), "Unsupported output units");
  EXPECT_EQ(refusal("1@Hz#$[m]@m#$[Hz]@Hz#$[s]@s#3@Hz"), "Inconsistent output units");
  EXPECT_EQ(refusal("1@Hz#$[m]@m#$[Hz]@Hz#$[s]@m#3@Hz"), "Unsupported input units");
  EXPECT_EQ(refusal("1@Hz#$[Hz]@m#$[Hz]@Hz#$[s]@m#3@Hz"), "Inconsistent input units");
  EXPECT_EQ(refusal("1@Hz#$[Hz]@m#$[Hz]@Hz#$[Hz]@m#3@Hz"), "Non constant separator function");
}

TEST(Component, WithoutTextHasNoFunctionsAndNoUnits) {
  Probe probe;
  EXPECT_EQ(probe.name(), "plain");
  EXPECT_TRUE(probe.functions_.empty());
  EXPECT_TRUE(probe.limits_.empty());
  EXPECT_EQ(probe.input_units_, 0U);
  EXPECT_EQ(probe.output_units_, 0U);
  EXPECT_EQ(probe.limit_units_, 0U);
  EXPECT_TRUE(probe.enabled_);
  EXPECT_FALSE(probe.ready_);
  EXPECT_FALSE(probe.evaluated_);
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
  EXPECT_EQ(thrown_by([&] { probe.query(out); }), "Incompatible units for => own");
  EXPECT_EQ(Base::units_text(out.at("own").units), "s");
}

TEST(Component, SetReadsLimitsInTheirBaseUnits) {
  Probe probe("low[Hz]@Hz#1@m#2@kHz#1@m#19000@rad/s");
  Base::Params in = own_params();
  in.insert("low", 90.0, "rad/s");
  probe.set(in);
  ASSERT_EQ(probe.limits_.size(), 3U);
  EXPECT_DOUBLE_EQ(probe.limits_[0], 90.0 / (2 * Testing::pi));
  EXPECT_DOUBLE_EQ(probe.limits_[1], 2000.0);
  EXPECT_DOUBLE_EQ(probe.limits_[2], 19000.0 / (2 * Testing::pi));
  EXPECT_TRUE(probe.ready_);
  EXPECT_EQ(probe.limits_at_set, 3U);
}

TEST(Component, SetKeepsACopyOfWhatItUsedAlone) {
  Probe probe("low[Hz]@Hz#1@m#2@Hz");
  Base::Params in = own_params();
  in.insert("low", 1.0, "Hz");
  in.insert("foreign", 1.0, "Hz");
  probe.set(in);
  EXPECT_EQ(probe.params_.entries().size(), 2U);
  EXPECT_TRUE(probe.params_.contains("low"));
  EXPECT_TRUE(probe.params_.contains("own"));
}

TEST(Component, SetRebuildsParametersAndLimits) {
  Probe probe("low[Hz]@Hz#1@m#2@Hz");
  Base::Params first = own_params();
  first.insert("low", 0.5, "Hz");
  probe.set(first);
  Base::Params second = own_params();
  second.insert("low", 1.5, "Hz");
  probe.set(second);
  EXPECT_EQ(probe.limits_, (std::vector<double>{1.5, 2.0}));
  EXPECT_EQ(probe.params_.get("low", "Hz"), 1.5);
}

TEST(Component, LimitsHaveToRise) {
  for (const char* text : {"2@Hz#1@m#2@Hz", "2@Hz#1@m#1@Hz", "1@Hz#1@m#3@Hz#1@m#2@Hz",
                           "0/0@Hz#1@m#2@Hz", "1@Hz#1@m#0/0@Hz"}) {
    Probe probe(text);
    Base::Params in = own_params();
    EXPECT_EQ(thrown_by([&] { probe.set(in); }), "Limit values do not increase in size") << text;
    EXPECT_FALSE(probe.ready_) << text;
    EXPECT_TRUE(probe.params_.contains("own")) << "the class's own set comes first";
  }
}

TEST(Component, FailingSecondSetLeavesItReady) {
  Probe probe("low[Hz]@Hz#1@m#2@Hz");
  Base::Params good = own_params();
  good.insert("low", 1.0, "Hz");
  probe.set(good);
  Base::Params bad = own_params();
  bad.insert("low", 3.0, "Hz");
  EXPECT_EQ(thrown_by([&] { probe.set(bad); }), "Limit values do not increase in size");
  EXPECT_TRUE(probe.ready_);
}

TEST(Component, MissingParametersAreNamedInTextOrder) {
  Probe probe("low[Hz]@Hz#1@m#high[Hz]@Hz");
  Base::Params in;
  EXPECT_EQ(thrown_by([&] { probe.set(in); }), "low::Not found");
  in.insert("low", 1.0, "Hz");
  EXPECT_EQ(thrown_by([&] { probe.set(in); }), "high::Not found");
  EXPECT_EQ(probe.limits_.size(), 1U);
  in.insert("high", 2.0, "Hz");
  EXPECT_EQ(thrown_by([&] { probe.set(in); }), "own::Not found");
  EXPECT_FALSE(probe.ready_);
}

TEST(Component, EvaluateBeforeSetThrowsItsName) {
  const Maths::RunData run = Testing::run_of(8.0, 0.25, 2.0);
  Probe probe("1@Hz#1@m#2@Hz");
  EXPECT_EQ(thrown_by([&] { Testing::evaluate(probe, run); }), "probe::evaluate::when not ready");
  EXPECT_FALSE(probe.evaluated_);
  EXPECT_EQ(probe.evaluations, 0);
}

TEST(Component, EvaluatesWithStoredParametersAsOftenAsAsked) {
  const Maths::RunData run = Testing::run_of(8.0, 0.25, 2.0);
  Probe probe("1@Hz#1@m#2@Hz");
  Base::Params in = own_params();
  probe.set(in);
  EXPECT_FALSE(probe.evaluated_);
  EXPECT_EQ(Testing::evaluate(probe, run).messages, Synthesis::Messages{"stored"});
  EXPECT_TRUE(probe.evaluated_);
  EXPECT_EQ(Testing::evaluate(probe, run).messages, Synthesis::Messages{"stored"});
  EXPECT_EQ(probe.evaluations, 2);
  probe.set(in);
  EXPECT_FALSE(probe.evaluated_);
}

TEST(Component, FailingEvaluationDoesNotCountAsEvaluated) {
  const Maths::RunData run = Testing::run_of(8.0, 0.25, 2.0);
  Probe probe("1@Hz#1@m#2@Hz");
  Base::Params in = own_params();
  probe.set(in);
  probe.fails = true;
  EXPECT_EQ(thrown_by([&] { Testing::evaluate(probe, run); }), "no sea today");
  EXPECT_FALSE(probe.evaluated_);
}

TEST(Component, DisabledCountsAsEvaluatedAndMakesNothing) {
  const Maths::RunData run = Testing::run_of(8.0, 0.25, 2.0);
  Probe probe("1@Hz#1@m#2@Hz");
  Base::Params in = own_params();
  probe.set(in);
  probe.enabled_ = false;
  EXPECT_TRUE(Testing::evaluate(probe, run).messages.empty());
  EXPECT_TRUE(probe.evaluated_);
}

TEST(Component, WritesNoFrequenciesOfItsOwn) {
  std::ostringstream out;
  Probe().write_frequencies(out, "f = ");
  EXPECT_EQ(out.str(), "");
}

}  // namespace
