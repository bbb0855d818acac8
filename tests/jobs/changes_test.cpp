#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "jobs/job_folder.h"
#include "jobs/run.h"

namespace Jobs {
namespace {

using Testing::basin_job;
using Testing::flume_job;
using Testing::JobFolder;

const std::string band =
    "[[sea]]\n[[sea.wave]]\nkind = \"spectrum\"\nformula = \"0.5@Hz#0.0001@m2s#1.5@Hz\"\n";

std::string change(const std::string& keys) { return "[[sea.change]]\n" + keys + "\n"; }

std::vector<Maths::TransferFront> fronts_of(Run& run) {
  return run.experiment.fronts(run.definition, std::uint32_t{0});
}

std::vector<double> phases(const std::string& changes) {
  const auto run = JobFolder().build(flume_job(band + changes));
  std::vector<double> result;
  for (const auto& front : fronts_of(*run)) result.push_back(front.phase);
  return result;
}

TEST(Changes, AStatedSeedRepeatsAndAnotherDiffers) {
  const auto seeded = phases(change("kind = \"PhaseRandom\"\nseed = 7"));
  EXPECT_EQ(seeded, phases(change("kind = \"PhaseRandom\"\nseed = 7")));
  EXPECT_EQ(seeded, phases(change("kind = \"random_phases\"\nseed = 7")));
  EXPECT_EQ(seeded, phases(change("kind = \"PhaseRandom\"\nran_gen = \"FullRandom\"\nseed = 7")));
  EXPECT_NE(seeded, phases(change("kind = \"PhaseRandom\"\nseed = 8")));
  EXPECT_NE(seeded, phases(change("kind = \"PhaseRandom\"")));
}

TEST(Changes, RemarksOnASeedWithoutEffect) {
  const auto run = JobFolder().prepare(
      flume_job(band + change("kind = \"PhaseRandom\"\nran_gen = \"Default\"\nseed = 7")));
  EXPECT_EQ(run->remarks,
            std::vector<std::string>{"a `PhaseRandom` change of sea 1: the seed has no effect with "
                                     "ran_gen = \"Default\""});
}

TEST(Changes, GainIsKeptForTheJudgement) {
  const auto run = JobFolder().build(
      flume_job(band + change("kind = \"GainAdjust\"\nformula = \"low#1@Hz#0.5*$[Hz]\"\nlow = 2")));
  ASSERT_TRUE(run->seas[0].gain);
  EXPECT_EQ(run->seas[0].gain(0.7), 2.0);
  EXPECT_EQ(run->seas[0].gain(1.2), 0.6);
  for (const auto& front : fronts_of(*run)) {
    const double f = static_cast<double>(front.harmonic) / 64;
    const double plain = std::sqrt(2e-4 / 64);
    EXPECT_NEAR(front.amp, plain * (f <= 1 ? 2.0 : 0.5 * f), 1e-12);
  }
}

TEST(Changes, SeaWithoutAGainHasNone) {
  EXPECT_FALSE(JobFolder().prepare(flume_job(band))->seas[0].gain);
}

TEST(Changes, AngleChangeAddsOrSets) {
  const std::string wave =
      "[[sea]]\n[[sea.wave]]\nkind = \"single\"\nf = \"0.5 Hz\"\na = \"1 mm\"\nangle = \"0.2 "
      "rad\"\n";
  const auto angle = [&](const std::string& keys) {
    const auto run = JobFolder().build(
        flume_job(wave + change("kind = \"AngleChange\"\nformula = \"0.1@rad\"\n" + keys)));
    return fronts_of(*run).at(0).angle;
  };
  EXPECT_NEAR(angle(""), 0.3, 1e-15);
  EXPECT_NEAR(angle("set = false"), 0.3, 1e-15);
  EXPECT_NEAR(angle("set = true"), 0.1, 1e-15);
}

TEST(Changes, SpreadStaysWithinTheSitesLimits) {
  // The basin's limits are -60 and 60 degrees.
  const auto run = JobFolder().build(
      basin_job(band + change("kind = \"AngleSpread\"\nfunction = \"Cos2S\"\nformula = \"1\"\n"
                              "angle = \"15 deg\"\nseed = 3"),
                "256 s"));
  EXPECT_TRUE(run->remarks.empty());
  double lowest = 0.0;
  double highest = 0.0;
  for (const auto& front : fronts_of(*run)) {
    lowest = std::min(lowest, front.angle);
    highest = std::max(highest, front.angle);
  }
  const double limit = 60 * M_PI / 180;
  EXPECT_GT(lowest, -limit - 1e-6);
  EXPECT_LT(lowest, -0.8 * limit);
  EXPECT_LT(highest, limit + 1e-6);
  EXPECT_GT(highest, 0.8 * limit);
}

TEST(Changes, ReadySpreadIsTheLibrarysOwn) {
  const auto angles = [](const std::string& keys) {
    const auto run = JobFolder().build(basin_job(band + change(keys)));
    std::vector<double> result;
    for (const auto& front : fronts_of(*run)) result.push_back(front.angle);
    return result;
  };
  EXPECT_EQ(angles("kind = \"cos2s\"\ns = 10\nangle = \"15 deg\"\nseed = 3"),
            angles("kind = \"AngleSpread\"\nfunction = \"Cos2S\"\nformula = \"10\"\n"
                   "angle = \"15 deg\"\nseed = 3"));
}

std::string all_round_site(const JobFolder& folder) {
  folder.write("limits.site",
               "limits { frequency { units = \"Hz\"; maximum = 2.0; minimum = 0.1; }\n"
               "angle { units = \"deg\"; maximum = 360; minimum = 0; } }\n");
  folder.write("round.site",
               "context { site_name = \"s\"; tank_name = \"t\"; config_name = \"c\";\n"
               "tank { geometry = NoSides; units = m; max_y = 10; min_y = -10; section[2..1];\n"
               "section[1] { x = 0; offset = Absolute; depth = \"1\"; }\n"
               "section[2] { x = 20; offset = Absolute; } }\n"
               "include \"limits.site\"\n"
               "wavemaker_bank[1..1] { name = \"b\"; pad_pos[1..1] { x = 0; y = 0; angle = 0; }\n"
               "piston { paddle_width = 0.5; critical_dimension = 0; dimension_type = ToBottom;\n"
               "paddle_motion { units = \"m\"; maximum = 1; minimum = -1; clip_limit = 1; } } }\n"
               "rate_units = Hz; base_rate = 50; base_g = 9.81; base_rho = 1000; }\n");
  return "site = \"round.site\"\n[run]\nrepeat = \"256 s\"\n";
}

TEST(Changes, SpreadReachesAllRoundWhereTheSiteDoes) {
  for (const char* angle : {"0 deg", "-170 deg", "0.01 deg", "90 deg", "180 deg"}) {
    const JobFolder folder;
    const auto run = folder.build(
        all_round_site(folder) + band +
        change("kind = \"cos2s\"\ns = 0.5\nseed = 3\nangle = \"" + std::string(angle) + "\""));
    EXPECT_TRUE(run->remarks.empty()) << angle;
    int behind = 0;
    const double mean = std::stod(angle) * M_PI / 180;
    for (const auto& front : fronts_of(*run)) behind += std::cos(front.angle - mean) < 0 ? 1 : 0;
    // cos^2(d/2)^(1/2): the share beyond a quarter turn is 1 - sin(pi/4) = 0.29 of 257 fronts.
    EXPECT_NEAR(behind, 75, 25) << angle;
  }
}

TEST(Changes, RemarksWhenAStatedLimitMoves) {
  const auto run = JobFolder().prepare(
      basin_job(band + change("kind = \"cosn\"\nn = 4\nangle = \"0 rad\"\nmax_angle = \"2 rad\"")));
  // The law reaches to pi/2 - 0.0001.
  EXPECT_EQ(run->remarks, std::vector<std::string>{"a `cosn` change of sea 1: max_angle: 2 rad "
                                                   "became 1.570696327 rad"});
}

TEST(Changes, RefusesAMeanDirectionBeyondTheLimits) {
  const std::string spread = "kind = \"cos2s\"\ns = 10\nangle = \"75 deg\"\n";
  EXPECT_EQ(JobFolder().refusal(basin_job(band + change(spread))),
            "11: `angle` is not between -60 and 60 deg "
            "(the limits of the site, or `min_angle` and `max_angle`)\n");
  EXPECT_EQ(JobFolder().refusal(basin_job(band + change(spread + "max_angle = \"80 deg\""))), "");
}

TEST(Changes, RefusesLimitsThatFallWhereTheSiteHasLimits) {
  const std::string spread = "kind = \"cos2s\"\ns = 10\nangle = \"0 deg\"\n";
  EXPECT_EQ(JobFolder().refusal(basin_job(
                band + change(spread + "min_angle = \"20 deg\"\nmax_angle = \"-20 deg\""))),
            "13: `max_angle` must not be below `min_angle`\n");
  // Reduced to one turn they would rise, and the mean would lie outside. That is not reported too.
  EXPECT_EQ(JobFolder().refusal(
                basin_job(band + change("kind = \"cos2s\"\ns = 10\nangle = \"180 deg\"\n"
                                        "min_angle = \"200 deg\"\nmax_angle = \"170 deg\""))),
            "13: `max_angle` must not be below `min_angle`\n");
}

TEST(Changes, RefusesSeedsThatTheGeneratorCannotTake) {
  const auto refusal = [](const std::string& seed) {
    return JobFolder().refusal(
        flume_job(band + change("kind = \"random_phases\"\nseed = " + seed)));
  };
  for (const std::string seed : {"-1", "1.5", "4294967296", "1e300"}) {
    EXPECT_EQ(refusal(seed), "10: `seed` must be a whole number from 0 to 4294967295\n") << seed;
  }
  EXPECT_EQ(refusal("0"), "");
  EXPECT_EQ(refusal("4294967295"), "");
}

TEST(Changes, ReportsABadGainOnce) {
  EXPECT_EQ(JobFolder().refusal(
                flume_job(band + change("kind = \"GainAdjust\"\nformula = \"1#1@Hz#2#0.5@Hz#3\""))),
            "10: Limits out of order\n");
}

TEST(Changes, RefusesASecondChangeOfOneKind) {
  EXPECT_EQ(JobFolder().refusal(
                flume_job(band + change("kind = \"AngleChange\"\nformula = \"0.1@rad\"") +
                          change("kind = \"PhaseRandom\"") +
                          change("kind = \"AngleChange\"\nformula = \"0.1@rad\"\nset = 3"))),
            "13: a second change of direction in sea 1 (the first is `AngleChange`)\n"
            "16: `set` cannot be 3 (use False, True)\n");
}

TEST(Changes, RefusesABadFormulaAtItsPlace) {
  const auto refusal = [](const std::string& keys) {
    return JobFolder().refusal(flume_job(band + change(keys)));
  };
  EXPECT_EQ(refusal("kind = \"GainAdjust\"\nformula = \"1 + * 2\""),
            "10: Error while parsing expression ::1 + * 2 "
            "(see `kelpbox formulas`; numbers have no exponent form)\n");
  EXPECT_EQ(refusal("kind = \"AngleChange\"\nformula = \"1@m\""),
            "10: Incorrect output units in expression 0 m, 17 "
            "(see `kelpbox formulas`; numbers have no exponent form)\n");
  EXPECT_EQ(refusal("kind = \"PhaseRandom\"\nformula = \"1\""),
            "10: unknown key `formula` in a `PhaseRandom` change (use ran_gen, seed)\n");
  EXPECT_EQ(refusal("kind = \"AngleSet\"\nformula = \"1\""),
            "9: unknown kind of change `AngleSet` (use `AngleChange` with set = true)\n");
  EXPECT_EQ(refusal("kind = \"AngleSpred\"\nformula = \"1\""),
            "9: unknown kind of change `AngleSpred` (did you mean `AngleSpread`?)\n");
  EXPECT_EQ(refusal("kind = \"cos2s\"\ns = 0\nangle = \"0 deg\""),
            "10: `s` must be from 0.5 to 500000\n");
  EXPECT_EQ(refusal("kind = \"cos2s\"\ns = 5\nangle = \"0 deg\"\nfunction = \"CosS\""),
            "12: unknown key `function` in a `cos2s` change "
            "(use angle, max_angle, min_angle, ran_gen, s, seed)\n");
}

}  // namespace
}  // namespace Jobs
