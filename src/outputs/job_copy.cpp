#include "outputs/job_copy.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

#include "base/utf8.h"
#include "jobs/input_files.h"
#include "jobs/key_path.h"
#include "jobs/overrides.h"
#include "jobs/read_toml.h"
#include "outputs/plain_text.h"
#include "outputs/text_edits.h"

namespace Outputs {
namespace {

using Jobs::Value;

Value parsed(const std::string& text) {
  return Jobs::read_toml(
      std::make_shared<const Jobs::SourceText>(Jobs::SourceText{"job.toml", text}));
}

// The value that the text of an override stands for, if it is TOML.
std::optional<Value> override_value(const std::string& text) {
  try {
    return parsed("v=" + text).members.front().value;
  } catch (const Jobs::BadJob&) {
    return std::nullopt;
  }
}

class PathEditor {
 public:
  explicit PathEditor(const Jobs::Run& run) : run_(run) {}

  // The whole job.
  std::string job(const std::string& text) const {
    const Value root = parsed(text);
    TextEdits edits(text);
    if (const Value* site = root.find("site")) edit_path(*site, edits);
    add_title(root, edits);
    for (const Jobs::Member& member : root.members) {
      if (member.key == "set") {
        edit_overrides(member.value, edits);
      } else {
        edit_files(member.value, edits);
      }
    }
    return edits.apply();
  }

 private:
  // "inputs/<name>" for a path that the run has read.
  std::optional<std::string> copy_of(const std::string& path) const {
    const auto found = Jobs::find_input(run_.inputs, Jobs::opened_path(run_.job, path));
    if (!found) return std::nullopt;
    return "inputs/" + run_.inputs[*found].name;
  }

  void edit_path(const Value& value, TextEdits& edits) const {
    if (value.kind != Value::Kind::text) return;
    if (const auto copy = copy_of(value.text)) edits.replace(value.span, Jobs::toml_string(*copy));
  }

  // Every `file` in the value.
  void edit_files(const Value& value, TextEdits& edits) const {
    for (const Value& item : value.items) edit_files(item, edits);
    for (const Jobs::Member& member : value.members) {
      if (member.key == "file") edit_path(member.value, edits);
      edit_files(member.value, edits);
    }
  }

  void edit_overrides(const Value& overrides, TextEdits& edits) const {
    for (const Value& item : overrides.items) {
      const Value* key = item.find("key");
      const Value* value = item.find("value");
      if (!key || !value) continue;
      if (value->kind != Value::Kind::text) {
        edit_files(*value, edits);
        continue;
      }
      const std::string edited = edited_override(key->text, value->text);
      if (edited != value->text) edits.replace(value->span, Jobs::toml_string(edited));
    }
  }

  // The text of an override is TOML, or a text itself.
  std::string edited_override(const std::string& key, const std::string& text) const {
    const auto path = Jobs::split_key_path(key);
    const std::optional<Value> value = override_value(text);
    if (path && (path->back().name == "site" || path->back().name == "file")) {
      const bool quoted = value && value->kind == Value::Kind::text;
      return copy_of(quoted ? value->text : text).value_or(text);
    }
    if (!value) return text;
    TextEdits edits("v=" + text);
    edit_files(*value, edits);
    return edits.apply().substr(2);
  }

  void add_title(const Value& root, TextEdits& edits) const {
    if (root.find("title")) return;
    const auto site = std::find_if(root.members.begin(), root.members.end(),
                                   [](const Jobs::Member& member) { return member.key == "site"; });
    const std::uint32_t line = site == root.members.end() ? 1 : site->key_span.line;
    edits.insert_line(line, "title = " + Jobs::toml_string(plain_text(run_.job.title)));
  }

  const Jobs::Run& run_;
};

}  // namespace

std::string job_copy(const Jobs::Run& run) {
  std::string text = Jobs::with_overrides(run.job.source->text, run.job.options);
  if (text.starts_with(Base::byte_order_mark)) text.erase(0, Base::byte_order_mark.size());
  return PathEditor(run).job(text);
}

}  // namespace Outputs
