// The names of the library's units, for messages and lists.
#ifndef KELPBOX_CLI_UNIT_NAMES_H_
#define KELPBOX_CLI_UNIT_NAMES_H_

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/units.h"

namespace Cli {

// The names of all units of this kind, aliases included, in the order of the table.
std::vector<std::string> units_of_kind(Base::UnitCategory category);

// "length" for a category: the kind without its article.
std::string kind_name(Base::UnitCategory category);

// The unit that a text probably means: a spelt-out word ("metres", "hertz"), another way of writing
// an exponent ("m/s^2"), or the nearest name.
std::optional<std::string> likely_unit(std::string_view text);

}  // namespace Cli

#endif  // KELPBOX_CLI_UNIT_NAMES_H_
