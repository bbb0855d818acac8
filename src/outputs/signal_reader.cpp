#include "outputs/signal_reader.h"

#include <algorithm>

#include "outputs/cannot_read.h"
#include "outputs/csv_reader.h"
#include "outputs/netcdf_reader.h"

namespace Outputs {
namespace {

class NetcdfSignals : public SignalReader {
 public:
  NetcdfSignals(const PageSource& source, std::size_t bank, std::size_t paddles,
                std::size_t samples)
      : shown_(source.shown("drive.nc")),
        file_(source.path("drive.nc"), shown_),
        variable_(file_.variable("drive_" + std::to_string(bank + 1), {paddles, samples})),
        signal_(samples) {}

  const std::vector<double>& paddle(std::size_t index) override {
    file_.read(variable_, {index, 0}, {1, signal_.size()}, signal_.data());
    return signal_;
  }
  std::string shown() const override { return shown_; }

 private:
  std::string shown_;
  NetcdfReader file_;
  int variable_;
  std::vector<double> signal_;
};

// Holds as many paddles as fit some memory, and reads the file again for the next ones.
class CsvSignals : public SignalReader {
 public:
  CsvSignals(const PageSource& source, const std::string& name, std::size_t paddles,
             std::size_t samples)
      : path_(source.path(name)),
        shown_(source.shown(name)),
        paddles_(paddles),
        samples_(samples) {}

  const std::vector<double>& paddle(std::size_t index) override {
    if (index < first_ || index >= first_ + held_.size()) load(index);
    return held_[index - first_];
  }
  std::string shown() const override { return shown_; }

 private:
  void load(std::size_t first) {
    CsvReader file(path_, shown_);
    if (file.columns() != paddles_ + 1) {
      const std::size_t found = file.columns() - 1;
      throw CannotRead{shown_ + ": has " + std::to_string(found) +
                       (found == 1 ? " paddle" : " paddles") + ", but summary.json says " +
                       std::to_string(paddles_)};
    }
    constexpr std::size_t most_values = std::size_t{1} << 22;
    first_ = first;
    held_.clear();
    held_.resize(std::min(paddles_ - first, std::max<std::size_t>(1, most_values / samples_)));
    std::size_t rows = 0;
    std::vector<double> row;
    for (; file.next(row); ++rows) {
      if (rows == samples_) continue;
      for (std::size_t i = 0; i < held_.size(); ++i) held_[i].push_back(row[1 + first + i]);
    }
    if (rows != samples_) {
      throw CannotRead{shown_ + ": has " + std::to_string(rows) +
                       " samples, but summary.json says " + std::to_string(samples_)};
    }
  }

  std::string path_;
  std::string shown_;
  std::size_t paddles_;
  std::size_t samples_;
  std::size_t first_ = 0;
  std::vector<std::vector<double>> held_;
};

}  // namespace

std::unique_ptr<SignalReader> open_signals(const PageSource& source, std::size_t bank,
                                           std::size_t paddles, std::size_t samples) {
  if (source.has("drive.nc")) {
    return std::make_unique<NetcdfSignals>(source, bank, paddles, samples);
  }
  const std::string name = "drive_" + std::to_string(bank + 1) + ".csv";
  if (!source.has(name)) return nullptr;
  return std::make_unique<CsvSignals>(source, name, paddles, samples);
}

}  // namespace Outputs
