// The heights of the fronts and of the record are those of the requested density, for each kind of
// spectrum that the examples use.

#include <gtest/gtest.h>

#include <cctype>
#include <cmath>
#include <functional>
#include <numbers>
#include <string>
#include <vector>

#include "run/definition.h"
#include "sea/spectrum.h"
#include "support/sea_states.h"
#include "support/test_site.h"

namespace {

constexpr double pi = std::numbers::pi;
constexpr double repeat = 64.0;
constexpr Testing::SeaState sea_state{0.06, 0.6};
constexpr double f_low = 0.35;
constexpr double f_high = 1.4;

struct Sea {
  std::string name;
  std::string text;
  std::function<double(double, double)> energy;  // the integral of the density, in m2
  // The relative error of the height that the library's rule for a band may make.
  double tolerance;
};

std::vector<Sea> seas() {
  return {
      {"white", "0.35@Hz#0.0002@m2s#1.4@Hz",
       [](double from, double to) { return 0.0002 * (to - from); }, 1e-9},
      {"amplitude density", "0.35@Hz#0.02@ms#1.4@Hz",
       [](double from, double to) { return 0.02 * 0.02 / 2 / repeat * (to - from); }, 1e-9},
      {"Pierson-Moskowitz", Testing::pierson_moskowitz_text("0.35@Hz", "1.4@Hz"),
       [](double from, double to) { return sea_state.pierson_moskowitz(from, to); }, 5e-4},
      {"JONSWAP", Testing::jonswap_text("0.35@Hz", "1.4@Hz"),
       [](double from, double to) { return sea_state.jonswap(from, to); }, 5e-4},
  };
}

// The variance of a series without its mean.
double variance(const std::vector<double>& series) {
  double sum = 0.0;
  double squares = 0.0;
  for (double value : series) {
    sum += value;
    squares += value * value;
  }
  const double n = static_cast<double>(series.size());
  return squares / n - (sum / n) * (sum / n);
}

// The merged fronts of a run of the spectrum.
std::vector<Synthesis::Front> fronts_of(const std::string& text, const Testing::SiteText& tank) {
  Testing::Site site(tank);
  Synthesis::Spectrum spectrum("sea", text);
  Base::Params in = sea_state.params();
  spectrum.set(in);
  Synthesis::Specification specification;
  specification.add_component(spectrum);
  specification.set(Testing::at(0, 0, 0));
  Synthesis::Definition definition("run", site.context());
  definition.add_specification(specification);
  Base::Params run = Testing::run_params(repeat);
  definition.set(run);
  definition.run_build();
  return definition.fronts(true);
}

double energy(const std::vector<Synthesis::Front>& fronts) {
  double sum = 0.0;
  for (const Synthesis::Front& front : fronts) sum += front.amp * front.amp / 2;
  return sum;
}

class Heights : public testing::TestWithParam<Sea> {};

TEST_P(Heights, OfTheFrontsAreThoseOfTheGivenDensity) {
  const double m0 = energy(fronts_of(GetParam().text, {}));
  // The bands reach half a step beyond the harmonics nearest to the limits.
  const double first = std::floor(f_low * repeat + 0.5) - 0.5;
  const double last = std::floor(f_high * repeat + 0.5) + 0.5;
  const double asked = GetParam().energy(first / repeat, last / repeat);
  EXPECT_NEAR(4 * std::sqrt(m0), 4 * std::sqrt(asked), GetParam().tolerance * 4 * std::sqrt(asked));
}

TEST_P(Heights, OfTheRecordAreThoseOfTheFronts) {
  const std::vector<Synthesis::Front> fronts = fronts_of(GetParam().text, {});
  std::vector<double> record(1280, 0.0);
  for (std::size_t j = 0; j < record.size(); ++j) {
    const double t = static_cast<double>(j) * repeat / static_cast<double>(record.size());
    for (const Synthesis::Front& front : fronts) {
      record[j] += front.amp * std::cos(2 * pi * front.freq * t + front.phase);
    }
  }
  EXPECT_NEAR(variance(record), energy(fronts), 1e-9 * energy(fronts));
}

INSTANTIATE_TEST_SUITE_P(Seas, Heights, testing::ValuesIn(seas()), [](const auto& sea) {
  std::string name = sea.param.name;
  std::erase_if(name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); });
  return name;
});

TEST(HeightsOfASea, AreTheParameterWhenTheTankMakesTheWholeSpectrum) {
  Testing::SiteText tank;
  tank.max_freq = 15.0;
  tank.base_rate = 40.0;
  const auto height = [&](const std::string& text) {
    return 4 * std::sqrt(energy(fronts_of(text, tank)));
  };
  const double hs = sea_state.hs;
  EXPECT_NEAR(height(Testing::pierson_moskowitz_text("0.2@Hz", "15@Hz")), hs, 1e-3 * hs);
  // Goda's coefficient is good to two per cent.
  EXPECT_NEAR(height(Testing::jonswap_text("0.2@Hz", "15@Hz")), hs, 0.02 * hs);
}

}  // namespace
