#include <algorithm>
#include <optional>

#include "cli/commands.h"
#include "cli/failure_report.h"
#include "outputs/write_page.h"

namespace Cli {
namespace {

std::string without_slashes(std::string folder) {
  while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
  return folder;
}

std::string page_of(const std::string& folder) { return folder + "/report.html"; }

// The failure, or nothing.
std::optional<Failure> failure_of(const std::string& folder) {
  try {
    Outputs::write_page({folder, folder}, nullptr);
    return std::nullopt;
  } catch (...) {
    return failure_of_current(folder);
  }
}

std::string element(const std::string& folder, const std::optional<Failure>& failure) {
  const int code = failure ? failure->exit_code : Exit::good;
  std::string text =
      "{\"folder\": " + json_string(folder) + ", \"exit_code\": " + std::to_string(code);
  if (failure) return text + ",\n\"error\": " + failure_json(*failure) + "}";
  return text + ", \"page\": " + json_string(page_of(folder)) + "}";
}

}  // namespace

int report_pages(const std::vector<std::string>& folders, Console& console) {
  int code = Exit::good;
  std::string document;
  for (const std::string& given : folders) {
    const std::string folder = without_slashes(given);
    const std::optional<Failure> failure = failure_of(folder);
    if (failure) code = std::max(code, failure->exit_code);
    if (console.json) {
      document += (document.empty() ? "\n" : ",\n") + element(folder, failure);
    } else if (failure) {
      console.err << shown(*failure, console.err_colour) << std::flush;
    } else if (!console.quiet) {
      console.out << "Page: " << page_of(folder) << "\n" << std::flush;
    }
  }
  if (console.json) console.out << "{\"pages\": [" << document << "\n]}\n";
  return code;
}

}  // namespace Cli
