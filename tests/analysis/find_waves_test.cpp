// The search for waves in blocks, against a plain search sample by sample.
#include "analysis/find_waves.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <random>
#include <span>
#include <vector>

#include "support/each_target.h"

namespace {

using Analysis::Wave;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double denormal = std::numeric_limits<double>::denorm_min();

std::vector<Wave> plain(const std::vector<double>& samples, double interval, bool wrap) {
  std::vector<Wave> waves;
  bool first = true;
  Wave wave;
  Wave head;
  for (std::size_t i = 1; i < samples.size(); ++i) {
    const double before = samples[i - 1];
    const double now = samples[i];
    if (before <= 0.0 && now > 0.0) {
      const double time = (static_cast<double>(i) - now / (now - before)) * interval;
      if (first) {
        head = wave;
        head.end = static_cast<double>(samples.size()) * interval + time;
      } else {
        waves.push_back({wave.crest, wave.trough, time, wave.start});
      }
      first = false;
      wave = {0.0, 0.0, 0.0, time};
    }
    if (now > wave.crest) wave.crest = now;
    if (now < wave.trough) wave.trough = now;
  }
  if (wrap && !first) {
    waves.push_back({std::max(wave.crest, head.crest), std::min(wave.trough, head.trough), head.end,
                     wave.start});
  }
  return waves;
}

// The bits of all fields, so that NaN equals itself and -0 differs from 0.
std::vector<std::uint64_t> bits(const std::vector<Wave>& waves) {
  std::vector<std::uint64_t> all;
  for (const Wave& wave : waves) {
    for (const double field : {wave.crest, wave.trough, wave.end, wave.start}) {
      all.push_back(std::bit_cast<std::uint64_t>(field));
    }
  }
  return all;
}

// With every instruction set that this machine has.
void expect_plain(const std::vector<double>& samples) {
  Testing::on_each_target([&] {
    for (const bool wrap : {false, true}) {
      std::vector<Wave> found;
      Analysis::append_waves(found, samples, 0.01, wrap);
      EXPECT_EQ(bits(found), bits(plain(samples, 0.01, wrap)));
    }
  });
}

TEST(AppendWaves, AgreesForRecordsOfEveryLength) {
  for (std::size_t count = 0; count < 120; ++count) {
    std::vector<double> samples(count);
    for (std::size_t j = 0; j < count; ++j) {
      samples[j] = std::sin(0.17 * static_cast<double>(j * j % 97));
    }
    expect_plain(samples);
  }
}

TEST(AppendWaves, AgreesWhereverTheOnlyCrossingLies) {
  for (std::size_t at = 0; at < 80; ++at) {
    std::vector<double> samples(80, -1.0);
    for (std::size_t j = at; j < samples.size(); ++j) samples[j] = 0.5 + static_cast<double>(j);
    expect_plain(samples);
    for (double& sample : samples) sample = -sample;
    expect_plain(samples);
  }
}

TEST(AppendWaves, AgreesForLongAndShortWaves) {
  std::mt19937_64 random(5);
  for (const double step : {0.003, 0.05, 0.4, 2.0, 3.1}) {
    for (int round = 0; round < 20; ++round) {
      std::vector<double> samples(3000);
      double phase = std::generate_canonical<double, 53>(random);
      for (double& sample : samples) {
        phase += step * (0.5 + std::generate_canonical<double, 53>(random));
        sample = std::sin(phase) + 0.2 * std::sin(3.7 * phase);
      }
      expect_plain(samples);
    }
  }
}

TEST(AppendWaves, AgreesForZerosDenormalsAndNonFiniteSamples) {
  const std::vector<double> odd = {0.0,      -0.0,  denormal, -denormal, nan,   -nan,
                                   infinity, 1e308, -1e308,   -infinity, 1e-30, -1.0};
  std::mt19937_64 random(6);
  for (const std::uint64_t rarity : {1u, 5u, 40u}) {
    for (int round = 0; round < 100; ++round) {
      std::vector<double> samples(400);
      for (std::size_t j = 0; j < samples.size(); ++j) {
        samples[j] = random() % rarity == 0 ? odd[random() % odd.size()]
                                            : std::sin(0.1 * static_cast<double>(j));
      }
      expect_plain(samples);
    }
  }
}

TEST(AppendWaves, ReadsNothingAroundTheRecord) {
  // The samples around it would cross zero and be extremes.
  for (std::size_t count = 0; count < 100; ++count) {
    std::vector<double> wide(count + 40, 99.0);
    std::fill_n(wide.begin(), 20, -99.0);
    for (std::size_t j = 0; j < count; ++j) wide[20 + j] = std::sin(0.9 * static_cast<double>(j));
    const std::span<const double> inner = std::span(wide).subspan(20, count);
    std::vector<Wave> found;
    Analysis::append_waves(found, inner, 0.01, true);
    EXPECT_EQ(bits(found), bits(plain({inner.begin(), inner.end()}, 0.01, true)));
  }
}

TEST(AppendWaves, KeepsTheWavesThatAreThere) {
  std::vector<Wave> waves = {{1.0, -2.0, 3.0, 4.0}};
  Analysis::append_waves(waves, std::vector<double>{-1.0, 1.0, -1.0, 1.0}, 1.0, false);
  ASSERT_EQ(waves.size(), 2u);
  EXPECT_EQ(waves[0].crest, 1.0);
  EXPECT_EQ(waves[1].end, 2.5);
}

}  // namespace
