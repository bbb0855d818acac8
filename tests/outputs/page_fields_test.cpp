// Wave fields of pages that are made from NetCDF files written without the program.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "outputs/made_netcdf.h"
#include "outputs/made_page.h"

namespace Outputs {
namespace {

using Testing::Json;
using Testing::MadeNetcdf;
using Testing::numbers_of;

constexpr double nan_count = -32768.0;

class PageFields : public testing::Test {
 protected:
  // Of `columns` times `rows` points, 0.05 m apart, that begin at (1 m, 2 m). The repeat time is
  // 10 s.
  void describe(std::size_t frames, std::size_t rows, std::size_t columns) {
    summary["field"] = {{"rate", 0.1 * static_cast<double>(std::max<std::size_t>(frames, 1))},
                        {"frames", frames},
                        {"x", {{"from", 1.0}, {"step", 0.05}, {"count", columns}}},
                        {"y", {{"from", 2.0}, {"step", 0.05}, {"count", rows}}}};
  }
  // Counts of 1 mm by frame, row and column.
  void write(std::size_t frames, std::size_t rows, std::size_t columns,
             const std::vector<double>& counts, int format = NC_NETCDF4) {
    describe(frames, rows, columns);
    MadeNetcdf file(dir.file("field.nc"), format);
    const int eta = file.variable("eta", NC_SHORT, {frames, rows, columns});
    file.attribute(eta, "scale_factor", 0.001);
    file.put(eta, counts);
  }
  Json page() {
    dir.write("summary.json", summary.dump());
    return Testing::made_page(dir.path());
  }
  std::string why() {
    dir.write("summary.json", summary.dump());
    return Testing::no_page(dir.path());
  }

