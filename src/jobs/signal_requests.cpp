#include "jobs/signal_requests.h"

#include <fmt/format.h>

#include <memory>
#include <utility>

#include "base/enumerations.h"
#include "jobs/bind_parameters.h"
#include "jobs/fallbacks.h"

namespace Jobs {
namespace {

namespace Category = Base::Category;

void declare(Declared& declared, const char* name, Base::UnitCategory category) {
  declared.params.declare(name, Base::default_units(category));
}

std::string hertz(double rate) { return fmt::format("{} Hz", rate); }

void require_above_0(Preparation& p, const Part& part, const char* name, double value) {
  if (value > 0.0) return;
  p.faults.push_back({fmt::format("`{}` must be above 0", name), span_of(part, name), ""});
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
  require_above_0(p, part, "rate", p.run.drive.rate);
  if (p.run.drive.ramp < 0.0) {
    p.faults.push_back({"`ramp` must not be negative", span_of(part, "ramp"), ""});
  }
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
  require_above_0(p, point.part, "rate", request.rate);
  require_above_0(p, point.part, "delta_angle", request.delta_angle);
  p.run.points.push_back(std::move(request));
}

struct Range {
  double from = 0.0;
  double to = 0.0;
  double step = 0.0;
};

// The range `name` of [field], which is a table of its own.
Range read_range(Preparation& p, const std::string& name) {
  const Part& field = p.run.job.field;
  const Value* value = field.parameters.find(name);
  const char* example = "{ from = \"0 m\", to = \"10 m\", step = \"0.25 m\" }";
  if (value == nullptr || value->kind != Value::Kind::table) {
    const char* fault = value == nullptr ? "`{}` is missing in {}" : "`{}` of {} is a table";
    p.faults.push_back({fmt::format(fmt::runtime(fault), name, field.title), span_of(field, name),
                        fmt::format("such as {} = {}", name, example)});
    return {};
  }
  Part part;
  part.title = fmt::format("`{}` of {}", name, field.title);
  part.span = value->span;
  part.parameters = *value;
  Declared declared;
  for (const char* key : {"from", "to", "step"}) declare(declared, key, Category::length);
  const auto params = bind_parameters(part, declared, p.faults);
  if (!params) return {};
  const Range range{params->read("from", Category::length), params->read("to", Category::length),
                    params->read("step", Category::length)};
  require_above_0(p, part, "step", range.step);
  if (range.to < range.from) {
    p.faults.push_back({"`to` must not be below `from`", span_of(part, "to"), ""});
  }
  if (name == "x") {
    lies_in_tank(p, part, "from", range.from);
    lies_in_tank(p, part, "to", range.to);
  }
  return range;
}

void read_field(Preparation& p) {
  const Part& part = p.run.job.field;
  Declared declared;
  declare(declared, "rate", Category::frequency);
  declared.own_keys = {"x", "y"};
  const auto params = bind_parameters(part, declared, p.faults);
  const Range x = read_range(p, "x");
  const Range y = read_range(p, "y");
  if (!params) return;
  const double rate = params->read("rate", Category::frequency);
  require_above_0(p, part, "rate", rate);
  p.run.field = std::make_unique<FieldRequest>(
      FieldRequest{rate, x.from, x.to, x.step, y.from, y.to, y.step});
}

}  // namespace

void read_requests(Preparation& p) {
  read_drive(p);
  for (const PointPart& point : p.run.job.points) read_point(p, point);
  if (p.run.job.has_field) read_field(p);
}

}  // namespace Jobs
