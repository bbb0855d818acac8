// `kelpbox analyse`.
#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>
#include <numbers>
#include <string>
#include <vector>

#include "base/constants.h"
#include "cli/commands.h"
#include "cli/record_analysis.h"
#include "facade/experiment.h"
#include "maths/dispersion.h"
#include "support/output.h"
#include "support/temp_dir.h"
#include "synthetic_records.h"
#include "text_console.h"

namespace {

using Testing::SyntheticRecords;

const std::string examples = TEST_ROOT "/../examples/";

class Analyse : public testing::Test, public Testing::TextConsole {
 protected:
  Analyse() { options.site = examples + "flume.site"; }

  int analyse(const std::vector<std::string>& files) {
    out_stream.str("");
    err_stream.str("");
    options.records = files;
    int code = -1;
    printed = Testing::printed([&] { code = Cli::analyse(options, console); });
    return code;
  }
  int analyse(const std::string& contents) {
    return analyse(std::vector<std::string>{dir.write("r.csv", contents)});
  }

  // The results of the first file.
  nlohmann::json json(const std::vector<std::string>& files) {
    console.json = true;
    EXPECT_EQ(analyse(files), 0) << err() << out();
    return nlohmann::json::parse(out())["files"][0];
  }
  nlohmann::json json(const std::string& contents) {
    return json(std::vector<std::string>{dir.write("r.csv", contents)});
  }

  bool notes(const std::string& part) const { return err().find(part) != std::string::npos; }

