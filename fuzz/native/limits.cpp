// What the fuzzer does not ask for: calls that would take much time or memory, and calls that a
// host must not make.
#include <cmath>
#include <map>

#include "base/units.h"
#include "fuzz/native/session.h"

namespace Fuzz {
namespace {

namespace Category = Base::Category;

constexpr double most_samples = 20000;
constexpr double most_harmonics = 3000;
constexpr double refused_samples = 1 << 27;  // more are refused, at no cost
constexpr double two_to_32 = 4294967296.0;

std::optional<double> value(const Base::Params& params, const char* name,
                            Base::UnitCategory category) {
  try {
    return params.read(name, category);
  } catch (...) {
    return std::nullopt;
  }
}

// 0 if there is none.
double repeat_of(Kelpbox::Facade& facade, std::uint32_t id) {
  try {
    return facade.repeat(id).value();
  } catch (...) {
    return 0.0;
  }
}

double harmonics_of(Kelpbox::Facade& facade, std::uint32_t id) {
  try {
    return static_cast<double>(facade.repeat(id).size());
  } catch (...) {
    return 0.0;
  }
}

// A number of samples that is neither small nor refused. Some counts wrap to 32 bits first.
bool heavy(double count) {
  const double low = std::fmod(std::floor(std::abs(count)), two_to_32);
  return low > most_samples && low <= refused_samples + 1;
}

// The longest count of a vector that is not refused as longer than any vector.
bool heavy_length(jlong count) { return count > 4096 && count < (jlong{1} << 59); }

bool run_is_heavy(Site& site, Kelpbox::Facade& facade, std::uint32_t id) {
  if (harmonics_of(facade, id) > most_harmonics) return true;
  const double repeat = repeat_of(facade, id);
  for (const double rate : site.rates) {
    if (heavy(repeat * rate)) return true;
  }
  return false;
}

// A component's or modifier's values.
bool item_is_heavy(Site& site, const Base::Params& params) {
  if (const auto step = value(params, "delta_angle", Category::angle)) {
    const double steps = 2 * 3.2 / std::abs(*step);
    if (steps > 200 && steps < 1.1 * (1 << 27)) return true;
  }
  if (const auto rate = value(params, "rate", Category::frequency)) {
    site.rates.push_back(*rate);
    if (const auto scale = value(params, "scale_ratio", Category::unit)) {
      site.rates.push_back(*rate * std::sqrt(std::abs(*scale)));
    }
  }
  // Pieces of a series or an expression cannot be folded for ever.
  if (const auto ramp = value(params, "ramp_time", Category::time)) {
    if (std::abs(*ramp) > 1e6 && std::abs(*ramp) < 1e18) return true;
  }
  return false;
}

bool frames_are_heavy(Kelpbox::Facade& facade, std::uint32_t id, const Base::Params& params,
                      double& points) {
  double grid = 1.0;
  for (const auto& [step, low, high] :
       {std::tuple{"x_step", "x_min", "x_max"}, std::tuple{"y_step", "y_min", "y_max"}}) {
    const auto size = value(params, step, Category::length);
    const auto from = value(params, low, Category::length);
    const auto to = value(params, high, Category::length);
    if (!size || !from || !to) return false;
    const double count = (*to - *from) / *size;
    if (std::isnan(count) || count < 0) return false;
    grid *= std::min(count + 1, 1e12);
  }
  const double rate = value(params, "rate", Category::frequency).value_or(0.0);
  const double samples = std::abs(repeat_of(facade, id) * rate);
  points = grid * std::max(1.0, samples);
  return grid > 200 || (samples > 2000 && samples <= refused_samples + 1);
}

// Takes work off the session's budget.
bool spent(Session& session, double samples) {
  if (!(samples >= 0)) return false;
  session.budget -= samples + 1000;
  return session.budget < 0;
}

bool site_is_heavy(Kelpbox::Facade& facade, const Base::Params& params) {
  const auto step = value(params, "delta_x", Category::length);
  if (!step) return false;
  try {
    const double count =
        (facade.context().get(Common::Limit::max_x) - facade.context().get(Common::Limit::min_x)) /
        std::abs(*step);
    return count > 5000 && count < 2e7;
  } catch (...) {
    return false;
  }
}

// Analyses are never freed (docs/native-ownership.md): a process can make only so many.
bool analyses_are_full(const std::vector<Given>& given) {
  static double bytes = 0.0;
  for (const Given& one : given) {
    bytes += 8.0 * static_cast<double>(one.list.size());
    if (one.argument.kind == Kind::object && one.argument.type == Type::doubles && !one.null) {
      bytes += 8.0 *
               static_cast<double>(Kelpbox::pointer_from<std::vector<double>>(one.integer)->size());
    }
  }
  bytes += 2000.0;
  return bytes > 6e8;
}

}  // namespace

bool asks_too_much(Session& session, const Row& row, const std::vector<Given>& given) {
  const std::string& name = row.name;
  if (name.find("StdVector") != std::string::npos &&
      (name.ends_with("_reserve") || name.ends_with("__SWIG_1"))) {
    return heavy_length(given.back().integer);
  }
  if (name == "Kelpbox_Vector_getValue") {
    // The index is not checked: the host must pass one below the size.
    const auto& data = Kelpbox::pointer_from<Base::Vector>(given[0].integer)->data;
    return given[1].integer < 0 || static_cast<std::size_t>(given[1].integer) >= data.size();
  }
  if (name == "Kelpbox_Experiment_initialise" || name == "Kelpbox_Analysis_initialise") {
    // The division of an integer by zero ends the process by SIGFPE, on purpose.
    return given[1].text.find("division.site") != std::string::npos;
  }
  if (name == "setWorkers") return given[1].integer > 3;
  if (given.empty() || given[0].argument.kind != Kind::object ||
      given[0].argument.type != Type::experiment || given[0].integer == 0) {
    return false;
  }
  Kelpbox::Facade& facade = facade_at(given[0].integer);
  Site& site = session.sites()[given[0].integer];
  const auto id = given.size() > 1 ? static_cast<std::uint32_t>(given[1].integer) : 0;
  const auto params = [&](std::size_t at) {
    return given[at].integer == 0 ? Base::Params() : params_at(given[at].integer);
  };
  const auto spend_signal = [&](std::size_t at) {
    const double rate = value(params(at), "rate", Category::frequency).value_or(0.0);
    const double samples = std::abs(repeat_of(facade, id) * rate);
    if (heavy(samples)) return true;
    return spent(session, samples > refused_samples ? 0 : samples * 10);
  };
  if (name == "Kelpbox_Experiment_profile" || name == "Kelpbox_Analysis_profile" ||
      name == "profile") {
    return site_is_heavy(facade, params(1));
  }
  if (name == "Kelpbox_Experiment_set__SWIG_1" || name == "setItem") {
    return item_is_heavy(site, params(2));
  }
  if (name == "Kelpbox_Experiment_run_build" || name == "buildRun") {
    return run_is_heavy(site, facade, id) || spent(session, 20 * harmonics_of(facade, id));
  }
  if (name == "Kelpbox_Experiment_paddle_motion_build" || name == "buildMotion") {
    return harmonics_of(facade, id) > most_harmonics || spend_signal(2);
  }
  if (name == "Kelpbox_Experiment_twod_build" || name == "buildPoint") {
    const auto width = value(params(2), "delta_angle", Category::angle);
    if (width && *width > 1e-6 && *width < 1e-3) return true;
    return spend_signal(2);
  }
  if (name == "Kelpbox_Experiment_twod_stats" || name == "pointStatistics") return spend_signal(2);
  if (name == "Kelpbox_Experiment_animate_init" || name == "Kelpbox_Experiment_animate_build" ||
      name == "layOutFrames") {
    double points = 0.0;
    return frames_are_heavy(facade, id, params(2), points) || spent(session, points);
  }
  if (name == "Kelpbox_Experiment_animate_build_slice" || name == "buildColumns") {
    return spent(session, 400 * 100);
  }
  if (name.find("series") != std::string::npos || name.find("Series") != std::string::npos ||
      name.ends_with("create_set") || name.ends_with("createSet")) {
    return analyses_are_full(given);
  }
  return false;
}

}  // namespace Fuzz
