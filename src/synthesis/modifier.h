// What changes the fronts of a Specification after its components have made them.
#ifndef KELPBOX_SYNTHESIS_MODIFIER_H_
#define KELPBOX_SYNTHESIS_MODIFIER_H_

#include <cstdint>
#include <string>
#include <utility>

#include "base/params.h"
#include "maths/front_set.h"
#include "maths/run_data.h"
#include "maths/tank_config.h"
#include "synthesis/component.h"

namespace Synthesis {

class Modifier {
 public:
  // The slots of a specification, which are also the order of effect.
  enum Slot : std::uint32_t { gain = 0, angle = 1, phase = 2 };
  static constexpr std::uint32_t slot_count = 3;

  Modifier(Slot slot, std::string name) : slot_(slot), name_(std::move(name)) {}
  virtual ~Modifier() = default;
  Modifier(const Modifier&) = delete;
  Modifier& operator=(const Modifier&) = delete;

  Slot slot() const { return slot_; }
  const std::string& name() const { return name_; }

  void query(Base::Params& out) { on_query(out); }
  void set(Base::Params& in) { on_set(in, params_); }
  // There is no test of readiness on purpose: a modifier may work without parameters.
  void evaluate(Maths::FrontSet& fronts, const Maths::RunData& run, const Maths::TankConfig& tank,
                Messages& messages) {
    on_evaluate(params_, fronts, run, tank, messages);
  }

 protected:
  virtual void on_query(Base::Params&) {}
  virtual void on_set(Base::Params&, Base::Params&) {}
  virtual void on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                           const Maths::RunData& run, const Maths::TankConfig& tank,
                           Messages& messages) = 0;

  Base::Params params_;

 private:
  Slot slot_;
  std::string name_;
};

}  // namespace Synthesis

#endif  // KELPBOX_SYNTHESIS_MODIFIER_H_
