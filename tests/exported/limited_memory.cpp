#include "limited_memory.h"

#include <cstdlib>
#include <new>

// Those of the whole program. The forms for arrays call these. A sanitizer has its own form without
// exceptions, which would not match this delete.

void* operator new(std::size_t size) {
  if (Testing::allocations_left <= 0) throw std::bad_alloc();
  --Testing::allocations_left;
  void* const memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  try {
    return operator new(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
