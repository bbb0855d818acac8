// The modifiers, which change the fronts of a Specification after its components have made them.
//
// A modifier may carry an expression, a piecewise function of frequency or of angle. It is made,
// then set with parameters, then evaluated as often as needed, with the same result each time.
// Failures are thrown as std::string.
#ifndef KELPBOX_SEA_MODIFIER_H_
#define KELPBOX_SEA_MODIFIER_H_

#include <cstdint>
#include <string>

#include "base/params.h"
#include "base/units.h"
#include "maths/front_set.h"
#include "sea/piecewise.h"
#include "sea/run_context.h"

namespace Synthesis {

class Modifier {
 public:
  // The slots of a specification, in the order in which they take effect.
  enum Slot : std::uint32_t { gain = 0, angle = 1, phase = 2 };
  static constexpr std::uint32_t slot_count = 3;

  // The text is an expression, as parse_modifier_text takes it, or empty.
  Modifier(Slot slot, std::string name, Base::UnitCategory limit_units,
           Base::UnitCategory output_units, const std::string& text);
  virtual ~Modifier() = default;
  Modifier(const Modifier&) = delete;
  Modifier& operator=(const Modifier&) = delete;

  Slot slot() const { return slot_; }
  const std::string& name() const { return name_; }

  // Declares the parameters of the expression, then those of the class.
  void query(Base::Params& out);
  // Reads the parameters. Throws as Piecewise::append_limits does. A further `set` appends the
  // limits once more and keeps the class's parameters as they were first given: hosts see both.
  void set(Base::Params& in);
  // Changes the fronts. Whether there was a `set` is not checked on purpose: a modifier may work
  // without parameters.
  void evaluate(Maths::FrontSet& fronts, const RunContext& context) {
    on_evaluate(params_, fronts, context);
  }
  // The expression at x, from and to base units. Throws "<name>::evaluate::there is no expression".
  double value(double x) const;
  // The same for many values, until the next `set`.
  class Values;

 protected:
  virtual void on_query(Base::Params&) {}
  virtual void on_set(Base::Params& /*in*/, Base::Params& /*stored*/) {}
  virtual void on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                           const RunContext& context) = 0;

 private:
  Slot slot_;
  std::string name_;
  Piecewise expression_;
  Base::Params params_;
};

class Modifier::Values {
 public:
  // Never fails: what is wrong with the expression is reported when a value is read.
  explicit Values(const Modifier& modifier);

  // Throws as Modifier::value does.
  double operator()(double x) const;

 private:
  const Modifier& modifier_;
  Curves curves_;
};

}  // namespace Synthesis

#endif  // KELPBOX_SEA_MODIFIER_H_
