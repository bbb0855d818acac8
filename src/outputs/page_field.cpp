#include "outputs/page_field.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <utility>
#include <vector>

#include "outputs/field_extremes.h"
#include "outputs/field_reader.h"
#include "outputs/field_thinning.h"
#include "outputs/packed.h"

namespace Outputs {
namespace {

using Json = nlohmann::ordered_json;
using Counts = std::vector<std::int16_t>;

constexpr std::size_t most_values = 1'700'000;
constexpr std::size_t longest_still = 300;  // points in each direction
// Finer than any colour scale shows, and small enough to compress well.
constexpr double largest_count = 1000.0;

FieldAxis axis_of(const Json& axis) {
  return {axis.at("from").get<double>(), axis.at("step").get<double>(),
          axis.at("count").get<std::size_t>()};
}

FieldAxis thinned_axis(const FieldAxis& axis, std::size_t every) {
  return {axis.from, axis.step * static_cast<double>(every), thinned(axis.count, every)};
}

Json json_of(const FieldAxis& axis) {
  return {{"from", axis.from}, {"step", axis.step}, {"count", axis.count}};
}

// Every x-th point of every y-th row.
void append_thinned(Counts& out, const std::int16_t* frame, const FieldReader& field,
                    std::size_t every_x, std::size_t every_y) {
  for (std::size_t row = 0; row < field.y().count; row += every_y) {
    const std::int16_t* const from = frame + row * field.x().count;
    for (std::size_t i = 0; i < field.x().count; i += every_x) out.push_back(from[i]);
  }
}

// Counts of field.nc as counts of the page, which may be coarser.
class Rescaled {
 public:
  Rescaled(const FieldExtremes& extremes, double scale)
      : factor_(std::max(
            1.0, std::max(std::abs(int{extremes.lowest()}), std::abs(int{extremes.highest()})) /
                     largest_count)),
        step_(factor_ * scale) {}

  Packed pack(Counts counts, std::vector<std::size_t> shape) const {
    if (factor_ > 1.0) {
      for (std::int16_t& count : counts) {
        if (count != nan_count) count = count_of(count, factor_);
      }
    }
    return Outputs::pack(std::move(counts), std::move(shape), step_);
  }

 private:
  double factor_;
  double step_;
};

// The factor that leaves at most so many points.
std::size_t still_factor(const FieldAxis& axis) { return thinned(axis.count, longest_still); }

struct StillText {
  const char* key;
  double value;
  double x;
  double y;
};

Json still_of(FieldReader& field, double rate, const FieldPlace& place, const StillText& text,
              const Rescaled& scale) {
  const std::size_t every_x = std::max<std::size_t>(1, still_factor(field.x()));
  const std::size_t every_y = std::max<std::size_t>(1, still_factor(field.y()));
  const FieldAxis x = thinned_axis(field.x(), every_x);
  const FieldAxis y = thinned_axis(field.y(), every_y);
  Counts counts;
  append_thinned(counts, field.frame(place.frame).data(), field, every_x, every_y);
  Json still;
  still["key"] = text.key;
  still["frame"] = place.frame;
  still["t"] = static_cast<double>(place.frame) / rate;
  still["at"] = {{"x", text.x}, {"y", text.y}};
  still["value"] = text.value;
  still["x"] = json_of(x);
  still["y"] = json_of(y);
  still["eta"] = json_of(scale.pack(std::move(counts), {y.count, x.count}));
  return still;
}

Json stills_of(FieldReader& field, double rate, const FieldExtremes& extremes,
               const Rescaled& scale) {
  const auto at = [](const FieldAxis& axis, double index) { return axis.from + index * axis.step; };
  Json stills = Json::array();
  if (!extremes.any()) return stills;
  const FieldPlace& crest = extremes.crest();
  stills.push_back(still_of(
      field, rate, crest,
      {"crest", extremes.highest() * field.scale(), at(field.x(), static_cast<double>(crest.x)),
       at(field.y(), static_cast<double>(crest.y))},
      scale));
  if (!(extremes.slope() > 0.0)) return stills;
  // Between the points that make the slope.
  const FieldPlace& steepest = extremes.steepest();
  const auto middle = [&at](const FieldAxis& axis, std::size_t index) {
    return at(axis, static_cast<double>(index) + (index + 1 < axis.count ? 0.5 : 0.0));
  };
  stills.push_back(still_of(
      field, rate, steepest,
      {"steepness", extremes.slope(), middle(field.x(), steepest.x), middle(field.y(), steepest.y)},
      scale));
  return stills;
}

// Collects the frames that the page keeps, from those between its first and its last.
struct KeptFrames {
  std::size_t first;
  std::size_t count;
  FieldThinning every;
  Counts counts{};

  void add(std::size_t frame, const std::int16_t* from, const FieldReader& field) {
    if ((frame - first) % every.time == 0) append_thinned(counts, from, field, every.x, every.y);
  }
};

}  // namespace

Json page_field(const PageSource& source, const Json& summary, const PageFacts& facts,
                const Step& step) {
  const auto described = summary.find("field");
  if (described == summary.end() || !source.has("field.nc")) return nullptr;
  const auto rate = described->at("rate").get<double>();
  const auto frames = described->at("frames").get<std::size_t>();
  FieldReader field(source, frames, axis_of(described->at("x")), axis_of(described->at("y")));
  if (frames == 0 || field.points() == 0) return nullptr;

  const FieldThinning every =
      field_thinning(field.x(), field.y(), frames, rate, facts, most_values);
  const bool whole = every.most_frames == thinned(frames, every.time);
  KeptFrames kept{0, every.most_frames, every};
  FieldExtremes extremes(field.x(), field.y(), field.scale());
  field.each_frame(0, frames, [&](std::size_t frame, const std::int16_t* counts) {
    step.done(frame, frames);
    extremes.add(frame, counts);
    if (whole) kept.add(frame, counts, field);
  });
  if (!whole) {
    kept.first = first_frame(frames, kept.count, every.time, extremes.crest().frame);
    const std::size_t last = kept.first + (kept.count - 1) * every.time + 1;
    field.each_frame(kept.first, last, [&](std::size_t frame, const std::int16_t* counts) {
      step.done(frame, frames);
      kept.add(frame, counts, field);
    });
  }

  const Rescaled scale(extremes, field.scale());
  const FieldAxis x = thinned_axis(field.x(), every.x);
  const FieldAxis y = thinned_axis(field.y(), every.y);
  Json page;
  page["x"] = json_of(x);
  page["y"] = json_of(y);
  page["start"] = static_cast<double>(kept.first) / rate;
  page["rate"] = rate / static_cast<double>(every.time);
  page["first"] = kept.first;
  page["every"] = {{"time", every.time}, {"x", every.x}, {"y", every.y}};
  page["of"] = {{"frames", frames}, {"rate", rate}, {"x", field.x().count}, {"y", field.y().count}};
  page["eta"] = json_of(scale.pack(std::move(kept.counts), {kept.count, y.count, x.count}));
  page["lowest"] = extremes.lowest() * field.scale();
  page["highest"] = extremes.highest() * field.scale();
  page["stills"] = stills_of(field, rate, extremes, scale);
  return page;
}

}  // namespace Outputs
