#include "cli/probe_records.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/units.h"
#include "cli/probe_place.h"
#include "jobs/csv_table.h"
#include "jobs/input_files.h"
#include "jobs/quantity_text.h"
#include "jobs/record_samples.h"

namespace Cli {
namespace {

namespace Category = Base::Category;

// An option in the base unit of its category.
double option_value(const char* name, const std::string& text, Base::UnitCategory category) {
  try {
    const Jobs::QuantityText value = Jobs::read_quantity(text);
    if (Base::category_of(value.units) == Category::unit) {
      throw fmt::format("needs units, such as \"{:.10g} {}\"", value.value,
                        Base::units_text(Base::default_units(category)));
    }
    return value.value * Base::factor_to_base(value.units, category);
  } catch (const std::string& fault) {
    throw fmt::format("{} \"{}\": {}", name, text, fault);
  }
}

bool is_time(const Jobs::CsvColumn& column) {
  return column.name == "t" || column.name == "T" || column.name == "time" ||
         column.name == "Time" || column.name == "TIME";
}

struct Window {
  std::size_t first;
  std::size_t last;  // the one after it
};

class Reader {
 public:
  Reader(const std::string& file, const AnalyseOptions& options) : options_(options) {
    records_.file = file;
  }

  ProbeRecords read() {
    const std::string text = contents();
    table_ = Jobs::read_csv(text, records_.file);
    const std::vector<const Jobs::CsvColumn*> columns = probe_columns();
    find_rate(text, *columns.front());
    require_finite_times(columns.front()->values.size());
    const Window cut = window(columns.front()->values.size());
    for (std::size_t i = 0; i < columns.size(); ++i) add_probe(*columns[i], i, cut);
    return std::move(records_);
  }

 private:
  template <typename... Parts>
  [[noreturn]] void fail(fmt::format_string<Parts...> form, Parts&&... parts) const {
    throw records_.file + ": " + fmt::format(form, std::forward<Parts>(parts)...);
  }

  std::string contents() const {
    try {
      return Jobs::read_file(records_.file, Jobs::largest_record);
    } catch (const std::string& fault) {
      throw records_.file + " " + fault;
    }
  }

  std::vector<const Jobs::CsvColumn*> probe_columns() const {
    std::vector<const Jobs::CsvColumn*> columns;
    for (const std::string& wanted : options_.columns) {
      try {
        columns.push_back(&Jobs::column_of(table_, wanted));
      } catch (const std::string& fault) {
        fail("{}", fault);
      }
      if (is_time(*columns.back())) {
        fail("column \"{}\" holds the times; choose the columns of the probes", wanted);
      }
    }
    if (columns.empty()) {
      for (const Jobs::CsvColumn& column : table_.columns) {
        if (!is_time(column)) columns.push_back(&column);
      }
    }
    if (columns.empty()) fail("there is no column besides the time");
    if (!options_.probes.empty() && options_.probes.size() != columns.size()) {
      fail("--probe gives {} position{}, but there {} {} probe{}", options_.probes.size(),
           options_.probes.size() == 1 ? "" : "s", columns.size() == 1 ? "is" : "are",
           columns.size(), columns.size() == 1 ? "" : "s");
    }
    return columns;
  }

  void find_rate(const std::string& text, const Jobs::CsvColumn& signal) {
    double span = 0.0;
    for (const Jobs::CsvColumn& column : table_.columns) {
      if (!is_time(column)) continue;
      span = column.values.back() - column.values.front();
      try {
        records_.start = column.values.front() * Jobs::seconds_in(column);
      } catch (const std::string& fault) {
        fail("{}", fault);
      }
      break;  // the rate is that of the first one too
    }
    if (!options_.rate.empty()) {
      records_.rate = option_value("--rate", options_.rate, Category::frequency);
      if (!(records_.rate > 0.0)) throw "--rate \"" + options_.rate + "\" is not above 0";
      return;
    }
    const Jobs::TimeColumn time = Jobs::time_column(table_, signal);
    if (time.name.empty()) {
      fail(
          "there is no column of times; call it \"time [s]\", or give the rate, as in --rate \"50 "
          "Hz\"");
    }
    if (time.uneven_row) {
      throw fmt::format(
          "{}:{}: the times are not evenly spaced; if they are only rounded, give the "
          "rate, as in --rate \"50 Hz\"",
          records_.file, Jobs::line_of_row(text, table_, *time.uneven_row));
    }
    if (signal.values.size() < 2) fail("there is only one time");
    records_.rate = time.rate;
    if (!(span > 0.0)) fail("the times do not increase");
  }

