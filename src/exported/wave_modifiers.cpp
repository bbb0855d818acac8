#include "exported/wave_modifiers.h"

#include "base/enumerations.h"

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
                                                   const std::string&) {
  switch (member.member) {
    case GainAdjust:
    case AngleSweep:
    case AngleSpread:
    case AngleChange:
    case PhaseRandom:
    case PhaseWNoise:
    case PhaseChange:
      throw "Wave modifier " + Base::member_name(member) + " is not available yet";
    default:
      throw std::string("Unexpected wave modifier in add_modifier");
  }
}

}  // namespace Kelpbox
