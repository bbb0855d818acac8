// The classes of modifiers that a host may ask for by name.
#ifndef KELPBOX_FACADE_WAVE_MODIFIERS_H_
#define KELPBOX_FACADE_WAVE_MODIFIERS_H_

#include <memory>
#include <string>

#include "base/quantity.h"
#include "sea/modifier.h"

namespace Kelpbox {

// Makes the modifier of a member of `WaveMod` from its text. Throws std::string "Unexpected wave
// modifier in add_modifier" for a member without a class, "AngleSet" and "PhaseSet" among them.
std::unique_ptr<Synthesis::Modifier> make_modifier(const Base::EnumValue& member,
                                                   const std::string& text);

}  // namespace Kelpbox

#endif  // KELPBOX_FACADE_WAVE_MODIFIERS_H_
