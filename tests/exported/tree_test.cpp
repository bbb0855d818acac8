// The tree of definitions, specifications, components and modifiers.
#include "facade/facade.h"
#include "fixture.h"
#include "support/output.h"
#include "support/thrown.h"

namespace {

using Testing::HostTest;
using Testing::nothing_thrown;
using Testing::thrown;

class Tree : public HostTest {
 protected:
  void SetUp() override { experiment = basin(); }

  jlong add_definition() {
    return host.call(NATIVE(Kelpbox_1Experiment_1add_1definition), experiment, proxy, "run");
  }
  jlong add_specification(jlong id) {
    return host.call(NATIVE(Kelpbox_1Experiment_1add_1specification), experiment, proxy, id);
  }
  jlong add_single(jlong id) {
    return host.call(NATIVE(Kelpbox_1Experiment_1add_1single), experiment, proxy, id);
  }
  Thrown thrown_by_modifier(jlong id, const char* type, const char* text = "") {
    return thrown_by(NATIVE(Kelpbox_1Experiment_1add_1modifier), experiment, proxy, id, type, text);
  }
  void remove(jlong id) { host.call(NATIVE(Kelpbox_1Experiment_1remove), experiment, proxy, id); }
  Thrown thrown_by_remove(jlong id) {
    return thrown_by(NATIVE(Kelpbox_1Experiment_1remove), experiment, proxy, id);
  }
  Thrown thrown_by_query(jlong id) {
    return thrown_by(NATIVE(Kelpbox_1Experiment_1query_1_1SWIG_11), experiment, proxy, id, params(),
                     proxy);
  }
  Thrown thrown_by_set(jlong id, jlong set) {
    return thrown_by(NATIVE(Kelpbox_1Experiment_1set_1_1SWIG_11), experiment, proxy, id, set,
                     proxy);
  }
  std::vector<std::string> queried(jlong id) {
    const jlong set = params();
    host.call(NATIVE(Kelpbox_1Experiment_1query_1_1SWIG_11), experiment, proxy, id, set, proxy);
    return names(set);
  }
  jlong fronts() {
    return own(host.call(NATIVE(new_1Kelpbox_1StdVectorFront_1_1SWIG_11), 1),
               NATIVE(delete_1Kelpbox_1StdVectorFront));
  }
  jlong series() {
    return own(host.call(NATIVE(new_1Kelpbox_1Vector), "eta", "m", doubles({0, 1}), proxy),
               NATIVE(delete_1Kelpbox_1Vector));
  }

  const Thrown out_of_range = domain("ID out of range");
  const Thrown inactive = domain("Trying to query an inactive type");
  jlong experiment = 0;
};

constexpr const char* spectrum_text = "0.2@Hz#0.01@m2s#1@Hz";
constexpr const char* time_text = "0@s#0.01*sin($[s])@m#5@s";

TEST_F(Tree, IdsRiseByOneFromZero) {
  EXPECT_EQ(add_definition(), 0);
  EXPECT_EQ(add_specification(0), 1);
  EXPECT_EQ(add_single(1), 2);
  EXPECT_EQ(add_definition(), 3);
  EXPECT_EQ(add_specification(3), 4);
  EXPECT_EQ(
      host.call(NATIVE(Kelpbox_1Experiment_1add_1fronts), experiment, proxy, 4, fronts(), proxy),
      5);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Experiment_1add_1spectrum), experiment, proxy, 4, "swell",
                      spectrum_text),
            6);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Experiment_1add_1timeexp), experiment, proxy, 4, "pulse",
                      time_text),
            7);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Experiment_1add_1timeseries), experiment, proxy, 4, series(),
                      proxy),
            8);
}

TEST_F(Tree, EachItemDeclaresItsOwnParameters) {
  const jlong run = add_definition();
  const jlong group = add_specification(run);
  const jlong wave = add_single(group);
  EXPECT_EQ(queried(run),
            (std::vector<std::string>{"dalrymple", "ran_gen", "repeat", "seed", "wave_merge"}));
  EXPECT_EQ(queried(group), (std::vector<std::string>{"t", "x", "y"}));
  EXPECT_EQ(queried(wave), (std::vector<std::string>{"a", "angle", "f", "phase"}));
}

