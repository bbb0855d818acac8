#include "sea/component.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "components.h"
#include "sea/spectrum.h"
#include "sea/time_exp.h"
#include "support/thrown.h"

namespace {

using Synthesis::Spectrum;
using Synthesis::TimeExp;
using Testing::evaluate;
using Testing::nothing_thrown;
using Testing::run_of;
using Testing::thrown;
namespace Category = Base::Category;
using Strings = std::vector<std::string>;

// A component that records what it is given.
class Probe : public Synthesis::Component {
 public:
  Probe() : Component("probe") {}

  int evaluations = 0;
  bool fails = false;

 protected:
  void on_query(Base::Params& out) override {
    out.declare("own", Base::default_units(Category::length));
  }
  void on_set(Base::Params& in, Base::Params& stored) override { stored.merge(*in.find("own")); }
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

Base::Params own_params(double own = 1.0) {
  Base::Params params;
  params.insert("own", own, "m");
  return params;
}

Maths::RunData run8() { return run_of(8.0, 0.25, 2.0); }

TEST(Component, HasOnlyTheParametersOfItsClass) {
  Probe probe;
  EXPECT_EQ(probe.name(), "probe");
  Base::Params out;
  probe.query(out);
  EXPECT_EQ(out.entries().size(), 1U);
  Base::Params in = own_params();
  in.insert("foreign", 1.0, "Hz");
  probe.set(in);
  in.clear();
  EXPECT_EQ(evaluate(probe, run8()).messages, Strings{"own = 1 m"});
}

TEST(Component, QueryDeclaresTheParametersOfTextAndClass) {
  TimeExp wave("wave", "low[s]@s#height[m]*$[s]@m#high[min]@s");
  Base::Params out;
  wave.query(out);
  wave.query(out);
  ASSERT_EQ(out.entries().size(), 4U);
  EXPECT_EQ(Base::units_text(out.at("low").units), "s");
  EXPECT_EQ(Base::units_text(out.at("height").units), "m");
  EXPECT_EQ(Base::units_text(out.at("high").units), "min");
  EXPECT_EQ(Base::units_text(out.at("rate").units), "Hz");
  EXPECT_EQ(out.at("low").state.state, 0U);
}

TEST(Component, FormulasDeclareBeforeTheClass) {
  TimeExp wave("wave", "0@s#rate[s]*$[s]@m#1@s");
  Base::Params out;
  EXPECT_EQ(thrown([&] { wave.query(out); }), "Incompatible units for => rate");
  EXPECT_EQ(Base::units_text(out.at("rate").units), "s");
}

TEST(Component, LimitsAreReadInTheirOwnUnits) {
  // 14.32 Hz, 20.5 Hz and 30.24 Hz on a grid of 1 Hz.
  Spectrum spectrum("sea", "low[Hz]@Hz#1@ms#0.0205@kHz#2@ms#190@rad/s");
  Base::Params in;
  in.insert("low", 90.0, "rad/s");
  spectrum.set(in);
  const Testing::Evaluated result = evaluate(spectrum, run_of(1.0, 1.0, 40.0));
  EXPECT_EQ(result.used().front(), 14U);
  EXPECT_EQ(result.used().back(), 30U);
  EXPECT_NEAR(result.amp(20), 1.0, 1e-14);
  EXPECT_NEAR(result.amp(22), 2.0, 1e-14);
}

TEST(Component, ASecondSetReplacesTheParameters) {
  Probe probe;
  for (const double own : {1.0, 2.0}) {
    Base::Params in = own_params(own);
    probe.set(in);
  }
  EXPECT_EQ(evaluate(probe, run8()).messages, Strings{"own = 2 m"});
}

TEST(Component, LimitsMustRise) {
  for (const char* text :
       {"2@s#1@m#2@s", "2@s#1@m#1@s", "1@s#1@m#3@s#1@m#2@s", "0/0@s#1@m#2@s", "1@s#1@m#0/0@s"}) {
    TimeExp wave("wave", text);
    Base::Params in;
    in.insert("rate", 8.0, "Hz");
    EXPECT_EQ(thrown([&] { wave.set(in); }), "Limit values do not increase in size") << text;
    EXPECT_EQ(in.comment_size(), 1U) << "the class's own set comes first";
    EXPECT_EQ(thrown([&] { evaluate(wave, run8()); }), "wave::evaluate::when not ready") << text;
  }
}

TEST(Component, AFailedSecondSetLeavesItReady) {
  Spectrum spectrum("sea", "low[Hz]@Hz#1@m#2@Hz");
  Base::Params good;
  good.insert("low", 1.0, "Hz");
  spectrum.set(good);
  Base::Params bad;
  bad.insert("low", 3.0, "Hz");
  EXPECT_EQ(thrown([&] { spectrum.set(bad); }), "Limit values do not increase in size");
  EXPECT_EQ(thrown([&] { evaluate(spectrum, run_of(8.0, 0.25, 4.0)); }), nothing_thrown);
}

TEST(Component, MissingParametersAreReportedInTextOrder) {
  TimeExp wave("wave", "low[s]@s#1@m#high[s]@s");
  Base::Params in;
  EXPECT_EQ(thrown([&] { wave.set(in); }), "low::Not found");
  in.insert("low", 1.0, "s");
  EXPECT_EQ(thrown([&] { wave.set(in); }), "high::Not found");
  in.insert("high", 2.0, "s");
  EXPECT_EQ(thrown([&] { wave.set(in); }), "rate::Not found");
  EXPECT_EQ(thrown([&] { evaluate(wave, run8()); }), "wave::evaluate::when not ready");
}

TEST(Component, EvaluateBeforeSetThrowsItsName) {
  Probe probe;
  EXPECT_EQ(thrown([&] { evaluate(probe, run8()); }), "probe::evaluate::when not ready");
  EXPECT_EQ(probe.evaluations, 0);
}

TEST(Component, EvaluatesWithTheStoredParametersEachTime) {
  Probe probe;
  Base::Params in = own_params();
  probe.set(in);
  EXPECT_EQ(evaluate(probe, run8()).messages, Strings{"own = 1 m"});
  EXPECT_EQ(evaluate(probe, run8()).messages, Strings{"own = 1 m"});
  EXPECT_EQ(probe.evaluations, 2);
}

TEST(Component, AFailedEvaluationMayBeRepeated) {
  Probe probe;
  Base::Params in = own_params();
  probe.set(in);
  probe.fails = true;
  EXPECT_EQ(thrown([&] { evaluate(probe, run8()); }), "no sea today");
  probe.fails = false;
  EXPECT_EQ(evaluate(probe, run8()).messages, Strings{"own = 1 m"});
}

TEST(Component, ADisabledComponentIsNotEvaluated) {
  Probe probe;
  probe.enabled = false;
  EXPECT_EQ(thrown([&] { evaluate(probe, run8()); }), "probe::evaluate::when not ready");
  Base::Params in = own_params();
  probe.set(in);
  EXPECT_TRUE(evaluate(probe, run8()).messages.empty());
  EXPECT_EQ(probe.evaluations, 0);
}

TEST(Component, CountsAsEvaluatedAfterAnEvaluationThatSucceeds) {
  Probe probe;
  EXPECT_FALSE(probe.evaluated());
  Base::Params in = own_params();
  probe.set(in);
  probe.fails = true;
  EXPECT_EQ(thrown([&] { evaluate(probe, run8()); }), "no sea today");
  EXPECT_FALSE(probe.evaluated());
  probe.enabled = false;
  evaluate(probe, run8());
  EXPECT_TRUE(probe.evaluated());
  probe.set(in);
  EXPECT_FALSE(probe.evaluated());
}

TEST(Component, WritesNoFrequenciesUnlessItsClassDoes) {
  std::ostringstream out;
  Probe().write_frequencies(out, "f = ");
  EXPECT_EQ(out.str(), "");
}

}  // namespace
