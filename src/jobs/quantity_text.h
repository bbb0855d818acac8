// Values with units as people write them: "80 mm", "0.62 Hz", "-25 deg", "3.3".
#ifndef KELPBOX_JOBS_QUANTITY_TEXT_H_
#define KELPBOX_JOBS_QUANTITY_TEXT_H_

#include <string>
#include <string_view>

#include "base/units.h"

namespace Jobs {

struct QuantityText {
  double value = 0.0;
  Base::Units units;
};

// Blanks around the text and between number and units are ignored. Without units it is a plain
// number. Throws std::string: the text is not a number, the number is not finite, or the library's
// "Unknown units - ...".
QuantityText read_quantity(std::string_view text);

// "a length", "a frequency": the kind of the units, for messages.
std::string kind_of(Base::Units units);

// Units of the same kind that a tank is likely to need, for messages: "m, mm, cm, ft, in".
std::string usual_units(Base::Units units);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_QUANTITY_TEXT_H_
