#include "maths/clip.h"

#include <cmath>
#include <string>

namespace Maths {
namespace {

// The half wave that is being scanned.
struct HalfWave {
  double energy = 0.0;
  bool clipped = false;
};

// Adds the half wave to the totals. `peak` is the last peak above the limit.
void close(HalfWave& half, double peak, ClipStats& stats) {
  stats.half_waves += 1;
  stats.total_energy += half.energy;
  if (half.clipped) {
    const double r = stats.limit / peak;
    stats.clipped_half_waves += 1;
    stats.clipped_energy += (1 - r * r) * half.energy;
  }
  half = HalfWave{};
}

}  // namespace

void clip_scan(const Base::Vector& signal, ClipStats& stats, std::vector<ClipPeak>& peaks) {
  const std::vector<double>& v = signal.data;
  const double L = stats.limit;
  peaks.clear();
  // The scan starts at the first sign change and ends there after one cycle.
  std::size_t start = 1;
  while (start < v.size() && (v[start] > 0) == (v[0] > 0)) ++start;
  if (start >= v.size()) return;

  bool positive = v[0] <= 0;
  std::uint32_t crossings = 1;
  bool in_peak = false;
  double peak = 0.0;
  std::size_t peak_index = 0;
  HalfWave half;
  for (std::size_t step = 0; step < v.size(); ++step) {
    const std::size_t j = (start + step) % v.size();
    const double a = std::fabs(v[j]);
    if (in_peak) {
      if (a > peak) {
        peak = a;
        peak_index = j;
      }
      if (a < L) {
        peaks.push_back({static_cast<std::uint32_t>(peak_index), positive, L / peak});
        half.clipped = true;
        in_peak = false;
      }
    } else {
      // A half wave is not closed within a peak, even if the sign changes there.
      if ((v[j] > 0) != positive) {
        crossings += 1;
        positive = !positive;
        close(half, peak, stats);
      }
      if (a > L) {
        in_peak = true;
        peak = a;
        peak_index = j;
      }
    }
    half.energy += v[j] * v[j];
  }
  close(half, peak, stats);
  if (crossings % 2 == 1) throw std::string("Unmatched zero crossings");
}

void clip_report(const ClipStats& stats, Base::Params& params) {
  if (stats.clipped_half_waves == 0) return;
  params.insert("clip_power_ratio", stats.clipped_energy / stats.total_energy, "");
  params.insert("clip_peak_ratio", static_cast<double>(stats.clipped_half_waves) / stats.half_waves,
                "");
}

}  // namespace Maths
