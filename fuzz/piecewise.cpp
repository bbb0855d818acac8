// Formulas of components and modifiers: every text is refused with a message, or gives a run that
// builds to the same bits again. Its fronts are finite if its formulas cannot give anything else
// (bounded_formula.h), and its signals are finite where its fronts are.
//
// The first line gives the values of the parameters in the order of their names, a letter each.
// Each further line begins with a letter for the kind of the item, and the rest is its text.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/enumerations.h"
#include "facade/experiment.h"
#include "fuzz/bounded_formula.h"
#include "fuzz/property.h"
#include "fuzz/sections.h"
#include "support/temp_dir.h"
#include "support/test_site.h"

namespace {

using Kelpbox::Experiment;

// Repeats in 16 s: 31 harmonics from 0.125 to 2 Hz. A flume is 1 m deep.
constexpr double repeat = 16.0;

Experiment& flume() {
  static const std::unique_ptr<Experiment> site = [] {
    const Testing::TempDir folder;
    auto made = std::make_unique<Experiment>();
    made->initialise(folder.write("flume.site", Testing::script({})));
    return made;
  }();
  return *site;
}

double value_of(char letter, const std::string& name) {
  constexpr double values[] = {0.0,   1.0,  2.0, 0.5,   0.1,   3.3,    10.0,   -1.0,
                               -0.25, 45.0, 1e3, 1e-12, 1e300, -1e300, 5e-324, 1e-3};
  const double value = values[static_cast<unsigned char>(letter) % std::size(values)];
  // More samples and directions than these only take time.
  if (name == "rate" && std::abs(value) > 100.0) return 100.0;
  if (name == "delta_angle" && std::abs(value) < 0.01) return 0.01;
  return value;
}

// Fills in what the item declares.
class Values {
 public:
  explicit Values(std::string_view letters) : letters_(letters) {}

  void set(Experiment& site, std::uint32_t id) {
    Base::Params params;
    site.query(id, params);
    std::vector<std::string> names;
    for (const auto& entry : params.entries()) names.push_back(entry.first);
    for (const std::string& name : names) {
      Base::Quantity& quantity = params.at(name);
      const char letter = next();
      if (letter == '-') {  // not set
        are_sane_ = false;
        continue;
      }
      quantity.value = value_of(letter, name);
      are_sane_ = are_sane_ && std::abs(quantity.value) <= 1e3;
      quantity.state = Base::ValueState();
      if (quantity.is_enum()) {
        quantity = Base::Quantity(Base::make_enum(static_cast<std::int32_t>(quantity.units.row),
                                                  static_cast<unsigned char>(letter) % 2));
      }
    }
    site.set(id, params);
  }
  // Whether all values so far are finite, and far from where their powers are not.
  bool are_sane() const { return are_sane_; }

 private:
  char next() {
    if (letters_.empty()) return 'a';
    const char letter = letters_[at_++ % letters_.size()];
    return letter;
  }

