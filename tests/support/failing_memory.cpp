#include "support/failing_memory.h"

#include <dlfcn.h>
#include <execinfo.h>
#include <link.h>
#include <pthread.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>

namespace {

std::atomic<bool> limited{false};
std::atomic<bool> only_once{false};
std::atomic<bool> failed{false};
std::atomic<long> allocations_left{0};
std::atomic<long> threads_left{std::numeric_limits<long>::max()};
std::atomic<long> blocks{0};
thread_local int unlimited = 0;

// Where the code of a library lies.
struct Code {
  std::uintptr_t from = 0;
  std::uintptr_t to = 0;

  bool has(const void* caller) const {
    const auto place = reinterpret_cast<std::uintptr_t>(caller);
    return place >= from && place < to;
  }
};

struct Spared {
  const char* name;
  Code code;
};
// All but the last end the process, or crash, when they have no memory. HDF5 stores without
// compression what the last has no memory to compress.
std::array<Spared, 5> spared = {{{"libfftw3.so", {}},
                                 {"libnetcdf.so", {}},
                                 {"libhdf5_serial.so", {}},
                                 {"libhdf5_serial_hl.so", {}},
                                 {"libz.so", {}}}};
Spared c_library = {"libc.so", {}};

int find_code(dl_phdr_info* library, std::size_t, void*) {
  const auto find_in = [&](Spared& sought) {
    if (std::strstr(library->dlpi_name, sought.name) == nullptr) return;
    for (int i = 0; i < library->dlpi_phnum; ++i) {
      const auto& part = library->dlpi_phdr[i];
      if (part.p_type != PT_LOAD || (part.p_flags & PF_X) == 0) continue;
      sought.code.from = library->dlpi_addr + part.p_vaddr;
      sought.code.to = sought.code.from + part.p_memsz;
    }
  };
  for (Spared& one : spared) find_in(one);
  find_in(c_library);
  return 0;
}

bool is_spared(const void* caller) {
  return std::any_of(spared.begin(), spared.end(),
                     [&](const Spared& one) { return one.code.has(caller); });
}

// The same for what the C library allocates for its callers, such as the copy of a string.
bool is_spared_through_c(const void* caller) {
  if (!c_library.code.has(caller)) return false;
  std::array<void*, 12> frames;
  const Testing::Unlimited walking;
  const int count = backtrace(frames.data(), static_cast<int>(frames.size()));
  return std::any_of(frames.begin(), frames.begin() + count, is_spared);
}

// Whether the allocation that the code at `caller` asks for fails.
bool fails_for(const void* caller) {
  if (!limited.load(std::memory_order_relaxed) || unlimited != 0) return false;
  if (is_spared(caller) || is_spared_through_c(caller)) return false;
  const long left = allocations_left.fetch_sub(1);
  if (left > 0 || (left < 0 && only_once)) return false;
  failed = true;
  errno = ENOMEM;
  return true;
}

}  // namespace

namespace Testing {

FailingMemory::FailingMemory(long allocations, Fails fails) {
  if (c_library.code.to == 0) {
    dl_iterate_phdr(find_code, nullptr);
    // The first call loads a library.
    void* frame = nullptr;
    backtrace(&frame, 1);
  }
  allocations_left = allocations;
  only_once = fails == Fails::once;
  failed = false;
  limited = true;
}
FailingMemory::~FailingMemory() { limited = false; }
bool FailingMemory::has_failed() const { return failed; }

Unlimited::Unlimited() { ++unlimited; }
Unlimited::~Unlimited() { --unlimited; }

FailingThreads::FailingThreads(long threads) { threads_left = threads; }
FailingThreads::~FailingThreads() { threads_left = std::numeric_limits<long>::max(); }

long held_blocks() { return blocks; }

}  // namespace Testing

#ifdef KELPBOX_SANITIZED

// The forms for arrays call these. A sanitizer has its own form without exceptions, which would not
// match this delete.

void* operator new(std::size_t size) {
  if (fails_for(nullptr)) throw std::bad_alloc();
  void* const memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return fails_for(nullptr) ? nullptr : std::malloc(size == 0 ? 1 : size);
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

#else

// The libraries of the program find them here.
#pragma GCC visibility push(default)

extern "C" {

// NOLINTBEGIN(bugprone-reserved-identifier)
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* memory);
// NOLINTEND(bugprone-reserved-identifier)

static void* counted(void* memory) {
  if (memory != nullptr) blocks.fetch_add(1, std::memory_order_relaxed);
  return memory;
}

void* malloc(std::size_t size) {
  return fails_for(__builtin_return_address(0)) ? nullptr : counted(__libc_malloc(size));
}

void* calloc(std::size_t count, std::size_t size) {
  return fails_for(__builtin_return_address(0)) ? nullptr : counted(__libc_calloc(count, size));
}

void* realloc(void* memory, std::size_t size) {
  if (fails_for(__builtin_return_address(0))) return nullptr;
  void* const moved = __libc_realloc(memory, size);
  return memory == nullptr ? counted(moved) : moved;
}

void* memalign(std::size_t alignment, std::size_t size) {
  return fails_for(__builtin_return_address(0)) ? nullptr
                                                : counted(__libc_memalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size) {
  return fails_for(__builtin_return_address(0)) ? nullptr
                                                : counted(__libc_memalign(alignment, size));
}

int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
  if (fails_for(__builtin_return_address(0))) return ENOMEM;
  *memory = counted(__libc_memalign(alignment, size));
  return *memory == nullptr ? ENOMEM : 0;
}

void free(void* memory) {
  if (memory != nullptr) blocks.fetch_sub(1, std::memory_order_relaxed);
  __libc_free(memory);
}

void* mmap(void* address, std::size_t length, int protection, int flags, int file, off_t offset) {
  if (fails_for(__builtin_return_address(0))) return MAP_FAILED;
  // NOLINTNEXTLINE(performance-no-int-to-ptr)
  return reinterpret_cast<void*>(
      syscall(SYS_mmap, address, length, protection, flags, file, offset));
}

int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*run)(void*),
                   void* argument) {
  using Create = int (*)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);
  static const auto create = reinterpret_cast<Create>(dlsym(RTLD_NEXT, "pthread_create"));
  if (threads_left.fetch_sub(1) <= 0) return EAGAIN;
  return create(thread, attributes, run, argument);
}

}  // extern "C"

#pragma GCC visibility pop

#endif
