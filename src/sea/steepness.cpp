#include "sea/steepness.h"

#include <algorithm>
#include <cmath>
#include <ostream>

#include "base/compose.h"
#include "base/streams.h"

namespace Synthesis {

namespace {

// The step, and the change of slope, where a signal ends and begins.
struct Join {
  double step;
  double slope;
};

// A single sample counts as both ends of a level signal.
Join join_of(const std::vector<double>& x, bool stops_early) {
  const double first = x.front();
  const double last = x.back();
  const double second = x.size() < 2 ? first : x[1];
  const double last_but_one = x.size() < 2 ? last : x[x.size() - 2];
  if (stops_early) {
    return {std::max(std::abs(first), std::abs(last)),
            std::max(std::abs(second - first), std::abs(last_but_one - last))};
  }
  return {std::abs(first - last),
          std::max(std::abs(second - 2 * first + last), std::abs(first - 2 * last + last_but_one))};
}

}  // namespace

void Steepness::add(std::size_t i, double x) {
  if (i > 0) {
    const double difference = x - last_;
    first_ = std::max(first_, std::abs(difference));
    if (i > 1) second_ = std::max(second_, std::abs(difference - last_difference_));
    last_difference_ = difference;
  }
  last_ = x;
}

void report_steepness(const std::string& name, const std::vector<double>& x, double dt,
                      const Steepness& inside, bool stops_early) {
  Base::progress() << Base::compose("Time series \"", name, "\" has max rate of ",
                                    inside.first() / dt, " and acceleration of ",
                                    inside.second() / (dt * dt))
                   << std::endl;

  const Join join = join_of(x, stops_early);
  const auto report_step = [&] {
    Base::progress() << Base::compose("Maximum end difference is ", join.step / dt, "m/s")
                     << std::endl;
  };
  const auto report_slope = [&] {
    Base::progress() << Base::compose("Maximum end rate is ", join.slope / (dt * dt), "m/s2")
                     << std::endl;
  };
  if (join.step > 2 * inside.first()) {
    report_step();
  } else if (join.slope > 2 * inside.second()) {
    report_slope();
  } else if (join.step > inside.first()) {
    report_step();
  } else if (join.slope > inside.second()) {
    report_slope();
  }
}

}  // namespace Synthesis
