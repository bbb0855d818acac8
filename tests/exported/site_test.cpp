// The operations on the site.
#include <cmath>
#include <fstream>
#include <sstream>

#include "fixture.h"
#include "support/checksum.h"
#include "support/output.h"
#include "support/temp_dir.h"

namespace {

using Testing::HostTest;
using Testing::printed;
using Testing::printed_to_stderr;

std::string basin_script() {
  std::ifstream in(TEST_ROOT "/exported/data/basin.txt");
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  const auto at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  return text.replace(at, from.size(), to);
}

class Site : public HostTest {
 protected:
  // Also keeps what is written to the standard output and to the standard error.
  Thrown thrown_by_initialise(jlong experiment, const std::string& file) {
    Thrown thrown;
    report = printed_to_stderr([&] {
      output = printed([&] {
        thrown = thrown_by(NATIVE(Kelpbox_1Experiment_1initialise), experiment, proxy, file);
      });
    });
    return thrown;
  }
  std::string output;
  std::string report;
  const Testing::TempDir dir;
};

TEST_F(Site, TheNameIsThatOfTheTankAndTheConfiguration) {
  EXPECT_EQ(string_from(NATIVE(Kelpbox_1Experiment_1context_1name), basin(), proxy),
            "Basin two banks");
}

TEST_F(Site, AnExperimentMayHaveAName) {
  const jlong made = own(host.call(NATIVE(new_1Kelpbox_1Experiment_1_1SWIG_11), "monday"),
                         NATIVE(delete_1Kelpbox_1Experiment));
  initialise(made, TEST_ROOT "/exported/data/basin.txt");
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Experiment_1paddle_1banks), made, proxy), 2);
}

// The fixed fields of the tree in order, each as "key = value" and each object after the name of
// its class. The values of the tunable parameters are not among them.
const char* const checked_text =
    "Context"
    R"(site_name = "Hall")"
    R"(tank_name = "Basin")"
    R"(config_name = "two banks")"
    "Tank"
    "geometry = NoSides"
    "units = m"
    "max_y = 5"
    "min_y = -5"
    "Section"
    "x = 0"
    "offset = Absolute"
    R"(depth = "1")"
    "Section"
    "x = 20"
    "offset = Absolute"
    R"(depth = "0.5")"
    "Section"
    "x = 30"
    "offset = Absolute"
    R"(depth = "NULL")"
    "reference_x = 0"
    "delta_depth = 0.01"
    "delta_x = 0.5"
    "Param"
    R"(name = "beach")"
    "max = 1"
    "min = 0"
    "error = 0.01"
    R"(units = "m")"
    "Param"
    R"(name = "delay")"
    "max = 50"
    "min = 10"
    "error = 0.01"
    R"(units = "msec")"
    "Limits"
    "Limit"
    R"(units = "Hz")"
    "maximum = 2"
    "minimum = 0.1"
    "Limit"
    R"(units = "deg")"
    "maximum = 80"
    "minimum = -80"
    "Paddles"
    R"(name = "west")"
    "Paddle"
    "x = 0"
    "y = -0.25"
    "angle = 0"
    "Paddle"
    "x = 0"
    "y = 0.75"
    "angle = 0"
    "Piston"
    "paddle_width = 0.5"
    "critical_dimension = 0"
    "dimension_type = ToBottom"
    "PaddleMotion"
    "clip_limit = 300"
    "maximum = 400"
    "minimum = -350"
    R"(units = "mm")"
    "PaddleConst"
    R"(name = "gain")"
    R"(units = "V")"
    "value = 2.5"
    "Paddles"
    R"(name = "south")"
    "Paddle"
    "x = 3"
    "y = -5"
    "angle = 1.5"
    "Flap"
    "paddle_width = 0.5"
    "critical_dimension = 0.25"
    "dimension_type = ToBottom"
    "PaddleMotion"
    "clip_limit = 15"
    "maximum = 20"
    "minimum = -18"
    R"(units = "deg")"
    "rate_units = Hz"
    "base_rate = 100"
    "base_g = 9.81"
    "base_rho = 1000";

TEST_F(Site, TheIdentityEndsInTheChecksumOfTheFixedFields) {
  std::ostringstream expected;
  expected << "Hall::Basin::two banks#0x" << std::hex << Testing::checksum_of(checked_text);
  const jlong experiment = basin();
  const auto identity = NATIVE(Kelpbox_1Experiment_1context_1string);
  EXPECT_EQ(string_from(identity, experiment, proxy), expected.str());

  const jlong tuned = params({{"beach", 0.5, "m"}, {"delay", 30, "msec"}});
  host.call(NATIVE(Kelpbox_1Experiment_1set), experiment, proxy, tuned, proxy);
  EXPECT_EQ(string_from(identity, experiment, proxy), expected.str());
}

