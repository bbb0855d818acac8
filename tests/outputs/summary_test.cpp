#include "outputs/summary.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <string>

#include "outputs/checksum.h"
#include "outputs/folder_listing.h"
#include "outputs/made_run.h"
#include "support/temp_dir.h"

namespace Outputs {
namespace {

using Json = nlohmann::json;

TEST(Summary, ListsEveryFileWithItsChecksum) {
  const Testing::TempDir dir;
  Testing::MadeRun made(dir.write("storm.toml", Testing::basin_job()));
  const Json summary = Json::parse(made.write(dir.file("x.out")));
  const auto files = Testing::listing(dir.file("x.out"));
  std::size_t listed = 0;
  for (const auto& [name, contents] : files) {
    if (name.back() == '/' || name == "summary.json" || name == "report.html") continue;
    const auto& entries = summary["files"];
    const auto found =
        std::find_if(entries.begin(), entries.end(),
                     [&, wanted = name](const Json& e) { return e["name"] == wanted; });
    ASSERT_NE(found, entries.end()) << name;
    EXPECT_EQ((*found)["bytes"], contents.size());
    EXPECT_EQ((*found)["sha256"], sha256(contents));
    ++listed;
  }
  EXPECT_EQ(summary["files"].size(), listed);
  EXPECT_EQ(summary["inputs"].size(), 5u);
  EXPECT_EQ(summary["inputs"][0]["name"], "inputs/basin.site");
  EXPECT_EQ(summary["inputs"][0]["sha256"], sha256(files.at("inputs/basin.site")));
  EXPECT_EQ(dir.contents("x.out/summary.json"), made.write(dir.file("x.out")));
}

TEST(Summary, DescribesTheRun) {
  const Testing::TempDir dir;
  Testing::MadeRun made(
      dir.write("storm.toml",
                Testing::regular_job("[drive]\nrate = \"20 Hz\"\nramp = \"5 s\"\n"
                                     "[[point]]\nname = \"toe\"\nx = \"18 m\"\ny = \"0 m\"\n")));
  const Json summary = Json::parse(made.write(dir.file("x.out")));
  EXPECT_EQ(summary["title"], "Regular wave");
  EXPECT_EQ(summary["site"]["name"], "Hydraulics Laboratory");
  EXPECT_EQ(summary["site"]["file"], "inputs/flume.site");
  EXPECT_EQ(summary["run"]["repeat"], 60.0);
  EXPECT_EQ(summary["run"]["lowest_harmonic"], 6);     // 0.1 Hz
  EXPECT_EQ(summary["run"]["highest_harmonic"], 120);  // 2 Hz
  EXPECT_EQ(summary["run"]["side_walls"], false);
  EXPECT_EQ(summary["run"]["fronts"], 1);
  EXPECT_EQ(summary["seas"][0]["waves"], Json({"single"}));
  EXPECT_EQ(summary["drive"]["samples"], 1200);
  EXPECT_EQ(summary["drive"]["ramp"], 5.0);
  EXPECT_EQ(summary["drive"]["banks"][0]["maximum"], 0.45);
  const Json& point = summary["points"][0];
  EXPECT_EQ(point["name"], "toe");
  // A sine of 25 mm has four standard deviations of 4 * 25 mm / sqrt(2), and a period of 1.25 s.
  EXPECT_NEAR(point["statistics"]["Hs"]["value"].get<double>(), 0.1 / std::sqrt(2.0), 2e-4);
  EXPECT_EQ(point["statistics"]["Hs"]["units"], "m");
  EXPECT_NEAR(point["statistics"]["Ts"]["value"].get<double>(), 1.25, 1e-9);
  EXPECT_FALSE(summary.contains("field"));
}

TEST(Summary, SaysWhetherSideWallsReflect) {
  const Testing::TempDir dir;
  Testing::MadeRun made(dir.write("storm.toml", Testing::regular_job()), {"run.dalrymple=true"});
  EXPECT_EQ(Json::parse(made.write(dir.file("x.out")))["run"]["side_walls"], true);
}

TEST(Summary, RemarksTooFewWavesForStatistics) {
  const Testing::TempDir dir;
  Testing::MadeRun made(
      dir.write("storm.toml", Testing::regular_job("[[point]]\nx = \"3 m\"\ny = \"0 m\"\n")),
      {"run.repeat=5 s"});
  const Json summary = Json::parse(made.write(dir.file("x.out")));
  EXPECT_TRUE(summary["points"][0]["statistics"].empty());
  EXPECT_EQ(summary["points"][0]["remarks"],
            Json({"no statistics, because there are fewer than six waves"}));
}

TEST(Summary, GivesFindingsInTheirOrderAndNullForNaN) {
  const Testing::TempDir dir;
  Testing::MadeRun made(dir.write("storm.toml", Testing::regular_job()));
  Jobs::Finding height;
  height.group = "sea";
  height.key = "hs";
  height.quantity = "Hs";
  height.units = "m";
  height.asked = 0.08;
  height.made = std::numeric_limits<double>::quiet_NaN();
  height.asked_text = "80.0 mm";
  height.criterion = "within 2 %";
  height.verdict = Jobs::Verdict::look;
  height.remark = "gr\xFC\xDF";
  Jobs::Finding none;
  none.key = "a";
  made.judgement.findings = {height, none};
  made.judgement.judged = 1;
  made.judgement.looks = 1;
  const std::string text = summary_json(*made.run, made.drive.get(), made.judgement);
  const Json summary = Json::parse(text);
  EXPECT_EQ(summary["judged"], 1);
  EXPECT_EQ(summary["looks"], 1);
  const Json& first = summary["findings"][0];
  EXPECT_EQ(first["key"], "hs");
  EXPECT_EQ(first["asked"], 0.08);
  EXPECT_TRUE(first["made"].is_null());
  EXPECT_EQ(first["verdict"], "look");
  EXPECT_EQ(first["remark"], "gr\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(first["minor"], false);
  EXPECT_TRUE(summary["findings"][1]["asked"].is_null());
  EXPECT_TRUE(summary["findings"][1]["verdict"].is_null());
  EXPECT_FALSE(summary.contains("files"));
  EXPECT_EQ(text.find("NaN"), std::string::npos);
}

TEST(Summary, WithoutDriveSignalsHasNone) {
  const Testing::TempDir dir;
  Testing::MadeRun made(dir.write("storm.toml", Testing::regular_job()));
  EXPECT_FALSE(Json::parse(summary_json(*made.run, nullptr, made.judgement)).contains("drive"));
}

TEST(Summary, ListsNoFileThatIsNotRead) {
  const Testing::TempDir dir;
  Testing::MadeRun made(dir.write("storm.toml", Testing::regular_job()));
  made.run->inputs.clear();
  const Json summary = Json::parse(summary_json(*made.run, nullptr, made.judgement));
  EXPECT_FALSE(summary["site"].contains("file"));
  EXPECT_EQ(summary["inputs"], Json::array());
}

TEST(Summary, DoesNotListItself) {
  const Testing::TempDir dir;
  Testing::MadeRun made(dir.write("storm.toml", Testing::regular_job()));
  OutputFolder folder(dir.file("x.out"));
  folder.write("a.txt", "abc");
  folder.write("summary.json", "{}");
  const Json summary =
      Json::parse(summary_text(*made.run, nullptr, made.judgement, Reports{}, &folder));
  ASSERT_EQ(summary["files"].size(), 1u);
  EXPECT_EQ(summary["files"][0]["name"], "a.txt");
}

TEST(Summary, RemarksASurfaceThatMayWrap) {
  const Testing::TempDir dir;
  const std::string field =
      "[field]\nrate = \"20 Hz\"\n"
      "x = { from = \"0 m\", to = \"4 m\", step = \"0.5 m\" }\n"
      "y = { from = \"0 m\", to = \"0.8 m\", step = \"0.4 m\" }\n";
  const std::string job = dir.write("storm.toml", Testing::regular_job(field));
  const auto remarks = [&](const std::string& amplitude) {
    Testing::MadeRun made(job, {"sea.a=" + amplitude, "drive.rate=500 Hz"});
    return Json::parse(made.write(dir.file("x.out")))["field"]["remarks"];
  };
  EXPECT_EQ(remarks("3.5 m"), Json::array());
  EXPECT_EQ(remarks("3.9 m").size(), 1u);
  EXPECT_EQ(remarks("4.4 m").size(), 1u);
  EXPECT_EQ(remarks("30 m").size(), 1u);
}

}  // namespace
}  // namespace Outputs
