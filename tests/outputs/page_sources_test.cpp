// Pages of folders with some of the files only.
#include <gtest/gtest.h>

#include <filesystem>

#include "outputs/made_page.h"
#include "outputs/made_run.h"

namespace Outputs {
namespace {

namespace fs = std::filesystem;
using Testing::Json;
using Testing::numbers_of;

class PageSources : public testing::Test {
 protected:
  // The data of the page that the run makes.
  Json run(const std::string& job) {
    made.emplace_back(std::make_unique<Testing::MadeRun>(dir.write("storm.toml", job)));
    made.back()->write(dir.file("storm.out"));
    return Testing::data_of(dir.contents("storm.out/report.html"));
  }
  std::string path(const std::string& name) const { return dir.file("storm.out/" + name); }

  Testing::TempDir dir;
  std::vector<std::unique_ptr<Testing::MadeRun>> made;
};

void expect_near(const Json& packed, const Json& other) {
  const std::vector<double> a = numbers_of(packed);
  const std::vector<double> b = numbers_of(other);
  ASSERT_EQ(a.size(), b.size());
  const double step = packed.at("step");
  for (std::size_t i = 0; i < a.size(); ++i) ASSERT_NEAR(a[i], b[i], 1.001 * step) << i;
}

TEST_F(PageSources, ShowTheSignalsOfTheRun) {
  const Json page = run(Testing::basin_job());
  const Json& bank = page.at("drive").at(0);
  const auto& drive = *made.back()->drive;
  EXPECT_EQ(bank.at("bank"), 0);
  EXPECT_EQ(bank.at("rate"), 20.0 / bank.at("every").get<double>());
  const std::vector<std::size_t> paddles = bank.at("paddles");
  ASSERT_EQ(paddles.size(), drive.banks()[0].paddles);
  const std::vector<double> signals = numbers_of(bank.at("signals"));
  const std::size_t every = bank.at("every");
  const std::size_t samples = signals.size() / paddles.size();
  ASSERT_EQ(samples, (drive.samples() + every - 1) / every);
  const double step = bank.at("signals").at("step");
  for (std::size_t p = 0; p < paddles.size(); ++p) {
    double highest = -1e9;
    double lowest = 1e9;
    for (std::size_t i = 0; i < drive.samples(); ++i) {
      highest = std::max(highest, drive.sample(0, static_cast<std::uint32_t>(p), i));
      lowest = std::min(lowest, drive.sample(0, static_cast<std::uint32_t>(p), i));
    }
    EXPECT_EQ(bank.at("highest").at(p), highest);
    EXPECT_EQ(bank.at("lowest").at(p), lowest);
    for (std::size_t i = 0; i < samples; ++i) {
      ASSERT_NEAR(signals[p * samples + i], drive.sample(0, paddles[p], i * every), 0.501 * step);
    }
  }
}

TEST_F(PageSources, ShowTheFieldOfTheRun) {
  const Json page = run(Testing::basin_job());
  const Json& field = page.at("field");
  const Json& described = page.at("summary").at("field");
  EXPECT_EQ(field.at("of").at("frames"), described.at("frames"));
  EXPECT_EQ(field.at("of").at("rate"), described.at("rate"));
  EXPECT_NEAR(field.at("highest"), described.at("highest"), 1e-6);
  EXPECT_NEAR(field.at("lowest"), described.at("lowest"), 1e-6);
  const std::vector<double> heights = numbers_of(field.at("eta"));
  const auto ends = std::minmax_element(heights.begin(), heights.end());
  EXPECT_NEAR(*ends.second, described.at("highest").get<double>(), 1e-6);
  EXPECT_NEAR(*ends.first, described.at("lowest").get<double>(), 1e-6);
  // The stills are frames of the run, with their extremes in them.
  ASSERT_EQ(field.at("stills").size(), 2U);
  const Json& crest = field.at("stills").at(0);
  EXPECT_EQ(crest.at("key"), "crest");
  const std::vector<double> still = numbers_of(crest.at("eta"));
  EXPECT_NEAR(*std::max_element(still.begin(), still.end()), crest.at("value").get<double>(), 1e-6);
  const std::size_t frame = crest.at("frame");
  EXPECT_EQ(crest.at("t"), static_cast<double>(frame) / described.at("rate").get<double>());
  ASSERT_EQ(field.at("every"), (Json{{"time", 1}, {"x", 1}, {"y", 1}}));
  for (std::size_t i = 0; i < still.size(); ++i) {
    ASSERT_NEAR(still[i], heights[frame * still.size() + i], 1e-9);
  }
  EXPECT_EQ(field.at("stills").at(1).at("key"), "steepness");
}

TEST_F(PageSources, AreCsvOrNetcdfWithTheSameData) {
  const Json both = run(Testing::basin_job());
  const Json csv = run(Testing::basin_job("[outputs]\nnetcdf = false\n"));
  const Json netcdf = run(Testing::basin_job("[outputs]\ncsv = false\n"));
  EXPECT_EQ(both.at("drive"), netcdf.at("drive"));
  EXPECT_EQ(both.at("points"), netcdf.at("points"));
  ASSERT_EQ(csv.at("drive").size(), 1U);
  ASSERT_EQ(csv.at("points").size(), 2U);
  EXPECT_FALSE(csv.contains("field"));
  EXPECT_TRUE(netcdf.contains("field"));
  expect_near(csv.at("drive").at(0).at("signals"), both.at("drive").at(0).at("signals"));
  expect_near(csv.at("drive").at(0).at("spectrum").at("amplitude"),
              both.at("drive").at(0).at("spectrum").at("amplitude"));
  for (std::size_t p = 0; p < 2; ++p) {
    expect_near(csv.at("points").at(p).at("eta"), both.at("points").at(p).at("eta"));
  }
}

TEST_F(PageSources, MayLackEverythingExceptTheSummary) {
  const Json page = run(Testing::basin_job("[outputs]\ncsv = false\nnetcdf = false\n"));
  EXPECT_TRUE(page.at("drive").empty());
  EXPECT_TRUE(page.at("points").empty());
  EXPECT_FALSE(page.contains("field"));
  EXPECT_EQ(page.at("job"), dir.contents("storm.out/job.toml"));
  for (const char* name : {"job.toml", "log.txt"}) fs::remove(path(name));
  const Json bare = Testing::made_page(dir.file("storm.out"));
  EXPECT_EQ(bare.at("job"), "");
  EXPECT_EQ(bare.at("log"), "");
  EXPECT_EQ(bare.at("summary"), page.at("summary"));
}

TEST_F(PageSources, MayLackOneFileOrAnother) {
  run(Testing::basin_job());
  fs::remove(path("drive.nc"));
  EXPECT_EQ(Testing::made_page(dir.file("storm.out")).at("drive").size(), 1U);
  fs::remove(path("drive_1.csv"));
  EXPECT_EQ(Testing::made_page(dir.file("storm.out")).at("drive").size(), 0U);
  fs::remove(path("points.nc"));
  EXPECT_EQ(Testing::made_page(dir.file("storm.out")).at("points").size(), 2U);
  fs::remove(path("point_2.csv"));
  EXPECT_EQ(Testing::made_page(dir.file("storm.out")).at("points").size(), 0U);
  fs::remove(path("field.nc"));
  EXPECT_FALSE(Testing::made_page(dir.file("storm.out")).contains("field"));
}

TEST_F(PageSources, MayHavePointsOfDifferentRates) {
  const Json page = run(Testing::regular_job(
      "[[point]]\nx = \"3 m\"\ny = \"0 m\"\nrate = \"20 Hz\"\n"
      "[[point]]\nx = \"4 m\"\ny = \"0 m\"\nrate = \"40 Hz\"\n[outputs]\ncsv = false\n"));
  ASSERT_EQ(page.at("points").size(), 2U);
  EXPECT_EQ(page.at("points").at(0).at("eta").at("shape").at(0), 1200);
  EXPECT_EQ(page.at("points").at(1).at("eta").at("shape").at(0), 2400);
}

TEST_F(PageSources, GiveTheSamePageEachTime) {
  run(Testing::basin_job());
  const std::string first = dir.contents("storm.out/report.html");
  Testing::made_page(dir.file("storm.out"));
  EXPECT_TRUE(dir.contents("storm.out/report.html") == first);
}

TEST_F(PageSources, MakeNoPageForAJobThatWantsNone) {
  Testing::MadeRun quiet(
      dir.write("quiet.toml", Testing::regular_job("[outputs]\nreport = false\n")));
  quiet.write(dir.file("quiet.out"));
  EXPECT_FALSE(fs::exists(dir.file("quiet.out/report.html")));
}

TEST_F(PageSources, AreReplacedByTheNextRunWithTheirPage) {
  run(Testing::regular_job());
  dir.write("storm.out/.report.html.kelpbox-99999", "of a process that was killed");
  run(Testing::regular_job());
  EXPECT_FALSE(fs::exists(path(".report.html.kelpbox-99999")));
  EXPECT_TRUE(fs::exists(path("report.html")));
}

}  // namespace
}  // namespace Outputs
