#include "jobs/override_value.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "jobs/diagnostic.h"
#include "jobs/read_toml.h"

namespace Jobs {
namespace {

void point_at(Value& value, const Span& span) {
  value.span = span;
  for (Value& item : value.items) {
    point_at(item, span);
  }
  for (Member& member : value.members) {
    member.key_span = span;
    point_at(member.value, span);
  }
}

// The same places in another text.
void move_to(Value& value, const std::shared_ptr<const SourceText>& source) {
  value.span.source = source;
  for (Value& item : value.items) {
    move_to(item, source);
  }
  for (Member& member : value.members) {
    member.key_span.source = source;
    move_to(member.value, source);
  }
}

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  return first == std::string_view::npos
             ? std::string_view()
             : text.substr(first, text.find_last_not_of(" \t") + 1 - first);
}

// The one TOML value in a text, with places as if it began at `column` of its first line.
std::optional<Value> toml_value(std::string_view text, std::size_t column) {
  auto layout = std::make_shared<SourceText>();
  layout->text = std::string(column < 3 ? 1 : column - 2, 'k') + "=" + std::string(text);
  try {
    Value job = read_toml(layout);
    if (job.members.size() != 1) {
      return std::nullopt;
    }
    Value value = std::move(job.members[0].value);
    const bool ends_early = value.span.line == 1 && text.find('\n') == std::string_view::npos &&
                            value.span.column - 1 + value.span.length < layout->text.size();
    // A comment after the value belongs to the text, and dates have no use in a job.
    if (ends_early || value.kind == Value::Kind::other) {
      return std::nullopt;
    }
    return value;
  } catch (const BadJob&) {
    return std::nullopt;
  }
}

}  // namespace

Value value_from(const std::shared_ptr<const SourceText>& option, std::size_t begin) {
  const std::string_view whole = option->text;
  const std::string_view text = trimmed(whole.substr(begin));
  const std::size_t column = (text.empty() ? begin : text.data() - whole.data()) + 1;
  if (auto parsed = toml_value(text, column)) {
    move_to(*parsed, option);
    return std::move(*parsed);
  }
  Value value;
  value.kind = Value::Kind::text;
  value.text = text;
  value.span = {option, 1, static_cast<std::uint32_t>(column),
                static_cast<std::uint32_t>(text.size())};
  return value;
}

Value value_of(const Value& text) {
  Value value = text;
  value.text = trimmed(text.text);
  if (auto parsed = toml_value(value.text, 0)) {
    value = std::move(*parsed);
    point_at(value, text.span);
  }
  return value;
}

}  // namespace Jobs
