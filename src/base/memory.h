// Checks that memory is available before it is used. The system hands out more addresses than it
// has memory for, and kills a process that then writes to them.
#ifndef KELPBOX_BASE_MEMORY_H_
#define KELPBOX_BASE_MEMORY_H_

#include <cstdint>
#include <string>

namespace Base {

// As in 16_MiB: a number of bytes.
constexpr std::uint64_t operator""_MiB(unsigned long long count) { return count << 20; }

// The bytes that this process can still get, limited by the memory of the system (system_memory.h)
// and by the process's address space limit.
std::uint64_t available_memory();

// Whether that many bytes are available now. Does not reserve them. For less than 16 MiB only the
// address space is checked.
bool memory_fits(std::uint64_t bytes);

// Throws std::string "<what> need ... GiB of memory, ... GiB are available" unless memory_fits.
void require_memory(std::uint64_t bytes, const std::string& what);

}  // namespace Base

#endif  // KELPBOX_BASE_MEMORY_H_