TEST_F(Tree, SetReachesTheItem) {
  const jlong run = add_definition();
  const jlong group = add_specification(run);
  const jlong wave = add_single(group);
  EXPECT_EQ(thrown_by_set(run, params()), domain("repeat::Not found"));
  EXPECT_EQ(thrown_by_set(group, params()), domain("x::Not found"));
  EXPECT_EQ(thrown_by_set(wave, params()), domain("f::Not found"));

  const jlong times = params({{"repeat", 10.004, "s"}});
  insert_enum(times, "dalrymple", "False", "Bool");
  insert_enum(times, "wave_merge", "Null", "WaveMerge");
  EXPECT_EQ(thrown_by_set(run, times), Thrown{});
  EXPECT_DOUBLE_EQ(value(times, "repeat", "s"), 10.0);
}

TEST_F(Tree, AnIdOutOfRangeIsTheFirstFailure) {
  const jlong data = series();
  const jlong list = fronts();
  for (const jlong id : {jlong{0}, jlong{-1}}) {
    EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1add_1specification), experiment, proxy, id),
              out_of_range);
    EXPECT_EQ(
        thrown_by(NATIVE(Kelpbox_1Experiment_1add_1fronts), experiment, proxy, id, list, proxy),
        out_of_range);
    EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1add_1single), experiment, proxy, id),
              out_of_range);
    // The text is checked after the ID.
    EXPECT_EQ(
        thrown_by(NATIVE(Kelpbox_1Experiment_1add_1spectrum), experiment, proxy, id, "a", "b"),
        out_of_range);
    EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1add_1timeexp), experiment, proxy, id, "a", "b"),
              out_of_range);
    EXPECT_EQ(
        thrown_by(NATIVE(Kelpbox_1Experiment_1add_1timeseries), experiment, proxy, id, data, proxy),
        out_of_range);
    EXPECT_EQ(thrown_by_modifier(id, "GainAdjust"), out_of_range);
    EXPECT_EQ(thrown_by_query(id), out_of_range);
    EXPECT_EQ(thrown_by_set(id, params()), out_of_range);
    EXPECT_EQ(thrown_by_remove(id), out_of_range);
  }
}

TEST_F(Tree, ASpecificationIsAddedOnlyUnderADefinition) {
  const jlong group = add_specification(add_definition());
  const Thrown refused = domain("Adding an Specification to invalid type");
  const auto add = NATIVE(Kelpbox_1Experiment_1add_1specification);
  EXPECT_EQ(thrown_by(add, experiment, proxy, group), refused);
  EXPECT_EQ(thrown_by(add, experiment, proxy, add_single(group)), refused);
  remove(0);
  EXPECT_EQ(thrown_by(add, experiment, proxy, 0), refused);
}

TEST_F(Tree, AComponentIsAddedOnlyUnderASpecificationAndNamesItself) {
  const jlong run = add_definition();
  const std::string refused = "::Trying to add to invalid type";
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1add_1single), experiment, proxy, run),
            domain("Single" + refused));
  EXPECT_EQ(
      thrown_by(NATIVE(Kelpbox_1Experiment_1add_1fronts), experiment, proxy, run, fronts(), proxy),
      domain("Set of fronts" + refused));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1add_1spectrum), experiment, proxy, run, "swell",
                      spectrum_text),
            domain("swell" + refused));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1add_1timeexp), experiment, proxy, run, "pulse",
                      time_text),
            domain("pulse" + refused));
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1add_1timeseries), experiment, proxy, run,
                      series(), proxy),
            domain("eta" + refused));
  // The object is made before its parent is checked.
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1add_1spectrum), experiment, proxy, run, "swell",
                      "0.2@Hz"),
            domain("There must be at least 2  sub expressions"));
}

TEST_F(Tree, AFailedAddLeavesTheTableAsItWas) {
  const jlong run = add_definition();
  const jlong group = add_specification(run);
  thrown_by(NATIVE(Kelpbox_1Experiment_1add_1single), experiment, proxy, run);
  thrown_by(NATIVE(Kelpbox_1Experiment_1add_1specification), experiment, proxy, group);
  thrown_by(NATIVE(Kelpbox_1Experiment_1add_1spectrum), experiment, proxy, group, "a", "b");
  thrown_by_modifier(group, "AngleSet");
  EXPECT_EQ(add_single(group), 2);
}

