// Which keys a script must set, and the lines that report missing ones.
#include <gtest/gtest.h>

#include "site_script.h"

namespace {

struct Missing {
  const char* assignment;  // removed from the script
  const char* line;        // in the report
};

// Every required key of a site.
const Missing required[] = {
    {"site_name = \"Bay\";", "context{site_name = $;}"},
    {"tank_name = \"Basin\";", "context{tank_name = $;}"},
    {"config_name = \"Spring\";", "context{config_name = $;}"},
    {"rate_units = Hz;", "context{rate_units = $;}"},
    {"base_rate = 40;", "context{base_rate = $;}"},
    {"base_g = 9.81;", "context{base_g = $;}"},
    {"base_rho = 1000;", "context{base_rho = $;}"},
    {"geometry = BothSides;", "context{tank{geometry = $;}}"},
    {"units = m;", "context{tank{units = $;}}"},
    {"max_y = 4.5;", "context{tank{max_y = $;}}"},
    {"min_y = -1.5;", "context{tank{min_y = $;}}"},
    {"x = 0;", "context{tank{section[1]{x = $;}}}"},
    {"x = 20;", "context{tank{section[2]{x = $;}}}"},
    {"offset = Relative;", "context{tank{section[1]{offset = $;}}}"},
    {"offset = Absolute;", "context{tank{section[2]{offset = $;}}}"},
    {"name = \"gain\";", "context{tank{param[1]{name = $;}}}"},
    {"value = 1.25;", "context{tank{param[1]{value = $;}}}"},
    {"max = 2.5;", "context{tank{param[1]{max = $;}}}"},
    {"min = 0.5;", "context{tank{param[1]{min = $;}}}"},
    {"error = 0.125;", "context{tank{param[1]{error = $;}}}"},
    {"units = \"cm\";", "context{tank{param[1]{units = $;}}}"},
    {"frequency { units = \"Hz\"; maximum = 2.25; minimum = 0.25; }",
     "context{limits{frequency{}}}"},
    {"angle { units = \"deg\"; maximum = 60; minimum = -45; }", "context{limits{angle{}}}"},
    {"units = \"Hz\";", "context{limits{frequency{units = $;}}}"},
    {"maximum = 2.25;", "context{limits{frequency{maximum = $;}}}"},
    {"minimum = 0.25;", "context{limits{frequency{minimum = $;}}}"},
    {"units = \"deg\";", "context{limits{angle{units = $;}}}"},
    {"maximum = 60;", "context{limits{angle{maximum = $;}}}"},
    {"minimum = -45;", "context{limits{angle{minimum = $;}}}"},
    {"name = \"north\";", "context{wavemaker_bank[1]{name = $;}}"},
    {"pad_pos[2..1] { x = 0.01; y = 0.35; angle = 0.03; }",
     "context{wavemaker_bank[1]{pad_pos[$..$]}}"},
    {"paddle_width = 0.55;", "context{wavemaker_bank[1]{flap{paddle_width = $;}}}"},
    {"critical_dimension = 0.65;", "context{wavemaker_bank[1]{flap{critical_dimension = $;}}}"},
    {"dimension_type = ToSurface;", "context{wavemaker_bank[1]{flap{dimension_type = $;}}}"},
    {"clip_limit = 11;", "context{wavemaker_bank[1]{flap{paddle_motion{clip_limit = $;}}}}"},
    {"maximum = 12;", "context{wavemaker_bank[1]{flap{paddle_motion{maximum = $;}}}}"},
    {"minimum = -13;", "context{wavemaker_bank[1]{flap{paddle_motion{minimum = $;}}}}"},
    {"units = \"mrad\";", "context{wavemaker_bank[1]{flap{paddle_motion{units = $;}}}}"},
    {"name = \"ratio\";", "context{wavemaker_bank[1]{flap{constant[1]{name = $;}}}}"},
    {"units = \"mm\";", "context{wavemaker_bank[1]{flap{constant[1]{units = $;}}}}"},
    {"value = 7.5;", "context{wavemaker_bank[1]{flap{constant[1]{value = $;}}}}"},
};

std::string without_block(const std::string& text, const std::string& from, const std::string& to) {
  const std::size_t begin = text.find(from);
  const std::size_t end = text.find(to, begin);
  if (begin == std::string::npos || end == std::string::npos) {
    ADD_FAILURE() << "no block from " << from << " to " << to;
    return text;
  }
  return text.substr(0, begin) + text.substr(end);
}

void expect_missing(const std::string& text, const std::string& lines) {
  Load site(text);
  EXPECT_EQ(site.report.str(), lines);
  EXPECT_EQ(site.failure, site.path + "::Failed to verify") << lines;
  EXPECT_EQ(site.log_text.str(), "");
}

TEST(Verify, EachMissingKeyIsReported) {
  for (const Missing& key : required) {
    SCOPED_TRACE(key.line);
    expect_missing(site_with(key.assignment, ""), std::string(key.line) + "\n");
  }
}

TEST(Verify, EachMissingBlockIsReported) {
  const std::string text = full_script();
  expect_missing(without_block(text, "tank {", "limits {"), "context{tank{}}\n");
  expect_missing(without_block(text, "limits {", "wavemaker_bank"), "context{limits{}}\n");
  expect_missing(without_block(text, "wavemaker_bank", "rate_units"),
                 "context{wavemaker_bank[$..$]}\n");
  expect_missing(without_block(text, "section[2..1]", "reference_x"),
                 "context{tank{section[$..$]}}\n");
  expect_missing(without_block(text, "paddle_motion {", "constant"),
                 "context{wavemaker_bank[1]{flap{paddle_motion{}}}}\n");
}

TEST(Verify, MissingKeysAreReportedInOrderOfDeclaration) {
  std::string text = site_with("base_rho = 1000;", "");
  text = changed(text, "y = 0.35;", "");
  text = changed(text, "maximum = 60;", "");
  text = changed(text, "units = m;", "");
  text = changed(text, "site_name = \"Bay\";", "");
  expect_missing(text,
                 "context{site_name = $;}\n"
                 "context{tank{units = $;}}\n"
                 "context{limits{angle{maximum = $;}}}\n"
                 "context{wavemaker_bank[1]{pad_pos[1]{y = $;}}}\n"
                 "context{wavemaker_bank[1]{pad_pos[2]{y = $;}}}\n"
                 "context{base_rho = $;}\n");
}

TEST(Verify, PaddlesNeedThreeNumbers) {
  const std::pair<const char*, const char*> keys[] = {
      {"x = 0.01;", "x"}, {"y = 0.35;", "y"}, {"angle = 0.03;", "angle"}};
  for (const auto& [text, key] : keys) {
    const std::string begin = "context{wavemaker_bank[1]{pad_pos[";
    const std::string end = std::string("]{") + key + " = $;}}}\n";
    expect_missing(site_with(text, ""), begin + "1" + end + begin + "2" + end);
  }
}

TEST(Verify, OptionalKeysMayBeOmitted) {
  const std::string text = full_script();
  const std::string scripts[] = {
      site_with("reference_x = 1.0;", ""),
      site_with("delta_depth = 0.02;", ""),
      site_with("delta_x = 0.6;", ""),
      without_block(text, "param[1..1]", "}\n  limits"),
      site_with("constant[1..1] { name = \"ratio\"; units = \"mm\"; value = 7.5; }", ""),
  };
  for (const std::string& script : scripts) {
    Load site(script);
    EXPECT_TRUE(site.ok()) << site.failure << "\n" << script;
    EXPECT_EQ(site.report.str(), "");
    EXPECT_EQ(site.log_text.str(), "");
  }
}

TEST(Verify, OptionalKeysHaveTheirDefaults) {
  std::string text = site_with("reference_x = 1.0;", "");
  text = changed(text, "delta_depth = 0.02;", "");
  text = changed(text, "delta_x = 0.6;", "");
  Load site(text);
  const Common::Tank& tank = *site.context().tank.get();
  EXPECT_EQ(tank.reference_x, 0.0);
  EXPECT_EQ(tank.delta_depth, 0.01);
  EXPECT_EQ(tank.delta_x, 0.5);
  EXPECT_EQ(tank.section[1].depth, "NULL");
}

TEST(Verify, ElementsAreReportedWithTheirIndexInTheScript) {
  std::string text = site_with_sections(R"(section[4..3];
    section[3] { x = 0; offset = Relative; depth = "0.8"; }
    section[4] { offset = Absolute; })");
  expect_missing(text, "context{tank{section[4]{x = $;}}}\n");
}

}  // namespace
