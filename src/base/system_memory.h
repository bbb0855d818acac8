// The memory that the system reports as available.
#ifndef KELPBOX_BASE_SYSTEM_MEMORY_H_
#define KELPBOX_BASE_SYSTEM_MEMORY_H_

#include <cstdint>
#include <string>

namespace Base {

// The bytes that this process can still take. They consist of free memory, caches that the system
// can drop, and swap. They are limited by the process's control groups (versions 1 and 2) and by
// strict overcommit. A figure that the system does not report sets no limit. Each path that is read
// is prefixed with `root`.
std::uint64_t system_memory(const std::string& root = "");

}  // namespace Base

#endif  // KELPBOX_BASE_SYSTEM_MEMORY_H_
