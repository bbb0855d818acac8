// The sources of wave energy inside a Specification.
//
// Every component puts fronts into a front set, on the harmonic grid of the run. It is made, then
// set with parameters, then evaluated as often as needed. Failures are thrown as std::string.
#ifndef KELPBOX_SEA_COMPONENT_H_
#define KELPBOX_SEA_COMPONENT_H_

#include <ostream>
#include <string>
#include <utility>

#include "base/params.h"
#include "maths/front_set.h"
#include "sea/run_context.h"

namespace Synthesis {

class Component {
 public:
  explicit Component(std::string name) : name_(std::move(name)) {}
  virtual ~Component() = default;
  Component(const Component&) = delete;
  Component& operator=(const Component&) = delete;

  const std::string& name() const { return name_; }

  // Declares the parameters that the component needs.
  void query(Base::Params& out) { on_query(out); }
  // Reads all parameters again each time. A failed set does not change whether the component is
  // ready, on purpose: each class checks during evaluation what a failed set may have left.
  void set(Base::Params& in);
  // Adds the fronts to the set. Throws "<name>::evaluate::when not ready" without a good set.
  void evaluate(Maths::FrontSet& fronts, const RunContext& context);

  // Whether the component has been evaluated since the last set.
  bool evaluated() const { return evaluated_; }
  // False makes `evaluate` add nothing.
  bool enabled = true;
  // Writes a line for each front of known frequency: the prefix, then the frequency in Hz.
  virtual void write_frequencies(std::ostream&, const std::string& /*prefix*/) const {}

 protected:
  virtual void on_query(Base::Params& out) = 0;
  // Copies what evaluation needs from `in` to `stored`, which is empty. May write back to `in`.
  virtual void on_set(Base::Params& in, Base::Params& stored) = 0;
  virtual void on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                           const RunContext& context) = 0;

 private:
  std::string name_;
  Base::Params params_;
  bool ready_ = false;
  bool evaluated_ = false;
};

}  // namespace Synthesis

#endif  // KELPBOX_SEA_COMPONENT_H_
