// The two lines about a run above its judgement.
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "cli/judgement_table.h"
#include "jobs/show_number.h"

namespace Cli {
namespace {

using Jobs::show_number;
using Jobs::show_quantity;
using Jobs::Zeros;

// "40 flaps" or "24 pistons and 16 flaps".
std::string machines_of(Jobs::Run& run) {
  std::string text;
  for (std::uint32_t b = 0; b < run.experiment.paddle_banks(); ++b) {
    const Common::Paddles& bank = run.experiment.context().wavemaker_bank[b];
    const char* const name = bank.machine().type() == Common::Machine::flap ? "flap" : "piston";
    const std::size_t count = bank.pad_pos.size();
    if (!text.empty()) text += " and ";
    text += fmt::format("{} {}{}", count, name, count == 1 ? "" : "s");
  }
  return text;
}

std::string frequency(double value) { return show_number(value, 3, Zeros::drop); }

}  // namespace

std::string run_head(Jobs::Run& run) {
  Kelpbox::Experiment& experiment = run.experiment;
  const Maths::RunData& grid = experiment.repeat(run.definition);
  const std::string site = std::filesystem::path(run.job.site).filename().string();
  const std::string name = run.job.stem.empty() ? "job" : run.job.stem;
  const std::size_t width = std::max(site.size(), name.size()) + 2;

  const auto& merged = experiment.fronts(run.definition, true);
  const auto fronts = std::count_if(merged.begin(), merged.end(),
                                    [](const Synthesis::Front& front) { return front.amp != 0.0; });
  const Common::Context& context = experiment.context();
  std::string head =
      fmt::format("{:{}}{}: {}, {} to {} Hz, {} at the paddles\n", site, width, context.full_name(),
                  machines_of(run), frequency(grid.freq(grid.min_harmonic())),
                  frequency(grid.freq(grid.max_harmonic())),
                  show_quantity(context.tank_config().paddle_depth, "m", 3, Zeros::drop));
  head += fmt::format("{:{}}{}, harmonics {} to {}, {} front{} at the paddles\n", name, width,
                      show_quantity(grid.value(), "s", 6, Zeros::drop), grid.min_harmonic(),
                      grid.max_harmonic(), fronts, fronts == 1 ? "" : "s");
  return head;
}

}  // namespace Cli
