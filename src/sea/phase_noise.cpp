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

// Used if the host chooses no seed.
constexpr std::uint32_t default_seed = 5;

// Truncated, not rounded, and then the low 32 bits: hosts rely on both.
std::uint32_t noise_count(double repeat, double rate) {
  const double samples = repeat * rate;
  constexpr double two_to_32 = 4294967296.0;
  const bool fits = samples < two_to_32 * two_to_32;
  return Maths::usable_count(fits ? std::fmod(std::trunc(samples), two_to_32) : samples, repeat,
                             rate);
}

Base::Vector white_noise(std::uint32_t n, Maths::PureRandom generator) {
  // A uniform draw between -s and s has the variance s^2 / 3. Here that is n / 4, which gives each
  // harmonic a one-sided amplitude with a mean square of 1.
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
  const Maths::PureRandom generator = make_generator(stored, default_seed);
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