  void require_finite_times(std::size_t count) const {
    const double end = records_.start + static_cast<double>(count) / records_.rate;
    if (std::isfinite(records_.rate) && std::isfinite(records_.start) && std::isfinite(end)) return;
    fail("the times or the rate are too large or too small to compute with");
  }

  // The samples that the library takes between two times (docs/analysis.md).
  Window window(std::size_t count) {
    const double begin = records_.start;
    const double end = begin + static_cast<double>(count) / records_.rate;
    const auto bound = [&](const char* name, const std::string& option, double fallback) {
      if (option.empty()) return fallback;
      const double time = option_value(name, option, Category::time);
      const double half_a_sample = 0.5 / records_.rate;
      if (!(time >= begin - half_a_sample && time <= end + half_a_sample)) {
        fail("{} \"{}\" is outside the record, which lasts from {:g} s to {:g} s", name, option,
             begin, end);
      }
      return time;
    };
    const double start = bound("--start", options_.start, begin);
    const double stop = bound("--stop", options_.stop, end);
    const auto sample = [&](double time) {
      const double samples = std::floor(std::max(time - begin, 0.0) * records_.rate + 0.5);
      return static_cast<std::size_t>(std::min(samples, static_cast<double>(count)));
    };
    const Window found{sample(start), sample(stop)};
    if (found.first >= found.last) fail("there is no sample between --start and --stop");
    records_.start = begin + static_cast<double>(found.first) / records_.rate;
    return found;
  }

  void add_probe(const Jobs::CsvColumn& column, std::size_t place, const Window& cut) {
    Probe probe;
    locate(column, place, probe);
    double factor = 0.0;
    try {
      const Base::Units units = elevation_units(column, options_.units, table_.comments);
      factor = Base::factor(units, Base::default_units(Category::length));
    } catch (const std::string& fault) {
      fail("column {} {}", column.head.empty() ? fmt::format("{}", place + 1) : column.head, fault);
    }
    probe.samples.assign(column.values.begin() + static_cast<std::ptrdiff_t>(cut.first),
                         column.values.begin() + static_cast<std::ptrdiff_t>(cut.last));
    const auto [least, most] = std::minmax_element(probe.samples.begin(), probe.samples.end());
    if (*least == *most) fail("the record of {} is constant", probe.name);
    double sum = 0.0;
    for (double& sample : probe.samples) sum += sample *= factor;
    probe.mean = sum / static_cast<double>(probe.samples.size());
    double squares = 0.0;
    for (double& sample : probe.samples) {
      sample -= probe.mean;
      squares += sample * sample;
    }
    if (!std::isfinite(squares)) fail("the record of {} is too large to compute with", probe.name);
    records_.probes.push_back(std::move(probe));
  }

  void locate(const Jobs::CsvColumn& column, std::size_t place, Probe& probe) const {
    ProbePlace found;
    try {
      found = place_of(column, table_.comments);
      if (!options_.probes.empty()) {
        const ProbePlace given = place_in(options_.probes[place]);
        if (!given.x) throw std::string("x is missing, as in \"x=9 m,y=0 m\"");
        found = {given.name.empty() ? found.name : given.name, given.x, given.y};
      }
    } catch (const std::string& fault) {
      fail("the position of probe {}: {}", place + 1, fault);
    }
    probe.placed = found.x.has_value();
    probe.x = found.x.value_or(0.0);
    probe.y = found.y.value_or(0.0);
    probe.name = found.name;
    if (probe.name.empty()) {
      probe.name =
          probe.placed ? fmt::format("x = {:.2f} m", probe.x) : fmt::format("probe {}", place + 1);
    }
  }

  const AnalyseOptions& options_;
  Jobs::CsvTable table_;
  ProbeRecords records_;
};

}  // namespace

bool ProbeRecords::placed() const {
  return std::all_of(probes.begin(), probes.end(), [](const Probe& probe) { return probe.placed; });
}

ProbeRecords read_probe_records(const std::string& file, const AnalyseOptions& options) {
  return Reader(file, options).read();
}

}  // namespace Cli
