#include "analysis/find_waves.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace Analysis {
namespace {

// A wave is much longer than this, so most blocks have no crossing. They are searched for crossings
// and for extremes in independent lanes, which compilers turn into vector instructions. Comparisons
// with NaN are false in each lane, as they are for one sample.
constexpr std::size_t lanes = 8;
constexpr std::size_t block = 16;

bool crosses(double before, double sample) { return before <= 0.0 && sample > 0.0; }

// Whether the record crosses zero at one of the samples of a block. Reads the one before it too.
bool crosses_in(const double* samples) {
  std::array<std::uint64_t, lanes> found{};
  for (std::size_t i = 0; i < block; i += lanes) {
    for (std::size_t lane = 0; lane < lanes; ++lane) {
      const double* const sample = samples + i + lane;
      found[lane] |= static_cast<std::uint64_t>(sample[-1] <= 0.0) &
                     static_cast<std::uint64_t>(sample[0] > 0.0);
    }
  }
  std::uint64_t any = 0;
  for (const std::uint64_t one : found) any |= one;
  return any != 0;
}

// The crest and trough of the blocks since the last crossing. Which of equal samples is taken does
// not matter, because neither extreme can be -0.
class Extremes {
 public:
  void add(const double* samples) {
    for (std::size_t i = 0; i < block; i += lanes) {
      for (std::size_t lane = 0; lane < lanes; ++lane) {
        const double sample = samples[i + lane];
        high_[lane] = sample > high_[lane] ? sample : high_[lane];
        low_[lane] = sample < low_[lane] ? sample : low_[lane];
      }
    }
  }
  void move_to(Wave& wave) {
    wave.crest = std::max(wave.crest, *std::ranges::max_element(high_));
    wave.trough = std::min(wave.trough, *std::ranges::min_element(low_));
    *this = Extremes();
  }

 private:
  std::array<double, lanes> high_{};
  std::array<double, lanes> low_{};
};

}  // namespace

void append_waves(std::vector<Wave>& waves, std::span<const double> samples, double interval,
                  bool wrap) {
  const std::size_t count = samples.size();
  bool crossed = false;
  Wave wave;  // the current wave, open at its end
  Wave head;  // the part before the first crossing, moved by one record length
  const auto add = [&](std::size_t i) {
    const double before = samples[i - 1];
    const double sample = samples[i];
    if (crosses(before, sample)) {
      wave.end = (static_cast<double>(i) - sample / (sample - before)) * interval;
      if (crossed) {
        waves.push_back(wave);
      } else {
        head = wave;
        head.end = static_cast<double>(count) * interval + wave.end;
        crossed = true;
      }
      wave = Wave{0.0, 0.0, 0.0, wave.end};
    }
    if (sample > wave.crest) wave.crest = sample;
    if (sample < wave.trough) wave.trough = sample;
  };

  Extremes extremes;
  std::size_t i = 1;
  for (; i < count && count - i >= block; i += block) {
    if (!crosses_in(samples.data() + i)) {
      extremes.add(samples.data() + i);
      continue;
    }
    extremes.move_to(wave);
    for (std::size_t j = i; j < i + block; ++j) add(j);
  }
  extremes.move_to(wave);
  for (; i < count; ++i) add(i);
  if (wrap && crossed) {
    waves.push_back({std::max(wave.crest, head.crest), std::min(wave.trough, head.trough), head.end,
                     wave.start});
  }
}

}  // namespace Analysis
