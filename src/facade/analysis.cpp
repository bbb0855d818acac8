#include "facade/analysis.h"

#include <atomic>
#include <ostream>
#include <stdexcept>
#include <utility>

#include "analysis/freq_single.h"
#include "analysis/multi_freq.h"
#include "analysis/multi_time.h"
#include "base/large_pages.h"
#include "base/streams.h"
#include "facade/guard.h"

namespace Kelpbox {
namespace {

using ::Analysis::Process;
using ::Analysis::Series;
using ::Analysis::Set;

void mark(const char* text) { Base::progress() << text << std::endl; }

std::unique_ptr<Process> make_process(std::uint32_t kind, const Maths::TankConfig& tank, Set& set) {
  switch (ProcessKind{kind}) {
    case ProcessKind::zero_crossings:
      return std::make_unique<::Analysis::MultiTime>(tank, set);
    case ProcessKind::nothing:
      return std::make_unique<::Analysis::MultiFreq>(tank, set);
    case ProcessKind::wave_trains:
      mark("AD");
      return std::make_unique<::Analysis::FreqSingle>(tank, set);
    default:
      return nullptr;
  }
}

// Most of the time of a copy of this size would go into small pages.
std::vector<double> long_lived_copy(const std::vector<double>& samples) {
  std::vector<double> copy;
  copy.reserve(samples.size());
  Base::prefer_large_pages(copy.data(), copy.capacity() * sizeof(double));
  copy.assign(samples.begin(), samples.end());
  return copy;
}

// The tables of analyses that have ended. Atomic, since two threads of a host may end two analyses
// at the same time.
std::atomic<AnalysisTable*> outliving{nullptr};

}  // namespace

Analysis::Analysis(SiteFacade& site) : site_(site), table_(std::make_unique<AnalysisTable>()) {}

Analysis::~Analysis() {
  if (table_->items.empty()) return;
  AnalysisTable* table = table_.release();
  table->next = outliving.exchange(table);
}

void Analysis::set(Base::Params& in) {
  guarded("Uncaught Exception in Experiment set", [&] {
    site_.tank().set(in);
    site_.context().clear_ready();
  });
}

std::uint32_t Analysis::add_series(const Base::Params& params, const std::vector<double>& samples) {
  return guarded("Uncaught Exception in Experiment add_series", [&] {
    return append(std::make_unique<Series>(Series{params, long_lived_copy(samples)}));
  });
}

std::uint32_t Analysis::create_set(const Base::Params& params,
                                   const std::vector<std::uint32_t>& series) {
  return guarded("Uncaught Exception in Experiment create_set", [&] {
    std::vector<const Series*> records;
    for (const std::uint32_t id : series) {
      if (id >= table_->items.size()) throw std::out_of_range("invalid vector<T> subscript");
      records.push_back(&item<Series>(id, "Trying to access series"));
    }
    return append(std::make_unique<Set>(params, std::move(records)));
  });
}

std::uint32_t Analysis::create_process(std::uint32_t set, std::uint32_t kind) {
  return guarded<LogItems::shown>("Uncaught Exception in Experiment create_process", [&] {
    mark("AA");
    Set& records = item<Set>(set, "Trying to access series");
    mark("AB");
    mark("AC");
    Common::Context& context = site_.context();
    context.make_ready();
    std::unique_ptr<Process> made = make_process(kind, context.tank_config(), records);
    mark("AG");
    return made ? append(std::move(made)) : next_id();
  });
}

void Analysis::get_results(std::uint32_t process, const Base::Params& settings, Base::Params& out) {
  guarded("Uncaught Exception in Experiment get_results", [&] {
    Process& found = item<Process>(process, "Trying to access process");
    found.process(settings);
    found.results(out);
  });
}

const std::vector<double>& Analysis::get_data(std::uint32_t process, const Base::Params& params) {
  return guarded(
      "Uncaught Exception in Experiment get_data", [&]() -> auto& {
        return item<Process>(process, "Trying to access process").data(params);
      });
}

template <typename T>
T& Analysis::item(std::uint32_t id, const char* complaint) {
  if (id >= table_->items.size()) throw complaint;
  const auto* found = std::get_if<std::unique_ptr<T>>(&table_->items[id]);
  if (found == nullptr) throw complaint;
  return **found;
}

template <typename T>
std::uint32_t Analysis::append(std::unique_ptr<T> made) {
  const std::uint32_t id = next_id();
  table_->items.emplace_back(std::move(made));
  return id;
}

std::uint32_t Analysis::next_id() const { return static_cast<std::uint32_t>(table_->items.size()); }

}  // namespace Kelpbox
