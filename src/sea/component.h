// The sources of wave energy inside a Specification.
//
// Whatever it starts from, every component ends by putting fronts into a front set, on the
// harmonic grid of the run. Made, then set with parameters, then evaluated as often as needed.
// Failures are thrown as std::string.
#ifndef KELPBOX_SEA_COMPONENT_H_
#define KELPBOX_SEA_COMPONENT_H_

#include <ostream>
#include <string>
#include <vector>

#include "base/params.h"
#include "base/units.h"
#include "maths/front_set.h"
#include "sea/piecewise.h"
#include "sea/run_context.h"

namespace Synthesis {

class Component {
 public:
  // From a piecewise text, "limit # function # limit # function # limit ...": function i holds
  // between limit i - 1 and limit i. The checks and their texts are in docs/components.md.
  Component(std::string name, const std::string& text);
  // Without a text.
  explicit Component(std::string name);
  virtual ~Component() = default;
  Component(const Component&) = delete;
  Component& operator=(const Component&) = delete;

  const std::string& name() const { return name_; }

  // Announces the parameters that the formulas and the class need.
  void query(Base::Params& out);
  // Reads the parameters. Throws "Limit values do not increase in size"; the component then keeps
  // the readiness that it had.
  void set(Base::Params& in);
  // Puts the fronts into the set. Throws "<name>::evaluate::when not ready".
  void evaluate(Maths::FrontSet& fronts, const RunContext& context);

  // A line for each front of known frequency: the prefix, then the frequency in Hz.
  virtual void write_frequencies(std::ostream& out, const std::string& prefix) const;

 protected:
  virtual void on_query(Base::Params& out) = 0;
  virtual void on_set(Base::Params& in, Base::Params& stored) = 0;
  virtual void on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                           const RunContext& context) = 0;

  Base::Params params_;
  bool evaluated_ = false;
  bool enabled_ = true;
  bool ready_ = false;
  std::string name_;
  Functions functions_;  // limits at even places, functions at odd ones
  std::vector<double> limits_;
  Base::UnitCategory input_units_ = 0;   // what the functions take
  Base::UnitCategory output_units_ = 0;  // what they return
  Base::UnitCategory limit_units_ = 0;   // what the limits are measured in
};

}  // namespace Synthesis

#endif  // KELPBOX_SEA_COMPONENT_H_
