// The waves that come from files: a record of the surface, a list of fronts, a table of a spectrum.
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

#include "base/units.h"
#include "jobs/add_wave.h"
#include "jobs/csv_table.h"
#include "jobs/fallbacks.h"
#include "jobs/record_samples.h"
#include "jobs/tabulated_density.h"
#include "sea/time_series.h"

namespace Jobs {
namespace {

namespace Category = Base::Category;

struct TableFile {
  const InputFile* input = nullptr;
  std::string given;  // the path as the job has it
  Span place;
  CsvTable table;
};

void add_fault(Preparation& p, const TableFile& file, const std::string& fault,
               const std::string& label = "") {
  p.faults.push_back({fault, file.place, label});
}

std::optional<TableFile> read_table(Preparation& p, const Part& part) {
  const auto index = read_part_file(p, part);
  if (!index) return std::nullopt;
  TableFile file;
  file.input = &p.run.inputs[*index];
  file.given = part.parameters.find("file")->text;
  file.place = span_of(part, "file");
  try {
    file.table = read_csv(file.input->text, file.given);
  } catch (const std::string& message) {
    add_fault(p, file, message);
    return std::nullopt;
  }
  return file;
}

// The values of a column in the base unit of the category. The column must have units.
std::optional<std::vector<double>> in_base_units(Preparation& p, const TableFile& file,
                                                 const CsvColumn& column,
                                                 const std::string& units_text,
                                                 Base::UnitCategory category, const char* example) {
  const Base::Units wanted = Base::default_units(category);
  if (units_text.empty()) {
    add_fault(p, file, fmt::format("column `{}` of {} has no units", column.name, file.given),
              fmt::format("write `{} [{}]` in its head", column.name, example));
    return std::nullopt;
  }
  double factor = 0.0;
  try {
    const Base::Units units = Base::resolve_units(units_text);
    factor = Base::factor(units, wanted);
  } catch (const std::string& message) {
    add_fault(p, file, fmt::format("column `{}` of {}: {}", column.name, file.given, message),
              fmt::format("such as `{} [{}]`", column.name, example));
    return std::nullopt;
  }
  std::vector<double> values = column.values;
  for (double& value : values) value *= factor;
  return values;
}

std::optional<std::vector<double>> named_column(Preparation& p, const TableFile& file,
                                                const char* name, Base::UnitCategory category,
                                                const char* example) {
  try {
    const CsvColumn& column = column_of(file.table, name);
    return in_base_units(p, file, column, column.units, category, example);
  } catch (const std::string& message) {
    add_fault(p, file, message, fmt::format("write `{} [{}]` in its head", name, example));
    return std::nullopt;
  }
}

bool has_column(const CsvTable& table, const std::string& name) {
  for (const CsvColumn& column : table.columns) {
    if (column.name == name) return true;
  }
  return false;
}

std::string line_of(const TableFile& file, std::size_t row) {
  return fmt::format("{}:{}", file.given, line_of_row(file.input->text, file.table, row));
}

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

// Without the library's remark on the repeat time that the list itself implies.
void hand_over_fronts(Preparation& p, const WavePlace& wave, const Synthesis::DispFronts& fronts) {
  in_library(p, wave.part.span, title_in_sea(wave.part, wave.sea.name), [&] {
    Base::Params none;
    p.run.experiment.set(p.run.experiment.add_fronts(wave.sea.id, fronts), none);
  });
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
    const TimeColumn time = time_column(file->table, *column);
    if (time.uneven_row) {
      add_fault(p, *file,
                fmt::format("{}: the times of column `{}` are not evenly spaced",
                            line_of(*file, *time.uneven_row), time.name),
                "give `rate`, or resample the record");
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

void add_fronts(Preparation& p, const WavePlace& wave) {
  Declared declared;
  declared.own_keys = {"file"};
  auto params = bind_parameters(wave.part, declared, p.faults);
  const auto file = read_table(p, wave.part);
  if (!file) return;
  const auto f = named_column(p, *file, "f", Category::frequency, "Hz");
  const auto a = named_column(p, *file, "a", Category::length, "mm");
  std::vector<double> angle(file->table.columns.front().values.size());
  std::vector<double> phase = angle;
  bool good = f && a;
  for (auto& [name, values] : {std::pair<const char*, std::vector<double>&>{"angle", angle},
                               std::pair<const char*, std::vector<double>&>{"phase", phase}}) {
    if (!has_column(file->table, name)) continue;
    auto read = named_column(p, *file, name, Category::angle, "deg");
    if (read) values = std::move(*read);
    good = good && read;
  }
  if (!good || !params || !p.has_grid) return;

  const Maths::RunData& run = p.run.experiment.repeat(p.run.definition);
  Synthesis::DispFronts fronts;
  AskedWave asked;
  asked.kind = wave.part.kind;
  double largest_move = 0.0;
  for (std::size_t i = 0; i < f->size(); ++i) {
    if (!run.is_inrange((*f)[i])) {
      return add_fault(
          p, *file,
          fmt::format("{}: {:.6g} Hz lies outside the run's harmonics, {:.4g} to {:.4g} Hz",
                      line_of(*file, i), (*f)[i], run.freq(run.min_harmonic()),
                      run.freq(run.max_harmonic())));
    }
    const double made = run.freq(run.wave_num((*f)[i]));
    largest_move = std::max(largest_move, std::abs(made - (*f)[i]));
    fronts.emplace_back((*f)[i], (*a)[i], angle[i], phase[i]);
    asked.lines.push_back({(*f)[i], (*a)[i]});
  }
  constexpr double noted_move = 1e-6;  // Hz
  if (largest_move > noted_move) {
    p.run.remarks.push_back(
        fmt::format("{}: frequencies move to the nearest harmonics of the run, by up to {:.3g} Hz",
                    title_in_sea(wave.part, wave.sea.name), largest_move));
  }
  wave.sea.asked.push_back(std::move(asked));
  hand_over_fronts(p, wave, fronts);
}

void add_table(Preparation& p, const WavePlace& wave) {
  Declared declared;
  declared.own_keys = {"file"};
  auto params = bind_parameters(wave.part, declared, p.faults);
  const auto file = read_table(p, wave.part);
  if (!file) return;
  const auto f = named_column(p, *file, "f", Category::frequency, "Hz");
  const auto S = named_column(p, *file, "S", Category::variance, "m2/Hz");
  if (!f || !S || !params) return;
  TabulatedDensity density{*f, *S};
  if (const auto bad = density.bad_row()) {
    return add_fault(p, *file, line_of(*file, bad->row) + ": " + bad->fault);
  }
  if (f->size() < 2) return add_fault(p, *file, fmt::format("{} has only one line", file->given));
  if (!p.has_grid) return;
  const Maths::RunData& run = p.run.experiment.repeat(p.run.definition);
  Synthesis::DispFronts fronts;
  for (std::uint64_t h = run.min_harmonic(); h <= run.max_harmonic(); ++h) {
    const double half = 0.5 / run.value();
    const double energy = density.integral(run.freq(h) - half, run.freq(h) + half);
    if (energy > 0.0) fronts.emplace_back(run.freq(h), std::sqrt(2.0 * energy), 0.0, 0.0);
  }
  if (fronts.empty()) {
    return add_fault(
        p, *file,
        fmt::format("{} has no energy at the run's harmonics, {:.4g} to {:.4g} Hz", file->given,
                    run.freq(run.min_harmonic()), run.freq(run.max_harmonic())));
  }
  wave.sea.asked.push_back(density.asked(wave.part.kind));
  hand_over_fronts(p, wave, fronts);
}

}  // namespace Jobs
