// The height that was asked for, the fronts and the record agree, for each kind of spectrum that
// the examples and the other tests use.

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "run/definition.h"
#include "sea/spectrum.h"
#include "support/test_site.h"

namespace {

using Density = std::function<double(double)>;

constexpr double pi = 3.14159265358979323846;
constexpr double repeat = 64.0;
constexpr double hs = 0.06;
constexpr double fp = 0.6;
constexpr double gamma_peak = 3.3;
constexpr double f_low = 0.35;
constexpr double f_high = 1.4;

struct Sea {
  std::string name;
  std::string text;
  Density density;  // m2s
  // Of the integral of the density that the library's rule for a band may miss.
  double tolerance;
};

double pierson_moskowitz(double f) {
  return 5.0 / 16 * hs * hs * std::pow(fp, 4) / std::pow(f, 5) *
         std::exp(-1.25 * std::pow(fp / f, 4));
}

// Goda (1988), with the coefficient that keeps the significant height.
double jonswap(double f) {
  const double alpha = 0.0624 / (0.230 + 0.0336 * gamma_peak - 0.185 / (1.9 + gamma_peak));
  const double r = (f / fp - 1) / (f < fp ? 0.07 : 0.09);
  return alpha * hs * hs * std::pow(fp, 4) / std::pow(f, 5) *
         std::exp(-1.25 * std::pow(fp / f, 4)) * std::pow(gamma_peak, std::exp(-r * r / 2));
}

std::vector<Sea> seas() {
  const std::string common = "hs[m]^2*fp[Hz]^4/$[Hz]^5*exp(-1.25*(fp[Hz]/$[Hz])^4)";
  const auto jonswap_side = [&](const std::string& width) {
    return "0.0624/(0.230+0.0336*peak-0.185/(1.9+peak))*" + common +
           "*peak^exp(-square(($[Hz]/fp[Hz]-1)/" + width + ")/2)@m2s";
  };
  return {
      {"white", "0.35@Hz#0.0002@m2s#1.4@Hz", [](double) { return 0.0002; }, 1e-9},
      {"amplitude density", "0.35@Hz#0.02@ms#1.4@Hz",
       [](double) { return 0.02 * 0.02 / 2 / repeat; }, 1e-9},
      {"Pierson-Moskowitz", "0.35@Hz#5/16*" + common + "@m2s#1.4@Hz", pierson_moskowitz, 5e-4},
      {"JONSWAP",
       "0.35@Hz#" + jonswap_side("0.07") + "#fp[Hz]@Hz#" + jonswap_side("0.09") + "#1.4@Hz",
       jonswap, 5e-4},
  };
}

double integral(const Density& density, double from, double to) {
  const int steps = 20000;
  const double step = (to - from) / steps;
  double sum = density(from) + density(to);
  for (int i = 1; i < steps; ++i) sum += density(from + i * step) * (i % 2 == 1 ? 4 : 2);
  return sum * step / 3;
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

class Heights : public testing::TestWithParam<Sea> {
 protected:
  // Builds a run of the sea, and returns its merged fronts.
  std::vector<Synthesis::Front> build() {
    Synthesis::Spectrum spectrum("sea", GetParam().text);
    Base::Params in;
    in.insert("hs", hs, "m");
    in.insert("fp", fp, "Hz");
    in.insert("peak", gamma_peak, "");
    spectrum.set(in);
    Synthesis::Specification specification;
    specification.add_component(spectrum);
    Base::Params place = Testing::at(0, 0, 0);
    specification.set(place);
    Synthesis::Definition definition("run", site_.context());
    definition.add_specification(specification);
    Base::Params run = Testing::run_params(repeat);
    definition.set(run);
    definition.run_build();
    return definition.fronts(true);
  }

 private:
  Testing::Site site_;
};

TEST_P(Heights, OfTheFrontsAreTheHeightsAskedFor) {
  double m0 = 0.0;
  for (const Synthesis::Front& front : build()) m0 += front.amp * front.amp / 2;
  // The bands reach half a step beyond the harmonics nearest to the limits.
  const double first = std::floor(f_low * repeat + 0.5) - 0.5;
  const double last = std::floor(f_high * repeat + 0.5) + 0.5;
  const Density& density = GetParam().density;
  // In two parts, since the density may bend at the peak.
  const double asked = integral(density, first / repeat, fp) + integral(density, fp, last / repeat);
  EXPECT_NEAR(4 * std::sqrt(m0), 4 * std::sqrt(asked), GetParam().tolerance * 4 * std::sqrt(asked));
}

TEST_P(Heights, OfTheRecordAreTheHeightsOfTheFronts) {
  const std::vector<Synthesis::Front> fronts = build();
  double m0 = 0.0;
  for (const Synthesis::Front& front : fronts) m0 += front.amp * front.amp / 2;
  std::vector<double> record(1280, 0.0);
  for (std::size_t j = 0; j < record.size(); ++j) {
    const double t = static_cast<double>(j) * repeat / static_cast<double>(record.size());
    for (const Synthesis::Front& front : fronts) {
      record[j] += front.amp * std::cos(2 * pi * front.freq * t + front.phase);
    }
  }
  EXPECT_NEAR(variance(record), m0, 1e-9 * m0);
}

INSTANTIATE_TEST_SUITE_P(Seas, Heights, testing::ValuesIn(seas()), [](const auto& sea) {
  std::string name = sea.param.name;
  std::erase_if(name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); });
  return name;
});

// A whole spectrum carries the height that its parameter names.
TEST(HeightsOfASea, AreTheParameterWhenTheTankMakesAllOfIt) {
  const double everything = integral(pierson_moskowitz, 0.05, 30.0);
  EXPECT_NEAR(4 * std::sqrt(everything), hs, 1e-4 * hs);
  EXPECT_NEAR(4 * std::sqrt(integral(jonswap, 0.05, fp) + integral(jonswap, fp, 30.0)), hs,
              0.02 * hs);
}

}  // namespace
