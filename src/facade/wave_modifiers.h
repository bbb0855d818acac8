// The modifier classes that a host can request by name.
#ifndef KELPBOX_FACADE_WAVE_MODIFIERS_H_
#define KELPBOX_FACADE_WAVE_MODIFIERS_H_

#include <memory>
#include <string>

#include "base/quantity.h"
#include "sea/modifier.h"

namespace Kelpbox {

// Creates the modifier for a member of the enumeration `WaveMod` from its formula text. Throws
// std::string "Unexpected wave modifier in add_modifier" for a member that has no class, such as
// "AngleSet" and "PhaseSet".
std::unique_ptr<Synthesis::Modifier> make_modifier(const Base::EnumValue& member,
                                                   const std::string& text);

}  // namespace Kelpbox

#endif  // KELPBOX_FACADE_WAVE_MODIFIERS_H_
