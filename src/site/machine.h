// The machine of a wavemaker bank: how its paddles move, what waves they make, and how far they may
// move.
//
// Each class declares its script keys in `declare`. docs/site-keys.md describes the keys.
#ifndef KELPBOX_SITE_MACHINE_H_
#define KELPBOX_SITE_MACHINE_H_

#include <cstdint>
#include <string>

#include "base/params.h"
#include "base/units.h"
#include "script/sub_enum.h"
#include "script/wrap.h"

namespace Common {

// The limits of a paddle's motion. `units` applies to all three.
class PaddleMotion : public Script::Declared {
 public:
  const char* class_name() const override { return "PaddleMotion"; }
  void declare(Script::List& list) override;

  double clip_limit = Script::UnsetReal;
  double maximum = Script::UnsetReal;
  double minimum = Script::UnsetReal;
  std::string units = Script::UnsetString;
};

// A named constant of the drive. It is only reported.
class PaddleConst : public Script::Declared {
 public:
  const char* class_name() const override { return "PaddleConst"; }
  void declare(Script::List& list) override;

  std::string name = Script::UnsetString;
  std::string units = Script::UnsetString;
  double value = Script::UnsetReal;
};

class Machine : public Script::Declared {
 public:
  class DimensionType_enum : public Script::SubEnum {
   public:
    enum { ToBottom = 0, ToSurface = 1 };
    Script::List& members() override;
  };
  // The limits that `get` can read.
  enum Limit : std::uint32_t { clip_limit = 0, maximum = 1, minimum = 2 };
  // The results of `type`.
  enum Type : std::uint32_t { flap = 0, piston = 1 };

  Machine();

  const char* class_name() const override { return "Machine"; }
  void declare(Script::List& list) override;

  virtual std::uint32_t type() const = 0;
  // Wave amplitude per unit of paddle motion, which is a radian for a flap and a metre for a
  // piston, for a wave at `angle` (rad) to the paddle's normal. k in rad/m, depth in m.
  virtual double transfer(double k, double depth, double angle) const = 0;
  // The same for a wave along the normal, with the working edge at `edge_depth` below the water
  // line. A machine that is neither flap nor piston throws std::string "Unsupported type of machine
  // found".
  virtual double ratio(double k, double depth, double edge_depth) const;
  // The units of a drive signal: radians for a flap, metres for a piston. Throws as `ratio` does.
  virtual Base::Units signal_units() const;

  // The depth in m of the working edge (a flap's hinge, a piston's foot) below the water line.
  // Throws std::string "Unsupported critical dimension type found".
  double working_edge(double depth) const;

  // A limit of the motion in the given units. Throws std::string "Unknown value type in
  // machine::get". Like `units` and `get_limits`, it throws const char* "Object not built" without
  // a paddle_motion.
  double get(std::uint32_t which, Base::Units units) const;
  // The units in which the script gives the limits.
  Base::Units units() const;
  // Inserts "clip_paddle_motion", "max_paddle_motion", "min_paddle_motion", and each constant.
  void get_limits(Base::Params& out) const;

  double paddle_width = Script::UnsetReal;
  double critical_dimension = Script::UnsetReal;
  DimensionType_enum dimension_type;
  Script::WrapObj<PaddleMotion> paddle_motion;
  Script::WrapAry<PaddleConst> constant;

 protected:
  // As working_edge, but any other dimension type counts as ToBottom. `transfer` never refuses one.
  double edge(double depth) const;
};

class Flap : public Machine {
 public:
  const char* class_name() const override { return "Flap"; }
  std::uint32_t type() const override { return flap; }
  double transfer(double k, double depth, double angle) const override;
  double ratio(double k, double depth, double edge_depth) const override;
  Base::Units signal_units() const override;
};

class Piston : public Machine {
 public:
  const char* class_name() const override { return "Piston"; }
  std::uint32_t type() const override { return piston; }
  double transfer(double k, double depth, double angle) const override;
  double ratio(double k, double depth, double edge_depth) const override;
  Base::Units signal_units() const override;
};

}  // namespace Common

#endif  // KELPBOX_SITE_MACHINE_H_
