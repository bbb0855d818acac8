#include "outputs/packed.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <utility>

#include "outputs/deflated.h"

namespace Outputs {
namespace {

using Counts = std::vector<std::int16_t>;
using Shape = std::vector<std::size_t>;

// How far apart neighbours along an axis are, and how many values lie in one run along it.
struct Axis {
  std::size_t inner = 1;
  std::size_t block = 1;
};

Axis axis_of(const Shape& shape, std::size_t axis) {
  Axis made;
  for (std::size_t i = axis + 1; i < shape.size(); ++i) made.inner *= shape[i];
  made.block = made.inner * shape[axis];
  return made;
}

std::int16_t difference(const Counts& counts, std::size_t from, std::size_t to) {
  // Modulo 2^16: conversions of unsigned integers wrap.
  return static_cast<std::int16_t>(
      static_cast<std::uint16_t>(static_cast<std::uint16_t>(counts[to]) - counts[from]));
}

// The sum of all magnitudes, with differences along the axis.
std::uint64_t size_along(const Counts& counts, const Axis& axis) {
  std::uint64_t sum = 0;
  for (std::size_t start = 0; start < counts.size(); start += axis.block) {
    for (std::size_t i = start; i < start + axis.inner; ++i) sum += std::abs(int{counts[i]});
    for (std::size_t i = start + axis.inner; i < start + axis.block; ++i) {
      sum += std::abs(int{difference(counts, i - axis.inner, i)});
    }
  }
  return sum;
}

int best_axis(const Counts& counts, const Shape& shape) {
  int best = -1;
  std::uint64_t least = 0;
  for (const std::int16_t count : counts) least += std::abs(int{count});
  for (std::size_t axis = 0; axis < shape.size(); ++axis) {
    const std::uint64_t size = size_along(counts, axis_of(shape, axis));
    if (size >= least) continue;
    least = size;
    best = static_cast<int>(axis);
  }
  return best;
}

// From the end, so that each count is still there when the next one needs it.
void differentiate(Counts& counts, const Axis& axis) {
  for (std::size_t start = 0; start < counts.size(); start += axis.block) {
    for (std::size_t i = start + axis.block; i-- > start + axis.inner;) {
      counts[i] = difference(counts, i - axis.inner, i);
    }
  }
}

// First the low bytes of all counts, then their high bytes.
std::string planes(const Counts& counts) {
  std::string bytes(2 * counts.size(), '\0');
  for (std::size_t i = 0; i < counts.size(); ++i) {
    const auto count = static_cast<std::uint16_t>(counts[i]);
    bytes[i] = static_cast<char>(count & 0xFFU);
    bytes[counts.size() + i] = static_cast<char>(count >> 8U);
  }
  return bytes;
}

}  // namespace

double step_for(double largest, double counts) { return largest > 0.0 ? largest / counts : 1.0; }

std::int16_t count_of(double number, double step) {
  if (std::isnan(number)) return nan_count;
  return static_cast<std::int16_t>(std::clamp(std::round(number / step), -32767.0, 32767.0));
}

Packed pack(Counts counts, Shape shape, double step) {
  Packed packed{std::move(shape), step, -1, ""};
  packed.differences = best_axis(counts, packed.shape);
  if (packed.differences >= 0) {
    differentiate(counts, axis_of(packed.shape, static_cast<std::size_t>(packed.differences)));
  }
  packed.data = base64(deflated(planes(counts)));
  return packed;
}

Packed pack_numbers(const std::vector<double>& numbers, Shape shape) {
  double largest = 0.0;
  for (const double number : numbers) largest = std::max(largest, std::fabs(number));
  const double step = step_for(largest);
  Counts counts;
  counts.reserve(numbers.size());
  for (const double number : numbers) counts.push_back(count_of(number, step));
  return pack(std::move(counts), std::move(shape), step);
}

nlohmann::ordered_json json_of(const Packed& packed) {
  return {{"shape", packed.shape},
          {"step", packed.step},
          {"differences", packed.differences},
          {"data", packed.data}};
}

}  // namespace Outputs
