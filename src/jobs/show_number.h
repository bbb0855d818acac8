// Numbers as people read them: with the digits and the units that they deserve.
#ifndef KELPBOX_JOBS_SHOW_NUMBER_H_
#define KELPBOX_JOBS_SHOW_NUMBER_H_

#include <string>

namespace Jobs {

enum class Zeros { keep, drop };

// Rounded to that many significant digits, without an exponent from 1e-6 to 1e9: "80.0", "0.19",
// "12800". Integer digits beyond them become 0. `drop` removes zeros after the point: "80".
std::string show_number(double value, int digits, Zeros zeros = Zeros::keep);

// With units. A length, a stroke in radians and their rates in base units take the prefix milli
// where they are below 1, and a variance below 1 m2 is in mm2: "80.0 mm", "43 mrad", "400 mm2".
// Other units are kept, and "1" is not shown.
std::string show_quantity(double value, const std::string& units, int digits,
                          Zeros zeros = Zeros::keep);

// A direction or a spread given in radians, in degrees with one decimal place: "15.0 deg".
std::string show_direction(double radians);

// A time in s, with the decimal places that find it in a record: "0.96 s", "122.4 s".
std::string show_time(double seconds);

// A share as per cent: "0.6 %", "2.0 %" or "2 %", "12 %".
std::string show_share(double share, Zeros zeros = Zeros::keep);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_SHOW_NUMBER_H_
