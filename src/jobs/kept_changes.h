// What the judgement has to know of the changes of a sea.
#ifndef KELPBOX_JOBS_KEPT_CHANGES_H_
#define KELPBOX_JOBS_KEPT_CHANGES_H_

#include <memory>

#include "base/params.h"
#include "jobs/bind_change.h"
#include "jobs/preparation.h"
#include "jobs/run.h"
#include "sea/modifier.h"

namespace Jobs {

// A modifier like that of the library, which has not been set.
using ModifierPtr = std::shared_ptr<Synthesis::Modifier>;

// Keeps the gain of a GainAdjust. Returns false after a fault.
bool keep_gain(Preparation& p, const Change& change, const ModifierPtr& modifier,
               const Base::Params& params, BuiltSea& sea);

// Keeps the law of an AngleSpread, as the library narrows it. Leaves faults to the `set` of the
// library's own modifier.
void keep_spread(Preparation& p, const Change& change, const ModifierPtr& modifier,
                 const Base::Params& params, BuiltSea& sea);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_KEPT_CHANGES_H_