  std::string_view letters_;
  std::size_t at_ = 0;
  bool are_sane_ = true;
};

std::uint32_t add(Experiment& site, std::uint32_t sea, const std::string& line) {
  constexpr const char* modifiers[] = {"GainAdjust",  "AngleSweep",  "AngleSpread", "AngleChange",
                                       "PhaseRandom", "PhaseWNoise", "PhaseChange"};
  const std::string text = line.substr(1);
  if (line[0] == 's') return site.add_spectrum(sea, "spectrum", text);
  if (line[0] == 't') return site.add_timeexp(sea, "elevation", text);
  // '0' is the first one.
  const std::size_t kind = (static_cast<unsigned char>(line[0]) + 1) % std::size(modifiers);
  return site.add_modifier(sea, modifiers[kind], text);
}

bool all_finite(const std::vector<double>& values) {
  for (const double value : values) {
    if (!std::isfinite(value)) return false;
  }
  return true;
}

bool are_below(const std::vector<Synthesis::Front>& fronts, double most) {
  for (const Synthesis::Front& front : fronts) {
    const bool finite = std::isfinite(front.angle) && std::isfinite(front.phase);
    if (!finite || !(std::abs(front.amp) < most)) return false;
  }
  return true;
}

void require_same(const std::vector<Synthesis::Front>& first,
                  const std::vector<Synthesis::Front>& second) {
  Fuzz::require(first.size() == second.size(), "a second build gives as many fronts");
  for (std::size_t i = 0; i < first.size(); ++i) {
    Fuzz::require(Fuzz::same_bits(first[i].freq, second[i].freq) &&
                      Fuzz::same_bits(first[i].amp, second[i].amp) &&
                      Fuzz::same_bits(first[i].angle, second[i].angle) &&
                      Fuzz::same_bits(first[i].phase, second[i].phase),
                  "a second build gives the same bits");
  }
}

void check_signals(Experiment& site, std::uint32_t run) {
  Base::Params params = Testing::rate_params(10.0);
  // A signal far above the limit of the machine may be refused.
  if (!Fuzz::refusal([&] { site.paddle_motion_build(run, params); })) {
    Fuzz::require(all_finite(site.paddle_motion_data(run, 0, 0)), "the drive signal is finite");
  }
  Base::Params point = Testing::rate_params(10.0);
  point.insert("x", 3.0, "m");
  point.insert("y", 0.0, "m");
  point.insert("delta_angle", 45.0, "deg");
  if (!Fuzz::refusal([&] { site.twod_build(run, point); })) {
    Fuzz::require(all_finite(site.twod_data(run, 0)), "the wave at a point is finite");
  }
}

void build(Experiment& site, std::uint32_t run, bool must_be_finite) {
  if (Fuzz::refusal([&] { site.run_build(run); })) return;
  const std::vector<Synthesis::Front> fronts = site.fronts(run);
  for (const Synthesis::Front& front : fronts) {
    const double harmonic = front.freq * repeat;
    Fuzz::require(
        harmonic > 1.5 && harmonic < 32.5 && std::abs(harmonic - std::round(harmonic)) < 1e-9,
        "a front lies on a harmonic of the run");
    Fuzz::require(!(std::abs(front.angle) > 3.1415926535897936),
                  "a direction lies within a half turn");
  }
  site.run_build(run);
  require_same(fronts, site.fronts(run));
  if (must_be_finite) {
    Fuzz::require(are_below(fronts, std::numeric_limits<double>::infinity()),
                  "bounded formulas give finite fronts");
  }
  // Other formulas may give NaN or huge numbers, and so may the signals then be.
  if (are_below(fronts, 1e100)) check_signals(site, run);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Fuzz::Quiet quiet;
  Experiment& site = flume();
  const std::string input(reinterpret_cast<const char*>(data), size);
  const std::vector<std::string> lines = Fuzz::lines(input);
  if (lines.empty() || lines.size() > 8) return 0;

  const std::uint32_t run = site.add_definition("run");
  Base::Params definition = Testing::run_params(repeat);
  definition.insert("seed", 1.0, "");
  definition.insert("ran_gen", "Default", "RanGen");
  site.set(run, definition);
  const std::uint32_t sea = site.add_specification(run);
  Base::Params place = Testing::at(5.0, 0.0, 0.0);
  site.set(sea, place);

  Values values(lines.front());
  const bool has_waves = std::any_of(lines.begin() + 1, lines.end(), [](const std::string& line) {
    return line[0] == 's' || line[0] == 't';  // '\0' if it is empty
  });
  // Something for modifiers to change.
  if (!has_waves) values.set(site, add(site, sea, "s0.2@Hz#0.002@m2s#1.8@Hz"));
  bool complete = true;
  bool bounded = true;
  for (std::size_t i = 1; i < lines.size(); ++i) {
    if (lines[i].empty()) continue;
    const auto refused = Fuzz::refusal([&] { values.set(site, add(site, sea, lines[i])); });
    complete = complete && !refused;
    const std::string text = lines[i].substr(1);
    bounded = bounded && (lines[i][0] == 's' ? Fuzz::is_bounded_density(text)
                                             : Fuzz::is_bounded_formula(text));
  }
  // A run with an item that was refused is no promise, but must not fail in another way.
  if (complete || input.front() == '!') build(site, run, bounded && values.are_sane());
  site.clear();
  return 0;
}
