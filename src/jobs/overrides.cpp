#include "jobs/overrides.h"

#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "jobs/key_path.h"
#include "jobs/override_target.h"
#include "jobs/read_toml.h"
#include "jobs/utf8.h"

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

class Overrides {
 public:
  Overrides(Value& job, Diagnostics& faults) : job_(job), faults_(faults) {}

  void apply_option(const std::string& option) {
    const auto source = std::make_shared<const SourceText>(SourceText{"--set", option});
    const Span whole = {source, 1, 1, static_cast<std::uint32_t>(option.size())};
    const std::size_t equals = find_equals(option);
    if (find_invalid_utf8(option) != std::string_view::npos) {
      faults_.push_back({"the option is not UTF-8", whole, ""});
      return;
    }
    if (equals == std::string_view::npos) {
      faults_.push_back({"the option has no value", whole, "write key=value"});
      return;
    }
    const std::string_view text = trimmed(std::string_view(option).substr(equals + 1));
    const std::size_t begin = text.empty() ? equals + 1 : text.data() - option.data();
    Value value;
    if (auto parsed = toml_value(text, begin + 1)) {
      value = std::move(*parsed);
      move_to(value, source);
    } else {
      value.kind = Value::Kind::text;
      value.text = text;
      value.span = {source, 1, static_cast<std::uint32_t>(begin + 1),
                    static_cast<std::uint32_t>(text.size())};
    }
    apply(option.substr(0, equals), whole, true, std::move(value));
  }

  void apply_entry(const Value& entry) {
    const Value* key = nullptr;
    const Value* given = nullptr;
    if (entry.kind != Value::Kind::table) {
      faults_.push_back({"a [[set]] must be a table with `key` and `value`", entry.span, ""});
      return;
    }
    for (const Member& member : entry.members) {
      if (member.key == "key") {
        key = &member.value;
      } else if (member.key == "value") {
        given = &member.value;
      } else {
        faults_.push_back({"unknown key `" + member.key + "` in a [[set]]", member.key_span,
                           "a [[set]] has `key` and `value`"});
      }
    }
    if (key == nullptr || given == nullptr) {
      faults_.push_back({"a [[set]] needs `key` and `value`", entry.span, ""});
      return;
    }
    if (key->kind != Value::Kind::text) {
      faults_.push_back({"the `key` of a [[set]] must be a text", key->span, ""});
      return;
    }
    Value value = *given;
    if (given->kind == Value::Kind::text) {
      // The text means what it means after --set.
      value.text = trimmed(given->text);
      if (auto parsed = toml_value(value.text, 0)) {
        value = std::move(*parsed);
        point_at(value, given->span);
      }
    }
    apply(key->text, key->span, false, std::move(value));
  }

 private:
  // `at` is the place of the key. Where the key stands there letter by letter, faults show the
  // segment that is wrong.
  void apply(const std::string& key, const Span& at, bool literal, Value value) {
    const auto path = split_key_path(key);
    if (!path) {
      faults_.push_back(
          {"`" + key + "` is not a key", at, "write names joined by dots: run.repeat"});
      return;
    }
    const auto span_of = [&](const KeySegment& segment) {
      return literal ? Span{at.source, 1, static_cast<std::uint32_t>(segment.begin + 1),
                            static_cast<std::uint32_t>(segment.length)}
                     : at;
    };
    try {
      put(job_, *path, {"", span_of(path->back()), std::move(value)});
    } catch (const NoTarget& none) {
      faults_.push_back({none.fault, span_of((*path)[none.segment]), none.label});
    }
  }

  Value& job_;
  Diagnostics& faults_;
};

}  // namespace

std::string toml_string(std::string_view text) {
  constexpr char digits[] = "0123456789ABCDEF";
  std::string result = "\"";
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      result += {'\\', c};
    } else if (byte < 0x20 || byte == 0x7F) {
      result += {'\\', 'u', '0', '0', digits[byte >> 4], digits[byte & 15]};
    } else {
      result += c;
    }
  }
  return result + '"';
}

void apply_overrides(Value& job, const std::vector<std::string>& options, Diagnostics& faults) {
  Overrides overrides(job, faults);
  if (const Value* set = job.find("set")) {
    // with_overrides adds to them, which TOML allows for tables in brackets only.
    const bool in_brackets = set->kind == Value::Kind::array && !set->items.empty() &&
                             set->items[0].span.line == set->span.line &&
                             set->items[0].span.column == set->span.column;
    if (!in_brackets) {
      faults.push_back({"`set` must be written as [[set]] tables", set->span, ""});
    } else {
      const std::vector<Value> entries = set->items;
      for (const Value& entry : entries) {
        overrides.apply_entry(entry);
      }
    }
  }
  for (const std::string& option : options) {
    overrides.apply_option(option);
  }
}

std::string with_overrides(const std::string& text, const std::vector<std::string>& options) {
  std::string result = text;
  for (const std::string& option : options) {
    const std::size_t equals = find_equals(option);
    if (equals == std::string::npos) {
      continue;
    }
    if (!result.empty() && result.back() != '\n') {
      result += '\n';
    }
    const std::string_view value = std::string_view(option).substr(equals + 1);
    result += "\n[[set]]\nkey = " + toml_string(option.substr(0, equals)) +
              "\nvalue = " + toml_string(value) + "\n";
  }
  return result;
}

}  // namespace Jobs
