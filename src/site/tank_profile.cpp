// From the sections of the script to the tabulated depth profile.
#include <cmath>
#include <sstream>

#include "base/near.h"
#include "site/tank.h"

namespace Common {

namespace {

// Beyond this the bottom cannot be meant: the walk is creeping towards a water line, or the step
// is far too small for the tank.
constexpr std::size_t most_points = 1000000;

// One section's depth along the tank, in metres.
class SectionDepth {
 public:
  SectionDepth(const Section& section, std::string title)
      : section_(section),
        title_(std::move(title)),
        off_(section.offset.number == Section::Offset_enum::Absolute ? 0.0 : section.x) {}

  // The depth at a position along the tank, whatever number it is. Throws as an expression does,
  // and when its units are not a length.
  double at(double x) const {
    const Base::Quantity depth =
        section_.function.evaluate(Base::Quantity(x - off_, Base::Category::length));
    // A formula without units gives metres.
    const Base::UnitCategory category = Base::category_of(depth.units) == Base::Category::unit
                                            ? Base::Category::unit
                                            : Base::Category::length;
    return depth.value * Base::factor_to_base(depth.units, category);
  }

  // The depth, from which the next step can be found. Dry ground, below 0, is allowed.
  double finite(double depth, double x) const {
    if (std::isfinite(depth)) return depth;
    std::ostringstream problem;
    problem << "depth " << depth << " at x = " << x << " is not a number";
    fail(problem.str());
  }

  [[noreturn]] void fail(const std::string& problem) const {
    throw "Section[" + title_ + "]::" + problem;
  }

 private:
  const Section& section_;
  std::string title_;
  double off_;
};

void append(Maths::TankConfig& out, const SectionDepth& depth, double d, double x) {
  if (out.profile.size() >= most_points) {
    std::ostringstream problem;
    problem << "depth profile does not come to an end, stopped at x = " << x;
    depth.fail(problem.str());
  }
  out.profile.push_back({d, x});
}

// No step is short enough, as before a water line inside the section.
[[noreturn]] void stuck(const SectionDepth& depth, double x) {
  std::ostringstream problem;
  problem << "depth profile does not get beyond x = " << x;
  depth.fail(problem.str());
}

void set_paddle(Maths::TankConfig& out, double depth) {
  out.paddle_index = static_cast<std::uint32_t>(out.profile.size());
  out.paddle_depth = depth;
}

bool reached(double c, double xe) { return Base::relative_difference(c, xe) < 0.001; }

// Places points so that each step changes the depth by about `tol` of itself, and none is longer
// than `dx`.
void walk(const SectionDepth& depth, double x0, double xe, double tol, double dx,
          Maths::TankConfig& out) {
  const double hi = tol * 1.2;
  const double lo = tol * 0.8;
  if (!std::isfinite(x0) || !std::isfinite(xe)) depth.fail("start or end is not a number");
  double d0 = depth.finite(depth.at(x0), x0);
  double c = xe;
  for (;;) {
    bool bounded = false;
    // Where the depth does not change, a candidate has no end or is no number.
    const auto bring_back = [&] {
      if (std::isfinite(c)) return;
      c = std::fmin(x0 + dx, xe);
      bounded = true;
    };
    bring_back();
    if (c > x0 + dx) {
      c = x0 + dx;
      bounded = true;
    }
    if (c > xe) {
      c = xe;
      bounded = true;
    }
    double d1 = depth.at(c);
    double r = std::abs(d0 - d1) / d0;
    while (r > hi || (!bounded && r < lo)) {
      const double before = c;
      c = (c - x0) * tol / r + x0;
      bring_back();
      d1 = depth.at(c);
      r = std::abs(d0 - d1) / d0;
      bounded = true;
      if (c == before && r > hi) stuck(depth, x0);
    }
    depth.finite(d1, c);
    if (x0 <= 0 && c > 0) set_paddle(out, depth.at(0.0));
    append(out, depth, d0, x0);
    if (reached(c, xe)) {
      append(out, depth, d1, xe);
      return;
    }
    // A rescaled candidate may lie behind the end; the walk then comes back to it.
    if (x0 <= xe ? c <= x0 : (c < xe || c >= x0)) stuck(depth, x0);
    const double next = c + (c - x0) * tol / r;
    x0 = c;
    d0 = d1;
    c = next;
  }
}

}  // namespace

void Tank::make_config(Maths::TankConfig& out) {
  const double across = max_y - min_y;
  switch (geometry.number) {
    case Geometry_enum::NoSides:
    case Geometry_enum::TwoDimensional:
      out.has_walls = false;
      out.width = 0.0;
      out.y_ref = 0.0;
      break;
    case Geometry_enum::PlusSide:
      out.has_walls = true;
      out.width = 2 * across;
      out.y_ref = max_y;
      break;
    case Geometry_enum::MinusSide:
      out.has_walls = true;
      out.width = 2 * across;
      out.y_ref = min_y;
      break;
    case Geometry_enum::BothSides:
      out.has_walls = true;
      out.width = across;
      out.y_ref = (max_y + min_y) * 0.5;
      break;
    default:
      throw std::string("Unexpected type in Geometry");
  }
  // Every phase is counted from y_ref; the width matters to cross-tank modes only.
  if (!std::isfinite(out.y_ref)) {
    throw std::string("Tank::max_y or min_y is not a number");
  }

  out.profile.clear();
  out.paddle_index = 0;
  out.paddle_depth = 0.0;
  out.x_low = min_x;
  out.x_high = max_x;

  for (std::size_t i = 0; i + 1 < section.size(); ++i) {
    Section& here = section[i];
    const double x0 = here.x;
    const double xe = section[i + 1].x;
    const SectionDepth depth(here, std::to_string(script_index(i)));
    if (here.function.is_constant()) {
      const double d = depth.at(x0);
      if (x0 <= 0 && xe > 0) set_paddle(out, d);
      append(out, depth, d, x0);
      append(out, depth, d, xe);
      continue;
    }
    // Without a value, neither bounds the steps.
    if (delta_depth <= 0.0) throw std::string("Tank::delta_depth is not a positive number");
    if (delta_x <= 0.0) throw std::string("Tank::delta_x is not a positive number");
    walk(depth, x0, xe, delta_depth, delta_x, out);
  }

  // A tank that ends at the paddles.
  if (out.x_high == 0.0 && !out.profile.empty()) {
    out.paddle_index = static_cast<std::uint32_t>(out.profile.size() - 1);
    out.paddle_depth = out.profile.back().depth;
  }
}

}  // namespace Common
