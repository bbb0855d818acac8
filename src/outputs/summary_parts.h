// Parts of summary.json that describe the tank and the sea for drawings.
#ifndef KELPBOX_OUTPUTS_SUMMARY_PARTS_H_
#define KELPBOX_OUTPUTS_SUMMARY_PARTS_H_

#include <nlohmann/json_fwd.hpp>

#include "jobs/sea_directions.h"
#include "jobs/sea_spectrum.h"
#include "outputs/tank_plan.h"

namespace Outputs {

nlohmann::ordered_json plan_json(const TankPlan& plan);
nlohmann::ordered_json spectrum_json(const Jobs::SeaSpectrum& spectrum);
nlohmann::ordered_json directions_json(const Jobs::SeaDirections& directions);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_SUMMARY_PARTS_H_
