// The parts of a run that an evaluation uses.
#ifndef KELPBOX_SEA_RUN_CONTEXT_H_
#define KELPBOX_SEA_RUN_CONTEXT_H_

#include <string>
#include <vector>

#include "maths/run_data.h"
#include "maths/tank_config.h"

namespace Synthesis {

using Messages = std::vector<std::string>;

// Refers to values that outlive the evaluation.
struct RunContext {
  const Maths::RunData& run;      // the harmonic grid
  const Maths::TankConfig& tank;  // its range of angles
  Messages& messages;             // receives the remarks on the run
};

}  // namespace Synthesis

#endif  // KELPBOX_SEA_RUN_CONTEXT_H_
