#include "sea/phase_noise.h"

#include <cmath>
#include <complex>
#include <cstdint>
#include <utility>
#include <vector>

#include "base/compose.h"
#include "base/data_set.h"
#include "base/memory.h"
#include "maths/sample_count.h"
#include "sea/seed.h"

namespace Synthesis {

namespace {

namespace Category = Base::Category;

// Truncated, not rounded, on purpose, and of that the low 32 bits: hosts depend on both.
std::uint32_t noise_count(double repeat, double rate) {
  const double samples = repeat * rate;
  const bool fits = samples < 18446744073709551616.0;  // 2^64
  return Maths::usable_count(fits ? std::fmod(std::trunc(samples), 4294967296.0) : samples, repeat,
                             rate);
}

Base::Vector white_noise(std::uint32_t n, Maths::PureRandom generator) {
  // The variance of an even draw between -s and s is s^2 / 3. With n / 4 of it, the mean square
  // of each harmonic's one-sided amplitude is 1.
  const double s = std::sqrt(n * 0.75);
  std::vector<double> samples(n);
  for (double& sample : samples) {
    sample = generator.symmetric() * s;
    generator.advance();
  }
  return {"units", Base::default_units(Category::unit), std::move(samples)};
}

}  // namespace

PhaseWNoiseModifier::PhaseWNoiseModifier(const std::string& text)
    : Modifier(phase, "PhaseModifier", Category::frequency, Category::unit, text) {}

void PhaseWNoiseModifier::on_query(Base::Params& out) {
  query_seed(out);
  out.declare("rate", Base::default_units(Category::frequency));
}

void PhaseWNoiseModifier::on_set(Base::Params& in, Base::Params& stored) {
  set_seed(in, stored);
  stored.merge(*in.find("rate"));
}

void PhaseWNoiseModifier::on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                                      const RunContext& context) {
  const Maths::PureRandom generator = make_generator(stored, 5);
  const double rate = stored.read("rate", Category::frequency);
  const std::uint32_t n = noise_count(context.run.value(), rate);
  Base::require_memory(Maths::signal_memory(n),
                       Base::compose("rate::", rate, " Hz gives ", n, " samples of noise, which"));
  Base::DataSet noise(white_noise(n, generator), Base::Quantity(rate, Category::frequency));
  const std::vector<std::complex<double>> X = std::move(noise).take_freq().data;
  for (std::uint64_t h = context.run.min_harmonic(); h < fronts.slots.size() && h < X.size(); ++h) {
    const double factor = std::abs(X[h]);
    const double drawn = std::atan2(X[h].imag(), X[h].real());
    for (Maths::HarmonicFront& front : fronts.slots[h]) {
      front.amp *= factor;
      front.phase = drawn;
    }
  }
}

}  // namespace Synthesis
