// Memory that the machine already has. A virtual machine may get memory from its host only at the
// first use, which takes far longer than many a job. So a measurement uses and frees as much memory
// just before it starts.
#ifndef KELPBOX_BENCH_WARM_MEMORY_H_
#define KELPBOX_BENCH_WARM_MEMORY_H_

#include <cstddef>
#include <vector>

#include "base/large_pages.h"

namespace Bench {

// Writes to every page of this much memory, in large pages where the system has them.
inline void warm_up(std::size_t bytes) {
  constexpr std::size_t page = 4096;
  std::vector<char> memory;
  memory.reserve(bytes);
  Base::prefer_large_pages(memory.data(), bytes);
  for (std::size_t i = 0; i < bytes; i += page) {
    static_cast<volatile char*>(memory.data())[i] = 1;
  }
}

}  // namespace Bench

#endif  // KELPBOX_BENCH_WARM_MEMORY_H_
