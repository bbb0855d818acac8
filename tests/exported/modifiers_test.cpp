// The seven modifiers, as a host adds them by name.
#include <cmath>
#include <numbers>

#include "run_fixture.h"
#include "support/output.h"

namespace {

using Testing::Entry;
using Testing::RunHostTest;

constexpr double pi = std::numbers::pi;

struct Front {
  double freq;
  double amp;
  double angle;
  double phase;
};

// A run of 10 s with three waves, without modifiers.
class ModifierCalls : public RunHostTest {
 protected:
  void SetUp() override {
    experiment = basin();
    make_run();
    set_run(10);
    set_place(0, 0, 0);
    for (const double f : {0.4, 0.5, 0.8}) set_single(add_single(), f, 0.1, 0, 1);
  }

  jlong add(const char* type, const std::string& text = "") {
    return host.call(NATIVE(Kelpbox_1Experiment_1add_1modifier), experiment, proxy, group, type,
                     text);
  }
  Thrown thrown_by_add(jlong id, const char* type, const std::string& text = "") {
    Thrown thrown;
    Testing::printed([&] {
      thrown =
          thrown_by(NATIVE(Kelpbox_1Experiment_1add_1modifier), experiment, proxy, id, type, text);
    });
    return thrown;
  }
  Thrown thrown_by_set(jlong id, jlong values) {
    return thrown_by(NATIVE(Kelpbox_1Experiment_1set_1_1SWIG_11), experiment, proxy, id, values,
                     proxy);
  }
  std::vector<std::string> queried(jlong id) {
    const jlong values = params();
    host.call(NATIVE(Kelpbox_1Experiment_1query_1_1SWIG_11), experiment, proxy, id, values, proxy);
    return names(values);
  }
  std::vector<Front> built() {
    EXPECT_EQ(thrown_by_run_build(), Thrown{});
    const jlong vector = host.call(NATIVE(Kelpbox_1Experiment_1fronts_1_1SWIG_11), experiment,
                                   proxy, run, static_cast<jboolean>(false));
    const jlong size = host.call(NATIVE(Kelpbox_1StdVectorFront_1size), vector, proxy);
    std::vector<Front> fronts;
    for (jint i = 0; i < size; ++i) {
      const jlong front = host.call(NATIVE(Kelpbox_1StdVectorFront_1get), vector, proxy, i);
      fronts.push_back({host.call(NATIVE(Kelpbox_1Front_1get_1freq), front, proxy),
                        host.call(NATIVE(Kelpbox_1Front_1get_1amp), front, proxy),
                        host.call(NATIVE(Kelpbox_1Front_1get_1angle), front, proxy),
                        host.call(NATIVE(Kelpbox_1Front_1get_1phase), front, proxy)});
    }
    return fronts;
  }
  jlong with(const char* name, const char* member, const char* type,
             const std::vector<Entry>& entries = {}) {
    const jlong values = params(entries);
    insert_enum(values, name, member, type);
    return values;
  }
};

TEST_F(ModifierCalls, EachDeclaresItsOwnParameters) {
  using Strings = std::vector<std::string>;
  EXPECT_EQ(queried(add("GainAdjust", "a[m]")), Strings{"a"});
  EXPECT_EQ(queried(add("AngleSweep", "1")), Strings{"delta_angle"});
  host.call(NATIVE(Kelpbox_1Experiment_1remove), experiment, proxy, jlong{6});
  EXPECT_EQ(queried(add("AngleSpread", "s")),
            (Strings{"angle", "function", "max_angle", "min_angle", "ran_gen", "s", "seed"}));
  host.call(NATIVE(Kelpbox_1Experiment_1remove), experiment, proxy, jlong{7});
  EXPECT_EQ(queried(add("AngleChange", "1@deg")), Strings{"set"});
  EXPECT_EQ(queried(add("PhaseRandom")), (Strings{"ran_gen", "seed"}));
  host.call(NATIVE(Kelpbox_1Experiment_1remove), experiment, proxy, jlong{9});
  EXPECT_EQ(queried(add("PhaseWNoise")), (Strings{"ran_gen", "rate", "seed"}));
  host.call(NATIVE(Kelpbox_1Experiment_1remove), experiment, proxy, jlong{10});
  EXPECT_EQ(queried(add("PhaseChange", "1@deg")), Strings{"set"});
}

TEST_F(ModifierCalls, ASecondOfAKindIsRefusedAndLeavesTheTableUnchanged) {
  const Thrown refused = domain("add_modifier::Trying to overide an existing modifier");
  add("GainAdjust", "1");
  add("AngleSpread", "1");
  add("PhaseRandom");
  EXPECT_EQ(thrown_by_add(group, "GainAdjust", "1"), refused);
  for (const char* type : {"AngleSweep", "AngleSpread"}) {
    EXPECT_EQ(thrown_by_add(group, type, "1"), refused);
  }
  EXPECT_EQ(thrown_by_add(group, "AngleChange", "1@deg"), refused);
  for (const char* type : {"PhaseRandom", "PhaseWNoise"}) {
    EXPECT_EQ(thrown_by_add(group, type), refused);
  }
  EXPECT_EQ(thrown_by_add(group, "PhaseChange", "1@deg"), refused);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Experiment_1add_1single), experiment, proxy, group), 8);
}

