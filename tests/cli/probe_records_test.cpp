// Reading probe records: heads, comments, options, and what is wrong with them.
#include "cli/probe_records.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "cli/probe_place.h"
#include "support/temp_dir.h"
#include "support/thrown.h"
#include "synthetic_records.h"

namespace {

using Testing::SyntheticRecords;

class ReadProbeRecords : public testing::Test {
 protected:
  Cli::ProbeRecords read(const std::string& contents) {
    return Cli::read_probe_records(dir.write("r.csv", contents), options);
  }
  // The message without the folder.
  std::string fault(const std::string& contents) {
    try {
      read(contents);
    } catch (std::string message) {
      const std::string folder = dir.path() + "/";
      for (auto at = message.find(folder); at != message.npos; at = message.find(folder)) {
        message.erase(at, folder.size());
      }
      return message;
    }
    return "";
  }
  // Head and rows of two probes.
  std::string two(const std::string& head) {
    SyntheticRecords records;
    records.probes = {9.0, 9.6};
    return head + "\n" + records.rows();
  }

  Testing::TempDir dir;
  Cli::AnalyseOptions options;
};

TEST_F(ReadProbeRecords, TakesPositionsAndUnitsFromTheHead) {
  const auto found = read(two("time [s],WG1 x=9.30 m y=40 cm [mm],x = 960 mm (m)"));
  ASSERT_EQ(found.probes.size(), 2U);
  EXPECT_EQ(found.probes[0].name, "WG1");
  EXPECT_DOUBLE_EQ(found.probes[0].x, 9.3);
  EXPECT_DOUBLE_EQ(found.probes[0].y, 0.4);
  EXPECT_EQ(found.probes[1].name, "x = 0.96 m");
  EXPECT_DOUBLE_EQ(found.probes[1].x, 0.96);
  EXPECT_TRUE(found.placed());
  EXPECT_DOUBLE_EQ(found.rate, 20.0);
  // The first is in mm, the second says metres.
  const SyntheticRecords records;
  EXPECT_NEAR(found.probes[0].samples[7] + found.probes[0].mean, records.elevation(9.0, 0.35),
              1e-8);
  EXPECT_NEAR(found.probes[1].samples[7] + found.probes[1].mean,
              1000.0 * records.elevation(9.6, 0.35), 1e-5);
}

TEST_F(ReadProbeRecords, TakesPositionsAndUnitsFromComments) {
  const auto found = read("# Elevation in mm. Probes stand in front of the beach.\n" +
                          two("# The distance from the paddle in cm\ntime_s,900,960"));
  EXPECT_DOUBLE_EQ(found.probes[0].x, 9.0);
  EXPECT_DOUBLE_EQ(found.probes[1].x, 9.6);
  EXPECT_NEAR(found.probes[0].samples[0] + found.probes[0].mean,
              SyntheticRecords().elevation(9.0, 0.0), 1e-8);
}

TEST_F(ReadProbeRecords, TakesPlainWholeNumbersForNumbersOfProbes) {
  options.units = "mm";
  const auto found = read(two("time,1,2"));
  EXPECT_FALSE(found.placed());
  EXPECT_EQ(found.probes[0].name, "probe 1");
  EXPECT_DOUBLE_EQ(read(two("time,9.00,9.60")).probes[1].x, 9.6);
}

TEST_F(ReadProbeRecords, TakesWhatAFileLacksFromOptions) {
  options.units = "mm";
  options.rate = "20 Hz";
  options.probes = {"x=9 m,y=0.4 m", "WG2 x=960 cm"};
  SyntheticRecords records;
  records.probes = {9.0, 9.6};
  const auto found = read(records.rows(false));
  EXPECT_DOUBLE_EQ(found.rate, 20.0);
  EXPECT_DOUBLE_EQ(found.probes[0].y, 0.4);
  EXPECT_DOUBLE_EQ(found.probes[1].x, 9.6);
  EXPECT_EQ(found.probes[1].name, "WG2");
}

TEST_F(ReadProbeRecords, ReadsOnlyTheChosenColumns) {
  options.columns = {"b"};
  const auto found = read(two("time [s],a [V],b [mm]"));
  ASSERT_EQ(found.probes.size(), 1U);
  EXPECT_EQ(found.probes[0].name, "b");
}

// The samples are 50 ms apart: half of that is 25 ms.
TEST_F(ReadProbeRecords, BeginsWithTheNearestSample) {
  const std::string text = two("time [s],a [mm],b [mm]");
  options.stop = "20 s";
  options.start = "10.0248 s";
  EXPECT_DOUBLE_EQ(read(text).start, 10.0);
  EXPECT_EQ(read(text).samples(), 200U);
  options.start = "10.0252 s";
  EXPECT_DOUBLE_EQ(read(text).start, 10.05);
  EXPECT_EQ(read(text).samples(), 199U);
}

TEST_F(ReadProbeRecords, RefusesWhatItCannotUse) {
  const std::pair<std::string, std::string> cases[] = {
      {two("time [s],a,b"),
       "r.csv: column a has no units; write them in its head, as in \"probe 1 [mm]\", or give "
       "--units mm"},
      {two("time [s],a [mm],b [V]"),
       "r.csv: column b [V] is a voltage, not a length; choose the probes with --column"},
      {two("time [s],a [mm],b [metres]"),
       "r.csv: column b [metres] has unknown units \"metres\"; a unit with a similar name is "
       "\"m\""},
      {two("n,a [mm],b [mm]"),
       "r.csv: there is no column of times; call it \"time [s]\", or give the rate, as in --rate "
       "\"50 Hz\""},
      {two("time [ticks],a [mm],b [mm]"), "r.csv: column time [ticks] has unknown units \"ticks\""},
      {two("time [mm],a [mm],b [mm]"), "r.csv: column time [mm] is a length, not a time"},
      {two("time [s],x=9 s [mm],b [mm]"),
       "r.csv: the position of probe 1: \"9 s\" is a time, not a length"},
      {two("time [s],x=far [mm],b [mm]"),
       "r.csv: the position of probe 1: \"far\" is not a number"},
      {"time [s],a [mm]\n0,1\n0.1,2\n0.2,3\n0.4,4\n",
       "r.csv:5: the times are not evenly spaced; if they are only rounded, give the rate, as in "
       "--rate \"50 Hz\""},
      {"time [s],a [mm]\n0.2,1\n0.1,2\n0,3\n", "r.csv: the times do not increase"},
      {"time [s],a [mm]\n0.3,1\n", "r.csv: there is only one time"},
      {"time [s],a [mm]\n0,1\n0.1,1\n0.2,1\n", "r.csv: the record of a is constant"},
      {"time [s]\n0\n0.1\n", "r.csv: there is no column besides the time"},
      {"time [s],a [mm]\n0,1\n0.1,x\n", "r.csv:3: \"x\" is not a number"},
      {"", "r.csv: there are no numbers"},
  };
  for (const auto& [contents, message] : cases) EXPECT_EQ(fault(contents), message) << contents;
}

TEST_F(ReadProbeRecords, RefusesOptionsThatDoNotFit) {
  const std::string good = two("time [s],a [mm],b [mm]");
  options.probes = {"x=9 m"};
  EXPECT_EQ(fault(good), "r.csv: --probe gives 1 position, but there are 2 probes");
  options.probes = {"y=9 m", "x=1 m"};
  EXPECT_EQ(fault(good), "r.csv: the position of probe 1: x is missing, as in \"x=9 m,y=0 m\"");
  options.probes.clear();
  options.columns = {"c"};
  EXPECT_EQ(fault(good),
            "r.csv: there is no column \"c\": there are \"time [s]\", \"a [mm]\", \"b [mm]\"");
  options.columns = {"1"};
  EXPECT_EQ(fault(good), "r.csv: column \"1\" holds the times; choose the columns of the probes");
  options.columns.clear();
  options.start = "20";
  EXPECT_EQ(fault(good), "--start \"20\": needs units, such as \"20 s\"");
  options.start.clear();
  options.rate = "0 Hz";
  EXPECT_EQ(fault(good), "--rate \"0 Hz\" is not above 0");
  options.rate = "5 m";
  EXPECT_EQ(fault(good), "--rate \"5 m\": Unable to convert from \"m\" to \"Hz\"");
  options.rate.clear();
  options.stop = "41 s";
  EXPECT_EQ(fault(good),
            "r.csv: --stop \"41 s\" is outside the record, which lasts from 0 s to 40 s");
  options.start = "30 s";
  options.stop = "20 s";
  EXPECT_EQ(fault(good), "r.csv: there is no sample between --start and --stop");
}

TEST_F(ReadProbeRecords, RefusesNumbersThatItCannotComputeWith) {
  const std::string times =
      "r.csv: the times or the rate are too large or too small to compute with";
  // The rate is 1e-308 Hz, or above the largest double, and 1e308 h has too many seconds.
  EXPECT_EQ(fault("t,a [mm]\n0,1\n1e308,2\n"), times);
  EXPECT_EQ(fault("t,a [mm]\n0,1\n5e-324,2\n"), times);
  options.rate = "1 Hz";
  EXPECT_EQ(fault("t [h],a [mm]\n1e308,1\n2,2\n"), times);
  options.rate = "1e308 kHz";
  EXPECT_EQ(fault("a [mm]\n1\n2\n"), times);
  options.rate = "1 Hz";
  EXPECT_EQ(fault("a [km]\n1e308\n-1e308\n"),
            "r.csv: the record of a is too large to compute with");
  EXPECT_EQ(fault("a [m]\n1e200\n-1e200\n"), "r.csv: the record of a is too large to compute with");
}

TEST_F(ReadProbeRecords, FindsNoSampleWhereTheClockIsCoarserThanTheRate) {
  // Doubles near 1e300 are 1.5e284 apart, so the record begins and ends at the same time.
  options.rate = "1 Hz";
  EXPECT_EQ(fault("t,a [mm]\n1e300,1\n1e300,2\n"),
            "r.csv: there is no sample between --start and --stop");
}

TEST_F(ReadProbeRecords, KnowsTimesByAnyOfTheirNames) {
  for (const char* name : {"t", "T", "time", "Time", "TIME"}) {
    EXPECT_EQ(read(two(name + std::string(",a [mm],b [mm]"))).rate, 20.0) << name;
  }
}

TEST_F(ReadProbeRecords, RefusesTimesThatStandStill) {
  EXPECT_EQ(fault("time [s],a [mm]\n1,1\n1,2\n"), "r.csv: the times do not increase");
}

TEST_F(ReadProbeRecords, NumbersProbesWithoutAHead) {
  options.rate = "1 Hz";
  EXPECT_EQ(fault("1\n3\n").find("r.csv: column 1 has no units"), 0U);
  options.units = "mm";
  EXPECT_EQ(read("1\n3\n").probes[0].name, "probe 1");
}

TEST_F(ReadProbeRecords, CountsTheProbesThatHaveNoPosition) {
  options.probes = {"x=1 m", "x=2 m"};
  EXPECT_EQ(fault("time [s],a [mm]\n0,1\n1,2\n"),
            "r.csv: --probe gives 2 positions, but there is 1 probe");
  options.probes = {"x=1 m"};
  EXPECT_EQ(fault(two("time [s],a [mm],b [mm]")),
            "r.csv: --probe gives 1 position, but there are 2 probes");
}

TEST_F(ReadProbeRecords, TakesNoUnitsFromCommentsThatHaveNone) {
  const std::string none =
      "r.csv: column a has no units; write them in its head, as in \"probe 1 [mm]\", or give "
      "--units mm";
  for (const char* comment : {"elevation", "elevation of the surface", "elevation in",
                              "elevation in front of the beach", "elevation in s"}) {
    EXPECT_EQ(fault("# " + std::string(comment) + "\ntime [s],a\n0,1\n1,2\n"), none) << comment;
  }
  EXPECT_EQ(read("# elevation in front, in mm.\ntime [s],a\n0,1\n1,3\n").probes[0].mean, 0.002);
}

TEST_F(ReadProbeRecords, NamesNoUnitForWhatIsLikeNone) {
  EXPECT_EQ(fault("time [s],a [xyzzyplugh]\n0,1\n1,2\n"),
            "r.csv: column a [xyzzyplugh] has unknown units \"xyzzyplugh\"; `kelpbox formulas` "
            "lists all units");
}

TEST_F(ReadProbeRecords, NamesProbesWhoseHeadIsNoPlainNumber) {
  const auto name = [&](const std::string& head) {
    return read("# position in m\ntime [s]," + head + " [mm]\n0,1\n1,2\n").probes[0].name;
  };
  EXPECT_EQ(name("9.30"), "x = 9.30 m");
  EXPECT_EQ(name("9.3.1"), "9.3.1");
  const std::string long_number(400, '9');
  EXPECT_EQ(name(long_number), long_number);
}

TEST(ProbePlace, ReadsPositionsInAnyLengths) {
  const Cli::ProbePlace place = Cli::place_in("probe 3: X = 1 ft, y=-20cm");
  EXPECT_EQ(place.name, "probe 3");
  EXPECT_DOUBLE_EQ(*place.x, 0.3048);
  EXPECT_DOUBLE_EQ(*place.y, -0.2);
  EXPECT_FALSE(Cli::place_in("max=3").x);
  EXPECT_FALSE(Cli::place_in("x 3").x);
  EXPECT_FALSE(Cli::place_in("probe x").x);
  EXPECT_DOUBLE_EQ(*Cli::place_in("y=2 x=3").x, 3.0);
  EXPECT_EQ(Cli::place_in("WG_2 eta").name, "WG_2 eta");
}

}  // namespace
