// Proof of memory before it is used: the system promises more than it has, and ends a process that
// takes it at its word.
#ifndef KELPBOX_BASE_MEMORY_H_
#define KELPBOX_BASE_MEMORY_H_

#include <cstdint>
#include <string>

namespace Base {

constexpr std::uint64_t operator""_MiB(unsigned long long count) { return count << 20; }

// Bytes that can still be had, as far as the system reports it and the process's limit on addresses
// allows.
std::uint64_t available_memory();

// Whether so many bytes can be had now. Nothing is kept for the caller. Of small requests the
// system is only asked for the addresses.
bool memory_fits(std::uint64_t bytes);

// Throws std::string "<what> need ... GiB of memory, ... GiB are available" unless the bytes fit.
void require_memory(std::uint64_t bytes, const std::string& what);

}  // namespace Base

#endif  // KELPBOX_BASE_MEMORY_H_
