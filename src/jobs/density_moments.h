// The moments of a variance density that is given as a function.
#ifndef KELPBOX_JOBS_DENSITY_MOMENTS_H_
#define KELPBOX_JOBS_DENSITY_MOMENTS_H_

#include <vector>

#include "jobs/density_integral.h"
#include "jobs/sea_moments.h"

namespace Jobs {

// The moments over the frequencies between `from`, at least 0, and `to`, which may be infinite. The
// density may jump or bend at the breaks; `peaks` are frequencies near its maxima, and help to find
// narrow ones. By adaptive Gauss-Kronrod rules of 15 points (Piessens et al. 1983, "QUADPACK"), to
// about 1e-7. A moment that does not converge, because it is infinite or the density is not finite,
// is NaN.
Moments density_moments(const Density& density, double from, double to,
                        const std::vector<double>& breaks, const std::vector<double>& peaks);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_DENSITY_MOMENTS_H_
