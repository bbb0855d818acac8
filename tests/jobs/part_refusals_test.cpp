// Parts of jobs that are refused, or that are checked without a site.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "jobs/job_folder.h"
#include "support/test_site.h"

namespace Jobs {
namespace {

using Testing::flume_job;
using Testing::JobFolder;

const std::string sine = "[[sea]]\n[[sea.wave]]\nkind = \"single\"\nf = \"0.5 Hz\"\na = \"2 mm\"\n";
const std::string jonswap =
    "[[sea]]\n[[sea.wave]]\nkind = \"jonswap\"\nhs = \"40 mm\"\ntp = \"1.5 s\"\n";
const std::string x_range = "x = { from = \"0 m\", to = \"20 m\", step = \"1 m\" }\n";
const std::string y_range = "y = { from = \"0 m\", to = \"0.8 m\", step = \"0.8 m\" }\n";

std::string refusal(const std::string& rest) { return JobFolder().refusal(flume_job(rest)); }
std::string of_wave(const std::string& keys) {
  return refusal("[[sea]]\n[[sea.wave]]\n" + keys + "\n");
}
std::string of_change(const std::string& keys) {
  return refusal(jonswap + "[[sea.change]]\n" + keys + "\n");
}

bool is_one_line(const std::string& text) { return text.find('\n') == text.size() - 1; }

TEST(PartRefusals, PlacesAreNotCheckedWithoutASite) {
  const std::string text = JobFolder().refusal(
      "site = \"none.site\"\n[run]\nrepeat = \"64 s\"\n" + sine +
      "[[point]]\nx = \"1000 m\"\ny = \"0 m\"\n[field]\nrate = \"10 Hz\"\n" + x_range + y_range);
  EXPECT_TRUE(is_one_line(text)) << text;
  EXPECT_TRUE(text.starts_with("1: the site `none.site` does not exist")) << text;
}

TEST(PartRefusals, AJobWithoutARunOrASiteIsReportedOnce) {
  EXPECT_EQ(JobFolder().refusal("site = \"" + Testing::example("flume.site") + "\"\n" + sine),
            "0: the job has no [run]\n");
  EXPECT_EQ(JobFolder().refusal("site = \"\"\n[run]\nrepeat = \"64 s\"\n" + sine),
            "1: `site` must not be empty\n");
  try {
    Jobs::prepare(Jobs::Job(), {});
    ADD_FAILURE() << "it is prepared";
  } catch (const BadJob& bad) {
    ASSERT_FALSE(bad.faults.empty());
    EXPECT_EQ(bad.faults[0].fault, "`site` is missing");
  }
}

TEST(PartRefusals, APointNeedsItsPlace) {
  EXPECT_EQ(refusal(sine + "[[point]]\nx = \"1 m\"\n"),
            "9: `y` is missing in the point `point 1` (a length in m, mm, cm, ft, in)\n");
}

TEST(PartRefusals, ATankWithoutAWidthHasPointsAnywhereAcross) {
  const JobFolder folder;
  Testing::SiteText site;
  site.min_y = site.max_y = 0;
  folder.write("own.site", Testing::script(site));
  EXPECT_EQ(folder.refusal("site = \"own.site\"\n[run]\nrepeat = \"64 s\"\n" + sine +
                           "[[point]]\nx = \"1 m\"\ny = \"30 m\"\n"),
            "");
}

TEST(PartRefusals, AFieldNeedsARateAndBothRanges) {
  EXPECT_EQ(refusal(sine + "[field]\n" + x_range),
            "9: `rate` is missing in [field] (a frequency in Hz, rad/s, rpm)\n"
            "9: `y` is missing in [field] "
            "(such as y = { from = \"0 m\", to = \"10 m\", step = \"0.25 m\" })\n");
  EXPECT_EQ(refusal(sine + "[field]\nrate = \"10 Hz\"\n" + y_range +
                    "x = { from = \"0 m\", to = \"20 s\", step = \"1 m\" }\n"),
            "12: `to` is a length, but \"20 s\" is a time (use m, mm, cm, ft, in)\n");
}

TEST(PartRefusals, AFieldHasAtMostFourThousandMillionPoints) {
  // 20 m / 1e-7 m + 1 columns and 0.8 m / 1e-7 m + 1 rows.
  EXPECT_EQ(refusal(sine + "[field]\nrate = \"10 Hz\"\n"
                           "x = { from = \"0 m\", to = \"20 m\", step = \"1e-7 m\" }\n"
                           "y = { from = \"0 m\", to = \"0.8 m\", step = \"1e-7 m\" }\n"),
            "9: the field has 1.6e+15 points "
            "(at most 4.29e+09 can be computed: a larger step)\n");
}

TEST(PartRefusals, ATextOrATableMustBeOne) {
  EXPECT_EQ(JobFolder().refusal("title = {a = 1}\n" + flume_job(sine)),
            "1: `title` must be a text (this is a table)\n");
  for (const char* list : {"[]", "[1]"}) {
    EXPECT_EQ(JobFolder().refusal("outputs = " + std::string(list) + "\n" + flume_job(sine)),
              "1: [outputs] must be a table (this is a list)\n");
  }
}

TEST(PartRefusals, AFileIsAPathAsText) {
  EXPECT_EQ(of_wave("kind = \"record\"\nfile = 3"), "7: `file` is a path (write it as text)\n");
}

TEST(PartRefusals, ValuesThatAreOnlyTogetherTooLargeAreReportedAtTheWave) {
  EXPECT_EQ(of_wave("kind = \"jonswap\"\nhs = \"1e200 m\"\ntp = \"1.5 s\""),
            "5: a `jonswap` wave: these values together give no finite wave\n");
  EXPECT_EQ(of_wave("kind = \"jonswap\"\nhs = \"1 m\"\ntp = \"1e-310 s\""),
            "5: a `jonswap` wave: these values together give no finite wave\n");
}

TEST(PartRefusals, AFormulaUsesAParameterInOneKindOfUnits) {
  for (const char* wave : {"kind = \"spectrum\"\nformula = \"0.5@Hz#a[m]*a[s]@m2s#1@Hz\"",
                           "kind = \"time\"\nformula = \"0@s#a[m]*a[s]@m#64@s\""}) {
    const std::string text = of_wave(wave);
    EXPECT_TRUE(text.starts_with("7: Incompatible units for => a (")) << text;
    EXPECT_TRUE(is_one_line(text)) << text;
  }
  EXPECT_EQ(of_change("kind = \"GainAdjust\"\nformula = \"a[m]*a[s]\"\na = \"1 m\""),
            "11: Incompatible units for => a\n");
}

TEST(PartRefusals, AFormulaLiesInTheRunAndRises) {
  EXPECT_EQ(of_wave("kind = \"spectrum\"\nformula = \"0.01@Hz#0.001@m2s#0.05@Hz\""),
            "7: the wave lies outside the run's harmonics, 0.09375 to 2 Hz\n");
  EXPECT_EQ(of_wave("kind = \"white_noise\"\nhs = \"1 mm\"\nf_min = \"3 Hz\"\nf_max = \"4 Hz\""),
            "5: the wave lies outside the run's harmonics, 0.09375 to 2 Hz\n");
  EXPECT_EQ(of_wave("kind = \"time\"\nformula = \"64@s#0.01@m#0@s\"\nrate = \"10 Hz\""),
            "7: Limit values do not increase in size\n");
  EXPECT_EQ(of_wave("kind = \"spectrum\"\nformula = \"0.5@Hz#0.001@m2s#1@Hz\"\nfoo = 1"),
            "8: unknown key `foo` in a `spectrum` wave (use formula)\n");
}

TEST(PartRefusals, AParameterOfAFormulaMayBeCalledSeed) {
  const auto run = JobFolder().prepare(flume_job(
      jonswap + "[[sea.change]]\nkind = \"GainAdjust\"\nformula = \"2*seed\"\nseed = 3\n"));
  EXPECT_TRUE(run->remarks.empty());
  EXPECT_EQ(run->seas[0].gain(0.5), 6.0);
}

TEST(PartRefusals, AMissingMemberOfAnEnumerationIsDescribed) {
  EXPECT_EQ(of_change("kind = \"AngleSpread\"\nformula = \"9\"\nangle = \"10 deg\""),
            "9: `function` is missing in an `AngleSpread` change (one of CosS, Cos2S)\n");
}

TEST(PartRefusals, ASecondChangeIsReportedEvenIfItIsSound) {
  const std::string gain = "[[sea.change]]\nkind = \"GainAdjust\"\nformula = \"2\"\n";
  EXPECT_EQ(refusal(jonswap + gain + gain),
            "12: a second change of amplitude in sea 1 (the first is `GainAdjust`)\n");
}

TEST(PartRefusals, AFailureOfTwoPossibleChangesIsReportedAtTheRun) {
  const std::string sweep =
      "[[sea.change]]\nkind = \"AngleSweep\"\nformula = \"0\"\ndelta_angle = \"10 deg\"\n";
  const std::string gain = "[[sea.change]]\nkind = \"gain\"\nfactor = 2\n";
  EXPECT_EQ(refusal(sine + gain + sweep), "12: the waves cannot be built: Sweep has zero output\n");
  EXPECT_EQ(refusal(sine + sweep + sine + sweep),
            "2: the waves cannot be built: Sweep has zero output\n");
}

TEST(PartRefusals, AFormulaWithoutAValueIsReportedWhereItIs) {
  const std::string no_gamma = "tgamma: Invalid input argument -";
  EXPECT_TRUE(of_wave("kind = \"spectrum\"\nformula = \"0.5@Hz#tgamma(-2*$[Hz])@m2s#1@Hz\"")
                  .starts_with("7: " + no_gamma));
  EXPECT_TRUE(of_wave("kind = \"time\"\nformula = \"0@s#tgamma(-$[s])@m#64@s\"\nrate = \"10 Hz\"")
                  .starts_with("7: " + no_gamma));
  EXPECT_TRUE(of_change("kind = \"GainAdjust\"\nformula = \"tgamma(-$[Hz])\"")
                  .starts_with("11: " + no_gamma));
  EXPECT_TRUE(of_change("kind = \"PhaseChange\"\nformula = \"tgamma(-1)@deg\"")
                  .starts_with("9: a `PhaseChange` change of sea 1: " + no_gamma));
}

TEST(PartRefusals, LimitsOfAChangeRise) {
  EXPECT_EQ(of_change("kind = \"AngleSpread\"\nfunction = \"CosS\"\nangle = \"0 deg\"\n"
                      "formula = \"10#0.5@Hz#10#0.4@Hz#3\""),
            "9: an `AngleSpread` change of sea 1: Limits out of order\n");
}

TEST(PartRefusals, AFanHasStepsThatLeadSomewhere) {
  for (const char* step : {"0 deg", "400 deg"}) {
    EXPECT_EQ(of_change("kind = \"AngleSweep\"\nformula = \"1\"\ndelta_angle = \"" +
                        std::string(step) + "\""),
              "12: `delta_angle` must be between 0.001 and 360 deg "
              "(the step between two directions)\n");
  }
}

TEST(PartRefusals, AFormulaHasAtMostAHundredThousandCharacters) {
  const std::string longest = "0.5@Hz#" + std::string(100'000 - 22, ' ') + "0.0001@m2s#1@Hz";
  EXPECT_EQ(of_wave("kind = \"spectrum\"\nformula = \"" + longest + "\""), "");
  EXPECT_EQ(of_wave("kind = \"spectrum\"\nformula = \" " + longest + "\""),
            "7: the formula has 100001 characters "
            "(at most 100000 can be read; tables of values belong in a CSV file)\n");
}

TEST(PartRefusals, TheTimesOfARecordIncrease) {
  const JobFolder folder;
  const auto of_times = [&](const std::string& second) {
    folder.write("r.csv", "time [s],eta [mm]\n0,1\n" + second + ",2\n");
    return folder.refusal(
        flume_job("[[sea]]\n[[sea.wave]]\nkind = \"record\"\nfile = \"r.csv\"\n"));
  };
  EXPECT_EQ(of_times("1"), "");
  EXPECT_EQ(of_times("0"), "7: the times of column `time` do not increase (give `rate`)\n");
  // The rate would be infinite.
  EXPECT_EQ(of_times("5e-324"),
            "7: the times of column `time` are too close together (give `rate`)\n");
}

TEST(PartRefusals, AFrequencyIsReportedAtTheKeyThatIsGiven) {
  EXPECT_EQ(of_wave("kind = \"jonswap\"\nhs = \"1 m\"\ntp = \"1.5 s\"\nf_max = \"0.05 Hz\""),
            "9: `f_max` must be above f_min, which is 0.1 Hz\n");
}

TEST(PartRefusals, ANameOrAFileIsATextOnOneLine) {
  EXPECT_EQ(of_wave("kind = \"record\"\nfile = \"\"\"abcdef\nx.csv\"\"\""),
            "7: `file` must be a text on one line\n");
  EXPECT_EQ(refusal("[[sea]]\nname = \"\"\n[[sea.wave]]\nkind = \"single\"\nf = \"0.5 Hz\"\n"
                    "a = \"2 mm\"\n"),
            "5: `name` must not be empty\n");
}

TEST(PartRefusals, ARunThatOnlyOptionsDescribeIsOne) {
  const JobFolder folder;
  folder.write("job.toml", "site = \"" + Testing::example("flume.site") + "\"\n" + sine);
  Diagnostics faults;
  Job job = read_job(folder.file("job.toml"), {"run.repeat=32 s"}, faults);
  const auto run = prepare(std::move(job), std::move(faults));
  EXPECT_EQ(run->experiment.repeat(run->definition).value(), 32.0);
}

}  // namespace
}  // namespace Jobs
