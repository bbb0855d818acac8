#include <cmath>
#include <filesystem>
#include <fstream>
#include <utility>
#include <vector>

#include "gtest/gtest.h"
#include "jobs/judged_job.h"
#include "jobs/show_number.h"
#include "support/test_run.h"
#include "support/wave_number.h"

using namespace Testing;

namespace {

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  return text.replace(at, from.size(), to);
}

using Replacements = std::vector<std::pair<std::string, std::string>>;

// The flume of the examples with parts of its script replaced.
JudgedJob in_flume(const Replacements& replacements, const std::string& rest,
                   const std::string& repeat = "64 s") {
  const JobFolder folder;
  std::ifstream file(example("flume.site"));
  std::string script((std::istreambuf_iterator<char>(file)), {});
  for (const auto& [from, to] : replacements) script = replaced(script, from, to);
  folder.write("own.site", script);
  std::filesystem::copy(example("common"), folder.file("common"));
  return JudgedJob(folder, own_job(rest, repeat));
}

// The same with other limits of the stroke in m.
JudgedJob with_stroke(const std::string& minimum, const std::string& maximum,
                      const std::string& rest) {
  return in_flume(
      {{"maximum = 0.45", "maximum = " + maximum}, {"minimum = -0.45", "minimum = " + minimum}},
      rest);
}

const std::string screw_pitch =
    "name = \"screw_pitch\";\n                units = \"mm\";\n"
    "                value = 20;";

// The stroke of the flume's piston for a wave of that amplitude: 0.7 m of water, down to the bed.
double stroke(double a, double f) {
  return a / theory_ratio(exact_wave_number(2 * M_PI * f, 0.7), 0.7, 0.7, false);
}

const std::string wave = "[[sea]]\n" + single("0.5 Hz", "30 mm");

}  // namespace

TEST(JudgeMachine, StrokeVelocityAndAccelerationFollowFromTheWave) {
  const JudgedJob job(flume_job(wave));
  const double s = stroke(0.03, 0.5);
  EXPECT_NEAR(job.made("stroke_peak.piston") / s, 1, 1e-4);
  EXPECT_NEAR(job.made("stroke_rms.piston") / s, std::sqrt(0.5), 1e-4);
  EXPECT_NEAR(job.made("velocity_peak.piston") / s, M_PI, 1e-3);
  EXPECT_NEAR(job.made("velocity_rms.piston") / s, M_PI * std::sqrt(0.5), 1e-3);
  EXPECT_NEAR(job.made("acceleration_peak.piston") / s, M_PI * M_PI, 1e-2);
  EXPECT_TRUE(job.good("stroke_peak.piston"));
  EXPECT_EQ(job.at("stroke_peak.piston").criterion, "at most 450 mm");
  EXPECT_EQ(job.at("velocity_peak.piston").verdict, Jobs::Verdict::none);
  EXPECT_TRUE(job.good("clipped.piston"));
}

TEST(JudgeMachine, AStrokeBeyondTheMachineNeedsALook) {
  const JudgedJob job(flume_job("[[sea]]\n" + single("0.25 Hz", "200 mm")));
  const double s = stroke(0.2, 0.25);
  ASSERT_GT(s, 0.45);
  EXPECT_TRUE(job.look("stroke_peak.piston"));
  const std::string share = std::to_string(static_cast<int>(100 * 0.45 / s)) + " %";
  EXPECT_NE(job.at("stroke_peak.piston").remark.find("waves of " + share), std::string::npos);
  // Every half wave of a sine exceeds the clip limit or none does.
  EXPECT_NEAR(job.made("clipped.piston"), 100, 1e-9);
  EXPECT_TRUE(job.look("clipped.piston"));
}

