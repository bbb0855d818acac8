#include "jobs/add_wave.h"

#include <fmt/format.h>

#include "jobs/bind_parameters.h"
#include "jobs/fallbacks.h"
#include "jobs/ready_sea.h"
#include "jobs/request_limits.h"
#include "jobs/wave_steps.h"
#include "sea/single.h"

namespace Jobs {
namespace {

struct WaveKind {
  const char* name;
  void (*add)(Preparation&, const WavePlace&);
};

void add_single(Preparation& p, const WavePlace& wave) {
  Declared declared;
  Synthesis::Single().query(declared.params);
  declared.fallbacks = fallbacks_of("single");
  auto params = bind_parameters(wave.part, declared, p.faults);
  if (!params) return;
  const double frequency = params->read("f", Base::Category::frequency);
  if (require_above_0(p, wave.part, "f", frequency)) add_single_wave(p, wave, *params);
}

const WaveKind kinds[] = {
    {"single", add_single}, {"spectrum", add_spectrum}, {"time", add_time},
    {"record", add_record}, {"fronts", add_fronts},     {"table", add_table},
};

}  // namespace

std::vector<std::string> wave_kinds() {
  std::vector<std::string> names;
  for (const WaveKind& kind : kinds) names.emplace_back(kind.name);
  for (const ReadySea& sea : ready_seas()) names.push_back(sea.name);
  return names;
}

std::string wave_name(const std::string& sea, std::size_t index) {
  return fmt::format("{}, wave {}", sea, index + 1);
}

void add_wave(Preparation& p, const Part& part, BuiltSea& sea, std::size_t index) {
  if (part.kind.empty()) return;  // reported when the job was read
  const WavePlace wave{part, sea, wave_name(sea.name, index)};
  for (const WaveKind& kind : kinds) {
    if (part.kind == kind.name) return kind.add(p, wave);
  }
  if (const ReadySea* ready = find_ready_sea(part.kind)) return add_ready_sea(p, wave, *ready);
  p.faults.push_back({fmt::format("unknown kind of wave `{}`", part.kind), part.kind_span,
                      advice(part.kind, wave_kinds())});
}

}  // namespace Jobs
