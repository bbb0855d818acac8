// A bank of paddles as its drive signals need to be described.
#ifndef KELPBOX_OUTPUTS_BANK_LAYOUT_H_
#define KELPBOX_OUTPUTS_BANK_LAYOUT_H_

#include <cstdint>
#include <string>
#include <vector>

#include "jobs/run.h"

namespace Outputs {

struct PaddlePlace {
  std::int32_t number = 0;  // as the site script counts
  double x = 0.0;           // m
  double y = 0.0;
  double angle = 0.0;  // rad, of the normal into the water
};

std::vector<PaddlePlace> bank_layout(Jobs::Run& run, std::uint32_t bank);

// What a sample in "rad" or "m" is.
std::string signal_meaning(const std::string& units);

// "ramp 5 s at both ends (cosine taper)", or that there is none.
std::string ramp_text(const Jobs::DriveRequest& drive);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_BANK_LAYOUT_H_