TEST_F(Tree, TheNameOfAModifierIsLookedUpBeforeTheId) {
  EXPECT_EQ(thrown_by_modifier(99, "Gain"), domain("Enum type::WaveMod::Gain::Not found"));
  EXPECT_EQ(thrown_by_modifier(99, "gainadjust"),
            domain("Enum type::WaveMod::gainadjust::Not found"));
  EXPECT_EQ(thrown_by_modifier(99, "AngleSet"), out_of_range);
}

TEST_F(Tree, NamesWithoutAClassAreRefusedWhateverTheParent) {
  const Thrown refused = domain("Unexpected wave modifier in add_modifier");
  const jlong run = add_definition();
  const jlong group = add_specification(run);
  for (const char* type : {"AngleSet", "PhaseSet"}) {
    EXPECT_EQ(thrown_by_modifier(group, type), refused);
    EXPECT_EQ(thrown_by_modifier(run, type), refused);
  }
}

TEST_F(Tree, RemovingTwiceIsRefused) {
  const jlong run = add_definition();
  const jlong group = add_specification(run);
  const jlong wave = add_single(group);
  for (const jlong id : {wave, group, run}) {
    remove(id);
    EXPECT_EQ(thrown_by_remove(id), domain("removing item of type NULL"));
  }
}

TEST_F(Tree, RemovingADefinitionRemovesAllBelowIt) {
  const jlong run = add_definition();
  const jlong group = add_specification(run);
  const jlong wave = add_single(group);
  const jlong other = add_definition();
  remove(run);
  for (const jlong id : {run, group, wave}) {
    EXPECT_EQ(thrown_by_query(id), inactive);
    EXPECT_EQ(thrown_by_set(id, params()), inactive);
  }
  EXPECT_EQ(thrown_by_query(other), Thrown{});
}

TEST_F(Tree, ChildrenAlreadyRemovedAreSkipped) {
  const jlong run = add_definition();
  const jlong group = add_specification(run);
  const jlong first = add_single(group);
  add_single(group);
  remove(first);
  remove(group);
  add_specification(run);
  remove(run);
  EXPECT_EQ(thrown_by_remove(group), domain("removing item of type NULL"));
}

TEST_F(Tree, AnIdIsNotReused) {
  const jlong run = add_definition();
  const jlong group = add_specification(run);
  remove(group);
  EXPECT_EQ(add_specification(run), 2);
  remove(run);
  EXPECT_EQ(add_definition(), 3);
}

TEST_F(Tree, NothingCanBeAddedUnderARemovedItem) {
  const jlong group = add_specification(add_definition());
  remove(group);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1add_1single), experiment, proxy, group),
            domain("Single::Trying to add to invalid type"));
}

TEST_F(Tree, ClearEmptiesTheTableAndKeepsTheSite) {
  for (int i = 0; i < 3; ++i) add_single(add_specification(add_definition()));
  host.call(NATIVE(Kelpbox_1Experiment_1clear), experiment, proxy);
  EXPECT_EQ(thrown_by_query(0), out_of_range);
  EXPECT_EQ(string_from(NATIVE(Kelpbox_1Experiment_1context_1name), experiment, proxy),
            "Basin two banks");
  EXPECT_EQ(add_definition(), 0);
  EXPECT_EQ(add_specification(0), 1);
}

TEST_F(Tree, ClearWorksWithoutASite) {
  host.call(NATIVE(Kelpbox_1Experiment_1clear), empty_experiment(), proxy);
}

TEST_F(Tree, ADeletedExperimentFreesWhatItHolds) {
  const jlong made = host.call(NATIVE(new_1Kelpbox_1Experiment_1_1SWIG_10));
  initialise(made, TEST_ROOT "/exported/data/basin.txt");
  experiment = made;
  for (int i = 0; i < 3; ++i) add_single(add_specification(add_definition()));
  remove(0);
  host.call(NATIVE(delete_1Kelpbox_1Experiment), made);
}

