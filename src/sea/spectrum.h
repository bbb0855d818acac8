// A spectrum written as formulas of frequency, integrated over each harmonic's band.
#ifndef KELPBOX_SEA_SPECTRUM_H_
#define KELPBOX_SEA_SPECTRUM_H_

#include <string>
#include <utility>

#include "sea/component.h"

namespace Synthesis {

// A variance density in m2s gives each harmonic the amplitude sqrt(2 * its band's integral); an
// amplitude density in ms and a length in m give the integral itself. Every front has angle 0 and
// phase 0: directions and phases are the modifiers' work. Evaluation throws "Wave number out of
// range" for a spectrum outside the run, and after a set that failed half way "Evaluate has been
// called before set" or "Mismatched number of functions and limits".
class Spectrum : public Component {
 public:
  Spectrum(std::string name, const std::string& text) : Component(std::move(name), text) {}

 protected:
  void on_query(Base::Params&) override {}
  void on_set(Base::Params&, Base::Params&) override {}
  void on_evaluate(const Base::Params& stored, Maths::FrontSet& fronts,
                   const RunContext& context) override;
};

}  // namespace Synthesis

#endif  // KELPBOX_SEA_SPECTRUM_H_
