#include "sea/specification.h"

#include <gtest/gtest.h>

#include <string>

#include "base/units.h"
#include "maths/front_set.h"
#include "support/test_site.h"

namespace {

using Synthesis::Messages;
using Synthesis::Modifier;
using Synthesis::Specification;
using Testing::at;
using Testing::GivenFronts;
using Testing::NamedModifier;
using Testing::nothing_thrown;
using Testing::thrown;

// What a specification is evaluated with: harmonics up to 40, and a tank.
struct Ground {
  Ground() {
    run.init(20.0, 20.0, 0.1, 2.0, false);
    fronts.reset(run.size());
  }

  Messages evaluate(Specification& specification) {
    Messages messages;
    specification.evaluate(fronts, {run, tank, messages});
    return messages;
  }

  Maths::RunData run;
  Maths::TankConfig tank;
  Maths::FrontSet fronts;
};

TEST(Specification, QueryDeclaresThePositionAndTheTime) {
  Base::Params out;
  Specification().query(out);
  ASSERT_EQ(out.entries().size(), 3u);
  for (const char* name : {"x", "y", "t"}) {
    const Base::Quantity& entry = out.at(name);
    EXPECT_EQ(entry.state.state, 0u) << name;
    EXPECT_EQ(Base::units_text(entry.units), std::string(name) == "t" ? "s" : "m");
  }
}

TEST(Specification, QueryKeepsValuesThatAreAlreadySet) {
  Base::Params out;
  out.insert("x", 3.0, "ft");
  Specification().query(out);
  EXPECT_EQ(out.at("x").value, 3.0);
  EXPECT_EQ(Base::units_text(out.at("x").units), "ft");
}

TEST(Specification, QueryRefusesParametersOfOtherUnits) {
  Base::Params out;
  out.insert("y", 3.0, "s");
  EXPECT_EQ(thrown([&] { Specification().query(out); }), "Incompatible units for => y");
}

TEST(Specification, EvaluateBeforeSetIsRefused) {
  Ground ground;
  Specification specification;
  EXPECT_EQ(thrown([&] { ground.evaluate(specification); }),
            "Evaluating specification before values set");
}

TEST(Specification, SetNeedsEachOfItsParameters) {
  for (const std::string missing : {"x", "y", "t"}) {
    Ground ground;
    Specification specification;
    Base::Params good = at(1, 2, 3);
    specification.set(good);
    Base::Params bad;
    for (const auto& [name, value] : good.entries()) {
      if (name != missing) bad.insert(name, value.value, value.units);
    }
    EXPECT_EQ(thrown([&] { specification.set(bad); }), missing + "::Not found");
    // The earlier set no longer counts.
    EXPECT_EQ(thrown([&] { ground.evaluate(specification); }),
              "Evaluating specification before values set");
    specification.set(good);
    EXPECT_EQ(thrown([&] { ground.evaluate(specification); }), nothing_thrown);
  }
}

TEST(Specification, MissingParametersAreNamedInTheOrderXYT) {
  Specification specification;
  Base::Params none;
  EXPECT_EQ(thrown([&] { specification.set(none); }), "x::Not found");
  none.insert("x", 0.0, "m");
  EXPECT_EQ(thrown([&] { specification.set(none); }), "y::Not found");
  none.insert("y", 0.0, "m");
  EXPECT_EQ(thrown([&] { specification.set(none); }), "t::Not found");
}

TEST(Specification, PositionIsStoredInMetresAndSeconds) {
  Ground ground;
  Specification specification;
  Base::Params in;
  in.insert("x", 250.0, "cm");
  in.insert("y", -10.0, "ft");
  in.insert("t", 2.0, "min");
  specification.set(in);
  ground.evaluate(specification);
  EXPECT_NEAR(ground.fronts.position.x, 2.5, 1e-15);
  EXPECT_NEAR(ground.fronts.position.y, -3.048, 1e-12);
  EXPECT_NEAR(ground.fronts.position.t, 120.0, 1e-12);
}

TEST(Specification, KeepsItsOwnCopyOfTheParameters) {
  Ground ground;
  Specification specification;
  Base::Params in = at(1, 2, 3);
  specification.set(in);
  in.set("x", 9.0, Base::Category::length);
  ground.evaluate(specification);
  EXPECT_EQ(ground.fronts.position.x, 1.0);
  specification.set(in);
  ground.evaluate(specification);
  EXPECT_EQ(ground.fronts.position.x, 9.0);
}

TEST(Specification, DeclaredParametersWithoutAValueAreRefusedAtEvaluation) {
  Ground ground;
  Specification specification;
  Base::Params in;
  specification.query(in);
  specification.set(in);
  EXPECT_EQ(thrown([&] { ground.evaluate(specification); }), "Invalid value");
}

TEST(Specification, AParameterOfOtherUnitsIsRefusedAtEvaluation) {
  Ground ground;
  Specification specification;
  Base::Params in;
  in.insert("x", 1.0, "s");
  in.insert("y", 1.0, "m");
  in.insert("t", 1.0, "s");
  specification.set(in);
  EXPECT_EQ(thrown([&] { ground.evaluate(specification); }), "x::not convertable");
}

TEST(Specification, ComponentsAddIntoTheSameSetInOrderOfAdding) {
  Ground ground;
  Specification specification;
  GivenFronts first({{5, {0.1, 0.0, 1.0}}, {6, {0.2, 0.0, 2.0}}});
  GivenFronts second({{5, {0.3, 0.0, 3.0}}});
  first.message = "first";
  second.message = "second";
  specification.add_component(first);
  specification.add_component(second);
  specification.set(at(0, 0, 0));
  EXPECT_EQ(ground.evaluate(specification), (Messages{"first", "second"}));
  ASSERT_EQ(ground.fronts.slots[5].size(), 2u);
  EXPECT_EQ(ground.fronts.slots[5][0].amp, 0.1);
  EXPECT_EQ(ground.fronts.slots[5][1].amp, 0.3);
  EXPECT_EQ(ground.fronts.slots[6].size(), 1u);
}

TEST(Specification, ChangingComponentsLeavesItReady) {
  Ground ground;
  Specification specification;
  GivenFronts component;
  component.message = "here";
  specification.set(at(0, 0, 0));
  specification.add_component(component);
  EXPECT_EQ(ground.evaluate(specification), Messages{"here"});
  specification.remove_component(component);
  EXPECT_EQ(ground.evaluate(specification), Messages{});
}

TEST(Specification, RemovingTakesTheFirstOfEqualComponents) {
  Ground ground;
  Specification specification;
  GivenFronts twice;
  GivenFronts other;
  twice.message = "twice";
  other.message = "other";
  specification.add_component(twice);
  specification.add_component(other);
  specification.add_component(twice);
  specification.remove_component(twice);
  specification.set(at(0, 0, 0));
  EXPECT_EQ(ground.evaluate(specification), (Messages{"other", "twice"}));
}

TEST(Specification, RemovingAnUnknownComponentIsRefused) {
  Specification specification;
  GivenFronts component;
  GivenFronts other;
  specification.add_component(other);
  EXPECT_EQ(thrown([&] { specification.remove_component(component); }),
            "Failed to remove type from Specification");
}

TEST(Specification, ModifiersWorkOnGainThenAngleThenPhaseWhateverTheOrderOfAdding) {
  Ground ground;
  Specification specification;
  GivenFronts component({{5, {0.1, 0.0, 1.0}}});
  NamedModifier gain(Modifier::gain, "gain");
  NamedModifier angle(Modifier::angle, "angle");
  NamedModifier phase(Modifier::phase, "phase");
  specification.add_modifier(phase);
  specification.add_modifier(gain);
  specification.add_modifier(angle);
  specification.add_component(component);
  specification.set(at(0, 0, 0));
  EXPECT_EQ(ground.evaluate(specification),
            (Messages{"gain finds 1", "angle finds 1", "phase finds 1"}));
}

TEST(Specification, ASlotHoldsOneModifier) {
  Specification specification;
  NamedModifier change(Modifier::angle, "change");
  NamedModifier spread(Modifier::angle, "spread");
  NamedModifier gain(Modifier::gain, "gain");
  specification.add_modifier(spread);
  specification.add_modifier(gain);
  EXPECT_EQ(thrown([&] { specification.add_modifier(change); }),
            "Trying to overide an existing modifier");
  EXPECT_EQ(thrown([&] { specification.add_modifier(spread); }),
            "Trying to overide an existing modifier");
}

TEST(Specification, OnlyTheModifierInTheSlotIsRemoved) {
  Ground ground;
  Specification specification;
  NamedModifier held(Modifier::phase, "held");
  NamedModifier other(Modifier::phase, "other");
  EXPECT_EQ(thrown([&] { specification.remove_modifier(held); }),
            "Trying to remove the wrong modifier");
  specification.add_modifier(held);
  EXPECT_EQ(thrown([&] { specification.remove_modifier(other); }),
            "Trying to remove the wrong modifier");
  specification.remove_modifier(held);
  specification.add_modifier(other);
  specification.set(at(0, 0, 0));
  EXPECT_EQ(ground.evaluate(specification), Messages{"other finds 0"});
}

}  // namespace
