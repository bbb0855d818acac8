// The tank from above: its extent, its walls, its depth and its paddles.
#ifndef KELPBOX_OUTPUTS_TANK_PLAN_H_
#define KELPBOX_OUTPUTS_TANK_PLAN_H_

#include <string>
#include <vector>

#include "jobs/run.h"
#include "maths/tank_config.h"
#include "outputs/bank_layout.h"
#include "site/machine.h"
#include "site/tank.h"

namespace Outputs {

struct PlanBank {
  std::string name;
  std::string machine;        // "flap" or "piston"
  double paddle_width = 0.0;  // m
  std::vector<PaddlePlace> paddles;
};

struct TankPlan {
  double min_x = 0.0;  // m
  double max_x = 0.0;
  double min_y = 0.0;  // NaN where the script gives no value
  double max_y = 0.0;
  std::string walls;
  std::vector<Maths::ProfilePoint> profile;  // at most 1,000 points
  std::vector<PlanBank> banks;
};

TankPlan tank_plan(Jobs::Run& run);

// "plus", "minus", "both", "none" or "flume": which side walls reflect.
std::string walls_of(const Common::Tank& tank);

// "flap" or "piston".
std::string machine_kind(const Common::Machine& machine);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_TANK_PLAN_H_
