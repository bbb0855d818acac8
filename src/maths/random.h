// Reproducible random numbers: the same seed gives the same sequence on every machine.
//
// An additive lagged Fibonacci generator, x[n] = x[n - 54] + x[n - 23] modulo 2^32, seeded from a
// linear congruential sequence. See Knuth, "The Art of Computer Programming", volume 2, 3.2.2.
#ifndef KELPBOX_MATHS_RANDOM_H_
#define KELPBOX_MATHS_RANDOM_H_

#include <array>
#include <cstddef>
#include <cstdint>

namespace Maths {

// Reading does not draw the next number: read `unit` or `symmetric`, then call `advance`. Failures
// are thrown as std::string.
class RanGen {
 public:
  // Stores the seed. `init` fills the table.
  explicit RanGen(std::uint32_t seed) : initialised_(true), seed_value_(seed) {}
  virtual void init() = 0;
  // Draws the next number and returns it.
  virtual std::uint32_t step() = 0;

  // Stores the seed and restarts the sequence.
  void seed(std::uint32_t seed);
  void advance();
  // The last number drawn, mapped to the closed range from 0 to 1.
  double unit() const;
  // The same number, mapped to the closed range from -1 to 1.
  double symmetric() const;

 protected:
  // Without a seed, reading throws.
  RanGen() = default;
  // Not virtual: generators are never deleted through this class.
  ~RanGen() = default;

  bool initialised_ = false;
  std::uint32_t seed_value_ = 0;
  std::uint32_t value_ = 0;
};

class PureRandom final : public RanGen {
 public:
  PureRandom() = default;
  explicit PureRandom(std::uint32_t seed) : RanGen(seed) {}
  void init() override;
  std::uint32_t step() override;

 private:
  std::array<std::uint32_t, 54> state_{};
  std::size_t front_ = 22;
  std::size_t rear_ = 53;
};

}  // namespace Maths

#endif  // KELPBOX_MATHS_RANDOM_H_
