#include "site/tank_profile.h"

#include <cmath>
#include <string>

#include "base/compose.h"
#include "base/near.h"
#include "site/section_depth.h"

namespace Common {

namespace {

// A profile of more points is a mistake: the walk creeps towards a water line, or the step is far
// too small for the tank.
constexpr std::size_t most_points = 1000000;

// How a sloping section is divided.
struct Steps {
  double change;   // of the depth in one step, relative to the depth
  double longest;  // m
};

void append(Maths::TankConfig& out, const SectionDepth& depth, double d, double x) {
  if (out.profile.size() >= most_points) depth.fail_endless(x);
  out.profile.push_back({d, x});
}

// Makes the next point of the profile the paddle line.
void set_paddle(Maths::TankConfig& out, double depth) {
  out.paddle_index = static_cast<std::uint32_t>(out.profile.size());
  out.paddle_depth = depth;
}

// Called when no step is short enough, as before a water line inside the section.
[[noreturn]] void fail_stuck(const SectionDepth& depth, double x) {
  depth.fail(Base::compose("depth profile does not get beyond x = ", x));
}

bool reached(double x, double end) { return Base::relative_difference(x, end) < 0.001; }

// Whether a step from `from` to `to` makes no progress. A step may overshoot the end; the walk then
// comes back to it, and must not go beyond it again.
bool stalls(double from, double to, double end) {
  return from <= end ? to <= from : to < end || to >= from;
}

// Divides a section from x0 to xe into steps. The first step aims for the end, each further one for
// the x at which the slope of the last step gives the wanted change of depth.
void walk(SectionDepth& depth, double x0, double xe, const Steps& steps, Maths::TankConfig& out) {
  const double most = steps.change * 1.2;
  const double least = steps.change * 0.8;
  if (!std::isfinite(x0) || !std::isfinite(xe)) depth.fail("start or end is not a number");
  double d0 = depth.at(x0);
  depth.require_finite(d0, x0);
  double x1 = xe;
  for (;;) {
    bool bounded = false;  // a step that was cut or rescaled may be too short
    // Where the depth does not change, the predicted x1 is infinite or NaN.
    const auto bring_back = [&] {
      if (std::isfinite(x1)) return;
      x1 = std::fmin(x0 + steps.longest, xe);
      bounded = true;
    };
    bring_back();
    if (x1 > x0 + steps.longest) {
      x1 = x0 + steps.longest;
      bounded = true;
    }
    if (x1 > xe) {
      x1 = xe;
      bounded = true;
    }
    double d1 = depth.at(x1);
    double change = std::abs(d0 - d1) / d0;
    while (change > most || (!bounded && change < least)) {
      const double before = x1;
      x1 = (x1 - x0) * steps.change / change + x0;
      bring_back();
      d1 = depth.at(x1);
      change = std::abs(d0 - d1) / d0;
      bounded = true;
      if (x1 == before && change > most) fail_stuck(depth, x0);
    }
    depth.require_finite(d1, x1);
    if (x0 <= 0 && x1 > 0) set_paddle(out, depth.at(0.0));
    append(out, depth, d0, x0);
    if (reached(x1, xe)) {
      append(out, depth, d1, xe);
      return;
    }
    if (stalls(x0, x1, xe)) fail_stuck(depth, x0);
    const double next = x1 + (x1 - x0) * steps.change / change;
    x0 = x1;
    d0 = d1;
    x1 = next;
  }
}

}  // namespace

void make_profile(const Tank& tank, Maths::TankConfig& out) {
  out.profile.clear();
  out.paddle_index = 0;
  out.paddle_depth = 0.0;
  for (std::size_t i = 0; i + 1 < tank.section.size(); ++i) {
    Section& here = tank.section[i];
    const double x0 = here.x;
    const double xe = tank.section[i + 1].x;
    SectionDepth depth(here, tank.section.index(i));
    if (here.function.is_constant()) {
      const double d = depth.at(x0);
      if (x0 <= 0 && xe > 0) set_paddle(out, d);
      append(out, depth, d, x0);
      append(out, depth, d, xe);
      continue;
    }
    // NaN passes: it leaves the steps without a bound, which the walk can follow.
    if (tank.delta_depth <= 0.0) throw std::string("Tank::delta_depth is not a positive number");
    if (tank.delta_x <= 0.0) throw std::string("Tank::delta_x is not a positive number");
    walk(depth, x0, xe, {tank.delta_depth, tank.delta_x}, out);
  }

  // A tank that ends at the paddles.
  if (out.x_high == 0.0 && !out.profile.empty()) {
    out.paddle_index = static_cast<std::uint32_t>(out.profile.size() - 1);
    out.paddle_depth = out.profile.back().depth;
  }
}

}  // namespace Common
