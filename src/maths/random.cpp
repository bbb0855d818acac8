#include "maths/random.h"

#include <string>

namespace Maths {

void RanGen::seed(std::uint32_t seed) {
  seed_value_ = seed;
  initialised_ = true;
  init();
}

void RanGen::advance() {
  if (!initialised_) {
    throw std::string("Advance called for random number generator before being initialised");
  }
  step();
}

double RanGen::unit() const {
  if (!initialised_) {
    throw std::string("Unit value requested for random number generator before being initialised");
  }
  return value_ * 2.3283064370807974e-10;  // 1 / (2^32 - 1)
}

double RanGen::symmetric() const {
  if (!initialised_) {
    throw std::string("Unit value requested for random number generator before being initialised");
  }
  return value_ * 4.656612874161595e-10 - 1.0;  // 2 / (2^32 - 1)
}

void PureRandom::init() {
  state_[0] = seed_value_;
  for (std::size_t i = 1; i < state_.size(); ++i) {
    state_[i] = state_[i - 1] * 1103515245u + 12345u;
  }
  front_ = 22;
  rear_ = 53;
  for (int warm_up = 0; warm_up < 540; ++warm_up) step();
}

std::uint32_t PureRandom::step() {
  if (!initialised_) {
    throw std::string("Pure random number generator selected before it has been initialised");
  }
  if (++front_ == state_.size()) front_ = 0;
  if (++rear_ == state_.size()) rear_ = 0;
  state_[front_] += state_[rear_];
  value_ = state_[front_];
  return value_;
}

}  // namespace Maths
