// Parts of summary.json that describe the tank and the sea for drawings.
#ifndef KELPBOX_OUTPUTS_SUMMARY_PARTS_H_
#define KELPBOX_OUTPUTS_SUMMARY_PARTS_H_

#include <nlohmann/json_fwd.hpp>

#include "outputs/tank_plan.h"

namespace Outputs {

nlohmann::ordered_json plan_json(const TankPlan& plan);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_SUMMARY_PARTS_H_