  Json summary = Testing::bare_summary();
  Testing::TempDir dir;
};

// The page has room for 1,700,000 heights: 170 frames of 10,000 points. Waves of 2 Hz need 20 of
// the 40 frames in a second.
TEST_F(PageFields, ThatAreLongKeepEachSecondFrameAroundTheHighestCrest) {
  constexpr std::size_t frames = 400, length = 100, points = length * length;
  std::vector<double> counts(frames * points);
  for (std::size_t i = 0; i < counts.size(); ++i) counts[i] = static_cast<double>(i / points);
  counts[200 * points + 40 * length + 60] = 700.0;
  write(frames, length, length, counts);
  const Json field = page().at("field");
  EXPECT_EQ(field.at("of"), (Json{{"frames", 400}, {"rate", 40.0}, {"x", 100}, {"y", 100}}));
  EXPECT_EQ(field.at("every"), (Json{{"time", 2}, {"x", 1}, {"y", 1}}));
  EXPECT_EQ(field.at("rate"), 20.0);
  EXPECT_EQ(field.at("first"), 30);  // 85 of the 170 frames lie before frame 200
  EXPECT_EQ(field.at("start"), 0.75);
  EXPECT_EQ(field.at("eta").at("shape"), (Json{170, 100, 100}));
  const std::vector<double> eta = numbers_of(field.at("eta"));
  for (std::size_t kept = 0; kept < 170; ++kept) {
    ASSERT_NEAR(eta[kept * points], 0.001 * static_cast<double>(30 + 2 * kept), 1e-12) << kept;
  }
  EXPECT_NEAR(eta[85 * points + 40 * length + 60], 0.7, 1e-12);
  const Json& crest = field.at("stills").at(0);
  EXPECT_EQ(crest.at("frame"), 200);
  EXPECT_NEAR(crest.at("at").at("x").get<double>(), 4.0, 1e-12);
  EXPECT_NEAR(crest.at("at").at("y").get<double>(), 4.0, 1e-12);
  EXPECT_NEAR(crest.at("value").get<double>(), 0.7, 1e-12);
}

TEST_F(PageFields, ThatAreNaNEverywhereHaveNoStills) {
  write(3, 2, 2, std::vector<double>(12, nan_count));
  const Json field = page().at("field");
  EXPECT_EQ(field.at("stills"), Json::array());
  for (const double height : numbers_of(field.at("eta"))) EXPECT_TRUE(std::isnan(height));
}

TEST_F(PageFields, ThatAreFlatHaveNoSteepestPlace) {
  write(3, 2, 2, std::vector<double>(12, 5.0));
  const Json stills = page().at("field").at("stills");
  ASSERT_EQ(stills.size(), 1U);
  EXPECT_EQ(stills.at(0).at("key"), "crest");
}

TEST_F(PageFields, ThatAreHighKeepAThousandStepsAndTheirNaN) {
  std::vector<double> counts = {-20000.0, 0.0, nan_count, 30000.0, 10000.0, 12345.0, 1.0, -7.0};
  write(2, 2, 2, counts);
  const Json eta = page().at("field").at("eta");
  EXPECT_NEAR(eta.at("step").get<double>(), 0.03, 1e-12);
  const std::vector<double> heights = numbers_of(eta);
  for (std::size_t i = 0; i < counts.size(); ++i) {
    if (counts[i] == nan_count) {
      EXPECT_TRUE(std::isnan(heights[i]));
    } else {
      EXPECT_NEAR(heights[i], 0.001 * counts[i], 0.015 + 1e-12) << i;
    }
  }
}

TEST_F(PageFields, WithoutFramesOrPointsAreNotShown) {
  using Shape = std::vector<std::size_t>;
  for (const Shape& shape : {Shape{0, 2, 2}, Shape{2, 0, 2}, Shape{2, 2, 0}}) {
    write(shape[0], shape[1], shape[2], {});
    EXPECT_FALSE(page().contains("field"));
  }
}

TEST_F(PageFields, MayComeFromFilesOfTheClassicFormat) {
  const std::vector<double> counts = {1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0};
  write(2, 2, 2, counts);
  const Json usual = page().at("field");
  constexpr int classic = 0;
  write(2, 2, 2, counts, classic);
  EXPECT_EQ(page().at("field"), usual);
  const std::vector<double> heights = numbers_of(usual.at("eta"));
  for (std::size_t i = 0; i < counts.size(); ++i) EXPECT_NEAR(heights[i], 0.001 * counts[i], 1e-12);
}

TEST_F(PageFields, NeedAScaleAboveZero) {
  const std::string missing = "x.out/field.nc: has no attribute scale_factor";
  describe(1, 1, 2);
  const auto file_with = [&](auto add) {
    MadeNetcdf file(dir.file("field.nc"));
    const int eta = file.variable("eta", NC_SHORT, {1, 1, 2});
    add(file, eta);
    file.put(eta, {1.0, 2.0});
  };
  file_with([](MadeNetcdf&, int) {});
  EXPECT_EQ(why(), missing);
  file_with([](MadeNetcdf& file, int eta) { file.attribute(eta, "scale_factor", "0.1"); });
  EXPECT_EQ(why(), missing);
  file_with([](MadeNetcdf& file, int eta) { file.attribute(eta, "scale_factor", "1"); });
  EXPECT_EQ(why(), "x.out/field.nc: NetCDF: Attempt to convert between text & numbers");
  for (const double scale : {0.0, -0.001, std::nan("")}) {
    file_with([&](MadeNetcdf& file, int eta) { file.attribute(eta, "scale_factor", scale); });
    EXPECT_EQ(why(), "x.out/field.nc: its scale_factor is not positive");
  }
}

TEST_F(PageFields, NeedHeightsByTimeAndPlace) {
  describe(2, 1, 2);
  {
    MadeNetcdf file(dir.file("field.nc"));
    file.put(file.variable("eta", NC_SHORT, {2, 2}), {1.0, 2.0, 3.0, 4.0});
  }
  EXPECT_EQ(why(), "x.out/field.nc: eta has 2 dimensions instead of 3");
}

}  // namespace
}  // namespace Outputs
