// Texts of several formulas with "#" between them, and what components and modifiers ask of theirs.
//
// A component's text is "limit # function # limit # function # limit ...": limits at even places,
// functions at odd ones, and function i holds between limit i - 1 and limit i. A modifier's text
// is the other way about, "function # limit # function ...". Failures are thrown as std::string.
#ifndef KELPBOX_SEA_PIECEWISE_H_
#define KELPBOX_SEA_PIECEWISE_H_

#include <string>
#include <vector>

#include "base/units.h"
#include "expression/function.h"

namespace Synthesis {

using Functions = std::vector<Expression::Function>;

// The pieces of the text, from the left, with their blanks. What stands behind the last "#" is
// always a piece, also when it is empty.
std::vector<std::string> split_pieces(const std::string& text);

// One function from each piece. Throws what Function::parse throws.
Functions parse_pieces(const std::vector<std::string>& pieces);

// The functions of a component's text. Throws "There must be at least 2  sub expressions", "There
// must be an odd number of sub expressions".
Functions parse_component_text(const std::string& text);

// What the limits are measured in: frequency or time. Throws "Unsupported limit units",
// "Inconsistent limit units".
Base::UnitCategory find_limit_units(const Functions& functions);

// What the functions return: variance, length_time or length. Throws "Unsupported output units",
// "Inconsistent output units".
Base::UnitCategory find_output_units(const Functions& functions);

// What the functions take: frequency or time; time when they are all constants. Throws
// "Unsupported input units", "Inconsistent input units".
Base::UnitCategory find_input_units(Functions& functions);

// Throws "Non constant separator function".
void check_constant_limits(Functions& functions);

// The functions of a modifier's text; none for an empty one. Behind a last "#" an empty piece is
// none, unlike in a component's text. Throws "Even number of functions in modifier expression",
// "Incorrect output units in expression ...", "Incorrect limit units in expression ...".
Functions parse_modifier_text(const std::string& text, Base::UnitCategory limit_units,
                              Base::UnitCategory output_units);

}  // namespace Synthesis

#endif  // KELPBOX_SEA_PIECEWISE_H_
