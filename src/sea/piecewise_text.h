// The texts of piecewise expressions: formulas with "#" between them.
//
// Blanks belong to the formulas. The parsers throw std::string: their own messages, and what
// Expression::Function throws for a bad formula.
#ifndef KELPBOX_SEA_PIECEWISE_TEXT_H_
#define KELPBOX_SEA_PIECEWISE_TEXT_H_

#include <string>
#include <vector>

#include "base/units.h"
#include "sea/piecewise.h"

namespace Synthesis {

// The text between each "#" and the next. A trailing "#" is followed by an empty piece.
std::vector<std::string> split_pieces(const std::string& text);

// "limit # function # limit # function # limit ...", for components. Limits are frequencies or
// times. Functions take a frequency or a time, and return a variance density, an amplitude density
// or a length. The messages and their order are in docs/components.md.
Piecewise parse_component_text(const std::string& text);

// "function # limit # function # limit # function ...", for modifiers, where the limits and what
// the functions take are of one kind. An empty text gives no functions. Unlike in a component's
// text, a trailing "#" is ignored. The messages and their order are in docs/modifiers.md.
Piecewise parse_modifier_text(const std::string& text, Base::UnitCategory limit_units,
                              Base::UnitCategory output_units);

}  // namespace Synthesis

#endif  // KELPBOX_SEA_PIECEWISE_TEXT_H_
