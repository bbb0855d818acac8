#include "base/system_memory.h"

#include <algorithm>
#include <fstream>
#include <limits>
#include <map>
#include <sstream>

namespace Base {
namespace {

constexpr std::uint64_t no_limit = std::numeric_limits<std::uint64_t>::max();

// Calls `read` with each line of the file, as far as it can be read. A line that does not fit into
// memory is a failure: without its figures there would be no limit.
template <typename Read>
void for_each_line(const std::string& path, const Read& read) {
  std::ifstream file(path);
  file.exceptions(std::ios_base::badbit);
  try {
    for (std::string line; std::getline(file, line);) read(line);
  } catch (const std::ios_base::failure&) {  // the file cannot be read to its end
  }
}

// The numbers in a file of lines such as "MemFree:   100 kB" or "anon 100", by name.
class Figures {
 public:
  explicit Figures(const std::string& path) {
    for_each_line(path, [this](const std::string& line) {
      std::istringstream words(line);
      words.exceptions(std::ios_base::badbit);
      std::string name;
      std::string unit;
      std::uint64_t value = 0;
      if (!(words >> name >> value)) return;
      if (name.back() == ':') name.pop_back();
      words >> unit;
      if (unit == "kB") value *= 1024;
      values_[name] = value;
    });
  }

  std::uint64_t get(const std::string& name, std::uint64_t missing) const {
    const auto found = values_.find(name);
    return found == values_.end() ? missing : found->second;
  }

 private:
  std::map<std::string, std::uint64_t> values_;
};

// The number that the file starts with. A limit that is not set is the word "max".
std::uint64_t number_in(const std::string& path, std::uint64_t missing) {
  std::ifstream file(path);
  std::uint64_t value = 0;
  return file >> value ? value : missing;
}

// a - b, or 0 if b is greater.
std::uint64_t difference(std::uint64_t a, std::uint64_t b) { return a - std::min(a, b); }

// The file names of control groups, which differ between the two versions.
struct GroupFiles {
  const char* mount;
  const char* limit;
  const char* usage;
  const char* swap_limit;
  const char* swap_usage;
  const char* cache_prefix;
  bool swap_includes_memory;
};
constexpr GroupFiles version_1 = {"/sys/fs/cgroup/memory",
                                  "/memory.limit_in_bytes",
                                  "/memory.usage_in_bytes",
                                  "/memory.memsw.limit_in_bytes",
                                  "/memory.memsw.usage_in_bytes",
                                  "total_",
                                  true};
constexpr GroupFiles version_2 = {"/sys/fs/cgroup",
                                  "/memory.max",
                                  "/memory.current",
                                  "/memory.swap.max",
                                  "/memory.swap.current",
                                  "",
                                  false};

// The bytes left under several limits.
struct Room {
  std::uint64_t memory = no_limit;
  std::uint64_t swap = no_limit;
  std::uint64_t both = no_limit;  // memory and swap together

  void limit(const Room& other) {
    memory = std::min(memory, other.memory);
    swap = std::min(swap, other.swap);
    both = std::min(both, other.both);
  }
  std::uint64_t total() const {
    return std::min(both, memory > no_limit - swap ? no_limit : memory + swap);
  }
};

// The bytes left under the limits of one group. Its file cache counts as free, since the system
// drops it first.
Room group_room(const std::string& folder, const GroupFiles& files) {
  const std::uint64_t limit = number_in(folder + files.limit, no_limit);
  const std::uint64_t swap_limit = number_in(folder + files.swap_limit, no_limit);
  const Figures figures(folder + "/memory.stat");
  const std::string prefix = files.cache_prefix;
  const std::uint64_t cache =
      figures.get(prefix + "inactive_file", 0) + figures.get(prefix + "active_file", 0);
  const auto left = [&](std::uint64_t most, const char* usage, std::uint64_t free) {
    if (most == no_limit) return no_limit;
    return difference(most, difference(number_in(folder + usage, 0), free));
  };
  Room room;
  room.memory = left(limit, files.usage, cache);
  if (files.swap_includes_memory) {
    room.both = left(swap_limit, files.swap_usage, cache);
  } else {
    room.swap = left(swap_limit, files.swap_usage, 0);
  }
  return room;
}

// A group and the groups around it, from the inside out. A container may not see the inner folders.
// The limit then shows at the mount itself.
Room nested_groups_room(const std::string& mount, std::string path, const GroupFiles& files) {
  Room room = group_room(mount, files);
  while (!path.empty()) {
    room.limit(group_room(mount + path, files));
    const std::size_t last = path.rfind('/');
    path.erase(last == std::string::npos ? 0 : last);
  }
  return room;
}

// The least room of all groups that the process is in. /proc/self/cgroup has a line
// "<number>:<controllers>:<path>" for each. Version 2 has one line without controllers.
Room groups_room(const std::string& root) {
  Room room;
  for_each_line(root + "/proc/self/cgroup", [&](const std::string& line) {
    const std::size_t first = line.find(':');
    const std::size_t second = line.find(':', first + 1);
    if (first == std::string::npos || second == std::string::npos) return;
    const std::string controllers = line.substr(first + 1, second - first - 1);
    const bool memory = ("," + controllers + ",").find(",memory,") != std::string::npos;
    if (!controllers.empty() && !memory) return;
    const GroupFiles& files = memory ? version_1 : version_2;
    std::string path = line.substr(second + 1);
    if (path == "/") path.clear();
    room.limit(nested_groups_room(root + files.mount, path, files));
  });
  return room;
}

}  // namespace

std::uint64_t system_memory(const std::string& root) {
  const Figures machine(root + "/proc/meminfo");
  Room least = groups_room(root);
  least.limit({machine.get("MemAvailable", no_limit), machine.get("SwapFree", 0), no_limit});
  std::uint64_t room = least.total();
  constexpr std::uint64_t strict_overcommit = 2;
  if (number_in(root + "/proc/sys/vm/overcommit_memory", 0) == strict_overcommit) {
    room = std::min(
        room, difference(machine.get("CommitLimit", no_limit), machine.get("Committed_AS", 0)));
  }
  return room;
}

}  // namespace Base
