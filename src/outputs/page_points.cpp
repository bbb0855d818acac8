#include "outputs/page_points.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <vector>

#include "outputs/elevation_reader.h"
#include "outputs/harmonics.h"
#include "outputs/packed.h"

namespace Outputs {
namespace {

using Json = nlohmann::ordered_json;

// Of all points together.
constexpr std::size_t most_unthinned = 100'000;
constexpr std::size_t most_samples = 500'000;
constexpr std::size_t most_bands = 500;

// Harmonics per band: odd, so that a band has a harmonic in its middle.
std::size_t band_width(std::size_t harmonics) {
  const std::size_t width = (harmonics + most_bands - 1) / most_bands;
  return width % 2 == 1 ? width : width + 1;
}

// The variance density in bands whose middles are 0, 1, 2 ... times their width.
std::vector<double> densities(const std::vector<double>& samples, std::size_t width,
                              const PageFacts& facts) {
  const std::vector<double> amplitude =
      amplitudes(samples, last_shown(facts.highest_harmonic) + width);
  // The mean is no wave. The highest harmonic that samples can hold may be a sine that they miss,
  // and counts like the others.
  std::vector<double> density((amplitude.size() - 1) / width + 1);
  for (std::size_t h = 1; h < amplitude.size(); ++h) {
    const std::size_t band = (h + width / 2) / width;
    if (band >= density.size()) break;
    density[band] += 0.5 * amplitude[h] * amplitude[h];
  }
  for (std::size_t band = 0; band < density.size(); ++band) {
    // The lowest band has one half only.
    const double harmonics = (band == 0 ? 0.5 : 1.0) * static_cast<double>(width);
    density[band] *= facts.repeat / harmonics;
  }
  return density;
}

Json spectrum_of(const std::vector<double>& samples, const PageFacts& facts) {
  const std::size_t width = band_width(last_shown(facts.highest_harmonic));
  std::vector<double> density = densities(samples, width, facts);
  const double step = step_for(*std::max_element(density.begin(), density.end()));
  const auto content = std::find_if(density.begin(), density.end() - 1,
                                    [step](double value) { return count_of(value, step) != 0; });
  const auto first = static_cast<std::size_t>(content - density.begin());
  density.erase(density.begin(), content);
  const std::size_t bands = density.size();
  return {{"df", static_cast<double>(width) / facts.repeat},
          {"first", first},
          {"density", json_of(pack_numbers(density, {bands}))}};
}

Json series_of(const std::vector<double>& samples, double rate, std::size_t every,
               const PageFacts& facts) {
  std::vector<double> kept;
  for (std::size_t i = 0; i < samples.size(); i += every) kept.push_back(samples[i]);
  Json series;
  series["rate"] = rate / static_cast<double>(every);
  series["every"] = every;
  const std::size_t count = kept.size();
  series["eta"] = json_of(pack_numbers(kept, {count}));
  const bool finite = std::all_of(samples.begin(), samples.end(),
                                  [](double value) { return std::isfinite(value); });
  if (finite) series["spectrum"] = spectrum_of(samples, facts);
  return series;
}

}  // namespace

Json page_points(const PageSource& source, const Json& summary, const PageFacts& facts,
                 const Step& step) {
  const Json& points = summary.at("points");
  std::size_t all = 0;
  std::size_t all_thinned = 0;
  const auto thinning_of = [&](const Json& point) {
    return thinning(point.at("rate").get<double>(), facts.highest_frequency());
  };
  for (const Json& point : points) {
    const auto samples = point.at("samples").get<std::size_t>();
    all += samples;
    all_thinned += thinned(samples, thinning_of(point));
  }
  const std::size_t more = std::max<std::size_t>(1, thinned(all_thinned, most_samples));

  Json list = Json::array();
  for (std::size_t i = 0; i < points.size(); ++i) {
    step.done(i, points.size());
    const auto samples = points[i].at("samples").get<std::size_t>();
    const std::size_t every = all <= most_unthinned ? 1 : thinning_of(points[i]) * more;
    const auto elevation = read_elevation(source, i, points.size(), samples);
    if (!elevation || elevation->empty()) return Json::array();
    list.push_back(series_of(*elevation, points[i].at("rate").get<double>(), every, facts));
  }
  return list;
}

}  // namespace Outputs
