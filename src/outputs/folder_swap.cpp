#include "outputs/folder_swap.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "outputs/cannot_write.h"
#include "outputs/earlier_results.h"
#include "outputs/hidden_folders.h"
#include "outputs/output_file.h"

namespace fs = std::filesystem;

namespace Outputs {
namespace {

// Whether the file system, or the kernel, lacks this kind of rename.
bool unsupported(int error) { return error == EINVAL || error == ENOSYS || error == ENOTSUP; }

int rename_with(unsigned flags, const std::string& from, const std::string& to) {
  return renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), flags) == 0 ? 0 : errno;
}

// Keeps the access rights that the user gave to the old folder.
void copy_rights(const std::string& from, const std::string& to) {
  struct stat old {};
  if (stat(from.c_str(), &old) != 0) return;
  // The results matter more than the rights of their folder.
  static_cast<void>(chmod(to.c_str(), old.st_mode & 07777));
}

// Undoes what put_in_place has done. Nothing more can be done if this fails too.
void take_back(const std::string& folder, const std::string& place, const std::string& old) {
  const int failed = rename_with(old == folder ? RENAME_EXCHANGE : 0, place, folder);
  if (failed == 0 && !old.empty() && old != folder) rename_with(0, old, place);
}

}  // namespace

void flush_folder(const std::string& folder, const std::string& shown) {
  try {
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
      flush_to_disk(entry.path().string(),
                    shown + "/" + entry.path().lexically_relative(folder).string());
    }
  } catch (const fs::filesystem_error& failure) {
    cannot_write(shown, failure.code().value());
  }
  flush_to_disk(folder, shown);
}

std::string swap_in_two_steps(const std::string& folder, const std::string& place,
                              const std::string& shown) {
  std::string old = folder + old_ending;
  if (rename(place.c_str(), old.c_str()) != 0) cannot_write(shown, errno);
  if (rename(folder.c_str(), place.c_str()) == 0) return old;
  const int error = errno;
  // Nothing more can be done if this fails too.
  static_cast<void>(rename(old.c_str(), place.c_str()));
  cannot_write(shown, error);
}

std::string put_in_place(const std::string& folder, const std::string& place,
                         const std::string& shown) {
  const std::string parent = fs::path(place).parent_path().string();
  // Another process may make or remove the place meanwhile.
  int error = 0;
  std::string old;
  std::string exchanged = folder;  // copied while a failure still leaves everything in its place
  for (int attempt = 0; attempt < 10; ++attempt) {
    std::error_code ignored;
    const bool exists = fs::exists(fs::symlink_status(place, ignored));
    if (exists) {
      require_replaceable(place, shown);
      copy_rights(place, folder);
      error = rename_with(RENAME_EXCHANGE, folder, place);
      if (error == 0) old.swap(exchanged);
      if (unsupported(error)) {
        old = swap_in_two_steps(folder, place, shown);
        error = 0;
      }
    } else {
      error = rename_with(RENAME_NOREPLACE, folder, place);
      if (unsupported(error)) error = rename_with(0, folder, place);
    }
    if (error != (exists ? ENOENT : EEXIST)) break;
  }
  if (error != 0) cannot_write(shown, error);
  try {
    flush_to_disk(parent, shown);
  } catch (...) {
    take_back(folder, place, old);
    throw;
  }
  return old;
}

}  // namespace Outputs
