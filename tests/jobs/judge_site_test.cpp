#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "jobs/job_folder.h"

namespace Jobs {
namespace {

// Why a run in an example with one change of its site is refused.
std::string refusal(const std::string& site, const std::string& from, const std::string& to) {
  const Testing::JobFolder folder;
  std::filesystem::copy(Testing::example("common"), folder.file("common"));
  std::ifstream in(Testing::example(site));
  std::ostringstream script;
  script << in.rdbuf();
  std::string text = script.str();
  const std::size_t at = text.find(from);
  if (at == text.npos) return site + " has no " + from;
  folder.write(site, text.replace(at, from.size(), to));
  return folder.refusal("site = \"" + site +
                        "\"\n[run]\nrepeat = \"64 s\"\n[[sea]]\n[[sea.wave]]\n"
                        "kind = \"single\"\nf = \"0.5 Hz\"\na = \"20 mm\"\n");
}

std::string flume(const std::string& fault) { return "1: the site `flume.site`: " + fault + "\n"; }

// Without a rate the library reports harmonics, and the job its own rates.
TEST(JudgeSite, TheBaseRateMustBeAboveZero) {
  for (const std::string rate : {"-50", "0", "$"}) {
    EXPECT_EQ(refusal("flume.site", "base_rate = 50;", "base_rate = " + rate + ";"),
              flume("its `base_rate` must be above 0"))
        << rate;
  }
  EXPECT_EQ(refusal("flume.site", "base_rate = 50;", "base_rate = 40;"), "");
}

TEST(JudgeSite, GravityMustBeAboveZero) {
  EXPECT_EQ(refusal("flume.site", "base_rate = 50;", "base_rate = 50; base_g = 0;"),
            flume("its `base_g` must be above 0"));
}

TEST(JudgeSite, PaddlesMustHaveAWidth) {
  for (const std::string width : {"0", "-0.8", "$"}) {
    EXPECT_EQ(refusal("flume.site", "paddle_width = 0.8;", "paddle_width = " + width + ";"),
              flume("bank `piston`: `paddle_width` must be above 0"))
        << width;
  }
}

// The flume reaches from 0 to 0.8 m, and its paddle is 0.8 m wide.
TEST(JudgeSite, PaddlesMustReachIntoTheTank) {
  const std::string outside =
      flume("bank `piston`: paddle 1 lies outside the tank, which reaches from 0 to 0.8 m across");
  for (const std::string y : {"1e308", "1.21", "-0.41", "$"}) {
    EXPECT_EQ(refusal("flume.site", "y = 0.4;", "y = " + y + ";"), outside) << y;
  }
  for (const std::string y : {"1.19", "-0.39"}) {
    EXPECT_EQ(refusal("flume.site", "y = 0.4;", "y = " + y + ";"), "") << y;
  }
}

// A tank without side walls need not have a width.
TEST(JudgeSite, PaddlesMayLieAnywhereWhereTheTankHasNoWidth) {
  EXPECT_EQ(refusal("basin.site", "max_y = 20;", "max_y = 0;"), "");
}

TEST(JudgeSite, EachFaultIsReported) {
  EXPECT_EQ(refusal("flume.site", "base_rate = 50;", "base_rate = 0; base_g = -1;"),
            flume("its `base_rate` must be above 0") + flume("its `base_g` must be above 0"));
}

}  // namespace
}  // namespace Jobs
