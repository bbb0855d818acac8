// Hands the waves of a job to the library.
#ifndef KELPBOX_JOBS_ADD_WAVE_H_
#define KELPBOX_JOBS_ADD_WAVE_H_

#include <cstddef>
#include <string>
#include <vector>

#include "jobs/job.h"
#include "jobs/preparation.h"
#include "jobs/ready_sea.h"
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

// One for each kind. Each adds one entry to the sea's asked waves, unless it adds a fault.
void add_spectrum(Preparation& p, const WavePlace& wave);  // add_formula_wave.cpp
void add_time(Preparation& p, const WavePlace& wave);
void add_record(Preparation& p, const WavePlace& wave);  // add_record.cpp
void add_fronts(Preparation& p, const WavePlace& wave);  // add_list_wave.cpp
void add_table(Preparation& p, const WavePlace& wave);
void add_ready_sea(Preparation& p, const WavePlace& wave, const ReadySea& ready);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_ADD_WAVE_H_
