// The wave that a measured record of the surface gives.
#include <fmt/format.h>

#include <cmath>
#include <memory>
#include <utility>

#include "jobs/add_wave.h"
#include "jobs/bind_parameters.h"
#include "jobs/fallbacks.h"
#include "jobs/record_samples.h"
#include "jobs/wave_steps.h"
#include "jobs/wave_table.h"
#include "sea/time_series.h"

namespace Jobs {
namespace {

namespace Category = Base::Category;

// The key as text, where the job has it as text or as a whole number.
std::optional<std::string> key_text(Preparation& p, const Part& part, const char* key) {
  const Value* value = part.parameters.find(key);
  if (value == nullptr) return std::nullopt;
  if (value->kind == Value::Kind::text) return value->text;
  if (value->kind == Value::Kind::number) return fmt::format("{}", value->number);
  p.faults.push_back({fmt::format("`{}` is a text", key), value->span, ""});
  return std::nullopt;
}

const CsvColumn* record_column(Preparation& p, const Part& part, const TableFile& file) {
  const auto wanted = key_text(p, part, "column");
  if (!wanted) {
    const CsvColumn* only = only_signal(file.table);
    if (only == nullptr && part.parameters.find("column") == nullptr) {
      p.faults.push_back({fmt::format("`column` is missing in {}", part.title), part.span,
                          "the name of a column, or its number from 1"});
    }
    return only;
  }
  try {
    return &column_of(file.table, *wanted);
  } catch (const std::string& message) {
    p.faults.push_back({message, span_of(part, "column"), ""});
    return nullptr;
  }
}

// A fault for times in units that cannot be used.
TimeColumn times_of(Preparation& p, const TableFile& file, const CsvColumn& signal) {
  try {
    return time_column(file.table, signal);
  } catch (const std::string& message) {
    add_fault(p, file, fmt::format("{}: {}", file.given, message), "such as `time [s]`");
    TimeColumn any;
    any.rate = 1.0;
    return any;
  }
}

}  // namespace

void add_record(Preparation& p, const WavePlace& wave) {
  const Part& part = wave.part;
  Declared declared;
  const Base::Vector none;
  Synthesis::TimeSeries(none).query(declared.params);
  declared.fallbacks = fallbacks_of("record");
  declared.own_keys = {"file", "column", "units"};
  const auto file = read_table(p, part);
  const CsvColumn* column = file ? record_column(p, part, *file) : nullptr;
  if (column != nullptr && part.parameters.find("rate") == nullptr) {
    const TimeColumn time = times_of(p, *file, *column);
    if (time.uneven_row) {
      add_fault(p, *file,
                fmt::format("{}: the times of column `{}` are not evenly spaced",
                            line_of(*file, *time.uneven_row), time.name),
                "give `rate`, or resample the record");
      declared.fallbacks["rate"] = "1 Hz";
    } else if (!time.name.empty() && !(time.rate > 0.0 && std::isfinite(time.rate))) {
      const char* form = "the times of column `{}` do not increase";
      if (std::isinf(time.rate)) form = "the times of column `{}` are too close together";
      if (column->values.size() < 2) form = "there is only one time in column `{}`";
      add_fault(p, *file, fmt::format(fmt::runtime(form), time.name), "give `rate`");
      declared.fallbacks["rate"] = "1 Hz";
    } else if (time.rate > 0.0) {
      declared.fallbacks["rate"] = fmt::format("{} Hz", time.rate);
    }
  }
  if (!file || column == nullptr) declared.fallbacks["rate"] = "1 Hz";
  auto params = bind_parameters(part, declared, p.faults);
  if (column == nullptr) return;
  const auto units = key_text(p, part, "units");
  auto samples =
      in_base_units(p, *file, *column, units.value_or(column->units), Category::length, "mm");
  if (!params || !samples) return;
  for (const char* name : {"rate", "scale_ratio"}) {
    if (params->at(name).value > 0.0) continue;
    p.faults.push_back({fmt::format("`{}` must be above 0", name), span_of(part, name), ""});
    return;
  }
  if (params->at("ramp_time").value < 0.0) {
    p.faults.push_back({"`ramp_time` must not be negative", span_of(part, "ramp_time"), ""});
    return;
  }
  if (!p.has_grid) return;
  p.run.records.push_back(std::make_unique<Base::Vector>(
      wave.name, Base::default_units(Category::length), std::move(*samples)));
  Base::Vector& record = *p.run.records.back();
  hand_over(p, wave, *params, [&] { return p.run.experiment.add_timeseries(wave.sea.id, record); });
  AskedWave asked;
  asked.kind = part.kind;
  asked.variance =
      record_variance(record.data, *params, p.run.experiment.repeat(p.run.definition).value());
  wave.sea.asked.push_back(std::move(asked));
}

}  // namespace Jobs
