#include "analysis/probes.h"

#include <algorithm>
#include <cmath>

#include "analysis/total_order.h"
#include "base/units.h"

namespace Analysis {

ProbeRow locate_probes(const std::vector<Record>& sets, double direction) {
  const double s = std::sin(direction);
  const double c = std::cos(direction);
  double sum_x = 0.0;
  ProbeRow row;
  for (const Record& set : sets) {
    const double x = set.param("x").get(Base::Category::length);
    const double y = set.param("y").get(Base::Category::length);
    sum_x += x;
    const auto index = static_cast<std::uint32_t>(row.records.size());
    row.records.push_back({index, s * y + c * x, {}});
  }
  row.mean_x = sum_x / static_cast<double>(row.records.size());
  return row;
}

void sort_by_position(std::vector<ProbeRecord>& records) {
  std::ranges::stable_sort(records, TotalOrder(), &ProbeRecord::position);
}

std::uint32_t independent_probes(const std::vector<ProbeRecord>& records, double k) {
  constexpr double least_phase = 0.1;  // radians
  std::uint32_t count = 1;
  double last = records.front().position;
  for (const ProbeRecord& record : records) {
    if (record.position - last > least_phase / k) {
      ++count;
      last = record.position;
    }
  }
  return count;
}

}  // namespace Analysis
