// The data of a report page, as a reader unpacks it.
#ifndef KELPBOX_TESTS_OUTPUTS_PAGE_DATA_H_
#define KELPBOX_TESTS_OUTPUTS_PAGE_DATA_H_

#include <zlib.h>

#include <cmath>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <vector>

namespace Testing {

using Json = nlohmann::ordered_json;

inline std::string from_base64(const std::string& text) {
  const std::string digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string bytes;
  unsigned bits = 0;
  int count = 0;
  for (const char each : text) {
    if (each == '=') break;
    const std::size_t digit = digits.find(each);
    if (digit == std::string::npos) throw std::runtime_error("not base64");
    bits = (bits << 6U) | static_cast<unsigned>(digit);
    count += 6;
    if (count < 8) continue;
    count -= 8;
    bytes += static_cast<char>((bits >> static_cast<unsigned>(count)) & 0xFFU);
  }
  return bytes;
}

// The counts of a packed array. Goes through all indices instead of runs along an axis.
inline std::vector<int> counts_of(const Json& packed) {
  const std::vector<std::size_t> shape = packed.at("shape");
  std::size_t size = 1;
  for (const std::size_t length : shape) size *= length;
  const std::string stream = from_base64(packed.at("data").get<std::string>());
  std::string bytes(2 * size, '\0');
  uLongf length = bytes.size();
  if (uncompress(reinterpret_cast<Bytef*>(bytes.data()), &length,
                 reinterpret_cast<const Bytef*>(stream.data()), stream.size()) != Z_OK ||
      length != bytes.size()) {
    throw std::runtime_error("not the stream of this shape");
  }
  const int differences = packed.at("differences");
  std::vector<int> counts(size);
  for (std::size_t i = 0; i < size; ++i) {
    int count =
        static_cast<unsigned char>(bytes[i]) + 256 * static_cast<unsigned char>(bytes[size + i]);
    if (differences >= 0) {
      std::size_t stride = 1;
      for (std::size_t a = shape.size(); a-- > static_cast<std::size_t>(differences) + 1;) {
        stride *= shape[a];
      }
      const std::size_t index = i / stride % shape[static_cast<std::size_t>(differences)];
      if (index > 0) count += counts[i - stride];
    }
    count %= 65536;
    if (count > 32767) count -= 65536;
    if (count < -32768) count += 65536;
    counts[i] = count;
  }
  return counts;
}

inline std::vector<double> numbers_of(const Json& packed) {
  std::vector<double> numbers;
  for (const int count : counts_of(packed)) {
    numbers.push_back(count == -32768 ? std::nan("") : count * packed.at("step").get<double>());
  }
  return numbers;
}

// The JSON of a page.
inline Json data_of(const std::string& page) {
  const std::string begin = "<script type=\"application/json\" id=\"data\">";
  const std::size_t from = page.find(begin);
  if (from == std::string::npos) throw std::runtime_error("a page without data");
  const std::size_t start = from + begin.size();
  return Json::parse(page.substr(start, page.find("</script>", start) - start));
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_OUTPUTS_PAGE_DATA_H_
