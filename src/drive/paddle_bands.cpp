#include "drive/paddle_bands.h"

#include <algorithm>
#include <exception>

#include "base/compose.h"
#include "drive/front_sums.h"
#include "drive/harmonic_tile.h"

namespace Synthesis {
namespace {

using Slot = std::vector<Maths::HarmonicFront>;
using HarmonicOf = std::function<PaddleHarmonic(std::size_t)>;

// Harmonics that a worker takes at a time: enough that two workers seldom write to one line of the
// cache.
constexpr std::size_t part_size = 16 * HarmonicTile::height;
// Harmonics that are shared out at a time, which bounds the memory for what they have in common.
constexpr std::size_t batch_size = 256 * part_size;

// The harmonics with fronts of one batch of a band.
class Batch {
 public:
  Batch(const Maths::FrontSet& fronts, const FrontSums& sums, std::size_t begin, std::size_t end)
      : fronts_(fronts), sums_(sums), begin_(begin), end_(end) {}

  // Takes the harmonics in rising order, as far as none of them fails.
  void take(const HarmonicOf& harmonic) {
    for (std::size_t h = begin_; h < end_; ++h) {
      if (fronts_.slots[h].empty()) continue;
      harmonics_.push_back({h, harmonic(h)});
      reports_ = reports_ || sums_.may_report(harmonics_.back().common, fronts_.slots[h]);
    }
  }

  // Whether sums may be written to the standard output.
  bool reports() const { return reports_; }

  // Writes the sums of the harmonics to bands that begin with harmonic `first`.
  void write(const Base::Executor& executor, std::size_t first,
             std::vector<std::vector<double>>& bands) const {
    executor.share((end_ - begin_ + part_size - 1) / part_size, [&](Base::WorkItems& parts) {
      FrontSums sums = sums_;
      HarmonicTile tile(sums.padded());
      for (std::size_t part = 0; parts.next(part);) {
        const std::size_t part_end = std::min(begin_ + (part + 1) * part_size, end_);
        for (std::size_t h = begin_ + part * part_size; h < part_end; h += HarmonicTile::height) {
          const std::size_t rows = std::min(HarmonicTile::height, part_end - h);
          tile.clear();
          add_fronts(h, rows, sums, tile);
          tile.write(rows, h - first, bands);
        }
      }
    });
  }

 private:
  struct Filled {
    std::size_t index;
    PaddleHarmonic common;
  };

  void add_fronts(std::size_t first, std::size_t rows, FrontSums& sums, HarmonicTile& tile) const {
    const auto begin = std::lower_bound(
        harmonics_.begin(), harmonics_.end(), first,
        [](const Filled& filled, std::size_t index) { return filled.index < index; });
    for (auto it = begin; it != harmonics_.end() && it->index < first + rows; ++it) {
      sums.add(it->common, fronts_.slots[it->index], tile.row(it->index - first));
    }
  }

  const Maths::FrontSet& fronts_;
  const FrontSums& sums_;
  std::size_t begin_;
  std::size_t end_;
  std::vector<Filled> harmonics_;
  bool reports_ = false;
};

// Reports, and failures after them, come in the order of the harmonics.
void fill_batch(Batch batch, const HarmonicOf& harmonic, const Base::Executor& executor,
                std::size_t first, std::vector<std::vector<double>>& bands) {
  std::exception_ptr failure;
  try {
    batch.take(harmonic);
  } catch (...) {
    failure = std::current_exception();
  }
  if (batch.reports()) {
    batch.write(Base::Executor(), first, bands);
  } else if (!failure) {
    batch.write(executor, first, bands);
  }
  if (failure) std::rethrow_exception(failure);
}

// Harmonics from `begin` on, above the band, cannot be sampled. Huge sums are reported
// nevertheless.
void pass_above(const PaddleRow& row, const Maths::FrontSet& fronts, const HarmonicOf& harmonic,
                std::size_t samples, std::size_t begin, FrontSums& sums) {
  HarmonicTile tile(sums.padded());
  for (std::size_t h = begin; h < fronts.slots.size(); ++h) {
    const Slot& slot = fronts.slots[h];
    if (slot.empty()) continue;
    const PaddleHarmonic common = harmonic(h);
    if (h <= samples) {
      if (!sums.may_report(common, slot)) continue;
      tile.clear();
      sums.add(common, slot, tile.row(0));
    } else if (std::any_of(slot.begin(), slot.end(), [&](const Maths::HarmonicFront& front) {
                 return reaches(row, common, front);
               })) {
      // Hosts rely on this message for a rate that is far too low.
      throw Base::compose("Index ", h, " out of range");
    }
  }
}

}  // namespace

HarmonicBand band_of(const Maths::FrontSet& fronts, std::size_t end) {
  HarmonicBand band;
  for (std::size_t h = 0; h < std::min(end, fronts.slots.size()); ++h) {
    if (fronts.slots[h].empty()) continue;
    if (band.count == 0) band.first = h;
    band.count = h + 1 - band.first;
  }
  return band;
}

void fill_bands(const PaddleRow& row, const Maths::FrontSet& fronts,
                const std::function<PaddleHarmonic(std::size_t)>& harmonic, std::size_t samples,
                const HarmonicBand& band, const Base::Executor& executor,
                std::vector<std::vector<double>>& bands) {
  FrontSums sums(row);
  const std::size_t end = band.first + band.count;
  for (std::size_t h = band.first; h < end; h += batch_size) {
    fill_batch(Batch(fronts, sums, h, std::min(h + batch_size, end)), harmonic, executor,
               band.first, bands);
  }
  pass_above(row, fronts, harmonic, samples, end, sums);
}

}  // namespace Synthesis
