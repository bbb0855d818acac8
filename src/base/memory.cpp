#include "base/memory.h"

#include <malloc.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iomanip>
#include <limits>

#include "base/compose.h"
#include "base/system_memory.h"

namespace Base {
namespace {

// The bytes left under the process's address space limit.
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

// Maps the whole block and releases it without writing to it.
bool addresses_fit(std::uint64_t bytes) {
  void* block = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (block == MAP_FAILED) return false;
  munmap(block, bytes);
  return true;
}

bool fits_now(std::uint64_t bytes) {
  // Reading the system's report is too slow for small requests.
  constexpr std::uint64_t small = 16_MiB;
  return addresses_fit(bytes) && (bytes < small || bytes <= available_memory());
}

}  // namespace

std::uint64_t available_memory() { return std::min(system_memory(), address_room()); }

bool memory_fits(std::uint64_t bytes) {
  if (bytes == 0 || fits_now(bytes)) return true;
#ifdef __GLIBC__
  // The heap keeps memory that was freed in small pieces.
  malloc_trim(0);
#endif
  return fits_now(bytes);
}

void require_memory(std::uint64_t bytes, const std::string& what) {
  if (memory_fits(bytes)) return;
  const auto gib = [](std::uint64_t count) { return static_cast<double>(count) / (1 << 30); };
  throw compose(std::fixed, std::setprecision(2), what, " need ", gib(bytes), " GiB of memory, ",
                gib(available_memory()), " GiB are available");
}

}  // namespace Base
