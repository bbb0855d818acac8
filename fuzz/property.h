// What the fuzz targets share: how a property fails, and what a refusal has to look like.
#ifndef KELPBOX_FUZZ_PROPERTY_H_
#define KELPBOX_FUZZ_PROPERTY_H_

#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <optional>
#include <string>

#include "base/streams.h"

namespace Fuzz {

// Ends the program with the input as a finding, unless the property holds.
inline void require(bool holds, const std::string& property) {
  if (holds) return;
  std::fprintf(stderr, "property that does not hold: %s\n", property.c_str());
  std::abort();
}

// Performs the operation. Returns its message if it refuses the input: the message must not be
// empty. Exceptions of other types than those listed here end the program.
template <typename Operation>
std::optional<std::string> refusal(Operation operation) {
  std::string message;
  try {
    operation();
    return std::nullopt;
  } catch (const std::string& failure) {
    message = failure;
  } catch (const char* failure) {
    message = failure;
  } catch (const std::exception& failure) {
    message = failure.what();
  }
  require(!message.empty(), "a refusal has a message");
  return message;
}

inline bool same_bits(double left, double right) {
  return std::bit_cast<std::uint64_t>(left) == std::bit_cast<std::uint64_t>(right);
}

// While it exists, what the library writes to the process's streams is collected instead.
class Quiet {
 public:
  Quiet() { Base::collect_output(true); }
  ~Quiet() {
    Base::collect_output(false);
    Base::take_output();
  }
  Quiet(const Quiet&) = delete;
  Quiet& operator=(const Quiet&) = delete;
};

}  // namespace Fuzz

#endif  // KELPBOX_FUZZ_PROPERTY_H_
