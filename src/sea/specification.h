// A group of waves: its components, up to one modifier of each kind, and the position and time at
// which the phases of its fronts hold.
#ifndef KELPBOX_SEA_SPECIFICATION_H_
#define KELPBOX_SEA_SPECIFICATION_H_

#include <array>
#include <vector>

#include "base/params.h"
#include "maths/front_set.h"
#include "sea/component.h"
#include "sea/modifier.h"
#include "sea/run_context.h"

namespace Synthesis {

// Does not own its components and modifiers. Each must be removed before it is destroyed. Failures
// are thrown as std::string.
class Specification {
 public:
  void add_component(Component& component);
  // Throws "Failed to remove type from Specification".
  void remove_component(Component& component);
  // Throws "Trying to overide an existing modifier".
  void add_modifier(Modifier& modifier);
  // Throws "Trying to remove the wrong modifier".
  void remove_modifier(Modifier& modifier);

  // Declares "x", "y" and "t".
  void query(Base::Params& out) const;
  void set(const Base::Params& in);

  // Applies the components in the order of adding, then the modifiers: gain, angle, phase. Throws
  // "Evaluating specification before values set".
  void evaluate(Maths::FrontSet& fronts, const RunContext& context);

 private:
  bool ready_ = false;
  Base::Params params_;
  std::vector<Component*> components_;
  std::array<Modifier*, Modifier::slot_count> modifiers_{};  // by slot
};

}  // namespace Synthesis

#endif  // KELPBOX_SEA_SPECIFICATION_H_
