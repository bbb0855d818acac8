#include "run/definition.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "base/enumerations.h"
#include "base/units.h"
#include "support/test_run.h"
#include "support/thrown.h"
#include "support/thrown_item.h"

namespace {

using Synthesis::Definition;
using Synthesis::Messages;
using Synthesis::Specification;
using Testing::at;
using Testing::nothing_thrown;
using Testing::Part;
using Testing::run_params;
using Testing::set;
using Testing::Site;
using Testing::SiteText;
using Testing::thrown;

TEST(Definition, QueryDeclaresItsParameters) {
  Site site;
  Base::Params out;
  Definition("run", site.context()).query(out);
  ASSERT_EQ(out.entries().size(), 5u);
  for (const auto& [name, value] : out.entries()) EXPECT_EQ(value.state.state, 0u) << name;
  EXPECT_EQ(Base::category_of(out.at("repeat").units), Base::Category::time);
  EXPECT_EQ(Base::category_of(out.at("seed").units), Base::Category::unit);
  EXPECT_EQ(out.at("dalrymple").enum_type(), Base::EnumType::Bool);
  EXPECT_EQ(out.at("wave_merge").enum_type(), Base::EnumType::WaveMerge);
  EXPECT_EQ(out.at("ran_gen").enum_type(), Base::EnumType::RanGen);
}

TEST(Definition, QueryDeclaresInOrder) {
  Site site;
  const Definition definition("run", site.context());
  const std::vector<std::string> order = {"repeat", "dalrymple", "wave_merge", "ran_gen", "seed"};
  for (std::size_t stop = 0; stop < order.size(); ++stop) {
    // An entry of other units or another enumeration stops the query there.
    Base::Params out;
    const bool numeric = order[stop] == "repeat" || order[stop] == "seed";
    if (numeric) {
      out.insert(order[stop], 1.0, "m");
    } else {
      out.insert(order[stop], "Hamming", "Window");
    }
    EXPECT_EQ(
        thrown([&] { definition.query(out); }),
        (numeric ? "Incompatible units for => " : "Incompatible enum types for => ") + order[stop]);
    EXPECT_EQ(out.entries().size(), stop + 1) << order[stop];
    for (std::size_t i = 0; i < stop; ++i) EXPECT_TRUE(out.contains(order[i])) << order[i];
  }
}

TEST(Definition, RepeatIsFittedToWholeSamplesAndWrittenBackInTheHostsUnits) {
  Site site;
  Definition definition("run", site.context());
  Base::Params in = run_params(1.0);
  in.at("repeat") = Base::Quantity(0.167, Base::resolve_units("min"));  // 10.02 s, 200.4 samples
  definition.set(in);
  EXPECT_NEAR(definition.repeat().value(), 10.0, 1e-12);
  EXPECT_NEAR(in.at("repeat").value, 10.0 / 60.0, 1e-14);
  EXPECT_EQ(Base::units_text(in.at("repeat").units), "min");
  EXPECT_EQ(in.comment_size(), 0u);
}

TEST(Definition, ARepeatThatChangesMuchIsAPoorMatch) {
  Site site;
  Definition definition("run", site.context());
  Base::Params in = run_params(0.524);  // 10.48 samples
  definition.set(in);
  EXPECT_NEAR(in.get("repeat", "s"), 0.5, 1e-15);
  ASSERT_EQ(in.comment_size(), 1u);
  EXPECT_EQ(in.comment(0), "Warning::Poor match");
}

TEST(Definition, AChangeOfOnePerCentIsAPoorMatch) {
  Site site;
  Definition definition("run", site.context());
  for (const double share : {0.0097, -0.0097, 0.0103, -0.0103}) {
    Base::Params in = run_params(1.5 * (1.0 + share));  // 30 samples and less than half of one
    definition.set(in);
    EXPECT_NEAR(in.get("repeat", "s"), 1.5, 1e-15);
    EXPECT_EQ(in.comment_size(), std::abs(share) > 0.01 ? 1u : 0u) << share;
  }
}

TEST(Definition, GridFollowsTheSitesLimits) {
  SiteText text;
  text.min_freq = 0.02;
  text.max_freq = 1.26;
  Site site(text);
  Definition definition("run", site.context());
  set(definition, run_params(10.0));
  EXPECT_EQ(definition.repeat().min_harmonic(), 1u);  // 0.2 rounds to 0, but the mean is never made
  EXPECT_EQ(definition.repeat().max_harmonic(), 13u);
  EXPECT_EQ(definition.repeat().size(), 14u);
  set(definition, run_params(100.0));
  EXPECT_EQ(definition.repeat().min_harmonic(), 2u);
  EXPECT_EQ(definition.repeat().max_harmonic(), 126u);
  EXPECT_FALSE(definition.repeat().dalrymple());
  set(definition, run_params(100.0, "Null", "True"));
  EXPECT_TRUE(definition.repeat().dalrymple());
}

TEST(Definition, RepeatReturnsTheSameGridAtEachCall) {
  Site site;
  Definition definition("run", site.context());
  const Maths::RunData& run = definition.repeat();
  set(definition, run_params(10.0));
  EXPECT_EQ(run.value(), 10.0);
}

TEST(Definition, SetReportsMissingParametersInOrder) {
  Site site;
  Definition definition("run", site.context());
  Base::Params in;
  EXPECT_EQ(thrown([&] { definition.set(in); }), "repeat::Not found");
  in.insert("repeat", 10.0, "s");
  EXPECT_EQ(thrown([&] { definition.set(in); }), "dalrymple::Not found");
  in.insert("dalrymple", "False", "Bool");
  EXPECT_EQ(thrown([&] { definition.set(in); }), "wave_merge::Not found");
  EXPECT_EQ(thrown([&] { definition.run_build(); }), "Evaluate before setting state");
  in.insert("wave_merge", "RMS", "WaveMerge");
  EXPECT_EQ(thrown([&] { definition.set(in); }), nothing_thrown);
}

TEST(Definition, SetRefusesParametersOfOtherUnits) {
  Site site;
  Definition definition("run", site.context());
  Base::Params length = run_params(10.0);
  length.at("repeat") = Base::Quantity(10.0, Base::Category::length);
  EXPECT_EQ(thrown([&] { definition.set(length); }), "repeat::not convertable");
  Base::Params other = run_params(10.0);
  other.at("wave_merge") = Base::Quantity(Base::make_enum("Bool", "True"));
  EXPECT_EQ(thrown([&] { definition.set(other); }), "wave_merge::wrong enum type");
  Base::Params unset;
  definition.query(unset);
  EXPECT_EQ(thrown([&] { definition.set(unset); }), "Invalid value");
}

TEST(Definition, RandomGeneratorAndSeedAreOptional) {
  Site site;
  Definition definition("run", site.context());
  Base::Params in = run_params(10.0);
  definition.set(in);
  EXPECT_FALSE(in.contains("ran_gen"));
  EXPECT_FALSE(in.contains("seed"));
}

TEST(Definition, AFailedSetKeepsTheOldGridAndReadiness) {
  SiteText text;
  text.max_freq = 0.2;
  Site site(text);
  Definition definition("run", site.context());
  // 2 s hold less than half a cycle of the highest frequency: only the mean would be left.
  EXPECT_EQ(thrown([&] { set(definition, run_params(2.0)); }),
            "max harmonic is less than min harmonic");
  EXPECT_EQ(thrown([&] { definition.run_build(); }), "Evaluate before setting state");
  EXPECT_EQ(thrown([&] { definition.repeat().value(); }), "Repeat time zero or less");

  set(definition, run_params(100.0));
  Base::Params in = run_params(2.0);
  EXPECT_EQ(thrown([&] { definition.set(in); }), "max harmonic is less than min harmonic");
  EXPECT_EQ(in.get("repeat", "s"), 2.0);
  EXPECT_EQ(definition.repeat().value(), 100.0);
  EXPECT_EQ(definition.repeat().max_harmonic(), 20u);
  EXPECT_EQ(thrown([&] { definition.run_build(); }), nothing_thrown);
}

TEST(Definition, RunBuildBeforeSetIsRefused) {
  Site site;
  Definition definition("run", site.context());
  EXPECT_EQ(thrown([&] { definition.run_build(); }), "Evaluate before setting state");
}

TEST(Definition, WithoutSpecificationsARunIsEmptyAndKeepsTheMergedSet) {
  Site site({}, false);
  Definition definition("run", site.context());
  set(definition, run_params(10.0));
  // The tank is not needed either.
  definition.run_build();
  EXPECT_EQ(definition.run_size(), 0u);
  EXPECT_TRUE(definition.fronts(true).empty());

  Part part({{5, {0.1, 0.0, 0.0}}}, at(0, 0, 0));
  site.context().make_ready();
  definition.add_specification(part.specification);
  definition.run_build();
  ASSERT_EQ(definition.fronts(true).size(), 1u);
  definition.remove_specification(part.specification);
  definition.run_build();
  EXPECT_EQ(definition.run_size(), 0u);
  EXPECT_EQ(definition.fronts(true).size(), 1u);
  EXPECT_TRUE(definition.fronts(false).empty());
}

TEST(Definition, RunBuildNeedsTheTankMadeReady) {
  Site site({}, false);
  Definition definition("run", site.context());
  Part part({{5, {0.1, 0.0, 0.0}}}, at(0, 0, 0));
  definition.add_specification(part.specification);
  set(definition, run_params(10.0));
  EXPECT_EQ(Testing::thrown_item([&] { definition.run_build(); }),
            "item: General: context::Error::Attempting to access TankConfig when not made ready");
}

TEST(Definition, ASpecificationWithoutComponentsGivesAnEmptyMergedSet) {
  Site site;
  Definition definition("run", site.context());
  Specification specification;
  specification.set(at(3, 2, 1));
  definition.add_specification(specification);
  set(definition, run_params(10.0));
  const Maths::RunFronts& run = definition.run_build();
  EXPECT_EQ(definition.run_size(), 1u);
  EXPECT_EQ(run.sets[0].slots.size(), 21u);
  EXPECT_EQ(run.merged.slots.size(), 21u);
  EXPECT_EQ(run.merged.position.x, 0.0);
  EXPECT_TRUE(definition.fronts(true).empty());
  EXPECT_TRUE(definition.fronts(0u).empty());
}

TEST(Definition, BeforeABuildThereAreNoFronts) {
  Site site;
  Definition definition("run", site.context());
  EXPECT_TRUE(definition.fronts(true).empty());
  EXPECT_TRUE(definition.fronts(false).empty());
  EXPECT_EQ(definition.run_size(), 0u);
}

TEST(Definition, AnIndexBeyondTheSetsIsRefused) {
  Site site;
  Definition definition("run", site.context());
  EXPECT_EQ(thrown([&] { definition.position(0); }), "invalid vector<T> subscript");
  EXPECT_EQ(thrown([&] { definition.fronts(0u); }), "invalid vector<T> subscript");
  Part part({}, at(3, 2, 1));
  definition.add_specification(part.specification);
  set(definition, run_params(10.0));
  definition.run_build();
  EXPECT_EQ(definition.position(0).x, 3.0);
  EXPECT_EQ(definition.position(0).y, 2.0);
  EXPECT_EQ(definition.position(0).t, 1.0);
  EXPECT_EQ(thrown([&] { definition.position(1); }), "invalid vector<T> subscript");
  EXPECT_EQ(thrown([&] { definition.fronts(0xFFFFFFFFu); }), "invalid vector<T> subscript");
}

TEST(Definition, FrontsAreRefilledAtEachCall) {
  Site site;
  Definition definition("run", site.context());
  Part first({{5, {0.1, 0.2, 0.3}}}, at(0, 0, 0));
  Part second({{4, {0.4, 0.5, 0.6}}, {7, {0.7, 0.0, 0.0}}}, at(0, 0, 0));
  definition.add_specification(first.specification);
  definition.add_specification(second.specification);
  set(definition, run_params(10.0));
  definition.run_build();

  for (int call = 0; call < 2; ++call) {
    // Set after set, each slot by slot.
    const std::vector<Synthesis::Front>& all = definition.fronts(false);
    ASSERT_EQ(all.size(), 3u);
    EXPECT_EQ(all[0].amp, 0.1);
    EXPECT_EQ(all[0].angle, 0.2);
    EXPECT_EQ(all[0].phase, 0.3);
    EXPECT_EQ(all[0].freq, 0.5);
    EXPECT_EQ(all[1].freq, 0.4);
    EXPECT_EQ(all[2].freq, 0.7);
    // Merged: slot by slot.
    const std::vector<Synthesis::Front>& merged = definition.fronts(true);
    ASSERT_EQ(merged.size(), 3u);
    EXPECT_EQ(merged[0].freq, 0.4);
    EXPECT_EQ(merged[1].freq, 0.5);
    const std::vector<Maths::TransferFront>& one = definition.fronts(1u);
    ASSERT_EQ(one.size(), 2u);
    EXPECT_EQ(one[0].harmonic, 4u);
    EXPECT_EQ(one[0].amp, 0.4);
    EXPECT_EQ(one[1].harmonic, 7u);
  }
}

TEST(Definition, RemovingAnUnknownSpecificationIsRefused) {
  Site site;
  Definition definition("run", site.context());
  Specification held;
  Specification other;
  definition.add_specification(held);
  EXPECT_EQ(thrown([&] { definition.remove_specification(other); }),
            "Failed to find Specification to remove");
  definition.remove_specification(held);
  EXPECT_EQ(thrown([&] { definition.remove_specification(held); }),
            "Failed to find Specification to remove");
}

TEST(Definition, OnlyTheSpecificationNamedIsRemoved) {
  Site site;
  Definition definition("run", site.context());
  Part first({}, at(1, 0, 0));
  Part second({}, at(2, 0, 0));
  for (Part* part : {&first, &second}) definition.add_specification(part->specification);
  definition.remove_specification(second.specification);
  set(definition, run_params(10.0));
  definition.run_build();
  ASSERT_EQ(definition.run_size(), 1u);
  EXPECT_EQ(definition.position(0).x, 1.0);
}

TEST(Definition, MessagesAreThoseOfTheLastBuild) {
  Site site;
  Definition definition("run", site.context());
  Part first({}, at(0, 0, 0));
  Part second({}, at(0, 0, 0));
  first.component.message = "first";
  second.component.message = "second";
  definition.add_specification(first.specification);
  definition.add_specification(second.specification);
  set(definition, run_params(10.0));
  definition.run_build();
  EXPECT_EQ(definition.messages(), (Messages{"first", "second"}));
  second.component.message.clear();
  definition.run_build();
  EXPECT_EQ(definition.messages(), Messages{"first"});
}

TEST(Definition, AFailureKeepsTheSetsBeforeItAndTheOldMergedSet) {
  Site site;
  Definition definition("run", site.context());
  Part first({{5, {0.1, 0.0, 0.0}}}, at(0, 0, 0));
  Part second({{6, {0.2, 0.0, 0.0}}}, at(0, 0, 0));
  first.component.message = "first";
  second.component.message = "second";
  definition.add_specification(first.specification);
  definition.add_specification(second.specification);
  set(definition, run_params(10.0));
  definition.run_build();

  Base::Params none;
  EXPECT_EQ(thrown([&] { second.specification.set(none); }), "x::Not found");
  first.component.fronts[0].second.amp = 0.7;
  EXPECT_EQ(thrown([&] { definition.run_build(); }), "Evaluating specification before values set");
  EXPECT_EQ(definition.messages(), Messages{"first"});
  EXPECT_EQ(definition.fronts(0u).at(0).amp, 0.7);
  EXPECT_TRUE(definition.fronts(1u).empty());
  ASSERT_EQ(definition.fronts(true).size(), 2u);
  EXPECT_EQ(definition.fronts(true)[0].amp, 0.1);
}

TEST(Definition, ChangesTakeEffectAtTheNextBuild) {
  Site site;
  Definition definition("run", site.context());
  Part part({{5, {0.1, 0.0, 0.0}}}, at(0, 0, 0));
  definition.add_specification(part.specification);
  set(definition, run_params(10.0));
  definition.run_build();
  part.component.fronts[0].second.amp = 0.9;
  EXPECT_EQ(definition.fronts(true)[0].amp, 0.1);
  definition.run_build();
  EXPECT_EQ(definition.fronts(true)[0].amp, 0.9);
}

TEST(Definition, DalrympleReplacesAnObliqueFrontByTheModesOfTheWidth) {
  SiteText text;
  text.geometry = "BothSides";
  text.min_y = -2.0;
  text.max_y = 2.0;
  Site site(text);
  Definition definition("run", site.context());
  Part part({{10, {0.1, 0.3, 0.0}}}, at(0, 0, 0));
  definition.add_specification(part.specification);
  set(definition, run_params(10.0));
  definition.run_build();
  EXPECT_EQ(definition.fronts(true).size(), 1u);
  set(definition, run_params(10.0, "Null", "True"));
  definition.run_build();
  const double k = Testing::wave_number(2.0 * std::numbers::pi, 1.0);
  const auto modes = static_cast<std::size_t>(std::floor(k * 4.0 / std::numbers::pi));
  EXPECT_EQ(definition.fronts(true).size(), 2 * modes + 1);
}

TEST(Definition, AnAngleThatTheTankCannotMakeGetsAmplitudeZero) {
  SiteText text;
  text.min_angle = -30.0;
  text.max_angle = 30.0;
  Site site(text);
  Definition definition("run", site.context());
  Part part({{5, {0.1, 0.4, 0.0}}, {6, {0.1, 0.6, 0.0}}}, at(0, 0, 0));
  definition.add_specification(part.specification);
  set(definition, run_params(10.0));
  definition.run_build();
  ASSERT_EQ(definition.fronts(true).size(), 2u);
  EXPECT_EQ(definition.fronts(true)[0].amp, 0.1);
  EXPECT_EQ(definition.fronts(true)[1].amp, 0.0);
}

}  // namespace