TEST_F(ModifierCalls, UnderTheWrongParentEachNamesItself) {
  const auto refused = [](const std::string& name) {
    return domain("add_modifier::" + name + "::Trying to add to invalid type");
  };
  EXPECT_EQ(thrown_by_add(run, "GainAdjust", "1"), refused("Gain"));
  EXPECT_EQ(thrown_by_add(run, "AngleSweep", "1"), refused("AngleSweepModifier"));
  EXPECT_EQ(thrown_by_add(run, "AngleSpread", "1"), refused("AngleSpreadModifier"));
  EXPECT_EQ(thrown_by_add(run, "AngleChange", "1@deg"), refused("AngleChangModifier"));
  EXPECT_EQ(thrown_by_add(run, "PhaseRandom"), refused("PhaseModifier"));
  EXPECT_EQ(thrown_by_add(run, "PhaseWNoise"), refused("PhaseModifier"));
  EXPECT_EQ(thrown_by_add(run, "PhaseChange", "1@deg"), refused("PhaseModifier"));
}

TEST_F(ModifierCalls, ABadTextIsRefusedWhateverTheParent) {
  for (const jlong id : {group, run}) {
    EXPECT_EQ(thrown_by_add(id, "GainAdjust", "1#1@Hz"),
              domain("Even number of functions in modifier expression"));
    EXPECT_EQ(thrown_by_add(id, "GainAdjust", "1@m"),
              domain("Incorrect output units in expression 0 m, 1"));
    EXPECT_EQ(thrown_by_add(id, "AngleSweep", "1#1@Hz#2"),
              domain("Incorrect limit units in expression Hz, 17"));
    EXPECT_EQ(thrown_by_add(id, "PhaseRandom", "1 +"),
              domain("Error while parsing expression ::1 +"));
    EXPECT_EQ(thrown_by_add(id, "PhaseChange", "1@furlong"), domain("Unknown units - furlong"));
  }
  // The name is checked first, then the ID, then the text.
  EXPECT_EQ(thrown_by_add(99, "PhaseRandom", "1 +"), domain("ID out of range"));
  EXPECT_EQ(thrown_by_add(99, "Phase", "1 +"), domain("Enum type::WaveMod::Phase::Not found"));
}

