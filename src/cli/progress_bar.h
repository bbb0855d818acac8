// A line on the terminal that shows how far the work is, for work of more than two seconds.
#ifndef KELPBOX_CLI_PROGRESS_BAR_H_
#define KELPBOX_CLI_PROGRESS_BAR_H_

#include <chrono>
#include <cmath>
#include <cstddef>
#include <ostream>
#include <string>

namespace Cli {

struct Progress {
  double done = std::nan("");  // the share from 0 to 1, if it is known
  double spent = 0.0;          // s, shown where the share is not known
  double left = std::nan("");  // s, if it is known
};

// "3 of 8, storm.toml  [#######.............]  37 %  12 s left", cut to the width.
std::string progress_line(const std::string& name, const Progress& progress, std::size_t width);

// The time left for equal tasks, of which some ended in the time until the last end, and more time
// has passed since. It falls until the next end. NaN before the first end.
double seconds_left(std::size_t ended, std::size_t all, double until_last_end, double since);

// "12 s", "3 min 20 s", "1 h 05 min".
std::string duration_text(double seconds);

class ProgressBar {
 public:
  // Writes only if the stream is live: a terminal on which a line can be rewritten.
  ProgressBar(std::ostream& out, bool live);
  ~ProgressBar() { erase(); }
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  bool live() const { return live_; }
  void show(const std::string& name, const Progress& progress);
  void erase();

 private:
  std::ostream& out_;
  bool live_;
  bool shown_ = false;
  std::chrono::steady_clock::time_point begin_;
};

}  // namespace Cli

#endif  // KELPBOX_CLI_PROGRESS_BAR_H_
