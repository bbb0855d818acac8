// Memory that runs out at a chosen allocation.
//
// A program with failing_memory.cpp has its own malloc and its relatives, its own mmap and its own
// pthread_create. They serve the libraries of the program too: the standard library, flex and bison
// all end here. With a sanitizer, which has a malloc of its own, only `operator new` fails.
//
// The allocations of FFTW, NetCDF, HDF5 and zlib do not fail. The first three end the process
// instead of reporting.
#ifndef KELPBOX_TESTS_SUPPORT_FAILING_MEMORY_H_
#define KELPBOX_TESTS_SUPPORT_FAILING_MEMORY_H_

namespace Testing {

enum class Fails { once, from_there_on };

// While it exists, the allocation after `allocations` others fails, in whatever thread it is. One
// at a time.
class FailingMemory {
 public:
  FailingMemory(long allocations, Fails fails);
  ~FailingMemory();
  FailingMemory(const FailingMemory&) = delete;
  FailingMemory& operator=(const FailingMemory&) = delete;

  // Whether an allocation has failed.
  bool has_failed() const;
};

// While it exists, no allocation of this thread fails or counts.
class Unlimited {
 public:
  Unlimited();
  ~Unlimited();
  Unlimited(const Unlimited&) = delete;
  Unlimited& operator=(const Unlimited&) = delete;
};

// While it exists, no thread can be started after `threads` others.
class FailingThreads {
 public:
  explicit FailingThreads(long threads);
  ~FailingThreads();
  FailingThreads(const FailingThreads&) = delete;
  FailingThreads& operator=(const FailingThreads&) = delete;
};

// The blocks of memory that the program holds. With a sanitizer always 0: it reports leaks itself.
long held_blocks();

}  // namespace Testing

#endif  // KELPBOX_TESTS_SUPPORT_FAILING_MEMORY_H_
