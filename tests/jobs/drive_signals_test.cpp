#include "jobs/drive_signals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "jobs/job_folder.h"
#include "jobs/signal_fault.h"

namespace Jobs {
namespace {

using Testing::basin_job;
using Testing::flume_job;
using Testing::JobFolder;

std::string wave(const std::string& a = "25 mm", const std::string& f = "0.8125 Hz") {
  return "[[sea]]\n[[sea.wave]]\nkind = \"single\"\nf = \"" + f + "\"\na = \"" + a + "\"\n";
}

// The faults of the signals of a job that can be built.
std::string refusal(const JobFolder& folder, const std::string& job) {
  const auto run = folder.build(job);
  try {
    const DriveSignals drive(*run);
    return "";
  } catch (const BadJob& bad) {
    EXPECT_EQ(bad.faults.size(), 1u);
    return std::to_string(bad.faults[0].span.line) + ": " + bad.faults[0].fault;
  }
}

TEST(DriveSignals, DescribeTheBanksOfTheSite) {
  const auto flume = JobFolder().build(flume_job(wave()));
  const DriveSignals piston(*flume);
  ASSERT_EQ(piston.banks().size(), 1u);
  EXPECT_EQ(piston.banks()[0].name, "piston");
  EXPECT_EQ(piston.banks()[0].units, "m");
  EXPECT_EQ(piston.banks()[0].paddles, 1u);
  EXPECT_EQ(piston.banks()[0].limits.maximum, 0.45);
  EXPECT_EQ(piston.banks()[0].limits.minimum, -0.45);
  EXPECT_EQ(piston.banks()[0].limits.clip, 0.44);
  EXPECT_EQ(piston.samples(), 3200u);  // 64 s at 50 Hz
  EXPECT_EQ(piston.rate(), 50.0);

  const auto basin = JobFolder().build(basin_job(wave()));
  const DriveSignals flaps(*basin);
  EXPECT_EQ(flaps.banks()[0].units, "rad");
  EXPECT_EQ(flaps.banks()[0].paddles, 40u);
  EXPECT_NEAR(flaps.banks()[0].limits.maximum, 15 * M_PI / 180, 1e-6);
}

TEST(DriveSignals, AreTheSineOfWavemakerTheory) {
  // Dean and Dalrymple 1991, chapter 6, for a piston that reaches the bed: the ratio of wave to
  // stroke is 2 (cosh 2kh - 1) / (sinh 2kh + 2kh). The stroke lags the wave by a quarter cycle. The
  // library approximates k to a few millionths.
  const auto run = JobFolder().build(flume_job(wave() + "[drive]\nrate = \"40 Hz\"\n"));
  const DriveSignals drive(*run);
  const double omega = 2 * M_PI * 0.8125;
  const double g = run->experiment.context().get(Common::Limit::base_g);
  double k = omega * omega / g;
  for (int i = 0; i < 200; ++i) k = 0.5 * (k + omega * omega / (g * std::tanh(k * 0.7)));
  const double kh2 = 2 * k * 0.7;
  const double stroke = 0.025 * (std::sinh(kh2) + kh2) / (2 * (std::cosh(kh2) - 1));
  ASSERT_EQ(drive.samples(), 2560u);
  for (std::size_t j = 0; j < drive.samples(); j += 37) {
    const double t = static_cast<double>(j) / 40;
    EXPECT_NEAR(drive.raw(0, 0, j), stroke * std::sin(omega * t), 1e-5 * stroke) << j;
    EXPECT_EQ(drive.sample(0, 0, j), drive.raw(0, 0, j));
  }
}

TEST(DriveSignals, FitTheRateToWholeSamples) {
  const auto run = JobFolder().build(flume_job(wave() + "[drive]\nrate = \"33.33 Hz\"\n"));
  const DriveSignals drive(*run);
  EXPECT_EQ(drive.samples(), 2133u);  // 64 * 33.33 = 2133.1
  EXPECT_EQ(drive.rate(), 2133 / 64.0);
}

TEST(DriveSignals, AreTaperedAtBothEnds) {
  const auto run = JobFolder().build(flume_job(wave() + "[drive]\nramp = \"4 s\"\n"));
  const DriveSignals drive(*run);
  const std::size_t last = drive.samples() - 1;
  EXPECT_EQ(drive.taper(0), 0.0);
  EXPECT_NEAR(drive.taper(50), std::pow(std::sin(M_PI / 8), 2), 1e-15);   // 1 s
  EXPECT_NEAR(drive.taper(100), 0.5, 1e-15);                              // 2 s
  EXPECT_NEAR(drive.taper(150), std::pow(std::cos(M_PI / 8), 2), 1e-15);  // 3 s
  EXPECT_EQ(drive.taper(200), 1.0);
  EXPECT_EQ(drive.taper(1600), 1.0);
  EXPECT_EQ(drive.taper(last - 200), 1.0);
  EXPECT_NEAR(drive.taper(last - 100), 0.5, 1e-15);
  EXPECT_EQ(drive.taper(last), 0.0);
  for (const std::size_t j : {std::size_t{3}, std::size_t{77}, last - 5}) {
    EXPECT_EQ(drive.sample(0, 0, j), drive.raw(0, 0, j) * drive.taper(j));
    EXPECT_NE(drive.sample(0, 0, j), drive.raw(0, 0, j));
  }
}

TEST(DriveSignals, WithoutARampKeepTheirEnds) {
  const auto run = JobFolder().build(flume_job(wave()));
  const DriveSignals drive(*run);
  EXPECT_EQ(drive.taper(0), 1.0);
  EXPECT_EQ(drive.taper(drive.samples() - 1), 1.0);
}

TEST(DriveSignals, TakeARampOfHalfTheRepeatAtMost) {
  const JobFolder folder;
  EXPECT_EQ(refusal(folder, flume_job(wave() + "[drive]\nramp = \"32 s\"\n")), "");
  EXPECT_EQ(refusal(folder, flume_job(wave() + "[drive]\nramp = \"33 s\"\n")),
            "10: a ramp of 33 s is longer than half the repeat of 64 s");
}

TEST(DriveSignals, StopAtTheLimitsOnlyWhenAsked) {
  // 0.7 m at 0.8125 Hz needs a stroke just below 0.45 m per 0.7 m; 1 m is beyond the machine.
  const std::string job = flume_job(wave("1 m"));
  const auto free_run = JobFolder().build(job);
  const DriveSignals unlimited(*free_run);
  const auto stopped_run = JobFolder().build(job + "[drive]\nstop_at_limit = true\n");
  const DriveSignals stopped(*stopped_run);
  std::size_t beyond = 0;
  for (std::size_t j = 0; j < stopped.samples(); ++j) {
    const double raw = stopped.raw(0, 0, j);
    EXPECT_EQ(unlimited.sample(0, 0, j), raw);
    EXPECT_EQ(stopped.sample(0, 0, j), std::min(0.45, std::max(-0.45, raw)));
    if (std::abs(raw) > 0.45) ++beyond;
  }
  EXPECT_GT(beyond, 100u);
}

TEST(DriveSignals, StopAfterTheTaper) {
  const auto run =
      JobFolder().build(flume_job(wave("1 m") + "[drive]\nstop_at_limit = true\nramp = \"4 s\"\n"));
  const DriveSignals drive(*run);
  for (std::size_t j = 0; j < drive.samples(); ++j) {
    const double tapered = drive.raw(0, 0, j) * drive.taper(j);
    EXPECT_EQ(drive.sample(0, 0, j), std::min(0.45, std::max(-0.45, tapered)));
  }
}

TEST(DriveSignals, NameTheHarmonicThatIsNotFinite) {
  // The gain is 0/0 at 0.8125 Hz only, which is harmonic 52.
  EXPECT_EQ(refusal(JobFolder(), flume_job("[[sea]]\n[[sea.wave]]\nkind = \"spectrum\"\n"
                                           "formula = \"0.5@Hz#0.0001@m2s#1@Hz\"\n"
                                           "[[sea.change]]\nkind = \"GainAdjust\"\n"
                                           "formula = \"($[Hz]-0.8125)/($[Hz]-0.8125)\"\n")),
            "2: paddle 1 of bank `piston` gets no finite signal from harmonic 52 (0.8125 Hz): its "
            "amplitude is not finite");
}

std::string surface_hinge_site(const std::string& dimension) {
  return "context { site_name = \"s\"; tank_name = \"t\"; config_name = \"c\";\n"
         "tank { geometry = NoSides; units = m; max_y = 10; min_y = -10; section[2..1];\n"
         "section[1] { x = 0; offset = Absolute; depth = \"1\"; }\n"
         "section[2] { x = 20; offset = Absolute; } }\n"
         "limits { frequency { units = \"Hz\"; maximum = 2.0; minimum = 0.1; }\n"
         "angle { units = \"deg\"; maximum = 60; minimum = -60; } }\n"
         "wavemaker_bank[1..1] { name = \"top\"; pad_pos[9..7];\n"
         "pad_pos[7] { x = 0; y = 0; angle = 0; } pad_pos[8] { x = 0; y = 1; angle = 0; }\n"
         "pad_pos[9] { x = 0; y = 2; angle = 0; }\n"
         "flap { paddle_width = 0.5; critical_dimension = " +
         dimension +
         "; dimension_type = ToSurface;\n"
         "paddle_motion { units = \"deg\"; maximum = 10; minimum = -10; clip_limit = 9; } } }\n"
         "rate_units = Hz; base_rate = 50; base_g = 9.81; base_rho = 1000; }\n";
}

TEST(DriveSignals, NameTheFirstHarmonicOfAMachineWithoutATransferRatio) {
  // A flap hinged at the water line moves no water. The bank's paddles are numbered from 7.
  const JobFolder folder;
  folder.write("top.site", surface_hinge_site("0"));
  EXPECT_EQ(
      refusal(folder, "site = \"top.site\"\n[run]\nrepeat = \"64 s\"\n" + wave("1 mm", "0.5 Hz")),
      "2: paddle 7 of bank `top` gets no finite signal from harmonic 32 (0.5 Hz): the machine "
      "has no transfer ratio there");
  folder.write("top.site", surface_hinge_site("0.5"));
  EXPECT_EQ(
      refusal(folder, "site = \"top.site\"\n[run]\nrepeat = \"64 s\"\n" + wave("1 mm", "0.5 Hz")),
      "");
}

// The ramp makes the first sample 0, whichever sign the signal has there.
TEST(DriveSignals, HaveNoNegativeZero) {
  for (const std::string phase : {"90 deg", "-90 deg"}) {
    const auto run = JobFolder().build(
        flume_job(wave() + "phase = \"" + phase + "\"\n[drive]\nramp = \"3 s\"\n"));
    const DriveSignals drive(*run);
    EXPECT_NE(drive.raw(0, 0, 0), 0.0);
    EXPECT_EQ(drive.sample(0, 0, 0), 0.0);
    EXPECT_FALSE(std::signbit(drive.sample(0, 0, 0)));
  }
}

// At 0.2 Hz, 64 s have 13 samples: the wave's harmonic lies beyond them.
TEST(DriveSignals, RefuseARateFarBelowTheWaves) {
  EXPECT_EQ(refusal(JobFolder(), flume_job(wave() + "[drive]\nrate = \"0.2 Hz\"\n")),
            "10: a rate of 0.2 Hz is too low: it must be above twice the highest frequency made, "
            "which is at most 2 Hz");
}

TEST(DriveSignals, AWholeSignalIsThatOfItsSamples) {
  const auto run = JobFolder().build(
      flume_job("[[sea]]\n[[sea.wave]]\nkind = \"single\"\nf = \"0.25 Hz\"\na = \"200 mm\"\n"
                "[drive]\nramp = \"3 s\"\nstop_at_limit = true\n"));
  const DriveSignals drive(*run);
  std::vector<double> signal;
  drive.read(0, 0, signal);
  ASSERT_EQ(signal.size(), drive.samples());
  std::size_t held = 0;
  for (std::size_t i = 0; i < signal.size(); ++i) {
    EXPECT_EQ(signal[i], drive.sample(0, 0, i)) << i;
    EXPECT_EQ(std::signbit(signal[i]), std::signbit(drive.sample(0, 0, i))) << i;
    if (std::abs(signal[i]) == drive.banks()[0].limits.maximum) ++held;
  }
  EXPECT_GT(held, 0u);
}

// At 0.5 Hz and 50 Hz, such a signal changes from beyond one limit to beyond the other.
TEST(DriveSignals, HintAtLowerWavesWhereASignalJumpsFromLimitToLimit) {
  const auto run = JobFolder().build(flume_job(wave("1e300 m", "0.5 Hz")));
  try {
    const DriveSignals drive(*run);
    ADD_FAILURE() << "it is built";
  } catch (const BadJob& bad) {
    EXPECT_EQ(bad.faults[0].fault, "the drive signals cannot be built: Unmatched zero crossings");
    EXPECT_TRUE(bad.faults[0].label.ends_with("a lower wave or a higher rate"));
  }
}

TEST(DriveSignals, AWholeSignalMayBeOneRampUpAndDown) {
  const auto run = JobFolder().build(flume_job(wave() + "[drive]\nramp = \"32 s\"\n"));
  const DriveSignals drive(*run);
  std::vector<double> signal;
  drive.read(0, 0, signal);
  for (std::size_t i = 0; i < signal.size(); ++i) {
    const std::size_t from_end = std::min(i, signal.size() - 1 - i);
    const double factor = std::sin(M_PI / 2 * static_cast<double>(from_end) / 50 / 32);
    ASSERT_NEAR(signal[i], drive.raw(0, 0, i) * factor * factor, 1e-15) << i;
  }
}

// A job is refused before, but a host may fill the request itself.
TEST(DriveSignals, RefuseARequestOfTooFewSamplesOrANegativeRamp) {
  const auto fault = [](double rate, double ramp, const std::string& sea = wave()) -> std::string {
    const auto run = JobFolder().build(flume_job(sea));
    run->drive.rate = rate;
    run->drive.ramp = ramp;
    try {
      const DriveSignals drive(*run);
      return "";
    } catch (const BadJob& bad) {
      return bad.faults.at(0).fault;
    }
  };
  EXPECT_EQ(fault(50, 3), "");
  EXPECT_EQ(fault(50, -3), "the ramp is negative");
  EXPECT_TRUE(fault(0.001, 0).starts_with("a rate of 0.001 Hz is too low"));
  const std::string still =
      "[[sea]]\n[[sea.wave]]\nkind = \"spectrum\"\nformula = \"0.5@Hz#0@m2s#1@Hz\"\n";
  EXPECT_EQ(fault(0.001, 0, still), "a rate of 0.001 Hz gives no sample in a repeat of 64 s");
}

TEST(SignalFault, NamesTheValueOfAFrontThatIsNotFinite) {
  const std::string first = "paddle 1 of bank `piston` gets ";
  const std::string change = "[[sea.change]]\nformula = \"1/($[Hz]-0.8125)@deg\"\nkind = ";
  const std::string from_52 = first + "no finite signal from harmonic 52 (0.8125 Hz): its ";
  const auto shifted = JobFolder().build(flume_job(wave() + change + "\"PhaseChange\"\n"));
  EXPECT_TRUE(signal_fault(*shifted, 0, 0).starts_with(from_52 + "phase is not finite"));
  // Neither the front of amplitude 0 nor the sine explains it.
  const auto sound = JobFolder().build(flume_job(wave("0 mm") + wave("10 mm", "1 Hz")));
  EXPECT_EQ(signal_fault(*sound, 0, 0), first + "a signal that is not finite");
}

}  // namespace
}  // namespace Jobs
