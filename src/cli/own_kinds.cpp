#include "cli/own_kinds.h"

#include <utility>

#include "base/vector.h"
#include "cli/sea_example.h"
#include "sea/single.h"
#include "sea/time_exp.h"
#include "sea/time_series.h"

namespace Cli {

namespace {

PageParameter key(const std::string& name, const std::string& meaning,
                  const std::string& fallback = "") {
  PageParameter parameter;
  parameter.name = name;
  parameter.meaning = meaning;
  parameter.required = fallback.empty();
  parameter.fallback = fallback;
  return parameter;
}

// A component with the keys that the job has for it and the parameters that the library declares.
SeaPage wave(const std::string& name, const std::string& title, const Base::Params& declared,
             std::vector<PageParameter> keys, const ExampleLines& example) {
  SeaPage page;
  page.name = name;
  page.title = title;
  page.is_own = true;
  page.parameters = std::move(keys);
  for (PageParameter& parameter : declared_parameters(name, declared)) {
    page.parameters.push_back(std::move(parameter));
  }
  page.example = example_block(page, example);
  return page;
}

SeaPage change(const std::string& name, const std::string& title, const std::string& formula,
               const ExampleLines& example) {
  SeaPage page;
  page.name = name;
  page.title = title;
  page.is_change = true;
  page.is_own = true;
  if (!formula.empty()) page.parameters = {key("formula", formula)};
  for (PageParameter& parameter : declared_parameters(name, declared_by_modifier(name))) {
    page.parameters.push_back(std::move(parameter));
  }
  page.example = example_block(page, example);
  return page;
}

template <typename Component>
Base::Params queried(Component&& component) {
  Base::Params declared;
  component.query(declared);
  return declared;
}

}  // namespace

std::vector<SeaPage> own_waves() {
  const Base::Vector no_samples;
  return {
      wave("single", "One sine wave", queried(Synthesis::Single()), {},
           {{"f", R"("0.62 Hz")"}, {"a", R"("40 mm")"}, {"angle", R"("15 deg")"}}),
      wave("spectrum", "A density, as formulas of frequency", {},
           {key("formula",
                "limits and densities with # between them (kelpbox formulas), and the parameters "
                "that they name")},
           {{"formula", R"("0.4@Hz#height[m]^2/16*exp(-(($[Hz]-0.6)/0.1)^2)@m2s#1.2@Hz")"},
            {"height", R"("150 mm")"}}),
      wave("time", "The elevation of the surface, as formulas of time",
           queried(Synthesis::TimeExp("", "0@s#0@m#1@s")),
           {key("formula",
                "limits and elevations with # between them (kelpbox formulas), and the parameters "
                "that they name")},
           {{"formula", R"("0@s#height[m]/2*cos(2*pi*$[s]/1.6)@m#32@s#0@m#64@s")"},
            {"height", R"("100 mm")"},
            {"rate", R"("20 Hz")"}}),
      wave("record", "The elevation of the surface, as measured",
           queried(Synthesis::TimeSeries(no_samples)),
           {key("file", "a CSV file, relative to the job"),
            key("column", "its name, or its number from 1", "the only one"),
            key("units", "of the column", "those of its head")},
           {{"file", R"("measured.csv")"}, {"column", R"("eta")"}}),
      wave("fronts", "A list of sine waves", {},
           {key("file",
                "a CSV file, relative to the job, with the columns f and a, and angle and phase "
                "where they are not 0; units in its heads, such as a [mm]")},
           {{"file", R"("fronts.csv")"}}),
      wave("table", "A density, as a table", {},
           {key("file",
                "a CSV file, relative to the job, with the columns f and S; units in its heads, "
                "such as S [m2/Hz]; straight lines between them")},
           {{"file", R"("spectrum.csv")"}}),
  };
}

std::vector<SeaPage> own_changes() {
  return {
      change("GainAdjust", "Multiplies amplitudes", "the factor, a formula of frequency",
             {{"formula", R"("1#0.8@Hz#2")"}}),
      change("AngleSweep", "Splits each wave into a fan of directions",
             "the weight, a formula of angle",
             {{"formula", "\"cos($[rad])\""}, {"delta_angle", R"("10 deg")"}}),
      change("AngleSpread", "Draws directions at random", "the power, a formula of frequency",
             {{"function", R"("Cos2S")"},
              {"formula", R"("10")"},
              {"angle", R"("15 deg")"},
              {"seed", "7"}}),
      change("AngleChange", "Turns directions", "the angle, a formula of frequency",
             {{"formula", R"("10@deg")"}}),
      change("PhaseRandom", "Draws phases at random", "", {{"seed", "7"}}),
      change("PhaseWNoise", "Draws phases and amplitudes as those of noise", "",
             {{"rate", R"("10 Hz")"}, {"seed", "7"}}),
      change("PhaseChange", "Shifts phases", "the angle, a formula of frequency",
             {{"formula", R"("90@deg")"}}),
  };
}

}  // namespace Cli