  Testing::TempDir dir;
  Cli::AnalyseOptions options;
  std::string printed;  // by the library, to the standard output of the process
};

// Of probes at these phases of the wave, by the wave number of the library: the exact one differs
// by more than layouts allow that it cannot solve.
std::string records_at_phases(const std::vector<double>& phases) {
  SyntheticRecords records;
  const double k = Maths::knum(2.0 * Base::Pi * records.frequency, records.depth, 9.81);
  char position[40];
  std::string head = "time [s]";
  records.probes.clear();
  for (const double phase : phases) {
    records.probes.push_back(9.0 + phase / k);
    std::snprintf(position, sizeof position, ",x=%.12f m [mm]", records.probes.back());
    head += position;
  }
  return head + "\n" + records.rows();
}

// The records hold an amplitude of 40 mm, a reflection of 0.12, and free second harmonics of 3.0
// and 0.9 mm (examples/java/Beach.java). Noise of 0.2 mm leaves 0.01 mm in an element.
TEST_F(Analyse, FindsTheReflectionOfTheExample) {
  const auto found = json(std::vector<std::string>{examples + "records/reflecting_beach.csv"});
  const auto& trains = found["wave_trains"];
  EXPECT_NEAR(trains["reflection"], 0.12, 0.002);
  EXPECT_NEAR(trains["fundamental"]["forward"], 0.040, 5e-5);
  EXPECT_NEAR(trains["free_harmonic"]["forward"], 0.0030, 5e-5);
  EXPECT_NEAR(trains["free_harmonic"]["backward"], 0.0009, 5e-5);
  EXPECT_NEAR(found["zero_crossings"]["reg_t"], 1.6, 0.0016);
  EXPECT_EQ(found["notes"].size(), 0U);
  EXPECT_EQ(printed, "");
}

TEST_F(Analyse, ShowsTheResultsWithLabelsAndUnits) {
  ASSERT_EQ(analyse(std::vector<std::string>{examples + "records/reflecting_beach.csv"}), 0);
  EXPECT_NE(out().find("5 probes, 2000 samples at 50 Hz, from 0 s to 40 s\n"), std::string::npos);
  EXPECT_NE(out().find("waves by zero crossings: regular\n"), std::string::npos);
  EXPECT_NE(out().find("reflection coefficient                   0.120"), std::string::npos);
  EXPECT_EQ(err(), "");
  EXPECT_EQ(printed, "");
}

TEST_F(Analyse, SeparatesAWaveFromItsReflection) {
  const SyntheticRecords records;
  const auto found = json(records.file());
  EXPECT_NEAR(found["wave_trains"]["fundamental"]["forward"], 0.04, 1e-6);
  EXPECT_NEAR(found["wave_trains"]["reflection"], 0.3, 1e-5);
  // The library's wave number is an approximation with one Newton step, good to a few millionths.
  EXPECT_NEAR(found["wave_trains"]["wave_length"], 2.0 * std::numbers::pi / records.k(), 2e-5);
  EXPECT_DOUBLE_EQ(found["wave_trains"]["frequency"], 0.5);
  const auto& heights = found["zero_crossings"]["heights"];
  ASSERT_EQ(heights.size(), 3U);
  for (std::size_t p = 0; p < 3; ++p) {
    // Crest and trough are the nearest of 40 samples per wave: 1 - cos(pi/40) is 0.3 %.
    EXPECT_NEAR(heights[p], 2.0 * records.local_amplitude(records.probes[p]), 0.0003) << p;
  }
}

TEST_F(Analyse, RemovesTheMeanOfTheWindow) {
  SyntheticRecords records;
  const auto without = json(records.file());
  records.offset = 0.2;  // more than the amplitude: no zero crossing is left
  const auto with = json(records.file());
  EXPECT_NEAR(with["probes"][0]["removed_mean"], 0.2, 1e-6);
  EXPECT_NEAR(with["zero_crossings"]["reg_t"], without["zero_crossings"]["reg_t"], 1e-4);
  EXPECT_NEAR(with["wave_trains"]["reflection"], 0.3, 1e-5);
}

TEST_F(Analyse, SaysThatThreeProbesGiveNoHarmonics) {
  EXPECT_EQ(analyse(SyntheticRecords().file()), 0);
  EXPECT_TRUE(notes("no harmonics: they need at least four probes"));
  EXPECT_EQ(out().find("harmonic"), std::string::npos);
}

TEST_F(Analyse, NeedsThreePlacedProbesForWaveTrains) {
  SyntheticRecords records;
  records.probes = {9.0, 9.6};
  EXPECT_EQ(analyse(records.file()), 0);
  EXPECT_TRUE(notes("they need at least three probes"));
  EXPECT_EQ(analyse("time [s],a [mm],b [mm],c [mm]\n" + SyntheticRecords().rows()), 0);
  EXPECT_TRUE(notes("they need the position of each probe"));
  EXPECT_EQ(out().find("reflection"), std::string::npos);
}

// 40 s hold 20 waves of 2 s, 41 s hold 20.5, the worst case: sinc(1/2) is 0.637.
TEST_F(Analyse, WarnsOfAWindowThatIsNoWholeNumberOfPeriods) {
  SyntheticRecords records;
  records.duration = 41.0;
  EXPECT_EQ(analyse(records.file()), 0);
  EXPECT_TRUE(
      notes("the window holds 20.50 periods, not a whole number, so amplitudes are about "
            "36 % too low; --stop \"40 s\" holds 20"))
      << err();
  options.stop = "40 s";
  EXPECT_EQ(analyse(records.file()), 0);
  EXPECT_FALSE(notes("periods")) << err();
}

TEST_F(Analyse, WarnsOfSpacingsNearHalfAWaveLength) {
  SyntheticRecords records;
  const double half = std::numbers::pi / records.k();
  records.probes = {9.0, 9.0 + 1.02 * half, 9.0 + 1.96 * half};
  EXPECT_EQ(analyse(records.file()), 0);
  // Least squares amplify noise 1 / sqrt(1 - |S|^2) times, where S is the mean of exp(2 i k x).
  // Turns of 0, 1.02 and 1.96 give 6.4 times.
  char spacing[20];
  std::snprintf(spacing, sizeof spacing, "%.3g", half);
  EXPECT_TRUE(notes("the probes stand near whole multiples of half a wave length, " +
                    std::string(spacing) +
                    " m, apart, or close together: noise in forward and backward is amplified "
                    "6.4 times"))
      << err();
}

// Such a layout cannot be built, but it can be typed.
TEST_F(Analyse, RefusesALayoutThatTheLibraryCannotSolve) {
  constexpr double third = std::numbers::pi / 3.0;
  EXPECT_EQ(analyse(records_at_phases({0.0, third, 2.0 * third})), 0);
  EXPECT_TRUE(notes("the library cannot solve this layout")) << err();
  EXPECT_EQ(out().find("reflection"), std::string::npos);
}

TEST_F(Analyse, SaysThatProbesStandTooCloseTogether) {
  SyntheticRecords records;
  records.probes = {9.0, 9.01, 9.02};
  EXPECT_EQ(analyse(records.file()), 0);
  EXPECT_TRUE(notes("no wave trains: the probes stand too close together for waves of 0.5 Hz"));
}

// Two waves of 0.5 and 0.65 Hz beat, so their periods vary by far more than 1 per cent.
std::string beat() {
  std::string text = "time [s],a [mm]\n";
  for (int j = 0; j < 2000; ++j) {
    const double t = 0.05 * j;
    const double surface =
        30.0 * std::sin(std::numbers::pi * t) + 25.0 * std::sin(1.3 * std::numbers::pi * t + 1.0);
    text += std::to_string(t) + "," + std::to_string(surface) + "\n";
  }
  return text;
}

TEST_F(Analyse, LabelsTheSignificantWaveOfIrregularRecords) {
  EXPECT_EQ(analyse(beat()), 0);
  EXPECT_NE(out().find("waves by zero crossings: irregular"), std::string::npos);
  EXPECT_NE(out().find("of the same wave; not H1/3"), std::string::npos);
  // 4 sqrt((30^2 + 25^2) / 2) mm. 100 s hold whole periods of both waves.
  EXPECT_NE(out().find("4 standard deviations (Hm0)          110.45 mm"), std::string::npos)
      << out();
}

TEST_F(Analyse, JsonHasTheSignificantWaveOfIrregularRecords) {
  const auto found = json(beat());
  const auto& crossings = found["zero_crossings"];
  EXPECT_EQ(crossings["regular"], false);
  // Between the periods of the two waves, and not above the crest where they meet.
  EXPECT_GT(crossings["sig_t"], 1.0 / 0.65);
  EXPECT_LT(crossings["sig_t"], 1.0 / 0.5);
  EXPECT_GT(crossings["sig_h"], 2.0 * 0.005);
  EXPECT_LT(crossings["sig_h"], 2.0 * 0.055);
}

// The library refuses two values of one name. A script cannot have them.
TEST_F(Analyse, NotesWhyTheLibraryFindsNoWaves) {
  const Cli::ProbeRecords records =
      Cli::read_probe_records(dir.write("r.csv", SyntheticRecords().file()), {});
  Kelpbox::Experiment site;
  Cli::RecordAnalysis found;
  Testing::printed([&] {
    site.initialise(options.site);
    site.tank().param[1].name = site.tank().param[0].name;
    found = Cli::analyse_records(records, 0.0, site);
  });
  EXPECT_FALSE(found.crossings);
  ASSERT_FALSE(found.notes.empty());
  EXPECT_EQ(found.notes.front(),
            "no waves by zero crossings: \"still_water_correction\"::Duplicate parameter:");
}

TEST_F(Analyse, CutsTheWindowInTheTimesOfTheFile) {
  SyntheticRecords records;
  records.first_time = 100.0;
  options.start = "0.17 min";
  EXPECT_EQ(analyse(records.file()), 2);
  EXPECT_TRUE(notes("--start \"0.17 min\" is outside the record, which lasts from 100 s to 140 s"));
  options.start = "110 s";
  options.stop = "130 s";
  const auto found = json(records.file());
  EXPECT_EQ(found["samples"], 400);
  EXPECT_DOUBLE_EQ(found["start"], 110.0);
  EXPECT_NEAR(found["wave_trains"]["reflection"], 0.3, 1e-5);
}

TEST_F(Analyse, ProjectsPositionsOntoTheAngle) {
  SyntheticRecords records;
  // Along 90 degrees the probes' x would all be the same.
  options.angle = "90 deg";
  options.site = examples + "basin.site";
  records.depth = 2.0;
  options.probes = {"x=5 m,y=9 m", "x=5 m,y=9.6 m", "x=5 m,y=10.3 m"};
  const auto found = json(records.file());
  // A degree is 0.0174533 rad, so 90 degrees are 1e-6 rad too many: 5e-6 m at x = 5 m.
  EXPECT_NEAR(found["wave_trains"]["reflection"], 0.3, 1e-4);
  EXPECT_EQ(found["probes"][1]["y"], 9.6);
}

TEST_F(Analyse, RefusesAProbeOutsideTheTank) {
  options.probes = {"x=5 m", "x=6 m", "x=700 m"};
  EXPECT_EQ(analyse(SyntheticRecords().file()), 2);
  EXPECT_TRUE(notes("c at x = 700 m, y = 0 m is outside the tank")) << err();
  options.probes.back() = "x=-1 m";
  EXPECT_EQ(analyse(SyntheticRecords().file()), 2);
  EXPECT_TRUE(notes("c at x = -1 m, y = 0 m is outside the tank")) << err();
  options.probes.back() = "x=7 m,y=50 m";
  EXPECT_EQ(analyse(SyntheticRecords().file()), 2);
  EXPECT_TRUE(notes("c at x = 7 m, y = 50 m is outside the tank")) << err();
  options.probes.back() = "x=7 m,y=-50 m";
  EXPECT_EQ(analyse(SyntheticRecords().file()), 2);
  EXPECT_TRUE(notes("c at x = 7 m, y = -50 m is outside the tank")) << err();
}

TEST_F(Analyse, SaysHowManySamplesAreNeeded) {
  EXPECT_EQ(analyse("time [s],a [mm]\n0,1\n0.1,2\n0.2,3\n0.3,1\n"), 2);
  EXPECT_TRUE(notes("r.csv: 4 samples are too few, at least 16 are needed")) << err();
  options.rate = "1 Hz";
  EXPECT_EQ(analyse("a [mm]\n0\n1\n"), 2);
}

TEST_F(Analyse, NeedsAnAngleWithUnits) {
  options.angle = "30";
  EXPECT_EQ(analyse(SyntheticRecords().file()), 2);
  EXPECT_EQ(err(), "error: --angle \"30\": needs units, such as \"30 deg\"\n");
}

TEST_F(Analyse, FailsIfItFindsNothing) {
  SyntheticRecords records;
  records.probes = {9.0};
  records.duration = 3.0;
  EXPECT_EQ(analyse(records.file()), 2);
  EXPECT_TRUE(notes("no waves by zero crossings: each probe needs at least six waves")) << err();
  records = {.duration = 10.0};
  EXPECT_EQ(analyse(records.file()), 0);
}

// Between probes lie whole multiples of half a wave length of the bound harmonic, so that both of
// its directions look the same.
TEST_F(Analyse, SaysThatALayoutDoesNotTellHarmonicsApart) {
  constexpr double quarter = std::numbers::pi / 2.0;
  EXPECT_EQ(analyse(records_at_phases({0.0, quarter, 2.0 * quarter, 4.0 * quarter})), 0);
  EXPECT_TRUE(notes("no harmonics: the layout does not tell them apart")) << err();
}

TEST_F(Analyse, TabulatesSeveralFiles) {
  SyntheticRecords records;
  const std::string first = dir.write("first.csv", records.file());
  records.reflection = 0.15;
  const std::string second = dir.write("second.csv", records.file());
  EXPECT_EQ(analyse(std::vector<std::string>{first, second}), 0);
  EXPECT_NE(out().find("0.300\n" + second), std::string::npos) << out();
  EXPECT_NE(out().find("0.150\n"), std::string::npos);
}

TEST_F(Analyse, GoesOnAfterABadFile) {
  const std::string good = dir.write("good.csv", SyntheticRecords().file());
  EXPECT_EQ(analyse(std::vector<std::string>{dir.file("missing.csv"), good}), 2);
  EXPECT_TRUE(notes("error: " + dir.file("missing.csv") + " does not exist\n"));
  EXPECT_NE(out().find("0.300\n"), std::string::npos);
}

TEST_F(Analyse, HasOneDocumentForABadFile) {
  const std::string good = dir.write("good.csv", SyntheticRecords().file());
  console.json = true;
  EXPECT_EQ(analyse(std::vector<std::string>{good, dir.file("missing.csv")}), 2);
  EXPECT_EQ(nlohmann::json::parse(out())["error"]["message"],
            dir.file("missing.csv") + " does not exist");
  console.json = false;
  EXPECT_EQ(analyse(std::vector<std::string>{dir.file("a.csv"), dir.file("b.csv")}), 2);
  EXPECT_EQ(out(), "");
}

TEST_F(Analyse, ReportsABadSiteWithItsPlace) {
  options.site = dir.write("bad.site", "context { tank_nam = \"x\"; }\n");
  EXPECT_EQ(analyse(SyntheticRecords().file()), 2);
  EXPECT_TRUE(notes("bad.site:1:")) << err();
  EXPECT_EQ(printed, "");
}

}  // namespace
