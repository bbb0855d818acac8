// tidelab.waves.Native when memory is exhausted: an exception, and nothing half done.
#include <cmath>
#include <numbers>
#include <optional>

#include "unlimited_host.h"
#include "waves_fixture.h"

namespace {

using Testing::FailingMemory;
using Testing::Fails;
using Testing::WavesTest;

class WavesMemory : public WavesTest {
 protected:
  void SetUp() override {
    experiment = basin();
    make_run();
    set_run(10);
    set_place(0, 0, 0);
  }

  // Calls with each allocation failing, alone and together with all later ones, until the call
  // succeeds. The call is given new parameters each time, since a failed one may have added some.
  template <typename Call>
  void with_more_each_time(Call call, const std::vector<Testing::Entry>& entries = {}) {
    for (long allocations = 0;; ++allocations) {
      for (const Fails kind : {Fails::from_there_on, Fails::once}) {
        const jlong values = params(entries);
        bool has_failed = false;
        {
          const FailingMemory memory(allocations, kind);
          call(values);
          has_failed = memory.has_failed();
        }
        const Thrown thrown = poor.take_thrown();
        if (!has_failed) {
          EXPECT_EQ(thrown, Thrown{});
          EXPECT_GT(allocations, 0) << "the call needs no memory";
          return;
        }
        // The call may do without one block, such as the second buffer of a sort.
        if (kind == Fails::once && thrown == Thrown{}) continue;
        ASSERT_TRUE(is_exhausted(thrown)) << thrown << " after " << allocations << " allocations";
      }
    }
  }
  // Of the library's own message, "Uncaught Exception in ...", there may be only the part that
  // needs no memory.
  static bool is_exhausted(const Thrown& thrown) {
    return thrown.class_name == domain("").class_name &&
           (thrown.message == "There is not enough memory" ||
            thrown.message.starts_with("out of dynamic memory") ||
            thrown.message.find("Uncaught Except") == 0);
  }
  // The result of the call that succeeds.
  template <typename Function, typename... Arguments>
  auto result_with_more_each_time(Function function, Arguments... arguments) {
    decltype(poor.call(function, arguments...)) result{};
    with_more_each_time([&](jlong) { result = poor.call(function, arguments...); });
    return result;
  }
  Testing::UnlimitedHost poor;
};

TEST_F(WavesMemory, ItemsAreAddedWholeOrNotAtAll) {
  const jbyteArray name = poor.bytes("a name that does not fit into a short string");
  const jbyteArray density = poor.bytes("0.2@Hz#hs[m]^2*0.001@m2s#2@Hz");
  const auto added = [&](auto function, auto... arguments) {
    return result_with_more_each_time(function, experiment, group, arguments...);
  };
  // An item that was added in part would have taken an ID.
  EXPECT_EQ(added(WAVES(addSpectrum), name, density), 2);
  EXPECT_EQ(added(WAVES(addTimeExpression), name, poor.bytes("0@s#0.1*sin($[s])@m#5@s")), 3);
  EXPECT_EQ(added(WAVES(addFronts), poor.doubles({0.5, 0.05, 0.3, 0.4, 1.1, 0.02, -0.2, 0})), 4);
  EXPECT_EQ(added(WAVES(addModifier), poor.bytes("GainAdjust"), poor.bytes("2*gain[]")), 5);
  EXPECT_EQ(added(WAVES(addSingle)), 6);
  EXPECT_EQ(result_with_more_each_time(WAVES(addSpecification), experiment, run), 7);
  EXPECT_EQ(result_with_more_each_time(WAVES(addDefinition), experiment, name), 8);
}

TEST_F(WavesMemory, AVectorAndItsComponentAreAddedWholeOrNotAtAll) {
  const jlong vector = own(
      result_with_more_each_time(WAVES(newVector), poor.bytes("a label that needs memory itself"),
                                 poor.bytes("m"), poor.doubles(std::vector<double>(100, 0.01))),
      NATIVE(delete_1Kelpbox_1Vector));
  EXPECT_EQ(result_with_more_each_time(WAVES(addTimeSeries), experiment, group, vector), 2);
}

TEST_F(WavesMemory, ItemsAreQueriedAndSet) {
  const jlong wave = add_single();
  jlong needed = 0;
  with_more_each_time([&](jlong values) {
    needed = values;
    poor.call(WAVES(queryItem), experiment, wave, needed);
  });
  EXPECT_EQ(names(needed), (std::vector<std::string>{"a", "angle", "f", "phase"}));
  with_more_each_time(
      [&](jlong values) { poor.call(WAVES(setItem), experiment, wave, values); },
      {{"f", 0.5, "Hz"}, {"a", 0.05, "m"}, {"angle", 0.3, "rad"}, {"phase", 0, "rad"}});
  ASSERT_EQ(thrown_by_run_build(), Thrown{});
  const auto built = numbers(waves.call(WAVES(fronts), experiment, run, JNI_TRUE));
  ASSERT_EQ(built.size(), 4U);
  EXPECT_NEAR(built[0], 0.5, 1e-12);
  EXPECT_NEAR(built[1], 0.05, 1e-12);
}

TEST_F(WavesMemory, ParametersAreMadeAndRead) {
  const jlong made = own_params(result_with_more_each_time(
      WAVES(newParams), poor.texts({u"rate", u"a name that needs memory"}), poor.doubles({50, 0}),
      poor.texts({u"Hz", u"False"}), poor.texts({std::nullopt, u"Bool"})));
  EXPECT_EQ(value(made, "rate", "Hz"), 50.0);
  EXPECT_EQ(ArrayHost::texts_of(result_with_more_each_time(WAVES(paramTexts), made)),
            (std::vector<std::string>{"a name that needs memory", "False", "Bool", "rate", "Hz",
                                      "(null)"}));
  EXPECT_EQ(numbers(result_with_more_each_time(WAVES(paramValues), made)),
            (std::vector<double>{0, 50}));
  EXPECT_EQ(result_with_more_each_time(WAVES(convert), poor.bytes("m"), poor.bytes("mm")), 1000.0);
}

TEST_F(WavesMemory, TheSiteAndItsBanksAreRead) {
  EXPECT_EQ(Host::characters_of(result_with_more_each_time(WAVES(siteText), experiment)),
            Host::characters_of(waves.call(WAVES(siteText), experiment)));
  jlong info = 0;
  jstring name = nullptr;
  with_more_each_time([&](jlong values) {
    info = values;
    name = poor.call(WAVES(bank), experiment, 0, info);
  });
  EXPECT_EQ(Host::characters_of(name), "west");
  EXPECT_EQ(names(info).size(), 5U);
  EXPECT_EQ(numbers(result_with_more_each_time(WAVES(paddles), experiment, 1)),
            (std::vector<double>{1, 3, -5, 1.5}));
  jlong fixed = 0;
  with_more_each_time([&](jlong values) {
    fixed = values;
    poor.call(WAVES(constants), experiment, fixed);
  });
  EXPECT_EQ(value(fixed, "max_y", "m"), 5.0);
}

TEST_F(WavesMemory, TheSiteIsSetWithoutMemory) {
  const jlong values = params({{"beach", 0.5, "m"}, {"delay", 30, "msec"}});
  {
    const FailingMemory memory(0, Fails::from_there_on);
    poor.call(WAVES(setSite), experiment, values);
    EXPECT_FALSE(memory.has_failed());
  }
  const jlong after = params();
  poor.call(WAVES(querySite), experiment, after);
  EXPECT_EQ(value(after, "beach", "m"), 0.5);
}

TEST_F(WavesMemory, FramesAreLaidOutAndBuiltByColumns) {
  set_single(add_single(), 1.5, 0.05, 0.3, 0);
  ASSERT_EQ(thrown_by_run_build(), Thrown{});
  const std::vector<Testing::Entry> grid{{"rate", 20, "Hz"}, {"x_step", 1, "m"}, {"y_step", 1, "m"},
                                         {"x_min", 0, "m"},  {"x_max", 3, "m"},  {"y_min", -1, "m"},
                                         {"y_max", 1, "m"}};
  const auto frame = [&] {
    return ArrayHost::values_of<jshort>(waves.call(WAVES(frame), experiment, run, 7));
  };
  waves.call(WAVES(layOutFrames), experiment, run, params(grid));
  waves.call(WAVES(buildColumns), experiment, run, 0, 4);
  const std::vector<jshort> undisturbed = frame();
  ASSERT_EQ(undisturbed.size(), 12U);
  host.call(NATIVE(Kelpbox_1Experiment_1animate_1free), experiment, proxy, run);

  with_more_each_time(
      [&](jlong values) { poor.call(WAVES(layOutFrames), experiment, run, values); }, grid);
  EXPECT_NE(frame(), undisturbed);
  with_more_each_time([&](jlong) { poor.call(WAVES(buildColumns), experiment, run, 0, 4); });
  EXPECT_EQ(frame(), undisturbed);
}

TEST_F(WavesMemory, ARunIsBuiltAndItsFrontsAreRead) {
  set(waves.call(WAVES(addFronts), experiment, group,
                 waves.doubles({0.5, 0.05, 0.3, 0.4, 1.1, 0.02, -0.2, 0})),
      params());
  with_more_each_time([&](jlong) { poor.call(WAVES(buildRun), experiment, run); });
  const auto fronts = numbers(result_with_more_each_time(WAVES(fronts), experiment, run, JNI_TRUE));
  ASSERT_EQ(fronts.size(), 8U);
  EXPECT_NEAR(fronts[1], 0.05, 1e-12);
  EXPECT_EQ(numbers(result_with_more_each_time(WAVES(transferFronts), experiment, run, 0)).size(),
            8U);
  EXPECT_EQ(numbers(result_with_more_each_time(WAVES(position), experiment, run, 0)).size(), 3U);
}

TEST_F(WavesMemory, ResultsOfARunAreBuilt) {
  set_single(add_single(), 1.5, 0.05, 0, 0);
  ASSERT_EQ(thrown_by_run_build(), Thrown{});
  with_more_each_time([&](jlong rate) { poor.call(WAVES(buildMotion), experiment, run, rate); },
                      {{"rate", 50, "Hz"}});
  EXPECT_EQ(numbers(waves.call(WAVES(signal), experiment, run, 0, 0)).size(), 500U);
  const std::vector<Testing::Entry> place{
      {"rate", 50, "Hz"}, {"x", 1, "m"}, {"y", 2, "m"}, {"delta_angle", 0.5, "rad"}};
  with_more_each_time([&](jlong at) { poor.call(WAVES(buildPoint), experiment, run, at); }, place);
  with_more_each_time([&](jlong at) { poor.call(WAVES(pointStatistics), experiment, run, at); },
                      place);
}

TEST_F(WavesMemory, ARecordIsAnalysed) {
  std::vector<double> trough_first(2000);
  for (std::size_t j = 0; j < trough_first.size(); ++j) {
    trough_first[j] = -0.05 * std::cos(std::numbers::pi * static_cast<double>(j) / 50.0);
  }
  const jdoubleArray samples = poor.doubles(trough_first);
  waves.call(WAVES(captureOutput), JNI_TRUE);
  jlong series = -1;
  with_more_each_time(
      [&](jlong rate) { series = poor.call(WAVES(addSeries), experiment, rate, samples); },
      {{"rate", 50, "Hz"}});
  EXPECT_EQ(series, 0);
  const jintArray members = poor.ints({0});
  jlong made = -1;
  with_more_each_time(
      [&](jlong window) { made = poor.call(WAVES(createSet), experiment, window, members); },
      {{"start_time", 0, "s"}, {"stop_time", 40, "s"}});
  EXPECT_EQ(made, 1);
  const jlong none = params();
  jdoubleArray heights = nullptr;
  with_more_each_time(
      [&](jlong out) { heights = poor.call(WAVES(evaluate), experiment, made, 0, none, out); });
  waves.call(WAVES(captureOutput), JNI_FALSE);
  ASSERT_EQ(numbers(heights).size(), 1U);
  EXPECT_NEAR(numbers(heights)[0], 0.1, 1e-12);
}

TEST_F(WavesMemory, AFormulaIsRead) {
  const jbyteArray text = poor.bytes("low[Hz]@Hz#hs[m]*$[Hz]@m2s");
  jlong declared = 0;
  with_more_each_time([&](jlong values) {
    declared = values;
    poor.call(WAVES(formulaParameters), text, declared);
  });
  EXPECT_EQ(names(declared), (std::vector<std::string>{"hs", "low"}));
}

// The line about a bad formula does not fit into memory. Later ones do.
TEST_F(WavesMemory, OutputIsCollectedAgainAfterwards) {
  const jbyteArray bad = poor.bytes("a formula that is none and that has a long message");
  const jlong none = params();
  for (long allocations = 0; allocations < 60; ++allocations) {
    waves.call(WAVES(captureOutput), JNI_TRUE);
    {
      const FailingMemory memory(allocations, Fails::from_there_on);
      poor.call(WAVES(formulaParameters), bad, none);
    }
    EXPECT_NE(poor.take_thrown(), Thrown{});
    waves.call(WAVES(captureOutput), JNI_FALSE);
    waves.call(WAVES(takeOutput));
  }
  waves.call(WAVES(captureOutput), JNI_TRUE);
  poor.call(WAVES(formulaParameters), bad, none);
  waves.call(WAVES(captureOutput), JNI_FALSE);
  EXPECT_NE(poor.take_thrown(), Thrown{});
  EXPECT_EQ(Host::characters_of(waves.call(WAVES(takeOutput))).find("Help"), 0U);
}

}  // namespace
