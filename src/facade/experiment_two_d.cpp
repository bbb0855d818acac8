#include "facade/experiment.h"
#include "facade/guard.h"

namespace Kelpbox {

void Experiment::twod_build(std::uint32_t id, Base::Params& in) {
  guarded<LogItems::shown>("Uncaught Exception in 2D Build",
                           [&] { definition(id).twod_build(in); });
}

const std::vector<double>& Experiment::twod_data(std::uint32_t id, std::int32_t which) {
  const Synthesis::Definition& run = definition(id);
  if (which < Synthesis::TwoD::time || which > Synthesis::TwoD::direction) {
    throw std::string("Unsupported enum to experiment::twod_data");
  }
  return run.twod_data(which);
}

void Experiment::twod_stats(std::uint32_t id, Base::Params& out) {
  guarded<LogItems::shown>("Uncaught Exception in Stats Build",
                           [&] { definition(id).twod_stats(out); });
}

}  // namespace Kelpbox
