// Preloaded into a program, this makes one of its calls fail that change files below a folder, or
// ends the program there. All processes of the program share one count of these calls.
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include "cli/faults/fault_plan.h"

using Testing::FaultPlan;

namespace {

FaultPlan* plan() {
  static FaultPlan* const mapped = [] {
    const char* path = getenv("KELPBOX_FAULT_PLAN");
    // Not by a call that is replaced here.
    FILE* const file = path != nullptr ? fopen(path, "r+") : nullptr;
    if (file == nullptr) _exit(99);
    void* const memory =
        mmap(nullptr, sizeof(FaultPlan), PROT_READ | PROT_WRITE, MAP_SHARED, fileno(file), 0);
    fclose(file);
    if (memory == MAP_FAILED) _exit(99);
    return static_cast<FaultPlan*>(memory);
  }();
  return mapped;
}

bool is_below(const char* path) {
  return strncmp(path, plan()->folder, strlen(plan()->folder)) == 0;
}

bool is_below(int descriptor) {
  char link[40];
  snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
  char path[1000];
  const ssize_t size = readlink(link, path, sizeof path - 1);
  if (size < 0) return false;
  path[size] = '\0';
  return is_below(path);
}

bool writes(int flags) { return (flags & (O_ACCMODE | O_CREAT)) != O_RDONLY; }

// Whether this call fails, with the error in errno.
template <typename Where>
bool fails(const char* name, Where where) {
  const int kept = errno;
  bool failing = false;
  if (is_below(where)) {
    const long call = __atomic_add_fetch(&plan()->calls, 1, __ATOMIC_SEQ_CST);
    failing = call == plan()->failing || (plan()->stays && call > plan()->failing);
    if (call < static_cast<long>(sizeof plan()->kinds)) plan()->kinds[call] = name[0];
    if (call == plan()->failing) snprintf(plan()->name, sizeof plan()->name, "%s", name);
  }
  if (failing && plan()->error == 0) kill(0, SIGKILL);
  errno = failing ? plan()->error : kept;
  return failing;
}

// What only a kill can meet: a full disk does not prevent it.
template <typename Where>
void passes(const char* name, Where where) {
  if (plan()->error == 0) fails(name, where);
}

template <typename Function>
Function real(const char* name, Function) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

mode_t mode_of(int flags, va_list arguments) {
  return (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  static const auto next = real("open", &open);
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = mode_of(flags, arguments);
  va_end(arguments);
  return writes(flags) && fails("open", path) ? -1 : next(path, flags, mode);
}

int open64(const char* path, int flags, ...) {
  static const auto next = real("open64", &open64);
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = mode_of(flags, arguments);
  va_end(arguments);
  return writes(flags) && fails("open", path) ? -1 : next(path, flags, mode);
}

ssize_t write(int descriptor, const void* data, size_t size) {
  static const auto next = real("write", &write);
  return fails("write", descriptor) ? -1 : next(descriptor, data, size);
}

ssize_t pwrite(int descriptor, const void* data, size_t size, off_t at) {
  static const auto next = real("pwrite", &pwrite);
  return fails("pwrite", descriptor) ? -1 : next(descriptor, data, size, at);
}

ssize_t pwrite64(int descriptor, const void* data, size_t size, off64_t at) {
  static const auto next = real("pwrite64", &pwrite64);
  return fails("pwrite", descriptor) ? -1 : next(descriptor, data, size, at);
}

int ftruncate(int descriptor, off_t size) noexcept {
  static const auto next = real("ftruncate", &ftruncate);
  return fails("truncate", descriptor) ? -1 : next(descriptor, size);
}

int ftruncate64(int descriptor, off64_t size) noexcept {
  static const auto next = real("ftruncate64", &ftruncate64);
  return fails("truncate", descriptor) ? -1 : next(descriptor, size);
}

int fsync(int descriptor) {
  static const auto next = real("fsync", &fsync);
  return fails("sync", descriptor) ? -1 : next(descriptor);
}

// The descriptor is closed even so, as by a network file system.
int close(int descriptor) {
  static const auto next = real("close", &close);
  const int flags = fcntl(descriptor, F_GETFL);
  const bool failing = flags != -1 && writes(flags) && fails("close", descriptor);
  const int kept = errno;
  const int result = next(descriptor);
  if (!failing) return result;
  errno = kept;
  return -1;
}

int mkdir(const char* path, mode_t mode) noexcept {
  static const auto next = real("mkdir", &mkdir);
  return fails("mkdir", path) ? -1 : next(path, mode);
}

int rename(const char* from, const char* to) noexcept {
  static const auto next = real("rename", &rename);
  return fails("rename", to) ? -1 : next(from, to);
}

int renameat2(int from_folder, const char* from, int to_folder, const char* to,
              unsigned flags) noexcept {
  static const auto next = real("renameat2", &renameat2);
  return fails("renameat2", to) ? -1 : next(from_folder, from, to_folder, to, flags);
}

int unlink(const char* path) noexcept {
  static const auto next = real("unlink", &unlink);
  passes("unlink", path);
  return next(path);
}

int unlinkat(int folder, const char* path, int flags) noexcept {
  static const auto next = real("unlinkat", &unlinkat);
  if (folder == AT_FDCWD) passes("unlinkat", path);
  if (folder != AT_FDCWD) passes("unlinkat", folder);
  return next(folder, path, flags);
}

int rmdir(const char* path) noexcept {
  static const auto next = real("rmdir", &rmdir);
  passes("rmdir", path);
  return next(path);
}

}  // extern "C"
