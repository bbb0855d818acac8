// A spectrum of which only a few elements are not 0.
#ifndef KELPBOX_ANALYSIS_BIN_VALUES_H_
#define KELPBOX_ANALYSIS_BIN_VALUES_H_

#include <complex>
#include <cstdint>
#include <map>

#include "base/compose.h"

namespace Analysis {

// An index equal to the number of elements passes, as for Base::BaseVec. A greater one throws
// std::string "Index N out of range".
class BinValues {
 public:
  BinValues() = default;
  // All elements are 0.
  explicit BinValues(std::uint64_t elements) : elements_(elements) {}

  void set(std::uint64_t bin, std::complex<double> value) { values_[checked(bin)] = value; }
  std::complex<double> at(std::uint64_t bin) const {
    const auto found = values_.find(checked(bin));
    return found == values_.end() ? 0.0 : found->second;
  }

 private:
  std::uint64_t checked(std::uint64_t bin) const {
    if (bin > elements_) throw Base::compose("Index ", bin, " out of range");
    return bin;
  }

  std::uint64_t elements_ = 0;
  std::map<std::uint64_t, std::complex<double>> values_;
};

}  // namespace Analysis

#endif  // KELPBOX_ANALYSIS_BIN_VALUES_H_
