#include "sea/component.h"

namespace Synthesis {

void Component::set(Base::Params& in) {
  params_.clear();
  evaluated_ = false;
  on_set(in, params_);
  ready_ = true;
}

void Component::evaluate(Maths::FrontSet& fronts, const RunContext& context) {
  if (!ready_) throw name_ + "::evaluate::when not ready";
  if (enabled) on_evaluate(params_, fronts, context);
  evaluated_ = true;
}

}  // namespace Synthesis
