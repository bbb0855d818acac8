// Changes of jobs that are refused, with the site at hand and without it.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

#include "jobs/job_folder.h"

namespace Jobs {
namespace {

using Testing::basin_job;
using Testing::flume_job;
using Testing::JobFolder;

const std::string sea =
    "[[sea]]\n[[sea.wave]]\nkind = \"jonswap\"\nhs = \"40 mm\"\ntp = \"1.5 s\"\n";

std::string change(const std::string& keys) { return sea + "[[sea.change]]\n" + keys + "\n"; }

std::string refusal(const std::string& keys) {
  return JobFolder().refusal(basin_job(change(keys)));
}

TEST(ChangeRefusals, ASettingOfAnglesOrPhasesIsAKeyOfTheirChange) {
  EXPECT_EQ(refusal("kind = \"AngleSet\""),
            "10: unknown kind of change `AngleSet` (use `AngleChange` with set = true)\n");
  EXPECT_EQ(refusal("kind = \"PhaseSet\""),
            "10: unknown kind of change `PhaseSet` (use `PhaseChange` with set = true)\n");
}

TEST(ChangeRefusals, AFormulaThatIsMissingIsReportedWithAnExample) {
  for (const auto& [kind, example] :
       {std::pair{"AngleChange", "10@deg"}, std::pair{"AngleSpread", "10"},
        std::pair{"GainAdjust", "1"}}) {
    const std::string text = refusal("kind = \"" + std::string(kind) + "\"");
    EXPECT_NE(text.find("`formula` is missing"), std::string::npos) << text;
    EXPECT_NE(text.find(example), std::string::npos) << text;
  }
}

TEST(ChangeRefusals, LimitsThatFallAreReportedAtTheOneThatIsGiven) {
  const std::string spread = "kind = \"cos2s\"\ns = 8\nangle = \"20 deg\"\nseed = 5\n";
  EXPECT_EQ(refusal(spread + "min_angle = \"89 deg\"\nmax_angle = \"-80 deg\""),
            "15: `max_angle` must not be below `min_angle`\n");
  // The other one is the limit of the site.
  EXPECT_EQ(refusal(spread + "min_angle = \"170 deg\""),
            "14: `max_angle` must not be below `min_angle`\n");
}

TEST(ChangeRefusals, AMeanDirectionMayLieOnEitherSideOfTheLimits) {
  const std::string spread =
      "kind = \"cos2s\"\ns = 8\nseed = 5\nmin_angle = \"-30 deg\"\n"
      "max_angle = \"30 deg\"\n";
  for (const char* angle : {"40 deg", "-40 deg"}) {
    const std::string text = refusal(spread + "angle = \"" + angle + "\"");
    EXPECT_TRUE(text.starts_with("15: `angle` is not between -30 and 30 deg")) << text;
  }
  EXPECT_EQ(refusal(spread + "angle = \"-30 deg\""), "");
}

TEST(ChangeRefusals, TheKeysOfASpreadAreCheckedWithoutASite) {
  const auto without_site = [](const std::string& keys) {
    return JobFolder().refusal("site = \"none.site\"\n[run]\nrepeat = \"64 s\"\n" + change(keys));
  };
  const auto lines = [](const std::string& text) {
    return std::count(text.begin(), text.end(), '\n');
  };
  EXPECT_EQ(lines(without_site("kind = \"cos2s\"\ns = 8\nangle = \"20 deg\"")), 1);
  const std::string text = without_site("kind = \"cos2s\"\ns = 8\nangle = \"20 m\"");
  EXPECT_EQ(lines(text), 2) << text;
  EXPECT_NE(text.find("12: `angle`"), std::string::npos) << text;
  // Without a direction there is no mean to report on.
  EXPECT_EQ(lines(without_site("kind = \"cos2s\"\ns = 8")), 2);
}

TEST(ChangeRefusals, ASiteThatIsNoRegularFileIsRefused) {
  const JobFolder folder;
  EXPECT_EQ(folder.refusal("site = \"/dev/null\"\n[run]\nrepeat = \"64 s\"\n" + sea),
            "1: the site `/dev/null` is not a regular file\n");
}

TEST(ChangeRefusals, ATuningOutsideTheLimitsOfTheSiteIsRefused) {
  const std::string text = JobFolder().refusal(flume_job("[tune]\ndrive_gain = \"1000\"\n" + sea));
  EXPECT_TRUE(text.starts_with("5: `drive_gain` is not between ")) << text;
  EXPECT_NE(text.find("(a limit of the site)"), std::string::npos) << text;
}

}  // namespace
}  // namespace Jobs
