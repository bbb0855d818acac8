// The plan in summary.json. Expected values are those of the scripts in examples/.
#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>
#include <string>

#include "outputs/made_run.h"
#include "outputs/write_run.h"
#include "support/temp_dir.h"

namespace Outputs {
namespace {

using Json = nlohmann::json;

Json summary_of(const Testing::TempDir& dir, const std::string& job) {
  Testing::MadeRun made(dir.write("job.toml", job));
  return Json::parse(summary_json(*made.run, made.drive.get(), made.judgement));
}

Json plan_of_site(const std::string& site) {
  const Testing::TempDir dir;
  return summary_of(dir, "site = \"" + Testing::examples + site +
                             "\"\n[run]\nrepeat = \"16 s\"\n[[sea]]\n[[sea.wave]]\n"
                             "kind = \"single\"\nf = \"0.5 Hz\"\na = \"5 mm\"\n")["plan"];
}

double depth_at(const Json& profile, double x) {
  for (std::size_t i = 1; i < profile["x"].size(); ++i) {
    const double x0 = profile["x"][i - 1];
    const double x1 = profile["x"][i];
    const double d0 = profile["depth"][i - 1];
    const double d1 = profile["depth"][i];
    if (x <= x1 && x1 > x0) return d0 + (d1 - d0) * (x - x0) / (x1 - x0);
  }
  return NAN;
}

TEST(SummaryPlan, OfTheBasinHasItsRidgeAndItsFlaps) {
  const Json plan = plan_of_site("basin.site");
  EXPECT_EQ(plan["x"], Json({0.0, 30.0}));
  EXPECT_EQ(plan["y"], Json({0.0, 20.0}));
  EXPECT_EQ(plan["walls"], "both");
  // The site joins the ridge by lines that are 0.02 m of depth apart.
  for (const double x : {1.0, 8.0, 9.7, 14.0, 17.0, 20.0, 29.0}) {
    const bool ridge = x > 8.0 && x < 20.0;
    const double depth = ridge ? 2.0 - 0.3 * (1 + std::cos(M_PI * (x - 14) / 6)) : 2.0;
    EXPECT_NEAR(depth_at(plan["profile"], x), depth, 0.01) << x;
  }
  ASSERT_EQ(plan["banks"].size(), 1u);
  const Json& bank = plan["banks"][0];
  EXPECT_EQ(bank["name"], "main");
  EXPECT_EQ(bank["machine"], "flap");
  EXPECT_EQ(bank["paddle_width"], 0.5);
  const Json& paddles = bank["paddles"];
  ASSERT_EQ(paddles["number"].size(), 40u);
  for (int i = 0; i < 40; ++i) {
    EXPECT_EQ(paddles["number"][i], i + 1);
    EXPECT_EQ(paddles["x"][i], 0.0);
    EXPECT_NEAR(paddles["y"][i].get<double>(), 0.5 * i + 0.25, 1e-12);
    EXPECT_EQ(paddles["angle"][i], 0.0);
  }
}

TEST(SummaryPlan, OfTheFlumeHasItsBeach) {
  const Json plan = plan_of_site("flume.site");
  EXPECT_EQ(plan["x"], Json({0.0, 25.0}));
  EXPECT_EQ(plan["y"], Json({0.0, 0.8}));
  EXPECT_EQ(plan["walls"], "flume");
  for (const double x : {0.0, 9.0, 18.5, 20.0, 24.9}) {
    EXPECT_NEAR(depth_at(plan["profile"], x), x > 18.5 ? 0.7 - (x - 18.5) / 10 : 0.7, 1e-9) << x;
  }
  // Straight lines need no points between their ends. The site's last point is near the end.
  EXPECT_LE(plan["profile"]["x"].size(), 4u);
  EXPECT_NEAR(plan["profile"]["depth"].back().get<double>(), 0.05, 0.01);
  EXPECT_EQ(plan["banks"][0]["machine"], "piston");
  EXPECT_EQ(plan["banks"][0]["paddle_width"], 0.8);
  EXPECT_EQ(plan["banks"][0]["paddles"],
            Json({{"number", {1}}, {"x", {0.0}}, {"y", {0.4}}, {"angle", {0.0}}}));
}

TEST(SummaryPlan, OfTheLBasinHasBothBanks) {
  const Json plan = plan_of_site("l_basin.site");
  EXPECT_EQ(plan["x"], Json({0.0, 20.0}));
  EXPECT_EQ(plan["y"], Json({0.0, 10.0}));
  EXPECT_EQ(plan["walls"], "none");
  EXPECT_NEAR(depth_at(plan["profile"], 10.0), 0.8, 1e-9);
  EXPECT_NEAR(depth_at(plan["profile"], 18.0), 0.6, 1e-9);
  ASSERT_EQ(plan["banks"].size(), 2u);
  EXPECT_EQ(plan["banks"][0]["name"], "end wall");
  const Json& side = plan["banks"][1];
  EXPECT_EQ(side["name"], "side wall");
  ASSERT_EQ(side["paddles"]["x"].size(), 16u);
  for (int i = 0; i < 16; ++i) {
    EXPECT_NEAR(side["paddles"]["x"][i].get<double>(), 0.4 * i + 0.2, 1e-12);
    EXPECT_EQ(side["paddles"]["y"][i], 0.0);
    EXPECT_NEAR(side["paddles"]["angle"][i].get<double>(), M_PI / 2, 1e-12);
  }
}

TEST(SummaryPlan, AndSentencesKeepMarkupAsText) {
  const Testing::TempDir dir;
  dir.write("<b>&\"x\".csv", "eta\n1\n-1\n2\n-2\n");
  const std::string markup = "</script><script>alert(\"x\")</script>";
  const Json summary =
      summary_of(dir, "title = '" + markup + "'\nsite = \"" + Testing::examples +
                          "flume.site\"\n[run]\nrepeat = \"16 s\"\n[[sea]]\nname = '" + markup +
                          "'\n[[sea.wave]]\nkind = \"record\"\nfile = '" + "<b>&\"x\".csv" +
                          "'\ncolumn = \"eta\"\nunits = \"mm\"\nrate = \"10 Hz\"\n");
  EXPECT_EQ(summary["title"], markup);
  EXPECT_EQ(summary["seas"][0]["name"], markup);
  EXPECT_EQ(summary["seas"][0]["sentence"],
            "record, file <b>&\"x\".csv, column eta, units mm, rate 10 Hz");
}

}  // namespace
}  // namespace Outputs
