#include "outputs/earlier_results.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <set>

#include "outputs/cannot_write.h"
#include "outputs/unfinished_page.h"

namespace fs = std::filesystem;

namespace Outputs {
namespace {

// The names of the files that the run which wrote this folder lists, its summary and the page that
// is made from these files included. Empty if there is no summary, or one of another program.
std::set<std::string> listed_files(const fs::path& folder) {
  std::set<std::string> names;
  std::error_code ignored;
  if (!fs::is_regular_file(fs::symlink_status(folder / "summary.json", ignored))) return names;
  std::ifstream in(folder / "summary.json", std::ios::binary);
  const auto summary = nlohmann::json::parse(in, nullptr, false);
  if (!summary.is_object() || !summary.contains("kelpbox")) return names;
  const auto files = summary.find("files");
  if (files == summary.end() || !files->is_array()) return names;
  for (const auto& file : *files) {
    if (!file.is_object()) continue;
    const auto name = file.find("name");
    if (name != file.end() && name->is_string()) names.insert(name->get<std::string>());
  }
  names.insert("summary.json");
  names.insert("report.html");
  return names;
}

// The folders that the names lead through.
std::set<std::string> folders_of(const std::set<std::string>& names) {
  std::set<std::string> folders;
  for (const std::string& name : names) {
    for (fs::path up = fs::path(name).parent_path(); !up.empty(); up = up.parent_path()) {
      if (!folders.insert(up.string()).second) break;
    }
  }
  return folders;
}

}  // namespace

void require_replaceable(const std::string& place, const std::string& shown) {
  std::error_code error;
  const fs::file_type type = fs::symlink_status(place, error).type();
  if (type == fs::file_type::not_found) return;
  if (type != fs::file_type::directory) throw CannotWrite{shown + ": is a file, not a folder"};
  const std::set<std::string> names = listed_files(place);
  const std::set<std::string> folders = folders_of(names);
  fs::recursive_directory_iterator entries(place, error);
  for (; !error && entries != fs::recursive_directory_iterator(); entries.increment(error)) {
    const std::string name = entries->path().lexically_relative(place).string();
    const bool folder = entries->symlink_status().type() == fs::file_type::directory;
    if ((folder ? folders : names).count(name) != 0) continue;
    if (!folder && !names.empty() && is_unfinished_page(name)) continue;
    throw CannotWrite{fmt::format(
        "{}: is not replaced, because {} in it is not from an earlier run", shown, name)};
  }
  if (error) cannot_write(shown, error.value());
}

}  // namespace Outputs
