#include "maths/run_data.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "support.h"

namespace {

using Maths::RunData;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double inf = std::numeric_limits<double>::infinity();

// 10 s, harmonics 5 to 20.
RunData ten_seconds() {
  RunData run;
  run.init(10.0, 100.0, 0.5, 2.0, true);
  return run;
}

TEST(RunData, RepeatIsAWholeNumberOfSamples) {
  RunData run;
  run.init(10.0004, 100.0, 0.5, 2.0, false);
  EXPECT_EQ(run.value(), 10.0);
  EXPECT_EQ(run.freq(7), 0.7);
  run.init(10.006, 100.0, 0.5, 2.0, false);
  EXPECT_EQ(run.value(), 10.01);
}

TEST(RunData, HarmonicsRunBetweenTheRoundedLimits) {
  RunData run;
  run.init(10.0, 100.0, 0.449, 2.06, true);
  EXPECT_EQ(run.harmonic(1), 4u);
  EXPECT_EQ(run.harmonic(0), 21u);
  EXPECT_EQ(run.min_harmonic(), 4u);
  EXPECT_EQ(run.max_harmonic(), 21u);
  EXPECT_EQ(run.size(), 22u);
  EXPECT_TRUE(run.dalrymple());
  EXPECT_EQ(thrown_text([&] { run.harmonic(2); }), "Unknown type to harmonic");
}

TEST(RunData, TheLimitsAreCountedInTheRoundedRepeat) {
  RunData run;
  run.init(10.04, 10.0, 10.44, 20.44, false);  // 10 s: 104.4 and 204.4 periods
  EXPECT_EQ(run.harmonic(1), 104u);
  EXPECT_EQ(run.harmonic(0), 204u);
}

TEST(RunData, NegativeLimitsLieAboveAllOthers) {
  constexpr std::uint64_t turn = std::numeric_limits<std::uint64_t>::max();  // -1
  RunData run;
  EXPECT_EQ(thrown_text([&] { run.init(10.0, 100.0, -0.5, 2.0, false); }),
            "max harmonic is less than min harmonic");
  EXPECT_EQ(run.harmonic(1), turn - 4);
  run.init(10.0, 100.0, 0.5, -2.0, false);
  EXPECT_EQ(run.harmonic(0), turn - 19);
}

TEST(RunData, ANegativeRepeatIsNoTime) {
  // Minus 1000 samples wrap to 2^32 - 1000, which the rate makes a negative time.
  RunData run;
  run.init(10.0, -100.0, 2.0, 0.5, false);
  EXPECT_EQ(thrown_text([&] { run.value(); }), "Repeat time zero or less");
}

TEST(RunData, TheMeanIsNeverMade) {
  RunData run;
  run.init(10.0, 100.0, 0.0, 2.0, false);
  EXPECT_EQ(run.harmonic(1), 1u);
  EXPECT_FALSE(run.dalrymple());
}

TEST(RunData, FreqTakesAnyHarmonicUpToTheHighest) {
  const RunData run = ten_seconds();
  EXPECT_EQ(run.freq(0), 0.0);
  EXPECT_EQ(run.freq(3), 0.3);
  EXPECT_EQ(run.freq(20), 2.0);
  EXPECT_EQ(thrown_text([&] { run.freq(21); }), "Harmonic out of range");
}

TEST(RunData, WaveNumIsTheNearestHarmonic) {
  const RunData run = ten_seconds();
  EXPECT_EQ(run.wave_num(1.04), 10u);
  EXPECT_EQ(run.wave_num(1.06), 11u);
  EXPECT_EQ(run.wave_num(0.45), 5u);  // half a step below the lowest rounds up
  EXPECT_EQ(run.wave_num(2.049), 20u);
}

TEST(RunData, WaveNumOutOfRangeWritesALine) {
  const RunData run = ten_seconds();
  const auto refused = [&](double freq) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(thrown_text([&] { run.wave_num(freq); }), "Wave number out of range");
    return testing::internal::GetCapturedStdout();
  };
  EXPECT_EQ(refused(0.35), "wave number out of range 4 must be between 5 and 20\n");
  EXPECT_EQ(refused(2.05), "wave number out of range 21 must be between 5 and 20\n");
  EXPECT_EQ(refused(-0.7), "wave number out of range -7 must be between 5 and 20\n");
  EXPECT_EQ(refused(nan),
            "wave number out of range -9223372036854775808 must be between 5 and 20\n");
}

TEST(RunData, IsInrangeAnswersForAnyFrequency) {
  const RunData run = ten_seconds();
  EXPECT_TRUE(run.is_inrange(0.45));
  EXPECT_TRUE(run.is_inrange(2.0));
  testing::internal::CaptureStdout();
  for (const double freq : {0.44, 2.05, -1.0, 1e300, nan, inf, -inf}) {
    EXPECT_FALSE(run.is_inrange(freq)) << freq;
  }
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(RunData, BeforeInitEverythingIsZero) {
  const RunData run;
  EXPECT_EQ(thrown_text([&] { run.size(); }), "Calling size when not initialised");
  EXPECT_EQ(thrown_text([&] { run.freq(0); }), "Calling freq when not initialised");
  EXPECT_EQ(thrown_text([&] { run.wave_num(1.0); }), "Calling wave_num when not initialised");
  EXPECT_EQ(thrown_text([&] { run.value(); }), "Repeat time zero or less");
  EXPECT_EQ(run.harmonic(0), 0u);
  EXPECT_EQ(run.harmonic(1), 0u);
  EXPECT_FALSE(run.dalrymple());
  EXPECT_TRUE(run.is_inrange(1.0));
  EXPECT_FALSE(run.is_inrange(nan));
}

TEST(RunData, AFailedInitKeepsAllButTheLimits) {
  RunData run = ten_seconds();
  EXPECT_EQ(thrown_text([&] { run.init(20.0, 100.0, 3.0, 1.0, false); }),
            "max harmonic is less than min harmonic");
  EXPECT_EQ(run.value(), 10.0);
  EXPECT_TRUE(run.dalrymple());
  EXPECT_EQ(run.harmonic(1), 60u);
  EXPECT_EQ(run.harmonic(0), 20u);
  EXPECT_EQ(run.size(), 21u);

  RunData fresh;
  EXPECT_EQ(thrown_text([&] { fresh.init(20.0, 100.0, 3.0, 1.0, false); }),
            "max harmonic is less than min harmonic");
  EXPECT_EQ(thrown_text([&] { fresh.size(); }), "Calling size when not initialised");
}

TEST(RunData, EqualLimitsPassAndInitMayBeCalledAgain) {
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
    EXPECT_EQ(thrown_text([&] { run.init(repeat, 100.0, 0.1, 2.0, false); }),
              "max harmonic is less than min harmonic")
        << repeat;
  }
  EXPECT_EQ(thrown_text([&] { run.init(10.0, 0.0, 0.1, 2.0, false); }),
            "max harmonic is less than min harmonic");
}

}  // namespace
