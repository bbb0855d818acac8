// Each kind of wave against its closed form, in the flume: 0.7 m of water, 0.1 to 2.0 Hz.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "jobs/job_folder.h"
#include "jobs/run.h"
#include "support/integral.h"
#include "support/sea_states.h"

namespace Jobs {
namespace {

using Testing::flume_job;
using Testing::JobFolder;

std::string wave(const std::string& keys) { return "[[sea]]\n[[sea.wave]]\n" + keys; }

// The fronts of the first sea, by harmonic.
std::vector<Maths::TransferFront> fronts_of(Run& run) {
  return run.experiment.fronts(run.definition, std::uint32_t{0});
}

double energy_of(Run& run) {
  double sum = 0.0;
  for (const Maths::TransferFront& front : fronts_of(run)) sum += 0.5 * front.amp * front.amp;
  return sum;
}

TEST(Waves, SingleIsOneFront) {
  const auto run = JobFolder().build(flume_job(wave(
      "kind = \"single\"\nf = \"0.5 Hz\"\na = \"20 mm\"\nangle = \"30 deg\"\nphase = \"1 rad\"")));
  const auto fronts = fronts_of(*run);
  ASSERT_EQ(fronts.size(), 1u);
  EXPECT_EQ(fronts[0].harmonic, 32u);  // 0.5 Hz in 64 s
  EXPECT_NEAR(fronts[0].amp, 0.02, 1e-15);
  EXPECT_NEAR(fronts[0].angle, M_PI / 6, 1e-6);  // the library's degree has six figures
  EXPECT_EQ(fronts[0].phase, 1.0);
  const AskedWave& asked = run->seas[0].asked[0];
  ASSERT_EQ(asked.lines.size(), 1u);
  EXPECT_EQ(asked.lines[0].frequency, 0.5);
  EXPECT_NEAR(asked.lines[0].amplitude, 0.02, 1e-15);
  EXPECT_EQ(asked.kind, "single");
  EXPECT_FALSE(asked.density);
}

TEST(Waves, SpectrumHasTheEnergyOfItsFormula) {
  const Testing::SeaState sea{0.1, 0.6};
  const std::string text = Testing::pierson_moskowitz_text("0.3@Hz", "1.5@Hz");
  const auto run = JobFolder().build(flume_job(
      wave("kind = \"spectrum\"\nformula = \"" + text + "\"\nhs = \"10 cm\"\nfp = \"0.6 Hz\"")));
  // The bands of harmonics 19 (0.297 Hz) to 96 (1.5 Hz), both whole.
  EXPECT_NEAR(energy_of(*run), sea.pierson_moskowitz(18.5 / 64, 96.5 / 64), 1e-3 * 0.000625);
  const AskedWave& asked = run->seas[0].asked[0];
  EXPECT_EQ(asked.low, 0.3);
  EXPECT_EQ(asked.high, 1.5);
  EXPECT_NEAR(asked.density(0.7), sea.pierson_moskowitz(0.7), 1e-15);
  EXPECT_EQ(asked.density(0.29), 0.0);
  EXPECT_EQ(asked.density(1.51), 0.0);
  EXPECT_NEAR(asked.peak, 0.6, 1e-4);
  EXPECT_TRUE(asked.breaks.empty());
}

TEST(Waves, EachReadySeaHasAPeakOfItsOwn) {
  const auto run = JobFolder().build(
      flume_job(wave("kind = \"jonswap\"\nhs = \"50 mm\"\ntp = \"2 s\"\n[[sea.wave]]\n"
                     "kind = \"jonswap\"\nhs = \"20 mm\"\ntp = \"1.25 s\"")));
  ASSERT_EQ(run->seas[0].asked.size(), 2u);
  EXPECT_NEAR(run->seas[0].asked[0].peak, 0.5, 1e-12);
  EXPECT_NEAR(run->seas[0].asked[1].peak, 0.8, 1e-12);
}

TEST(Waves, SpectrumKnowsWhereItsFormulaBends) {
  const Testing::SeaState sea{0.1, 0.6};
  const std::string text = Testing::jonswap_text("0.3@Hz", "1.5@Hz");
  const auto run = JobFolder().prepare(flume_job(
      wave("kind = \"spectrum\"\nformula = \"" + text + "\"\nhs = \"10 cm\"\nfp = \"0.6 Hz\"")));
  const AskedWave& asked = run->seas[0].asked[0];
  EXPECT_EQ(asked.breaks, std::vector<double>{0.6});
  for (const double f : {0.35, 0.55, 0.6, 0.65, 1.2}) {
    EXPECT_NEAR(asked.density(f), sea.jonswap(f), 1e-12 * sea.jonswap(0.6)) << f;
  }
}

TEST(Waves, AmplitudeDensityAddsUpToACrest) {
  // 5 mm/Hz from 0.5 to 1.5 Hz, and 1 mm/Hz up to 1.75 Hz.
  const auto run = JobFolder().prepare(flume_job(
      wave("kind = \"spectrum\"\nformula = \"0.5@Hz#0.005@ms#1.5@Hz#0.001@ms#1.75@Hz\"")));
  const AskedWave& asked = run->seas[0].asked[0];
  ASSERT_TRUE(asked.crest.has_value());
  EXPECT_NEAR(*asked.crest, 0.00525, 1e-12);
  EXPECT_FALSE(asked.density);
}

TEST(Waves, TimeFormulaGivesItsHarmonic) {
  const auto run = JobFolder().build(
      flume_job(wave("kind = \"time\"\nformula = \"0@s#a[m]*cos(pi*$[s])@m#64@s\"\na = \"20 mm\"\n"
                     "rate = \"16 Hz\"")));
  double rest = 0.0;
  for (const auto& front : fronts_of(*run)) {
    if (front.harmonic == 32) {
      EXPECT_NEAR(front.amp, 0.02, 1e-12);
      EXPECT_NEAR(front.phase, 0.0, 1e-9);
    } else {
      rest += front.amp;
    }
  }
  EXPECT_NEAR(rest, 0.0, 1e-12);
  ASSERT_TRUE(run->seas[0].asked[0].variance.has_value());
  EXPECT_NEAR(*run->seas[0].asked[0].variance, 0.5 * 0.02 * 0.02, 1e-12);
  EXPECT_EQ(run->remarks,
            std::vector<std::string>{"a `time` wave of sea 1: Run time of time expression "
                                     "\"sea 1, wave 1\" is 64 seconds"});
}

// 64 s at 16 Hz of 20 mm at 0.5 Hz about 5 mm, in mm.
std::string record(const std::string& head, bool with_time, double frequency = 0.5,
                   double rate = 16.0, int samples = 1024) {
  std::string text = "# a probe\n" + head + "\n";
  for (int i = 0; i < samples; ++i) {
    const double t = i / rate;
    if (with_time) text += fmt::format("{},", t);
    text += fmt::format("{}\n", 5 + 20 * std::cos(2 * M_PI * frequency * t));
  }
  return text;
}

void expect_one_harmonic(Run& run, double amplitude) {
  double rest = 0.0;
  for (const auto& front : fronts_of(run)) {
    if (front.harmonic == 32) {
      EXPECT_NEAR(front.amp, amplitude, 1e-12);
    } else {
      rest += front.amp;
    }
  }
  EXPECT_NEAR(rest, 0.0, 1e-12);
  ASSERT_TRUE(run.seas[0].asked[0].variance.has_value());
  EXPECT_NEAR(*run.seas[0].asked[0].variance, 0.5 * amplitude * amplitude, 1e-12);
}

TEST(Waves, RecordTakesItsRateFromTheTimes) {
  const JobFolder folder;
  folder.write("probe.csv", record("time [s],eta [mm]", true));
  const auto run = folder.build(flume_job(wave("kind = \"record\"\nfile = \"probe.csv\"")));
  expect_one_harmonic(*run, 0.02);
  ASSERT_EQ(run->records.size(), 1u);
  EXPECT_EQ(run->records[0]->data.size(), 1024u);
  EXPECT_NEAR(run->records[0]->data[0], 0.025, 1e-15);  // the mean is kept
}

TEST(Waves, RecordTakesRateUnitsAndColumnFromTheJob) {
  const JobFolder folder;
  folder.write("data/probe.csv", record("t,eta", true));
  for (const char* column : {"\"eta\"", "2", "\"2\""}) {
    const auto run =
        folder.build(flume_job(wave("kind = \"record\"\nfile = \"data/probe.csv\"\nunits = "
                                    "\"mm\"\nrate = \"16 Hz\"\ncolumn = " +
                                    std::string(column))));
    expect_one_harmonic(*run, 0.02);
  }
}

TEST(Waves, RecordIsScaledByFroudesLaw) {
  // 1:4: heights a quarter, times half. 128 s of 0.25 Hz become 64 s of 0.5 Hz.
  const JobFolder folder;
  folder.write("probe.csv", record("time [s],eta [mm]", true, 0.25, 8.0));
  const auto run =
      folder.build(flume_job(wave("kind = \"record\"\nfile = \"probe.csv\"\nscale_ratio = 4")));
  expect_one_harmonic(*run, 0.005);
}

TEST(Waves, RecordsVarianceIsThatOfTheWholeRepeat) {
  // 32 s of the record, then silence: half the mean square, less the square of the mean.
  const JobFolder folder;
  folder.write("probe.csv", record("time [s],eta [mm]", true, 0.5, 16.0, 512));
  const auto run = folder.build(flume_job(wave("kind = \"record\"\nfile = \"probe.csv\"")));
  const double mean_square = 0.5 * (200e-6 + 25e-6);
  EXPECT_NEAR(*run->seas[0].asked[0].variance, mean_square - 0.0025 * 0.0025, 1e-12);
}

TEST(Waves, RefusesARecordThatCannotBeUsed) {
  const JobFolder folder;
  folder.write("gap.csv", "time [s],eta [mm]\n0,1\n# pause\n0.1,2\n0.2,3\n0.4,4\n0.5,5\n");
  folder.write("bare.csv", "time,eta\n0,1\n0.1,2\n");
  folder.write("two.csv", "a [mm],b [mm]\n0,1\n0.1,2\n");
  folder.write("bad.csv", "a [mm]\n0\nx\n");
  const auto refusal = [&](const std::string& keys) {
    return folder.refusal(flume_job(wave("kind = \"record\"\n" + keys)));
  };
  EXPECT_EQ(refusal("file = \"gap.csv\""),
            "7: gap.csv:6: the times of column `time` are not evenly spaced "
            "(give `rate`, or resample the record)\n");
  EXPECT_EQ(refusal("file = \"bare.csv\""),
            "7: column `eta` of bare.csv has no units (write `eta [mm]` in its head)\n");
  folder.write("falling.csv", "time [s],eta [mm]\n0.2,1\n0.1,2\n0,3\n");
  folder.write("short.csv", "time [s],eta [mm]\n0.3,1\n");
  EXPECT_EQ(refusal("file = \"falling.csv\""),
            "7: the times of column `time` do not increase (give `rate`)\n");
  folder.write("dense.csv", "time [s],eta [mm]\n0,1\n5e-324,2\n");
  EXPECT_EQ(refusal("file = \"dense.csv\""),
            "7: the times of column `time` are too close together (give `rate`)\n");
  EXPECT_EQ(refusal("file = \"short.csv\""),
            "7: there is only one time in column `time` (give `rate`)\n");
  folder.write("unknown.csv", "time [ticks],eta [mm]\n0,1\n0.1,2\n");
  folder.write("length.csv", "time [mm],eta [mm]\n0,1\n0.1,2\n");
  EXPECT_EQ(refusal("file = \"unknown.csv\""),
            "7: unknown.csv: column time [ticks] has unknown units \"ticks\" "
            "(such as `time [s]`)\n");
  EXPECT_EQ(refusal("file = \"length.csv\""),
            "7: length.csv: column time [mm] is a length, not a time (such as `time [s]`)\n");
  folder.write("huge.csv", "time [s],eta [km]\n0,1e308\n0.1,2\n");
  EXPECT_EQ(refusal("file = \"huge.csv\""),
            "7: column `eta` of huge.csv has values that are too large\n");
  EXPECT_EQ(refusal("file = \"two.csv\"\nrate = \"10 Hz\""),
            "5: `column` is missing in a `record` wave "
            "(the name of a column, or its number from 1)\n");
  EXPECT_EQ(refusal("file = \"two.csv\"\ncolumn = 1"),
            "5: `rate` is missing in a `record` wave (a frequency in Hz, rad/s, rpm)\n");
  EXPECT_EQ(
      refusal("file = \"none.csv\"\nrate = \"1 Hz\""),
      "7: the file `none.csv` does not exist (looked for in the folder " + folder.path() + ")\n");
  EXPECT_EQ(refusal("rate = \"1 Hz\""),
            "5: `file` is missing in a `record` wave (a CSV file, relative to the job's folder)\n");
  EXPECT_EQ(refusal("file = \"two.csv\"\ncolumn = 1\nrate = \"0 Hz\""),
            "9: `rate` must be above 0\n");
  EXPECT_TRUE(refusal("file = \"bad.csv\"\nrate = \"1 Hz\"").starts_with("7: bad.csv:3: "));
}

TEST(Waves, FrontsGoToTheirHarmonics) {
  const JobFolder folder;
  folder.write("fronts.csv", "f [Hz],a [mm],angle [deg],phase [rad]\n0.5,20,30,1\n1.0,10,-30,-2\n");
  const auto run = folder.build(flume_job(wave("kind = \"fronts\"\nfile = \"fronts.csv\"")));
  const auto fronts = fronts_of(*run);
  ASSERT_EQ(fronts.size(), 2u);
  EXPECT_EQ(fronts[0].harmonic, 32u);
  EXPECT_NEAR(fronts[0].amp, 0.02, 1e-15);
  EXPECT_NEAR(fronts[0].angle, M_PI / 6, 1e-6);
  EXPECT_EQ(fronts[0].phase, 1.0);
  EXPECT_EQ(fronts[1].harmonic, 64u);
  EXPECT_NEAR(fronts[1].angle, -M_PI / 6, 1e-6);
  ASSERT_EQ(run->seas[0].asked[0].lines.size(), 2u);
  EXPECT_EQ(run->seas[0].asked[0].lines[1].frequency, 1.0);
  EXPECT_TRUE(run->remarks.empty());
}

TEST(Waves, RemarksOnFrontsThatMoveToAHarmonic) {
  const JobFolder folder;
  folder.write("fronts.csv", "f [Hz],a [mm]\n0.5,20\n0.505,10\n");
  const auto run = folder.build(flume_job(wave("kind = \"fronts\"\nfile = \"fronts.csv\"")));
  EXPECT_EQ(fronts_of(*run).size(), 2u);
  EXPECT_EQ(run->remarks,
            std::vector<std::string>{"a `fronts` wave of sea 1: frequencies move to the nearest "
                                     "harmonics of the run, by up to 0.005 Hz"});
}

TEST(Waves, ListOfOneFrontNeedsNoRemark) {
  const JobFolder folder;
  folder.write("fronts.csv", "f [Hz],a [mm]\n0.5,20\n");
  const auto run = folder.build(flume_job(wave("kind = \"fronts\"\nfile = \"fronts.csv\"")));
  EXPECT_EQ(fronts_of(*run).size(), 1u);
  EXPECT_TRUE(run->remarks.empty());
}

TEST(Waves, RefusesFrontsThatCannotBeMade) {
  const JobFolder folder;
  folder.write("far.csv", "f [Hz],a [mm]\n0.5,20\n2.5,20\n");
  folder.write("bare.csv", "f,a [mm]\n0.5,20\n");
  folder.write("less.csv", "f [Hz]\n0.5\n");
  const auto refusal = [&](const std::string& file) {
    return folder.refusal(flume_job(wave("kind = \"fronts\"\nfile = \"" + file + "\"")));
  };
  EXPECT_EQ(refusal("far.csv"),
            "7: far.csv:3: 2.5 Hz lies outside the run's harmonics, 0.09375 to 2 Hz\n");
  EXPECT_EQ(refusal("bare.csv"),
            "7: column `f` of bare.csv has no units (write `f [Hz]` in its head)\n");
  EXPECT_NE(refusal("less.csv"), "");
}

TEST(Waves, TableHasTheEnergyOfItsTrapezia) {
  const JobFolder folder;
  folder.write("table.csv", "f [Hz],S [cm2/Hz]\n0.3,0\n0.52,4\n0.61,7\n0.9,2\n1.4,0\n");
  const auto run = folder.build(flume_job(wave("kind = \"table\"\nfile = \"table.csv\"")));
  const double trapezia =
      1e-4 * (0.5 * 4 * 0.22 + 0.5 * (4 + 7) * 0.09 + 0.5 * (7 + 2) * 0.29 + 0.5 * 2 * 0.5);
  EXPECT_NEAR(energy_of(*run), trapezia, 1e-12 * trapezia);
  for (const auto& front : fronts_of(*run)) {
    if (front.harmonic != 45) continue;  // its band, 0.695 to 0.711 Hz, lies on one straight line
    const double density = 1e-4 * (7 - 5 * (45.0 / 64 - 0.61) / 0.29);
    EXPECT_NEAR(front.amp, std::sqrt(2 * density / 64), 1e-12);
  }
  const AskedWave& asked = run->seas[0].asked[0];
  EXPECT_EQ(asked.peak, 0.61);
  EXPECT_NEAR(asked.density(0.41), 1e-4 * 2, 1e-15);
  EXPECT_EQ(asked.low, 0.3);
  EXPECT_EQ(asked.high, 1.4);
  EXPECT_EQ(asked.breaks.size(), 5u);
}

TEST(Waves, RefusesATableThatIsNoSpectrum) {
  const JobFolder folder;
  folder.write("back.csv", "f [Hz],S [m2/Hz]\n0.5,1\n0.4,1\n");
  folder.write("below.csv", "f [Hz],S [m2/Hz]\n0.4,1\n0.5,-1\n");
  folder.write("one.csv", "f [Hz],S [m2/Hz]\n0.4,1\n");
  folder.write("far.csv", "f [Hz],S [m2/Hz]\n4,1\n5,1\n");
  const auto refusal = [&](const std::string& file) {
    return folder.refusal(flume_job(wave("kind = \"table\"\nfile = \"" + file + "\"")));
  };
  EXPECT_EQ(refusal("back.csv"), "7: back.csv:3: the frequency does not rise\n");
  EXPECT_EQ(refusal("below.csv"), "7: below.csv:3: the density is negative\n");
  EXPECT_EQ(refusal("one.csv"), "7: one.csv has only one line\n");
  EXPECT_EQ(refusal("far.csv"),
            "7: far.csv has no energy at the run's harmonics, 0.09375 to 2 Hz\n");
}

TEST(Waves, ReadySeaIsAskedForAtAllFrequencies) {
  const auto run =
      JobFolder().build(flume_job(wave("kind = \"jonswap\"\nhs = \"100 mm\"\ntp = \"1.6 s\"")));
  const AskedWave& asked = run->seas[0].asked[0];
  EXPECT_EQ(asked.low, 0.0);
  EXPECT_TRUE(std::isinf(asked.high));
  EXPECT_NEAR(asked.peak, 0.625, 1e-3);
  const auto m0 = Testing::simpson(asked.density, 1e-3, 0.625, 4000) +
                  Testing::simpson(asked.density, 0.625, 30.0, 40000);
  EXPECT_NEAR(4 * std::sqrt(m0), 0.1, 1e-4);
  // The run makes 0.1 to 2 Hz.
  const auto made = Testing::simpson(asked.density, 5.5 / 64, 0.625, 4000) +
                    Testing::simpson(asked.density, 0.625, 128.5 / 64, 4000);
  EXPECT_NEAR(energy_of(*run), made, 2e-3 * made);
}

TEST(Waves, ReadySeaIsAskedForWithinTheLimitsOfTheJob) {
  const auto run =
      JobFolder().prepare(flume_job(wave("kind = \"jonswap\"\nhs = \"100 mm\"\ntp = \"1.6 "
                                         "s\"\nf_min = \"0.4 Hz\"\nf_max = \"1 Hz\"")));
  const AskedWave& asked = run->seas[0].asked[0];
  EXPECT_EQ(asked.low, 0.4);
  EXPECT_EQ(asked.high, 1.0);
  EXPECT_EQ(asked.density(0.39), 0.0);
  EXPECT_GT(asked.density(0.41), 0.0);
  EXPECT_EQ(asked.density(1.01), 0.0);
}

TEST(Waves, FocusedGroupHasItsCrest) {
  const auto run =
      JobFolder().build(flume_job(wave("kind = \"focused\"\ncrest = \"60 mm\"\ntp = \"1.6 s\"")));
  double crest = 0.0;
  for (const auto& front : fronts_of(*run)) crest += front.amp;
  EXPECT_NEAR(crest, 0.06, 1e-4);
  EXPECT_NEAR(run->seas[0].asked[0].crest.value_or(0.0), 0.06, 1e-15);
}

TEST(Waves, RegularWaveIsOneFront) {
  const auto run = JobFolder().build(
      flume_job(wave("kind = \"regular\"\nheight = \"40 mm\"\nperiod = \"2 s\"")));
  const auto fronts = fronts_of(*run);
  ASSERT_EQ(fronts.size(), 1u);
  EXPECT_EQ(fronts[0].harmonic, 32u);
  EXPECT_NEAR(fronts[0].amp, 0.02, 1e-15);
  EXPECT_EQ(fronts[0].phase, 0.0);
  EXPECT_NEAR(run->seas[0].asked[0].lines.at(0).amplitude, 0.02, 1e-15);
}

TEST(Waves, RefusesWhatMakesNoSea) {
  const auto refusal = [](const std::string& keys) {
    return JobFolder().refusal(flume_job(wave(keys)));
  };
  EXPECT_EQ(refusal("kind = \"jonswap\"\nhs = \"-1 m\"\ntp = \"1.6 s\""),
            "7: `hs` must be above 0\n");
  EXPECT_EQ(refusal("kind = \"jonswap\"\nhs = \"1 m\""),
            "5: `tp` is missing in a `jonswap` wave "
            "(period of the peak: a time in s, min, msec, h)\n");
  EXPECT_EQ(refusal("kind = \"spectrum\"\nformula = \"0.2@Hz#0.0001@m2s\""),
            "7: There must be an odd number of sub expressions "
            "(see `kelpbox formulas`; numbers have no exponent form)\n");
  EXPECT_EQ(refusal("kind = \"spectrum\"\nformula = \" \""),
            "7: `formula` is empty (such as \"0.2@Hz#0.0001@m2s#2@Hz\")\n");
  EXPECT_EQ(refusal("kind = \"time\"\nformula = \"0@s#log($[s]-32)@m#64@s\"\nrate = \"20 Hz\""),
            "7: `formula` is not finite at all times of the run\n");
  EXPECT_EQ(refusal("kind = \"record\"\nfile = \"\""), "7: `file` is empty\n");
  EXPECT_EQ(refusal("kind = \"record\"\nfile = \'\'\'\nx.csv\'\'\'"),
            "7: `file` must be a text on one line\n");
  EXPECT_EQ(refusal("kind = \"spectrum\"\nformula = \"1@Hz#0.0001@m2s#0.5@Hz\""),
            "7: Limit values do not increase in size\n");
  EXPECT_EQ(refusal("kind = \"spectrum\"\nformula = \"3@Hz#0.0001@m2s#4@Hz\""),
            "7: the wave lies outside the run's harmonics, 0.09375 to 2 Hz\n");
  EXPECT_EQ(refusal("kind = \"spectrum\"\nformula = \"0@s#1@m#64@s\""),
            "7: the limits of a `spectrum` formula are frequencies "
            "(such as `0.2@Hz#0.0001@m2s#2@Hz`)\n");
  EXPECT_EQ(refusal("kind = \"spectrum\"\nformula = 3"),
            "7: `formula` is a text (such as \"0.2@Hz#0.0001@m2s#2@Hz\")\n");
  EXPECT_EQ(refusal("kind = \"time\"\nformula = \"0@s#1@m#64@s\"\nrate = \"0 Hz\""),
            "8: `rate` must be above 0\n");
}

}  // namespace
}  // namespace Jobs
