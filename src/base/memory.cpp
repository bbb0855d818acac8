#include "base/memory.h"

#include <malloc.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iomanip>
#include <limits>
#include <sstream>

#include "base/system_memory.h"

namespace Base {
namespace {

// Bytes of addresses that the process may still take.
std::uint64_t address_room() {
  rlimit limit{};
  if (getrlimit(RLIMIT_AS, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY) {
    return std::numeric_limits<std::uint64_t>::max();
  }
  std::uint64_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  const std::uint64_t held = pages * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
  return limit.rlim_cur - std::min<std::uint64_t>(limit.rlim_cur, held);
}

// Asks for the whole piece and gives it back untouched.
bool granted(std::uint64_t bytes) {
  void* proof = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (proof == MAP_FAILED) return false;
  munmap(proof, bytes);
  return true;
}

bool fits_now(std::uint64_t bytes) {
  constexpr std::uint64_t small = 16_MiB;
  return granted(bytes) && (bytes < small || bytes <= available_memory());
}

}  // namespace

std::uint64_t available_memory() { return std::min(system_memory(), address_room()); }

bool memory_fits(std::uint64_t bytes) {
  if (bytes == 0 || fits_now(bytes)) return true;
#ifdef __GLIBC__
  // What was freed in small pieces still belongs to the heap.
  malloc_trim(0);
#endif
  return fits_now(bytes);
}

void require_memory(std::uint64_t bytes, const std::string& what) {
  if (memory_fits(bytes)) return;
  const auto gib = [](std::uint64_t count) { return static_cast<double>(count) / (1 << 30); };
  std::ostringstream text;
  text << std::fixed << std::setprecision(2) << what << " need " << gib(bytes) << " GiB of memory, "
       << gib(available_memory()) << " GiB are available";
  throw text.str();
}

}  // namespace Base
