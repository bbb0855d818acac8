// A measured record of the surface, in a table.
#ifndef KELPBOX_JOBS_RECORD_SAMPLES_H_
#define KELPBOX_JOBS_RECORD_SAMPLES_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/params.h"
#include "jobs/csv_table.h"

namespace Jobs {

// The only column that is not the time, or null if there are several.
const CsvColumn* only_signal(const CsvTable& table);

// The seconds in one of the units of a column of times, whose head may leave them out. Throws
// std::string with the head for units that are not known, or not those of a time.
double seconds_in(const CsvColumn& times);

struct TimeColumn {
  std::string name;
  double rate = 0.0;                      // Hz; 0 without a time column
  std::optional<std::size_t> uneven_row;  // where the times are least even, if they are not
};

// The sampling rate from a column named "t" or "time", in seconds unless its head has other units.
// A time may differ from an even spacing by a millionth of the record, and a step by a hundredth:
// written times are rounded. `signal` is not taken for a time. Throws as seconds_in.
TimeColumn time_column(const CsvTable& table, const CsvColumn& signal);

// The line in the text of a row of the table, from 1.
std::size_t line_of_row(std::string_view text, const CsvTable& table, std::size_t row);

// The variance about the mean in m2 of what a `record` makes of the samples in the repeat time:
// scaled, cut or filled up with zeros, and closed over the ramp. `params` are those of the
// library's component, the repeat time is in s.
double record_variance(std::vector<double> samples, const Base::Params& params, double repeat);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_RECORD_SAMPLES_H_