TEST_F(Site, TheConstantsComeFromTheScript) {
  const jlong set = params();
  host.call(NATIVE(Kelpbox_1Experiment_1get_1consts), basin(), proxy, set, proxy);
  EXPECT_EQ(names(set),
            (std::vector<std::string>{"base_g", "base_rate", "geometry", "max_angle", "max_beach",
                                      "max_delay", "max_freq", "max_x", "max_y", "min_angle",
                                      "min_beach", "min_delay", "min_freq", "min_x", "min_y"}));
  EXPECT_EQ(value(set, "base_rate", "Hz"), 100.0);
  EXPECT_EQ(value(set, "base_g", "m/s2"), 9.81);
  EXPECT_EQ(value(set, "max_x", "m"), 30.0);
  EXPECT_EQ(value(set, "min_y", "m"), -5.0);
  EXPECT_NEAR(value(set, "max_angle", "rad"), 80 * std::acos(-1.0) / 180, 1e-12);
  EXPECT_EQ(value(set, "max_delay", "msec"), 50.0);
  EXPECT_EQ(host.call(NATIVE(Kelpbox_1Params_1get_1enum), set, proxy, "geometry", "Geometry"), 0);
}

TEST_F(Site, DuplicateConstantsAreRefused) {
  const jlong set = params({{"min_x", 0, "m"}});
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1get_1consts), basin(), proxy, set, proxy),
            domain("\"min_x\"::Duplicate parameter:"));
}

TEST_F(Site, TunableValuesAreQueriedAndSet) {
  const jlong experiment = basin();
  const jlong before = params();
  host.call(NATIVE(Kelpbox_1Experiment_1query), experiment, proxy, before, proxy);
  EXPECT_EQ(names(before), (std::vector<std::string>{"beach", "delay"}));
  EXPECT_EQ(value(before, "beach", "m"), 0.25);
  EXPECT_EQ(value(before, "delay", "msec"), 20.0);

  const jlong wanted = params({{"beach", 50, "cm"}, {"delay", 0.03, "s"}});
  host.call(NATIVE(Kelpbox_1Experiment_1set), experiment, proxy, wanted, proxy);
  const jlong after = params();
  host.call(NATIVE(Kelpbox_1Experiment_1query_1_1SWIG_10), experiment, proxy, after, proxy);
  EXPECT_DOUBLE_EQ(value(after, "beach", "m"), 0.5);
  EXPECT_DOUBLE_EQ(value(after, "delay", "msec"), 30.0);
}

TEST_F(Site, SetMakesTheTankReadyEachTime) {
  const jlong experiment = basin();
  for (int i = 0; i < 3; ++i) {
    const jlong wanted = params({{"beach", 0.1 * i, "m"}, {"delay", 30, "msec"}});
    host.call(NATIVE(Kelpbox_1Experiment_1set), experiment, proxy, wanted, proxy);
    const jlong step = params({{"delta_x", 10, "m"}});
    own(host.call(NATIVE(Kelpbox_1Experiment_1profile), experiment, proxy, step, proxy),
        NATIVE(delete_1Kelpbox_1StdVectorDouble));
  }
}

TEST_F(Site, AMissingTunableValueIsNamed) {
  const jlong wanted = params({{"beach", 0.5, "m"}});
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1set), basin(), proxy, wanted, proxy),
            domain("delay::Not found"));
}

TEST_F(Site, RefusedValuesLeaveTheTankReady) {
  const jlong experiment = basin();
  const jlong wanted = params({{"beach", 0.5, "m"}, {"delay", 3, "m"}});
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1set), experiment, proxy, wanted, proxy),
            domain("Unable to convert from \"m\" to \"ms\""));
  const jlong step = params({{"delta_x", 30, "m"}});
  const jlong depths =
      own(host.call(NATIVE(Kelpbox_1Experiment_1profile), experiment, proxy, step, proxy),
          NATIVE(delete_1Kelpbox_1StdVectorDouble));
  ASSERT_NE(depths, 0);
  EXPECT_EQ(values_of(depths), (std::vector<double>{1, 0.5}));
}

TEST_F(Site, TheProfileSamplesTheDepthsAlongTheTank) {
  const jlong experiment = basin();
  const jlong step = params({{"delta_x", 500, "cm"}});
  const jlong depths =
      own(host.call(NATIVE(Kelpbox_1Experiment_1profile), experiment, proxy, step, proxy),
          NATIVE(delete_1Kelpbox_1StdVectorDouble));
  // At the step in the bottom the section before it counts.
  EXPECT_EQ(values_of(depths), (std::vector<double>{1, 1, 1, 1, 1, 0.5, 0.5}));

  const jlong coarse = params({{"delta_x", 30, "m"}});
  own(host.call(NATIVE(Kelpbox_1Experiment_1profile), experiment, proxy, coarse, proxy),
      NATIVE(delete_1Kelpbox_1StdVectorDouble));
  EXPECT_EQ(values_of(depths).size(), 7u);
}

TEST_F(Site, AProfileNeedsAStepThatIsALength) {
  const jlong experiment = basin();
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1profile), experiment, proxy, params(), proxy),
            domain("delta_x::Not found"));
  const jlong wrong = params({{"delta_x", 5, "s"}});
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1profile), experiment, proxy, wrong, proxy),
            domain("delta_x::not convertable"));
}

