// Spectral moments and the sea state parameters that follow from them.
//
// IAHR and PIANC (1986), "List of sea state parameters": m_n is the integral of f^n S(f).
#ifndef KELPBOX_JOBS_SEA_MOMENTS_H_
#define KELPBOX_JOBS_SEA_MOMENTS_H_

#include <cmath>
#include <limits>

namespace Jobs {

// A moment that cannot be computed is NaN.
struct Moments {
  double inverse = 0.0;  // m-1
  double m0 = 0.0;       // m2
  double first = 0.0;    // m1
  double second = 0.0;   // m2, the second moment

  // Adds a harmonic of a variance in m2 at a frequency above 0 in Hz.
  void add(double frequency, double variance) {
    inverse += variance / frequency;
    m0 += variance;
    first += variance * frequency;
    second += variance * frequency * frequency;
  }
  Moments& operator+=(const Moments& other) {
    inverse += other.inverse;
    m0 += other.m0;
    first += other.first;
    second += other.second;
    return *this;
  }
};

// Periods in s. All are NaN for still water.
inline double hm0(double m0) { return 4.0 * std::sqrt(m0); }
inline double tm_10(const Moments& m) { return m.inverse / m.m0; }
inline double tm01(const Moments& m) { return m.m0 / m.first; }
inline double tm02(const Moments& m) { return std::sqrt(m.m0 / m.second); }

}  // namespace Jobs

#endif  // KELPBOX_JOBS_SEA_MOMENTS_H_
