// What the ready seas share: parameters, limits of frequency, and the lists that ready_seas joins.
#ifndef KELPBOX_JOBS_READY_PARTS_H_
#define KELPBOX_JOBS_READY_PARTS_H_

#include <string>
#include <vector>

#include "jobs/ready_sea.h"

namespace Jobs::Ready {

// In the order in which users see them.
std::vector<ReadySea> wind_seas();     // ready_wind_seas.cpp
std::vector<ReadySea> peaked_seas();   // ready_peaked_seas.cpp
std::vector<ReadySea> mixed_seas();    // ready_mixed_seas.cpp
std::vector<ReadySea> single_waves();  // ready_waves.cpp

// A parameter of any value.
ReadyParameter number(std::string name, std::string units, std::string meaning);
// Parameters that have to be above 0.
ReadyParameter positive(std::string name, std::string units, std::string meaning);
ReadyParameter significant_height();
ReadyParameter peak_period();

ReadyParameter gravity();  // that `complete` adds

// The parameters f_min and f_max, which every density has.
std::vector<ReadyParameter> with_limits(std::vector<ReadyParameter> parameters);
// A density with its units, between the two limits.
std::string between_limits(const std::string& density);
// Adds the site's limits where none are given. Throws "f_min::must be below f_max, ...", or
// "f_max::must be above f_min, ..." where only f_max is given.
void complete_limits(Base::Params& parameters, const ReadyContext& context);

// Frequencies in Hz.
struct FrequencyRange {
  double low = 0.0;
  double high = 0.0;
};
FrequencyRange limits_in(const Base::Params& parameters);
// The outer edges of the bands of the harmonics between the limits, both ends included. Without a
// repeat time they are the limits themselves.
FrequencyRange band_edges(const FrequencyRange& limits, const ReadyContext& context);

}  // namespace Jobs::Ready

#endif  // KELPBOX_JOBS_READY_PARTS_H_
