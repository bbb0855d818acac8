#include "sea/phase_random.h"

#include <cstdint>
#include <vector>

#include "base/constants.h"
#include "sea/seed.h"

namespace Synthesis {

namespace {

// Used if the host chooses no seed.
constexpr std::uint32_t default_seed = 4;

}  // namespace

PhaseRandomModifier::PhaseRandomModifier(const std::string& text)
    : Modifier(phase, "PhaseModifier", Base::Category::frequency, Base::Category::unit, text) {}

void PhaseRandomModifier::on_query(Base::Params& out) { query_seed(out); }

void PhaseRandomModifier::on_set(Base::Params& in, Base::Params& stored) { set_seed(in, stored); }

void PhaseRandomModifier::on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                                      const RunContext&) {
  Maths::PureRandom generator = make_generator(stored, default_seed);
  for (std::vector<Maths::HarmonicFront>& slot : fronts.slots) {
    for (Maths::HarmonicFront& front : slot) {
      front.phase = generator.symmetric() * Base::Pi;
      generator.advance();
    }
  }
}

}  // namespace Synthesis