TEST_F(ModifierCalls, GainAngleAndPhaseWorkTogether) {
  const jlong phase = add("PhaseChange", "shift[s]*$[rad/s]@rad");
  const jlong angle = add("AngleChange", "0.1@rad#0.6@Hz#0.2@rad");
  const jlong gain = add("GainAdjust", "2*$[Hz]");
  set(phase, with("set", "False", "Bool", {{"shift", 500, "msec"}}));
  set(angle, with("set", "True", "Bool"));
  set(gain, params());
  const std::vector<Front> fronts = built();
  ASSERT_EQ(fronts.size(), 3U);
  for (const Front& front : fronts) {
    EXPECT_NEAR(front.amp, 0.2 * front.freq, 1e-15);
    EXPECT_EQ(front.angle, front.freq < 0.6 ? 0.1 : 0.2);
    EXPECT_NEAR(front.phase, 1 + pi * front.freq, 1e-12);
  }
}

TEST_F(ModifierCalls, AnExpressionIsNeededOnlyWhereItIsUsed) {
  const jlong gain = add("GainAdjust");
  EXPECT_EQ(thrown_by_set(gain, params()), Thrown{});
  EXPECT_EQ(thrown_by_run_build(), domain("Gain::evaluate::there is no expression"));
}

TEST_F(ModifierCalls, ASweepSharesEachWaveOutOverTheAnglesOfTheSite) {
  set(add("AngleSweep", "1#0@rad#2#0.1@rad#1"), params({{"delta_angle", 40, "deg"}}));
  const std::vector<Front> fronts = built();
  // -80 to 80 degrees in four steps. 0 degrees lies on the first limit.
  ASSERT_EQ(fronts.size(), 15U);
  const double weights[] = {1, 1, 2, 1, 1};
  for (std::size_t i = 0; i < 15; ++i) {
    EXPECT_NEAR(fronts[i].amp, 0.1 * weights[i % 5] / 6, 1e-12);
    EXPECT_NEAR(fronts[i].angle, (-80 + 40 * static_cast<double>(i % 5)) * pi / 180, 1e-12);
    EXPECT_EQ(fronts[i].phase, 1.0);
  }
}

TEST_F(ModifierCalls, ASweepWithoutWeightFailsTheBuild) {
  set(add("AngleSweep", "0"), params({{"delta_angle", 40, "deg"}}));
  EXPECT_EQ(thrown_by_run_build(), domain("Sweep has zero output"));
}

TEST_F(ModifierCalls, ASpreadWritesItsRangeBack) {
  const jlong spread = add("AngleSpread", "1");
  const jlong values =
      params({{"angle", 0, "deg"}, {"min_angle", -120, "deg"}, {"max_angle", 45, "deg"}});
  insert_enum(values, "function", "CosS", "SpreadFunc");
  insert_enum(values, "ran_gen", "Default", "RanGen");
  set(spread, values);
  EXPECT_NEAR(value(values, "min_angle", "rad"), -pi / 2 + 0.0001, 1e-12);
  EXPECT_NEAR(value(values, "max_angle", "deg"), 45, 1e-12);
  EXPECT_EQ(comments(values), std::vector<std::string>{"Warning::Poor match"});
  const double lo = std::sin(-pi / 2 + 0.0001);
  const double hi = std::sin(45 * 0.0174533);
  for (const Front& front : built()) {
    EXPECT_EQ(front.amp, 0.1);
    EXPECT_GE(std::sin(front.angle), lo);
    EXPECT_LE(std::sin(front.angle), hi);
    EXPECT_NE(front.angle, 0.0);
  }
}

TEST_F(ModifierCalls, ASpreadReportsItsFailures) {
  const jlong spread = add("AngleSpread", "1");
  EXPECT_EQ(thrown_by_set(spread, params()), domain("function::Not found"));
  const jlong values =
      params({{"angle", 50, "deg"}, {"min_angle", -120, "deg"}, {"max_angle", 45, "deg"}});
  insert_enum(values, "function", "Cos2S", "SpreadFunc");
  EXPECT_EQ(thrown_by_set(spread, values), domain("ran_gen::Not found"));
  insert_enum(values, "ran_gen", "Default", "RanGen");
  EXPECT_EQ(thrown_by_set(spread, values), domain("Angle not between min and max"));
}

