#include "outputs/tank_plan.h"

#include <cstddef>
#include <cstdint>
#include <utility>

#include "outputs/main_points.h"
#include "site/context.h"

namespace Outputs {

TankPlan tank_plan(Jobs::Run& run) {
  constexpr std::size_t most_points = 1000;
  // Of the greatest depth: far below what a drawing shows, and above rounding.
  constexpr double tolerance = 1e-6;

  Common::Context& site = run.experiment.context();
  const Common::Tank& tank = run.experiment.tank();
  const Maths::TankConfig& config = site.tank_config();
  TankPlan plan;
  plan.min_x = config.x_low;
  plan.max_x = config.x_high;
  plan.min_y = tank.min_y;
  plan.max_y = tank.max_y;
  plan.walls = walls_of(tank);
  plan.profile = main_points(config.profile, most_points, tolerance);
  for (std::uint32_t b = 0; b < run.experiment.paddle_banks(); ++b) {
    const Common::Paddles& paddles = site.wavemaker_bank[b];
    PlanBank bank;
    bank.name = paddles.name;
    bank.machine = machine_kind(paddles.machine());
    bank.paddle_width = paddles.machine().paddle_width;
    bank.paddles = bank_layout(run, b);
    plan.banks.push_back(std::move(bank));
  }
  return plan;
}

std::string walls_of(const Common::Tank& tank) {
  switch (static_cast<std::uint32_t>(tank.geometry.number)) {
    case Common::Tank::Geometry_enum::PlusSide:
      return "plus";
    case Common::Tank::Geometry_enum::MinusSide:
      return "minus";
    case Common::Tank::Geometry_enum::BothSides:
      return "both";
    case Common::Tank::Geometry_enum::TwoDimensional:
      return "flume";
    default:
      return "none";
  }
}

std::string machine_kind(const Common::Machine& machine) {
  return machine.type() == Common::Machine::flap ? "flap" : "piston";
}

}  // namespace Outputs
