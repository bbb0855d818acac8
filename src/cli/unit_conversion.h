// A quantity in other units, as the library converts it.
#ifndef KELPBOX_CLI_UNIT_CONVERSION_H_
#define KELPBOX_CLI_UNIT_CONVERSION_H_

#include <string>
#include <vector>

namespace Cli {

struct InUnits {
  double value = 0.0;
  std::string units;  // empty for a plain number
};

struct Conversion {
  InUnits given;
  std::string kind;              // "velocity"
  std::vector<InUnits> results;  // one, or all alternatives
  std::vector<std::string> remarks;
};

// Thrown for a quantity or units that cannot be used.
struct BadConversion {
  std::string fault;
  std::string help;  // may be empty
};

// `quantity` is a number with units, or units alone for one of them. Without `to`, the results are
// the alternatives that the library offers, or all units of the kind where it offers none.
Conversion convert(const std::string& quantity, const std::string& to);

// Up to ten significant digits, then the units: "0.9144 m/s".
std::string text_of(const InUnits& quantity);

}  // namespace Cli

#endif  // KELPBOX_CLI_UNIT_CONVERSION_H_
