// Jobs that only take long are left out: docs/limits.md has the largest sizes.
#ifndef KELPBOX_FUZZ_JOB_SIZE_H_
#define KELPBOX_FUZZ_JOB_SIZE_H_

#include <string>

#include "base/units.h"
#include "jobs/job.h"
#include "jobs/quantity_text.h"
#include "jobs/run.h"

namespace Fuzz {

// Whether the repeat time, as far as it can be read, has few harmonics.
inline bool is_short(const Jobs::Job& job) {
  constexpr double longest = 500.0;  // s
  const Jobs::Value* repeat = job.run.parameters.find("repeat");
  if (repeat == nullptr || repeat->kind != Jobs::Value::Kind::text) return true;
  try {
    const Jobs::QuantityText given = Jobs::read_quantity(repeat->text);
    return !(given.value * Base::factor_to_base(given.units, Base::Category::time) > longest);
  } catch (const std::string&) {
    return true;  // it is refused
  }
}

// Whether all signals are short.
inline bool is_small(Jobs::Run& run) {
  constexpr double most_samples = 5000.0;
  const double repeat = run.experiment.repeat(run.definition).value();
  if (repeat * run.drive.rate > most_samples) return false;
  for (const Jobs::PointRequest& point : run.points) {
    if (repeat * point.rate > most_samples) return false;
  }
  for (const Jobs::Sea& sea : run.job.seas) {
    for (const Jobs::Part& wave : sea.waves) {
      // Their own rates are in their parameters.
      if (wave.parameters.find("rate") != nullptr) return false;
    }
    for (const Jobs::Part& change : sea.changes) {
      if (change.parameters.find("delta_angle") != nullptr) return false;
    }
  }
  return true;
}

}  // namespace Fuzz

#endif  // KELPBOX_FUZZ_JOB_SIZE_H_
