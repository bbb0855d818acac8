// Wave analysis: a table of measured series, sets of series, and processes on sets, which the host
// addresses by ID.
//
// An ID is the item's index in the table, so each new ID is one higher than the last. Items are
// never freed: a host may read the data of a process after its analysis has ended, until the host
// process ends.
//
// All operations except `clear` convert failures as described in guard.h. They throw their fixed
// message if no site has been read, or if an ID belongs to no item or to one of another type. Calls
// on one object must come one at a time.
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

// The kinds of processes, as hosts number them.
enum class ProcessKind : std::uint32_t {
  zero_crossings = 0,
  nothing = 1,
  wave_trains = 2,
};

struct AnalysisTable {
  std::vector<AnalysisItem> items;
  AnalysisTable* next = nullptr;  // in the list of tables that outlive their analysis
};

class Analysis {
 public:
  // The site must outlive the analysis.
  explicit Analysis(SiteFacade& site);
  ~Analysis();
  Analysis(const Analysis&) = delete;
  Analysis& operator=(const Analysis&) = delete;

  // Sets the tank's tunable values. Then the tank is not ready until the next `create_process`.
  void set(Base::Params& in);

  // Each of these returns the new item's ID. If it fails, the table stays unchanged.

  // A record with its "rate" and, for the separation of wave trains, its "x" and "y". Both
  // arguments are copied.
  std::uint32_t add_series(const Base::Params& params, const std::vector<double>& samples);
  // Cuts the series to "start_time" and "stop_time". Throws the messages of analysis/series.h.
  std::uint32_t create_set(const Base::Params& params, const std::vector<std::uint32_t>& series);
  // `kind` is a ProcessKind. Any other number creates no item and returns the ID that the next item
  // will have; hosts rely on this not being a failure. Makes the tank ready, which fails unless
  // `set` was called since it was last ready. Writes progress marks to standard output.
  std::uint32_t create_process(std::uint32_t set, std::uint32_t kind);

  // Runs the process and adds its results to `out`. Throws the messages of the processes.
  void get_results(std::uint32_t process, const Base::Params& settings, Base::Params& out);
  // Owned by the process, and refilled by its next `get_results`.
  const std::vector<double>& get_data(std::uint32_t process, const Base::Params& params);

  // Does nothing on purpose: hosts rely on their IDs staying valid.
  void clear() {}

 private:
  // Throws the character pointer `complaint` unless the ID belongs to an item of this type.
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
