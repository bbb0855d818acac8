// The frames of an animation, and the flags and counters through which one thread watches and stops
// another that fills them.
//
// A frame holds the surface over the whole grid at one moment: the point (x, y) is entry
// rows * x + y, encoded as in surface_code.h. Failures are thrown as std::string, except for
// exhausted memory.
//
// For one thread at a time, with two exceptions: several threads may add series to different
// columns, and `progress`, `complete`, `running` and `stop` may be called while another thread is
// in any other operation except `release`.
#ifndef KELPBOX_ANIMATION_ANIMATION_FRAMES_H_
#define KELPBOX_ANIMATION_ANIMATION_FRAMES_H_

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Synthesis {

// Encoded series of neighbouring rows of one column: sample t of row r is data[r * stride + t]. A
// stride of 0 gives all rows the same series.
struct SeriesBlock {
  const std::int16_t* data = nullptr;
  std::size_t length = 0;  // samples of a series
  std::size_t stride = 0;
  std::uint32_t rows = 1;
};

class AnimationFrames {
 public:
  enum Size : std::uint32_t { t_size = 0, x_size = 1, y_size = 2 };

  // Marks the start and the end of a build. Only `stop` ends one early.
  void begin() { flags_.fetch_or(running_flag, std::memory_order_relaxed); }
  void end() { flags_.fetch_and(~running_flag, std::memory_order_relaxed); }
  bool running() const { return has(running_flag); }
  // Whether there are frames to fill.
  bool ready() const { return has(ready_flag); }

  // Makes t frames of x columns and y rows. A stop leaves none. Throws std::length_error, and
  // std::bad_alloc, before anything is allocated if the machine does not have the memory for the
  // frames and for `besides` bytes of a build.
  void setup(std::uint32_t x, std::uint32_t y, std::uint32_t t, std::uint64_t besides = 0);
  // Stores the series of column x and of the rows from y. Throws "Animate Cancelled", "Adding a
  // time series to uninitialised animation object", "Error x >= x_lim", "Error y >= y_lim" once
  // the rows before it are stored, and, after a line on the standard output stream, "Error
  // vec.size() != t_lim".
  void add_series(std::uint32_t x, std::uint32_t y, const SeriesBlock& series);

  // The number of columns for which `add_series` takes series of so many samples and rows.
  std::uint32_t columns_for(std::uint32_t samples, std::uint32_t rows) const;

  // One frame, valid until `setup` or `release`. Throws "invalid vector<T> subscript".
  const std::vector<std::int16_t>& data(std::uint32_t index) const;
  // 0 unless ready. Throws "unknown Size type".
  std::uint32_t size(std::uint32_t type) const;
  // The share of the series that are stored, from 0 to 1; 0 unless ready.
  double progress() const;
  // Whether all series are stored.
  bool complete() const;
  // Ends a build the next time it checks. The frames keep their content and are no longer ready.
  void stop() { flags_.store(0, std::memory_order_relaxed); }
  // Frees the frames.
  void release();

 private:
  static constexpr std::uint32_t running_flag = 1;
  static constexpr std::uint32_t ready_flag = 2;

  struct alignas(8) Count {
    std::uint32_t done = 0;
    std::uint32_t total = 0;
  };

  bool has(std::uint32_t flag) const {
    return (flags_.load(std::memory_order_acquire) & flag) != 0;
  }

  std::uint32_t x_lim_ = 0;
  std::uint32_t y_lim_ = 0;
  std::uint32_t t_lim_ = 0;
  std::vector<std::vector<std::int16_t>> frames_;
  // Each of these is one atomic word, so that a watcher never sees half of a change: a stop clears
  // both flags, and the series of one animation are never compared with the total of another.
  std::atomic<std::uint32_t> flags_{0};
  std::atomic<Count> count_{Count{}};
  static_assert(std::atomic<Count>::is_always_lock_free);
};

}  // namespace Synthesis

#endif  // KELPBOX_ANIMATION_ANIMATION_FRAMES_H_
