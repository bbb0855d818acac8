// An irregular record whose zero crossings are known in closed form.
#ifndef KELPBOX_TESTS_SUPPORT_WAVE_GROUP_H_
#define KELPBOX_TESTS_SUPPORT_WAVE_GROUP_H_

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace Testing {

// Two harmonics of 10 s, 0.03 m cos(8 w t + 0.9) + 0.03 m cos(5 w t - 0.3), which together are
//   eta(t) = 0.06 m cos(6.5 w t + 0.3) cos(1.5 w t + 0.6).
// The zeros are those of the two factors. They make eight waves of different heights and periods.
struct WaveGroup {
  static constexpr double repeat = 10.0;
  static constexpr double rate = 200.0;  // Hz
  static constexpr double amp = 0.03;
  static constexpr double phase_of_8 = 0.9;
  static constexpr double phase_of_5 = -0.3;
  // Straight lines between samples put a crossing at most this far from the zero, in seconds.
  static constexpr double crossing_error = 2.5e-5;

  struct Wave {
    double height;  // between the highest and the lowest sample
    double period;
  };

  static double eta(double t) {
    return 2 * amp * std::cos(6.5 * w * t + 0.3) * std::cos(1.5 * w * t + 0.6);
  }

  // The times at which eta rises through 0.
  static std::vector<double> up_crossings() {
    std::vector<double> found;
    const auto add_zeros = [&](double frequency, double phase) {
      for (int k = 0; k < 20; ++k) {
        const double t = ((k + 0.5) * std::numbers::pi - phase) / (frequency * w);
        if (t < repeat && eta(t - 1e-6) < 0 && eta(t + 1e-6) > 0) found.push_back(t);
      }
    };
    add_zeros(6.5, 0.3);
    add_zeros(1.5, 0.6);
    std::sort(found.begin(), found.end());
    return found;
  }

  // From one rise through 0 to the next, around the repeat time, by rising height.
  static std::vector<Wave> waves() {
    std::vector<double> ups = up_crossings();
    ups.push_back(ups.front() + repeat);
    std::vector<Wave> found;
    for (std::size_t i = 0; i + 1 < ups.size(); ++i) {
      double crest = 0.0;
      double trough = 0.0;
      for (double sample = std::ceil(ups[i] * rate); sample < ups[i + 1] * rate; ++sample) {
        crest = std::max(crest, eta(sample / rate));
        trough = std::min(trough, eta(sample / rate));
      }
      found.push_back({crest - trough, ups[i + 1] - ups[i]});
    }
    std::sort(found.begin(), found.end(),
              [](const Wave& a, const Wave& b) { return a.height < b.height; });
    return found;
  }

 private:
  static constexpr double w = 2 * std::numbers::pi / repeat;
};

}  // namespace Testing

#endif  // KELPBOX_TESTS_SUPPORT_WAVE_GROUP_H_
