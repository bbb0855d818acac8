// Records of several probes, synthesised from known wave trains.
#ifndef KELPBOX_TESTS_ANALYSIS_TRAINS_H_
#define KELPBOX_TESTS_ANALYSIS_TRAINS_H_

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstddef>
#include <numbers>
#include <string>
#include <vector>

#include "analysis/freq_single.h"
#include "maths/dispersion.h"
#include "records.h"
#include "solve.h"
#include "support/output.h"
#include "support/thrown.h"

struct Probe {
  double x;  // metres
  double y;
};

// One train: element of the spectrum, wave number (negative for a returning train), amplitude at
// the origin.
struct Train {
  std::size_t bin;
  double k;
  Complex amplitude;
};

// The number of samples of each probe and their rate.
struct Reading {
  std::size_t samples = 400;
  double rate = 20.0;

  double step() const { return rate / static_cast<double>(samples); }
  double omega(std::size_t bin) const {
    return 2.0 * std::numbers::pi * step() * static_cast<double>(bin);
  }
};

// The results of a separation.
struct Results {
  double forward_free, backward_free, forward_bound2, backward_bound2, forward_free2,
      backward_free2;
};

inline Base::Params at_point(const Reading& reading, const Probe& probe) {
  Base::Params params = at_rate(reading.rate);
  params.insert("x", probe.x, "m");
  params.insert("y", probe.y, "m");
  return params;
}

// The surface at a probe, which is at s along the wave direction.
inline std::vector<double> surface(const std::vector<Train>& trains, double s,
                                   const Reading& reading) {
  std::vector<double> out(reading.samples);
  for (const Train& train : trains) {
    const Complex value = train.amplitude * turn(-train.k * s);
    for (std::size_t j = 0; j < out.size(); ++j) {
      const double turns = static_cast<double>(train.bin * j % reading.samples) /
                           static_cast<double>(reading.samples);
      out[j] += std::real(value * turn(2.0 * std::numbers::pi * turns));
    }
  }
  return out;
}

inline std::vector<Analysis::Series> measure(const std::vector<Train>& trains,
                                             const std::vector<Probe>& probes,
                                             const Reading& reading = {}, double angle = 0.0) {
  std::vector<Analysis::Series> series;
  for (const Probe& probe : probes) {
    const double s = probe.x * std::cos(angle) + probe.y * std::sin(angle);
    series.push_back({at_point(reading, probe), surface(trains, s, reading)});
  }
  return series;
}

// Probes in a row along x.
inline std::vector<Probe> row(const std::vector<double>& positions) {
  std::vector<Probe> probes;
  for (const double x : positions) probes.push_back({x, 0.0});
  return probes;
}

inline Base::Params settings(double angle = 0.0) {
  Base::Params params;
  params.insert("freq", 123.0, "Hz");
  params.insert("angle", angle, "rad");
  return params;
}

// The output, failure and results of a separation.
struct Separation {
  std::string lines;
  std::string failure;
  Base::Params out;

  Results results() const {
    return {out.get("Forward free fundamental", ""), out.get("Backward free fundamental", ""),
            out.get("Forward bound harmonic", ""),   out.get("Backward bound harmonic", ""),
            out.get("Forward free harmonic", ""),    out.get("Backward free harmonic", "")};
  }
};

inline Separation separate(Analysis::Set& set, const Maths::TankConfig& tank,
                           const Base::Params& params = settings()) {
  Separation found;
  found.lines = Testing::printed([&] {
    Analysis::FreqSingle process(tank, set);
    found.failure = Testing::thrown([&] {
      process.process(params);
      process.results(found.out);
    });
  });
  return found;
}

inline Separation separate(const std::vector<Analysis::Series>& series,
                           const Maths::TankConfig& tank, const Base::Params& params = settings()) {
  Records records(series);
  return separate(records.set(), tank, params);
}

// The output of a separation up to a mark.
inline std::string marks(char last) {
  std::string lines = "FreqSingle\n";
  for (char mark = 'A'; mark <= last; ++mark) lines += std::string("D") + mark + "\n";
  return lines;
}

// A fundamental in both directions, with the free and bound trains of its harmonics.
struct Sea {
  std::size_t bin = 16;
  Complex forward{0.04, -0.03};
  Complex backward{-0.006, 0.008};
  // Second harmonic; the third and fourth have a half and a third of its amplitude and other
  // phases.
  Complex forward_bound{0.003, 0.004};
  Complex backward_bound{-0.0005, 0.0012};
  Complex forward_free{0.002, -0.0015};
  Complex backward_free{0.0004, 0.0003};

  // k(h) is the wave number of harmonic h of the fundamental.
  template <typename WaveNumber>
  std::vector<Train> trains(WaveNumber&& k) const {
    std::vector<Train> out = {{bin, k(1), forward}, {bin, -k(1), backward}};
    for (std::size_t h = 2; h <= 4; ++h) {
      const double order = static_cast<double>(h);
      const Complex scale = turn(order) / (order - 1.0);
      out.push_back({h * bin, order * k(1), scale * forward_bound});
      out.push_back({h * bin, -order * k(1), scale * backward_bound});
      out.push_back({h * bin, k(h), scale * forward_free});
      out.push_back({h * bin, -k(h), scale * backward_free});
    }
    return out;
  }

  // With the wave numbers that the separation assumes. The tests of maths prove them.
  std::vector<Train> trains(double depth, const Reading& reading = {}) const {
    return trains([&](std::size_t h) { return Maths::knum(reading.omega(h * bin), depth, 9.81); });
  }
};

inline void expect_sea(const Separation& found, const Sea& sea, double tolerance) {
  ASSERT_EQ(found.failure, Testing::nothing_thrown);
  const Results results = found.results();
  EXPECT_NEAR(results.forward_free, std::abs(sea.forward), tolerance);
  EXPECT_NEAR(results.backward_free, std::abs(sea.backward), tolerance);
  EXPECT_NEAR(results.forward_bound2, std::abs(sea.forward_bound), tolerance);
  EXPECT_NEAR(results.backward_bound2, std::abs(sea.backward_bound), tolerance);
  EXPECT_NEAR(results.forward_free2, std::abs(sea.forward_free), tolerance);
  EXPECT_NEAR(results.backward_free2, std::abs(sea.backward_free), tolerance);
}

#endif  // KELPBOX_TESTS_ANALYSIS_TRAINS_H_
