// tidelab.waves.Native: the library, sites, output and parameters.
#include <cmath>
#include <csignal>
#include <filesystem>
#include <thread>

#include "support/output.h"
#include "support/temp_dir.h"
#include "waves_fixture.h"

namespace {

using Testing::printed;
using Testing::WavesTest;

const char* const basin_file = TEST_ROOT "/exported/data/basin.txt";

class WavesSite : public WavesTest {
 protected:
  Thrown thrown_by_initialise(jlong tank, const std::string& file) {
    Thrown thrown;
    output = printed([&] { thrown = thrown_in(WAVES(initialise), tank, bytes(file)); });
    return thrown;
  }
  // The native function returns null for nothing.
  std::string taken() {
    const jstring lines = waves.call(WAVES(takeOutput));
    return lines == nullptr ? std::string() : Host::characters_of(lines);
  }
  std::vector<std::string> texts(jlong set) {
    return ArrayHost::texts_of(waves.call(WAVES(paramTexts), set));
  }

  Testing::TempDir folder;
  std::string output;  // of the last initialise
};

TEST_F(WavesSite, TheVersionIsThatOfTheProject) {
  const std::string version = Host::characters_of(waves.call(WAVES(version)));
  EXPECT_EQ(version, KELPBOX_VERSION);
}

TEST_F(WavesSite, ASiteIsReadFromAPathOfAnyCharacters) {
  const std::string path = folder.file("b\xC3\xB6\xF0\x9F\x98\x80.site");
  std::filesystem::copy_file(basin_file, path);
  const jlong tank = new_experiment();
  EXPECT_EQ(thrown_by_initialise(tank, path), Thrown{});
  EXPECT_EQ(string_from(NATIVE(Kelpbox_1Experiment_1context_1name), tank, proxy),
            "Basin two banks");
}

TEST_F(WavesSite, AFileThatCannotBeReadIsNamed) {
  const Thrown thrown = thrown_by_initialise(new_experiment(), folder.file("\xF0\x9F\x98\x80"));
  EXPECT_EQ(thrown,
            domain("File \"" + folder.path() + "/\xED\xA0\xBD\xED\xB8\x80\" does not exist"));
}

TEST_F(WavesSite, CallsWithoutASiteAreFailures) {
  const jlong tank = new_experiment();
  EXPECT_EQ(thrown_in(WAVES(addDefinition), tank, bytes("run")), domain("Object not built"));
  EXPECT_EQ(thrown_in(WAVES(signals), tank, 0, 0), domain("Object not built"));
  EXPECT_EQ(thrown_in(WAVES(profile), tank, params({{"delta_x", 1, "m"}})),
            domain("Uncaught Exception in Experiment profile"));
}

TEST_F(WavesSite, ADivisionOfAnIntegerByZeroIsAFailure) {
  const std::string path = folder.write("zero.site", "context {\n  base_rate = 1/(2-2);\n}\n");
  EXPECT_EQ(thrown_by_initialise(new_experiment(), path),
            domain("File \"" + path + "\" divides an integer by zero at line 2"));
}

using WavesSiteDeathTest = WavesSite;

TEST_F(WavesSiteDeathTest, TheOtherClassStillRaisesTheSignal) {
  const std::string path = folder.write("zero.site", "context { base_rate = 1/0; }\n");
  EXPECT_NE(thrown_by_initialise(new_experiment(), path), Thrown{});
  const auto divide = [&] {
    std::signal(SIGFPE, SIG_DFL);  // a sanitizer installs its own handler
    host.call(NATIVE(Kelpbox_1Experiment_1initialise), empty_experiment(), proxy, path);
  };
  EXPECT_EXIT(divide(), testing::KilledBySignal(SIGFPE), "");
}

TEST_F(WavesSite, AtLeastOneWorkerIsNeeded) {
  const jlong tank = new_experiment();
  EXPECT_EQ(thrown_in(WAVES(setWorkers), tank, 3), Thrown{});
  EXPECT_EQ(thrown_in(WAVES(setWorkers), tank, 0),
            domain("The number of workers is 0, not at least 1"));
  EXPECT_EQ(thrown_in(WAVES(setWorkers), tank, -2147483647 - 1),
            domain("The number of workers is -2147483648, not at least 1"));
}

// Output.

TEST_F(WavesSite, CollectedOutputIsNotWritten) {
  // Created while the thread collects: the site's log must not keep the stream of that time.
  waves.call(WAVES(captureOutput), JNI_TRUE);
  const jlong tank = new_experiment();
  EXPECT_EQ(thrown_by_initialise(tank, basin_file), Thrown{});
  EXPECT_EQ(output, "");
  waves.call(WAVES(captureOutput), JNI_FALSE);
  const std::string lines = std::string("Opened file  \"") + basin_file + "\" for input\n" +
                            "Leaving file \"" + basin_file + "\"\n";
  EXPECT_EQ(taken(), lines);
  EXPECT_EQ(taken(), "");
  EXPECT_EQ(thrown_by_initialise(new_experiment(), basin_file), Thrown{});
  EXPECT_EQ(output, lines);
}

TEST_F(WavesSite, FaultsOfAScriptAreCollectedToo) {
  const std::string path = folder.write("bad.site", "context { tank_nam = \"a\"; }\n");
  waves.call(WAVES(captureOutput), JNI_TRUE);
  const std::string written = Testing::printed_to_stderr([&] {
    EXPECT_EQ(thrown_by_initialise(new_experiment(), path),
              domain("Uncaught Exception in Experiment Initialise"));
  });
  waves.call(WAVES(captureOutput), JNI_FALSE);
  EXPECT_EQ(written, "");
  const std::string lines = taken();
  EXPECT_NE(lines.find("UNFOUND = tank_nam\nFailing at syntax error"), std::string::npos) << lines;
}

TEST_F(WavesSite, TheLogOfASiteWritesForTheThreadThatCalls) {
  jlong tank = 0;
  std::thread maker([&] {
    ArrayHost other;
    other.call(WAVES(captureOutput), JNI_TRUE);
    tank = other.call(WAVES(newExperiment), other.bytes("tank"));
  });
  maker.join();
  own(tank, NATIVE(delete_1Kelpbox_1Experiment));
  std::filesystem::copy_file(basin_file, folder.file("site"));
  std::string script = folder.contents("site");
  const std::string width = "max_y = 5;";
  script.replace(script.find(width), width.size(), "max_y = -6;");
  EXPECT_EQ(thrown_by_initialise(tank, folder.write("site", script)),
            domain("Caught log exception"));
  const std::string fault = "Error::Max Y -6 is less than Min Y -5\n";
  EXPECT_NE(output.find(fault), output.rfind(fault)) << output;  // also as "Exception:-"
}

// Parameters.

TEST_F(WavesSite, ParametersAreMadeOfArrays) {
  const jlong set =
      own_params(waves.call(WAVES(newParams), waves.texts({u"rate", u"dalrymple", u"\u03C3"}),
                            waves.doubles({50, 7, -1.5}), waves.texts({u"Hz", u"False", u""}),
                            waves.texts({std::nullopt, u"Bool", std::nullopt})));
  EXPECT_EQ(value(set, "rate", "Hz"), 50.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Params_1get_1enum), set, proxy, "dalrymple", "Bool"), 0);
  EXPECT_EQ(value(set, "\xCF\x83", ""), -1.5);
  // In the order of their names.
  EXPECT_EQ(texts(set), (std::vector<std::string>{"dalrymple", "False", "Bool", "rate", "Hz",
                                                  "(null)", "\xCF\x83", "", "(null)"}));
  EXPECT_EQ(numbers(waves.call(WAVES(paramValues), set)), (std::vector<double>{0, 50, -1.5}));
}

