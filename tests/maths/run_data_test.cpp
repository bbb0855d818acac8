#include "maths/run_data.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "support/output.h"
#include "support/thrown.h"

namespace {

using Maths::RunData;
using Testing::printed;
using Testing::thrown;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double inf = std::numeric_limits<double>::infinity();

// 10 s, harmonics 5 to 20.
RunData ten_seconds() {
  RunData run;
  run.init(10.0, 100.0, 0.5, 2.0, true);
  return run;
}

TEST(RunData, TheRepeatTimeIsAWholeNumberOfSamples) {
  RunData run;
  run.init(10.0004, 100.0, 0.5, 2.0, false);
  EXPECT_EQ(run.value(), 10.0);
  EXPECT_EQ(run.freq(7), 0.7);
  run.init(10.006, 100.0, 0.5, 2.0, false);
  EXPECT_EQ(run.value(), 10.01);
}

TEST(RunData, HarmonicsLieBetweenTheRoundedLimits) {
  RunData run;
  run.init(10.0, 100.0, 0.449, 2.06, true);
  EXPECT_EQ(run.harmonic(1), 4u);
  EXPECT_EQ(run.harmonic(0), 21u);
  EXPECT_EQ(run.min_harmonic(), 4u);
  EXPECT_EQ(run.max_harmonic(), 21u);
  EXPECT_EQ(run.size(), 22u);
  EXPECT_TRUE(run.dalrymple());
  EXPECT_EQ(thrown([&] { run.harmonic(2); }), "Unknown type to harmonic");
}

TEST(RunData, TheLimitsRelateToTheRoundedRepeatTime) {
  RunData run;
  run.init(10.04, 10.0, 10.44, 20.44, false);  // 10 s: 104.4 and 204.4 periods
  EXPECT_EQ(run.harmonic(1), 104u);
  EXPECT_EQ(run.harmonic(0), 204u);
}

TEST(RunData, NegativeLimitsWrapToLargeHarmonics) {
  constexpr std::uint64_t minus_one = std::numeric_limits<std::uint64_t>::max();
  RunData run;
  EXPECT_EQ(thrown([&] { run.init(10.0, 100.0, -0.5, 2.0, false); }),
            "max harmonic is less than min harmonic");
  EXPECT_EQ(run.harmonic(1), minus_one - 4);
  run.init(10.0, 100.0, 0.5, -2.0, false);
  EXPECT_EQ(run.harmonic(0), minus_one - 19);
}

TEST(RunData, ANegativeRepeatTimeIsRefused) {
  // -1000 samples wrap to 2^32 - 1000, and the negative rate makes that a negative time.
  RunData run;
  run.init(10.0, -100.0, 2.0, 0.5, false);
  EXPECT_EQ(thrown([&] { run.value(); }), "Repeat time zero or less");
}

TEST(RunData, TheLowestHarmonicIsAtLeastOne) {
  RunData run;
  run.init(10.0, 100.0, 0.0, 2.0, false);
  EXPECT_EQ(run.harmonic(1), 1u);
  EXPECT_FALSE(run.dalrymple());
}

TEST(RunData, FreqAcceptsAnyHarmonicUpToTheHighest) {
  const RunData run = ten_seconds();
  EXPECT_EQ(run.freq(0), 0.0);
  EXPECT_EQ(run.freq(3), 0.3);
  EXPECT_EQ(run.freq(20), 2.0);
  EXPECT_EQ(thrown([&] { run.freq(21); }), "Harmonic out of range");
}

TEST(RunData, WaveNumReturnsTheNearestHarmonic) {
  const RunData run = ten_seconds();
  EXPECT_EQ(run.wave_num(1.04), 10u);
  EXPECT_EQ(run.wave_num(1.06), 11u);
  EXPECT_EQ(run.wave_num(0.45), 5u);  // rounds up to the lowest
  EXPECT_EQ(run.wave_num(2.049), 20u);
}

TEST(RunData, AFrequencyOutOfRangeIsPrintedAndRefused) {
  const RunData run = ten_seconds();
  const auto refused = [&](double freq) {
    return printed(
        [&] { EXPECT_EQ(thrown([&] { run.wave_num(freq); }), "Wave number out of range"); });
  };
  EXPECT_EQ(refused(0.35), "wave number out of range 4 must be between 5 and 20\n");
  EXPECT_EQ(refused(2.05), "wave number out of range 21 must be between 5 and 20\n");
  EXPECT_EQ(refused(-0.7), "wave number out of range -7 must be between 5 and 20\n");
  EXPECT_EQ(refused(nan),
            "wave number out of range -9223372036854775808 must be between 5 and 20\n");
}

TEST(RunData, IsInrangeAcceptsAnyFrequencyAndPrintsNothing) {
  const RunData run = ten_seconds();
  EXPECT_TRUE(run.is_inrange(0.45));
  EXPECT_TRUE(run.is_inrange(2.0));
  const std::string output = printed([&] {
    for (const double freq : {0.44, 2.05, -1.0, 1e300, nan, inf, -inf}) {
      EXPECT_FALSE(run.is_inrange(freq)) << freq;
    }
  });
  EXPECT_EQ(output, "");
}

TEST(RunData, BeforeInitEverythingIsZero) {
  const RunData run;
  EXPECT_EQ(thrown([&] { run.size(); }), "Calling size when not initialised");
  EXPECT_EQ(thrown([&] { run.freq(0); }), "Calling freq when not initialised");
  EXPECT_EQ(thrown([&] { run.wave_num(1.0); }), "Calling wave_num when not initialised");
  EXPECT_EQ(thrown([&] { run.value(); }), "Repeat time zero or less");
  EXPECT_EQ(run.harmonic(0), 0u);
  EXPECT_EQ(run.harmonic(1), 0u);
  EXPECT_FALSE(run.dalrymple());
  EXPECT_TRUE(run.is_inrange(1.0));
  EXPECT_FALSE(run.is_inrange(nan));
}

TEST(RunData, AFailedInitChangesTheLimitsOnly) {
  RunData run = ten_seconds();
  EXPECT_EQ(thrown([&] { run.init(20.0, 100.0, 3.0, 1.0, false); }),
            "max harmonic is less than min harmonic");
  EXPECT_EQ(run.value(), 10.0);
  EXPECT_TRUE(run.dalrymple());
  EXPECT_EQ(run.harmonic(1), 60u);
  EXPECT_EQ(run.harmonic(0), 20u);
  EXPECT_EQ(run.size(), 21u);

  RunData fresh;
  EXPECT_EQ(thrown([&] { fresh.init(20.0, 100.0, 3.0, 1.0, false); }),
            "max harmonic is less than min harmonic");
  EXPECT_EQ(thrown([&] { fresh.size(); }), "Calling size when not initialised");
}

TEST(RunData, InitMayBeCalledAgainWithEqualLimits) {
  RunData run = ten_seconds();
  run.init(4.0, 10.0, 1.0, 1.0, false);
  EXPECT_EQ(run.value(), 4.0);
  EXPECT_EQ(run.harmonic(0), 4u);
  EXPECT_EQ(run.harmonic(1), 4u);
  EXPECT_FALSE(run.dalrymple());
}

TEST(RunData, ARunWithoutSamplesHasNoHarmonics) {
  RunData run;
  for (const double repeat : {0.0, 0.001, nan, inf}) {
    EXPECT_EQ(thrown([&] { run.init(repeat, 100.0, 0.1, 2.0, false); }),
              "max harmonic is less than min harmonic")
        << repeat;
  }
  EXPECT_EQ(thrown([&] { run.init(10.0, 0.0, 0.1, 2.0, false); }),
            "max harmonic is less than min harmonic");
}

}  // namespace
