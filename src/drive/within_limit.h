// Whether a signal clips: a fast answer for the many that do not.
#ifndef KELPBOX_DRIVE_WITHIN_LIMIT_H_
#define KELPBOX_DRIVE_WITHIN_LIMIT_H_

#include <cstddef>

namespace Synthesis {

// Whether no sample exceeds the limit in magnitude. False if a sample or the limit is NaN.
bool all_within(const double* samples, std::size_t count, double limit);

}  // namespace Synthesis

#endif  // KELPBOX_DRIVE_WITHIN_LIMIT_H_
