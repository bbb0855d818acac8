// Finite input gives finite results. The results that are NaN on purpose are left out, each with
// its reason.
#include <cmath>
#include <initializer_list>
#include <limits>
#include <set>
#include <string>

#include "fuzz/native/session.h"

namespace Fuzz {
namespace {

using Kelpbox::Facade;

bool all_finite(const std::vector<double>& values) {
  for (const double value : values) {
    if (!std::isfinite(value)) return false;
  }
  return true;
}

constexpr double finite = std::numeric_limits<double>::max();
// So small that sums and squares are finite too.
constexpr double sane = 1e100;

bool all_within(const std::vector<Synthesis::Front>& fronts, double most) {
  for (const Synthesis::Front& front : fronts) {
    for (const double value : {front.amp, front.angle, front.phase, front.freq}) {
      if (!(std::abs(value) <= most)) return false;
    }
  }
  return true;
}

// No site of native/sites has deeper water than at its paddles, so that no wave is turned back on
// its way. Such a wave would be NaN as described in docs/wave-at-a-point.md.

const std::vector<Synthesis::Front>& fronts_of(Session& session, jlong experiment, std::uint32_t id,
                                               bool merged) {
  session.handles().end_lent(experiment, id, Lent::display_fronts);
  return facade_at(experiment).fronts(id, merged);
}

// The fronts that the next results are made of. Fronts of an earlier build may have no place in the
// grid of a new `set`, which is refused.
bool merged_are_within(Session& session, jlong experiment, std::uint32_t id, double most) {
  try {
    return all_within(fronts_of(session, experiment, id, true), most);
  } catch (const std::string&) {
    return false;
  }
}

// The places and moments of the specifications.
bool places_are_sane(Facade& facade, std::uint32_t id) {
  for (std::uint32_t index = 0;; ++index) {
    try {
      const Maths::Position& place = facade.position(id, index);
      for (const double value : {place.x, place.y, place.t}) {
        if (!(std::abs(value) <= sane)) return false;
      }
    } catch (const std::string&) {
      return true;  // after the last one
    }
  }
}

void check_run(Session& session, jlong experiment, std::uint32_t id) {
  const std::vector<Synthesis::Front>& fronts = fronts_of(session, experiment, id, false);
  // Formulas may give NaN, and pass it on. So may samples and values that are not finite.
  const bool tame = session.sites()[experiment].items.are_tame(id);
  if (tame && !all_within(fronts, finite)) fail("a front of a run that is not finite");
  const bool are_sane = all_within(fronts, sane) && places_are_sane(facade_at(experiment), id);
  if ((tame || are_sane) && !merged_are_within(session, experiment, id, finite)) {
    fail("a merged front that is not finite");
  }
}

void check_signals(Session& session, jlong experiment, std::uint32_t id) {
  std::set<std::uint32_t>& finite_signals = session.sites()[experiment].finite_signals;
  finite_signals.erase(id);
  if (!merged_are_within(session, experiment, id, sane)) return;
  Facade& facade = facade_at(experiment);
  for (std::uint32_t bank = 0; bank < facade.paddle_banks(); ++bank) {
    for (std::uint32_t paddle = 0; paddle < facade.paddle_bank_size(bank); ++paddle) {
      if (!all_finite(facade.paddle_motion_data(id, bank, paddle))) {
        fail("a drive signal that is not finite");
      }
    }
  }
  finite_signals.insert(id);
}

void check_point(Session& session, jlong experiment, std::uint32_t id) {
  if (!merged_are_within(session, experiment, id, sane)) return;
  for (int which = 0; which < 4; ++which) {
    // A rate so low that it gives no sample is written back as 0. The record is then empty, and the
    // variance of its mean is 0 / 0.
    const bool is_empty = facade_at(experiment).twod_data(id, 0).empty();
    if (is_empty && which == 2) continue;
    if (!all_finite(facade_at(experiment).twod_data(id, which))) {
      fail("a result at a point that is not finite: " + std::to_string(which));
    }
  }
}

void check_values(jlong params, std::initializer_list<const char*> names) {
  const Base::Params::Entries& entries = params_at(params).entries();
  for (const char* name : names) {
    const auto found = entries.find(name);
    if (found != entries.end() && !std::isfinite(found->second.value)) {
      fail(std::string("a result that is not finite: ") + name);
    }
  }
}

// An all-zero record has no Ts: it is NaN as described. It has no crossings either, so that there
// are no statistics of a point.
constexpr std::initializer_list<const char*> statistics = {"sig_t", "sig_h", "max_amp", "reg_t",
                                                           "reg_h", "Hs",    "Ts",      "Var"};
constexpr std::initializer_list<const char*> trains = {"sig_t",
                                                       "sig_h",
                                                       "Forward free fundamental",
                                                       "Backward free fundamental",
                                                       "Forward bound harmonic",
                                                       "Backward bound harmonic",
                                                       "Forward free harmonic",
                                                       "Backward free harmonic"};
// `reg_t` is left out: that of a set without series is NaN as described.

}  // namespace

void check_finite(Session& session, const Row& row, const std::vector<Given>& given) {
  const std::string& name = row.name;
  const auto experiment = [&] { return given[0].integer; };
  const auto id = [&] { return static_cast<std::uint32_t>(given[1].integer); };
  // Frames have no NaN: it becomes 0 as described.
  if (name == "Kelpbox_Experiment_run_build" || name == "buildRun") {
    check_run(session, experiment(), id());
  } else if (name == "Kelpbox_Experiment_paddle_motion_build" || name == "buildMotion") {
    check_signals(session, experiment(), id());
  } else if (name == "Kelpbox_Experiment_twod_build" || name == "buildPoint") {
    check_point(session, experiment(), id());
  } else if (name == "Kelpbox_Experiment_twod_stats" || name == "pointStatistics") {
    if (session.tame_given && merged_are_within(session, experiment(), id(), sane)) {
      check_values(given[2].integer, statistics);
    }
  } else if (name == "Kelpbox_Experiment_paddle_motion_stats" || name == "motionStatistics") {
    if (session.sites()[experiment()].finite_signals.count(id()) != 0) {
      check_values(given[3].integer, {"clip_power_ratio", "clip_peak_ratio"});
    }
  } else if (name == "Kelpbox_Analysis_get_results" || name == "evaluate") {
    if (session.tame_given && !session.sites()[experiment()].wild_records) {
      check_values(given.back().integer, trains);
    }
  }
}

}  // namespace Fuzz
