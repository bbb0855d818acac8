// Where a probe stands and the units of its record, as heads, comments and options write them.
#ifndef KELPBOX_CLI_PROBE_PLACE_H_
#define KELPBOX_CLI_PROBE_PLACE_H_

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/units.h"
#include "jobs/csv_table.h"

namespace Cli {

struct ProbePlace {
  std::string name;         // what precedes the position
  std::optional<double> x;  // m
  std::optional<double> y;
};

// Reads "probe 1 x=9.30 m y=0.4 m" and "x = 9.3, y = 40 cm". Lengths without units are metres.
// Throws std::string for a position that is no length.
ProbePlace place_in(std::string_view text);

// The same for the head of a column. A head that is a number is x: in metres, or in the units of a
// comment such as "distance from the piston in mm". A whole number without such a comment is only
// the number of the probe.
ProbePlace place_of(const Jobs::CsvColumn& column, const std::vector<std::string>& comments);

// The units of a column's elevations: those of its head, or the given ones, or those of a comment
// such as "surface elevation in mm". Throws std::string if there are none, or if they are no
// length.
Base::Units elevation_units(const Jobs::CsvColumn& column, const std::string& given,
                            const std::vector<std::string>& comments);

}  // namespace Cli

#endif  // KELPBOX_CLI_PROBE_PLACE_H_
