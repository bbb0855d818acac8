// Arrays of numbers as 16-bit counts, compressed: how a page holds them (report/src/data.ts).
#ifndef KELPBOX_OUTPUTS_PACKED_H_
#define KELPBOX_OUTPUTS_PACKED_H_

#include <cstddef>
#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

namespace Outputs {

struct Packed {
  std::vector<std::size_t> shape;
  double step = 1.0;     // number = count * step
  int differences = -1;  // the axis along which differences are stored; -1 for none
  std::string data;      // base64 of the zlib stream
};

// The count that stands for NaN.
inline constexpr std::int16_t nan_count = -32768;

// The step with which the largest magnitude is `counts`; 1 if all numbers are 0 or NaN.
double step_for(double largest, double counts = 32000.0);

// The count nearest to the number.
std::int16_t count_of(double number, double step);

// Packs counts in the order of the shape, whose last axis varies fastest. Stores differences along
// the axis where they are smallest.
Packed pack(std::vector<std::int16_t> counts, std::vector<std::size_t> shape, double step);

// The same for numbers, with the largest magnitude as 32000 counts.
Packed pack_numbers(const std::vector<double>& numbers, std::vector<std::size_t> shape);

nlohmann::ordered_json json_of(const Packed& packed);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_PACKED_H_
