#include "jobs/job_form.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "jobs/nearest.h"
#include "jobs/text_places.h"

namespace Jobs {
namespace {

using Kind = Value::Kind;

struct Home {
  std::string_view key;
  std::string_view table;
};

// Keys that are easily written into the wrong table. Those of waves, changes and the run are not
// here, because the library declares them.
constexpr std::array<Home, 12> homes{{
    {"kind", "[[sea.wave]]"},
    {"wave", "[[sea]], as [[sea.wave]]"},
    {"change", "[[sea]], as [[sea.change]]"},
    {"holds", "[[sea]]"},
    {"rate", "[drive]"},
    {"ramp", "[drive]"},
    {"stop_at_limit", "[drive]"},
    {"delta_angle", "[[point]]"},
    {"csv", "[outputs]"},
    {"netcdf", "[outputs]"},
    {"report", "[outputs]"},
    {"repeat", "[run]"},
}};

// As it would stand in the file: `gama`, [runn] or [[seas]].
std::string written(const std::string& key, const Value& value) {
  if (value.kind == Kind::array && !value.items.empty() && value.items[0].kind == Kind::table) {
    return "[[" + key + "]]";
  }
  return value.kind == Kind::table ? "[" + key + "]" : "`" + key + "`";
}

}  // namespace

std::string type_of(const Value& value) {
  switch (value.kind) {
    case Kind::text:
      return "a text";
    case Kind::number:
      return "a number";
    case Kind::boolean:
      return "true or false";
    case Kind::array:
      return "a list";
    case Kind::table:
      return "a table";
    case Kind::other:
      break;
  }
  return "a date or time";
}

bool is_empty_list(const Value& value) { return value.kind == Kind::array && value.items.empty(); }

bool is_several_lines(const Value& value) {
  const Span& span = value.span;
  if (value.kind != Kind::text || span.source == nullptr || span.line == 0) return false;
  const std::string_view line = TextPlaces(span.source).line(span.line);
  if (span.column == 0 || span.column > line.size()) return false;
  const std::string_view text = line.substr(span.column - 1, span.length);
  for (const std::string_view quotes : {"\"\"\"", "'''"}) {
    if (!text.starts_with(quotes)) continue;
    return text.size() < 2 * quotes.size() || !text.ends_with(quotes);
  }
  return false;
}

Part part_of(const Value& table, const std::string& title) {
  Part part;
  part.title = title;
  part.span = table.span;
  part.parameters.span = table.span;
  for (const Member& member : table.members) {
    if (member.key == "kind") {
      part.kind_span = member.value.span;
    } else if (member.key != "name") {
      part.parameters.members.push_back(member);
    }
  }
  return part;
}

void JobForm::fault(const std::string& fault, const Span& span, const std::string& label) {
  faults_.push_back({fault, span, label});
}

std::string JobForm::text(const Member& member) {
  const Value& value = member.value;
  if (value.kind != Kind::text) {
    fault("`" + member.key + "` must be a text", value.span, "this is " + type_of(value));
    return "";
  }
  const std::size_t first = value.text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) {
    fault("`" + member.key + "` must not be empty", value.span);
    return "";
  }
  return value.text.substr(first, value.text.find_last_not_of(" \t\r\n") + 1 - first);
}

bool JobForm::boolean(const Member& member, bool otherwise) {
  const Value& value = member.value;
  if (value.kind == Kind::boolean) {
    return value.boolean;
  }
  if (value.kind == Kind::text && (value.text == "True" || value.text == "False")) {
    return value.text == "True";
  }
  fault("`" + member.key + "` must be true or false", value.span,
        value.kind == Kind::text ? "" : "this is " + type_of(value));
  return otherwise;
}

const Value* JobForm::table(const Member& member, const std::string& what) {
  const Value& value = member.value;
  if (value.kind == Kind::table) {
    return &value;
  }
  if (value.kind == Kind::array && !value.items.empty() && value.items[0].kind == Kind::table) {
    fault("[" + what + "] must be " + what, value.span, "there is only one");
    return &value.items[0];
  }
  fault(what + " must be a table", value.span, "this is " + type_of(value));
  return nullptr;
}

std::vector<const Value*> JobForm::tables(const Member& member, const std::string& what) {
  const Value& value = member.value;
  std::vector<const Value*> result;
  if (value.kind == Kind::table) {
    fault(what.substr(1, what.size() - 2) + " must be " + what, value.span,
          "there can be more than one");
    result.push_back(&value);
  } else if (value.kind == Kind::array) {
    for (const Value& item : value.items) {
      if (item.kind == Kind::table) {
        result.push_back(&item);
      } else {
        fault(what + " must be a table", item.span, "this is " + type_of(item));
      }
    }
  } else {
    fault(what + " must be a table", value.span, "this is " + type_of(value));
  }
  return result;
}

void JobForm::unknown(const Member& member, const std::string& where,
                      const std::vector<std::string>& known) {
  const std::string name = written(member.key, member.value);
  const auto home = std::find_if(homes.begin(), homes.end(), [&member](const Home& candidate) {
    return candidate.key == member.key;
  });
  std::string label;
  if (home != homes.end()) {
    label = "`" + member.key + "` belongs in " + std::string(home->table);
  } else if (const auto found = nearest(member.key, known)) {
    label = "did you mean `" + *found + "`?";
  } else {
    for (const std::string& key : known) {
      label += (label.empty() ? "known keys: " : ", ") + key;
    }
  }
  fault("unknown key " + name + " " + where, member.key_span, label);
}

}  // namespace Jobs
