#include "drive/bank_motion.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <complex>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>

#include "base/compose.h"
#include "base/constants.h"
#include "base/memory.h"
#include "base/signal_transform.h"
#include "drive/within_limit.h"
#include "maths/dispersion.h"
#include "maths/sample_count.h"

namespace Synthesis {
namespace {

PaddleRow paddle_row(const Common::Paddles& paddles) {
  PaddleRow row;
  row.width = paddles.machine().paddle_width;
  for (std::size_t p = 0; p < paddles.pad_pos.size(); ++p) {
    const Common::PadPos& place = paddles.pad_pos[p];
    row.x.push_back(place.x);
    row.y.push_back(place.y);
    row.angle.push_back(place.angle);
  }
  return row;
}

}  // namespace

void BankMotion::init(const Maths::TankConfig& tank, const Maths::RunData& run,
                      const Base::Params& params) {
  const double repeat = run.value();
  const double rate = params.read("rate", Base::Category::frequency);
  const std::uint32_t samples = Maths::sample_count(repeat, rate);
  // New signals of the same length take the memory of the old ones.
  if (!series_.empty()) memory_ = std::move(series_);
  if (samples != samples_) memory_.clear();
  series_.clear();
  samples_ = samples;
  rate_ = rate;
  depth_ = tank.paddle_depth;
  g_ = tank.g;
  delta_omega_ = Base::TwoPi / repeat;
  ready_ = true;
}

void BankMotion::require_memory(std::size_t paddles, const HarmonicBand& band,
                                unsigned workers) const {
  if (paddles == 0 || samples_ == 0) return;
  const std::uint64_t spectrum = sizeof(std::complex<double>) * (samples_ / 2 + std::uint64_t{1});
  // Each spectrum lies in the memory of its signal, except for the paddles whose transforms are
  // running, one in each worker.
  const std::size_t missing = paddles - std::min(paddles, memory_.size());
  const std::uint64_t working = Base::SignalTransform::memory(samples_, band.first, band.count);
  Base::require_memory(missing * spectrum + workers * working,
                       Base::compose("rate::", rate_, " Hz gives ", samples_,
                                     " samples for each of ", paddles, " paddles, which"));
}

BankMotion::Series BankMotion::signals(const Common::Paddles& paddles,
                                       const Maths::FrontSet& fronts,
                                       const Base::Executor& executor, bool& within) {
  const Common::Machine& machine = paddles.machine();
  const PaddleRow row = paddle_row(paddles);
  const double edge = machine.working_edge(depth_);
  const std::size_t count = row.angle.size();
  const std::size_t pairs = (count + 1) / 2;
  // Harmonics above half the sampling rate cannot be sampled. They are left out.
  const std::size_t elements = samples_ == 0 ? 0 : samples_ / 2 + std::size_t{1};
  const HarmonicBand band = band_of(fronts, elements);
  require_memory(count, band, executor.workers(pairs));

  Series result = std::move(memory_);
  memory_.clear();
  result.resize(count);
  const std::size_t room = std::max<std::size_t>(samples_, 2 * band.count);
  for (std::vector<double>& signal : result) signal.reserve(room);
  // The system gives memory when it is first written to, which takes time.
  executor.each(count, [&](std::size_t p) { result[p].resize(room); });
  const auto harmonic = [&](std::size_t h) {
    const double k = Maths::knum(static_cast<double>(h) * delta_omega_, depth_, g_);
    return PaddleHarmonic(k, machine.ratio(k, depth_, edge), row.width);
  };
  fill_bands(row, fronts, harmonic, samples_, band, executor, result);

  clip_ = Maths::ClipStats{};
  clip_.limit = machine.get(Common::Machine::clip_limit, machine.signal_units());
  within = true;
  if (result.empty()) return result;
  std::vector<Base::SignalTransform> transforms;
  transforms.reserve(executor.workers(pairs));
  transforms.emplace_back(samples_, band.first, band.count);
  while (transforms.size() < executor.workers(pairs)) transforms.push_back(transforms.front());
  std::atomic<bool> all_are_within{true};
  // Always in the same pairs, since the two signals of a pair may share a transform.
  executor.share(pairs, [&](Base::WorkItems& items) {
    Base::SignalTransform& transform = transforms[items.worker()];
    for (std::size_t pair = 0; items.next(pair);) {
      const std::span signals(result.begin() + static_cast<std::ptrdiff_t>(2 * pair),
                              std::min<std::size_t>(2, count - 2 * pair));
      if (signals.size() == 2) {
        transform.run(signals[0].data(), signals[1].data());
      } else {
        transform.run(signals[0].data());
      }
      for (std::vector<double>& signal : signals) {
        signal.resize(samples_);
        // Much cheaper while the samples are in the cache.
        if (all_are_within && !all_within(signal.data(), samples_, clip_.limit)) {
          all_are_within = false;
        }
      }
    }
  });
  within = all_are_within;
  return result;
}

void BankMotion::build(const Common::Paddles& paddles, const Maths::FrontSet& fronts,
                       const Base::Executor& executor) {
  if (!ready_) throw std::string("Trying to build paddle positions when not initialised");
  series_.clear();
  bool within = true;
  Series made = signals(paddles, fronts, executor, within);
  if (within) {
    // Such signals have no peaks to report, and all their sign changes match.
    series_ = std::move(made);
    return;
  }
  for (std::vector<double>& samples : made) {
    Base::Vector signal("", Base::Units(), std::move(samples));
    std::vector<Maths::ClipPeak> peaks;
    Maths::clip_scan(signal, clip_, peaks);
    series_.push_back(std::move(signal.data));
  }
}

void BankMotion::stats(Base::Params& out) const {
  out.clear();
  Maths::clip_report(clip_, out);
}

}  // namespace Synthesis
