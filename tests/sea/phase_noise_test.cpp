// Amplitudes and phases of white noise.
#include "sea/phase_noise.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <limits>
#include <string>
#include <vector>

#include "components.h"
#include "kolmogorov_smirnov.h"
#include "support/draws.h"
#include "support/modifiers.h"
#include "support/thrown.h"

namespace {

using Synthesis::PhaseWNoiseModifier;
using Testing::Draws;
using Testing::Filled;
using Testing::pi;
using Testing::Sea;
using Testing::set;
using Testing::thrown;

Filled noise(double rate) {
  return Filled().member("ran_gen", "Default", "RanGen").with("rate", rate, "Hz");
}

std::vector<double> drawn_noise(std::size_t n, std::uint32_t seed) {
  Draws draws(seed);
  std::vector<double> x;
  while (x.size() < n) x.push_back(draws.symmetric() * std::sqrt(0.75 * static_cast<double>(n)));
  return x;
}

// Two fronts at each harmonic from 1 to 20, of a repeat of 10 s, changed by noise.
struct Noisy : Sea {
  explicit Noisy(const Base::Params& params) {
    for (std::size_t h = 1; h <= 20; ++h) at(h) = {{0.1, 0.2, 9.0}, {-0.3, 0.4, 8.0}};
    PhaseWNoiseModifier modifier("");
    set(modifier, params);
    modify(modifier);
  }
  void expect_harmonics_of(const std::vector<double>& x) {
    for (std::size_t h = 1; h <= 20; ++h) {
      if (h <= x.size() / 2) {
        const std::complex<double> X = Testing::harmonic_of(x, h);
        EXPECT_NEAR(at(h)[0].amp, 0.1 * std::abs(X), 1e-12) << h;
        EXPECT_NEAR(at(h)[1].amp, -0.3 * std::abs(X), 1e-12) << h;
        EXPECT_NEAR(std::remainder(at(h)[0].phase - std::arg(X), 2 * pi), 0.0, 1e-10) << h;
        EXPECT_EQ(at(h)[1].phase, at(h)[0].phase) << h;
      } else {
        EXPECT_EQ(at(h)[0].amp, 0.1) << h;
        EXPECT_EQ(at(h)[0].phase, 9.0) << h;
        EXPECT_EQ(at(h)[1].phase, 8.0) << h;
      }
      EXPECT_EQ(at(h)[0].angle, 0.2);
      EXPECT_EQ(at(h)[1].angle, 0.4);
    }
  }
};

TEST(PhaseWNoise, AcceptsAnyValidExpression) {
  EXPECT_EQ(PhaseWNoiseModifier("").name(), "PhaseModifier");
  EXPECT_EQ(PhaseWNoiseModifier("3*$[Hz]").slot(), Synthesis::Modifier::phase);
  EXPECT_EQ(thrown([] { PhaseWNoiseModifier("1@m"); }),
            "Incorrect output units in expression 0 m, 1");
  EXPECT_EQ(thrown([] { PhaseWNoiseModifier("1#1@s#1"); }),
            "Incorrect limit units in expression s, 11");
}

TEST(PhaseWNoise, DeclaresGeneratorSeedAndRate) {
  Base::Params out;
  PhaseWNoiseModifier("").query(out);
  ASSERT_EQ(out.entries().size(), 3U);
  EXPECT_EQ(out.at("ran_gen").enum_type(), Base::EnumType::RanGen);
  EXPECT_EQ(Base::category_of(out.at("seed").units), Base::Category::unit);
  EXPECT_EQ(Base::category_of(out.at("rate").units), Base::Category::frequency);
}

TEST(PhaseWNoise, ParametersAreReadInOrder) {
  PhaseWNoiseModifier modifier("");
  EXPECT_EQ(thrown([&] { set(modifier); }), "ran_gen::Not found");
  EXPECT_EQ(thrown([&] { set(modifier, Filled().member("ran_gen", "Default", "RanGen")); }),
            "rate::Not found");
  PhaseWNoiseModifier other("");
  EXPECT_EQ(thrown([&] { set(other, Filled().member("ran_gen", "Distribute", "RanGen")); }),
            "seed::Not found");
  Sea sea;
  EXPECT_EQ(thrown([&] { sea.modify(other); }), "seed::Not found");
}

TEST(PhaseWNoise, DefaultIsTheNoiseOfSeedFive) {
  Noisy(noise(10.0)).expect_harmonics_of(drawn_noise(100, 5));
}

TEST(PhaseWNoise, TheSeedMayBeChosen) {
  for (const char* member : {"FullRandom", "Distribute"}) {
    Noisy(Filled().member("ran_gen", member, "RanGen").number("seed", 30.6).with("rate", 10, "Hz"))
        .expect_harmonics_of(drawn_noise(100, 31));
  }
}

TEST(PhaseWNoise, TheSamplesAreTruncatedAndNotRounded) {
  Noisy(noise(10.19)).expect_harmonics_of(drawn_noise(101, 5));
  Noisy(noise(10.09)).expect_harmonics_of(drawn_noise(100, 5));
}

TEST(PhaseWNoise, HarmonicsAboveHalfTheSamplesAreUnchanged) {
  Noisy(noise(2.5)).expect_harmonics_of(drawn_noise(25, 5));
  Noisy(noise(2.0)).expect_harmonics_of(drawn_noise(20, 5));
  Noisy(noise(0.1)).expect_harmonics_of(drawn_noise(1, 5));
  Noisy(noise(0.0)).expect_harmonics_of({});
}

TEST(PhaseWNoise, HarmonicsBelowTheRunsLowestAreUnchanged) {
  Sea sea;
  sea.run = Testing::run_of(10.0, 0.5, 2.0);
  for (std::size_t h : {4U, 5U}) sea.at(h) = {{0.1, 0.0, 9.0}};
  PhaseWNoiseModifier modifier("");
  set(modifier, noise(10.0));
  sea.modify(modifier);
  EXPECT_EQ(sea.at(4)[0].phase, 9.0);
  EXPECT_NE(sea.at(5)[0].phase, 9.0);
}

TEST(PhaseWNoise, ABuildRepeatsItsNoise) {
  Noisy first(noise(10.0));
  Noisy second(noise(10.0));
  for (std::size_t h = 1; h <= 20; ++h) EXPECT_EQ(first.at(h)[0].phase, second.at(h)[0].phase);
}

TEST(PhaseWNoise, OnlyTheLow32BitsOfTheSamplesCount) {
  // 10 s at this rate are 2^32 + 100.5 samples.
  Noisy(noise(429496739.65)).expect_harmonics_of(drawn_noise(100, 5));
}

TEST(PhaseWNoise, ARateWithoutAUsableNumberOfSamplesIsRefused) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  const auto refusal = [](double rate) { return thrown([&] { Noisy{noise(rate)}; }); };
  const auto text = [](const std::string& value) {
    return "rate::" + value + " Hz gives no usable number of samples in a repeat time of 10 s";
  };
  EXPECT_EQ(refusal(1.5e7), text("1.5e+07"));
  EXPECT_EQ(refusal(-10.0), text("-10"));
  EXPECT_EQ(refusal(1e30), text("1e+30"));
  EXPECT_EQ(refusal(inf), text("inf"));
  EXPECT_EQ(refusal(nan), text("nan"));
}

