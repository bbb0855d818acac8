#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdint>
#include <limits>
#include <memory>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

#include "base/quantity.h"
#include "maths/clip.h"
#include "synthesis/bank_motion.h"
#include "synthesis/definition.h"
#include "test_site.h"

namespace {

using Complex = std::complex<double>;
using Maths::HarmonicFront;
using Synthesis::BankMotion;
using Testing::at;
using Testing::BankText;
using Testing::GivenFronts;
using Testing::rate_params;
using Testing::Site;
using Testing::SiteText;
using Testing::thrown;
using Testing::wave_number;
using Given = std::vector<std::pair<std::uint64_t, HarmonicFront>>;

constexpr double pi = std::numbers::pi;

// Wave amplitude per unit of paddle motion by linear wavemaker theory, from the shape of the
// motion: 2 sinh(kd) / (sinh(kd) cosh(kd) + kd) times k times the integral of shape(z)
// cosh k(z + d) from the edge to the surface, by Simpson's rule.
double theory_ratio(double k, double depth, double edge, bool flap) {
  const int steps = 2000;
  double integral = 0.0;
  for (int i = 0; i <= steps; ++i) {
    const double z = -edge + edge * i / steps;
    const double weight = i == 0 || i == steps ? 1.0 : i % 2 == 1 ? 4.0 : 2.0;
    integral += weight * (flap ? z + edge : 1.0) * std::cosh(k * (z + depth));
  }
  integral *= edge / steps / 3.0;
  const double s = std::sinh(k * depth);
  return 2.0 * s / (s * std::cosh(k * depth) + k * depth) * k * integral;
}

// The complex amplitude of harmonic h of a signal.
Complex amplitude(const std::vector<double>& signal, std::uint64_t h) {
  Complex sum = 0.0;
  const double n = static_cast<double>(signal.size());
  for (std::size_t j = 0; j < signal.size(); ++j) {
    sum += signal[j] * std::polar(1.0, -2.0 * pi * static_cast<double>(h * j) / n);
  }
  return sum * 2.0 / n;
}

// A run of given fronts at the paddle line, built up to the merged set.
struct BuiltRun {
  BuiltRun(const SiteText& text, Given fronts, double repeat = 10.0)
      : site(text), component(std::move(fronts)), definition("run", site.context()) {
    specification.add_component(component);
    specification.set(at(0, 0, 0));
    definition.add_specification(specification);
    Base::Params params = Testing::run_params(repeat);
    definition.set(params);
    definition.run_build();
  }

  const std::vector<double>& signal(std::uint32_t bank = 0, std::uint32_t paddle = 0) {
    return definition.paddle_motion_data(bank, paddle);
  }

  Site site;
  GivenFronts component;
  Synthesis::Specification specification;
  Synthesis::Definition definition;
};

SiteText with_bank(const BankText& bank) {
  SiteText text;
  text.banks = {bank};
  return text;
}

// A normal wave of amplitude a, harmonic h and phase: a / ratio cos(omega t + phase - k x - pi/2).
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
  // A segment of finite width loses sin(v)/v of its own width, and gains by not facing the wave.
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
    // The arcsine is 1.526 just above.
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
  Given fronts;
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
  // Not a whole number of samples in a repeat: the nearest is taken, and the harmonic still
  // closes on itself.
  run.definition.paddle_motion_build(rate_params(12.34));
  ASSERT_EQ(run.signal().size(), 123u);
  EXPECT_NEAR(std::abs(amplitude(run.signal(), 8)), std::abs(amplitude(base, 8)), 1e-12);
  run.definition.paddle_motion_build(rate_params(12.35));
  EXPECT_EQ(run.signal().size(), 124u);
}

