// The spectrum and the directions in summary.json.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <string>

#include "outputs/made_run.h"
#include "outputs/summary_parts.h"
#include "outputs/write_run.h"
#include "support/temp_dir.h"

namespace Outputs {
namespace {

using Json = nlohmann::json;

Json summary_of(const std::string& job) {
  const Testing::TempDir dir;
  Testing::MadeRun made(dir.write("job.toml", job));
  return Json::parse(summary_json(*made.run, made.drive.get(), made.judgement));
}

double sum(const Json& numbers) {
  double all = 0.0;
  for (const double number : numbers) all += number;
  return all;
}

double finding(const Json& summary, const std::string& key) {
  for (const Json& one : summary["findings"]) {
    if (one["key"] == key) return one["made"];
  }
  return NAN;
}

TEST(SummarySea, HasTheSpectraOfARandomSea) {
  const Json summary = summary_of(Testing::basin_job());
  const Json& spectrum = summary["spectrum"];
  EXPECT_EQ(spectrum["at"], Json({{"x", 12.0}, {"y", 9.0}}));
  EXPECT_EQ(spectrum["harmonics"], 1);
  EXPECT_EQ(spectrum["f"].size(), spectrum["made"].size());
  EXPECT_EQ(spectrum["f"].size(), spectrum["asked"].size());
  EXPECT_EQ(spectrum["lines"], Json::array());
  EXPECT_NEAR(spectrum["f"][1].get<double>() - spectrum["f"][0].get<double>(), 1.0 / 32, 1e-12);
  // Hs is 80 mm; the variance is the area.
  EXPECT_NEAR(sum(spectrum["asked"]) / 32 / (0.08 * 0.08 / 16), 1, 0.005);
  EXPECT_NEAR(sum(spectrum["made"]) / 32 / finding(summary, "m0"), 1, 3e-6);
}

TEST(SummarySea, HasTheLineOfARegularWave) {
  const Json spectrum = summary_of(Testing::regular_job())["spectrum"];
  EXPECT_FALSE(spectrum.contains("asked"));
  ASSERT_EQ(spectrum["lines"].size(), 1u);
  EXPECT_NEAR(spectrum["lines"][0]["f"].get<double>(), 0.8, 1e-12);
  EXPECT_NEAR(spectrum["lines"][0]["a"].get<double>(), 0.025, 1e-12);
}

TEST(SummarySea, HasTheDirectionsOfARandomSea) {
  const Json summary = summary_of(Testing::basin_job());
  const Json& directions = summary["directions"];
  ASSERT_EQ(directions["angle"].size(), 73u);
  EXPECT_NEAR(directions["angle"].back().get<double>() - directions["angle"][0].get<double>(),
              2 * M_PI, 1e-12);
  EXPECT_EQ(directions["variance"].size() + 1, directions["f"].size());
  double made = 0.0;
  for (const Json& row : directions["variance"]) {
    EXPECT_EQ(row.size(), 72u);
    made += sum(row);
  }
  EXPECT_NEAR(made / finding(summary, "m0"), 1, 3e-6);
  // The sector of the mean direction, 15 degrees, has more than any other.
  const auto& asked = directions["asked"];
  const auto top = std::max_element(asked.begin(), asked.end()) - asked.begin();
  EXPECT_NEAR(directions["angle"][top].get<double>(), 12.5 * M_PI / 180, 1e-12);
}

TEST(SummarySea, HasNoAskedDirectionsWithoutALaw) {
  Jobs::SeaDirections directions;
  EXPECT_FALSE(directions_json(directions).contains("asked"));
  directions.asked = Jobs::Sectors{};
  EXPECT_EQ(directions_json(directions)["asked"].size(), 72u);
}

TEST(SummarySea, OfStillWaterHasNeither) {
  const Json summary = summary_of("site = \"" + Testing::examples +
                                  "flume.site\"\n[run]\nrepeat = \"60 s\"\n[[sea]]\n[[sea.wave]]\n"
                                  "kind = \"single\"\nf = \"0.8 Hz\"\na = \"0 mm\"\n");
  EXPECT_FALSE(summary.contains("spectrum"));
  EXPECT_FALSE(summary.contains("directions"));
}

}  // namespace
}  // namespace Outputs
