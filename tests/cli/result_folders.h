// The results of small jobs, to be compared byte by byte.
#ifndef KELPBOX_TESTS_CLI_RESULT_FOLDERS_H_
#define KELPBOX_TESTS_CLI_RESULT_FOLDERS_H_

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>

#include "cli/sample_jobs.h"

namespace Testing {

// Contents by the path within the folder. Empty if there is no folder.
using Files = std::map<std::string, std::string>;

inline Files files_below(const std::string& folder) {
  namespace fs = std::filesystem;
  Files files;
  if (!fs::exists(folder)) return files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_directory()) continue;
    std::ostringstream contents;
    contents << std::ifstream(entry.path(), std::ios::binary).rdbuf();
    files[entry.path().lexically_relative(folder).string()] = contents.str();
  }
  return files;
}

inline std::set<std::string> names_in(const std::string& folder) {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    names.insert(entry.path().filename().string());
  }
  return names;
}

// A sea in the flume with all kinds of results: drive signals, a point, the field and the page.
inline std::string whole_job(const std::string& title) {
  return "title = \"" + title + "\"\nsite = \"" + example("flume.site") + R"("
[run]
repeat = "16 s"
[[sea]]
  [[sea.wave]]
  kind = "jonswap"
  hs = "60 mm"
  tp = "1.6 s"
[[point]]
name = "probe"
x = "5 m"
y = "0.4 m"
[field]
rate = "4 Hz"
x = { from = "0 m", to = "24 m", step = "1 m" }
y = { from = "0 m", to = "0.8 m", step = "0.4 m" }
)";
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_CLI_RESULT_FOLDERS_H_
