// Records of six noisy probes on a slanting line, against a least squares fit, and the refusal of
// probes with a bad description.
#include <algorithm>
#include <array>
#include <complex>
#include <cstdint>
#include <numbers>
#include <random>
#include <utility>

#include "analysis_fixture.h"
#include "support/test_site.h"

namespace {

using Testing::AnalysisTest;
using Testing::wave_number;

using Complex = std::complex<double>;

constexpr double turn = 2 * std::numbers::pi;
constexpr double rate = 20;
constexpr std::size_t count = 240;
constexpr std::size_t bin = 10;  // 0.83 Hz
constexpr double angle = 0.4;
constexpr double depth = 1;  // of the basin as far as x = 20

struct Probe {
  double x, y;
};
// In no particular order along the direction.
constexpr std::array<Probe, 6> probes = {Probe{6.0, -1.0}, {4.2, 0.5}, {5.1, 1.3},
                                         {4.0, -0.4},      {6.9, 0.2}, {4.75, 2.0}};

double along(const Probe& probe) { return probe.y * std::sin(angle) + probe.x * std::cos(angle); }

// The one-sided amplitude of a harmonic, by its sum.
Complex element(const std::vector<double>& samples, std::size_t harmonic) {
  Complex sum = 0;
  for (std::size_t j = 0; j < count; ++j) {
    const double turns = static_cast<double>(harmonic * j % count) / count;
    sum += samples[j] * std::polar(1.0, -turn * turns);
  }
  return sum * 2.0 / static_cast<double>(count);
}

// Least squares over the probes by elimination with row exchanges, a train for each wave number.
std::vector<double> amplitudes(const std::vector<double>& ks, const std::vector<Complex>& values) {
  const std::size_t n = ks.size();
  std::vector<std::vector<Complex>> rows(n, std::vector<Complex>(n + 1));
  for (std::size_t p = 0; p < probes.size(); ++p) {
    const auto train = [&](std::size_t i) { return std::polar(1.0, -ks[i] * along(probes[p])); };
    for (std::size_t r = 0; r < n; ++r) {
      for (std::size_t c = 0; c < n; ++c) rows[r][c] += std::conj(train(r)) * train(c);
      rows[r][n] += std::conj(train(r)) * values[p];
    }
  }
  for (std::size_t i = 0; i < n; ++i) {
    std::swap(rows[i], *std::max_element(rows.begin() + static_cast<std::ptrdiff_t>(i), rows.end(),
                                         [i](const auto& a, const auto& b) {
                                           return std::abs(a[i]) < std::abs(b[i]);
                                         }));
    for (std::size_t r = 0; r < n; ++r) {
      if (r == i) continue;
      const Complex factor = rows[r][i] / rows[i][i];
      for (std::size_t c = i; c <= n; ++c) rows[r][c] -= factor * rows[i][c];
    }
  }
  std::vector<double> out(n);
  for (std::size_t i = 0; i < n; ++i) out[i] = std::abs(rows[i][n] / rows[i][i]);
  return out;
}

class AnalysisProbes : public AnalysisTest {
 protected:
  jlong add_probe(jlong about, const std::vector<double>& samples) {
    return host.call(NATIVE(Kelpbox_1Analysis_1add_1series), self, proxy, about, proxy,
                     doubles(samples), proxy);
  }
  jlong settings() {
    return params({{"freq", 99, "Hz"}, {"angle", angle, "rad"}, {"unread", 1, "kg"}});
  }
  // Three equal records, the last under a probe with that description.
  Thrown with_last(jlong about) {
    std::vector<jlong> ids;
    for (const double x : {4.0, 5.0}) {
      ids.push_back(
          add_probe(params({{"rate", 50, "Hz"}, {"x", x, "m"}, {"y", 0, "m"}}), sine(0.05)));
    }
    ids.push_back(add_probe(about, sine(0.05)));
    results(process(group(ids), 2), settings(), params());
    return thrown();
  }
};

TEST_F(AnalysisProbes, NoisyRecordsAreFittedByLeastSquares) {
  std::mt19937 generator(5);
  const auto noise = [&] { return 0.004 * (generator() / 4294967296.0 - 0.5); };
  std::vector<jlong> ids;
  std::vector<Complex> first;
  std::vector<Complex> second;
  for (const Probe& probe : probes) {
    // Samples outside the window do not count.
    std::vector<double> samples(count + 60, 9.0);
    for (std::size_t j = 0; j < count; ++j) {
      const double phase = turn * bin * static_cast<double>(j) / count;
      const double s = along(probe);
      samples[j + 40] = 3 + 0.05 * std::cos(phase - 2.9 * s) +
                        0.02 * std::cos(phase + 2.9 * s + 1) +
                        0.008 * std::cos(2 * phase - 5.8 * s) + noise();
    }
    ids.push_back(add_probe(
        params({{"rate", turn * rate, "rad/s"}, {"x", 100 * probe.x, "cm"}, {"y", probe.y, "m"}}),
        samples));
    samples.erase(samples.begin(), samples.begin() + 40);
    first.push_back(element(samples, bin));
    second.push_back(element(samples, 2 * bin));
  }
  const jlong out = results(process(group(ids, window(2, 14)), 2), settings(), params());
  const double frequency = rate / count * bin;
  const double k = wave_number(turn * frequency, depth);
  const double k_free = wave_number(2 * turn * frequency, depth);
  const std::vector<double> fundamental = amplitudes({k, -k}, first);
  const std::vector<double> harmonic = amplitudes({2 * k, -2 * k, k_free, -k_free}, second);
  EXPECT_NEAR(value(out, "Forward free fundamental", ""), fundamental[0], 1e-9);
  EXPECT_NEAR(value(out, "Backward free fundamental", ""), fundamental[1], 1e-9);
  EXPECT_NEAR(value(out, "Forward bound harmonic", ""), harmonic[0], 1e-9);
  EXPECT_NEAR(value(out, "Backward bound harmonic", ""), harmonic[1], 1e-9);
  EXPECT_NEAR(value(out, "Forward free harmonic", ""), harmonic[2], 1e-9);
  EXPECT_NEAR(value(out, "Backward free harmonic", ""), harmonic[3], 1e-9);
}

TEST_F(AnalysisProbes, AMissingOrBadPlaceIsReportedByTheResults) {
  EXPECT_EQ(with_last(params({{"rate", 50, "Hz"}})), domain("x::Not found"));
  EXPECT_EQ(with_last(params({{"rate", 50, "Hz"}, {"x", 1, "m"}})), domain("y::Not found"));
  EXPECT_EQ(with_last(params({{"rate", 50, "Hz"}, {"x", 1, "s"}, {"y", 1, "m"}})),
            domain("Unable to convert from \"s\" to \"m\""));
  EXPECT_EQ(with_last(params({{"rate", 50, "Hz"}, {"x", 1, "m"}, {"y", 1, "Hz"}})),
            domain("Unable to convert from \"Hz\" to \"m\""));
  // Only the mean of the three must lie in the tank.
  EXPECT_EQ(with_last(params({{"rate", 50, "Hz"}, {"x", 31, "m"}, {"y", 1, "m"}})), Thrown{});
  EXPECT_EQ(with_last(params({{"rate", 50, "Hz"}, {"x", 91, "m"}, {"y", 1, "m"}})),
            domain("Value x=33.3333 is outside dimensions of tank"));
}

TEST_F(AnalysisProbes, AMemberOfAnEnumerationIsRefusedAsPlaceAndAsRate) {
  for (const char* const name : {"x", "y"}) {
    const jlong about = params({{"rate", 50, "Hz"}, {*name == 'x' ? "y" : "x", 1, "m"}});
    insert_enum(about, name, "BothSides", "Geometry");
    EXPECT_NE(with_last(about), Thrown{}) << name;
  }
  const jlong about = params();
  insert_enum(about, "rate", "BothSides", "Geometry");
  add_probe(about, sine(0.05));
  const jlong last = host.call(NATIVE(Kelpbox_1Analysis_1add_1series), self, proxy, about, proxy,
                               doubles(sine(0.05)), proxy);
  group({last});
  EXPECT_NE(thrown(), Thrown{});
}

TEST_F(AnalysisProbes, ABadRateIsReportedByTheSet) {
  add_probe(params({{"rate", 0.02, "s"}}), sine(0.05));
  group({0});
  EXPECT_EQ(thrown(), domain("rate::not convertable"));
  add_probe(params({{"rate", 0, "Hz"}}), sine(0.05));
  group({1});
  EXPECT_EQ(thrown(), domain("Out of range"));
  EXPECT_EQ(output, "first 0 last 0\n");
}

TEST_F(AnalysisProbes, SettingsMayReceiveTheResults) {
  for (const double x : {4.0, 4.5, 5.2}) {
    add_probe(params({{"rate", 50, "Hz"}, {"x", x, "m"}, {"y", 0, "m"}}), sine(0.05));
  }
  const jlong made = process(group({0, 1, 2}), 2);
  const jlong both = settings();
  results(made, both, both);
  EXPECT_EQ(names(both).size(), 9u);
  EXPECT_EQ(value(both, "Forward bound harmonic", ""), 0.0);
  // A second time the first result is a duplicate.
  results(made, both, both);
  EXPECT_EQ(thrown(), domain("\"Forward free fundamental\"::Duplicate parameter:"));
}

TEST_F(AnalysisProbes, AProcessWorksWithoutATankAndAfterLaterProcesses) {
  for (const double x : {4.0, 4.5, 5.2}) {
    add_probe(params({{"rate", 50, "Hz"}, {"x", x, "m"}, {"y", 0, "m"}}), sine(0.05));
  }
  const jlong set = group({0, 1, 2});
  const jlong made = process(set, 2);
  const auto found = [&] {
    return value(results(made, settings(), params()), "Forward free fundamental", "");
  };
  const double before = found();
  EXPECT_GT(before, 0.01);
  tune();
  EXPECT_EQ(found(), before);
  for (int i = 0; i < 100; ++i) add({});
  process(set, 2);
  EXPECT_EQ(found(), before);
  create(set, 2);
  EXPECT_EQ(thrown(), uncaught("create_process: Make ready called when already ready"));
  EXPECT_EQ(found(), before);
}

}  // namespace
