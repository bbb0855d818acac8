// The surface that the paddles make at a place.
#ifndef KELPBOX_JOBS_MADE_SURFACE_H_
#define KELPBOX_JOBS_MADE_SURFACE_H_

#include <complex>
#include <vector>

#include "jobs/paddle_shares.h"
#include "maths/front.h"

namespace Jobs {

// The wave that the paddles make at a place, by linear theory: the complex amplitude in m of each
// harmonic from 0. `merged` are the fronts at the paddle line. Fronts with values that are not
// finite are ignored. Throws as add_fronts.
std::vector<std::complex<double>> made_surface(const std::vector<Synthesis::Front>& merged,
                                               const WavePath& path, double x, double y);
// Its elevation in m at a time in s.
double elevation(const std::vector<std::complex<double>>& surface, double repeat, double time);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_MADE_SURFACE_H_
