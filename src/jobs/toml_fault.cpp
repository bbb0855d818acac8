#include "jobs/toml_fault.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace Jobs {
namespace {

struct Description {
  std::string_view part;   // "array"
  std::string_view error;  // "expected ..., saw ..."
};

Description split(std::string_view description) {
  constexpr std::string_view head = "Error while parsing ";
  if (!description.starts_with(head)) {
    return {{}, description};
  }
  description.remove_prefix(head.size());
  const std::size_t colon = description.find(": ");
  if (colon == std::string_view::npos) {
    return {{}, description};
  }
  return {description.substr(0, colon), description.substr(colon + 2)};
}

std::string_view last_quoted(std::string_view text) {
  const std::size_t end = text.rfind('\'');
  const std::size_t begin = text.find('\'');
  return begin < end ? text.substr(begin + 1, end - begin - 1) : std::string_view{};
}

// The value that somebody wrote without quotation marks, which is the most common error: 80 mm.
// Found from the error, which is in the value or right after it.
std::optional<std::string_view> bare_value(std::string_view line, std::size_t error) {
  const std::size_t equals = line.substr(0, error).rfind('=');
  if (equals == std::string_view::npos) {
    return std::nullopt;
  }
  const std::size_t begin = line.find_first_not_of(" \t", equals + 1);
  if (begin == std::string_view::npos) {
    return std::nullopt;
  }
  std::string_view value = line.substr(begin);
  value = value.substr(0, value.find_first_of(",}]#"));
  const std::size_t last = value.find_last_not_of(" \t");
  if (last == std::string_view::npos || value.find_first_of("=\"'[{\\") != std::string_view::npos) {
    return std::nullopt;
  }
  return value.substr(0, last + 1);
}

std::string plain(const Description& description) {
  const std::string error(description.error);
  if (error.starts_with("cannot redefine existing")) {
    return "`" + std::string(last_quoted(error)) + "` is given twice";
  }
  if (error.find("encountered end-of-file") != std::string::npos && !description.part.empty()) {
    return "the file ends in the middle of a value or table";
  }
  return "this is not TOML: " + error;
}

}  // namespace

Diagnostic syntax_fault(const TextPlaces& places, TextPlace place, const std::string& description) {
  const Span span = places.span(place, {place.line, place.character + 1});
  const Description parts = split(description);
  const std::string_view line = places.line(span.line);
  const bool twice = parts.error.starts_with("cannot redefine");
  // The byte order mark is no part of the line, but of its columns.
  const Span start = places.span({place.line, 1}, {place.line, 1});
  const std::size_t error = span.column > start.column ? span.column - start.column : 0;
  const auto bare = twice ? std::nullopt : bare_value(line, error);
  if (!bare) {
    return {plain(parts), span, ""};
  }
  Span whole = start;
  whole.column += static_cast<std::uint32_t>(bare->data() - line.data());
  whole.length = static_cast<std::uint32_t>(bare->size());
  const std::string value(*bare);
  return {"`" + value + "` is not a TOML value", whole, "write \"" + value + "\""};
}

}  // namespace Jobs
