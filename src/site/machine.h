// The machine of a wavemaker bank: how all of its paddles move, and how far they may.
#ifndef KELPBOX_SITE_MACHINE_H_
#define KELPBOX_SITE_MACHINE_H_

#include <cstdint>
#include <string>

#include "base/params.h"
#include "base/units.h"
#include "script/sub_enum.h"
#include "script/wrap.h"

namespace Common {

// The limits of a paddle's motion, in the units that the text names.
class PaddleMotion : public Script::Declared {
 public:
  const char* class_name() const override { return "PaddleMotion"; }
  void declare(Script::List& list) override;

  double clip_limit = Script::UnsetReal;
  double maximum = Script::UnsetReal;
  double minimum = Script::UnsetReal;
  std::string units = Script::UnsetString;
};

// A named constant of the drive.
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
  // The values of `get`.
  enum Limit : std::uint32_t { clip_limit = 0, maximum = 1, minimum = 2 };
  // The values of `type`.
  enum Type : std::uint32_t { flap = 0, piston = 1 };

  Machine();

  const char* class_name() const override { return "Machine"; }
  void declare(Script::List& list) override;

  virtual std::uint32_t type() const = 0;
  // Wave amplitude to paddle motion: per radian for a flap, per metre for a piston. k in rad/m,
  // depth in m, angle in rad to the paddle's normal.
  virtual double transfer(double k, double depth, double angle) const = 0;

  // A limit of the motion in the given units. Throws std::string "Unknown value type in
  // machine::get", and the plain text "Object not built" without a paddle_motion.
  double get(std::uint32_t which, Base::Units units) const;
  // The units of the limits.
  Base::Units units() const;
  // Inserts "clip_paddle_motion", "max_paddle_motion", "min_paddle_motion", and each constant.
  void get_limits(Base::Params& out) const;

  double paddle_width = Script::UnsetReal;
  double critical_dimension = Script::UnsetReal;
  DimensionType_enum dimension_type;
  Script::WrapObj<PaddleMotion> paddle_motion;
  Script::WrapAry<PaddleConst> constant;

 protected:
  // The depth of the working edge below the water line, as `transfer` takes it: every
  // dimension_type but ToSurface counts as ToBottom.
  double edge(double depth) const;
};

class Flap : public Machine {
 public:
  const char* class_name() const override { return "Flap"; }
  std::uint32_t type() const override { return flap; }
  double transfer(double k, double depth, double angle) const override;
};

class Piston : public Machine {
 public:
  const char* class_name() const override { return "Piston"; }
  std::uint32_t type() const override { return piston; }
  double transfer(double k, double depth, double angle) const override;
};

}  // namespace Common

#endif  // KELPBOX_SITE_MACHINE_H_
