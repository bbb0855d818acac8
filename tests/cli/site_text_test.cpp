// How a site is shown, for values that are filled in by hand.
#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>

#include "cli/site_report.h"

namespace {

using Cli::SiteReport;

constexpr double infinite = HUGE_VAL;
const double not_set = std::nan("");

bool has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

SiteReport flume() {
  SiteReport report;
  report.max_x = 25.0;
  report.max_y = 0.8;
  report.walls = "flume";
  report.profile = {{0.7, 0.0}, {0.7, 25.0}};
  report.paddle_depth = 0.7;
  report.min_frequency = 0.1;
  report.max_frequency = 2.0;
  report.base_rate = 64.0;
  report.gravity = 9.81;
  return report;
}

TEST(SiteText, NamesTheWallThatReflects) {
  SiteReport report = flume();
  EXPECT_TRUE(has(site_text(report), "; a flume: waves run along x\n"));
  report.walls = "plus";
  EXPECT_TRUE(has(site_text(report), "; the side wall at y = 0.8 m reflects\n"));
  report.walls = "minus";
  EXPECT_TRUE(has(site_text(report), "; the side wall at y = 0 m reflects\n"));
  report.walls = "both";
  EXPECT_TRUE(has(site_text(report), "; the side walls at y = 0 m and y = 0.8 m reflect\n"));
  report.walls = "none";
  EXPECT_TRUE(has(site_text(report), "; no side wall reflects\n"));
}

TEST(SiteText, NamesValuesThatAreNoNumbers) {
  SiteReport report = flume();
  report.min_y = not_set;
  report.min_frequency = -infinite;
  report.max_frequency = infinite;
  const std::string text = site_text(report);
  EXPECT_TRUE(has(text, "y = not set to 0.8 m")) << text;
  EXPECT_TRUE(has(text, "minus infinite to infinite Hz")) << text;
}

TEST(SiteText, ShowsADepthThatCannotBeComputed) {
  SiteReport report = flume();
  report.paddle_depth = not_set;
  report.profile = {{not_set, 0.0}, {infinite, 25.0}};
  const std::string text = site_text(report);
  EXPECT_TRUE(has(text, "none at the paddle line, x = 0\n")) << text;
  EXPECT_TRUE(has(text, "  none  infinite  m\n")) << text;
}

TEST(SiteText, SaysWhyNoWaveCanBeMade) {
  EXPECT_EQ(why_no_wave(flume()), "");
  EXPECT_FALSE(has(site_text(flume()), "no wave can be made"));
  for (const double value : {0.0, -1.0, infinite, not_set}) {
    SiteReport report = flume();
    report.gravity = value;
    EXPECT_EQ(why_no_wave(report), "base_g is not above 0 and finite");
    report.base_rate = value;
    EXPECT_EQ(why_no_wave(report), "base_rate is not above 0 and finite");
    report.paddle_depth = value;
    EXPECT_EQ(why_no_wave(report), "the depth at the paddle line is not above 0 and finite");
    EXPECT_TRUE(has(site_text(report), "no wave can be made here: the depth at the paddle line"));
    EXPECT_TRUE(nlohmann::json::parse(site_json(report))["no_wave"].is_string());
  }
  EXPECT_TRUE(nlohmann::json::parse(site_json(flume()))["no_wave"].is_null());
}

TEST(SiteText, HasConstantsAndTunables) {
  SiteReport report = flume();
  report.tunables = {{"porosity", "", 0.45, 0.3, 0.6}};
  Cli::SiteBank bank;
  bank.name = "main";
  bank.machine = "piston";
  bank.paddles = 1;
  bank.constants = {{"gain", "V/m", 2.5}};
  report.banks = {bank};
  const std::string text = site_text(report);
  EXPECT_TRUE(has(text, "porosity = 0.45, from 0.3 to 0.6\n")) << text;
  EXPECT_TRUE(has(text, "gain = 2.5 V/m\n")) << text;
  const auto json = nlohmann::json::parse(site_json(report));
  EXPECT_EQ(json["banks"][0]["constants"]["gain"],
            (nlohmann::json{{"value", 2.5}, {"units", "V/m"}}));
  EXPECT_EQ(json["tunables"]["porosity"]["value"], 0.45);
  EXPECT_EQ(json["tunables"]["porosity"]["maximum"], 0.6);
}

}  // namespace
