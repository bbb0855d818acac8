// Drive signals of short waves in deep tanks, where sinh(k depth) * cosh(k depth) overflows.
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <numbers>
#include <string>
#include <vector>

#include "support/test_run.h"

namespace {

using Testing::BankText;
using Testing::BuiltRun;
using Testing::rate_params;
using Testing::SiteText;

constexpr double pi = std::numbers::pi;
constexpr double g = 9.81;

struct Wave {
  std::uint64_t harmonic;  // of 10 s
  double amp;
  double phase;
};

// In deep water the wave number is omega^2 / g, and an edge at e makes 2 (1 - exp(-k e)) per metre
// of piston and 2 (k e - 1 + exp(-k e)) / k per radian of flap.
double deep_ratio(bool flap, double k, double e) {
  const double y = k * e;
  return flap ? 2 * (y - 1 + std::exp(-y)) / k : 2 * (1 - std::exp(-y));
}

void expect_deep_drive(const std::string& machine, double depth, double edge) {
  const std::vector<Wave> waves = {{18, 0.03, 0.4}, {25, 0.02, -1.0}, {30, 0.01, 2.0}};
  SiteText text;
  text.depths = {std::to_string(depth) + "@m"};
  text.max_freq = 3.5;
  BankText& bank = text.banks.front();
  bank.machine = machine;
  bank.units = machine == "flap" ? "rad" : "m";
  bank.dimension_type = "ToSurface";
  bank.critical_dimension = edge;
  Testing::Given given;
  for (const Wave& wave : waves) given.push_back({wave.harmonic, {wave.amp, 0.0, wave.phase}});
  BuiltRun run(text, given);
  run.definition.paddle_motion_build(rate_params(20.0));

  const std::vector<double>& signal = run.signal();
  ASSERT_EQ(signal.size(), 200u);
  for (std::size_t j = 0; j < signal.size(); ++j) {
    double expected = 0.0;
    for (const Wave& wave : waves) {
      const double omega = 2 * pi * static_cast<double>(wave.harmonic) / 10.0;
      const double stroke = wave.amp / deep_ratio(machine == "flap", omega * omega / g, edge);
      expected += stroke * std::cos(omega * static_cast<double>(j) / 20.0 + wave.phase - pi / 2.0);
    }
    ASSERT_NEAR(signal[j], expected, 1e-9) << machine << " " << depth << " " << edge << " " << j;
  }
}

TEST(DeepDrive, ShortWavesHaveTheSignalsOfDeepWater) {
  for (const char* machine : {"piston", "flap"}) {
    for (const double depth : {10.0, 15.0, 30.0}) {
      expect_deep_drive(machine, depth, 1.5);
      expect_deep_drive(machine, depth, depth);
    }
  }
}

}  // namespace
