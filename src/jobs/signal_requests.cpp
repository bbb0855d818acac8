#include "jobs/signal_requests.h"

#include <fmt/format.h>

#include <cmath>
#include <utility>

#include "base/constants.h"
#include "base/enumerations.h"
#include "jobs/bind_parameters.h"
#include "jobs/fallbacks.h"
#include "jobs/field_request.h"
#include "jobs/request_limits.h"

namespace Jobs {
namespace {

namespace Category = Base::Category;

void declare(Declared& declared, const char* name, Base::UnitCategory category) {
  declared.params.declare(name, Base::default_units(category));
}

std::string hertz(double rate) { return fmt::format("{} Hz", rate); }

// A rate that the job does not give has been judged where it comes from.
void judge_rate(Preparation& p, const Part& part, double rate) {
  if (part.parameters.find("rate") != nullptr) require_samples(p, rate, span_of(part, "rate"));
}

void read_drive(Preparation& p) {
  const Part& part = p.run.job.drive;
  Declared declared;
  declare(declared, "rate", Category::frequency);
  declare(declared, "ramp", Category::time);
  declared.params.declare_enum("stop_at_limit", Base::EnumType::Bool);
  declared.fallbacks = fallbacks_of("drive");
  // Without a site the run fails anyway.
  const double base_rate =
      p.has_site ? p.run.experiment.context().get(Common::Limit::base_rate) : 1.0;
  declared.fallbacks["rate"] = hertz(base_rate);
  const auto params = bind_parameters(part, declared, p.faults);
  if (!params) {
    p.run.drive.rate = base_rate;
    return;
  }
  p.run.drive.rate = params->read("rate", Category::frequency);
  p.run.drive.ramp = params->read("ramp", Category::time);
  p.run.drive.stop_at_limit =
      params->read_enum("stop_at_limit", Base::EnumType::Bool) == Base::Bool::True;
  const bool has_rate = part.parameters.find("rate") != nullptr;
  require_samples(p, p.run.drive.rate,
                  span_of(has_rate ? part : p.run.job.run, has_rate ? "rate" : "repeat"));
  if (p.run.drive.ramp < 0.0) {
    p.faults.push_back({"`ramp` must not be negative", span_of(part, "ramp"), ""});
  }
}

void judge_sectors(Preparation& p, const Part& part, double width) {
  constexpr double most_sectors = 3600.0;
  const double sectors = std::round(Base::TwoPi / width);
  if (width > 0.0 && sectors >= 1.0 && sectors <= most_sectors) return;
  p.faults.push_back({"`delta_angle` must be between 0.1 and 360 deg", span_of(part, "delta_angle"),
                      "the width of a sector of directions"});
}

void read_point(Preparation& p, const PointPart& point) {
  Declared declared;
  for (const char* name : {"x", "y"}) declare(declared, name, Category::length);
  declare(declared, "rate", Category::frequency);
  declare(declared, "delta_angle", Category::angle);
  declared.fallbacks = fallbacks_of("point");
  declared.fallbacks["rate"] = hertz(p.run.drive.rate);
  declared.own_keys = {"name"};
  const auto params = bind_parameters(point.part, declared, p.faults);
  if (!params) return;
  PointRequest request;
  request.name = point.name;
  request.x = params->read("x", Category::length);
  request.y = params->read("y", Category::length);
  request.rate = params->read("rate", Category::frequency);
  request.delta_angle = params->read("delta_angle", Category::angle);
  lies_in_tank(p, point.part, "x", request.x);
  lies_across_tank(p, point.part, "y", request.y);
  judge_rate(p, point.part, request.rate);
  judge_sectors(p, point.part, request.delta_angle);
  p.run.points.push_back(std::move(request));
}

}  // namespace

void read_requests(Preparation& p) {
  read_drive(p);
  for (const PointPart& point : p.run.job.points) read_point(p, point);
  if (p.run.job.has_field) read_field(p);
}

}  // namespace Jobs
