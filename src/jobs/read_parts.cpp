#include "jobs/read_parts.h"

#include <fmt/format.h>

#include <set>
#include <string>
#include <utility>

namespace Jobs {
namespace {

// The names of the seas, or of the points.
class Names {
 public:
  Names(std::string what, JobForm& form) : what_(std::move(what)), form_(form) {}

  // The name of the next one, "sea 2" unless it says another. Faults for one that cannot be used.
  std::string next(const Value& table) {
    ++count_;
    std::string name = what_ + " " + std::to_string(count_);
    Span span = table.span;
    for (const Member& member : table.members) {
      if (member.key == "name") {
        span = member.value.span;
        const std::string given = form_.text(member);
        name = given.empty() ? name : given;
      }
    }
    if (name.find_first_not_of("0123456789") == std::string::npos) {
      form_.fault("`name` must not be a number", span,
                  "in a key, " + what_ + "." + name + " is the one with that number");
    } else if (!names_.insert(name).second) {
      form_.fault("there is another " + what_ + " with the name `" + name + "`", span);
    }
    return name;
  }

 private:
  std::string what_;
  JobForm& form_;
  int count_ = 0;
  std::set<std::string> names_;
};

std::string with_article(const std::string& kind) {
  const bool vowel = std::string("aeiouAEIOU").find(kind[0]) != std::string::npos;
  return (vowel ? "an `" : "a `") + kind + "`";
}

// `what` is "wave" or "change"; `kinds` completes the fault of a missing kind.
std::vector<Part> read_kinds(const Member& member, const std::string& what,
                             const std::string& kinds, JobForm& form) {
  const std::string table_name = "[[sea." + what + "]]";
  std::vector<Part> parts;
  for (const Value* table : form.tables(member, table_name)) {
    std::string kind;
    bool has_kind = false;
    for (const Member& inner : table->members) {
      if (inner.key == "kind") {
        has_kind = true;
        kind = form.text(inner);
      }
    }
    if (!has_kind) {
      form.fault(fmt::format("a {} needs a `kind`: {}", table_name, kinds), table->span);
    }
    Part part = part_of(*table, kind.empty() ? "a " + table_name : with_article(kind) + " " + what);
    part.kind = kind;
    parts.push_back(std::move(part));
  }
  return parts;
}

void read_member_of_sea(const Member& member, Sea& sea, JobForm& form) {
  if (member.key == "holds") {
    if (const Value* holds = form.table(member, "`holds`")) {
      sea.holds = part_of(*holds, sea.holds.title);
    }
  } else if (member.key == "wave") {
    sea.waves = read_kinds(member, "wave", "\"jonswap\" or another of `kelpbox seas`", form);
  } else if (member.key == "change") {
    sea.changes = read_kinds(member, "change", "\"cos2s\", \"AngleSpread\" or another", form);
  } else if (member.key != "name") {
    form.unknown(member, "in a [[sea]]", {"name", "holds", "wave", "change"});
  }
}

}  // namespace

std::vector<Sea> read_seas(const Member& member, JobForm& form) {
  std::vector<Sea> seas;
  Names names("sea", form);
  for (const Value* table : form.tables(member, "[[sea]]")) {
    Sea sea;
    sea.name = names.next(*table);
    Value nothing;
    nothing.span = table->span;
    sea.holds = part_of(nothing, "`holds` of `" + sea.name + "`");
    for (const Member& inner : table->members) {
      read_member_of_sea(inner, sea, form);
    }
    const Value* waves = table->find("wave");
    if (waves == nullptr || is_empty_list(*waves)) {
      form.fault("the sea `" + sea.name + "` has no [[sea.wave]]", table->span);
    }
    seas.push_back(std::move(sea));
  }
  return seas;
}

std::vector<PointPart> read_points(const Member& member, JobForm& form) {
  std::vector<PointPart> points;
  Names names("point", form);
  for (const Value* table : form.tables(member, "[[point]]")) {
    const std::string name = names.next(*table);
    points.push_back({name, part_of(*table, "the point `" + name + "`")});
  }
  return points;
}

}  // namespace Jobs
