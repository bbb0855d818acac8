// A group whose phases are all 0 at the place and time of its specification has its crest there.
// The sum of the merged fronts at points of the tank checks every sign on the way.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "run/definition.h"
#include "support/test_site.h"
#include "support/test_surface.h"

namespace {

using Testing::at;
using Testing::Given;
using Testing::GivenFronts;
using Testing::group_factor;
using Testing::Site;
using Testing::SiteText;
using Testing::sloping_depth;
using Testing::sloping_site;
using Testing::surface;
using Testing::wave_number;

constexpr double two_pi = 2.0 * std::numbers::pi;

Given group(std::uint64_t from, std::uint64_t to) {
  Given fronts;
  for (std::uint64_t h = from; h <= to; ++h) {
    const double s = static_cast<double>(h);
    fronts.push_back({h, {0.001 * (1.0 + std::sin(s)), 0.6 * std::sin(0.7 * s), 0.0}});
  }
  return fronts;
}

double amplitudes(const Given& fronts) {
  double sum = 0.0;
  for (const auto& [slot, front] : fronts) sum += front.amp;
  return sum;
}

struct Tank {
  explicit Tank(const SiteText& text) : site(text), definition("run", site.context()) {
    Base::Params params = Testing::run_params(60.0);
    definition.set(params);
  }

  void add(GivenFronts& component, Synthesis::Specification& specification, double x, double y,
           double t) {
    specification.add_component(component);
    specification.set(at(x, y, t));
    definition.add_specification(specification);
  }

  double eta(double x, double y, double t) {
    return surface(site.context().tank_config(), definition.fronts(true), x, y, t);
  }

  Site site;
  Synthesis::Definition definition;
};

TEST(Focus, CrestIsAtThePlaceAndTimeOverAFlatBottom) {
  for (const char* geometry : {"NoSides", "BothSides", "PlusSide"}) {
    SiteText text;
    text.geometry = geometry;
    text.min_y = -3.0;  // the walls' reference is off the axis
    text.max_y = 8.0;
    Tank run(text);
    GivenFronts component(group(10, 100));
    Synthesis::Specification specification;
    run.add(component, specification, 12.5, 2.0, 33.0);
    run.definition.run_build();
    const double crest = amplitudes(component.fronts);
    EXPECT_NEAR(run.eta(12.5, 2.0, 33.0), crest, 1e-9 * crest) << geometry;
    // Plane waves over a flat bottom, written out.
    double plain = 0.0;
    for (const Synthesis::Front& front : run.definition.fronts(true)) {
      const double omega = two_pi * front.freq;
      const double k = wave_number(omega, 1.0);
      plain += front.amp * std::cos(omega * 33.0 - k * 12.5 * std::cos(front.angle) -
                                    k * 2.0 * std::sin(front.angle) + front.phase);
    }
    EXPECT_NEAR(plain, crest, 1e-9 * crest) << geometry;
    // Nowhere else nearby is the surface as high.
    EXPECT_LT(run.eta(13.5, 2.0, 33.0), 0.5 * crest);
    EXPECT_LT(run.eta(12.5, 2.0, 33.6), 0.5 * crest);
  }
}

TEST(Focus, CrestIsAtThePlaceAndTimeOverASlope) {
  Tank run(sloping_site());
  GivenFronts component(group(10, 100));
  Synthesis::Specification specification;
  run.add(component, specification, 20.0, -1.5, 41.0);
  run.definition.run_build();
  const double crest = amplitudes(component.fronts);
  EXPECT_NEAR(run.eta(20.0, -1.5, 41.0), crest, 1e-9 * crest);
  EXPECT_LT(run.eta(19.0, -1.5, 41.0), 0.5 * crest);
}

TEST(Focus, StepsOfTheProfileAreFineEnoughForTheSlope) {
  Tank run(sloping_site());
  GivenFronts component(group(10, 100));
  Synthesis::Specification specification;
  run.add(component, specification, 20.0, 0.0, 41.0);
  run.definition.run_build();
  const double crest = amplitudes(component.fronts);
  // Phases from an integral of the true depth in steps of 5 mm.
  const int steps = 4000;
  double sum = 0.0;
  for (const Synthesis::Front& front : run.definition.fronts(true)) {
    const double omega = two_pi * front.freq;
    const double k0 = wave_number(omega, 1.0);
    const double ky = k0 * std::sin(front.angle);
    double along = 0.0;
    for (int i = 0; i < steps; ++i) {
      const double x = (i + 0.5) * 20.0 / steps;
      const double k = wave_number(omega, sloping_depth(x));
      along += std::sqrt(k * k - ky * ky) * 20.0 / steps;
    }
    const double k1 = wave_number(omega, 0.7);
    const double speeds = (group_factor(k0, 1.0) / k0) / (group_factor(k1, 0.7) / k1);
    sum += front.amp * std::sqrt(speeds) * std::cos(omega * 41.0 - along + front.phase);
  }
  EXPECT_NEAR(sum, crest, 1e-4 * crest);
}

TEST(Focus, EachSpecificationHasItsOwnCrest) {
  Tank run(sloping_site());
  GivenFronts low(group(10, 50));
  GivenFronts high(group(51, 100));
  Synthesis::Specification first;
  Synthesis::Specification second;
  run.add(low, first, 8.0, 1.0, 20.0);
  run.add(high, second, 15.0, -2.0, 45.0);
  run.definition.run_build();
  std::vector<Synthesis::Front> below;
  std::vector<Synthesis::Front> above;
  for (const Synthesis::Front& front : run.definition.fronts(true)) {
    (front.freq < 50.5 / 60.0 ? below : above).push_back(front);
  }
  const Maths::TankConfig& tank = run.site.context().tank_config();
  EXPECT_NEAR(surface(tank, below, 8.0, 1.0, 20.0), amplitudes(low.fronts), 1e-10);
  EXPECT_NEAR(surface(tank, above, 15.0, -2.0, 45.0), amplitudes(high.fronts), 1e-10);
}

}  // namespace
