#include "jobs/record_samples.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "base/units.h"
#include "jobs/asked_density.h"
#include "jobs/quantity_text.h"

namespace Jobs {
namespace {

bool is_time(const CsvColumn& column) {
  std::string name = column.name;
  for (char& c : name) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return name == "t" || name == "time";
}

bool is_even(const std::vector<double>& t) {
  const double length = t.back() - t.front();
  const double step = length / static_cast<double>(t.size() - 1);
  for (std::size_t i = 1; i < t.size(); ++i) {
    const double even = t.front() + static_cast<double>(i) * step;
    const bool fits =
        std::abs(t[i] - even) <= 1e-6 * length && std::abs(t[i] - t[i - 1] - step) <= 0.01 * step;
    if (!fits) return false;
  }
  return true;
}

// The row whose step differs most from the usual one.
std::size_t most_uneven_row(const std::vector<double>& t) {
  std::vector<double> steps;
  for (std::size_t i = 1; i < t.size(); ++i) steps.push_back(t[i] - t[i - 1]);
  std::vector<double> sorted = steps;
  const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
  std::nth_element(sorted.begin(), middle, sorted.end());
  const auto worst = std::max_element(steps.begin(), steps.end(), [&](double a, double b) {
    return std::abs(a - *middle) < std::abs(b - *middle);
  });
  return static_cast<std::size_t>(worst - steps.begin()) + 1;
}

}  // namespace

const CsvColumn* only_signal(const CsvTable& table) {
  const CsvColumn* found = nullptr;
  for (const CsvColumn& column : table.columns) {
    if (is_time(column)) continue;
    if (found != nullptr) return nullptr;
    found = &column;
  }
  return found;
}

double seconds_in(const CsvColumn& times) {
  if (times.units.empty()) return 1.0;
  Base::Units units;
  try {
    units = Base::resolve_units(times.units);
  } catch (const std::string&) {
    throw "column " + times.head + " has unknown units \"" + times.units + "\"";
  }
  try {
    return Base::factor(units, Base::default_units(Base::Category::time));
  } catch (const std::string&) {
    throw "column " + times.head + " is " + kind_of(units) + ", not a time";
  }
}

TimeColumn time_column(const CsvTable& table, const CsvColumn& signal) {
  TimeColumn result;
  for (const CsvColumn& column : table.columns) {
    if (&column == &signal || !is_time(column)) continue;
    result.name = column.name;
    const std::vector<double>& t = column.values;
    if (t.size() < 2 || !(t.back() > t.front())) return result;
    if (!is_even(t)) result.uneven_row = most_uneven_row(t);
    result.rate = static_cast<double>(t.size() - 1) / ((t.back() - t.front()) * seconds_in(column));
    return result;
  }
  return result;
}

std::size_t line_of_row(std::string_view text, const CsvTable& table, std::size_t row) {
  const bool has_heads = std::any_of(table.columns.begin(), table.columns.end(),
                                     [](const CsvColumn& column) { return !column.head.empty(); });
  std::size_t rows_left = row + (has_heads ? 1 : 0);
  for (std::size_t line = 1;; ++line) {
    const std::size_t end = text.find('\n');
    const std::string_view content = text.substr(0, end);
    const std::size_t first = content.find_first_not_of(" \t\r");
    const bool is_row = first != std::string_view::npos && content[first] != '#';
    if (is_row && rows_left-- == 0) return line;
    if (end == std::string_view::npos) return line;
    text.remove_prefix(end + 1);
  }
}

double record_variance(std::vector<double> samples, const Base::Params& params, double repeat) {
  const double scale = params.read("scale_ratio", Base::Category::unit);
  const double rate = params.read("rate", Base::Category::frequency) * std::sqrt(scale);
  const double ramp = params.read("ramp_time", Base::Category::time);
  const double wanted = std::floor(repeat * rate + 0.5);
  constexpr double most_samples = 1 << 27;
  // The library refuses such a record when it is built.
  if (!(wanted >= 1 && wanted <= most_samples)) return 0.0;
  const auto n = static_cast<std::size_t>(wanted);
  const auto overlap = static_cast<std::size_t>(std::floor(std::max(ramp, 0.0) * rate + 0.5));
  samples.resize(std::min(samples.size(), n + overlap));
  for (std::size_t i = n; i < samples.size(); ++i) samples[i - n] += samples[i];
  samples.resize(n);
  for (double& sample : samples) sample /= scale;
  return variance_of(samples);
}

}  // namespace Jobs
