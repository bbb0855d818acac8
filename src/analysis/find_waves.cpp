#include "analysis/find_waves.h"

#include <algorithm>
#include <cstddef>

#include "analysis/next_crossing.h"

namespace Analysis {

void append_waves(std::vector<Wave>& waves, std::span<const double> samples, double interval,
                  bool wrap) {
  const std::size_t count = samples.size();
  if (count < 2) return;
  bool crossed = false;
  Wave wave;  // the current wave, open at its end
  Wave head;  // the part before the first crossing, moved by one record length
  std::size_t i = 1;
  while (true) {
    i += next_crossing(samples.data() + i, count - i, wave.crest, wave.trough);
    if (i == count) break;
    const double before = samples[i - 1];
    const double sample = samples[i];
    wave.end = (static_cast<double>(i) - sample / (sample - before)) * interval;
    if (crossed) {
      waves.push_back(wave);
    } else {
      head = wave;
      head.end = static_cast<double>(count) * interval + wave.end;
      crossed = true;
    }
    wave = Wave{sample, 0.0, 0.0, wave.end};
    ++i;
  }
  if (wrap && crossed) {
    waves.push_back({std::max(wave.crest, head.crest), std::min(wave.trough, head.trough), head.end,
                     wave.start});
  }
}

}  // namespace Analysis
