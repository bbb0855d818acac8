#include "outputs/field_frames.h"

#include <algorithm>
#include <cmath>

#include "base/params.h"
#include "jobs/field_request.h"
#include "outputs/library_call.h"

namespace Outputs {
namespace {

Base::Params grid_of(const Jobs::FieldRequest& request) {
  Base::Params params;
  params.insert("rate", request.rate, "Hz");
  params.insert("x_min", request.x_min, "m");
  params.insert("x_max", request.x_max, "m");
  params.insert("x_step", request.x_step, "m");
  params.insert("y_min", request.y_min, "m");
  params.insert("y_max", request.y_max, "m");
  params.insert("y_step", request.y_step, "m");
  return params;
}

FieldAxis axis_of(double from, double to, double step) {
  return {from, step, static_cast<std::size_t>(std::llround((to - from) / step)) + 1};
}

bool is_about_memory(const std::string& message) {
  return message.find("bad_alloc") != std::string::npos ||
         message.find("not enough memory") != std::string::npos;
}

}  // namespace

FieldFrames::FieldFrames(Jobs::Run& run, const Progress& progress) : run_(run) {
  // The library keeps the frames of an earlier build, whatever grid is asked for now.
  release();
  try {
    init();
    build_columns(progress);
  } catch (...) {
    release();
    throw;
  }
}

FieldFrames::~FieldFrames() { release(); }

void FieldFrames::init() {
  const Jobs::FieldRequest& request = *run_.field;
  Base::Params params = grid_of(request);
  try {
    library_call(run_, "field", run_.job.field.span,
                 [&] { run_.experiment.animate_init(run_.definition, params); });
  } catch (const Jobs::BadJob& bad) {
    if (!is_about_memory(bad.faults.front().fault)) throw;
    const double repeat = run_.experiment.repeat(run_.definition).value();
    throw Jobs::BadJob{
        {Jobs::field_too_large(Jobs::field_bytes(request, repeat), run_.job.field.span)}};
  }
  remarks_ = comments_of(params);
  rate_ = params.read("rate", Base::Category::frequency);
  frames_ = run_.experiment.animate_size(run_.definition);
  x_ = axis_of(request.x_min, request.x_max, params.read("x_step", Base::Category::length));
  y_ = axis_of(request.y_min, request.y_max, params.read("y_step", Base::Category::length));
}

void FieldFrames::build_columns(const Progress& progress) {
  const Step step(progress, "field");
  // Enough columns to share out.
  const unsigned workers = run_.experiment.workers();
  const std::size_t slice = std::max<std::size_t>(workers == 1 ? 1 : 4 * workers, x_.count / 200);
  for (std::size_t first = 0; first < x_.count; first += slice) {
    step.done(first, x_.count);
    library_call(run_, "field", run_.job.field.span, [&] {
      run_.experiment.animate_build_slice(run_.definition, Base::Params(),
                                          static_cast<std::uint32_t>(first),
                                          static_cast<std::uint32_t>(first + slice));
    });
  }
  step.done(1, 1);
}

const std::vector<std::int16_t>& FieldFrames::frame(std::size_t index) const {
  return run_.experiment.animate_data(run_.definition, static_cast<std::uint32_t>(index));
}

void FieldFrames::release() noexcept {
  run_.experiment.animate_stop(run_.definition);
  run_.experiment.animate_free(run_.definition);
}

}  // namespace Outputs
