#include "jobs/field_request.h"

#include <fmt/format.h>

#include <cmath>
#include <memory>

#include "base/memory.h"
#include "jobs/bind_parameters.h"
#include "jobs/request_limits.h"
#include "jobs/show_number.h"

namespace Jobs {
namespace {

namespace Category = Base::Category;

struct Range {
  double from = 0.0;
  double to = 0.0;
  double step = 0.0;
};

void judge_range(Preparation& p, const Part& part, const Range& range) {
  if (!(range.to > range.from)) {
    p.faults.push_back({"`to` must be above `from`", span_of(part, "to"),
                        "a field has at least two rows and two columns"});
  } else if (range.step > (range.to - range.from) * (1.0 + 1e-9)) {
    p.faults.push_back({"`step` must be at most the range", span_of(part, "step"),
                        fmt::format("from `from` to `to` are {:g} m", range.to - range.from)});
  }
  require_above_0(p, part, "step", range.step);
}

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
  for (const char* key : {"from", "to", "step"}) {
    declared.params.declare(key, Base::default_units(Category::length));
  }
  const auto params = bind_parameters(part, declared, p.faults);
  if (!params) return {};
  const Range range{params->read("from", Category::length), params->read("to", Category::length),
                    params->read("step", Category::length)};
  judge_range(p, part, range);
  const auto lies_in = name == "x" ? lies_in_tank : lies_across_tank;
  lies_in(p, part, "from", range.from);
  lies_in(p, part, "to", range.to);
  return range;
}

double points_along(double from, double to, double step) {
  return std::floor((to - from) / step + 0.5) + 1.0;
}

double points_of(const FieldRequest& field) {
  return points_along(field.x_min, field.x_max, field.x_step) *
         points_along(field.y_min, field.y_max, field.y_step);
}

void judge_size(Preparation& p, const FieldRequest& field) {
  const Span& place = p.run.job.field.span;
  constexpr double most_points = 4294967295.0;  // that the library counts
  const double points = points_of(field);
  if (points > most_points) {
    p.faults.push_back({fmt::format("the field has {:.3g} points", points), place,
                        fmt::format("at most {:.3g} can be computed: a larger step", most_points)});
    return;
  }
  // At most 2^32 points and 2^27 frames: the bytes fit into 64 bits.
  const double bytes = field_bytes(field, p.run.experiment.repeat(p.run.definition).value());
  if (!Base::memory_fits(static_cast<std::uint64_t>(bytes))) {
    p.faults.push_back(field_too_large(bytes, place));
  }
}

}  // namespace

double field_bytes(const FieldRequest& field, double repeat) {
  const double frames = std::floor(repeat * field.rate + 0.5);
  // A sample has two bytes. Each frame is a block of its own, with an entry in a list.
  constexpr double beside = 56.0;
  return frames * (2.0 * points_of(field) + beside);
}

Diagnostic field_too_large(double bytes, const Span& place) {
  return {fmt::format("the field needs {} GB, which this machine does not have",
                      show_number(bytes / 1e9, 2)),
          place, "a larger step or a lower rate needs less"};
}

void read_field(Preparation& p) {
  const Part& part = p.run.job.field;
  const std::size_t faults_before = p.faults.size();
  Declared declared;
  declared.params.declare("rate", Base::default_units(Category::frequency));
  declared.own_keys = {"x", "y"};
  const auto params = bind_parameters(part, declared, p.faults);
  const Range x = read_range(p, "x");
  const Range y = read_range(p, "y");
  if (!params) return;
  const double rate = params->read("rate", Category::frequency);
  require_samples(p, rate, span_of(part, "rate"));
  p.run.field = std::make_unique<FieldRequest>(
      FieldRequest{rate, x.from, x.to, x.step, y.from, y.to, y.step});
  if (p.has_grid && p.faults.size() == faults_before) judge_size(p, *p.run.field);
}

}  // namespace Jobs
