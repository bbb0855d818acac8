#include "animation/animation_frames.h"
#include "facade/experiment.h"
#include "facade/guard.h"

namespace Kelpbox {

void Experiment::animate_init(std::uint32_t id, Base::Params& in) {
  guarded<LogItems::shown>("Uncaught Exception in Animate Init",
                           [&] { definition(id).animate_init(in); });
}

void Experiment::animate_build(std::uint32_t id, Base::Params& in) {
  guarded<LogItems::shown>("Uncaught Exception in Animate Build",
                           [&] { definition(id).animate_build(in); });
}

void Experiment::animate_build_slice(std::uint32_t id, const Base::Params&, std::uint32_t first,
                                     std::uint32_t last) {
  guarded<LogItems::shown>("Uncaught Exception in Animate Build slice",
                           [&] { definition(id).animate_build_slice(first, last); });
}

const std::vector<std::int16_t>& Experiment::animate_data(std::uint32_t id, std::uint32_t index) {
  return definition(id).animate_data(index);
}

std::uint32_t Experiment::animate_size(std::uint32_t id) {
  return definition(id).animate_size(Synthesis::AnimationFrames::t_size);
}

double Experiment::animate_progress(std::uint32_t id) { return definition(id).animate_progress(); }

bool Experiment::animate_ready(std::uint32_t id) { return definition(id).animate_ready(); }

void Experiment::animate_stop(std::uint32_t id) { definition(id).animate_stop(); }

void Experiment::animate_free(std::uint32_t id) { definition(id).animate_free(); }

}  // namespace Kelpbox