TEST_F(WavesSite, ValuesThatAreNotSetAreNaN) {
  experiment = basin();
  make_run();
  const jlong set = params();
  host.call(NATIVE(Kelpbox_1Experiment_1query_1_1SWIG_11), experiment, proxy, group, set, proxy);
  EXPECT_EQ(texts(set),
            (std::vector<std::string>{"t", "s", "(null)", "x", "m", "(null)", "y", "m", "(null)"}));
  const auto values = numbers(waves.call(WAVES(paramValues), set));
  ASSERT_EQ(values.size(), 3U);
  for (const double unset : values) EXPECT_TRUE(std::isnan(unset));
}

TEST_F(WavesSite, AnEmptySetHasEmptyArrays) {
  const jlong set = own_params(waves.call(WAVES(newParams), waves.texts({}), waves.doubles({}),
                                          waves.texts({}), waves.texts({})));
  EXPECT_TRUE(texts(set).empty());
  EXPECT_TRUE(numbers(waves.call(WAVES(paramValues), set)).empty());
  EXPECT_TRUE(ArrayHost::texts_of(waves.call(WAVES(paramComments), set)).empty());
}

TEST_F(WavesSite, RefusedParametersMakeNothing) {
  const auto made = [&](const std::vector<std::optional<std::u16string>>& names,
                        const std::vector<std::optional<std::u16string>>& units,
                        const std::vector<std::optional<std::u16string>>& types) {
    return thrown_in(WAVES(newParams), waves.texts(names), waves.doubles({1, 2}),
                     waves.texts(units), waves.texts(types));
  };
  EXPECT_EQ(made({u"a", u"a"}, {u"m", u"m"}, {{}, {}}), domain("\"a\"::Duplicate parameter:"));
  EXPECT_EQ(made({u"a", u"b"}, {u"m", u"\U0001F600"}, {{}, {}}),
            domain("Unknown units - \xED\xA0\xBD\xED\xB8\x80"));
  EXPECT_EQ(made({u"a", u"b"}, {u"m", u"Maybe"}, {{}, u"Bool"}),
            domain("Enum type::Bool::Maybe::Not found"));
  EXPECT_EQ(made({u"a", {}}, {u"m", u"m"}, {{}, {}}), domain("null string"));
  EXPECT_EQ(made({u"a", u"b"}, {u"m", {}}, {{}, {}}), domain("null string"));
  const Thrown lengths = domain("Arrays of parameters differ in length");
  EXPECT_EQ(made({u"a"}, {u"m", u"m"}, {{}, {}}), lengths);
  EXPECT_EQ(made({u"a", u"b"}, {u"m"}, {{}, {}}), lengths);
  EXPECT_EQ(made({u"a", u"b"}, {u"m", u"m"}, {{}, {}, {}}), lengths);
}

