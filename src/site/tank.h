// The water body: crosswise extent, side walls, and depth along the wave direction as a chain of
// sections, each with a depth given by a formula. Also the site's tunable parameters.
//
// Keys and their meaning are in docs/site-keys.md.
#ifndef KELPBOX_SITE_TANK_H_
#define KELPBOX_SITE_TANK_H_

#include <cstddef>
#include <cstdint>
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

  double x = Script::UnsetReal;
  Offset_enum offset;
  std::string depth = "NULL";
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
  // Checks the sections and limits. Throws Script::LogItm.
  void create() override;

  // Turns the sections into the tabulated profile and sets the walls. The numbers of the script
  // are taken as metres whatever `units` says; only get_consts looks at it. Throws std::string for
  // walls without a position, and for a slope whose depth is no number or whose profile does not
  // come to an end.
  void make_config(Maths::TankConfig& out);
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

  double min_x = 0.0;
  double max_x = 0.0;

 private:
  // The index that the script knows a section by.
  std::int32_t script_index(std::size_t position) const;
};

}  // namespace Common

#endif  // KELPBOX_SITE_TANK_H_
