#include "jobs/overrides.h"

#include <memory>
#include <string_view>
#include <utility>

#include "base/utf8.h"
#include "jobs/key_path.h"
#include "jobs/override_target.h"
#include "jobs/override_value.h"

namespace Jobs {
namespace {

class Overrides {
 public:
  Overrides(Value& job, Diagnostics& faults) : job_(job), faults_(faults) {}

  void apply_option(const std::string& option) {
    const auto source = std::make_shared<const SourceText>(SourceText{"--set", option});
    const Span whole = {source, 1, 1, static_cast<std::uint32_t>(option.size())};
    const std::size_t equals = find_equals(option);
    if (Base::find_invalid_utf8(option) != std::string_view::npos) {
      faults_.push_back({"the option is not UTF-8", whole, ""});
      return;
    }
    if (equals == std::string_view::npos) {
      faults_.push_back({"the option has no value", whole, "write key=value"});
      return;
    }
    apply(option.substr(0, equals), whole, true, value_from(source, equals + 1));
  }

  void apply_entry(const Value& entry) {
    const Value* key = nullptr;
    const Value* given = nullptr;
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
    apply(key->text, key->span, false,
          given->kind == Value::Kind::text ? value_of(*given) : *given);
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
