// The facade of wave analysis: a table of measured series, sets of them and processes on them,
// which the host addresses by small integers.
//
// An ID is the item's place in the table; it rises by one with each item made. Items are never
// freed: a host may hold the data of a process beyond the life of its analysis, until the host
// process ends. Guarded operations fold what they meet as told in guard.h, with the fixed text
// alone for whatever needs a site before one has been read, and for the ID of nothing or of an
// item of another type. Calls on one object come one at a time.
#ifndef KELPBOX_FACADE_ANALYSIS_H_
#define KELPBOX_FACADE_ANALYSIS_H_

#include <cstdint>
#include <memory>
#include <variant>
#include <vector>

#include "analysis/process.h"
#include "analysis/series.h"
#include "base/params.h"
#include "facade/site_facade.h"

namespace Kelpbox {

using AnalysisItem =
    std::variant<std::unique_ptr<::Analysis::Series>, std::unique_ptr<::Analysis::Set>,
                 std::unique_ptr<::Analysis::Process>>;

struct AnalysisTable {
  std::vector<AnalysisItem> items;
  AnalysisTable* next = nullptr;  // among those that outlive their analysis
};

class Analysis {
 public:
  // The site must outlive the analysis.
  explicit Analysis(SiteFacade& site);
  Analysis(const Analysis&) = delete;
  Analysis& operator=(const Analysis&) = delete;

  // Takes the tunable values. The tank is not ready from here until the next create_process.
  void set(Base::Params& in);

  // Each of these returns the new item's ID, and leaves the table as it was when it fails.

  // A record with its "rate" and, for frequency analysis, its "x" and "y". Both are copied.
  std::uint32_t add_series(const Base::Params& params, const std::vector<double>& samples);
  // Cuts the series to "start_time" and "stop_time". Throws the texts of analysis/series.h.
  std::uint32_t create_set(const Base::Params& params, const std::vector<std::uint32_t>& series);
  // 0 finds waves by zero crossings, 1 finds nothing, 2 separates wave trains. Any other kind
  // makes no item and returns the ID that the next item will have: hosts are not told by a
  // failure. Makes the tank ready, so that it fails unless `set` has come before. Writes its
  // progress to the standard output stream.
  std::uint32_t create_process(std::uint32_t set, std::uint32_t kind);

  // Runs the process and adds its results. Throws the texts of the processes.
  void get_results(std::uint32_t process, const Base::Params& settings, Base::Params& out);
  // The process's own data, refilled by the next get_results.
  const std::vector<double>& get_data(std::uint32_t process, const Base::Params& params);

  // Nothing is freed and IDs count on.
  void clear() {}

 protected:
  ~Analysis();

 private:
  // Throws the plain text unless the ID is that of such an item.
  template <typename T>
  T& item(std::uint32_t id, const char* complaint);
  template <typename T>
  std::uint32_t append(std::unique_ptr<T> made);
  std::uint32_t next_id() const;

  SiteFacade& site_;
  std::unique_ptr<AnalysisTable> table_;
};

}  // namespace Kelpbox

#endif  // KELPBOX_FACADE_ANALYSIS_H_
