// The folder of results that a page is made from.
#ifndef KELPBOX_OUTPUTS_PAGE_SOURCE_H_
#define KELPBOX_OUTPUTS_PAGE_SOURCE_H_

#include <filesystem>
#include <string>

namespace Outputs {

struct PageSource {
  std::string folder;        // where the files are
  std::string shown_folder;  // as messages name it

  std::string path(const std::string& name) const { return folder + "/" + name; }
  std::string shown(const std::string& name) const { return shown_folder + "/" + name; }
  bool has(const std::string& name) const {
    std::error_code ignored;
    return std::filesystem::exists(path(name), ignored);
  }
};

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_PAGE_SOURCE_H_
