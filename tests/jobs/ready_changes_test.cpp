// The changes that a job can name, through the library's modifiers.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <memory>
#include <string>
#include <vector>

#include "base/enumerations.h"
#include "facade/wave_modifiers.h"
#include "jobs/ready_sea.h"
#include "ready.h"
#include "sea/kolmogorov_smirnov.h"
#include "support/modifiers.h"

namespace {

using Testing::degree;
using Testing::Filled;
using Testing::pi;

constexpr double mean_degrees = 15.0;
constexpr int draws = 40000;

std::unique_ptr<Synthesis::Modifier> modifier_of(const Jobs::ReadyChange& change) {
  return Kelpbox::make_modifier(Base::make_enum("WaveMod", change.modifier), change.formula);
}

// Deviations in radians from the mean direction, of fronts at 0.5 Hz in a tank without limits.
std::vector<double> deviations(const std::string& name, Filled params, double limit = 179.9) {
  const Jobs::ReadyChange& change = *Jobs::find_ready_change(name);
  const auto modifier = modifier_of(change);
  for (const auto& [key, member] : change.fixed) {
    params.member(key.c_str(), member.c_str(), key == "function" ? "SpreadFunc" : "Bool");
  }
  params.with("angle", mean_degrees, "deg")
      .with("min_angle", mean_degrees - limit, "deg")
      .with("max_angle", mean_degrees + limit, "deg")
      .member("ran_gen", "FullRandom", "RanGen")
      .number("seed", 7);
  Testing::Sea sea;
  sea.at(5).assign(draws, {0.1, 0.0, 0.0});
  modifier->set(params);
  sea.modify(*modifier);
  std::vector<double> found;
  for (const Maths::HarmonicFront& front : sea.at(5)) {
    found.push_back(std::remainder(front.angle - mean_degrees * degree, 2 * pi));
  }
  return found;
}

// Mean direction 0 and first moment r1, each within four standard errors.
void expect_moment(const std::vector<double>& found, double r1) {
  std::complex<double> sum;
  double square = 0.0;
  for (const double d : found) {
    sum += std::polar(1.0, d);
    square += std::sin(d) * std::sin(d);
  }
  const double n = static_cast<double>(found.size());
  EXPECT_NEAR(sum.real() / n, r1, 4 * std::sqrt((1 - square / n - r1 * r1) / n) + 1e-4);
  EXPECT_NEAR(sum.imag() / n, 0.0, 4 * std::sqrt(square / n / n));
}

// The distribution of a law that is not normalised, between two angles.
template <typename Law>
void expect_law(const std::vector<double>& found, const Law& law, double reach) {
  constexpr int pieces = 4000;
  std::vector<double> sums{0.0};
  const double step = 2 * reach / pieces;
  for (int i = 0; i < pieces; ++i) sums.push_back(sums.back() + law(-reach + (i + 0.5) * step));
  const auto distribution = [&](double d) {
    const double place = std::fmin(std::fmax((d + reach) / step, 0.0), pieces - 1.0);
    const auto i = static_cast<std::size_t>(place);
    return (sums[i] + (place - std::floor(place)) * (sums[i + 1] - sums[i])) / sums.back();
  };
  EXPECT_LT(Testing::kolmogorov_smirnov(found, distribution), 1.95);
}

TEST(ReadyChanges, Cos2sHasTheDensityAndSpreadOfTheLiterature) {
  for (const double s : {1.0, 2.0, 5.0, 10.0, 25.0, 75.0}) {
    SCOPED_TRACE(s);
    const std::vector<double> found = deviations("cos2s", Filled().number("s", s));
    expect_moment(found, s / (s + 1));
    expect_law(
        found, [s](double d) { return std::pow(std::cos(d / 2), 2 * s); }, pi);
  }
}

TEST(ReadyChanges, CosnHasTheDensityAndSpreadOfThePowerOnAHalfPlane) {
  for (const double n : {1.0, 2.0, 4.0, 8.0, 30.0}) {
    SCOPED_TRACE(n);
    const std::vector<double> found = deviations("cosn", Filled().number("n", n));
    const double r1 =
        std::exp(2 * std::lgamma(n / 2 + 1) - std::lgamma(n / 2 + 0.5) - std::lgamma(n / 2 + 1.5));
    expect_moment(found, r1);
    expect_law(
        found, [n](double d) { return std::pow(std::cos(d), n); }, pi / 2);
  }
}

TEST(ReadyChanges, GodaHasItsGreatestPowerAtThePeakAndNoneBelowOneHalf) {
  const Jobs::ReadyChange& change = *Jobs::find_ready_change("goda");
  const auto modifier = modifier_of(change);
  Filled params;
  params.number("s_max", 25).with("tp", 1.6, "s").member("function", "Cos2S", "SpreadFunc");
  for (const char* angle : {"angle", "min_angle", "max_angle"}) {
    params.with(angle, std::string(angle) == "angle" ? 0 : angle[1] == 'i' ? -80 : 80, "deg");
  }
  params.member("ran_gen", "Default", "RanGen");
  modifier->set(params);
  const double fp = 1 / 1.6;
  for (const double f : {0.3, 0.5, 0.6, 0.624, 0.63, 0.8, 1.2, 2.0, 4.0}) {
    const double power = 25 * (f <= fp ? std::pow(f / fp, 5) : std::pow(f / fp, -2.5));
    EXPECT_NEAR(modifier->value(f), std::fmax(power, 0.5), 1e-9) << f;
  }
}

TEST(ReadyChanges, DirectionTurnsAllWaves) {
  const auto modifier = modifier_of(*Jobs::find_ready_change("direction"));
  Testing::Sea sea;
  sea.at(5) = {{0.1, 0.3, 0.2}};
  Testing::set(*modifier, Filled().with("angle", 20, "deg").member("set", "True", "Bool"));
  sea.modify(*modifier);
  EXPECT_NEAR(sea.at(5)[0].angle, 20 * degree, 1e-12);
  EXPECT_EQ(Jobs::find_ready_change("direction")->fixed,
            (std::vector<std::pair<std::string, std::string>>{{"set", "True"}}));
}

TEST(ReadyChanges, GainMultipliesAmplitudes) {
  const auto modifier = modifier_of(*Jobs::find_ready_change("gain"));
  Testing::Sea sea;
  sea.at(5) = {{0.1, 0.3, 0.2}};
  Testing::set(*modifier, Filled().number("factor", 1.5));
  sea.modify(*modifier);
  EXPECT_DOUBLE_EQ(sea.at(5)[0].amp, 0.15);
}

TEST(ReadyChanges, RandomPhasesAreEquallyLikelyAllAround) {
  const auto modifier = modifier_of(*Jobs::find_ready_change("random_phases"));
  Testing::Sea sea;
  sea.at(5).assign(draws, {0.1, 0.0, 0.0});
  Testing::set(*modifier, Filled().member("ran_gen", "FullRandom", "RanGen").number("seed", 7));
  sea.modify(*modifier);
  std::vector<double> phases;
  for (const Maths::HarmonicFront& front : sea.at(5)) phases.push_back(front.phase);
  const auto uniform = [](double phase) { return (phase + pi) / (2 * pi); };
  EXPECT_LT(Testing::kolmogorov_smirnov(phases, uniform), 1.95);
}

}  // namespace
