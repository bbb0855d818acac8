// Wave numbers of several waves at once against the published formula, on every instruction set.
#include "maths/short_waves.h"

#include <gtest/gtest.h>
#include <hwy/highway.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "maths/dispersion.h"
#include "support/thrown.h"

namespace {

using Testing::nothing_thrown;
using Testing::thrown;

constexpr double g = 9.81;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double inf = std::numeric_limits<double>::infinity();

double published(double omega, double depth) {
  const double a = omega * omega;
  const double k = (a / g) * std::pow(1 - std::exp(-std::pow(depth * a / g, 1.25)), -0.4);
  const double C = std::cosh(k * depth);
  const double T = std::tanh(k * depth);
  return k + (a - g * T * k) / (g * T + g * k * depth / (C * C));
}

// Numbers from `least` to `most`, evenly spread over their magnitudes.
std::vector<double> drawn(double least, double most, std::size_t count) {
  std::mt19937_64 random(5);
  std::uniform_real_distribution<double> magnitude(std::log(least), std::log(most));
  std::vector<double> numbers(count);
  for (double& number : numbers) number = std::exp(magnitude(random));
  return numbers;
}

template <typename Check>
void on_each_target(Check check) {
  for (const std::int64_t target : hwy::SupportedAndGeneratedTargets()) {
    SCOPED_TRACE(hwy::TargetName(target));
    hwy::SetSupportedTargetsForTest(target);
    hwy::GetChosenTarget().Update(hwy::SupportedTargets());
    check();
  }
  hwy::SetSupportedTargetsForTest(0);
  hwy::GetChosenTarget().Update(hwy::SupportedTargets());
}

TEST(ShortWaves, AreThoseOfThePublishedFormula) {
  on_each_target([] {
    for (const std::size_t count : {0u, 1u, 7u, 8u, 4001u}) {
      const std::vector<double> omegas = drawn(0.8, 100.0, count);
      std::vector<double> found(count + 1, 7.0);
      for (const double depth : {1.0, 3.7, 5000.0}) {
        Maths::short_waves(omegas.data(), depth, g, count, found.data());
        for (std::size_t i = 0; i < count; ++i) {
          ASSERT_NEAR(found[i] / published(omegas[i], depth), 1.0, 2e-14) << omegas[i];
        }
      }
      const std::vector<double> depths = drawn(0.1, 1e5, count);
      Maths::short_waves(5.0, depths.data(), g, count, found.data());
      for (std::size_t i = 0; i < count; ++i) {
        ASSERT_NEAR(found[i] / published(5.0, depths[i]), 1.0, 2e-14) << depths[i];
        ASSERT_EQ(found[i], Maths::short_wave(5.0, depths[i], g)) << depths[i];
      }
      EXPECT_EQ(found[count], 7.0);  // nothing is written after the last
    }
  });
}

TEST(ShortWaves, RefuseLongWavesAndWhatIsNotAWave) {
  on_each_target([] {
    for (const double omega : {0.0, -0.0, 5e-324, 1e-300, 0.05, nan, inf, -inf, 1e200}) {
      EXPECT_TRUE(std::isnan(Maths::short_wave(omega, 1.0, g))) << omega;
    }
    for (const double depth : {0.0, -1.0, 5e-324, 1e-6, nan, inf, -inf}) {
      EXPECT_TRUE(std::isnan(Maths::short_wave(5.0, depth, g))) << depth;
    }
    EXPECT_TRUE(std::isnan(Maths::short_wave(5.0, 1.0, 0.0)));
    EXPECT_TRUE(std::isnan(Maths::short_wave(10.0, -10.0, -9.81)));
  });
}

TEST(ShortWaves, KnumsAddsTheLongWaves) {
  on_each_target([] {
    const std::vector<double> omegas = drawn(1e-3, 50.0, 101);
    std::vector<double> found(101);
    Maths::knums(omegas.data(), 0.6, g, omegas.size(), found.data());
    for (std::size_t i = 0; i < omegas.size(); ++i) {
      EXPECT_EQ(found[i], Maths::knum(omegas[i], 0.6, g));
    }
    const std::vector<double> depths = drawn(1e-4, 1e3, 101);
    Maths::knums(3.0, depths.data(), g, depths.size(), found.data());
    for (std::size_t i = 0; i < depths.size(); ++i) {
      EXPECT_EQ(found[i], Maths::knum(3.0, depths[i], g));
    }
  });
}

TEST(ShortWaves, KnumsFailsAsKnum) {
  const std::vector<double> omegas = {4.0, 0.0, nan};
  std::vector<double> found(3);
  const std::string first = thrown([&] { Maths::knum(0.0, 1.0, g); });
  ASSERT_NE(first, nothing_thrown);
  EXPECT_EQ(thrown([&] { Maths::knums(omegas.data(), 1.0, g, 3, found.data()); }), first);
  const std::string dry = thrown([&] { Maths::knum(4.0, 0.0, g); });
  const std::vector<double> depths = {1.0, 0.0, 2.0};
  EXPECT_EQ(thrown([&] { Maths::knums(4.0, depths.data(), g, 3, found.data()); }), dry);
}

}  // namespace
