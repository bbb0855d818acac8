// The site's limits of frequency and of wave direction.
#ifndef KELPBOX_SITE_LIMITS_H_
#define KELPBOX_SITE_LIMITS_H_

#include <string>

#include "base/params.h"
#include "script/wrap.h"

namespace Common {

class FixedLimit : public Script::Declared {
 public:
  const char* class_name() const override { return "Limit"; }
  void declare(Script::List& list) override;

  std::string units = Script::UnsetString;
  double maximum = Script::UnsetReal;
  double minimum = Script::UnsetReal;
};

class FixedLimits : public Script::Declared {
 public:
  const char* class_name() const override { return "Limits"; }
  void declare(Script::List& list) override;
  // Inserts "max_angle", "min_angle", "max_freq", "min_freq". Needs "geometry" in `out`, which
  // Tank::get_consts inserts. Throws Script::LogItm for limits that cannot be used.
  void get_consts(Base::Params& out);

  Script::WrapObj<FixedLimit> frequency;
  Script::WrapObj<FixedLimit> angle;
};

}  // namespace Common

#endif  // KELPBOX_SITE_LIMITS_H_
