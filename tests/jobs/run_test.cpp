#include "jobs/run.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ios>
#include <new>

#include "base/streams.h"
#include "jobs/captured_lines.h"
#include "jobs/job_folder.h"

namespace Jobs {
namespace {

using Testing::basin_job;
using Testing::example;
using Testing::flume_job;
using Testing::JobFolder;

const std::string one_wave =
    "[[sea]]\n[[sea.wave]]\nkind = \"single\"\nf = \"0.5 Hz\"\na = \"20 mm\"\n";

TEST(Run, MakesTheShortestUsefulJob) {
  const auto run = JobFolder().build(flume_job(one_wave));
  EXPECT_EQ(run->seas.size(), 1u);
  EXPECT_EQ(run->experiment.repeat(run->definition).value(), 64.0);
  EXPECT_FALSE(run->experiment.repeat(run->definition).dalrymple());
  const auto& fronts = run->experiment.fronts(run->definition, true);
  ASSERT_EQ(fronts.size(), 1u);
  EXPECT_NEAR(fronts[0].freq, 0.5, 1e-12);
  EXPECT_NEAR(fronts[0].amp, 0.02, 1e-15);
}

TEST(Run, TakesTheDefaultsOfDriveFromTheSite) {
  const auto run = JobFolder().prepare(flume_job(one_wave));
  EXPECT_EQ(run->drive.rate, 50.0);  // base_rate of the flume
  EXPECT_EQ(run->drive.ramp, 0.0);
  EXPECT_FALSE(run->drive.stop_at_limit);
  EXPECT_EQ(run->field, nullptr);
  EXPECT_TRUE(run->points.empty());
}

TEST(Run, ReadsDrivePointsAndField) {
  const auto run = JobFolder().prepare(flume_job(
      one_wave +
      "[drive]\nrate = \"100 Hz\"\nramp = \"0.1 min\"\nstop_at_limit = true\n"
      "[[point]]\nname = \"model\"\nx = \"12 m\"\ny = \"40 cm\"\n"
      "[[point]]\nx = \"1 ft\"\ny = \"0 m\"\nrate = \"25 Hz\"\ndelta_angle = \"5 deg\"\n"
      "[field]\nrate = \"10 Hz\"\nx = { from = \"0 m\", to = \"20 m\", step = \"25 cm\" }\n"
      "y = { from = \"0 m\", to = \"0.8 m\", step = \"0.4 m\" }\n"));
  EXPECT_EQ(run->drive.rate, 100.0);
  EXPECT_NEAR(run->drive.ramp, 6.0, 1e-12);
  EXPECT_TRUE(run->drive.stop_at_limit);
  ASSERT_EQ(run->points.size(), 2u);
  EXPECT_EQ(run->points[0].name, "model");
  EXPECT_EQ(run->points[0].x, 12.0);
  EXPECT_NEAR(run->points[0].y, 0.4, 1e-15);
  EXPECT_EQ(run->points[0].rate, 100.0);  // the drive's
  EXPECT_NEAR(run->points[0].delta_angle, 10 * M_PI / 180, 1e-6);
  EXPECT_NEAR(run->points[1].x, 0.3048, 1e-15);
  EXPECT_EQ(run->points[1].rate, 25.0);
  EXPECT_NEAR(run->points[1].delta_angle, 5 * M_PI / 180, 1e-6);
  ASSERT_NE(run->field, nullptr);
  EXPECT_EQ(run->field->rate, 10.0);
  EXPECT_EQ(run->field->x_max, 20.0);
  EXPECT_NEAR(run->field->x_step, 0.25, 1e-15);
  EXPECT_NEAR(run->field->y_step, 0.4, 1e-15);
}

TEST(Run, RefusesImpossibleRequests) {
  EXPECT_EQ(JobFolder().refusal(flume_job(one_wave +
                                          "[drive]\nrate = \"0 Hz\"\nramp = \"-1 s\"\n"
                                          "[[point]]\nx = \"1 m\"\ny = \"0 m\"\nrate = \"-1 Hz\"\n"
                                          "[field]\nrate = \"10 Hz\"\n"
                                          "x = { from = \"5 m\", to = \"2 m\", step = \"0 m\" }\n"
                                          "y = 3\n")),
            "10: `rate` must be above 0\n"
            "11: `ramp` must not be negative\n"
            "15: `rate` must be above 0\n"
            "18: `to` must be above `from` (a field has at least two rows and two columns)\n"
            "18: `step` must be above 0\n"
            "19: `y` of [field] is a table "
            "(such as y = { from = \"0 m\", to = \"10 m\", step = \"0.25 m\" })\n");
}

TEST(Run, KeepsThePlaceAndTimeOfASea) {
  const auto run = JobFolder().prepare(
      flume_job("[[sea]]\nname = \"swell\"\nholds = { x = \"12 m\", t = \"0.5 min\" }\n"
                "[[sea.wave]]\nkind = \"single\"\nf = \"0.5 Hz\"\na = \"20 mm\"\n"));
  EXPECT_EQ(run->seas[0].name, "swell");
  EXPECT_EQ(run->seas[0].position.x, 12.0);
  EXPECT_EQ(run->seas[0].position.y, 0.0);
  EXPECT_EQ(run->seas[0].position.t, 30.0);
}

TEST(Run, ReportsTheFaultsOfAllPartsAtOnce) {
  EXPECT_EQ(JobFolder().refusal(flume_job("dalrymple = \"Maybe\"\n"
                                          "[[sea]]\nholds = { z = \"1 m\" }\n"
                                          "[[sea.wave]]\nkind = \"single\"\nf = \"0.5 m\"\n"
                                          "[[sea.wave]]\nkind = \"singel\"\n"
                                          "[[sea.change]]\nkind = \"AngleSpread\"\n"
                                          "[drive]\nramps = \"1 s\"\n",
                                          "64 m")),
            "3: `repeat` is a time, but \"64 m\" is a length (use s, min, msec, h)\n"
            "4: `dalrymple` cannot be \"Maybe\" (use False, True)\n"
            "6: unknown key `z` in `holds` of `sea 1` (use t, x, y)\n"
            "7: `a` is missing in a `single` wave (a length in m, mm, cm, ft, in)\n"
            "9: `f` is a frequency, but \"0.5 m\" is a length (use Hz, rad/s, rpm)\n"
            "11: unknown kind of wave `singel` (did you mean `single`?)\n"
            "12: `formula` is missing in an `AngleSpread` change (such as \"10\")\n"
            "15: unknown key `ramps` in [drive] (did you mean `ramp`?)\n");
}

TEST(Run, ChecksTheOtherPartsWithoutASite) {
  const JobFolder folder;
  EXPECT_EQ(
      folder.refusal("site = \"none.site\"\n[run]\nrepeet = \"64 s\"\n"
                     "[[sea]]\n[[sea.wave]]\nkind = \"single\"\nf = \"0.5 m\"\na = \"1 m\"\n"),
      "1: the site `none.site` does not exist (looked for in the folder " + folder.path() +
          ")\n"
          "3: unknown key `repeet` in [run] (did you mean `repeat`?)\n"
          "7: `f` is a frequency, but \"0.5 m\" is a length (use Hz, rad/s, rpm)\n");
}

TEST(Run, RemarksOnAValueThatTheLibraryChanges) {
  // 64.3 s are 3215 samples at 50 Hz; 64.33 s are 3216.5, rounded to 3217: 64.34 s.
  EXPECT_TRUE(JobFolder().prepare(flume_job(one_wave, "64.3 s"))->remarks.empty());
  const auto run = JobFolder().prepare(flume_job(one_wave, "64.33 s"));
  EXPECT_EQ(run->remarks, std::vector<std::string>{"[run]: repeat: 64.33 s became 64.34 s"});
}

TEST(Run, AddsTheMessagesOfTheBuildToTheRemarks) {
  const auto run = JobFolder().build(flume_job(
      "[[sea]]\n[[sea.wave]]\nkind = \"single\"\nf = \"3 Hz\"\na = \"20 mm\"\n" + one_wave));
  EXPECT_EQ(run->remarks,
            std::vector<std::string>{"Discarding single frequency 3 as it is out of range"});
}

TEST(Run, RefusesARepeatThatIsTooShort) {
  EXPECT_EQ(JobFolder().refusal(flume_job(one_wave, "0.1 s")),
            "3: `repeat` is too short for any harmonic between 0.1 and 2 Hz\n");
}

TEST(Run, RefusesARepeatThatIsNoTime) {
  EXPECT_EQ(JobFolder().refusal(flume_job(one_wave, "-64 s")), "3: `repeat` must be above 0\n");
  // 2^32 samples at 50 Hz: the library would make a run of 0 s of it.
  EXPECT_EQ(JobFolder().refusal(flume_job(one_wave, "85899346 s")),
            "3: `repeat` must be below 8.59e+07 s on this site\n");
}

TEST(Run, RemarksOnAMergeSeedWithoutEffect) {
  const auto run = JobFolder().prepare(flume_job("wave_merge = \"Random\"\nseed = 3\n" + one_wave));
  EXPECT_EQ(run->remarks, std::vector<std::string>{
                              "[run]: seed has no effect: seas are merged with a fixed seed"});
}

TEST(Run, RefusesPlacesOutsideTheTank) {
  EXPECT_EQ(
      JobFolder().refusal(flume_job("[[sea]]\nholds = { x = \"26 m\" }\n"
                                    "[[sea.wave]]\nkind = \"single\"\n"
                                    "f = \"0.5 Hz\"\na = \"1 mm\"\n"
                                    "[[point]]\nx = \"-1 m\"\ny = \"0 m\"\n"
                                    "[[point]]\nx = \"25 m\"\ny = \"0 m\"\n"
                                    "[field]\nrate = \"10 Hz\"\n"
                                    "x = { from = \"0 m\", to = \"30 m\", step = \"1 m\" }\n"
                                    "y = { from = \"0 m\", to = \"1 m\", step = \"1 m\" }\n")),
      "5: `x` lies outside the tank, which reaches from 0 to 25 m\n"
      "11: `x` lies outside the tank, which reaches from 0 to 25 m\n"
      "18: `to` lies outside the tank, which reaches from 0 to 25 m\n"
      "19: `to` lies outside the tank, which reaches from 0 to 0.8 m across\n");
  EXPECT_EQ(JobFolder().refusal(flume_job(one_wave + "[[point]]\nx = \"1 m\"\ny = \"0.9 m\"\n"
                                                     "[[point]]\nx = \"1 m\"\ny = \"-1 mm\"\n"
                                                     "[[point]]\nx = \"1 m\"\ny = \"0.8 m\"\n")),
            "11: `y` lies outside the tank, which reaches from 0 to 0.8 m across\n"
            "14: `y` lies outside the tank, which reaches from 0 to 0.8 m across\n");
}

TEST(Run, PointsAtThePartThatCannotBeBuilt) {
  const JobFolder folder;
  const std::string sea =
      one_wave +
      "[[sea.change]]\nkind = \"AngleSweep\"\nformula = \"0\"\ndelta_angle = \"5 deg\"\n";
  EXPECT_EQ(folder.refusal(flume_job(sea)),
            "9: the waves cannot be built: Sweep has zero output\n");
  EXPECT_EQ(folder.refusal(flume_job(one_wave +
                                     "[[sea.wave]]\nkind = \"time\"\nformula = \"0@s#0.1@m#64@s\"\n"
                                     "rate = \"50 MHz\"\n")),
            "9: the waves cannot be built: sea 1, wave 2::3.2e+09 samples in the signal, not 1 to "
            "134217728\n");
}

TEST(Run, KeepsTheLinesOfTheLibraryFromTheUser) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  const auto run = JobFolder().build(flume_job(one_wave));
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_NE(run->log.find("Opened file"), std::string::npos);
}

TEST(Run, SetsTheTunableValuesOfTheSite) {
  const auto run = JobFolder().prepare(flume_job("[tune]\ndrive_gain = 1.1\n" + one_wave));
  Base::Params values;
  run->experiment.query(values);
  EXPECT_EQ(values.get("drive_gain", ""), 1.1);
  EXPECT_EQ(values.get("still_water_correction", "mm"), 0.0);  // as in the site
}

TEST(Run, RefusesTunableValuesThatTheSiteDoesNotHaveOrAllow) {
  EXPECT_EQ(JobFolder().refusal(flume_job("[tune]\ndrive_gian = 1.1\n"
                                          "still_water_correction = \"3 s\"\n" +
                                          one_wave)),
            "5: unknown key `drive_gian` in [tune] (did you mean `drive_gain`?)\n"
            "6: `still_water_correction` is a length, but \"3 s\" is a time "
            "(use m, mm, cm, ft, in)\n");
  // The flume allows 0.75 to 1.25 and -20 mm to 20 mm.
  EXPECT_EQ(JobFolder().refusal(flume_job("[tune]\ndrive_gain = 1.3\n"
                                          "still_water_correction = \"-2.1 cm\"\n" +
                                          one_wave)),
            "5: `drive_gain` is not between 0.75 and 1.25 (a limit of the site)\n"
            "6: `still_water_correction` is not between -20 and 20 mm (a limit of the site)\n");
}

TEST(Run, MergesSeasAsAsked) {
  const std::string second =
      "[[sea]]\n[[sea.wave]]\nkind = \"single\"\nf = \"0.5 Hz\"\na = \"15 mm\"\n";
  // Null adds up what meets in one direction.
  const auto both = JobFolder().build(flume_job(one_wave + second));
  ASSERT_EQ(both->experiment.fronts(both->definition, true).size(), 1u);
  EXPECT_NEAR(both->experiment.fronts(both->definition, true)[0].amp, 0.035, 1e-12);
  // RMS gives the one front the energy of both: 20, 15 and 25 mm.
  const auto one = JobFolder().build(flume_job("wave_merge = \"RMS\"\n" + one_wave + second));
  const auto& fronts = one->experiment.fronts(one->definition, true);
  ASSERT_EQ(fronts.size(), 1u);
  EXPECT_NEAR(fronts[0].amp, 0.025, 1e-12);
}

TEST(CapturedLines, ThatDidNotFitIntoMemoryAreNotGivenInPart) {
  const CapturedLines lines;
  Base::progress() << "a line\n";
  EXPECT_EQ(lines.progress(), "a line\n");
  Base::progress().setstate(std::ios_base::badbit);
  EXPECT_THROW(lines.progress(), std::bad_alloc);
}

}  // namespace
}  // namespace Jobs
