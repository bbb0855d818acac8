// What changes the fronts of a Specification after its components have made them.
//
// A modifier may carry an expression, a piecewise function of frequency or of angle. Made, then
// set with parameters, then evaluated as often as needed, with the same result each time.
// Failures are thrown as std::string.
#ifndef KELPBOX_SEA_MODIFIER_H_
#define KELPBOX_SEA_MODIFIER_H_

#include <cstdint>
#include <string>
#include <vector>

#include "base/params.h"
#include "base/units.h"
#include "maths/front_set.h"
#include "sea/piecewise.h"
#include "sea/run_context.h"

namespace Synthesis {

class Modifier {
 public:
  // The slots of a specification, which are also the order of effect.
  enum Slot : std::uint32_t { gain = 0, angle = 1, phase = 2 };
  static constexpr std::uint32_t slot_count = 3;

  // From a text "function # limit # function # limit # function ...", which may be empty. The
  // checks and their texts are in docs/modifiers.md.
  Modifier(Slot slot, std::string name, Base::UnitCategory limit_units,
           Base::UnitCategory output_units, const std::string& text);
  virtual ~Modifier() = default;
  Modifier(const Modifier&) = delete;
  Modifier& operator=(const Modifier&) = delete;

  Slot slot() const { return slot_; }
  const std::string& name() const { return name_; }

  // Announces the parameters that the formulas and the class need.
  void query(Base::Params& out);
  // Reads the parameters. Throws "Incompatible expression", "Limiting function not constant",
  // "Limits out of order".
  void set(Base::Params& in);
  // Changes the fronts. There is no test of readiness on purpose: a modifier may work without
  // parameters.
  void evaluate(Maths::FrontSet& fronts, const RunContext& context) {
    on_evaluate(params_, fronts, context);
  }
  // The expression at x, which is in the base unit of the limits, as is the result in its own.
  // Throws "<name>::evaluate::there is no expression".
  double value(double x) const;

 protected:
  virtual void on_query(Base::Params&) {}
  virtual void on_set(Base::Params&, Base::Params&) {}
  virtual void on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                           const RunContext& context) = 0;

 private:
  void check_order() const;
  // The number of the function that holds at x.
  std::size_t function_at(double x) const;

  Slot slot_;
  std::string name_;
  Base::UnitCategory limit_units_;   // of the functions' argument too
  Base::UnitCategory output_units_;  // of what the functions return
  Functions functions_;              // functions at even places, limits at odd ones
  // Neither is emptied by a further `set`, and hosts see it: limits are appended once more, and a
  // parameter keeps the value that it was first given.
  std::vector<double> limits_;
  Base::Params params_;
};

}  // namespace Synthesis

#endif  // KELPBOX_SEA_MODIFIER_H_
