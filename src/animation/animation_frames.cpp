#include "animation/animation_frames.h"

#include <algorithm>
#include <limits>
#include <new>
#include <ostream>
#include <stdexcept>
#include <string>

#include "base/memory.h"
#include "base/streams.h"

namespace Synthesis {
namespace {

using Frames = std::vector<std::vector<std::int16_t>>;

// Bytes for the samples of all frames, with each frame's entry in the list and the smallest block
// of the heap: short frames need more than their samples.
std::uint64_t room(std::uint64_t samples, std::uint64_t frames) {
  constexpr std::uint64_t beside = sizeof(Frames::value_type) + 32;
  return samples * sizeof(std::int16_t) + frames * beside;
}

// Checks all the memory that is still to be allocated. A request that is too large fails here. If
// it were allocated frame by frame, a system that overcommits would end the process.
void prove_room(std::uint64_t points, std::uint32_t t, const Frames& held, std::uint64_t besides) {
  const std::uint64_t needed = room(points * t, t);
  // A frame whose size changes moves to a new block before its old one is freed.
  if (!held.empty() && held.front().capacity() != points) {
    besides += sizeof(std::int16_t) * std::min<std::uint64_t>(points, held.front().capacity());
  }
  std::uint64_t samples = 0;
  for (const std::vector<std::int16_t>& frame : held) samples += frame.capacity();
  const std::uint64_t bytes = needed - std::min(needed, room(samples, held.size())) + besides;
  if (!Base::memory_fits(bytes)) throw std::bad_alloc();
}

// Each frame is in another part of the memory, so that a store would wait for it.
constexpr std::size_t frames_ahead = 12;

void fetch(const std::int16_t* samples, std::size_t count) {
  constexpr std::size_t line = 64 / sizeof(std::int16_t);
  constexpr int to_write = 1;
  for (std::size_t i = 0; i < count; i += line) __builtin_prefetch(samples + i, to_write);
  if (count != 0) __builtin_prefetch(samples + count - 1, to_write);
}

}  // namespace

void AnimationFrames::setup(std::uint32_t x, std::uint32_t y, std::uint32_t t,
                            std::uint64_t besides) {
  const std::uint64_t points = std::uint64_t{x} * y;
  if (points > std::numeric_limits<std::uint32_t>::max()) {
    throw std::length_error("vector<T> too long");
  }
  prove_room(points, t, frames_, besides);
  x_lim_ = x;
  y_lim_ = y;
  t_lim_ = t;
  // Set before the frames are ready, so that the count of older frames is never used for these.
  count_.store({0, static_cast<std::uint32_t>(points)}, std::memory_order_release);
  try {
    frames_.resize(t);
    for (std::vector<std::int16_t>& frame : frames_) {
      if (!running()) {
        frames_.clear();
        return;
      }
      // On its own, `resize` may reserve twice what the frame had.
      frame.reserve(points);
      frame.resize(points);
      // The check above counted the excess memory of older, larger frames as available.
      frame.shrink_to_fit();
    }
  } catch (...) {
    release();
    throw;
  }
  // The frames become ready unless a stop came in between.
  std::uint32_t flags = running_flag;
  while ((flags & running_flag) != 0 &&
         !flags_.compare_exchange_weak(flags, flags | ready_flag, std::memory_order_release,
                                       std::memory_order_relaxed)) {
  }
}

void AnimationFrames::add_series(std::uint32_t x, std::uint32_t y, const SeriesBlock& series) {
  if (!running()) throw std::string("Animate Cancelled");
  if (!ready() || frames_.size() != t_lim_) {
    throw std::string("Adding a time series to uninitialised animation object");
  }
  if (x >= x_lim_) throw std::string("Error x >= x_lim");
  if (y >= y_lim_) throw std::string("Error y >= y_lim");
  if (series.length != t_lim_) {
    Base::progress() << "vec.size() " << series.length << " t_lim " << t_lim_ << std::endl;
    throw std::string("Error vec.size() != t_lim");
  }
  const std::uint32_t rows = std::min(series.rows, y_lim_ - y);
  const std::size_t first = std::size_t{y_lim_} * x + y;
  for (std::size_t t = 0; t < t_lim_; ++t) {
    if (t + frames_ahead < t_lim_) fetch(frames_[t + frames_ahead].data() + first, rows);
    std::int16_t* const out = frames_[t].data() + first;
    if (series.stride == 0) {
      std::fill_n(out, rows, series.data[t]);
    } else {
      for (std::size_t row = 0; row < rows; ++row) out[row] = series.data[row * series.stride + t];
    }
  }
  Count count = count_.load(std::memory_order_relaxed);
  while (!count_.compare_exchange_weak(count, {count.done + rows, count.total},
                                       std::memory_order_release, std::memory_order_relaxed)) {
  }
  if (rows < series.rows) throw std::string("Error y >= y_lim");
}

std::uint32_t AnimationFrames::columns_for(std::uint32_t samples, std::uint32_t rows) const {
  const bool fits = ready() && frames_.size() == t_lim_ && samples == t_lim_ && rows <= y_lim_;
  return fits ? x_lim_ : 0;
}

const std::vector<std::int16_t>& AnimationFrames::data(std::uint32_t index) const {
  if (index >= frames_.size()) throw std::string("invalid vector<T> subscript");
  return frames_[index];
}

std::uint32_t AnimationFrames::size(std::uint32_t type) const {
  if (!ready()) return 0;
  switch (type) {
    case t_size:
      return t_lim_;
    case x_size:
      return x_lim_;
    case y_size:
      return y_lim_;
    default:
      throw std::string("unknown Size type");
  }
}

double AnimationFrames::progress() const {
  if (!ready()) return 0.0;
  const Count count = count_.load(std::memory_order_acquire);
  return count.done < count.total ? static_cast<double>(count.done) / count.total : 1.0;
}

bool AnimationFrames::complete() const {
  if (!ready()) return false;
  const Count count = count_.load(std::memory_order_acquire);
  return count.done >= count.total;
}

void AnimationFrames::release() {
  flags_.fetch_and(~ready_flag, std::memory_order_relaxed);
  frames_.clear();
  frames_.shrink_to_fit();
}

}  // namespace Synthesis
