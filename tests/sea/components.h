// Evaluating a component, and checking the fronts that it makes.
#ifndef KELPBOX_TESTS_SEA_COMPONENTS_H_
#define KELPBOX_TESTS_SEA_COMPONENTS_H_

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "maths/front_set.h"
#include "maths/run_data.h"
#include "sea/component.h"
#include "support/modifiers.h"
#include "support/output.h"
#include "support/thrown.h"

namespace Testing {

// The fronts, messages and output of one evaluation.
struct Evaluated {
  Maths::FrontSet fronts;
  Synthesis::Messages messages;
  std::string output;

  // The slots that hold fronts.
  std::vector<std::size_t> used() const {
    std::vector<std::size_t> found;
    for (std::size_t h = 0; h < fronts.slots.size(); ++h) {
      if (!fronts.slots[h].empty()) found.push_back(h);
    }
    return found;
  }
  // The amplitude of a slot of at most one front, 0 for an empty slot.
  double amp(std::size_t slot) const {
    const auto& list = fronts.slots.at(slot);
    EXPECT_LE(list.size(), 1U);
    return list.empty() ? 0.0 : list[0].amp;
  }
  std::complex<double> complex_amp(std::size_t slot) const {
    const auto& list = fronts.slots.at(slot);
    EXPECT_LE(list.size(), 1U);
    return list.empty() ? 0.0 : std::polar(list[0].amp, list[0].phase);
  }
};

inline Evaluated evaluate(Synthesis::Component& component, const Maths::RunData& run) {
  Evaluated result;
  result.fronts = empty_set(run);
  result.output = printed([&] { component.evaluate(result.fronts, {run, {}, result.messages}); });
  return result;
}

// The failure of an evaluation, and what was printed before it.
struct Refused {
  std::string message;
  std::string output;
};

inline Refused refused(Synthesis::Component& component, const Maths::RunData& run) {
  Maths::FrontSet fronts = empty_set(run);
  Synthesis::Messages messages;
  const Synthesis::RunContext context = {run, {}, messages};
  Refused result;
  result.output =
      printed([&] { result.message = thrown([&] { component.evaluate(fronts, context); }); });
  return result;
}

// The one-sided complex amplitude of harmonic h, from the definition of the transform.
inline std::complex<double> harmonic_of(const std::vector<double>& x, std::size_t h) {
  const std::size_t n = x.size();
  std::complex<double> sum = 0.0;
  for (std::size_t j = 0; j < n; ++j) {
    sum +=
        x[j] * std::polar(1.0, -2.0 * pi * static_cast<double>(h * j % n) / static_cast<double>(n));
  }
  return sum * ((h == 0 || 2 * h == n ? 1.0 : 2.0) / static_cast<double>(n));
}

// Expects exactly one front for each harmonic of the signal, from the run's lowest to the one
// before its highest.
inline void expect_harmonics(const Evaluated& result, const std::vector<double>& x,
                             const Maths::RunData& run) {
  for (std::size_t h = 0; h < run.size(); ++h) {
    const bool expected = h >= run.min_harmonic() && h < run.max_harmonic() && h <= x.size() / 2;
    const std::complex<double> wanted = expected ? harmonic_of(x, h) : 0.0;
    EXPECT_NEAR(std::abs(result.complex_amp(h) - wanted), 0.0, 1e-12) << "harmonic " << h;
    if (!expected) {
      EXPECT_TRUE(result.fronts.slots[h].empty()) << "harmonic " << h;
    }
    for (const Maths::HarmonicFront& front : result.fronts.slots[h]) EXPECT_EQ(front.angle, 0.0);
  }
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_SEA_COMPONENTS_H_
