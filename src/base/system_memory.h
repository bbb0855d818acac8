// What the system reports about memory.
#ifndef KELPBOX_BASE_SYSTEM_MEMORY_H_
#define KELPBOX_BASE_SYSTEM_MEMORY_H_

#include <cstdint>
#include <string>

namespace Base {

// Bytes that this process can still take: free memory, caches that the system gives up, and swap,
// within the limits of the control groups (versions 1 and 2) that the process is in, and of strict
// overcommit. What the system does not report is no limit. `root` is put before each path that is
// read.
std::uint64_t system_memory(const std::string& root = "");

}  // namespace Base

#endif  // KELPBOX_BASE_SYSTEM_MEMORY_H_