TEST(JudgeMachine, ASampleHeldAtTheStopNeedsALook) {
  const JudgedJob job(
      flume_job("[[sea]]\n" + single("0.25 Hz", "200 mm") + "[drive]\nstop_at_limit = true\n"));
  EXPECT_NEAR(job.made("stroke_peak.piston"), 0.45, 1e-12);
  // A sine is beyond L for 2 acos(L / A) / pi of the time.
  const double s = stroke(0.2, 0.25);
  EXPECT_NEAR(job.made("held.piston"), 100 * 2 * std::acos(0.45 / s) / M_PI, 1);
  EXPECT_TRUE(job.look("held.piston"));
}

TEST(JudgeMachine, ADeclaredVelocityLimitIsACriterion) {
  const double v = stroke(0.03, 0.5) * M_PI;
  const auto limited = [&](double limit) {
    return in_flume({{screw_pitch, "name = \"max_velocity\"; units = \"mm/s\"; value = " +
                                       std::to_string(1000 * limit) + ";"}},
                    wave);
  };
  EXPECT_TRUE(limited(1.05 * v).good("velocity_peak.piston"));
  EXPECT_TRUE(limited(0.95 * v).look("velocity_peak.piston"));
}

TEST(JudgeMachine, RampsLowerAPartOfTheRun) {
  const JudgedJob job(flume_job(wave + "[drive]\nramp = \"5 s\"\n"));
  EXPECT_NEAR(job.made("ramp_share"), 100 * 10.0 / 64, 1e-9);
  EXPECT_EQ(job.at("ramp_share").quantity, "lowered by ramps");
  EXPECT_EQ(job.at("ramp_share").units, "%");
  EXPECT_TRUE(job.look("ramp_share"));
  EXPECT_EQ(job.made("start_and_end.piston"), 0);
  EXPECT_EQ(job.at("start_and_end.piston").remark, "ramp of 5 s");
  const JudgedJob shorter(flume_job(wave + "[drive]\nramp = \"3 s\"\n"));
  EXPECT_TRUE(shorter.good("ramp_share"));
}

TEST(JudgeMachine, ARepeatingSignalHasNoJump) {
  const JudgedJob job(flume_job(wave));
  EXPECT_TRUE(job.good("start_and_end.piston"));
}

TEST(JudgeMachine, AStepAtTheEndIsShownHoweverSmallTheStroke) {
  const JudgedJob job(flume_job("[[sea]]\n" + single("0.5 Hz", "0.002 mm")));
  // The sine starts at 0, with 50 samples a second.
  const double step = stroke(2e-6, 0.5) * std::sin(M_PI / 50);
  EXPECT_NEAR(job.made("start_and_end.piston") / step, 1, 1e-4);
  EXPECT_EQ(job.at("start_and_end.piston").made_text, "0.00013 mm");
}

TEST(JudgeMachine, AThousandPaddlesAreJudged) {
  SiteText site;
  site.banks[0].paddles.clear();
  for (int p = 0; p < 1000; ++p) site.banks[0].paddles.push_back({0, 0.01 * p, 0});
  site.banks[0].paddle_width = 0.01;
  const JudgedJob job = judged(site, "[[sea]]\n" + single("0.5 Hz", "10 mm", "20 deg"));
  EXPECT_TRUE(job.good("stroke_peak.bank"));
  EXPECT_TRUE(job.good("height"));
}

TEST(JudgeMachine, WithoutSignalsThereIsNoMachine) {
  const JudgedJob job(flume_job(wave), false);
  EXPECT_TRUE(job.has("height"));
  EXPECT_FALSE(job.has("stroke_peak.piston"));
}

TEST(JudgeMachine, ALimitThatIsNoVelocityOrZeroIsNone) {
  for (const char* constant : {"units = \"mm\"; value = 1;", "units = \"mm/s\"; value = 0;"}) {
    const JudgedJob job =
        in_flume({{screw_pitch, "name = \"max_velocity\"; " + std::string(constant)}}, wave);
    EXPECT_EQ(job.at("velocity_peak.piston").verdict, Jobs::Verdict::none) << constant;
  }
}

