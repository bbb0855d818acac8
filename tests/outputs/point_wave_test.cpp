#include "outputs/point_wave.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "outputs/made_run.h"
#include "support/temp_dir.h"

namespace Outputs {
namespace {

using Remarks = std::vector<std::string>;

bool has(const Remarks& remarks, const std::string& remark) {
  return std::count(remarks.begin(), remarks.end(), remark) == 1;
}

// 0.11 Hz makes 6.6 samples in 60 s.
TEST(PointWave, RemarksARateThatDoesNotFitTheRepeat) {
  const Testing::TempDir dir;
  Testing::MadeRun made(
      dir.write("job.toml", Testing::regular_job("[[point]]\nx = \"3 m\"\ny = \"0 m\"\n")));
  made.run->points[0].rate = 0.11;
  const PointReport report = build_point(*made.run, 0);
  EXPECT_NEAR(report.rate, 7.0 / 60.0, 1e-12);
  EXPECT_TRUE(has(report.remarks, "a value was fitted to the repeat or the range"));
}

// Behind a rise from 2 m to 0.4 m of water, at the paddles, waves of 0.3 Hz run at 50 degrees. In
// 2 m they are over 1.9 times as long, so that by Snell's law none gets there.
TEST(PointWave, RemarksAPointThatNoWaveReaches) {
  const Testing::TempDir dir;
  std::filesystem::copy(Testing::examples, dir.path(), std::filesystem::copy_options::recursive);
  std::string site = dir.contents("basin.site");
  const auto replace = [&site](const std::string& from, const std::string& to) {
    site.replace(site.find(from), from.size(), to);
  };
  replace("depth = \"2.0\"", "depth = \"0.4\"");
  replace("2.0 - 0.3*(1 + cos(pi*($[m] - 14)/6))", "0.4 + 1.6*($[m] - 8)/12");
  dir.write("basin.site", site);
  Testing::MadeRun made(dir.write(
      "deep.toml",
      "site = \"basin.site\"\n[run]\nrepeat = \"30 s\"\n[[sea]]\n[[sea.wave]]\nkind = \"single\"\n"
      "f = \"0.3 Hz\"\na = \"5 mm\"\nangle = \"50 deg\"\n"
      "[[point]]\nx = \"4 m\"\ny = \"9 m\"\n[[point]]\nx = \"25 m\"\ny = \"9 m\"\n"));
  const std::string remark = "the elevation is NaN: a wave cannot reach this point";
  EXPECT_FALSE(has(build_point(*made.run, 0).remarks, remark));
  EXPECT_TRUE(has(build_point(*made.run, 1).remarks, remark));
  EXPECT_TRUE(std::isnan(point_wave(*made.run).elevation.front()));
}

}  // namespace
}  // namespace Outputs
