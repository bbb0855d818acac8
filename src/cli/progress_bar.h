// A line on the terminal that shows how far the work is, for work of more than two seconds.
#ifndef KELPBOX_CLI_PROGRESS_BAR_H_
#define KELPBOX_CLI_PROGRESS_BAR_H_

#include <chrono>
#include <cstddef>
#include <ostream>
#include <string>

namespace Cli {

// "storm.toml, field  [#######.............]  35 %  12 s left", cut to the width. `done` is the
// share from 0 to 1; with NaN, the line shows the seconds spent instead of the bar.
std::string progress_line(const std::string& name, double done, double seconds, std::size_t width);

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
  // `seconds` is the time that the share took.
  void show(const std::string& name, double done, double seconds);
  void erase();

 private:
  std::ostream& out_;
  bool live_;
  bool shown_ = false;
  std::chrono::steady_clock::time_point begin_;
};

}  // namespace Cli

#endif  // KELPBOX_CLI_PROGRESS_BAR_H_
