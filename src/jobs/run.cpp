#include "jobs/run.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "jobs/add_change.h"
#include "jobs/add_wave.h"
#include "jobs/bind_parameters.h"
#include "jobs/captured_lines.h"
#include "jobs/change_kinds.h"
#include "jobs/failure.h"
#include "jobs/fallbacks.h"
#include "jobs/input_files.h"
#include "jobs/judge_site.h"
#include "jobs/preparation.h"
#include "jobs/read_site.h"
#include "jobs/signal_requests.h"
#include "run/definition.h"

namespace Jobs {
namespace {

namespace Category = Base::Category;

// What is wrong with a repeat time in s, if anything.
std::string fault_of_repeat(const Common::Context& site, double repeat) {
  if (!(repeat > 0.0)) return "`repeat` must be above 0";
  // The library counts the samples of a repeat in 32 bits. A longer one would become a short one.
  const double rate = site.get(Common::Limit::base_rate);
  constexpr double most_samples = 4294967295.0;
  if (repeat * rate >= most_samples) {
    return fmt::format("`repeat` must be below {:.4g} s on this site", most_samples / rate);
  }
  const double low = site.get(Common::Limit::min_freq);
  const double high = site.get(Common::Limit::max_freq);
  const double whole = std::floor(repeat * rate + 0.5) / rate;
  if (std::floor(whole * high + 0.5) < std::max(1.0, std::floor(whole * low + 0.5))) {
    return fmt::format("`repeat` is too short for any harmonic between {:g} and {:g} Hz", low,
                       high);
  }
  return "";
}

bool is_usable_repeat(Preparation& p, const Base::Params& params) {
  const std::string fault =
      fault_of_repeat(p.run.experiment.context(), params.read("repeat", Category::time));
  if (!fault.empty()) p.faults.push_back({fault, span_of(p.run.job.run, "repeat"), ""});
  return fault.empty();
}

void remark_on_merge_seed(Preparation& p) {
  const Part& part = p.run.job.run;
  for (const char* name : {"seed", "ran_gen"}) {
    if (part.parameters.find(name) == nullptr) continue;
    p.run.remarks.push_back(
        fmt::format("{}: {} has no effect: seas are merged with a fixed seed", part.title, name));
  }
}

void set_definition(Preparation& p) {
  Run& run = p.run;
  const Part& part = run.job.run;
  Declared declared;
  // What a definition declares does not depend on its site.
  Common::Context no_site;
  Synthesis::Definition("", no_site).query(declared.params);
  declared.fallbacks = fallbacks_of("run");
  declared.meanings["repeat"] = "the time after which the waves repeat";
  // A job without [run] has been reported.
  const bool has_run = part.span.line != 0 || !part.parameters.members.empty();
  auto params = has_run ? bind_parameters(part, declared, p.faults) : std::nullopt;
  if (!p.has_site) return;
  run.definition = run.experiment.add_definition(run.job.title);
  if (!params || !is_usable_repeat(p, *params)) return;
  remark_on_merge_seed(p);
  p.has_grid = set_with_remarks(p, part, part.title, *params,
                                [&](Base::Params& in) { run.experiment.set(run.definition, in); });
}

void add_sea(Preparation& p, const Sea& sea) {
  BuiltSea built;
  built.name = sea.name;
  Declared declared;
  Synthesis::Specification().query(declared.params);
  declared.fallbacks = fallbacks_of("holds");
  auto params = bind_parameters(sea.holds, declared, p.faults);
  if (p.has_site) built.id = p.run.experiment.add_specification(p.run.definition);
  if (params) {
    built.position = {params->read("x", Category::length), params->read("y", Category::length),
                      params->read("t", Category::time)};
    if (p.has_site && lies_in_tank(p, sea.holds, "x", built.position.x)) {
      set_with_remarks(p, sea.holds, sea.holds.title, *params,
                       [&](Base::Params& in) { p.run.experiment.set(built.id, in); });
    }
  }
  for (std::size_t i = 0; i < sea.waves.size(); ++i) add_wave(p, sea.waves[i], built, i);
  add_changes(p, sea.changes, built);
  p.run.seas.push_back(std::move(built));
}

// The part that a failed build is about, as far as its message tells, or the run.
Span span_of_message(const Run& run, const std::string& message) {
  std::vector<Span> changes;
  for (const Sea& sea : run.job.seas) {
    for (std::size_t i = 0; i < sea.waves.size(); ++i) {
      if (message.starts_with(wave_name(sea.name, i) + "::")) return sea.waves[i].span;
    }
    for (const Part& change : sea.changes) {
      if (is_about(message, change)) changes.push_back(change.span);
    }
  }
  return changes.size() == 1 ? changes.front() : run.job.run.span;
}

// A table takes exactly the run's harmonics, and a list of fronts is remarked on when it is read.
bool is_about_lists(const std::string& message) {
  return message.starts_with("Repeat time ") || message.starts_with("Frequency mismath of ");
}

}  // namespace

std::unique_ptr<Run> prepare(Job job, Diagnostics faults) {
  auto run = std::make_unique<Run>();
  run->job = std::move(job);
  Preparation p{*run, faults};
  read_site(p);
  judge_site(p);
  set_definition(p);
  for (const Sea& sea : run->job.seas) add_sea(p, sea);
  read_requests(p);
  if (!faults.empty()) {
    sort_by_place(faults);
    throw BadJob{std::move(faults)};
  }
  name_inputs(run->inputs, p.site_files);
  run->log = without_paths(run->log, run->inputs);
  return run;
}

void build(Run& run) {
  CapturedLines lines;
  std::string message;
  try {
    run.experiment.run_build(run.definition);
    for (const std::string& remark : run.experiment.messages(run.definition)) {
      if (!is_about_lists(remark)) run.remarks.push_back(remark);
    }
  } catch (...) {
    message = message_of_current();
  }
  run.log += lines.progress() + lines.faults();
  if (message.empty()) return;
  throw BadJob{{{"the waves cannot be built: " + message, span_of_message(run, message), ""}}};
}

}  // namespace Jobs
