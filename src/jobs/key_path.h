// Paths to values of a job: sea.storm.wave.1.hs
#ifndef KELPBOX_JOBS_KEY_PATH_H_
#define KELPBOX_JOBS_KEY_PATH_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Jobs {

struct KeySegment {
  std::string name;
  std::size_t begin = 0;  // in the text of the path
  std::size_t length = 0;
};

using KeyPath = std::vector<KeySegment>;

// Segments are separated by dots. Blanks around them are ignored, and quotation marks of either
// kind protect dots and "=". Nothing for a path with an empty segment or an open quotation mark.
std::optional<KeyPath> split_key_path(std::string_view text);

// The "=" of `key=value`, or npos.
std::size_t find_equals(std::string_view option);

// The number of a segment of digits; 0 for every other one.
std::size_t number_of(const std::string& name);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_KEY_PATH_H_
