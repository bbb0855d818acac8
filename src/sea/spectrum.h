// A spectrum written as formulas of frequency, integrated over each harmonic's band
// (band_integral.h).
#ifndef KELPBOX_SEA_SPECTRUM_H_
#define KELPBOX_SEA_SPECTRUM_H_

#include <string>
#include <utility>

#include "sea/component.h"
#include "sea/piecewise.h"
#include "sea/piecewise_text.h"

namespace Synthesis {

// A variance density in m2s gives each harmonic the amplitude sqrt(2 * integral over its band). An
// amplitude density in ms and a length in m give the integral itself. Every front has angle 0 and
// phase 0: modifiers set directions and phases.
//
// The text is as for parse_component_text. A `set` throws as Piecewise::check_limits_rise does.
// Evaluation throws "Wave number out of range" for a spectrum outside the run, and "Evaluate has
// been called before set" or "Mismatched number of functions and limits" after a `set` that failed
// halfway.
class Spectrum : public Component {
 public:
  Spectrum(std::string name, const std::string& text)
      : Component(std::move(name)), density_(parse_component_text(text)) {}

 protected:
  void on_query(Base::Params& out) override { density_.declare(out); }
  void on_set(Base::Params& in, Base::Params& stored) override;
  void on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                   const RunContext& context) override;

 private:
  Piecewise density_;
};

}  // namespace Synthesis

#endif  // KELPBOX_SEA_SPECTRUM_H_