TEST(JudgeMachine, AFlapHasLimitsOfItsAngularVelocityAndAcceleration) {
  const auto flap = [](const std::string& velocity, const std::string& acceleration) {
    return in_flume(
        {{"piston {", "flap {"},
         {"units = \"m\";", "units = \"rad\";"},
         {"constant[1..1] {",
          "constant[2..1]; constant[1] { name = \"max_velocity\"; units = "
          "\"rad/s\"; value = " +
              velocity + "; } constant[2] {"},
         {screw_pitch, "name = \"max_acceleration\"; units = \"\"; value = " + acceleration + ";"}},
        wave);
  };
  // A sine of 0.5 Hz: pi and pi^2 times its amplitude.
  const double amplitude = flap("9", "9").made("stroke_peak.piston");
  const double v = M_PI * amplitude;
  const double a = M_PI * v;
  const JudgedJob fast = flap(std::to_string(1.05 * v), std::to_string(0.95 * a));
  EXPECT_TRUE(fast.good("velocity_peak.piston"));
  EXPECT_TRUE(fast.look("acceleration_peak.piston"));
  const JudgedJob slow = flap(std::to_string(0.95 * v), std::to_string(1.05 * a));
  EXPECT_TRUE(slow.look("velocity_peak.piston"));
  EXPECT_TRUE(slow.good("acceleration_peak.piston"));
}

TEST(JudgeMachine, LimitsOfTheStrokeMayDiffer) {
  const double s = stroke(0.03, 0.5);
  ASSERT_GT(s, 0.02);
  const std::string fits =
      "; waves of " + std::to_string(static_cast<int>(100 * 0.02 / s)) + " % of this height";
  const JudgedJob behind = with_stroke("-0.02", "0.45", wave);
  EXPECT_TRUE(behind.look("stroke_peak.piston"));
  EXPECT_EQ(behind.at("stroke_peak.piston").criterion, "-20 mm to 450 mm");
  EXPECT_NE(behind.at("stroke_peak.piston").remark.find(fits), std::string::npos);
  const JudgedJob ahead = with_stroke("-0.45", "0.02", wave);
  EXPECT_NE(ahead.at("stroke_peak.piston").remark.find(fits), std::string::npos);
}

TEST(JudgeMachine, NoHeightFitsALimitBeyondTheMiddle) {
  const JudgedJob job = with_stroke("0.1", "0.45", wave);
  EXPECT_TRUE(job.look("stroke_peak.piston"));
  EXPECT_EQ(job.at("stroke_peak.piston").remark.find("would fit"), std::string::npos);
  const JudgedJob still = with_stroke("0.1", "0.45", "[[sea]]\n" + single("0.5 Hz", "0 mm"));
  EXPECT_TRUE(still.look("stroke_peak.piston"));
  EXPECT_EQ(still.at("stroke_peak.piston").remark, "");
}

TEST(JudgeMachine, AMachineWithoutARangeIsNotJudgedByIt) {
  EXPECT_EQ(with_stroke("0", "0", wave).at("stroke_peak.piston").verdict, Jobs::Verdict::none);
}

// Three samples of one sine: -sin 60, 0 and sin 60 deg of the amplitude, in either order.
TEST(JudgeMachine, AnEndThatJumpsFurtherThanOtherStepsNeedsALook) {
  const JudgedJob job = in_flume(
      {},
      "[[sea]]\n" + single("0.5 Hz", "10 mm") + "phase = \"60 deg\"\n[drive]\nrate = \"1.5 Hz\"\n",
      "2 s");
  const double step = std::sin(M_PI / 3) * stroke(0.01, 0.5);
  EXPECT_TRUE(job.look("start_and_end.piston"));
  EXPECT_NEAR(job.made("start_and_end.piston") / (2 * step), 1, 1e-4);
  EXPECT_EQ(
      job.at("start_and_end.piston").remark,
      "other steps are up to " + Jobs::show_quantity(step, "m", 2) + "; a ramp would mend it");
}
