// Hands the waves of a job to the library.
#ifndef KELPBOX_JOBS_ADD_WAVE_H_
#define KELPBOX_JOBS_ADD_WAVE_H_

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "jobs/bind_parameters.h"
#include "jobs/job.h"
#include "jobs/preparation.h"
#include "jobs/run.h"

namespace Jobs {

// A wave of a job, and the sea that it belongs to.
struct WavePlace {
  const Part& part;
  BuiltSea& sea;
  std::string name;  // of the component, in the library's messages: "storm, wave 1"
};

// The kinds of waves: the library's own, then the ready seas.
std::vector<std::string> wave_kinds();

std::string wave_name(const std::string& sea, std::size_t index);

// Checks the wave, adds it to the specification if there is one, and adds what it asks for to the
// sea. Faults are added.
void add_wave(Preparation& p, const Part& part, BuiltSea& sea, std::size_t index);

// The kinds that read a file.
void add_record(Preparation& p, const WavePlace& wave);
void add_fronts(Preparation& p, const WavePlace& wave);
void add_table(Preparation& p, const WavePlace& wave);

// Adds a component to the sea's specification, if there is one, and sets it. Faults are added.
void hand_over(Preparation& p, const WavePlace& wave, Base::Params& params,
               const std::function<std::uint32_t()>& add);

// The text of the key `formula`. Adds a fault and returns null if there is none.
const Value* formula_of(Preparation& p, const Part& part, const std::string& example);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_ADD_WAVE_H_
