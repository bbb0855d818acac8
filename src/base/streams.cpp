#include "base/streams.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iostream>
#include <memory>
#include <new>
#include <streambuf>
#include <utility>

namespace Base {
namespace {

constexpr std::size_t most_collected = 1048576;

// Collects characters up to the limit, or as many as fit into memory, and counts the lines after
// them.
class Collected : public std::streambuf {
 public:
  std::string take() {
    if (full_) {
      // The last line may be incomplete. Its end is among those counted.
      text_.erase(text_.rfind('\n') + 1);
      text_ += "Lines left out: " + std::to_string(missing_) + "\n";
    }
    full_ = false;
    missing_ = 0;
    return std::exchange(text_, {});
  }

 protected:
  std::streamsize xsputn(const char* characters, std::streamsize count) override {
    const auto length = static_cast<std::size_t>(count);
    full_ = full_ || length > most_collected - text_.size() || !append(characters, length);
    if (full_) {
      missing_ += static_cast<std::uint64_t>(std::count(characters, characters + length, '\n'));
    }
    return count;
  }

  int_type overflow(int_type character) override {
    const char one = traits_type::to_char_type(character);
    xsputn(&one, 1);
    return character;
  }

 private:
  // False if there is no memory. A stream would ignore the failure, and all lines after it.
  bool append(const char* characters, std::size_t length) {
    try {
      text_.append(characters, length);
      return true;
    } catch (const std::bad_alloc&) {
      return false;
    }
  }

  std::string text_;
  bool full_ = false;
  std::uint64_t missing_ = 0;  // ends of lines that are not in the text
};

// Whether a copy of the format would change nothing. It takes far longer than this question.
bool same_format(const std::ostream& one, const std::ostream& other) {
  return one.flags() == other.flags() && one.precision() == other.precision() &&
         one.width() == other.width() && one.fill() == other.fill() &&
         one.getloc() == other.getloc();
}

struct Collector {
  Collected collected;
  std::ostream stream{&collected};
};

thread_local bool collecting = false;
// Made when the thread first collects.
thread_local std::unique_ptr<Collector> collector;

}  // namespace

std::ostream& progress() { return collecting ? collector->stream : std::cout; }
std::ostream& script_faults() { return collecting ? collector->stream : std::cerr; }

void collect_output(bool on) {
  if (on && !collecting) {
    if (!collector) collector = std::make_unique<Collector>();
    if (!same_format(collector->stream, std::cout)) collector->stream.copyfmt(std::cout);
    collector->stream.clear();  // a number that did not fit into memory leaves the stream bad
  }
  collecting = on;
}

std::string take_output() { return collector ? collector->collected.take() : std::string(); }

}  // namespace Base
