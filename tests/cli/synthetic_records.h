// Records of probes over a wave and its reflection, computed from linear theory in the test.
#ifndef KELPBOX_TESTS_CLI_SYNTHETIC_RECORDS_H_
#define KELPBOX_TESTS_CLI_SYNTHETIC_RECORDS_H_

#include <cmath>
#include <cstdio>
#include <numbers>
#include <string>
#include <vector>

#include "support/wave_number.h"

namespace Testing {

struct SyntheticRecords {
  double depth = 0.7;       // m
  double frequency = 0.5;   // Hz
  double amplitude = 0.04;  // m
  double reflection = 0.3;
  double offset = 0.0;  // m, of all probes
  double rate = 20.0;   // Hz
  double duration = 40.0;
  double first_time = 0.0;                     // s
  std::vector<double> probes{9.0, 9.6, 10.3};  // m

  double k() const { return exact_wave_number(2.0 * std::numbers::pi * frequency, depth); }
  double elevation(double x, double t) const {
    const double phase = 2.0 * std::numbers::pi * frequency * t;
    return offset + amplitude * std::cos(phase - k() * x + 0.4) +
           reflection * amplitude * std::cos(phase + k() * x + 1.9);
  }
  // Half the distance from crest to trough at x, by the addition of two phasors.
  double local_amplitude(double x) const {
    return amplitude * std::sqrt(1.0 + reflection * reflection +
                                 2.0 * reflection * std::cos(2.0 * k() * x + 1.5));
  }

  // Comma separated, elevations in mm, without a head line.
  std::string rows(bool times = true) const {
    std::string text;
    char field[40];
    const int count = static_cast<int>(std::lround(duration * rate));
    for (int j = 0; j < count; ++j) {
      const double t = j / rate;
      if (times) {
        std::snprintf(field, sizeof field, "%.6f,", first_time + t);
        text += field;
      }
      for (std::size_t p = 0; p < probes.size(); ++p) {
        std::snprintf(field, sizeof field, "%s%.5f", p == 0 ? "" : ",",
                      1000.0 * elevation(probes[p], t));
        text += field;
      }
      text += '\n';
    }
    return text;
  }

  // With a head such as "time [s],a x=9 m [mm],b x=9.6 m [mm]".
  std::string file() const {
    std::string head = "time [s]";
    for (std::size_t p = 0; p < probes.size(); ++p) {
      head += std::string(",") + static_cast<char>('a' + p) + " x=" + std::to_string(probes[p]) +
              " m [mm]";
    }
    return head + "\n" + rows();
  }
};

}  // namespace Testing

#endif  // KELPBOX_TESTS_CLI_SYNTHETIC_RECORDS_H_
