// A job in the library: the site is read, the tree is made and every parameter is set.
#ifndef KELPBOX_JOBS_RUN_H_
#define KELPBOX_JOBS_RUN_H_

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/params.h"
#include "base/vector.h"
#include "facade/experiment.h"
#include "jobs/asked_wave.h"
#include "jobs/diagnostic.h"
#include "jobs/job.h"
#include "jobs/spread_law.h"

namespace Jobs {

// A file that the job used, with its contents as they were read.
struct InputFile {
  std::string path;  // as opened
  std::string name;  // below inputs/, with "/"; unique
  std::string text;
};

struct BuiltSea {
  std::string name;
  std::uint32_t id = 0;  // of the specification
  Maths::Position position;
  std::vector<AskedWave> asked;  // one for each wave
  // The gain that a GainAdjust of this sea applies at a frequency in Hz; empty without one.
  std::function<double(double)> gain;
  std::optional<SpreadLaw> spread;  // of an AngleSpread of this sea
};

struct DriveRequest {
  double rate = 0.0;  // Hz
  double ramp = 0.0;  // s
  bool stop_at_limit = false;
};

struct PointRequest {
  std::string name;
  double x = 0.0;  // m
  double y = 0.0;
  double rate = 0.0;         // Hz
  double delta_angle = 0.0;  // rad
};

struct FieldRequest {
  double rate = 0.0;                              // Hz, as asked; the library fits it
  double x_min = 0.0, x_max = 0.0, x_step = 0.0;  // m
  double y_min = 0.0, y_max = 0.0, y_step = 0.0;
};

// Made by `prepare`. Calls of the experiment throw std::string and other types (experiment.h);
// message_of_current (failure.h) has the message of each.
struct Run {
  Job job;
  Kelpbox::Experiment experiment;
  std::uint32_t definition = 0;
  std::vector<BuiltSea> seas;
  DriveRequest drive;
  std::vector<PointRequest> points;
  std::unique_ptr<FieldRequest> field;  // null without a field
  std::vector<InputFile> inputs;        // the site script first, then its includes, then records
  std::vector<std::string>
      remarks;  // comments that the library added to parameters, with their part
  std::vector<std::unique_ptr<Base::Vector>> records;  // that components point at
  std::string log;                                     // what the library printed so far
};

// Reads the site and hands the whole job to the library, which declares what each part may say.
// Throws BadJob with all faults, those of reading included.
std::unique_ptr<Run> prepare(Job job, Diagnostics faults);

// Computes the fronts. Throws BadJob when the library refuses the sea.
void build(Run& run);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_RUN_H_
