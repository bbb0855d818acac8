#include "sea/specification.h"

#include <algorithm>
#include <string>

#include "base/units.h"

namespace Synthesis {

void Specification::add_component(Component& component) { components_.push_back(&component); }

void Specification::remove_component(Component& component) {
  const auto found = std::find(components_.begin(), components_.end(), &component);
  if (found == components_.end()) throw std::string("Failed to remove type from Specification");
  components_.erase(found);
}

void Specification::add_modifier(Modifier& modifier) {
  Modifier*& slot = modifiers_[modifier.slot()];
  if (slot != nullptr) throw std::string("Trying to overide an existing modifier");
  slot = &modifier;
}

void Specification::remove_modifier(Modifier& modifier) {
  Modifier*& slot = modifiers_[modifier.slot()];
  if (slot != &modifier) throw std::string("Trying to remove the wrong modifier");
  slot = nullptr;
}

void Specification::query(Base::Params& out) const {
  out.declare("x", Base::default_units(Base::Category::length));
  out.declare("y", Base::default_units(Base::Category::length));
  out.declare("t", Base::default_units(Base::Category::time));
}

void Specification::set(const Base::Params& in) {
  ready_ = false;
  params_.clear();
  for (const char* name : {"x", "y", "t"}) params_.merge(*in.find(name));
  ready_ = true;
}

void Specification::evaluate(Maths::FrontSet& fronts, const RunContext& context) {
  if (!ready_) throw std::string("Evaluating specification before values set");
  const double x = params_.read("x", Base::Category::length);
  const double y = params_.read("y", Base::Category::length);
  const double t = params_.read("t", Base::Category::time);
  fronts.position = {x, y, t};
  for (Component* component : components_) component->evaluate(fronts, context);
  for (Modifier* modifier : modifiers_) {
    if (modifier != nullptr) modifier->evaluate(fronts, context);
  }
}

}  // namespace Synthesis
