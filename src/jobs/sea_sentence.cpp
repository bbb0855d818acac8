#include "jobs/sea_sentence.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <vector>

#include "base/utf8.h"
#include "jobs/input_files.h"
#include "jobs/ready_sea.h"

namespace Jobs {
namespace {

constexpr std::size_t most_waves = 4;
constexpr std::size_t most_values = 8;       // of one wave or change
constexpr std::size_t most_characters = 60;  // of one value

// Long formulas are cut between two characters.
std::string cut(const std::string& text) {
  std::size_t at = 0;
  for (std::size_t n = 0; n < most_characters && at < text.size(); ++n) {
    at += std::max<std::size_t>(Base::utf8_length(text, at), 1);
  }
  return at < text.size() ? text.substr(0, at) + "..." : text;
}

std::string text_of(const Value& value) {
  switch (value.kind) {
    case Value::Kind::text:
      return cut(value.text);
    case Value::Kind::number:
      return fmt::format("{}", value.number);
    case Value::Kind::boolean:
      return value.boolean ? "true" : "false";
    default:
      return "...";
  }
}

std::string text_of(const Run& run, const Member& member) {
  if (member.key != "file" || member.value.kind != Value::Kind::text) return text_of(member.value);
  const auto input = find_input(run.inputs, opened_path(run.job, member.value.text));
  if (!input) return text_of(member.value);
  return cut(std::filesystem::path(run.inputs[*input].name).filename().string());
}

// Values that say which of many equal seas this is.
bool is_seed(const std::string& key) { return key == "seed" || key == "ran_gen"; }

// Without it a sea is not described, also where the job leaves the default.
bool is_main(const ReadyParameter& parameter) { return parameter.name == "gamma"; }

// `ready` has the parameters in the order in which they describe the sea; the others follow in the
// order of the job.
std::vector<std::string> values_of(const Run& run, const Part& part,
                                   const std::vector<ReadyParameter>& ready) {
  std::vector<std::string> values;
  for (const ReadyParameter& parameter : ready) {
    if (const Value* value = part.parameters.find(parameter.name)) {
      values.push_back(parameter.name + " " + text_of(*value));
    } else if (parameter.fallback && is_main(parameter)) {
      values.push_back(parameter.name + " " + *parameter.fallback);
    }
  }
  for (const Member& member : part.parameters.members) {
    const bool known = std::any_of(ready.begin(), ready.end(), [&](const ReadyParameter& one) {
      return one.name == member.key;
    });
    if (known || is_seed(member.key)) continue;
    values.push_back(member.key + " " + text_of(run, member));
  }
  return values;
}

std::string phrase(const Run& run, const std::string& name, const Part& part,
                   const std::vector<ReadyParameter>& ready) {
  std::string text = name;
  const std::vector<std::string> values = values_of(run, part, ready);
  for (std::size_t i = 0; i < values.size() && i < most_values; ++i) text += ", " + values[i];
  if (values.size() > most_values) {
    text += fmt::format(", and {} more values", values.size() - most_values);
  }
  return text;
}

// "JONSWAP" of "JONSWAP, a growing wind sea".
std::string wave_phrase(const Run& run, const Part& wave) {
  const ReadySea* ready = find_ready_sea(wave.kind);
  if (ready == nullptr) return phrase(run, wave.kind, wave, {});
  return phrase(run, ready->title.substr(0, ready->title.find(',')), wave, ready->parameters);
}

std::string change_phrase(const Run& run, const Part& change) {
  const ReadyChange* ready = find_ready_change(change.kind);
  if (ready == nullptr) return phrase(run, change.kind, change, {});
  std::string name = ready->name;
  std::replace(name.begin(), name.end(), '_', ' ');
  return phrase(run, name, change, ready->parameters);
}

}  // namespace

std::string sea_sentence(const Run& run, const Sea& sea) {
  std::string text;
  const auto add = [&](const std::string& part) { text += (text.empty() ? "" : "; ") + part; };
  for (std::size_t i = 0; i < sea.waves.size() && i < most_waves; ++i) {
    add(wave_phrase(run, sea.waves[i]));
  }
  if (sea.waves.size() > most_waves) {
    const std::size_t more = sea.waves.size() - most_waves;
    add(fmt::format("and {} more wave{}", more, more == 1 ? "" : "s"));
  }
  // A sea has at most one change of amplitudes, one of directions and one of phases.
  for (const Part& change : sea.changes) add(change_phrase(run, change));
  return text;
}

}  // namespace Jobs
