#include "cli/site_report.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "outputs/tank_plan.h"
#include "site/context.h"

namespace Cli {

namespace {

void add_positions(const Common::Paddles& paddles, SiteBank& bank) {
  const auto& all = paddles.pad_pos;
  constexpr double infinite = std::numeric_limits<double>::infinity();
  bank.paddles = static_cast<std::uint32_t>(all.size());
  bank.min_spacing = bank.min_angle = infinite;
  bank.max_spacing = bank.max_angle = -infinite;
  for (std::size_t i = 0; i < all.size(); ++i) {
    bank.min_angle = std::min(bank.min_angle, all[i].angle);
    bank.max_angle = std::max(bank.max_angle, all[i].angle);
    if (i == 0) continue;
    const double spacing = std::hypot(all[i].x - all[i - 1].x, all[i].y - all[i - 1].y);
    bank.min_spacing = std::min(bank.min_spacing, spacing);
    bank.max_spacing = std::max(bank.max_spacing, spacing);
  }
  if (all.size() == 1) bank.min_spacing = bank.max_spacing = std::nan("");
  const Common::PadPos& last = all[all.size() - 1];
  bank.x_first = all[0].x;
  bank.y_first = all[0].y;
  bank.x_last = last.x;
  bank.y_last = last.y;
}

SiteBank bank_of(const Common::Paddles& paddles, double depth) {
  SiteBank bank;
  const Common::Machine& machine = paddles.machine();
  bank.name = paddles.name;
  bank.machine = Outputs::machine_kind(machine);
  bank.width = machine.paddle_width;
  bank.edge = machine.working_edge(depth);
  add_positions(paddles, bank);
  const Common::PaddleMotion& motion = machine.paddle_motion.built();
  bank.limit_units = motion.units;
  bank.minimum = motion.minimum;
  bank.maximum = motion.maximum;
  bank.clip = motion.clip_limit;
  for (std::size_t i = 0; i < machine.constant.size(); ++i) {
    const Common::PaddleConst& constant = machine.constant[i];
    bank.constants.push_back({constant.name, constant.units, constant.value});
  }
  return bank;
}

}  // namespace

SiteReport site_report(Kelpbox::Experiment& experiment) {
  SiteReport report;
  Common::Context& context = experiment.context();
  const Common::Tank& tank = experiment.tank();
  const Maths::TankConfig& config = context.tank_config();
  report.site = context.site_name;
  report.tank = context.tank_name;
  report.config = context.config_name;
  report.identity = experiment.context_string();
  report.min_x = config.x_low;
  report.max_x = config.x_high;
  report.min_y = tank.min_y;
  report.max_y = tank.max_y;
  report.walls = Outputs::walls_of(tank);
  report.profile = config.profile;
  report.paddle_depth = config.paddle_depth;
  report.min_frequency = context.get(Common::Limit::min_freq);
  report.max_frequency = context.get(Common::Limit::max_freq);
  report.min_angle = context.get(Common::Limit::min_angle);
  report.max_angle = context.get(Common::Limit::max_angle);
  report.base_rate = config.base_rate;
  report.gravity = config.g;
  for (std::size_t i = 0; i < tank.param.size(); ++i) {
    const Common::Param& param = tank.param[i];
    report.tunables.push_back({param.name, param.units, param.value, param.min, param.max});
  }
  for (std::size_t i = 0; i < context.wavemaker_bank.size(); ++i) {
    report.banks.push_back(bank_of(context.wavemaker_bank[i], config.paddle_depth));
  }
  return report;
}

}  // namespace Cli
