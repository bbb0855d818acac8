// The results of processes, and when the tank of an analysis is ready.
#include "analysis_fixture.h"
#include "support/wave_number.h"

namespace {

using Testing::AnalysisTest;

class AnalysisResults : public AnalysisTest {};

TEST_F(AnalysisResults, WavesOfARegularRecordAreFound) {
  add(sine(0.05));
  add(sine(0.03));
  const jlong made = process(group({0, 1}), 0);
  EXPECT_TRUE(values_of(data(made)).empty());
  const jlong out = results(made);
  EXPECT_EQ(names(out), (std::vector<std::string>{"reg_t"}));
  EXPECT_NEAR(value(out, "reg_t", "s"), 2.0, 1e-9);
  const std::vector<double> heights = values_of(data(made));
  ASSERT_EQ(heights.size(), 2u);
  EXPECT_NEAR(heights[0], 0.1, 1e-12);
  EXPECT_NEAR(heights[1], 0.06, 1e-12);
}

TEST_F(AnalysisResults, AFailureInAProcessArrivesWithItsMessage) {
  add(std::vector<double>(2000, 0.1));
  const jlong set = group({0});
  results(process(set, 0));
  EXPECT_EQ(thrown(), domain("Insufficient zero crossings in time series"));
  const jlong waves = process(set, 2);
  results(waves);
  EXPECT_EQ(thrown(), domain("freq::Not found"));
  EXPECT_EQ(output, "DA\n");
  results(waves, params({{"freq", 0.5, "Hz"}, {"angle", 0, "rad"}}), params());
  EXPECT_EQ(thrown(), domain("At least two data sets must be provided for frequency analysis"));
}

TEST_F(AnalysisResults, DuplicateResultsAreRefused) {
  add(sine(0.05));
  const jlong made = process(group({0}), 0);
  const jlong out = results(made);
  results(made, params(), out);
  EXPECT_EQ(thrown(), domain("\"reg_t\"::Duplicate parameter:"));
}

TEST_F(AnalysisResults, AProcessOfTheSecondKindHasNoResults) {
  add(sine(0.05));
  const jlong made = process(group({0}), 1);
  EXPECT_TRUE(names(results(made)).empty());
  EXPECT_TRUE(values_of(data(made)).empty());
}

// Four probes under a wave and its reflection, in 1 m of water.
TEST_F(AnalysisResults, AWaveIsSeparatedFromItsReflection) {
  const double omega = 2 * pi * 0.5;
  const double k = Testing::exact_wave_number(omega, 1.0);
  for (const double x : {4.0, 4.4, 5.1, 6.0}) {
    std::vector<double> samples(2000);
    for (std::size_t j = 0; j < samples.size(); ++j) {
      const double t = static_cast<double>(j) / 50;
      samples[j] = 0.05 * std::cos(omega * t - k * x) + 0.01 * std::cos(omega * t + k * x + 1);
    }
    host.call(NATIVE(Kelpbox_1Analysis_1add_1series), self, proxy,
              params({{"rate", 50, "Hz"}, {"x", x, "m"}, {"y", 0, "m"}}), proxy, doubles(samples),
              proxy);
  }
  const jlong made = process(group({0, 1, 2, 3}), 2);
  const jlong out = results(made, params({{"freq", 0.5, "Hz"}, {"angle", 0, "rad"}}), params());
  EXPECT_EQ(output, "DA\nDB\nDC\nDD\nDE\nDF\nDG\nDH\nDI\n");
  EXPECT_EQ(names(out),
            (std::vector<std::string>{"Backward bound harmonic", "Backward free fundamental",
                                      "Backward free harmonic", "Forward bound harmonic",
                                      "Forward free fundamental", "Forward free harmonic"}));
  // The library's explicit wave number is within a few parts in 1e5 of the exact one.
  EXPECT_NEAR(value(out, "Forward free fundamental", ""), 0.05, 2e-5);
  EXPECT_NEAR(value(out, "Backward free fundamental", ""), 0.01, 2e-5);
  EXPECT_NEAR(value(out, "Forward bound harmonic", ""), 0.0, 1e-10);

  EXPECT_TRUE(values_of(data(made)).empty());
  EXPECT_EQ(thrown_by(NATIVE(Kelpbox_1Analysis_1get_1data), self, proxy, made,
                      params({{"x", 0, "m"}}), proxy),
            domain("y::Not found"));
}

// The site.

TEST_F(AnalysisResults, AfterSetOnlyTheNextProcessMakesTheTank) {
  add(sine(0.05));
  const jlong set = group({0});
  const auto profile = NATIVE(Kelpbox_1Analysis_1profile);
  const jlong step = params({{"delta_x", 30, "m"}});
  const auto depths = [&] {
    return values_of(own(host.call(profile, self, proxy, step, proxy),
                         NATIVE(delete_1Kelpbox_1StdVectorDouble)));
  };
  EXPECT_EQ(depths(), (std::vector<double>{1, 0.5}));
  tune();
  EXPECT_EQ(thrown_by(profile, self, proxy, step, proxy), uncaught("profile"));
  create(set, 1);
  EXPECT_EQ(depths(), (std::vector<double>{1, 0.5}));
}

TEST_F(AnalysisResults, SetStoresTheTunableValues) {
  const auto set = NATIVE(Kelpbox_1Analysis_1set);
  host.call(set, self, proxy, params({{"beach", 50, "cm"}, {"delay", 30, "msec"}}), proxy);
  const jlong asked = params();
  host.call(NATIVE(Kelpbox_1Analysis_1query), self, proxy, asked, proxy);
  EXPECT_DOUBLE_EQ(value(asked, "beach", "m"), 0.5);
  // A second set is not a failure.
  tune();
  tune();
}

TEST_F(AnalysisResults, RefusedValuesLeaveTheTankReady) {
  add(sine(0.05));
  const jlong set = group({0});
  EXPECT_EQ(
      thrown_by(NATIVE(Kelpbox_1Analysis_1set), self, proxy, params({{"beach", 0.5, "m"}}), proxy),
      domain("delay::Not found"));
  create(set, 0);
  EXPECT_EQ(thrown(), uncaught("create_process: Make ready called when already ready"));
}

}  // namespace
