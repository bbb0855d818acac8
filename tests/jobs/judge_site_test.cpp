#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "jobs/job_folder.h"

namespace Jobs {
namespace {

const std::string job =
    "[run]\nrepeat = \"64 s\"\n[[sea]]\n[[sea.wave]]\nkind = \"single\"\nf = \"0.5 Hz\"\na = \"20 "
    "mm\"\n";

// A folder with one change in the site of an example.
struct ChangedSite : Testing::JobFolder {
  ChangedSite(const std::string& site, const std::string& from, const std::string& to)
      : job_text("site = \"" + site + "\"\n" + job) {
    std::filesystem::copy(Testing::example("common"), file("common"));
    std::ifstream in(Testing::example(site));
    std::ostringstream script;
    script << in.rdbuf();
    std::string text = script.str();
    const std::size_t at = text.find(from);
    EXPECT_NE(at, text.npos) << site << " has no " << from;
    if (at != text.npos) text.replace(at, from.size(), to);
    write(site, text);
  }
  std::string job_text;
};

// Why a run is refused.
std::string refusal(const std::string& site, const std::string& from, const std::string& to) {
  const ChangedSite changed(site, from, to);
  return changed.refusal(changed.job_text);
}

std::vector<std::string> remarks(const std::string& site, const std::string& from,
                                 const std::string& to) {
  const ChangedSite changed(site, from, to);
  return changed.prepare(changed.job_text)->remarks;
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
TEST(JudgeSite, PaddlesOutsideTheTankAreRemarkedOn) {
  const std::vector<std::string> outside = {
      "bank `piston`: paddle 1 lies outside the tank, which reaches from 0 to 0.8 m across"};
  for (const std::string y : {"1e308", "1.21", "-0.41", "$"}) {
    EXPECT_EQ(remarks("flume.site", "y = 0.4;", "y = " + y + ";"), outside) << y;
  }
  for (const std::string y : {"1.19", "-0.39"}) {
    EXPECT_TRUE(remarks("flume.site", "y = 0.4;", "y = " + y + ";").empty()) << y;
  }
}

// A tank without side walls need not have a width.
TEST(JudgeSite, PaddlesMayLieAnywhereWhereTheTankHasNoWidth) {
  EXPECT_TRUE(remarks("basin.site", "max_y = 20;", "max_y = 0;").empty());
}

TEST(JudgeSite, EachFaultIsReported) {
  EXPECT_EQ(refusal("flume.site", "base_rate = 50;", "base_rate = 0; base_g = -1;"),
            flume("its `base_rate` must be above 0") + flume("its `base_g` must be above 0"));
}

}  // namespace
}  // namespace Jobs
