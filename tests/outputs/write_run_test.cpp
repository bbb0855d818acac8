#include "outputs/write_run.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <iterator>
#include <numbers>
#include <set>
#include <string>
#include <vector>

#include "jobs/csv_table.h"
#include "outputs/folder_listing.h"
#include "outputs/made_run.h"
#include "support/temp_dir.h"
#include "support/wave_number.h"

namespace Outputs {
namespace {

constexpr double pi = std::numbers::pi;

std::set<std::string> names_in(const std::string& folder) {
  std::set<std::string> names;
  for (const auto& [name, contents] : Testing::listing(folder)) {
    if (name.compare(0, 6, "inputs") != 0) names.insert(name);
  }
  return names;
}

const std::vector<double>& column(const Jobs::CsvTable& table, const std::string& name) {
  return Jobs::column_of(table, name).values;
}

class WriteRun : public testing::Test {
 protected:
  void run(const std::string& job) {
    Testing::MadeRun(dir.write("storm.toml", job)).write(dir.file("storm.out"));
  }
  Jobs::CsvTable csv(const std::string& name) {
    return Jobs::read_csv(dir.contents("storm.out/" + name), name);
  }

  Testing::TempDir dir;
};

TEST_F(WriteRun, WritesEverythingThatAJobCanAskFor) {
  run(Testing::basin_job());
  EXPECT_EQ(
      names_in(dir.file("storm.out")),
      (std::set<std::string>{"directions_1.csv", "directions_2.csv", "drive.nc", "drive_1.csv",
                             "field.nc", "fronts.csv", "fronts_1.csv", "job.toml", "log.txt",
                             "point_1.csv", "point_2.csv", "points.nc", "report.html", "spectra.nc",
                             "spectrum_1.csv", "spectrum_2.csv", "summary.json"}));
}

TEST_F(WriteRun, LeavesOutWhatTheJobDoesNotWant) {
  run(Testing::basin_job("[outputs]\ncsv = false\n"));
  EXPECT_EQ(names_in(dir.file("storm.out")),
            (std::set<std::string>{"drive.nc", "field.nc", "job.toml", "log.txt", "points.nc",
                                   "report.html", "spectra.nc", "summary.json"}));
  run(Testing::regular_job("[outputs]\nnetcdf = false\n"));
  EXPECT_EQ(names_in(dir.file("storm.out")),
            (std::set<std::string>{"drive_1.csv", "fronts.csv", "fronts_1.csv", "job.toml",
                                   "log.txt", "report.html", "summary.json"}));
}

TEST_F(WriteRun, GivesPointsOfDifferentRatesFilesOfTheirOwn) {
  run(
      Testing::regular_job("[[point]]\nx = \"3 m\"\ny = \"0 m\"\nrate = \"20 Hz\"\n"
                           "[[point]]\nx = \"3 m\"\ny = \"0 m\"\nrate = \"25 Hz\"\n"));
  const std::set<std::string> names = names_in(dir.file("storm.out"));
  for (const char* name : {"point_1.nc", "point_2.nc", "spectrum_1.nc", "spectrum_2.nc"}) {
    EXPECT_EQ(names.count(name), 1u) << name;
  }
  EXPECT_EQ(names.count("points.nc"), 0u);
}

TEST_F(WriteRun, GivesPointsOfDifferentSectorsFilesOfTheirOwn) {
  run(
      Testing::regular_job("[[point]]\nx = \"3 m\"\ny = \"0 m\"\ndelta_angle = \"10 deg\"\n"
                           "[[point]]\nx = \"3 m\"\ny = \"0 m\"\ndelta_angle = \"20 deg\"\n"));
  const std::set<std::string> names = names_in(dir.file("storm.out"));
  EXPECT_EQ(names.count("point_2.nc"), 1u);
  EXPECT_EQ(names.count("points.nc"), 0u);
}

TEST_F(WriteRun, KeepsTheSiteWithItsIncludes) {
  run(Testing::regular_job());
  for (const char* name : {"flume.site", "common/limits.site", "common/water.site"}) {
    std::ifstream in(Testing::examples + name, std::ios::binary);
    const std::string original{std::istreambuf_iterator<char>(in), {}};
    EXPECT_FALSE(original.empty());
    EXPECT_EQ(dir.contents("storm.out/inputs/" + std::string(name)), original);
  }
}

// Linear wavemaker theory of a piston that reaches the bed (Dean and Dalrymple 1991, section 6.2):
// wave height over stroke is 2 (cosh 2kh - 1) / (sinh 2kh + 2kh), and the stroke lags the wave by a
// quarter cycle.
TEST_F(WriteRun, DriveSignalFollowsWavemakerTheory) {
  run(Testing::regular_job("[drive]\nrate = \"20 Hz\"\n"));
  const Jobs::CsvTable table = csv("drive_1.csv");
  const std::vector<double>& time = column(table, "time");
  const std::vector<double>& stroke = column(table, "paddle 1 [m]");
  ASSERT_EQ(time.size(), 1200u);
  const double kh = Testing::exact_wave_number(2 * pi * 0.8, 0.7) * 0.7;
  const double ratio = 2 * (std::cosh(2 * kh) - 1) / (std::sinh(2 * kh) + 2 * kh);
  for (std::size_t i = 0; i < time.size(); ++i) {
    EXPECT_EQ(time[i], static_cast<double>(i) / 20);
    EXPECT_NEAR(stroke[i], 0.025 / ratio * std::sin(2 * pi * 0.8 * time[i]), 2e-6);
  }
}

TEST_F(WriteRun, DriveSignalIsTaperedAndStopped) {
  run(Testing::regular_job("[drive]\nrate = \"20 Hz\"\nramp = \"5 s\"\nstop_at_limit = true\n"));
  Testing::MadeRun plain(
      dir.write("plain.toml", Testing::regular_job("[drive]\nrate = \"20 Hz\"\n")));
  const Jobs::CsvTable table = csv("drive_1.csv");
  const std::vector<double>& stroke = column(table, "paddle 1 [m]");
  for (std::size_t i = 0; i < stroke.size(); ++i) {
    const double from_end = static_cast<double>(std::min(i, 1199 - i)) / 20;
    const double taper = from_end < 5 ? 0.5 - 0.5 * std::cos(pi * from_end / 5) : 1.0;
    EXPECT_NEAR(stroke[i], taper * plain.drive->raw(0, 0, i), 1e-15);
  }
  EXPECT_EQ(table.comments.at(3), " ramp 5 s at both ends (cosine taper)");
  EXPECT_EQ(table.comments.at(4), " samples beyond -0.45 to 0.45 m are held there");
}

TEST_F(WriteRun, PointHasTheWaveOfLinearTheory) {
  run(Testing::regular_job("[[point]]\nx = \"4 m\"\ny = \"0 m\"\nrate = \"20 Hz\"\n"));
  const Jobs::CsvTable point = csv("point_1.csv");
  const double k = Testing::exact_wave_number(2 * pi * 0.8, 0.7);
  const std::vector<double>& time = column(point, "time");
  const std::vector<double>& eta = column(point, "eta [m]");
  ASSERT_EQ(eta.size(), 1200u);
  for (std::size_t i = 0; i < eta.size(); ++i) {
    EXPECT_NEAR(eta[i], 0.025 * std::cos(2 * pi * 0.8 * time[i] - k * 4), 2e-6);
  }
  const Jobs::CsvTable spectrum = csv("spectrum_1.csv");
  ASSERT_EQ(column(spectrum, "f").size(), 601u);
  EXPECT_NEAR(column(spectrum, "f")[48], 0.8, 1e-15);
  EXPECT_NEAR(column(spectrum, "amplitude")[48], 0.025, 1e-12);
  EXPECT_NEAR(column(spectrum, "S [m2/Hz]")[48], 0.5 * 0.025 * 0.025 * 60, 1e-12);
  EXPECT_EQ(column(spectrum, "amplitude")[47], 0.0);
  const Jobs::CsvTable directions = csv("directions_1.csv");
  EXPECT_EQ(column(directions, "share")[0], 1.0);
  EXPECT_NEAR(column(directions, "angle")[1], pi / 18, 1e-15);
}

TEST_F(WriteRun, FrontsAreThoseOfTheJob) {
  run(Testing::regular_job());
  for (const char* name : {"fronts.csv", "fronts_1.csv"}) {
    const Jobs::CsvTable fronts = csv(name);
    EXPECT_EQ(column(fronts, "harmonic"), std::vector<double>{48});
    EXPECT_EQ(column(fronts, "f [Hz]"), std::vector<double>{0.8});
    EXPECT_EQ(column(fronts, "a [m]"), std::vector<double>{0.025});
    EXPECT_EQ(column(fronts, "angle [rad]"), std::vector<double>{0});
    EXPECT_EQ(column(fronts, "phase [rad]"), std::vector<double>{0});
  }
}

TEST_F(WriteRun, FrontsSayWhereTheirPhasesHold) {
  run(Testing::regular_job());
  const std::string written = dir.contents("storm.out/fronts.csv");
  EXPECT_EQ(written.substr(0, 10), "# kelpbox ");
  EXPECT_EQ(written.substr(written.find(": ")),
            ": merged fronts of the run\n"
            "# phases hold at the paddle line: x = 0, y = 0, t = 0\n"
            "# angle: direction of travel, from +x towards +y; phase: of a cosine, 0 is a crest\n"
            "harmonic,f [Hz],a [m],angle [rad],phase [rad]\n"
            "48,0.8,0.025,0,0\n");
}

TEST_F(WriteRun, FrontsCanBeTheWavesOfAnotherJob) {
  run(Testing::basin_job());
  const Jobs::CsvTable first = csv("fronts.csv");
  dir.write("fronts.csv", dir.contents("storm.out/fronts.csv"));
  run("site = \"" + Testing::examples +
      "basin.site\"\n[run]\nrepeat = \"32 s\"\n[[sea]]\n[[sea.wave]]\nkind = \"fronts\"\n"
      "file = \"fronts.csv\"\n");
  const Jobs::CsvTable second = csv("fronts.csv");
  EXPECT_GT(column(first, "f").size(), 40u);
  EXPECT_EQ(column(first, "harmonic"), column(second, "harmonic"));
  EXPECT_EQ(column(first, "f"), column(second, "f"));
  EXPECT_EQ(column(first, "a"), column(second, "a"));
  const std::vector<double>& angles = column(first, "angle");
  const std::vector<double>& phases = column(first, "phase");
  for (std::size_t i = 0; i < phases.size(); ++i) {
    EXPECT_NEAR(angles[i], column(second, "angle")[i], 1e-12);
    EXPECT_NEAR(std::remainder(phases[i] - column(second, "phase")[i], 2 * pi), 0, 1e-12);
  }
}

}  // namespace
}  // namespace Outputs
