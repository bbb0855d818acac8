// The sum of two front sets.
#ifndef KELPBOX_MATHS_MERGE_SETS_H_
#define KELPBOX_MATHS_MERGE_SETS_H_

#include "maths/front_set.h"

namespace Maths {

// Adds `other` to `target`. Fronts of equal angle at the same place in the lists of a harmonic
// become one front; all others are appended. Throws std::string "Error in position when merging
// fronts", "Mismatched sizes in front sets", and what FrontSet::append throws.
void merge_sets(FrontSet& target, const FrontSet& other);

}  // namespace Maths

#endif  // KELPBOX_MATHS_MERGE_SETS_H_
