// The directions of many fronts against the law they are drawn from.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "kolmogorov_smirnov.h"
#include "sea/angle_spread.h"
#include "support/draws.h"
#include "support/modifiers.h"

namespace {

using Testing::degree;
using Testing::Filled;
using Testing::kolmogorov_smirnov;
using Testing::pi;
using Testing::Sea;
using Testing::set;

// The cosine to a power: between whole powers, the parabola through those of equal parity, and
// below 2 the line through the first and the second.
double cosine_power(double p, double angle) {
  const double c = std::cos(angle);
  if (p == std::floor(p)) return std::pow(c, p);
  if (p < 2) return c + (p - 1) * (c * c - c);
  const double n = std::floor(p + 0.5);
  const double t = (p - n) / 2;
  return std::pow(c, n - 2) * t * (t - 1) / 2 + std::pow(c, n) * (1 - t * t) +
         std::pow(c, n + 2) * t * (t + 1) / 2;
}

// The distribution of that density between two angles, summed over narrow strips.
class Law {
 public:
  template <typename Density>
  Law(double lo, double hi, Density density) : lo_(lo), width_((hi - lo) / strips) {
    for (int i = 0; i < strips; ++i) {
      sums_.push_back(sums_.back() + density(lo + (i + 0.5) * width_));
    }
  }
  double operator()(double angle) const {
    const double place = std::clamp((angle - lo_) / width_, 0.0, strips - 1e-6);
    const auto i = static_cast<std::size_t>(place);
    const double part = place - std::floor(place);
    return ((1 - part) * sums_[i] + part * sums_[i + 1]) / sums_.back();
  }

 private:
  static constexpr int strips = 20000;
  double lo_;
  double width_;
  std::vector<double> sums_ = {0.0};
};

// Deviations in degrees from a mean of 25 degrees, which the wrap does not cut.
struct Range {
  double lo;
  double hi;
};

// Twenty thousand directions, drawn at 0.4 Hz.
std::vector<double> deviations(const std::string& text, const char* function, Range range) {
  Sea sea;
  sea.at(4).assign(20000, {0.1, 0.0, 0.0});
  Synthesis::AngleSpreadModifier modifier(text);
  set(modifier, Filled()
                    .member("function", function, "SpreadFunc")
                    .with("angle", 25, "deg")
                    .with("min_angle", 25 + range.lo, "deg")
                    .with("max_angle", 25 + range.hi, "deg")
                    .member("ran_gen", "Default", "RanGen"));
  sea.modify(modifier);
  std::vector<double> found;
  for (const Maths::HarmonicFront& front : sea.at(4)) found.push_back(front.angle - 25 * degree);
  return found;
}

// Expects the deviations to follow `law` and not `other`. The share of the law below each deviation
// must be the number that was drawn for it.
void expect_law(const std::vector<double>& found, const Law& law, const Law& other, double power) {
  EXPECT_LT(kolmogorov_smirnov(found, law), 1.95) << power;
  EXPECT_GT(kolmogorov_smirnov(found, other), 3.0) << power;
  Testing::Draws draws(1);
  double worst = 0.0;
  for (const double d : found) worst = std::max(worst, std::abs(law(d) - draws.unit()));
  EXPECT_LT(worst, 1e-7) << power;
}

// A power far enough off to tell the laws apart. Below 1 the law changes little with the power.
double other_power(double power) { return power < 1 ? power + 1 : 1.5 * power; }

void expect_cos_s(double power, Range range) {
  const auto law = [&](double p) {
    return Law(range.lo * degree, range.hi * degree, [p](double d) { return cosine_power(p, d); });
  };
  expect_law(deviations(std::to_string(power), "CosS", range), law(power), law(other_power(power)),
             power);
}

void expect_cos_2s(double s, Range range) {
  const auto law = [&](double p) {
    return Law(range.lo * degree, range.hi * degree,
               [p](double d) { return cosine_power(2 * p, d / 2); });
  };
  expect_law(deviations(std::to_string(s), "Cos2S", range), law(s), law(other_power(s)), s);
}

TEST(SpreadLaw, CosSFollowsWholePowers) {
  for (const double power : {1.0, 2.0, 3.0, 6.0, 15.0, 40.0}) expect_cos_s(power, {-89.9, 89.9});
}

TEST(SpreadLaw, CosSFollowsPowersBetween) {
  for (const double power : {0.25, 1.5, 2.4, 3.7, 7.5, 20.25}) expect_cos_s(power, {-89.9, 89.9});
}

TEST(SpreadLaw, CosSFollowsLargePowers) {
  expect_cos_s(3000.5, {-10.0, 10.0});
  expect_cos_s(400000.0, {-0.1, 0.5});
}

TEST(SpreadLaw, CosSFollowsACutRange) {
  for (const double power : {2.0, 4.6, 10.0}) expect_cos_s(power, {-70.0, 30.0});
}

TEST(SpreadLaw, Cos2SFollowsWholePowers) {
  for (const double s : {1.0, 2.0, 5.0, 10.0, 25.0, 75.0}) expect_cos_2s(s, {-150.0, 150.0});
}

TEST(SpreadLaw, Cos2SFollowsPowersBetween) {
  for (const double s : {0.25, 0.5, 0.8, 1.3, 2.75, 6.4}) expect_cos_2s(s, {-150.0, 150.0});
}

TEST(SpreadLaw, Cos2SFollowsACutRange) {
  for (const double s : {1.0, 3.3, 12.0}) expect_cos_2s(s, {-40.0, 120.0});
}

TEST(SpreadLaw, ThePowerIsTakenAtTheFrequency) {
  const Range range{-89.9, 89.9};
  const Law law(range.lo * degree, range.hi * degree, [](double d) { return cosine_power(8, d); });
  EXPECT_LT(kolmogorov_smirnov(deviations("20*$[Hz]", "CosS", range), law), 1.95);
  EXPECT_LT(kolmogorov_smirnov(deviations("3#0.39@Hz#8#0.4@Hz#20#1@Hz#1", "CosS", range), law),
            1.95);
}

// The mean of cos(d) under cos^2s(d/2) over the whole circle is s / (s + 1), see Longuet-Higgins,
// Cartwright and Smith (1963).
TEST(SpreadLaw, TheFirstMomentOfCos2SIsThatOfTheLiterature) {
  for (const double s : {1.0, 2.0, 5.0, 15.0}) {
    double mean = 0.0;
    double mean_square = 0.0;
    const std::vector<double> found = deviations(std::to_string(s), "Cos2S", {-150.0, 150.0});
    for (const double d : found) {
      mean += std::cos(d);
      mean_square += std::cos(d) * std::cos(d);
    }
    const double n = static_cast<double>(found.size());
    mean /= n;
    const double deviation = std::sqrt((mean_square / n - mean * mean) / n);
    // Nothing beyond 150 degrees is drawn, where from s = 2 on there is hardly any energy.
    const double cut = s < 2 ? 0.01 : 0.001;
    EXPECT_NEAR(mean, s / (s + 1), 3.3 * deviation + cut) << s;
  }
}

}  // namespace