// After its `set`, an analysis on the same object makes the tank only with its next process.
TEST_F(Site, AProfileWithoutATankThrowsTheFixedMessage) {
  const jlong experiment = basin();
  const jlong values = params({{"beach", 0.5, "m"}, {"delay", 30, "msec"}});
  host.call(NATIVE(Kelpbox_1Analysis_1set), experiment, proxy, values, proxy);
  const jlong step = params({{"delta_x", 5, "m"}});
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1profile), experiment, proxy, step, proxy),
            domain("Uncaught Exception in Experiment profile"));
}

TEST_F(Site, AMissingScriptIsNamed) {
  const jlong experiment = empty_experiment();
  EXPECT_EQ(thrown_by_initialise(experiment, "/nowhere/no.site"),
            domain("File \"/nowhere/no.site\" does not exist"));
  EXPECT_EQ(text_leaving(NATIVE(Kelpbox_1Experiment_1context_1name), experiment, proxy),
            "Object not built");
}

TEST_F(Site, AnUnsetKeyIsReportedOnStandardError) {
  const std::string file = dir.write("site", replaced(basin_script(), "base_rho = 1000;", ""));
  const jlong experiment = empty_experiment();
  EXPECT_EQ(thrown_by_initialise(experiment, file), domain(file + "::Failed to verify"));
  EXPECT_NE(report.find("base_rho"), std::string::npos);
  EXPECT_EQ(output.find("base_rho"), std::string::npos);
  // A partly read tree is not a site.
  EXPECT_EQ(text_leaving(NATIVE(Kelpbox_1Experiment_1paddle_1banks), experiment, proxy),
            "Object not built");
}

TEST_F(Site, ASyntaxErrorThrowsTheFixedMessage) {
  const std::string file = dir.write("site", "context { site_name = ; }");
  EXPECT_EQ(thrown_by_initialise(empty_experiment(), file),
            domain("Uncaught Exception in Experiment Initialise"));
}

TEST_F(Site, AFailedCheckOfTheSiteIsLoggedOnStandardOutput) {
  const std::string file = dir.write("site", replaced(basin_script(), "max_y = 5;", "max_y = -6;"));
  EXPECT_EQ(thrown_by_initialise(empty_experiment(), file), domain("Caught log exception"));
  EXPECT_NE(output.find("Error::Max Y -6 is less than Min Y -5\n"), std::string::npos) << output;
}

TEST_F(Site, ATankThatCannotBeMadeIsReportedAtEachTry) {
  const std::string file = dir.write(
      "site", replaced(replaced(basin_script(), "depth = \"0.5\"", "depth = \"1-$[m]/60\""),
                       "max_y = 5;", "max_y = 5; delta_depth = 0;"));
  const Thrown no_step = domain("Tank::delta_depth is not a positive number");
  const jlong site = empty_experiment();
  EXPECT_EQ(thrown_by_initialise(site, file), no_step);
  // The site has been read nevertheless.
  const jlong values = params();
  host.call(NATIVE(Kelpbox_1Analysis_1query), site, proxy, values, proxy);
  EXPECT_EQ(value(values, "beach", "m"), 0.25);

  const jlong set =
      host.call(NATIVE(Kelpbox_1Analysis_1create_1set), site, proxy,
                params({{"start_time", 0, "s"}, {"stop_time", 1, "s"}}), proxy, uints({}), proxy);
  // Without and with new values: both times there is no tank to begin with.
  for (const bool anew : {false, true}) {
    if (anew) host.call(NATIVE(Kelpbox_1Analysis_1set), site, proxy, values, proxy);
    EXPECT_EQ(printed([&] {
                EXPECT_EQ(
                    thrown_by(NATIVE(Kelpbox_1Analysis_1create_1process), site, proxy, set, 0),
                    no_step);
              }),
              "AA\nAB\nAC\n");
  }
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Experiment_1set), site, proxy, values, proxy), no_step);
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Analysis_1profile), site, proxy,
                      params({{"delta_x", 1, "m"}}), proxy),
            domain("Uncaught Exception in Experiment profile"));
}

TEST_F(Site, ReadingReportsItsProgressOnStandardOutput) {
  const jlong experiment = empty_experiment();
  EXPECT_EQ(printed([&] {
              host.call(NATIVE(Kelpbox_1Experiment_1initialise), experiment, proxy,
                        TEST_ROOT "/exported/data/basin.txt");
            }),
            "Opened file  \"" TEST_ROOT
            "/exported/data/basin.txt\" for input\n"
            "Leaving file \"" TEST_ROOT "/exported/data/basin.txt\"\n");
}

TEST_F(Site, ASecondInitialiseThrowsTheFixedMessageAndKeepsTheSite) {
  const jlong experiment = basin();
  EXPECT_EQ(thrown_by_initialise(experiment, TEST_ROOT "/exported/data/basin.txt"),
            domain("Uncaught Exception in Experiment Initialise"));
  EXPECT_EQ(string_from(NATIVE(Kelpbox_1Experiment_1context_1name), experiment, proxy),
            "Basin two banks");
}

TEST_F(Site, DeletingNullDoesNothing) { host.call(NATIVE(delete_1Kelpbox_1Experiment), 0); }

}  // namespace
