// A wavemaker bank: a row of paddles at their positions, and exactly one machine.
//
// Each class declares its script keys in `declare`. docs/site-keys.md describes the keys.
#ifndef KELPBOX_SITE_PADDLES_H_
#define KELPBOX_SITE_PADDLES_H_

#include <string>

#include "script/alternatives.h"
#include "script/wrap.h"
#include "site/machine.h"

namespace Common {

// One paddle: its position in metres and the direction of its normal in radians.
class PadPos : public Script::Declared {
 public:
  const char* class_name() const override { return "Paddle"; }
  void declare(Script::List& list) override;

  double x = Script::UnsetReal;
  double y = Script::UnsetReal;
  double angle = Script::UnsetReal;
};

class Paddles : public Script::Declared {
 public:
  Paddles();

  const char* class_name() const override { return "Paddles"; }
  void declare(Script::List& list) override;
  // Throws Script::LogItm "There should be one machine exactly but there are N".
  void create() override;

  // The bank's only machine.
  Machine& machine() const { return machines[0]; }

  std::string name = Script::UnsetString;
  Script::WrapAry<PadPos> pad_pos;
  Script::WrapBase<Machine> machines;
  Script::WrapAlternative<Flap, Machine> flap;
  Script::WrapAlternative<Piston, Machine> piston;
};

}  // namespace Common

#endif  // KELPBOX_SITE_PADDLES_H_
