// Records, sets and tanks for the tests of analysis.
#ifndef KELPBOX_TESTS_ANALYSIS_RECORDS_H_
#define KELPBOX_TESTS_ANALYSIS_RECORDS_H_

#include <string>
#include <utility>
#include <vector>

#include "analysis/series.h"
#include "base/data_set.h"
#include "base/params.h"
#include "base/units.h"
#include "maths/tank_config.h"

inline Base::Params at_rate(double hertz) {
  Base::Params params;
  params.insert("rate", hertz, "Hz");
  return params;
}

// A record in metres.
inline Base::DataSet record(std::vector<double> samples, double hertz) {
  return {Base::Vector("record", Base::default_units(Base::Category::length), std::move(samples)),
          at_rate(hertz)};
}

inline Base::Params window(double start, double stop) {
  Base::Params params;
  params.insert("start_time", start, "s");
  params.insert("stop_time", stop, "s");
  return params;
}

// A set of whole records, built without windows and their output.
class Records {
 public:
  explicit Records(std::vector<Analysis::Series> series)
      : series_(std::move(series)), set_(window(0.0, 0.0), {}) {
    for (const Analysis::Series& one : series_) {
      set_.series.push_back(&one);
      set_.data.emplace_back(one.samples, one.params);
    }
  }
  Analysis::Set& set() { return set_; }

 private:
  std::vector<Analysis::Series> series_;
  Analysis::Set set_;
};

// Water of constant depth from 50 m behind the paddles to 50 m in front of them.
inline Maths::TankConfig flat_tank(double depth) {
  Maths::TankConfig tank;
  tank.g = 9.81;
  tank.x_low = -50.0;
  tank.x_high = 50.0;
  tank.profile = {{depth, -50.0}, {depth, 50.0}};
  tank.paddle_depth = depth;
  return tank;
}

#endif  // KELPBOX_TESTS_ANALYSIS_RECORDS_H_
