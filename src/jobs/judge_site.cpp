#include "jobs/judge_site.h"

#include <fmt/format.h>

#include <cstddef>
#include <string>
#include <vector>

namespace Jobs {
namespace {

// A paddle is in the tank if any part of it is. A site without side walls need not state its
// width.
bool lies_in_tank(const Common::Tank& tank, double y, double width) {
  if (!(tank.max_y > tank.min_y)) return true;
  return y >= tank.min_y - 0.5 * width && y <= tank.max_y + 0.5 * width;
}

// Not a fault: a bank may stand behind the wall.
void remark_on_bank(const Common::Tank& tank, const Common::Paddles& bank,
                    std::vector<std::string>& remarks) {
  const double width = bank.machine().paddle_width;
  for (std::size_t i = 0; i < bank.pad_pos.size(); ++i) {
    if (lies_in_tank(tank, bank.pad_pos[i].y, width)) continue;
    // One is sufficient: the others are often wrong in the same way.
    remarks.push_back(fmt::format(
        "bank `{}`: paddle {} lies outside the tank, which reaches from {:g} to {:g} m across",
        bank.name, i + 1, tank.min_y, tank.max_y));
    return;
  }
}

}  // namespace

void judge_site(Preparation& p) {
  if (!p.has_site) return;
  const Common::Context& site = p.run.experiment.context();
  std::vector<std::string> faults;
  if (!(site.get(Common::Limit::base_rate) > 0.0)) {
    faults.emplace_back("its `base_rate` must be above 0");
  }
  if (!(site.get(Common::Limit::base_g) > 0.0)) {
    faults.emplace_back("its `base_g` must be above 0");
  }
  for (std::size_t i = 0; i < site.wavemaker_bank.size(); ++i) {
    const Common::Paddles& bank = site.wavemaker_bank[i];
    // Without a width, each wave would be judged as one that no paddle can make.
    if (!(bank.machine().paddle_width > 0.0)) {
      faults.push_back(fmt::format("bank `{}`: `paddle_width` must be above 0", bank.name));
    } else {
      remark_on_bank(p.run.experiment.tank(), bank, p.run.remarks);
    }
  }
  for (const std::string& fault : faults) {
    p.faults.push_back(
        {fmt::format("the site `{}`: {}", p.run.job.site, fault), p.run.job.site_span, ""});
  }
  p.has_site = faults.empty();
}

}  // namespace Jobs
