#include "drive/bank_motion.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "base/compose.h"
#include "base/constants.h"
#include "base/fft.h"
#include "base/memory.h"
#include "drive/paddle_spectrum.h"
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

// Frees each spectrum as soon as its signal is made, so that the signals take their memory.
std::vector<std::vector<double>> signals(std::vector<std::vector<std::complex<double>>> spectra,
                                         std::uint32_t samples) {
  std::vector<std::vector<double>> result(spectra.size());
  if (spectra.empty()) return result;
  Base::FFT_Plan plan(samples, samples / 2 + 1, Base::FFT_Type::freq_to_time);
  for (std::size_t p = 0; p < spectra.size(); ++p) {
    std::vector<std::complex<double>> spectrum = std::move(spectra[p]);
    result[p].resize(samples);
    plan.consume(spectrum, result[p]);
  }
  return result;
}

}  // namespace

void BankMotion::init(const Maths::TankConfig& tank, const Maths::RunData& run,
                      const Base::Params& params) {
  const double repeat = run.value();
  const double rate = params.read("rate", Base::Category::frequency);
  samples_ = Maths::sample_count(repeat, rate);
  rate_ = rate;
  depth_ = tank.paddle_depth;
  g_ = tank.g;
  delta_omega_ = Base::TwoPi / repeat;
  series_.clear();
  ready_ = true;
}

void BankMotion::require_memory(std::size_t paddles) const {
  if (paddles == 0 || samples_ == 0) return;
  const std::uint64_t spectrum = sizeof(std::complex<double>) * (samples_ / 2 + std::uint64_t{1});
  const std::uint64_t signal = sizeof(double) * std::uint64_t{samples_};
  // Each signal replaces its spectrum, so only one of the two exists, except for the paddle whose
  // transform is running.
  Base::require_memory(paddles * spectrum + signal + Base::transform_memory(samples_),
                       Base::compose("rate::", rate_, " Hz gives ", samples_,
                                     " samples for each of ", paddles, " paddles, which"));
}

std::vector<BankMotion::Spectrum> BankMotion::spectra(const Common::Paddles& paddles,
                                                      const Maths::FrontSet& fronts) const {
  const Common::Machine& machine = paddles.machine();
  const PaddleRow row = paddle_row(paddles);
  const double edge = machine.working_edge(depth_);
  const std::size_t count = row.angle.size();
  require_memory(count);

  // Harmonics above half the sampling rate cannot be sampled. They are left out.
  const std::size_t elements = samples_ == 0 ? 0 : samples_ / 2 + std::size_t{1};
  std::vector<Spectrum> result(count);
  for (Spectrum& spectrum : result) spectrum.resize(elements);

  Spectrum sums(count);  // one harmonic of all paddles
  for (std::size_t h = 0; h < fronts.slots.size(); ++h) {
    if (fronts.slots[h].empty()) continue;
    std::fill(sums.begin(), sums.end(), 0.0);
    const double k = Maths::knum(static_cast<double>(h) * delta_omega_, depth_, g_);
    const PaddleHarmonic harmonic(k, machine.ratio(k, depth_, edge), row.width);
    for (const Maths::HarmonicFront& front : fronts.slots[h]) {
      // Hosts rely on this message for a rate that is far too low.
      if (h > samples_ && reaches(row, harmonic, front)) {
        throw Base::compose("Index ", h, " out of range");
      }
      add_front(row, harmonic, front, sums.data());
    }
    if (h >= elements) continue;
    for (std::size_t p = 0; p < count; ++p) result[p][h] = sums[p];
  }
  return result;
}

void BankMotion::build(const Common::Paddles& paddles, const Maths::FrontSet& fronts) {
  if (!ready_) throw std::string("Trying to build paddle positions when not initialised");
  std::vector<Spectrum> amplitudes = spectra(paddles, fronts);

  clip_ = Maths::ClipStats{};
  const Common::Machine& machine = paddles.machine();
  clip_.limit = machine.get(Common::Machine::clip_limit, machine.signal_units());

  for (std::vector<double>& samples : signals(std::move(amplitudes), samples_)) {
    Base::Vector signal("", Base::Units(), std::move(samples));
    std::vector<Maths::ClipPeak> peaks;
    if (!signal.data.empty()) Maths::clip_scan(signal, clip_, peaks);
    series_.push_back(std::move(signal.data));
  }
}

void BankMotion::stats(Base::Params& out) const {
  out.clear();
  Maths::clip_report(clip_, out);
}

}  // namespace Synthesis
