// A statistical test of samples against a distribution.
#ifndef KELPBOX_TESTS_SEA_KOLMOGOROV_SMIRNOV_H_
#define KELPBOX_TESTS_SEA_KOLMOGOROV_SMIRNOV_H_

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace Testing {

// The largest distance of the samples' distribution from the given one, times the square root of
// their number: above 1.95 for one set of samples in a thousand.
template <typename Distribution>
double kolmogorov_smirnov(std::vector<double> samples, Distribution distribution) {
  std::sort(samples.begin(), samples.end());
  const double n = static_cast<double>(samples.size());
  double distance = 0.0;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double p = distribution(samples[i]);
    distance =
        std::max({distance, p - static_cast<double>(i) / n, static_cast<double>(i + 1) / n - p});
  }
  return distance * std::sqrt(n);
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_SEA_KOLMOGOROV_SMIRNOV_H_
