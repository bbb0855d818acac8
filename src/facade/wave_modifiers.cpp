#include "facade/wave_modifiers.h"

#include "sea/angle_spread.h"
#include "sea/angle_sweep.h"
#include "sea/change.h"
#include "sea/phase_noise.h"
#include "sea/phase_random.h"

namespace Kelpbox {
namespace {

// Members of the enumeration `WaveMod`.
enum WaveMod : std::uint32_t {
  GainAdjust = 0,
  AngleSweep = 1,
  AngleSpread = 2,
  AngleChange = 4,
  PhaseRandom = 5,
  PhaseWNoise = 6,
  PhaseChange = 8,
};

}  // namespace

std::unique_ptr<Synthesis::Modifier> make_modifier(const Base::EnumValue& member,
                                                   const std::string& text) {
  switch (member.member) {
    case GainAdjust:
      return std::make_unique<Synthesis::GainChangeModifier>(text);
    case AngleSweep:
      return std::make_unique<Synthesis::AngleSweepModifier>(text);
    case AngleSpread:
      return std::make_unique<Synthesis::AngleSpreadModifier>(text);
    case AngleChange:
      return std::make_unique<Synthesis::AngleChangeModifier>(text);
    case PhaseRandom:
      return std::make_unique<Synthesis::PhaseRandomModifier>(text);
    case PhaseWNoise:
      return std::make_unique<Synthesis::PhaseWNoiseModifier>(text);
    case PhaseChange:
      return std::make_unique<Synthesis::PhaseChangeModifier>(text);
    default:
      throw std::string("Unexpected wave modifier in add_modifier");
  }
}

}  // namespace Kelpbox
