#include "base/large_pages.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>

namespace Base {

void prefer_large_pages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t bytes) {
#ifdef MADV_HUGEPAGE
  constexpr std::size_t least = std::size_t{4} << 20;
  if (bytes < least) return;
  const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
  // The heap keeps a few bytes of its own before the array, so the range starts in their page.
  const std::uintptr_t before = reinterpret_cast<std::uintptr_t>(memory) % page;
  // Only advice: a failure leaves small pages.
  static_cast<void>(madvise(static_cast<char*>(memory) - before, bytes + before, MADV_HUGEPAGE));
#endif
}

}  // namespace Base
