#include "outputs/cf_attributes.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <vector>

#include "outputs/plain_text.h"
#include "outputs/version.h"

namespace Outputs {
namespace {

// "2026-01-02T03:04:05Z" for the seconds of SOURCE_DATE_EPOCH; empty without it.
std::string source_date() {
  const char* text = std::getenv("SOURCE_DATE_EPOCH");
  if (!text) return "";
  const char* end = text + std::strlen(text);
  std::time_t seconds = 0;
  const auto read = std::from_chars(text, end, seconds);
  if (read.ec != std::errc() || read.ptr != end) return "";
  std::tm parts{};
  char date[32];
  if (!gmtime_r(&seconds, &parts)) return "";
  return std::string(date, std::strftime(date, sizeof date, "%Y-%m-%dT%H:%M:%SZ", &parts));
}

void put_unless_empty(NetcdfFile& file, const std::string& name, const std::string& text) {
  if (!text.empty()) file.attribute(NetcdfFile::global, name, plain_text(text));
}

}  // namespace

void put_file_attributes(NetcdfFile& file, Jobs::Run& run, const std::string& comment) {
  const std::string source = "kelpbox " + version();
  const std::string date = source_date();
  put_unless_empty(file, "Conventions", "CF-1.8");
  put_unless_empty(file, "title", run.job.title);
  put_unless_empty(file, "institution", run.experiment.context().site_name);
  put_unless_empty(file, "source", source);
  if (!date.empty()) put_unless_empty(file, "history", date + " " + source + " run job.toml");
  put_unless_empty(file, "references",
                   "Dean and Dalrymple (1991), Water Wave Mechanics for Engineers and Scientists");
  put_unless_empty(file, "comment", comment);
  put_unless_empty(file, "site_identity", run.experiment.context_string());
}

void describe(NetcdfFile& file, int variable, const std::string& name, const std::string& units) {
  file.attribute(variable, "long_name", name);
  file.attribute(variable, "units", units);
}

int position_variable(NetcdfFile& file, const std::string& name, const std::string& axis,
                      int dimension) {
  const int variable = file.variable(name, NetcdfType::real64, {dimension});
  describe(
      file, variable,
      axis == "X" ? "position along the tank, from the paddle line" : "position across the tank",
      "m");
  file.attribute(variable, "axis", axis);
  return variable;
}

TimeAxis define_time(NetcdfFile& file, std::size_t samples, double rate) {
  TimeAxis time{file.dimension("time", samples), 0, samples, rate};
  time.variable = file.variable("time", NetcdfType::real64, {time.dimension});
  describe(file, time.variable, "time since the first sample of the drive signals",
           "seconds since 1970-01-01 00:00:00Z");
  file.attribute(time.variable, "standard_name", "time");
  file.attribute(time.variable, "calendar", "standard");
  file.attribute(time.variable, "axis", "T");
  file.attribute(time.variable, "comment",
                 "The date stands for the start of the run: CF requires one.");
  return time;
}

void put_times(NetcdfFile& file, const TimeAxis& time) {
  constexpr std::size_t largest_block = std::size_t{1} << 14;
  std::vector<double> block;
  for (std::size_t first = 0; first < time.samples; first += block.size()) {
    block.resize(std::min(largest_block, time.samples - first));
    for (std::size_t i = 0; i < block.size(); ++i) {
      block[i] = static_cast<double>(first + i) / time.rate;
    }
    file.put(time.variable, {first}, {block.size()}, block.data());
  }
}

}  // namespace Outputs
