// The criteria of the judgement, each with its reason. docs/judgement.md explains them to users.
#ifndef KELPBOX_JOBS_JUDGE_CRITERIA_H_
#define KELPBOX_JOBS_JUDGE_CRITERIA_H_

namespace Jobs::Criteria {

// The sea. Measured wave heights are good to one or two per cent, so a smaller difference cannot be
// seen in a tank.
inline constexpr double height = 0.02;
// Mean periods depend on the tail of the spectrum, the more the higher the moment. Tm02 loses about
// a tenth when a JONSWAP sea is cut at 2.2 times its peak frequency.
inline constexpr double tm01 = 0.05;
inline constexpr double tm02 = 0.10;
inline constexpr double tm_10 = 0.05;
// The period of a regular wave, which moves to the nearest harmonic.
inline constexpr double period = 0.01;
// The peak of random amplitudes, after smoothing.
inline constexpr double random_peak = 0.10;
// A spectrum that has this share of its greatest density a tenth of the frequency further has no
// peak: it is white noise.
inline constexpr double flat_top = 0.99;
inline constexpr double direction_deg = 2.0;
inline constexpr double spread = 0.10;
// A sea whose spread is below this is long-crested: no spread is shown.
inline constexpr double least_spread_deg = 0.5;
// Standard deviations of what chance alone decides: one run in 400 fails by chance.
inline constexpr double chance = 3.0;

// What is lost on the way. A share of 1 % of the variance is 0.5 % of the height.
inline constexpr double lost_share = 0.01;
// Smaller shares are not reported at all.
inline constexpr double lost_trace = 1e-6;

// The machine.
// Share of the run during which the ramps lower the waves.
inline constexpr double ramp_share = 0.10;
// The step from the last sample to the first, in units of the largest step between neighbours.
inline constexpr double end_step = 1.05;

// Waves.
// Fewer waves scatter extremes and groups. EurOtop (2018) tests with 1,000 waves; Romano and others
// (2015) found 500 enough.
inline constexpr double waves_per_run = 500.0;
// Harmonics within the half-power width of the peak: fewer do not draw its shape.
inline constexpr double peak_harmonics = 5.0;
// Miche (1944): H / L = 0.142 tanh(kd) for the steepest wave of permanent form.
inline constexpr double miche = 0.142;
// The highest of a thousand waves is about twice the significant height (Longuet-Higgins 1952), so
// the sea begins to break when its significant steepness is half of Miche's limit.
inline constexpr double significant_share = 0.5;
// Nelson (1994): the highest stable wave over a horizontal bed.
inline constexpr double height_to_depth = 0.55;
// Ursell number H L^2 / d^3 at which the second-order bound wave is a tenth of the wave: its ratio
// in shallow water is 3 / (32 pi^2) of the Ursell number (Dean and Dalrymple 1991, chapter 11).
inline constexpr double ursell = 10.0;
// Paddle widths in the shortest wave. From two on, all directions can be made (Biesel 1954).
inline constexpr double widths_per_wave = 2.0;
// Limits of the theory as built: the error of the height that is still good.
inline constexpr double theory = 0.02;

}  // namespace Jobs::Criteria

#endif  // KELPBOX_JOBS_JUDGE_CRITERIA_H_