TEST(PaddleMotion, HarmonicsAboveHalfTheSamplesLeaveNoTrace) {
  BuiltRun low(SiteText{}, {{5, {0.04, 0.0, 0.3}}});
  BuiltRun both(SiteText{}, {{5, {0.04, 0.0, 0.3}}, {12, {0.05, 0.0, 0.1}}, {20, {0.1, 0.0, 0.0}}});
  low.definition.paddle_motion_build(rate_params(2.0));
  both.definition.paddle_motion_build(rate_params(2.0));  // 20 samples; 20 is the last one let by
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

TEST(PaddleMotion, AHarmonicBeyondTheSamplesThatNoPaddleMakesIsNotMissed) {
  BankText bank;
  bank.paddle_width = 3.0;
  BuiltRun run(with_bank(bank), {{20, {0.1, 1.2, 0.0}}});
  EXPECT_EQ(thrown([&] { run.definition.paddle_motion_build(rate_params(1.0)); }),
            "nothing thrown");
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

TEST(PaddleMotion, ClippingIsCountedAndLeftInTheSignal) {
  BankText bank;
  bank.machine = "flap";
  bank.units = "deg";
  bank.clip_limit = 1.0;
  BuiltRun run(with_bank(bank), {{8, {0.04, 0.0, 0.0}}});
  run.definition.paddle_motion_build(rate_params(200.0));
  const std::vector<double> clipped = run.signal();
  const double k = wave_number(2.0 * pi * 0.8, 1.0);
  const double peak = 0.04 / theory_ratio(k, 1.0, 1.0, true);
  const double limit = pi / 180.0;
  ASSERT_GT(peak, limit);
  EXPECT_NEAR(*std::max_element(clipped.begin(), clipped.end()), peak, 1e-4 * peak);

  Base::Params stats;
  stats.insert("left over", 1.0, "m");
  stats.add_comment(0, "left over");
  run.definition.paddle_motion_stats(0, stats);
  EXPECT_EQ(stats.comment_size(), 0u);
  ASSERT_EQ(stats.entries().size(), 2u);
  EXPECT_EQ(stats.at("clip_peak_ratio").value, 1.0);  // each of its half waves
  EXPECT_NEAR(stats.at("clip_power_ratio").value, 1.0 - limit * limit / (peak * peak), 1e-3);

  // The same signal comes from a machine that it does not clip, and there is nothing to tell.
  bank.clip_limit = 90.0;
  BuiltRun free(with_bank(bank), {{8, {0.04, 0.0, 0.0}}});
  free.definition.paddle_motion_build(rate_params(200.0));
  EXPECT_EQ(free.signal(), clipped);
  free.definition.paddle_motion_stats(0, stats);
  EXPECT_TRUE(stats.entries().empty());
}

TEST(PaddleMotion, ClippingIsOneAccountForAllPaddlesOfABankAndIsRestartedByABuild) {
  BankText bank;
  bank.clip_limit = 30.0;
  bank.units = "mm";
  const double k = wave_number(2.0 * pi * 0.8, 1.0);
  // Facing at 60 degrees, the second paddle moves about half as much.
  bank.paddle_width = 0.01;
  bank.paddles = {{0.0, 0.0, 0.0}, {0.0, 0.5, pi / 3.0}};
  const double a = 0.04 * theory_ratio(k, 1.0, 1.0, false);
  BuiltRun run(with_bank(bank), {{8, {a, 0.0, 0.0}}});
  for (int build = 0; build < 2; ++build) {
    run.definition.paddle_motion_build(rate_params(200.0));
    Base::Params stats;
    run.definition.paddle_motion_stats(0, stats);
    EXPECT_EQ(stats.at("clip_peak_ratio").value, 0.5);
  }
}

TEST(PaddleMotion, ADepthOfEdgeOfZeroGoesThroughAsNotANumber) {
  BankText bank;
  bank.machine = "flap";
  bank.units = "rad";
  bank.dimension_type = "ToSurface";
  bank.critical_dimension = 0.0;
  BuiltRun run(with_bank(bank), {{8, {0.04, 0.0, 0.0}}});
  run.definition.paddle_motion_build(rate_params(20.0));
  ASSERT_EQ(run.signal().size(), 200u);
  for (const double sample : run.signal()) EXPECT_TRUE(std::isnan(sample));
  Base::Params stats;
  run.definition.paddle_motion_stats(0, stats);
  EXPECT_TRUE(stats.entries().empty());
}

TEST(PaddleMotion, HugeAmplitudesAreWrittenAndCarriedOn) {
  SiteText text;
  BuiltRun run(text, {{8, {1e12, 0.0, 0.0}}});
  testing::internal::CaptureStdout();
  run.definition.paddle_motion_build(rate_params(20.0));
  const std::string report = testing::internal::GetCapturedStdout();
  EXPECT_EQ(report.front(), '(');
  EXPECT_EQ(report.substr(report.size() - 2), "):");
  EXPECT_EQ(report.find('\n'), std::string::npos);
  EXPECT_EQ(run.signal().size(), 200u);
}

TEST(PaddleMotion, BanksOutOfRangeOrNotBuiltAreRefused) {
  BuiltRun run(SiteText{}, {{8, {0.04, 0.0, 0.0}}});
  const std::string text = "Bank out of range or paddle_motion not built";
  Base::Params stats;
  stats.insert("kept", 1.0, "m");
  EXPECT_EQ(thrown([&] { run.definition.paddle_motion_data(0, 0); }), text);
  EXPECT_EQ(thrown([&] { run.definition.paddle_motion_stats(0, stats); }), text);
  EXPECT_TRUE(stats.contains("kept"));
  run.definition.paddle_motion_build(rate_params(20.0));
  EXPECT_EQ(thrown([&] { run.definition.paddle_motion_data(1, 0); }), text);
  EXPECT_EQ(thrown([&] { run.definition.paddle_motion_stats(1, stats); }), text);
}

TEST(PaddleMotion, APaddleOutOfRangeIsRefused) {
  BuiltRun run(SiteText{}, {{8, {0.04, 0.0, 0.0}}});
  run.definition.paddle_motion_build(rate_params(20.0));
  EXPECT_EQ(thrown([&] { run.definition.paddle_motion_data(0, 1); }),
            "Paddle out of range in paddle_motion_data::bank 0 has no signal of paddle 1");
}

TEST(PaddleMotion, TheRateMustBeAFrequencyThatHasBeenGiven) {
  BuiltRun run(SiteText{}, {});
  const auto build = [&](const Base::Params& in) {
    return thrown([&] { run.definition.paddle_motion_build(in); });
  };
  Base::Params in;
  EXPECT_EQ(build(in), "rate::Not found");
  in.declare("rate", Base::default_units(Base::Category::frequency));
  EXPECT_EQ(build(in), "Invalid value");
  in.clear();
  in.insert("rate", 0.1, "s");
  EXPECT_EQ(build(in), "rate::not convertable");
}

TEST(PaddleMotion, ARateWithoutAUsableNumberOfSamplesIsRefused) {
  BuiltRun run(SiteText{}, {});
  for (const auto& [rate, text] : std::vector<std::pair<double, std::string>>{
           {-5.0, "-5"},
           {std::numeric_limits<double>::quiet_NaN(), "nan"},
           {1e300, "1e+300"},
           {3e8, "3e+08"},
           {std::numeric_limits<double>::infinity(), "inf"}}) {
    EXPECT_EQ(thrown([&] { run.definition.paddle_motion_build(rate_params(rate)); }),
              "rate::" + text + " Hz gives no usable number of samples in a repeat time of 10 s");
  }
}

TEST(PaddleMotion, BeforeAnySetThereIsNoRepeatTime) {
  Site site;
  Synthesis::Definition definition("run", site.context());
  // The repeat is looked at before the rate.
  EXPECT_EQ(thrown([&] { definition.paddle_motion_build(Base::Params()); }),
            "Repeat time zero or less");
}

TEST(PaddleMotion, SignalsStayUntilTheyAreBuiltAgain) {
  BuiltRun run(SiteText{}, {{8, {0.04, 0.0, 0.0}}});
  run.definition.paddle_motion_build(rate_params(20.0));
  const std::vector<double> before = run.signal();
  run.component.fronts[0].second.amp = 0.08;
  run.definition.run_build();
  EXPECT_EQ(run.signal(), before);
  run.definition.paddle_motion_build(rate_params(20.0));
  for (std::size_t j = 0; j < before.size(); ++j) {
    EXPECT_NEAR(run.signal()[j], 2.0 * before[j], 1e-14);
  }
}

TEST(PaddleMotion, AFailingBankLeavesTheBanksBeforeItComplete) {
  SiteText text;
  text.banks = {BankText{}, BankText{}, BankText{}};
  BuiltRun run(text, {{8, {0.04, 0.0, 0.0}}});
  run.site.context().wavemaker_bank[1].machine().dimension_type.number = 7;
  EXPECT_EQ(thrown([&] { run.definition.paddle_motion_build(rate_params(20.0)); }),
            "Unsupported critical dimension type found");
  EXPECT_EQ(run.signal(0, 0).size(), 200u);
  for (const std::uint32_t bank : {1u, 2u}) {
    EXPECT_EQ(thrown([&] { run.signal(bank, 0); }),
              "Paddle out of range in paddle_motion_data::bank " + std::to_string(bank) +
                  " has no signal of paddle 0");
  }
}

// A bank put together by hand, for what no script can say.
class OddMachine : public Common::Piston {
 public:
  std::uint32_t type() const override { return 2; }
};

struct HandBank {
  explicit HandBank(std::int32_t paddle_count, Common::Machine* other = nullptr) {
    if (paddle_count > 0) paddles.pad_pos.build(paddle_count, 1);
    for (std::size_t p = 0; p < paddles.pad_pos.size(); ++p) {
      paddles.pad_pos[p].x = paddles.pad_pos[p].y = paddles.pad_pos[p].angle = 0.0;
    }
    if (other != nullptr) {
      paddles.machines.add(other);
    } else {
      paddles.piston.build();
    }
    Common::Machine& machine = paddles.machine();
    machine.paddle_width = 0.5;
    machine.critical_dimension = 0.0;
    machine.dimension_type.number = 0;
    machine.paddle_motion.build();
    machine.paddle_motion.get()->clip_limit = 1.0;
    machine.paddle_motion.get()->units = "m";
    tank.paddle_depth = 1.0;
    tank.g = 9.81;
    run.init(10.0, 20.0, 0.1, 2.0, false);
    fronts.reset(run.size());
  }

  void init(double rate = 20.0) { motion.init(tank, run, rate_params(rate)); }
  void build() { motion.build(paddles, fronts); }

  Common::Paddles paddles;
  Maths::TankConfig tank;
  Maths::RunData run;
  Maths::FrontSet fronts;
  BankMotion motion;
};

TEST(BankMotion, BuildBeforeInitIsRefused) {
  HandBank bank(1);
  EXPECT_EQ(thrown([&] { bank.build(); }), "Trying to build paddle positions when not initialised");
}

TEST(BankMotion, ABankWithoutPaddlesHasNoSignals) {
  HandBank bank(0);
  bank.fronts.add_front(5, {0.1, 0.0, 0.0});
  bank.init();
  bank.build();
  EXPECT_TRUE(bank.motion.series().empty());
  // Nor does it miss a harmonic beyond the samples.
  bank.init(0.1);
  EXPECT_EQ(thrown([&] { bank.build(); }), "nothing thrown");
}

TEST(BankMotion, InitForgetsTheSignals) {
  HandBank bank(2);
  bank.init();
  bank.build();
  EXPECT_EQ(bank.motion.series().size(), 2u);
  bank.init();
  EXPECT_TRUE(bank.motion.series().empty());
}

TEST(BankMotion, UnknownDimensionTypesAreRefused) {
  for (const std::int32_t number : {2, -1}) {
    HandBank bank(1);
    bank.paddles.machine().dimension_type.number = number;
    bank.init();
    EXPECT_EQ(thrown([&] { bank.build(); }), "Unsupported critical dimension type found");
  }
}

TEST(BankMotion, UnknownMachinesAreRefused) {
  OddMachine machine;
  HandBank bank(1, &machine);
  bank.fronts.add_front(5, {0.1, 0.0, 0.0});
  bank.init();
  EXPECT_EQ(thrown([&] { bank.build(); }), "Unsupported type of machine found");
  machine.dimension_type.number = 2;
  EXPECT_EQ(thrown([&] { bank.build(); }), "Unsupported critical dimension type found");
}

TEST(BankMotion, AHarmonicWithoutAmplitudeCostsAWaveNumberAndAddsNothing) {
  HandBank bank(1);
  bank.fronts.slots[5] = {{0.0, 0.3, 0.0}, {0.0, 0.0, 1.0}};
  bank.init();
  bank.build();
  EXPECT_EQ(bank.motion.series().at(0), std::vector<double>(200, 0.0));
  // A wave without a frequency has no wave number.
  bank.fronts.slots[0] = {{0.0, 0.0, 0.0}};
  bank.init();
  const std::string text = thrown([&] { bank.build(); });
  EXPECT_EQ(text.rfind("Knum calculation failed for omega=0 and depth = 1", 0), 0u) << text;
}

}  // namespace
