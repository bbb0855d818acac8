// Site scripts. The input is described in script_reading.h.
//
// The properties: a refusal says what is wrong, through the facade too. A site that is read is
// written as a script that reads back the same, and its settings file keeps its tunable values. A
// site of finite numbers has a finite depth profile and finite paddles, and accepts its own values.
#include <cmath>

#include "facade/experiment.h"
#include "fuzz/script_reading.h"
#include "script/division.h"
#include "site/context.h"

namespace {

using Fuzz::refusal;
using Fuzz::require;

constexpr const char* guarded = "Uncaught Exception in Experiment Initialise";

using Site = Fuzz::Reading<Common::Context>;

// Whether the depth profile of the tank can take seconds: up to a million points, at each of which
// a formula is evaluated.
bool has_slow_profile(const Common::Tank& tank) {
  std::size_t length = 0;
  for (std::size_t i = 0; i < tank.section.size(); ++i) length += tank.section[i].depth.size();
  const double shortest_step = (tank.max_x - tank.min_x) * 1e-4;
  return length > 400 || !(tank.delta_depth > 1e-4) || !(tank.delta_x > shortest_step);
}

// A formula without a variable may give a depth of NaN or infinity.
bool depth_is_defined(const Common::Tank& tank) {
  for (std::size_t i = 0; i + 1 < tank.section.size(); ++i) {
    const Expression::Function& function = tank.section[i].function;
    double depth = 0.0;
    const Base::Quantity variable(0.0, Base::Category::length);
    const bool failed = refusal([&] { depth = function.evaluate(variable).value; }).has_value();
    if (failed || !std::isfinite(depth)) return false;
  }
  return true;
}

void check_profile(Common::Context& context) {
  const Maths::TankConfig& config = context.tank_config();
  require(!config.profile.empty(), "a tank has a depth profile");
  require(config.paddle_index < config.profile.size(), "the paddle line is in the profile");
  const bool defined = depth_is_defined(*context.tank.get());
  for (const auto& point : config.profile) {
    require(std::isfinite(point.x), "each point of the profile has a position");
    require(!defined || std::isfinite(point.depth), "each point of the profile has a depth");
  }
  for (int row = 0; row < Common::Limit::count; ++row) {
    require(std::isfinite(context.get(row)), "each limit is finite");
  }
}

void check_paddles(Kelpbox::Experiment& experiment) {
  require(experiment.paddle_banks() > 0, "a site has a bank");
  for (std::uint32_t bank = 0; bank < experiment.paddle_banks(); ++bank) {
    Base::Params info;
    // Units and names of the script are only looked at here.
    refusal([&] { experiment.paddle_bank_info(bank, info); });
    require(experiment.paddle_bank_size(bank) > 0, "a bank has paddles");
    // The script chooses the first number.
    const double first = experiment.context().wavemaker_bank[bank].pad_pos.offset();
    for (std::uint32_t paddle = 0; paddle < experiment.paddle_bank_size(bank); ++paddle) {
      Base::Params place;
      experiment.paddle_info(bank, paddle, place);
      require(place.read("paddle_num", Base::Category::unit) == first + paddle,
              "paddles are numbered in their order");
      for (const auto& [name, quantity] : place.entries()) {
        require(std::isfinite(quantity.value), "the place of a paddle is finite");
      }
    }
  }
}

// A tank that is given back its own values is unchanged.
void check_own_values(Kelpbox::Experiment& experiment) {
  Base::Params values;
  if (refusal([&] { experiment.query(values); })) return;
  const auto refused = refusal([&] { experiment.set(values); });
  require(!refused, "a tank accepts its own values");
  Base::Params again;
  experiment.query(again);
  require(values.entries().size() == again.entries().size(), "a tank keeps its values");
  for (const auto& [name, quantity] : values.entries()) {
    require(Fuzz::same_bits(quantity.value, again.at(name).value), "a tank keeps its values");
  }
}

void check_facade(const std::string& main_path, const Site& site) {
  if (!site.refused && has_slow_profile(*site.root().tank.get())) return;
  Kelpbox::Experiment experiment;
  const auto refused = refusal([&] { experiment.initialise(main_path); });
  if (site.refused) {
    require(refused == site.refused || refused == std::string(guarded),
            "the facade passes a message on, or gives its own");
    return;
  }
  if (refused || !Fuzz::has_moderate_reals(site.list())) return;
  check_profile(experiment.context());
  check_paddles(experiment);
  check_own_values(experiment);
}

void check(const std::string& input) {
  static const Testing::TempDir dir;
  const std::string main_path = Fuzz::write_files(input, dir);
  // Without it a division of an integer by zero ends the process, as intended.
  const Script::DivisionScope scope;
  const Site site("context", main_path);
  if (site.refused) {
    check_refusal(site);
  } else if (Fuzz::has_moderate_reals(site.list())) {
    check_written(site, main_path, dir);
  }
  check_facade(main_path, site);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Fuzz::Quiet quiet;
  const std::string input(reinterpret_cast<const char*>(data), size);
  if (!Fuzz::unsuitable_script(input)) check(input);
  return 0;
}
