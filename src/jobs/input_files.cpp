#include "jobs/input_files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string_view>
#include <system_error>
#include <utility>

namespace Jobs {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view opening = "Opened file  ";

// The library quotes paths: "&" stands before each quotation mark and each "&" within.
std::string quoted_path(const std::string& path) {
  std::string quoted = "\"";
  for (const char c : path) {
    if (c == '"' || c == '&') quoted += '&';
    quoted += c;
  }
  return quoted + '"';
}

fs::path normal(const std::string& path) { return fs::absolute(path).lexically_normal(); }

// The deepest folder that all files lie in.
fs::path common_folder(const std::vector<fs::path>& files) {
  fs::path common = files.front().parent_path();
  for (const fs::path& file : files) {
    const fs::path folder = file.parent_path();
    const auto end =
        std::mismatch(common.begin(), common.end(), folder.begin(), folder.end()).first;
    fs::path shared;
    for (auto part = common.begin(); part != end; ++part) shared /= *part;
    common = shared;
  }
  return common;
}

// A name that is not used yet: "x.csv", "x-2.csv", "x-3.csv".
std::string unused(const fs::path& name, const std::set<std::string>& used) {
  std::string candidate = name.generic_string();
  for (int i = 2; used.count(candidate) != 0; ++i) {
    const std::string numbered =
        name.stem().string() + "-" + std::to_string(i) + name.extension().string();
    candidate = (name.parent_path() / numbered).generic_string();
  }
  return candidate;
}

void replace_all(std::string& text, const std::string& from, const std::string& to) {
  for (std::size_t at = text.find(from); at != std::string::npos;
       at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
}

}  // namespace

std::string opened_path(const Job& job, const std::string& given) {
  const bool is_here = job.folder.empty() || job.folder == ".";
  if (is_here || fs::path(given).is_absolute()) return given;
  return (fs::path(job.folder) / given).string();
}

std::string searched_folder(const Job& job, const std::string& given) {
  const std::string folder = fs::path(opened_path(job, given)).parent_path().string();
  return "looked for in the " + (folder.empty() ? "current folder" : "folder " + folder);
}

std::string read_file(const std::string& path, std::uintmax_t most_mib) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found) throw std::string("does not exist");
  if (status.type() == fs::file_type::directory) throw std::string("is a folder, not a file");
  if (status.type() == fs::file_type::none) throw "cannot be reached: " + error.message();
  if (status.type() != fs::file_type::regular) throw std::string("is not a regular file");
  const std::uintmax_t size = fs::file_size(path, error);
  if (!error && size > most_mib << 20) {
    throw "is larger than " + std::to_string(most_mib) + " MiB";
  }
  std::ifstream in(path, std::ios::binary);
  if (!in.is_open()) throw "cannot be opened: " + std::generic_category().message(errno);
  std::string text;
  text.reserve(error ? 0 : size);  // a stream would hold it twice, or only as much as fits
  std::array<char, 1 << 16> block{};
  while (in.read(block.data(), block.size()) || in.gcount() > 0) {
    text.append(block.data(), static_cast<std::size_t>(in.gcount()));
    if (text.size() > most_mib << 20) throw "is larger than " + std::to_string(most_mib) + " MiB";
  }
  if (in.bad()) throw std::string("cannot be read");
  return text;
}

std::string unquoted_path(std::string_view text) {
  std::string path;
  for (std::size_t i = 1; i < text.size() && text[i] != '"'; ++i) {
    if (text[i] == '&' && i + 1 < text.size()) ++i;
    path += text[i];
  }
  return path;
}

std::vector<std::string> opened_files(const std::string& progress) {
  std::vector<std::string> files;
  std::istringstream lines(progress);
  lines.exceptions(std::ios_base::badbit);  // a line that does not fit into memory is a failure
  for (std::string line; std::getline(lines, line);) {
    const std::string_view text =
        std::string_view(line).substr(std::min(line.find_first_not_of(' '), line.size()));
    if (text.substr(0, opening.size()) != opening) continue;
    std::string path = unquoted_path(text.substr(opening.size()));
    if (std::find(files.begin(), files.end(), path) == files.end()) {
      files.push_back(std::move(path));
    }
  }
  return files;
}

std::optional<std::size_t> find_input(const std::vector<InputFile>& inputs,
                                      const std::string& path) {
  const fs::path wanted = normal(path);
  for (std::size_t i = 0; i < inputs.size(); ++i) {
    if (inputs[i].path == path) return i;
    // With links, "a/../b" may be another file than "b".
    std::error_code ignored;
    if (normal(inputs[i].path) == wanted && fs::equivalent(inputs[i].path, path, ignored)) return i;
  }
  return std::nullopt;
}

void name_inputs(std::vector<InputFile>& inputs, std::size_t site_files) {
  std::vector<fs::path> paths;
  for (std::size_t i = 0; i < site_files; ++i) paths.push_back(normal(inputs[i].path));
  const fs::path common = paths.empty() ? fs::path() : common_folder(paths);
  std::set<std::string> used;
  const auto give = [&used](InputFile& input, const fs::path& name) {
    input.name = unused(name, used);
    used.insert(input.name);
  };
  for (std::size_t i = 0; i < site_files; ++i) give(inputs[i], paths[i].lexically_relative(common));
  // A file of the site may have the name of the folder.
  const fs::path folder = unused("records", used);
  for (std::size_t i = site_files; i < inputs.size(); ++i) {
    give(inputs[i], folder / fs::path(inputs[i].path).filename());
  }
}

std::string without_paths(const std::string& lines, const std::vector<InputFile>& inputs) {
  std::string result = lines;
  for (const InputFile& input : inputs) {
    replace_all(result, quoted_path(input.path), '"' + ("inputs/" + input.name) + '"');
  }
  return result;
}

}  // namespace Jobs
