#include "run/definition.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>

#include "base/compose.h"
#include "base/enumerations.h"
#include "base/memory.h"
#include "base/units.h"
#include "maths/random.h"
#include "maths/tank_run.h"
#include "point/point_stats.h"

namespace Synthesis {
namespace {

// A constant seed, so that every build of a run gives the same result.
constexpr std::uint32_t merge_seed = 42;

// run_build reads the merge method. This reports a missing one already in `set`.
void require_merge_method(const Base::Params& params) {
  static_cast<void>(params.read_enum("wave_merge", Base::EnumType::WaveMerge));
}

void require_tank(const Common::Context& context) { static_cast<void>(context.tank_config()); }

Maths::FrontSet& set_at(std::vector<Maths::FrontSet>& sets, std::uint32_t index) {
  if (index >= sets.size()) throw std::string("invalid vector<T> subscript");
  return sets[index];
}

const BankMotion& bank_at(const std::vector<BankMotion>& banks, std::uint32_t bank) {
  if (bank >= banks.size()) throw std::string("Bank out of range or paddle_motion not built");
  return banks[bank];
}

// Empties the list and reserves memory for `count` records.
template <typename Record>
void make_room(std::vector<Record>& list, std::uint64_t count) {
  list.clear();
  if (count <= list.capacity()) return;
  std::vector<Record>().swap(list);
  Base::require_memory(count * sizeof(Record), Base::compose("fronts::", count, " fronts"));
  list.reserve(count);
}

}  // namespace

void Definition::set_executor(const Base::Executor& executor) {
  executor_ = executor;
  animation_.set_executor(executor);
}

void Definition::add_specification(Specification& specification) {
  specifications_.push_back(&specification);
}

void Definition::remove_specification(Specification& specification) {
  const auto found = std::find(specifications_.begin(), specifications_.end(), &specification);
  if (found == specifications_.end()) throw std::string("Failed to find Specification to remove");
  specifications_.erase(found);
}

void Definition::query(Base::Params& out) const {
  out.declare("repeat", Base::default_units(Base::Category::time));
  out.declare_enum("dalrymple", Base::EnumType::Bool);
  out.declare_enum("wave_merge", Base::EnumType::WaveMerge);
  out.declare_enum("ran_gen", Base::EnumType::RanGen);
  out.declare("seed", Base::default_units(Base::Category::unit));
}

void Definition::set(Base::Params& in) {
  const double repeat = in.read("repeat", Base::Category::time);
  const double min_freq = context_.get(Common::Limit::min_freq);
  const double max_freq = context_.get(Common::Limit::max_freq);
  const double base_rate = context_.get(Common::Limit::base_rate);
  const bool dalrymple = in.read_enum("dalrymple", Base::EnumType::Bool) == Base::Bool::True;
  require_merge_method(in);

  Maths::RunData run;
  run.init(repeat, base_rate, min_freq, max_freq, dalrymple);
  run_.run = run;
  constexpr double tolerance = 0.01;
  in.set_checked("repeat", run.value(), Base::Category::time, tolerance);
  params_ = in;
  ready_ = true;
}

const Maths::RunFronts& Definition::run_build() {
  messages_.clear();
  if (!ready_) throw std::string("Evaluate before setting state");
  const std::uint32_t merge = params_.read_enum("wave_merge", Base::EnumType::WaveMerge);
  run_.resize(specifications_.size());
  for (std::size_t i = 0; i < specifications_.size(); ++i) {
    specifications_[i]->evaluate(run_.sets[i], {run_.run, context_.tank_config(), messages_});
  }
  if (run_.sets.empty()) return run_;

  if (merge == Base::WaveMerge::RMS) {
    run_.merge_rms();
  } else if (merge == Base::WaveMerge::Random) {
    Maths::PureRandom generator(merge_seed);
    generator.init();
    run_.merge_random(generator);
  }
  run_.build_merged(context_.tank_config());
  return run_;
}

Maths::Position& Definition::position(std::uint32_t index) {
  return set_at(run_.sets, index).position;
}

const std::vector<Front>& Definition::fronts(bool merged) {
  using Sets = std::span<const Maths::FrontSet>;
  const Sets sets = merged ? Sets(&run_.merged, 1) : Sets(run_.sets);
  std::uint64_t count = 0;
  for (const Maths::FrontSet& set : sets) count += set.front_count();
  make_room(display_fronts_, count);
  for (const Maths::FrontSet& set : sets) set.display_fronts(display_fronts_, run_.run);
  return display_fronts_;
}

const std::vector<Maths::TransferFront>& Definition::fronts(std::uint32_t index) {
  const Maths::FrontSet& set = set_at(run_.sets, index);
  make_room(transfer_fronts_, set.front_count());
  set.transfer_fronts(transfer_fronts_);
  return transfer_fronts_;
}

void Definition::paddle_motion_build(const Base::Params& in) {
  banks_.resize(context_.wavemaker_bank.size());
  for (std::size_t bank = 0; bank < banks_.size(); ++bank) {
    banks_[bank].init(context_.tank_config(), run_.run, in);
    banks_[bank].build(context_.wavemaker_bank[bank], run_.merged, executor_);
  }
}

const std::vector<double>& Definition::paddle_motion_data(std::uint32_t bank,
                                                          std::uint32_t paddle) const {
  const std::vector<std::vector<double>>& series = bank_at(banks_, bank).series();
  if (paddle >= series.size()) {
    throw Base::compose("Paddle out of range in paddle_motion_data::bank ", bank,
                        " has no signal of paddle ", paddle);
  }
  return series[paddle];
}

void Definition::paddle_motion_stats(std::uint32_t bank, Base::Params& out) const {
  bank_at(banks_, bank).stats(out);
}

void Definition::animate_build(Base::Params& in) {
  animation_.build(run_.merged, context_.tank_config(), run_.run, in);
}

void Definition::animate_init(Base::Params& in) {
  require_tank(context_);
  animation_.init(run_.merged, run_.run, in);
}

void Definition::animate_build_slice(std::uint32_t from, std::uint32_t to) {
  animation_.build_slice(run_.merged, context_.tank_config(), run_.run, from, to);
}

void Definition::twod_build(Base::Params& in) {
  const PointSpec point = fit_point(in, run_.run);
  Maths::TankRun tank(context_.tank_config(), run_.run);
  twod_.build(run_.merged, tank, point, in);
}

void Definition::twod_stats(Base::Params& params) const {
  const PointSpec point = fit_point(params, run_.run);
  Maths::TankRun tank(context_.tank_config(), run_.run);
  point_stats(run_.merged, tank, point, params);
}

}  // namespace Synthesis
