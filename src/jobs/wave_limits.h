// Lengths, limits and validity of waves in water of a given depth.
#ifndef KELPBOX_JOBS_WAVE_LIMITS_H_
#define KELPBOX_JOBS_WAVE_LIMITS_H_

#include <optional>
#include <vector>

namespace Jobs {

// Frequencies in Hz, lengths in m. Each is NaN where linear theory has no wave number.
double wave_number(double frequency, double depth, double g);
double wave_length(double frequency, double depth, double g);
// The ratio of the variance in water of depth `to` to that in depth `from`, for a wave straight
// along the tank: the inverse ratio of the group velocities.
double variance_ratio(double frequency, double from, double to, double g);

// The greatest H / L of a wave of that relative depth: Miche (1944), "Mouvements ondulatoires de la
// mer en profondeur constante ou decroissante".
double miche_limit(double k, double depth);
// Ursell (1953), "The long-wave paradox in the theory of gravity waves": H L^2 / d^3.
double ursell_number(double height, double length, double depth);

struct ZeroCrossingWave {
  double height = 0.0;  // m, from trough to crest
  double period = 0.0;  // s
};

// The highest wave between two downward zero crossings of a record that repeats. The crossings are
// interpolated; crests and troughs are those of the parabola through three samples. Empty for a
// record without a crossing or with samples that are not finite.
std::optional<ZeroCrossingWave> highest_wave(const std::vector<double>& record, double rate);

// How much too high the transfer ratio of a machine is whose hinge or foot is assumed `edge` below
// the water line, deeper than the bed: the ratio of that depth divided by the one in which only the
// part of the paddle above the bed moves water. Dean and Dalrymple (1991), chapter 6.
double below_bed_ratio(double k, double depth, double edge, bool flap);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_WAVE_LIMITS_H_
