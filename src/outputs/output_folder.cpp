#include "outputs/output_folder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "outputs/checksum.h"
#include "outputs/earlier_results.h"
#include "outputs/folder_swap.h"
#include "outputs/hidden_folders.h"
#include "outputs/output_file.h"

namespace fs = std::filesystem;

namespace Outputs {
namespace {

std::string without_slashes(std::string target) {
  while (target.size() > 1 && target.back() == '/') target.pop_back();
  return target;
}

// Whether the process works in this folder or below it. Its removal would leave the process, and
// the shell that started it, in a folder that no longer exists.
bool holds_current_folder(const fs::path& folder) {
  std::error_code ignored;
  const fs::path current = fs::canonical(fs::current_path(ignored), ignored);
  const auto end = std::mismatch(folder.begin(), folder.end(), current.begin(), current.end());
  return end.first == folder.end();
}

std::string resolve(const std::string& target) {
  if (target.empty()) throw CannotWrite{"the name of the output folder is empty"};
  std::error_code error;
  const fs::file_type type = fs::status(target, error).type();
  if (type == fs::file_type::not_found && fs::is_symlink(fs::symlink_status(target, error))) {
    throw CannotWrite{target + ": is a symbolic link that leads nowhere"};
  }
  if (type == fs::file_type::not_found) {
    const fs::path place = fs::weakly_canonical(fs::absolute(target, error), error);
    if (error) cannot_write(target, error.value());
    return without_slashes(place.string());
  }
  const fs::path place = fs::canonical(target, error);
  if (error) cannot_write(target, error.value());
  if (type != fs::file_type::directory) throw CannotWrite{target + ": is a file, not a folder"};
  if (holds_current_folder(place)) {
    throw CannotWrite{target + ": is the current folder or contains it"};
  }
  return place.string();
}

// "a/b.csv", but not "/b.csv", "../b.csv" or "a//b.csv".
bool stays_inside(const std::string& name) {
  const fs::path path = fs::path(name).lexically_normal();
  if (name.empty() || path.is_absolute() || path.string() != name) return false;
  return path.has_filename() && *path.begin() != "." && *path.begin() != "..";
}

}  // namespace

OutputFolder::OutputFolder(const std::string& target)
    : target_(without_slashes(target)), place_(resolve(target_)) {
  require_replaceable(place_, target_);
  try {
    make_parents();
    remove_left_over(place_);
    make_hidden();
  } catch (...) {
    discard();
    throw;
  }
}

OutputFolder::~OutputFolder() { discard(); }

void OutputFolder::make_parents() {
  std::vector<fs::path> missing;
  std::error_code ignored;
  fs::path folder = fs::path(place_).parent_path();
  for (; !folder.empty() && !fs::exists(folder, ignored); folder = folder.parent_path()) {
    missing.push_back(folder);
  }
  for (auto each = missing.rbegin(); each != missing.rend(); ++each) {
    if (mkdir(each->c_str(), 0777) == 0) {
      made_.push_back(each->string());
    } else if (errno != EEXIST) {  // which another run may have made
      cannot_write(target_, errno);
    }
  }
}

void OutputFolder::make_hidden() {
  constexpr int attempts = 1000;
  int error = EEXIST;
  for (int number = 0; number < attempts; ++number) {
    const std::string name = hidden_name(place_, number);
    error = mkdir(name.c_str(), 0777) == 0 ? 0 : errno;
    if (error == EEXIST) continue;
    if (error != 0) break;
    lock_ = lock_hidden(name);
    if (lock_ != -1) {
      hidden_ = name;
      return;
    }
    // Another run found the folder before it was locked, and took it for a left-over.
    error = EAGAIN;
  }
  cannot_write(target_, error);
}

std::string OutputFolder::path_of(const std::string& name) {
  if (!stays_inside(name)) throw CannotWrite{shown(name) + ": is not a name within the folder"};
  const fs::path path = fs::path(hidden_) / name;
  if (!done_) {
    std::error_code error;
    fs::create_directories(path.parent_path(), error);
    if (error) cannot_write(shown(name), error.value());
    files_.try_emplace(name);
  }
  return path.string();
}

void OutputFolder::write(const std::string& name, std::string_view contents) {
  OutputFile file(path_of(name), shown(name));
  file.write(contents);
  file.close();
}

std::vector<std::string> OutputFolder::names() const {
  std::vector<std::string> names;
  for (const auto& [name, record] : files_) names.push_back(name);
  return names;
}

const FileRecord& OutputFolder::record(const std::string& name) {
  FileRecord& record = files_[name];
  if (record.sha256.empty()) {
    const std::string path = path_of(name);
    record.sha256 = sha256_of_file(path, shown(name));
    std::error_code error;
    record.bytes = fs::file_size(path, error);
    if (error) cannot_write(shown(name), error.value());
  }
  return record;
}

void OutputFolder::require_files() const {
  for (const auto& [name, record] : files_) {
    std::error_code error;
    static_cast<void>(fs::file_size(fs::path(hidden_) / name, error));
    if (error) cannot_write(shown(name), error.value());
  }
}

void OutputFolder::commit() {
  flush_folder(hidden_, target_);
  const std::string old = put_in_place(hidden_, place_, target_);
  hidden_ = place_;
  done_ = true;
  close(lock_);
  lock_ = -1;
  // The results are in place. What cannot be removed now is a left-over for the next run.
  std::error_code ignored;
  if (!old.empty()) fs::remove_all(old, ignored);
}

void OutputFolder::discard() noexcept {
  if (done_) return;
  done_ = true;
  spare_.reset();
  std::error_code ignored;
  if (!hidden_.empty()) fs::remove_all(hidden_, ignored);
  if (lock_ != -1) close(lock_);
  lock_ = -1;
  // Only empty ones are removed: another run may use them.
  for (auto each = made_.rbegin(); each != made_.rend(); ++each) rmdir(each->c_str());
}

}  // namespace Outputs
