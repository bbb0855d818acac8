#include "jobs/kept_changes.h"

#include "base/enumerations.h"
#include "maths/angle.h"

namespace Jobs {

namespace Category = Base::Category;

bool keep_gain(Preparation& p, const Change& change, const ModifierPtr& modifier,
               const Base::Params& params, BuiltSea& sea) {
  Base::Params copy = params;
  if (!in_library(p, change.formula_span, "", [&] {
        modifier->set(copy);
        modifier->value(1.0);
      })) {
    return false;
  }
  sea.gain = [modifier](double frequency) { return modifier->value(frequency); };
  return true;
}

void keep_spread(Preparation& p, const Change& change, const ModifierPtr& modifier,
                 const Base::Params& params, BuiltSea& sea) {
  Base::Params narrowed = params;
  Diagnostics ignored;
  Preparation trial{p.run, ignored};
  if (!in_library(trial, change.formula_span, "", [&] { modifier->set(narrowed); })) return;
  SpreadLaw law;
  law.power = [modifier](double frequency) { return modifier->value(frequency); };
  law.half_angle =
      narrowed.read_enum("function", Base::EnumType::SpreadFunc) == Base::SpreadFunc::Cos2S;
  law.mean = narrowed.read("angle", Category::angle);
  law.below = Maths::wrap_angle(law.mean - narrowed.read("min_angle", Category::angle));
  law.above = Maths::wrap_angle(narrowed.read("max_angle", Category::angle) - law.mean);
  law.limits_asked = change.part.parameters.find("min_angle") != nullptr ||
                     change.part.parameters.find("max_angle") != nullptr;
  sea.spread = law;
}

}  // namespace Jobs