// 32 767 harmonics with the amplitudes of Rayleigh's law. Their squares have a mean and a standard
// deviation of 1.
TEST(PhaseWNoise, AmplitudesOfALongRunAreRayleighsWithAMeanSquareOfOne) {
  for (const double seed : {5.0, 6.0, 7.0}) {
    Sea sea(65536.0, 0.5);
    const std::size_t top = 32767;
    for (std::size_t h = 1; h <= top; ++h) sea.at(h) = {{1.0, 0.0, 0.0}};
    PhaseWNoiseModifier modifier("");
    set(modifier, Filled()
                      .member("ran_gen", "FullRandom", "RanGen")
                      .number("seed", seed)
                      .with("rate", 1, "Hz"));
    sea.modify(modifier);
    double squares = 0.0;
    std::vector<double> amplitudes;
    std::vector<double> phases;
    for (std::size_t h = 1; h <= top; ++h) {
      squares += sea.at(h)[0].amp * sea.at(h)[0].amp;
      amplitudes.push_back(sea.at(h)[0].amp);
      phases.push_back(sea.at(h)[0].phase);
    }
    const double n = static_cast<double>(top);
    EXPECT_NEAR(squares / n, 1.0, 3.3 / std::sqrt(n)) << seed;
    EXPECT_LT(
        Testing::kolmogorov_smirnov(amplitudes, [](double a) { return 1 - std::exp(-a * a); }),
        1.95);
    EXPECT_LT(Testing::kolmogorov_smirnov(phases, [](double p) { return (p + pi) / (2 * pi); }),
              1.95);
  }
}

}  // namespace
