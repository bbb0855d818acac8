#include "facade/experiment.h"
#include "facade/guard.h"

namespace Kelpbox {

void Experiment::set_workers(unsigned workers) {
  executor_ = Base::Executor(workers);
  for (const std::uint32_t id : definitions_) definition(id).set_executor(executor_);
}

void Experiment::run_build(std::uint32_t id) {
  guarded<LogItems::shown>("Uncaught Exception in Run Build", [&] {
    item(id);
    if (!context().ready()) throw std::string("Building run when context not ready");
    definition(id).run_build();
  });
}

std::uint32_t Experiment::run_size(std::uint32_t id) { return definition(id).run_size(); }

Maths::RunData& Experiment::repeat(std::uint32_t id) { return definition(id).repeat(); }

Maths::Position& Experiment::position(std::uint32_t id, std::uint32_t index) {
  return definition(id).position(index);
}

const std::vector<Maths::TransferFront>& Experiment::fronts(std::uint32_t id, std::uint32_t index) {
  return definition(id).fronts(index);
}

const std::vector<Synthesis::Front>& Experiment::fronts(std::uint32_t id, bool merged) {
  return definition(id).fronts(merged);
}

std::vector<std::string> Experiment::messages(std::uint32_t id) {
  return guarded<LogItems::shown>("Uncaught Exception in get messages",
                                  [&] { return definition(id).messages(); });
}

void Experiment::paddle_motion_build(std::uint32_t id, Base::Params& in) {
  definition(id).paddle_motion_build(in);
}

const std::vector<double>& Experiment::paddle_motion_data(std::uint32_t id, std::uint32_t bank,
                                                          std::uint32_t paddle) {
  return definition(id).paddle_motion_data(bank, paddle);
}

void Experiment::paddle_motion_stats(std::uint32_t id, std::uint32_t bank, Base::Params& out) {
  definition(id).paddle_motion_stats(bank, out);
}

}  // namespace Kelpbox
