// The water body: crosswise extent, side walls, and depth along the wave direction as a chain of
// sections, each with a formula for its depth. Also the site's tunable values.
//
// Each class declares its script keys in `declare`. docs/site-keys.md describes the keys.
#ifndef KELPBOX_SITE_TANK_H_
#define KELPBOX_SITE_TANK_H_

#include <string>

#include "base/params.h"
#include "expression/function.h"
#include "maths/tank_config.h"
#include "script/sub_enum.h"
#include "script/wrap.h"

namespace Common {

class Section : public Script::Declared {
 public:
  class Offset_enum : public Script::SubEnum {
   public:
    enum { Relative = 0, Absolute = 1 };
    Script::List& members() override;
  };

  const char* class_name() const override { return "Section"; }
  void declare(Script::List& list) override;
  // Parses the depth.
  void create() override;

  // The depth until a script sets it. Compared as a string on purpose: a script may write it out.
  static constexpr const char* no_depth = "NULL";

  double x = Script::UnsetReal;
  Offset_enum offset;
  std::string depth = no_depth;
  Expression::Function function;
};

// A tunable value of the site. `value` is the only adjustable field of the site model.
class Param : public Script::Declared {
 public:
  const char* class_name() const override { return "Param"; }
  void declare(Script::List& list) override;

  std::string name = Script::UnsetString;
  double value = Script::UnsetReal;
  double max = Script::UnsetReal;
  double min = Script::UnsetReal;
  double error = Script::UnsetReal;
  std::string units = Script::UnsetString;
};

class Tank : public Script::Declared {
 public:
  class Geometry_enum : public Script::SubEnum {
   public:
    enum { NoSides = 0, PlusSide = 1, MinusSide = 2, BothSides = 3, TwoDimensional = 4 };
    Script::List& members() override;
  };
  class Units_enum : public Script::SubEnum {
   public:
    enum { mm = 0, m = 1, ft = 2, yds = 3 };
    Script::List& members() override;
  };

  Tank();

  const char* class_name() const override { return "Tank"; }
  void declare(Script::List& list) override;
  // Checks the sections and limits, and sets min_x and max_x. Throws Script::LogItm.
  void create() override;

  // Sets the walls, the ends and the depth profile (make_config.cpp). The numbers of the script are
  // metres here, whatever `units` is: only get_consts uses it. Throws std::string for walls without
  // a position, and for a bottom that cannot be followed.
  void make_config(Maths::TankConfig& out) const;
  // Inserts "min_x", "max_x", "max_y", "min_y", "geometry", and "max_<name>", "min_<name>" for
  // each tunable value.
  void get_consts(Base::Params& out);
  // Inserts each tunable value.
  void query(Base::Params& out);
  // Reads each tunable value.
  void set(Base::Params& in);

  Geometry_enum geometry;
  Units_enum units;
  double max_y = Script::UnsetReal;
  double min_y = Script::UnsetReal;
  Script::WrapAry<Section> section;
  double reference_x = 0.0;
  double delta_depth = 0.01;
  double delta_x = 0.5;
  Script::WrapAry<Param> param;

  // The ends of the tank: the positions of the first and the last section.
  double min_x = 0.0;
  double max_x = 0.0;
};

}  // namespace Common

#endif  // KELPBOX_SITE_TANK_H_