TEST_F(Tree, AModifierIsAnItemOfTheTree) {
  const jlong group = add_specification(add_definition());
  const auto add_modifier = [&] {
    return host.call(NATIVE(Kelpbox_1Experiment_1add_1modifier), experiment, proxy, group,
                     "GainAdjust", "gain");
  };
  const jlong gain = add_modifier();
  EXPECT_EQ(gain, 2);
  EXPECT_EQ(queried(gain), std::vector<std::string>{"gain"});
  EXPECT_EQ(thrown_by_set(gain, params()), domain("gain::Not found"));
  remove(gain);
  EXPECT_EQ(thrown_by_query(gain), inactive);
  EXPECT_EQ(add_modifier(), 3);
  remove(0);
  EXPECT_EQ(thrown_by_query(3), inactive);
}

// A host cannot make a specification lose a component, but a removal that fails halfway must keep
// the table consistent. Therefore these two tests access the items directly.
class OpenExperiment : public Kelpbox::Facade {
 public:
  using Kelpbox::Experiment::component;
  using Kelpbox::Experiment::definition;
  using Kelpbox::Experiment::modifier;
  using Kelpbox::Experiment::specification;
};

class OpenTree : public Tree {
 protected:
  void SetUp() override {
    experiment = reinterpret_cast<jlong>(static_cast<Kelpbox::Facade*>(&open));
    initialise(experiment, TEST_ROOT "/exported/data/basin.txt");
  }
  OpenExperiment open;
};

TEST_F(OpenTree, AnItemIsReachedOnlyByItsType) {
  add_single(add_specification(add_definition()));
  EXPECT_EQ(thrown([&] { open.definition(1); }), "Trying to access Definition");
  EXPECT_EQ(thrown([&] { open.specification(0); }), "Trying to access Specification");
  EXPECT_EQ(thrown([&] { open.component(1); }), "Trying to access Component");
  EXPECT_EQ(thrown([&] { open.modifier(2); }), "Trying to access Modifier");
  EXPECT_EQ(thrown([&] { open.component(2); }), nothing_thrown);
  EXPECT_EQ(thrown([&] { open.modifier(3); }), "ID out of range");
}

TEST_F(OpenTree, ARemovalThatFailsHalfwayIsNotUndone) {
  const jlong run = add_definition();
  const jlong group = add_specification(run);
  const jlong first = add_single(group);
  const jlong second = add_single(group);
  open.specification(1).remove_component(open.component(3));
  EXPECT_EQ(thrown_by_remove(run), domain("Failed to remove type from Specification"));
  EXPECT_EQ(thrown_by_query(first), inactive);
  EXPECT_EQ(thrown_by_query(second), Thrown{});
  EXPECT_EQ(thrown_by_remove(run), domain("Missing container from experiment list!"));
}

class GetParams : public HostTest {
 protected:
  // The parser also prints a line.
  Thrown declare(const std::string& text) {
    Thrown thrown;
    Testing::printed(
        [&] { thrown = thrown_by(NATIVE(Kelpbox_1Experiment_1get_1params), text, set, proxy); });
    return thrown;
  }
  void SetUp() override { set = params(); }
  jlong set = 0;
};

TEST_F(GetParams, TheParametersOfEachPieceAreDeclared) {
  EXPECT_EQ(declare("low[Hz]@Hz#hs[m]*$[Hz]@m2s#high[Hz]"), Thrown{});
  EXPECT_EQ(names(set), (std::vector<std::string>{"high", "hs", "low"}));
  EXPECT_EQ(units(set, "hs"), "m");
}

TEST_F(GetParams, TheUnitsAfterTheAtAreIgnored) {
  EXPECT_EQ(declare("a@furlong@m#b@"), Thrown{});
  EXPECT_EQ(names(set), (std::vector<std::string>{"a", "b"}));
}

TEST_F(GetParams, AnEmptyTextDoesNothing) {
  EXPECT_EQ(declare(""), Thrown{});
  EXPECT_TRUE(names(set).empty());
}

TEST_F(GetParams, AnEmptyPieceIsABadExpression) {
  for (const char* text : {"a#", "#a", "a##b", "#", "@m"}) {
    EXPECT_EQ(declare(text), domain("Error while parsing expression ::")) << text;
  }
}

TEST_F(GetParams, ABadPieceIsNamed) {
  EXPECT_EQ(declare("a#b +@m"), domain("Error while parsing expression ::b +"));
  EXPECT_EQ(names(set), std::vector<std::string>{"a"});
}

TEST_F(GetParams, UnitsThatDisagreeAreRefused) {
  EXPECT_EQ(declare("a[m]#a[s]"), domain("Incompatible units for => a"));
}

}  // namespace
