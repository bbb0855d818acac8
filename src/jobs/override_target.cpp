#include "jobs/override_target.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "jobs/job_tables.h"
#include "jobs/nearest.h"

namespace Jobs {
namespace {

using Kind = Value::Kind;

constexpr std::size_t most_candidates = 8;

std::string suggestion(const std::string& name, const std::vector<std::string>& known) {
  const auto found = nearest(name, known);
  return found ? "did you mean `" + *found + "`?" : "";
}

std::string list(const std::vector<std::string>& paths) {
  std::string text = "one of ";
  for (std::size_t i = 0; i < std::min(paths.size(), most_candidates); ++i) {
    text += (i > 0 ? ", " : "") + paths[i];
  }
  return text + (paths.size() > most_candidates ? ", ..." : "");
}

class Walk {
 public:
  Walk(const KeyPath& path, Member member) : path_(path), member_(std::move(member)) {}

  void from_job(Value& job) {
    const std::string& first = path_[0].name;
    if (first == "title" || first == "site") {
      from_table(job);
    } else if (first == "sea") {
      from_sea(job);
    } else if (first == "point") {
      from_table(*chosen(job, "[[point]]", {}));
    } else if (std::find(plain_tables.begin(), plain_tables.end(), first) != plain_tables.end()) {
      need_more();
      from_table(job);
    } else {
      std::vector<std::string> known = plain_tables;
      known.insert(known.end(), {"title", "site", "sea", "point"});
      fail("`" + first + "` is no part of a job", suggestion(first, known));
    }
  }

 private:
  inline static const std::vector<std::string> plain_tables = {"tune", "run", "drive", "field",
                                                               "outputs"};

  [[noreturn]] void fail(const std::string& fault, const std::string& label) const {
    throw NoTarget{at_, fault, label};
  }

  const std::string& name() const { return path_[at_].name; }
  std::size_t left() const { return path_.size() - at_; }

  // The path up to and with the current segment.
  std::string so_far() const {
    std::string text = path_[0].name;
    for (std::size_t i = 1; i <= at_; ++i) {
      text += "." + path_[i].name;
    }
    return text;
  }

  void need_more() const {
    if (left() < 2) {
      fail("`" + so_far() + "` is a table", "name one of its keys: " + so_far() + ".key");
    }
  }

  // From a table to the member that the rest of the path means. What is missing is added.
  void from_table(Value& start) {
    Value* table = &start;
    for (; left() > 1; ++at_) {
      Value* next = find_in(*table, name());
      if (next == nullptr) {
        Value added;
        added.span = member_.key_span;
        table->members.push_back({name(), member_.key_span, added});
        next = &table->members.back().value;
      }
      if (next->kind != Kind::table) {
        fail("`" + so_far() + "` is not a table", "");
      }
      table = next;
    }
    place_in(*table);
  }

  void place_in(Value& table) {
    if (Value* value = find_in(table, name())) {
      *value = std::move(member_.value);
      return;
    }
    member_.key = name();
    table.members.push_back(std::move(member_));
  }

  // One of an array of tables: by a number, by a name, or the only one. Stands at the array's own
  // segment, and afterwards at the first one of the rest. `inside` are the members of an element
  // that have members themselves.
  Value* chosen(Value& parent, const std::string& what, const std::vector<std::string>& inside) {
    need_more();
    const std::vector<Value*> tables = tables_of(parent, name());
    if (tables.empty()) {
      fail("the job has no " + what, "");
    }
    const std::string array = so_far();
    ++at_;
    if (const std::size_t number = number_of(name())) {
      if (number > tables.size()) {
        fail("there is no " + what + " number " + name(),
             "the job has " + std::to_string(tables.size()));
      }
      step_into();
      return tables[number - 1];
    }
    const bool is_inside = std::find(inside.begin(), inside.end(), name()) != inside.end();
    if (Value* named = is_inside ? nullptr : with_name(tables, name())) {
      step_into();
      return named;
    }
    if (left() > 1 && !is_inside) {
      std::vector<std::string> known = names_of(tables);
      known.insert(known.end(), inside.begin(), inside.end());
      fail("there is no " + what + " `" + name() + "`", suggestion(name(), known));
    }
    if (tables.size() > 1) {
      std::vector<std::string> paths;
      for (std::size_t i = 0; i < tables.size(); ++i) {
        paths.push_back(array + "." + std::to_string(i + 1) + rest());
      }
      fail("the job has more than one " + what, list(paths));
    }
    return tables[0];
  }

  void step_into() {
    need_more();
    ++at_;
  }

  std::string rest() const {
    std::string text;
    for (std::size_t i = at_; i < path_.size(); ++i) {
      text += "." + path_[i].name;
    }
    return text;
  }

  void from_sea(Value& job) {
    Value& sea = *chosen(job, "[[sea]]", {"holds", "wave", "change"});
    const std::string& key = name();
    if (key == "name" || key == "holds") {
      from_table(sea);
    } else if (key == "wave" || key == "change") {
      from_table(*chosen(sea, "[[sea." + key + "]]", {}));
    } else if (left() > 1) {
      fail("`" + key + "` is no part of a sea",
           suggestion(key, {"name", "holds", "wave", "change"}));
    } else {
      short_form(sea);
    }
  }

  // sea.hs: the only wave or change that says `hs`, or else the only wave.
  void short_form(Value& sea) {
    const std::string head = at_ > 1 ? path_[0].name + "." + path_[1].name : path_[0].name;
    std::vector<Value*> owners;
    std::vector<std::string> owner_paths;
    std::vector<std::string> wave_paths;
    const std::vector<Value*> waves = tables_of(sea, "wave");
    for (const std::string part : {"wave", "change"}) {
      const std::vector<Value*> tables = tables_of(sea, part);
      for (std::size_t i = 0; i < tables.size(); ++i) {
        const std::string path = fmt::format("{}.{}.{}.{}", head, part, i + 1, path_.back().name);
        if (tables[i]->find(name()) != nullptr) {
          owners.push_back(tables[i]);
          owner_paths.push_back(path);
        }
        if (part == "wave") {
          wave_paths.push_back(path);
        }
      }
    }
    if (owners.size() > 1) {
      fail("`" + name() + "` is in more than one part of the sea", list(owner_paths));
    }
    if (owners.empty() && waves.size() != 1) {
      fail("no wave or change of the sea says `" + name() + "`",
           waves.empty() ? "" : list(wave_paths));
    }
    place_in(owners.empty() ? *waves[0] : *owners[0]);
  }

  const KeyPath& path_;
  Member member_;
  std::size_t at_ = 0;
};

}  // namespace

void put(Value& job, const KeyPath& path, Member member) {
  Walk(path, std::move(member)).from_job(job);
}

}  // namespace Jobs
