#include "outputs/page_drive.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "jobs/signal_stats.h"
#include "outputs/cannot_read.h"
#include "outputs/harmonics.h"
#include "outputs/kept_paddles.h"
#include "outputs/packed.h"
#include "outputs/signal_reader.h"

namespace Outputs {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t most_samples = 1'000'000;

struct BankMotion {
  std::vector<double> highest;
  std::vector<double> lowest;
  std::vector<double> velocity;

  void add(const std::vector<double>& signal, double rate) {
    const auto ends = std::minmax_element(signal.begin(), signal.end());
    lowest.push_back(*ends.first);
    highest.push_back(*ends.second);
    Jobs::SignalStats stats;
    stats.add(signal, rate);
    velocity.push_back(stats.velocity.value);
  }

  // The paddles with the greatest stroke and the greatest velocity.
  std::vector<std::size_t> worst() const {
    std::size_t stroke = 0;
    for (std::size_t i = 1; i < highest.size(); ++i) {
      if (std::max(highest[i], -lowest[i]) > std::max(highest[stroke], -lowest[stroke])) stroke = i;
    }
    const auto fastest = std::max_element(velocity.begin(), velocity.end()) - velocity.begin();
    return {stroke, static_cast<std::size_t>(fastest)};
  }
};

bool all_finite(const std::vector<double>& signal) {
  return std::all_of(signal.begin(), signal.end(),
                     [](double value) { return std::isfinite(value); });
}

// Rows of equal length without the columns at their beginning that are 0 in the packed form.
std::size_t first_with_content(const std::vector<std::vector<double>>& rows) {
  double largest = 0.0;
  for (const auto& row : rows)
    largest = std::max(largest, *std::max_element(row.begin(), row.end()));
  const double step = step_for(largest);
  for (std::size_t column = 0; column + 1 < rows.front().size(); ++column) {
    for (const auto& row : rows) {
      if (count_of(row[column], step) != 0) return column;
    }
  }
  return 0;
}

class Bank {
 public:
  Bank(std::size_t number, std::size_t paddles, double rate, SignalReader& reader)
      : number_(number), paddles_(paddles), rate_(rate), reader_(reader) {}

  Json json(std::size_t every, std::size_t count, const PageFacts& facts, const Step& step) {
    const bool all = count >= paddles_;
    for (std::size_t i = 0; i < paddles_; ++i) {
      step.done(i, paddles_);
      const std::vector<double>& signal = read(i);
      motion_.add(signal, rate_);
      if (all) keep(i, signal, every, facts);
    }
    if (!all) {
      for (const std::size_t i : kept_paddles(paddles_, count, motion_.worst())) {
        keep(i, read(i), every, facts);
      }
    }
    return packed(every, facts);
  }

 private:
  const std::vector<double>& read(std::size_t i) {
    const std::vector<double>& signal = reader_.paddle(i);
    if (!all_finite(signal)) {
      throw CannotRead{reader_.shown() + ": the signal of paddle " + std::to_string(i + 1) +
                       " of bank " + std::to_string(number_ + 1) + " is not finite"};
    }
    return signal;
  }

  void keep(std::size_t i, const std::vector<double>& signal, std::size_t every,
            const PageFacts& facts) {
    kept_.push_back(i);
    for (std::size_t s = 0; s < signal.size(); s += every) samples_.push_back(signal[s]);
    spectra_.push_back(amplitudes(signal, last_shown(facts.highest_harmonic)));
  }

  Json packed(std::size_t every, const PageFacts& facts) const {
    Json bank;
    bank["bank"] = number_;
    bank["rate"] = rate_ / static_cast<double>(every);
    bank["every"] = every;
    bank["paddles"] = kept_;
    bank["signals"] =
        json_of(pack_numbers(samples_, {kept_.size(), samples_.size() / kept_.size()}));
    bank["spectrum"] = spectrum(facts);
    bank["highest"] = motion_.highest;
    bank["lowest"] = motion_.lowest;
    bank["velocity"] = motion_.velocity;
    return bank;
  }

  Json spectrum(const PageFacts& facts) const {
    const std::size_t first = first_with_content(spectra_);
    std::vector<double> numbers;
    for (const auto& row : spectra_) {
      numbers.insert(numbers.end(), row.begin() + static_cast<std::ptrdiff_t>(first), row.end());
    }
    const std::size_t columns = spectra_.front().size() - first;
    return {{"df", 1.0 / facts.repeat},
            {"first", first},
            {"amplitude", json_of(pack_numbers(numbers, {spectra_.size(), columns}))}};
  }

  std::size_t number_;
  std::size_t paddles_;
  double rate_;
  SignalReader& reader_;
  BankMotion motion_;
  std::vector<std::size_t> kept_;
  std::vector<double> samples_;               // thinned, of the kept paddles
  std::vector<std::vector<double>> spectra_;  // of the kept paddles
};

}  // namespace

Json page_drive(const PageSource& source, const Json& summary, const PageFacts& facts,
                const Step& step) {
  Json banks = Json::array();
  const auto drive = summary.find("drive");
  if (drive == summary.end()) return banks;
  const auto rate = drive->at("rate").get<double>();
  const auto samples = drive->at("samples").get<std::size_t>();
  std::vector<std::size_t> paddles;
  for (const Json& bank : drive->at("banks")) paddles.push_back(bank.at("paddles"));
  if (samples == 0) return banks;
  const DriveBudget budget =
      drive_budget(paddles, samples, thinning(rate, facts.highest_frequency()), most_samples);
  for (std::size_t i = 0; i < paddles.size(); ++i) {
    if (paddles[i] == 0) continue;
    const auto reader = open_signals(source, i, paddles[i], samples);
    if (!reader) continue;
    banks.push_back(
        Bank(i, paddles[i], rate, *reader).json(budget.every, budget.paddles[i], facts, step));
  }
  return banks;
}

}  // namespace Outputs
