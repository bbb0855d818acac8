#include "jobs/run.h"

#include <fmt/format.h>

#include <utility>

#include "jobs/add_change.h"
#include "jobs/add_wave.h"
#include "jobs/bind_parameters.h"
#include "jobs/captured_lines.h"
#include "jobs/failure.h"
#include "jobs/fallbacks.h"
#include "jobs/input_files.h"
#include "jobs/preparation.h"
#include "jobs/read_site.h"
#include "jobs/signal_requests.h"
#include "run/definition.h"

namespace Jobs {
namespace {

namespace Category = Base::Category;

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
  const bool has_run = part.span.line != 0;
  auto params = has_run ? bind_parameters(part, declared, p.faults) : std::nullopt;
  if (!p.has_site) return;
  run.definition = run.experiment.add_definition(run.job.title);
  if (!params) return;
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
    if (p.has_site) {
      set_with_remarks(p, sea.holds, sea.holds.title, *params,
                       [&](Base::Params& in) { p.run.experiment.set(built.id, in); });
    }
  }
  for (std::size_t i = 0; i < sea.waves.size(); ++i) add_wave(p, sea.waves[i], built, i);
  add_changes(p, sea.changes, built);
  p.run.seas.push_back(std::move(built));
}

// The wave that a message of the library begins with, or the run.
Span span_of_message(const Run& run, const std::string& message) {
  for (const Sea& sea : run.job.seas) {
    for (std::size_t i = 0; i < sea.waves.size(); ++i) {
      if (message.starts_with(wave_name(sea.name, i) + "::")) return sea.waves[i].span;
    }
  }
  return run.job.run.span;
}

}  // namespace

std::unique_ptr<Run> prepare(Job job, Diagnostics faults) {
  auto run = std::make_unique<Run>();
  run->job = std::move(job);
  Preparation p{*run, faults};
  read_site(p);
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
      run.remarks.push_back(remark);
    }
  } catch (...) {
    message = message_of_current();
  }
  run.log += lines.progress() + lines.faults();
  if (message.empty()) return;
  throw BadJob{{{"the waves cannot be built: " + message, span_of_message(run, message), ""}}};
}

}  // namespace Jobs