TEST_F(ModifierCalls, PhasesAreDrawnWithoutTouchingAmplitudes) {
  set(add("PhaseRandom", "5"), with("ran_gen", "Default", "RanGen"));
  const std::vector<Front> first = built();
  const std::vector<Front> second = built();
  ASSERT_EQ(first.size(), 3U);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(first[i].amp, 0.1);
    EXPECT_NE(first[i].phase, 1.0);
    EXPECT_LE(std::abs(first[i].phase), pi);
    EXPECT_EQ(first[i].phase, second[i].phase);
  }
}

TEST_F(ModifierCalls, TheDefaultSeedMayBeGivenByTheHost) {
  const jlong by_default = add("PhaseRandom");
  set(by_default, with("ran_gen", "Default", "RanGen"));
  const std::vector<Front> first = built();
  host.call(NATIVE(Kelpbox_1Experiment_1remove), experiment, proxy, by_default);
  set(add("PhaseRandom"), with("ran_gen", "FullRandom", "RanGen", {{"seed", 4, ""}}));
  const std::vector<Front> second = built();
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(first[i].phase, second[i].phase);
}

TEST_F(ModifierCalls, NoiseChangesAmplitudesAndPhases) {
  set(add("PhaseWNoise"), with("ran_gen", "Default", "RanGen", {{"rate", 1.35, "Hz"}}));
  const std::vector<Front> fronts = built();
  ASSERT_EQ(fronts.size(), 3U);
  EXPECT_NE(fronts[0].amp, 0.1);
  EXPECT_NE(fronts[1].phase, 1.0);
  // Thirteen samples have six harmonics: the eighth stays.
  EXPECT_EQ(fronts[2].amp, 0.1);
  EXPECT_EQ(fronts[2].phase, 1.0);
}

TEST_F(ModifierCalls, NoiseAtARateWithoutSamplesFailsTheBuild) {
  set(add("PhaseWNoise"), with("ran_gen", "Default", "RanGen", {{"rate", -2, "Hz"}}));
  EXPECT_EQ(thrown_by_run_build(),
            domain("rate::-2 Hz gives no usable number of samples in a repeat time of 10 s"));
}

TEST_F(ModifierCalls, ASecondSetWithTwoLimitsIsRefused) {
  const jlong gain = add("GainAdjust", "1#0.45@Hz#2#0.6@Hz#3");
  EXPECT_EQ(thrown_by_set(gain, params()), Thrown{});
  EXPECT_EQ(thrown_by_set(gain, params()), domain("Limits out of order"));
  const std::vector<Front> fronts = built();
  EXPECT_DOUBLE_EQ(fronts[0].amp, 0.1);
  EXPECT_DOUBLE_EQ(fronts[1].amp, 0.2);
  EXPECT_DOUBLE_EQ(fronts[2].amp, 0.3);
}

TEST_F(ModifierCalls, SetReportsWhatIsWrongWithTheExpression) {
  const jlong gain = add("GainAdjust", "$[s]*factor[Hz]");
  EXPECT_EQ(thrown_by_set(gain, params()), domain("factor::Not found"));
  EXPECT_EQ(thrown_by_set(gain, params({{"factor", 1, "Hz"}})), domain("Incompatible expression"));
  const jlong angle = add("AngleChange", "1@deg#$[Hz]@Hz#2@deg");
  EXPECT_EQ(thrown_by_set(angle, params()), domain("set::Not found"));
  EXPECT_EQ(thrown_by_set(angle, with("set", "True", "Bool")),
            domain("Limiting function not constant"));
}

TEST_F(ModifierCalls, ARemovedModifierHasNoEffect) {
  const jlong gain = add("GainAdjust", "0");
  EXPECT_EQ(built()[0].amp, 0.0);
  host.call(NATIVE(Kelpbox_1Experiment_1remove), experiment, proxy, gain);
  EXPECT_EQ(built()[0].amp, 0.1);
}

}  // namespace
