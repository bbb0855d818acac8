#include "jobs/add_change.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "base/enumerations.h"
#include "facade/wave_modifiers.h"
#include "jobs/bind_change.h"
#include "jobs/change_kinds.h"
#include "jobs/kept_changes.h"
#include "jobs/ready_sea.h"
#include "jobs/wave_steps.h"

namespace Jobs {
namespace {

void remark_on_seed(Preparation& p, const Part& part, const std::string& title,
                    const Base::Params& params) {
  if (part.parameters.find("seed") == nullptr || !params.contains("ran_gen")) return;
  if (params.read_enum("ran_gen", Base::EnumType::RanGen) != Base::RanGen::Default) return;
  p.run.remarks.push_back(title + ": the seed has no effect with ran_gen = \"Default\"");
}

std::optional<Change> as_modifier(Preparation& p, const Part& part, const ReadyChange* ready) {
  if (ready != nullptr) return Change{part, ready->modifier, ready->formula, part.span};
  Change change{part, part.kind, "", part.span};
  if (takes_formula(part.kind)) {
    const Value* formula = formula_of(p, part, formula_example(part.kind));
    if (formula == nullptr) return std::nullopt;
    change.formula = formula->text;
    change.formula_span = formula->span;
  }
  return change;
}

using Taken = std::array<const Part*, Synthesis::Modifier::slot_count>;

void add_change(Preparation& p, const Part& part, BuiltSea& sea, Taken& taken) {
  if (part.kind.empty()) return;  // reported when the job was read
  const ReadyChange* ready = find_ready_change(part.kind);
  const std::vector<std::string> names = modifier_names();
  if (ready == nullptr && std::find(names.begin(), names.end(), part.kind) == names.end()) {
    p.faults.push_back({fmt::format("unknown kind of change `{}`", part.kind), part.kind_span,
                        advice_for_kind(part.kind)});
    return;
  }
  const auto change = as_modifier(p, part, ready);
  if (!change) return;
  ModifierPtr modifier;
  if (!in_library(
          p, change->formula_span, "",
          [&] {
            modifier = Kelpbox::make_modifier(Base::make_enum("WaveMod", change->modifier),
                                              change->formula);
          },
          ready == nullptr ? formula_label : "")) {
    return;
  }
  const Part*& first = taken[modifier->slot()];
  const bool is_second = first != nullptr;
  if (is_second) {
    p.faults.push_back(
        {fmt::format("a second change of {} in {}", slot_name(modifier->slot()), sea.name),
         part.span, fmt::format("the first is `{}`", first->kind)});
  } else {
    first = &part;
  }
  auto params = bind_change(p, *change, *modifier, ready);
  if (!params || is_second) return;
  const std::string title = title_in_sea(part, sea.name);
  remark_on_seed(p, part, title, *params);
  const bool is_gain = change->modifier == "GainAdjust";
  if (is_gain && !keep_gain(p, *change, modifier, *params, sea)) return;
  if (change->modifier == "AngleSpread") keep_spread(p, *change, modifier, *params, sea);
  if (!p.has_site) return;
  std::uint32_t id = 0;
  if (!in_library(p, change->formula_span, title, [&] {
        id = p.run.experiment.add_modifier(sea.id, change->modifier, change->formula);
      })) {
    return;
  }
  set_with_remarks(p, part, title, *params,
                   [&](Base::Params& in) { p.run.experiment.set(id, in); });
}

}  // namespace

void add_changes(Preparation& p, const std::vector<Part>& changes, BuiltSea& sea) {
  Taken taken{};
  for (const Part& part : changes) add_change(p, part, sea, taken);
}

}  // namespace Jobs
