// How the writing of results reports its progress, and how it is cancelled.
#ifndef KELPBOX_OUTPUTS_PROGRESS_H_
#define KELPBOX_OUTPUTS_PROGRESS_H_

#include <cstddef>
#include <functional>
#include <string>
#include <utility>

namespace Outputs {

// Reports the share done, 0 to 1, of the named step. Returns false to cancel.
using Progress = std::function<bool(const std::string& step, double done)>;

// Thrown after a Progress returned false.
struct Cancelled {};

// One step: "drive_1.csv", "field".
class Step {
 public:
  Step(const Progress& progress, std::string name) : progress_(progress), name_(std::move(name)) {}

  // Throws Cancelled.
  void done(std::size_t count, std::size_t of) const {
    const double share = of == 0 ? 1.0 : static_cast<double>(count) / static_cast<double>(of);
    if (progress_ && !progress_(name_, share)) throw Cancelled();
  }

 private:
  const Progress& progress_;
  std::string name_;
};

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_PROGRESS_H_
