#include "outputs/hidden_folders.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace Outputs {
namespace {

std::string prefix_of(const fs::path& place) {
  constexpr std::size_t longest = 200;  // leaves room in a file name of 255 bytes
  return "." + place.filename().string().substr(0, longest) + ".kelpbox-";
}

int open_folder(const std::string& folder) {
  return open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
}

// Whether the open folder is still the one that has this path.
bool is_at(int descriptor, const std::string& path) {
  struct stat held {};
  struct stat found {};
  return fstat(descriptor, &held) == 0 && stat(path.c_str(), &found) == 0 &&
         held.st_dev == found.st_dev && held.st_ino == found.st_ino;
}

void remove_unless_locked(const fs::path& folder) {
  const int descriptor = open_folder(folder.string());
  if (descriptor == -1) return;
  if (flock(descriptor, LOCK_EX | LOCK_NB) == 0) {
    std::error_code ignored;
    fs::remove_all(folder, ignored);
  }
  close(descriptor);
}

}  // namespace

std::string hidden_name(const std::string& place, int number) {
  const fs::path path(place);
  return (path.parent_path() / prefix_of(path)).string() + std::to_string(getpid()) + "-" +
         std::to_string(number);
}

int lock_hidden(const std::string& folder) {
  const int descriptor = open_folder(folder);
  if (descriptor == -1) return -1;
  // Some network file systems have no locks on folders. There a left-over is never removed, since
  // remove_left_over gets no lock either.
  while (flock(descriptor, LOCK_EX) != 0 && errno == EINTR) {
  }
  if (is_at(descriptor, folder)) return descriptor;
  close(descriptor);
  return -1;
}

void remove_left_over(const std::string& place) noexcept {
  try {
    const fs::path path(place);
    const std::string prefix = prefix_of(path);
    const bool empty_place = !fs::exists(path);
    for (const fs::directory_entry& entry : fs::directory_iterator(path.parent_path())) {
      const std::string name = entry.path().filename().string();
      if (!name.starts_with(prefix)) continue;
      // The machine failed between the two steps of an exchange: these are the only results.
      if (empty_place && name.ends_with(old_ending)) continue;
      remove_unless_locked(entry.path());
    }
  } catch (const std::exception&) {
    // A parent that cannot be listed may still be written.
  }
}

}  // namespace Outputs
