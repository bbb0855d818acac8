// What lies in a folder.
#ifndef KELPBOX_TESTS_OUTPUTS_FOLDER_LISTING_H_
#define KELPBOX_TESTS_OUTPUTS_FOLDER_LISTING_H_

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

namespace Testing {

// The contents of each file below a folder by its name in the folder, hidden ones included. A
// folder has the name "<name>/" and no contents.
inline std::map<std::string, std::string> listing(const std::filesystem::path& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    const std::string name = entry.path().lexically_relative(folder).string();
    if (entry.is_directory()) {
      files[name + "/"] = "";
      continue;
    }
    std::ifstream in(entry.path(), std::ios::binary);
    std::ostringstream contents;
    contents << in.rdbuf();
    files[name] = contents.str();
  }
  return files;
}

}  // namespace Testing

#endif  // KELPBOX_TESTS_OUTPUTS_FOLDER_LISTING_H_
