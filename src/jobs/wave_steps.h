// The steps that the kinds of waves share.
#ifndef KELPBOX_JOBS_WAVE_STEPS_H_
#define KELPBOX_JOBS_WAVE_STEPS_H_

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "base/params.h"
#include "jobs/add_wave.h"
#include "jobs/asked_density.h"
#include "jobs/preparation.h"
#include "sea/piecewise.h"

namespace Jobs {

// The text of the key `formula`. Adds a fault and returns null if there is none.
const Value* formula_of(Preparation& p, const Part& part, const std::string& example);

// Formulas for what a wave asks for. The library's component has its own.
struct WaveFormulas {
  Span place;  // for faults
  std::shared_ptr<Synthesis::Piecewise> pieces;
};

// Binds the formulas and reads their limits. Returns false after a fault.
bool bind_formulas(Preparation& p, const WaveFormulas& formulas, const Base::Params& params);

// Binds formulas of frequency and adds the density that they ask for to the sea. Returns false
// after a fault, also for a spectrum outside the run's harmonics.
bool add_density(Preparation& p, const WavePlace& wave, const WaveFormulas& formulas,
                 const Base::Params& params, OpenEnds ends);

// Adds a component to the sea's specification, if there is one, and sets it. Faults are added.
void hand_over(Preparation& p, const WavePlace& wave, Base::Params& params,
               const std::function<std::uint32_t()>& add);

// Hands over a single wave and adds what it asks for to the sea.
void add_single_wave(Preparation& p, const WavePlace& wave, Base::Params& params);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_WAVE_STEPS_H_
