#include "cli/progress_bar.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>

#include "cli/console.h"

namespace Cli {

namespace {

constexpr std::chrono::seconds patience{2};
constexpr std::size_t bar_width = 20;
constexpr unsigned usual_width = 80;

}  // namespace

std::string duration_text(double seconds) {
  const auto whole = static_cast<long>(std::lround(std::clamp(seconds, 0.0, 1e9)));
  if (whole < 60) return fmt::format("{} s", whole);
  if (whole < 3600) return fmt::format("{} min {:02} s", whole / 60, whole % 60);
  return fmt::format("{} h {:02} min", whole / 3600, whole / 60 % 60);
}

double seconds_left(std::size_t ended, std::size_t all, double until_last_end, double since) {
  if (ended == 0) return std::nan("");
  const double each = until_last_end / static_cast<double>(ended);
  return std::max(each * static_cast<double>(all - ended) - since, 0.0);
}

std::string progress_line(const std::string& name, const Progress& progress, std::size_t width) {
  std::string right;
  if (std::isnan(progress.done)) {
    right = "  " + duration_text(progress.spent);
  } else {
    const double share = std::clamp(progress.done, 0.0, 1.0);
    std::string bar(static_cast<std::size_t>(share * bar_width), '#');
    bar.resize(bar_width, '.');
    right = fmt::format("  [{}] {:3.0f} %", bar, std::floor(100 * share));
    if (!std::isnan(progress.left)) right += "  " + duration_text(progress.left) + " left";
  }
  // One column stays free: some terminals begin a new line after the last one.
  const std::size_t room = width > right.size() + 1 ? width - right.size() - 1 : 0;
  return (name.substr(0, room) + right).substr(0, width > 0 ? width - 1 : 0);
}

ProgressBar::ProgressBar(std::ostream& out, bool live)
    : out_(out), live_(live), begin_(std::chrono::steady_clock::now()) {}

void ProgressBar::show(const std::string& name, const Progress& progress) {
  if (!live_ || std::chrono::steady_clock::now() - begin_ < patience) return;
  out_ << "\r\033[K" << progress_line(name, progress, columns_of(STDERR_FILENO, usual_width))
       << std::flush;
  shown_ = true;
}

void ProgressBar::erase() {
  if (shown_) out_ << "\r\033[K" << std::flush;
  shown_ = false;
}

}  // namespace Cli
