// Seas at a point, against the requested density and against linear theory: exact dispersion,
// Snell's law, energy flux.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "point/two_d.h"
#include "sea/angle_spread.h"
#include "sea/phase_random.h"
#include "sea/spectrum.h"
#include "support/integral.h"
#include "support/sea_states.h"
#include "support/test_run.h"
#include "support/wave_number.h"

namespace {

using Synthesis::TwoD;
using Testing::at;
using Testing::BuiltRun;
using Testing::exact_wave_number;
using Testing::Given;
using Testing::GivenFronts;
using Testing::point_params;
using Testing::SeaState;
using Testing::simpson;
using Testing::Site;
using Testing::sloping_depth;
using Testing::sloping_site;

constexpr double pi = std::numbers::pi;

double group_velocity(double omega, double depth) {
  const double k = exact_wave_number(omega, depth);
  return omega / k * 0.5 * (1 + 2 * k * depth / std::sinh(2 * k * depth));
}

TEST(PointOnASlope, TheTimeHistoryIsThatOfLinearTheory) {
  Given given;
  double peak = 0.0;
  for (std::uint64_t h = 4; h <= 14; ++h) {
    const double s = static_cast<double>(h);
    given.push_back({h, {0.01 * (1.2 + std::sin(s)), 0.8 * std::sin(2.1 * s), 3 * std::cos(s)}});
    peak += given.back().second.amp;
  }
  const double x = 24.0;
  const double y = -4.0;
  const double rate = 8.0;
  BuiltRun run(sloping_site(), given);
  Base::Params params = point_params(rate, x, y);
  run.definition.twod_build(params);

  std::vector<double> expected(80);
  double strongest = 0.0;
  for (const auto& [h, front] : given) {
    const double omega = 2 * pi * static_cast<double>(h) / 10;
    const double across = exact_wave_number(omega, 1.0) * std::sin(front.angle);
    const auto along = [&, angle = front.angle](double place) {
      const double k = exact_wave_number(omega, sloping_depth(place));
      EXPECT_GT(k, std::abs(across)) << angle;
      return std::sqrt(k * k - across * across);
    };
    const double lag = along(2.5) * 5 + simpson(along, 5, x, 200) + across * y;
    const double shoaling =
        std::sqrt(group_velocity(omega, 1.0) / group_velocity(omega, sloping_depth(x)));
    strongest = std::max(strongest, std::abs(shoaling - 1));
    for (std::size_t j = 0; j < expected.size(); ++j) {
      expected[j] += shoaling * front.amp *
                     std::cos(omega * static_cast<double>(j) / rate - lag + front.phase);
    }
  }
  EXPECT_GT(strongest, 0.02);
  const std::vector<double>& eta = run.definition.twod_data(TwoD::time);
  ASSERT_EQ(eta.size(), expected.size());
  // The library's explicit wave number is good to a few parts in 1e5, over a lag of 20 to 90 rad.
  for (std::size_t j = 0; j < eta.size(); ++j) EXPECT_NEAR(eta[j], expected[j], 1e-3 * peak) << j;
}

TEST(PointOnASlope, AGroupHasItsCrestAtTheGivenPlaceAndTime) {
  Site site(sloping_site());
  GivenFronts component;
  double crest = 0.0;
  for (std::uint64_t h = 5; h <= 50; ++h) {
    const double s = static_cast<double>(h);
    component.fronts.push_back({h, {0.001 * (1.0 + std::sin(s)), 0.6 * std::sin(0.7 * s), 0.0}});
    crest += component.fronts.back().second.amp;
  }
  Synthesis::Specification specification;
  specification.add_component(component);
  specification.set(at(20.0, 2.0, 12.5));
  Synthesis::Definition definition("group", site.context());
  definition.add_specification(specification);
  Testing::set(definition, Testing::run_params(30.0));
  definition.run_build();
  Base::Params params = point_params(40.0, 20.0, 2.0);
  definition.twod_build(params);

  const std::vector<double>& eta = definition.twod_data(TwoD::time);
  EXPECT_NEAR(eta.at(500), crest, 1e-9 * crest);  // 12.5 s
  EXPECT_EQ(std::max_element(eta.begin(), eta.end()) - eta.begin(), 500);
  // Its amplitudes are the given ones.
  for (const auto& [h, front] : component.fronts) {
    EXPECT_NEAR(definition.twod_data(TwoD::spectrum).at(h), front.amp, 1e-15);
  }
}

// A JONSWAP sea in a repeat time of 64 s.
constexpr double repeat = 64.0;
constexpr SeaState sea_state{0.06, 0.6};

struct JonswapRun {
  JonswapRun() {
    Base::Params in = sea_state.params();
    sea.set(in);
    Base::Params generator;
    generator.insert("ran_gen", "Default", "RanGen");
    phase.set(generator);
    specification.add_component(sea);
    specification.add_modifier(phase);
    specification.set(at(0, 0, 0));
    definition.add_specification(specification);
    Testing::set(definition, Testing::run_params(repeat));
    definition.run_build();
  }

