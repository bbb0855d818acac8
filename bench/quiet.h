// Takes the lines that a build writes to the standard output, and drops them.
#ifndef KELPBOX_BENCH_QUIET_H_
#define KELPBOX_BENCH_QUIET_H_

#include <iostream>
#include <sstream>

namespace Bench {

class Quiet {
 public:
  Quiet() : screen_(std::cout.rdbuf(lines_.rdbuf())) {}
  ~Quiet() { std::cout.rdbuf(screen_); }
  Quiet(const Quiet&) = delete;
  Quiet& operator=(const Quiet&) = delete;

 private:
  std::ostringstream lines_;
  std::streambuf* screen_;
};

}  // namespace Bench

#endif  // KELPBOX_BENCH_QUIET_H_
