// Wave trains recovered from records that were synthesised from them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <random>
#include <utility>
#include <vector>

#include "support/thrown.h"
#include "support/wave_number.h"
#include "trains.h"

namespace {

using Testing::exact_wave_number;
using Testing::nothing_thrown;

constexpr double pi = std::numbers::pi;

// Uneven rows of four to six probes, some behind the paddles.
const std::vector<std::vector<double>> layouts = {
    {3.0, 3.25, 3.62, 4.1},
    {-1.3, -1.0, -0.52, 0.1},
    {0.0, 0.31, 0.82, 1.1, 1.55},
    {-4.0, -3.7, -3.1, -2.8, -2.45, -1.9},
};

TEST(TrainRecovery, FindsAllTrainsForEveryLayoutAndDepth) {
  for (const double depth : {0.4, 0.7, 1.0, 2.0}) {
    for (const std::vector<double>& layout : layouts) {
      const Sea sea;
      const auto found = separate(measure(sea.trains(depth), row(layout)), flat_tank(depth));
      EXPECT_EQ(found.lines, marks('I'));
      expect_sea(found, sea, 1e-9);
    }
  }
}

TEST(TrainRecovery, FindsAllTrainsForEveryFrequencyAndRate) {
  for (const std::size_t bin : {12u, 16u, 21u}) {
    for (const double rate : {20.0, 23.0}) {
      for (const std::size_t samples : {400u, 401u}) {
        const Reading reading{samples, rate};
        Sea sea;
        sea.bin = bin;
        const auto found =
            separate(measure(sea.trains(0.7, reading), row(layouts[0]), reading), flat_tank(0.7));
        expect_sea(found, sea, 1e-9);
      }
    }
  }
}

TEST(TrainRecovery, FindsTheFundamentalFromThreeProbes) {
  const Sea sea;
  for (const std::vector<double>& layout :
       {std::vector<double>{3.0, 3.25, 3.62}, {-0.4, -0.1, 0.3}, {-7.0, -6.0, -5.85}}) {
    const auto found = separate(measure(sea.trains(0.7), row(layout)), flat_tank(0.7));
    EXPECT_EQ(found.lines, marks('I'));
    const Results results = found.results();
    EXPECT_NEAR(results.forward_free, std::abs(sea.forward), 1e-11);
    EXPECT_NEAR(results.backward_free, std::abs(sea.backward), 1e-11);
    EXPECT_EQ(results.forward_bound2, 0.0);
    EXPECT_EQ(results.backward_bound2, 0.0);
    EXPECT_EQ(results.forward_free2, 0.0);
    EXPECT_EQ(results.backward_free2, 0.0);
  }
}

TEST(TrainRecovery, FindsTheFundamentalFromThreeIndependentProbesOfFour) {
  // The second and the third are 1 mm apart.
  const Sea sea;
  const auto found =
      separate(measure(sea.trains(0.7), row({3.0, 3.25, 3.251, 3.62})), flat_tank(0.7));
  EXPECT_EQ(found.lines, marks('I'));
  const Results results = found.results();
  EXPECT_NEAR(results.forward_free, std::abs(sea.forward), 1e-11);
  EXPECT_NEAR(results.backward_free, std::abs(sea.backward), 1e-11);
  EXPECT_EQ(results.forward_bound2, 0.0);
  EXPECT_EQ(results.backward_free2, 0.0);
}

TEST(TrainRecovery, TheOrderOfProbesDoesNotMatter) {
  const Sea sea;
  std::vector<double> layout = layouts[0];
  std::sort(layout.begin(), layout.end());
  do {
    expect_sea(separate(measure(sea.trains(0.7), row(layout)), flat_tank(0.7)), sea, 1e-9);
  } while (std::next_permutation(layout.begin(), layout.end()));
}

TEST(TrainRecovery, TrainsTravelAlongTheAngle) {
  const Sea sea;
  for (const double angle : {0.3, -0.8, 0.5 * pi, 2.5, -pi}) {
    // A row along the direction, beside the origin.
    std::vector<Probe> along;
    for (const double s : layouts[0]) {
      along.push_back({s * std::cos(angle) - 2.0 * std::sin(angle),
                       s * std::sin(angle) + 2.0 * std::cos(angle)});
    }
    expect_sea(
        separate(measure(sea.trains(0.7), along, {}, angle), flat_tank(0.7), settings(angle)), sea,
        1e-9);
  }
  const std::vector<Probe> scattered = {{3.0, 1.0}, {3.2, 1.4}, {3.9, 1.1}, {4.1, 2.0}};
  expect_sea(separate(measure(sea.trains(0.7), scattered, {}, 0.4), flat_tank(0.7), settings(0.4)),
             sea, 1e-9);
}

TEST(TrainRecovery, TheOppositeAngleSwapsForwardAndBackward) {
  Sea turned;
  const auto found =
      separate(measure(turned.trains(0.7), row(layouts[0])), flat_tank(0.7), settings(pi));
  std::swap(turned.forward, turned.backward);
  std::swap(turned.forward_bound, turned.backward_bound);
  std::swap(turned.forward_free, turned.backward_free);
  expect_sea(found, turned, 1e-9);
}

TEST(TrainRecovery, AnglesAndPositionsMayHaveAnyUnits) {
  // The table of units gives a degree six digits.
  const Sea sea;
  auto series = measure(sea.trains(0.7), row(layouts[0]), {}, 30.0 * 0.0174533);
  const char* const units[] = {"cm", "ft", "mm", "in"};
  const double metres[] = {0.01, 0.3048, 0.001, 0.0254};
  for (std::size_t n = 0; n < series.size(); ++n) {
    series[n].params = at_rate(20.0);
    series[n].params.insert("x", layouts[0][n] / metres[n], units[n]);
    series[n].params.insert("y", 0.0, units[3 - n]);
  }
  Base::Params params;
  params.insert("freq", 5.0, "rad/s");
  params.insert("angle", 30.0, "deg");
  expect_sea(separate(series, flat_tank(0.7), params), sea, 1e-9);
}

TEST(TrainRecovery, AMeanIsIgnored) {
  const Sea sea;
  auto series = measure(sea.trains(0.7), row(layouts[0]));
  for (auto& one : series) {
    for (double& sample : one.samples) sample += 5.0;
  }
  expect_sea(separate(series, flat_tank(0.7)), sea, 1e-9);
}

TEST(TrainRecovery, UsesTheDepthAtTheMeanX) {
  // A slope from 0.4 m at x = 0 to 1.4 m at x = 10. The mean of the probes, 3.4925, is not the
  // middle.
  Maths::TankConfig slope = flat_tank(0.4);
  slope.profile = {{0.4, -50.0}, {0.4, 0.0}, {1.4, 10.0}, {1.4, 50.0}};
  const Sea sea;
  const double mean = (3.0 + 3.25 + 3.62 + 4.1) / 4.0;
  const auto series = measure(sea.trains(0.4 + 0.1 * mean), row(layouts[0]));
  expect_sea(separate(series, slope), sea, 1e-9);

  // At a mean of exactly 0 the first depth of the profile is used.
  slope.profile.front().depth = 0.9;
  expect_sea(separate(measure(sea.trains(0.9), row({-0.75, -0.25, 0.125, 0.875})), slope), sea,
             1e-9);
}

TEST(TrainRecovery, UsesTheGravityOfTheTank) {
  Maths::TankConfig moon = flat_tank(0.7);
  moon.g = 1.62;
  Sea sea;
  sea.bin = 6;
  const Reading reading;
  const auto series = measure(
      sea.trains([&](std::size_t h) { return Maths::knum(reading.omega(h * 6), 0.7, 1.62); }),
      row(layouts[0]));
  expect_sea(separate(series, moon), sea, 1e-9);
}

// A bound of the error of the results when the trains have other wave numbers than those assumed:
// the estimator times the change of the values of the trains, |s| |dk| |A| each.
double bound_of(const std::vector<double>& layout, const std::vector<double>& assumed,
                const std::vector<double>& exact, const std::vector<Complex>& amplitudes) {
  double change = 0.0;
  for (std::size_t n = 0; n < assumed.size(); ++n) {
    change += std::abs(assumed[n] - exact[n]) * std::abs(amplitudes[n]);
  }
  double reach = 0.0;
  for (const double s : layout) reach = std::max(reach, std::abs(s));
  double norm = 0.0;
  for (const auto& estimate : estimator(trains_at(layout, assumed))) {
    double sum = 0.0;
    for (const Complex& element : estimate) sum += std::abs(element);
    norm = std::max(norm, sum);
  }
  return norm * reach * change;
}

TEST(TrainRecovery, TrainsOfExactDispersionAreFoundWithinTheErrorOfTheWaveNumbers) {
  const double depth = 0.7;
  for (const std::vector<double>& layout : layouts) {
    const Sea sea;
    const Reading reading;
    const auto exact = [&](std::size_t h) {
      return exact_wave_number(reading.omega(h * sea.bin), depth, 9.81);
    };
    const auto assumed = [&](std::size_t h) {
      return Maths::knum(reading.omega(h * sea.bin), depth, 9.81);
    };
    const double first = bound_of(layout, {assumed(1), -assumed(1)}, {exact(1), -exact(1)},
                                  {sea.forward, sea.backward});
    const double second =
        bound_of(layout, {2 * assumed(1), -2 * assumed(1), assumed(2), -assumed(2)},
                 {2 * exact(1), -2 * exact(1), exact(2), -exact(2)},
                 {sea.forward_bound, sea.backward_bound, sea.forward_free, sea.backward_free});
    // A bound that is not small compared with the smallest train would prove nothing.
    ASSERT_LT(first, 0.01 * std::abs(sea.backward));
    ASSERT_LT(second, 0.3 * std::abs(sea.backward_free));
    const Results found =
        separate(measure(sea.trains(exact), row(layout)), flat_tank(depth)).results();
    EXPECT_NEAR(found.forward_free, std::abs(sea.forward), first + 1e-12);
    EXPECT_NEAR(found.backward_free, std::abs(sea.backward), first + 1e-12);
    EXPECT_NEAR(found.forward_bound2, std::abs(sea.forward_bound), second + 1e-12);
    EXPECT_NEAR(found.backward_bound2, std::abs(sea.backward_bound), second + 1e-12);
    EXPECT_NEAR(found.forward_free2, std::abs(sea.forward_free), second + 1e-12);
    EXPECT_NEAR(found.backward_free2, std::abs(sea.backward_free), second + 1e-12);
  }
}

TEST(TrainRecovery, NoiseHasTheVarianceOfTheEstimator) {
  // White noise of deviation d in n samples gives the parts of an element the variance 2 d^2 / n.
  // Only the part of the error along an amplitude changes its magnitude.
  const Sea sea;
  const Reading reading;
  const double depth = 0.7;
  const std::vector<double>& layout = layouts[2];
  const double k = Maths::knum(reading.omega(sea.bin), depth, 9.81);
  const Rows estimates = estimator(trains_at(layout, {k, -k}));
  const auto clean = measure(sea.trains(depth), row(layout));
  constexpr int runs = 100;
  for (const double deviation : {1e-5, 2e-4}) {
    std::mt19937 generator(11);
    const auto normal_draw = [&] {
      const double size = std::sqrt(-2.0 * std::log((generator() + 0.5) / 4294967296.0));
      return deviation * size * std::cos(2.0 * pi * generator() / 4294967296.0);
    };
    double forward = 0.0;
    double backward = 0.0;
    for (int run = 0; run < runs; ++run) {
      auto series = clean;
      for (auto& one : series) {
        for (double& sample : one.samples) sample += normal_draw();
      }
      const Results found = separate(series, flat_tank(depth)).results();
      forward += std::pow(found.forward_free - std::abs(sea.forward), 2);
      backward += std::pow(found.backward_free - std::abs(sea.backward), 2);
    }
    const auto expected = [&](std::size_t train) {
      double sum = 0.0;
      for (const Complex& element : estimates[train]) sum += std::norm(element);
      return sum * 2.0 * deviation * deviation / static_cast<double>(reading.samples);
    };
    // The mean of squares of `runs` normal errors has a relative deviation of sqrt(2 / runs).
    const double spread = 4.0 * std::sqrt(2.0 / runs);
    EXPECT_NEAR(forward / runs / expected(0), 1.0, spread) << deviation;
    EXPECT_NEAR(backward / runs / expected(1), 1.0, spread) << deviation;
  }
}

TEST(TrainRecovery, ProbesASixthOfAWaveApartGiveNineSixteenthsOfTheTrains) {
  // Their matrix [[0, 3/4], [3/4, 0]] has no first pivot and is used in place of its inverse, which
  // gives 9/16 of each train.
  const Sea sea;
  const Reading reading;
  const double k = Maths::knum(reading.omega(sea.bin), 0.7, 9.81);
  const std::vector<double> layout = {0.0, pi / (3.0 * k), 2.0 * pi / (3.0 * k)};
  const auto found = separate(measure(sea.trains(0.7), row(layout)), flat_tank(0.7));
  EXPECT_EQ(found.failure, nothing_thrown);
  EXPECT_EQ(found.lines, marks('I'));
  EXPECT_NEAR(found.results().forward_free, 9.0 / 16.0 * std::abs(sea.forward), 1e-12);
  EXPECT_NEAR(found.results().backward_free, 9.0 / 16.0 * std::abs(sea.backward), 1e-12);
}

}  // namespace
