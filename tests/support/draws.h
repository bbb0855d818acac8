// The library's random numbers, written out from their recurrence, so that a test can say which
// draw a result comes from.
#ifndef KELPBOX_TESTS_SUPPORT_DRAWS_H_
#define KELPBOX_TESTS_SUPPORT_DRAWS_H_

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Testing {

// x[n] = x[n - 54] + x[n - 23] in 32 bits. The table comes from a linear congruential sequence and
// is read from its 24th word on; the first number in use is the 540th.
class Draws {
 public:
  explicit Draws(std::uint32_t seed) {
    std::vector<std::uint32_t> table = {seed};
    while (table.size() < 54) table.push_back(table.back() * 1103515245U + 12345U);
    for (std::size_t i = 0; i < 54; ++i) x_.push_back(table[(i + 23) % 54]);
    for (int i = 0; i < 539; ++i) next();
  }
  // From 0 to 1 and from -1 to 1.
  double unit() { return next() / 4294967295.0; }
  double symmetric() { return 2.0 * unit() - 1.0; }

 private:
  std::uint32_t next() {
    x_.push_back(x_[x_.size() - 54] + x_[x_.size() - 23]);
    return x_.back();
  }
  std::vector<std::uint32_t> x_;
};

}  // namespace Testing

#endif  // KELPBOX_TESTS_SUPPORT_DRAWS_H_