TEST_F(WavesSite, ManyParametersHoldFewReferences) {
  std::vector<std::optional<std::u16string>> names;
  for (char16_t i = 0; i < 100; ++i) names.emplace_back(std::u16string{u'p', char16_t(u'A' + i)});
  const std::vector<std::optional<std::u16string>> plain(100, u"");
  const std::vector<std::optional<std::u16string>> none(100);
  const jlong set = own_params(waves.call(WAVES(newParams), waves.texts(names),
                                          waves.doubles(std::vector<double>(100, 1)),
                                          waves.texts(plain), waves.texts(none)));
  EXPECT_EQ(texts(set).size(), 300U);  // the references are checked at the end
}

TEST_F(WavesSite, ExhaustedMemoryOfJavaStaysPending) {
  const jlong set = params({{"a", 1, "m"}});
  const Thrown array{"java/lang/OutOfMemoryError", "array"};
  const Thrown string{"java/lang/OutOfMemoryError", "string"};
  waves.objects_left = 0;
  EXPECT_EQ(thrown_in(WAVES(paramTexts), set), array);
  EXPECT_EQ(thrown_in(WAVES(version)), string);
  waves.objects_left = 2;
  EXPECT_EQ(thrown_in(WAVES(paramTexts), set), string);
}

}  // namespace
