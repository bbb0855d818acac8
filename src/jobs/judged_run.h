// Everything about a run that the judgement compares.
#ifndef KELPBOX_JOBS_JUDGED_RUN_H_
#define KELPBOX_JOBS_JUDGED_RUN_H_

#include <optional>
#include <string>
#include <vector>

#include "jobs/asked_sea.h"
#include "jobs/drive_signals.h"
#include "jobs/front_fate.h"
#include "jobs/run.h"
#include "jobs/sea_moments.h"
#include "jobs/spectrum_peak.h"
#include "jobs/wave_limits.h"

namespace Jobs {

struct FocusCrest {
  std::string sea;
  double asked = 0.0;  // m
  double made = 0.0;
  bool alone = false;  // no other sea adds to it
};

struct JudgedRun {
  JudgedRun(Run& judged_run, const DriveSignals* signals) : run(judged_run), drive(signals) {}

  Run& run;
  const DriveSignals* drive;  // null without signals

  // The first sea's position, where waves are compared.
  WavePath path;
  Maths::Position reference;
  double depth = 0.0;   // m, there
  double repeat = 0.0;  // s
  double g = 0.0;       // m/s2
  double band_low = 0.0;
  double band_high = 0.0;  // Hz, the edges of the run's lowest and highest harmonic

  std::vector<SeaChanges> changes;  // of each sea
  std::vector<Carried> carried;     // from each sea to the reference point
  AskedSea asked;
  bool random_amplitudes = false;
  double amplitude_chance = 0.0;  // relative standard deviation of Hs that they bring
  bool fan = false;
  bool spread_by_law = false;
  Moments below;  // asked below, in and above the band
  Moments band;
  Moments above;
  Moments all;  // of the three
  std::optional<DensityPeak> peak;

  FrontFates fates;
  std::vector<double> made;  // m2 at the reference point, by harmonic
  Moments made_moments;

  std::vector<double> record;  // at the reference point, over one repeat; empty if there is none
  double record_rate = 0.0;    // Hz
  double record_m0 = 0.0;      // m2
  std::optional<ZeroCrossingWave> highest;
  std::vector<FocusCrest> crests;

  double asked_m0() const { return all.m0 + asked.other; }
  // The frequency in Hz that stands for the waves: of the peak, or the mean one. NaN for still
  // water.
  double characteristic_frequency() const;
};

// Carries all fronts, and builds the wave at the reference point. Throws whatever the library
// throws.
JudgedRun examine(Run& run, const DriveSignals* drive);

// The depth at x. Throws std::string for a place outside the tank.
double depth_at(const WavePath& path, double x);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_JUDGED_RUN_H_
