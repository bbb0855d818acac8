// The parameters of a change.
#ifndef KELPBOX_JOBS_BIND_CHANGE_H_
#define KELPBOX_JOBS_BIND_CHANGE_H_

#include <optional>
#include <string>

#include "base/params.h"
#include "jobs/preparation.h"
#include "jobs/ready_sea.h"
#include "sea/modifier.h"

namespace Jobs {

// A change of a job as the library takes it.
struct Change {
  const Part& part;
  std::string modifier;  // "AngleSpread"
  std::string formula;
  Span formula_span;
};

// The parameters for the change's modifier, or nothing after a fault. `ready` is null for the
// library's own kinds.
std::optional<Base::Params> bind_change(Preparation& p, const Change& change,
                                        Synthesis::Modifier& modifier, const ReadyChange* ready);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_BIND_CHANGE_H_
