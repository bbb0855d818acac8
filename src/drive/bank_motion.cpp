#include "drive/bank_motion.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "base/constants.h"
#include "base/data_set.h"
#include "base/quantity.h"
#include "base/units.h"
#include "drive/paddle_spectrum.h"
#include "maths/dispersion.h"
#include "maths/sample_count.h"
#include "maths/wavemaker_ratio.h"

namespace Synthesis {
namespace {

// The depth of the paddle's working edge below the water line.
double working_edge(const Common::Machine& machine, double depth) {
  switch (machine.dimension_type.number) {
    case Common::Machine::DimensionType_enum::ToBottom:
      return depth - machine.critical_dimension;
    case Common::Machine::DimensionType_enum::ToSurface:
      return machine.critical_dimension;
    default:
      throw std::string("Unsupported critical dimension type found");
  }
}

double transfer_ratio(const Common::Machine& machine, double k, double depth, double edge) {
  switch (machine.type()) {
    case Common::Machine::flap:
      return Maths::flap_ratio(k, depth, edge);
    case Common::Machine::piston:
      return Maths::piston_ratio(k, depth, edge);
    default:
      throw std::string("Unsupported type of machine found");
  }
}

Base::Units data_units(const Common::Machine& machine) {
  switch (machine.type()) {
    case Common::Machine::flap:
      return Base::default_units(Base::Category::angle);
    case Common::Machine::piston:
      return Base::default_units(Base::Category::length);
    default:
      throw std::string("Unsupported type of machine found");
  }
}

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
  const std::size_t samples = Maths::sample_count(repeat, rate);
  rate_ = rate;
  depth_ = tank.paddle_depth;
  g_ = tank.g;
  delta_omega_ = Base::TwoPi / repeat;
  spectrum_ = Base::Cvector("freq", Base::default_units(Base::Category::length),
                            std::vector<std::complex<double>>(samples));
  series_.clear();
  ready_ = true;
}

std::vector<std::complex<double>> BankMotion::amplitudes(const Common::Paddles& paddles,
                                                         const Maths::FrontSet& fronts) const {
  const Common::Machine& machine = paddles.machine();
  const PaddleRow row = paddle_row(paddles);
  const double edge = working_edge(machine, depth_);
  const std::size_t count = row.angle.size();
  const std::size_t samples = spectrum_.data.size();

  std::vector<std::complex<double>> sums(fronts.slots.size() * count);
  for (std::size_t h = 0; h < fronts.slots.size(); ++h) {
    if (fronts.slots[h].empty()) continue;
    const double k = Maths::knum(static_cast<double>(h) * delta_omega_, depth_, g_);
    const PaddleHarmonic harmonic(k, transfer_ratio(machine, k, depth_, edge), row.width);
    for (const Maths::HarmonicFront& front : fronts.slots[h]) {
      // Beyond the end a spectrum has no such entry, and its accessor throws.
      if (h > samples && reaches(row, harmonic, front)) static_cast<void>(spectrum_.at(h));
      add_front(row, harmonic, front, sums.data() + h * count);
    }
  }
  return sums;
}

void BankMotion::build(const Common::Paddles& paddles, const Maths::FrontSet& fronts) {
  if (!ready_) throw std::string("Trying to build paddle positions when not initialised");
  const std::size_t count = paddles.pad_pos.size();
  const std::vector<std::complex<double>> sums = amplitudes(paddles, fronts);

  clip_ = Maths::ClipStats{};
  const Common::Machine& machine = paddles.machine();
  clip_.limit = machine.get(Common::Machine::clip_limit, data_units(machine));

  const std::size_t harmonics = std::min(fronts.slots.size(), spectrum_.data.size());
  Base::Cvector spectrum = spectrum_;
  for (std::size_t p = 0; p < count; ++p) {
    if (spectrum_.data.empty()) {
      series_.emplace_back();
      continue;
    }
    for (std::size_t h = 0; h < harmonics; ++h) spectrum.data[h] = sums[h * count + p];
    Base::DataSet signal(spectrum, Base::Quantity(rate_, Base::Category::frequency));
    const Base::Vector& samples = signal.time();
    // Only counted: what passes the limit stays in the signal.
    std::vector<Maths::ClipPeak> peaks;
    Maths::clip_scan(samples, clip_, peaks);
    series_.push_back(samples.data);
  }
}

void BankMotion::stats(Base::Params& out) const {
  out.clear();
  Maths::clip_report(clip_, out);
}

}  // namespace Synthesis