  Site site;
  Synthesis::Spectrum sea{"sea", Testing::jonswap_text("0.35@Hz", "1.4@Hz")};
  Synthesis::PhaseRandomModifier phase{""};
  Synthesis::Specification specification;
  Synthesis::Definition definition{"sea", site.context()};
};

TEST(SeaAtAPoint, TheVarianceIsTheGivenDensityBandByBand) {
  JonswapRun run;
  Synthesis::Definition& definition = run.definition;
  Base::Params params = point_params(16.0, 17.0, -3.0, pi / 2);
  definition.twod_build(params);

  const std::vector<double>& variance = definition.twod_data(TwoD::variance);
  const std::vector<double>& spectrum = definition.twod_data(TwoD::spectrum);
  ASSERT_EQ(variance.size(), 513u);
  const std::size_t first = 22;  // 0.35 Hz
  const std::size_t last = 90;   // 1.4 Hz
  for (std::size_t h = 0; h < variance.size(); ++h) {
    const double from = (static_cast<double>(h) - 0.5) / repeat;
    const double to = (static_cast<double>(h) + 0.5) / repeat;
    if (h < first || h > last) {
      EXPECT_EQ(variance[h], 0.0) << h;
      continue;
    }
    const double density = sea_state.jonswap(from, to) * repeat;
    // A component's rule for a band is coarse where the density rises from 0.
    EXPECT_NEAR(variance[h], density, 2e-3 * density + 5e-5 * sea_state.jonswap(sea_state.fp)) << h;
    EXPECT_NEAR(spectrum[h], std::sqrt(2 * variance[h] / repeat), 1e-15) << h;
  }
  EXPECT_NEAR(definition.twod_data(TwoD::direction)[0], 1.0, 1e-12);
}

TEST(SeaAtAPoint, TheStatisticsAreThoseOfTheGivenDensity) {
  JonswapRun run;
  Base::Params params = point_params(16.0, 17.0, -3.0);
  run.definition.twod_stats(params);
  // From half a band below the lowest harmonic to half a band above the highest.
  const double from = 21.5 / repeat;
  const double to = 90.5 / repeat;
  const auto moment = [](double f) { return f * sea_state.jonswap(f); };
  const double fp = sea_state.fp;
  const double hs = sea_state.hs;
  const double m0 = sea_state.jonswap(from, to);
  const double m1 = simpson(moment, from, fp, 2000) + simpson(moment, fp, to, 2000);
  EXPECT_NEAR(params.get("Hs", "m"), 4 * std::sqrt(m0), 1e-3 * hs);
  EXPECT_NEAR(params.get("Ts", "s"), m0 / m1, 1e-3 * m0 / m1);
  EXPECT_NEAR(params.get("Var", ""), std::pow(m0, 0.25), 1e-3 * std::pow(m0, 0.25));
  // A third of Rayleigh's heights are above this. With about 45 waves the scatter is large.
  EXPECT_NEAR(params.get("sig_h", "m"), hs * std::sqrt(std::log(3.0) / 2), 0.15 * hs);
  EXPECT_GT(params.get("max_amp", "m"), params.get("sig_h", "m"));
}

// 801 harmonics of one amplitude, each with a direction drawn from cos^2 about 20 degrees.
TEST(SeaAtAPoint, TheSectorsShowTheGivenSpread) {
  const double mean = pi / 9;
  Site site;
  GivenFronts waves;
  for (std::uint64_t h = 100; h <= 900; ++h) waves.fronts.push_back({h, {0.002, 0.0, 0.0}});
  Synthesis::AngleSpreadModifier spread("2");
  Base::Params in;
  in.insert("function", "CosS", "SpreadFunc");
  in.insert("ran_gen", "Default", "RanGen");
  in.insert("angle", mean, "rad");
  in.insert("min_angle", mean - 1.5, "rad");
  in.insert("max_angle", mean + 1.5, "rad");
  spread.set(in);
  Synthesis::Specification specification;
  specification.add_component(waves);
  specification.add_modifier(spread);
  specification.set(at(0, 0, 0));
  Synthesis::Definition definition("sea", site.context());
  definition.add_specification(specification);
  Testing::set(definition, Testing::run_params(500.0));
  definition.run_build();
  Base::Params params = point_params(8.0, 10.0, 2.0, mean);
  definition.twod_build(params);

  const std::vector<double>& shares = definition.twod_data(TwoD::direction);
  ASSERT_EQ(shares.size(), 18u);
  const auto square = [&](double angle) { return std::pow(std::cos(angle - mean), 2); };
  const double whole = simpson(square, mean - 1.5, mean + 1.5, 200);
  double sum = 0.0;
  for (int b = -8; b <= 9; ++b) {
    const double from = std::max((b - 0.5) * mean, mean - 1.5);
    const double to = std::min((b + 0.5) * mean, mean + 1.5);
    const double share = from < to ? simpson(square, from, to, 100) / whole : 0.0;
    const double deviation = std::sqrt(share * (1 - share) / 801);
    const double found = shares[static_cast<std::size_t>((b + 18) % 18)];
    EXPECT_NEAR(found, share, 3 * deviation + 1e-12) << b;
    sum += found;
  }
  EXPECT_NEAR(sum, 1.0, 1e-12);
}

}  // namespace
