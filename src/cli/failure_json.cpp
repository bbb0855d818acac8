#include <nlohmann/json.hpp>

#include "cli/failure_report.h"

namespace Cli {

namespace {

// Names of files may hold any bytes.
constexpr auto any_bytes = nlohmann::ordered_json::error_handler_t::replace;

}  // namespace

std::string json_string(const std::string& text) {
  return nlohmann::ordered_json(text).dump(-1, ' ', false, any_bytes);
}

std::string failure_json(const Failure& failure) {
  nlohmann::ordered_json faults = nlohmann::ordered_json::array();
  for (const Jobs::Diagnostic& fault : failure.faults) {
    nlohmann::ordered_json one;
    one["message"] = fault.fault;
    if (fault.span.source) one["file"] = fault.span.source->name;
    if (fault.span.line != 0) {
      one["line"] = fault.span.line;
      one["column"] = fault.span.column;
      one["length"] = fault.span.length;
    }
    if (!fault.label.empty()) one["label"] = fault.label;
    faults.push_back(std::move(one));
  }
  const nlohmann::ordered_json all{
      {"code", failure.exit_code}, {"message", failure.message}, {"diagnostics", faults}};
  return all.dump(2, ' ', false, any_bytes);
}

}  // namespace Cli
