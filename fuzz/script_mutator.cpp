// Changes of a site script that mostly leave it readable, so that more inputs get as far as the
// checks of a site: another value for one key, a line twice, a line less.
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t max_size);

namespace {

using Random = std::minstd_rand;

constexpr const char* numbers[] = {
    "0",    "1",     "-1",   "0.5",        "2",           "20",     "1e-3",       "-0.001",
    "1e-9", "1e9",   "-1e9", "1e300",      "-1e300",      "1e-300", "2147483647", "2147483648",
    "0x7F", "-180",  "180",  "360",        "0.999999999", "$",      "1e999",      "3-2*4",
    "1/2",  "1.0/3", "1/0",  "-(2+1e0)/7", "1e15",        "6.2832", "-1e-200",    "14",
};
constexpr const char* strings[] = {
    "",
    "m",
    "mm",
    "deg",
    "rad",
    "Hz",
    "rad/s",
    "mrad",
    "unknown",
    "NULL",
    "#UNDEF#",
    "1",
    "1@m",
    "100@cm",
    "1@s",
    "1-$[m]/10",
    "1-$[m]/10 @m",
    "0.1+$[m]^2",
    "sqrt($[m])",
    "1/$[m]",
    "exp(-$[m])",
    "2+sin($[m])",
    "$[s]",
    "depth[m]",
    "0/0",
    "tgamma($[m])",
    "-1",
    "mod(1,2)",
    "-$[m]",
    "1+0.2*cos($[m]*9)",
};
constexpr const char* members[] = {
    "NoSides", "PlusSide", "MinusSide", "BothSides", "TwoDimensional", "mm", "m", "ft", "yds", "Hz",
    "rad_s",   "Relative", "Absolute",  "ToBottom",  "ToSurface",
};

template <std::size_t size>
std::string pick(const char* const (&choices)[size], Random& random) {
  return choices[random() % size];
}

// The place after a random occurrence of the character, or npos if there is none.
std::size_t random_place(const std::string& text, char c, Random& random) {
  if (text.empty()) return std::string::npos;
  const std::size_t found = text.find(c, random() % text.size());
  if (found != std::string::npos) return found + 1;
  const std::size_t first = text.find(c);
  return first == std::string::npos ? first : first + 1;
}

bool change_value(std::string& text, Random& random) {
  const std::size_t start = random_place(text, '=', random);
  if (start == std::string::npos) return false;
  const std::size_t end = text.find(';', start);
  if (end == std::string::npos) return false;
  const std::size_t old = text.find_first_not_of(' ', start);
  std::string value;
  if (text[old] == '"') {
    value = '"' + pick(strings, random) + '"';
  } else if (text[old] >= 'A' && text[old] <= 'z') {
    value = pick(members, random);
  } else {
    value = pick(numbers, random);
  }
  text.replace(start, end - start, ' ' + value);
  return true;
}

bool change_line(std::string& text, Random& random) {
  const std::size_t start = random_place(text, '\n', random);
  if (start == std::string::npos) return false;
  const std::size_t end = text.find('\n', start);
  if (end == std::string::npos) return false;
  const std::string line = text.substr(start, end + 1 - start);
  if (random() % 2 == 0) {
    text.erase(start, line.size());
  } else {
    text.insert(random_place(text, '\n', random), line);
  }
  return true;
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t max_size, unsigned seed) {
  Random random(seed);
  std::string text(reinterpret_cast<const char*>(data), size);
  bool changed = false;
  switch (random() % 8) {
    case 0:
      changed = change_line(text, random);
      break;
    case 1:
    case 2:
      break;
    default:
      changed = change_value(text, random);
  }
  if (!changed || text.size() > max_size) return LLVMFuzzerMutate(data, size, max_size);
  text.copy(reinterpret_cast<char*>(data), text.size());
  return text.size();
}
