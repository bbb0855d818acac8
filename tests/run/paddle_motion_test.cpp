#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstdint>
#include <numbers>
#include <vector>

#include "support/test_run.h"
#include "support/thrown.h"

namespace {

using Complex = std::complex<double>;
using Testing::BankText;
using Testing::BuiltRun;
using Testing::nothing_thrown;
using Testing::rate_params;
using Testing::SiteText;
using Testing::theory_ratio;
using Testing::thrown;
using Testing::wave_number;
using Testing::with_bank;

constexpr double pi = std::numbers::pi;

// The complex amplitude of harmonic h of a signal.
Complex amplitude(const std::vector<double>& signal, std::uint64_t h) {
  Complex sum = 0.0;
  const double n = static_cast<double>(signal.size());
  for (std::size_t j = 0; j < signal.size(); ++j) {
    sum += signal[j] * std::polar(1.0, -2.0 * pi * static_cast<double>(h * j) / n);
  }
  return sum * 2.0 / n;
}

// Expects the signals a / ratio cos(omega t + phase - k x - pi/2) of a wave along the normal.
void expect_normal_wave(const BankText& bank, double edge) {
  const double a = 0.04;
  const double phase = 0.7;
  BuiltRun run(with_bank(bank), {{8, {a, 0.0, phase}}});
  run.definition.paddle_motion_build(rate_params(20.0));
  const double k = wave_number(2.0 * pi * 0.8, 1.0);
  const double stroke = a / theory_ratio(k, 1.0, edge, bank.machine == "flap");
  for (std::uint32_t p = 0; p < bank.paddles.size(); ++p) {
    const std::vector<double>& signal = run.signal(0, p);
    ASSERT_EQ(signal.size(), 200u);
    for (std::size_t j = 0; j < signal.size(); ++j) {
      const double t = static_cast<double>(j) / 20.0;
      EXPECT_NEAR(signal[j],
                  stroke * std::cos(2.0 * pi * 0.8 * t + phase - k * bank.paddles[p].x - pi / 2.0),
                  1e-10);
    }
  }
}

TEST(PaddleMotion, ANormalWaveMovesAPistonByItsClosedForm) {
  BankText bank;
  bank.paddles = {{0.0, -1.0, 0.0}, {0.3, 2.0, 0.0}};
  expect_normal_wave(bank, 1.0);
}

TEST(PaddleMotion, ANormalWaveMovesAFlapByItsClosedForm) {
  BankText bank;
  bank.machine = "flap";
  bank.units = "rad";
  bank.paddles = {{0.0, -1.0, 0.0}, {-0.2, 2.0, 0.0}};
  expect_normal_wave(bank, 1.0);
}

TEST(PaddleMotion, AnEdgeAboveTheBedIsMeasuredFromTheBedOrFromTheSurface) {
  for (const char* machine : {"piston", "flap"}) {
    BankText bank;
    bank.machine = machine;
    bank.units = bank.machine == "flap" ? "deg" : "mm";
    bank.clip_limit = 1000.0;
    bank.critical_dimension = 0.3;
    bank.dimension_type = "ToBottom";
    expect_normal_wave(bank, 0.7);
    bank.dimension_type = "ToSurface";
    expect_normal_wave(bank, 0.3);
  }
}

TEST(PaddleMotion, AnObliqueWaveLagsFromPaddleToPaddle) {
  const double theta = 0.4;
  BankText bank;
  bank.paddles = {{0.0, 0.0, 0.0}, {0.0, 0.5, 0.0}, {0.1, 1.0, 0.0}};
  BuiltRun run(with_bank(bank), {{8, {0.05, theta, 0.0}}});
  run.definition.paddle_motion_build(rate_params(20.0));
  const double k = wave_number(2.0 * pi * 0.8, 1.0);
  const Complex first = amplitude(run.signal(0, 0), 8);
  EXPECT_NEAR(std::arg(amplitude(run.signal(0, 1), 8) / first), -k * 0.5 * std::sin(theta), 1e-10);
  EXPECT_NEAR(std::arg(amplitude(run.signal(0, 2), 8) / first),
              -k * (std::sin(theta) + 0.1 * std::cos(theta)), 1e-10);
  // A paddle of finite width moves v / sin(v) more, v being half its width in crosswise phase.
  const double v = std::sin(theta) * k * 0.25;
  EXPECT_NEAR(std::abs(first),
              0.05 / theory_ratio(k, 1.0, 1.0, false) * std::cos(theta) * v / std::sin(v), 1e-10);
}

TEST(PaddleMotion, ABasinWithTwoSidesOfPaddlesMakesOneWave) {
  BankText front;
  front.paddles = {{0.0, 1.0, 0.0}};
  BankText side;
  side.paddles = {{1.0, 0.0, pi / 2.0}, {3.0, 0.0, pi / 2.0}};
  SiteText text;
  text.banks = {front, side};
  const double theta = pi / 6.0;
  BuiltRun run(text, {{8, {0.05, theta, 0.3}}});
  run.definition.paddle_motion_build(rate_params(20.0));
  const double k = wave_number(2.0 * pi * 0.8, 1.0);
  const auto expected = [&](double x, double y, double normal) {
    const double d = theta - normal;
    const double v = std::abs(std::sin(d)) * k * 0.25;
    return std::polar(0.05 / theory_ratio(k, 1.0, 1.0, false) * std::cos(d) * v / std::sin(v),
                      0.3 - k * (x * std::cos(theta) + y * std::sin(theta)) - pi / 2.0);
  };
  EXPECT_LT(std::abs(amplitude(run.signal(0, 0), 8) - expected(0.0, 1.0, 0.0)), 1e-10);
  EXPECT_LT(std::abs(amplitude(run.signal(1, 0), 8) - expected(1.0, 0.0, pi / 2.0)), 1e-10);
  EXPECT_LT(std::abs(amplitude(run.signal(1, 1), 8) - expected(3.0, 0.0, pi / 2.0)), 1e-10);
}

TEST(PaddleMotion, WavesTooShortForThePaddlesPassOnlyNearTheNormal) {
  const double k = wave_number(2.0 * pi * 1.5, 1.0);
  for (const bool above : {false, true}) {
    BankText bank;
    bank.paddle_width = pi / k * (above ? 1.001 : 0.999);
    // Just above, the largest angle is 1.526 rad.
    BuiltRun run(with_bank(bank), {{15, {0.05, 1.55, 0.0}}, {16, {0.05, 0.0, 0.0}}});
    run.definition.paddle_motion_build(rate_params(40.0));
    const double oblique = std::abs(amplitude(run.signal(), 15));
    if (above) {
      EXPECT_LT(oblique, 1e-15);
    } else {
      EXPECT_GT(oblique, 1e-4);
    }
    EXPECT_GT(std::abs(amplitude(run.signal(), 16)), 0.01);
  }
}

TEST(PaddleMotion, VarianceIsHalfTheSumOfSquaredAmplitudes) {
  Testing::Given fronts;
  for (std::uint64_t h = 2; h <= 20; ++h) {
    const double s = static_cast<double>(h);
    fronts.push_back({h, {0.01 + 0.001 * s, 0.3 * std::cos(s), s * s}});
    fronts.push_back({h, {0.005, -0.3 * std::sin(s), 2.0 * s}});
  }
  BuiltRun run(SiteText{}, fronts);
  run.definition.paddle_motion_build(rate_params(17.3));
  double half_sum = 0.0;
  for (std::uint64_t h = 2; h <= 20; ++h) {
    const double k = wave_number(2.0 * pi * static_cast<double>(h) / 10.0, 1.0);
    Complex sum = 0.0;
    for (const auto& [slot, front] : fronts) {
      if (slot != h) continue;
      const double v = std::abs(std::sin(front.angle)) * k * 0.25;
      const double obliquity = std::cos(front.angle) * (v > 1e-6 ? v / std::sin(v) : 1.0);
      sum += std::polar(front.amp * obliquity, front.phase);
    }
    half_sum += 0.5 * std::norm(sum / theory_ratio(k, 1.0, 1.0, false));
  }
  double variance = 0.0;
  for (const double sample : run.signal()) variance += sample * sample;
  variance /= static_cast<double>(run.signal().size());
  EXPECT_NEAR(variance, half_sum, 1e-10 * half_sum);
}

TEST(PaddleMotion, TheRateNeedNotBeTheBaseRate) {
  BuiltRun run(SiteText{}, {{8, {0.04, 0.0, 0.0}}});
  run.definition.paddle_motion_build(rate_params(20.0));
  const std::vector<double> base = run.signal();
  Base::Params in;
  in.insert("rate", 80.0 * pi, "rad/s");
  run.definition.paddle_motion_build(in);
  ASSERT_EQ(run.signal().size(), 400u);
  for (std::size_t j = 0; j < 200; ++j) EXPECT_NEAR(run.signal()[2 * j], base[j], 1e-12);
  // 123.4 samples in the repeat time are rounded to 123, and the harmonic still fits them.
  run.definition.paddle_motion_build(rate_params(12.34));
  ASSERT_EQ(run.signal().size(), 123u);
  EXPECT_NEAR(std::abs(amplitude(run.signal(), 8)), std::abs(amplitude(base, 8)), 1e-12);
  run.definition.paddle_motion_build(rate_params(12.35));
  EXPECT_EQ(run.signal().size(), 124u);
}

TEST(PaddleMotion, HarmonicsAboveHalfTheSamplesAreIgnored) {
  BuiltRun low(SiteText{}, {{5, {0.04, 0.0, 0.3}}});
  BuiltRun both(SiteText{}, {{5, {0.04, 0.0, 0.3}}, {12, {0.05, 0.0, 0.1}}, {20, {0.1, 0.0, 0.0}}});
  low.definition.paddle_motion_build(rate_params(2.0));
  both.definition.paddle_motion_build(
      rate_params(2.0));  // 20 samples, and 20 is the highest harmonic accepted
  ASSERT_EQ(both.signal().size(), 20u);
  EXPECT_EQ(both.signal(), low.signal());
}

TEST(PaddleMotion, AHarmonicBeyondTheSamplesIsRefused) {
  BuiltRun run(SiteText{}, {{5, {0.04, 0.0, 0.3}}, {20, {0.1, 0.0, 0.0}}});
  EXPECT_EQ(thrown([&] { run.definition.paddle_motion_build(rate_params(1.9)); }),
            "Index 20 out of range");
  EXPECT_EQ(thrown([&] { run.definition.paddle_motion_build(rate_params(0.4)); }),
            "Index 5 out of range");
  EXPECT_EQ(thrown([&] { run.definition.paddle_motion_build(rate_params(0.01)); }),
            "Index 5 out of range");
  EXPECT_EQ(thrown([&] { run.definition.paddle_motion_build(rate_params(0.0)); }),
            "Index 5 out of range");
}

TEST(PaddleMotion, AHarmonicBeyondTheSamplesThatNoPaddleMakesIsAccepted) {
  BankText bank;
  bank.paddle_width = 3.0;
  BuiltRun run(with_bank(bank), {{20, {0.1, 1.2, 0.0}}});
  EXPECT_EQ(thrown([&] { run.definition.paddle_motion_build(rate_params(1.0)); }), nothing_thrown);
  EXPECT_EQ(run.signal(), std::vector<double>(10, 0.0));
}

TEST(PaddleMotion, AnEmptyRunGivesZeros) {
  BankText bank;
  bank.paddles = {{0.0, 0.0, 0.0}, {0.0, 0.5, 0.0}};
  BuiltRun run(with_bank(bank), {});
  run.definition.paddle_motion_build(rate_params(20.0));
  EXPECT_EQ(run.signal(0, 0), std::vector<double>(200, 0.0));
  EXPECT_EQ(run.signal(0, 1), std::vector<double>(200, 0.0));
  Base::Params stats;
  run.definition.paddle_motion_stats(0, stats);
  EXPECT_TRUE(stats.entries().empty());
  // No samples at all.
  run.definition.paddle_motion_build(rate_params(0.01));
  EXPECT_TRUE(run.signal(0, 1).empty());
}

}  // namespace
