// Performs a sequence of calls as a host does, and checks what holds after each of them.
#ifndef KELPBOX_FUZZ_NATIVE_SESSION_H_
#define KELPBOX_FUZZ_NATIVE_SESSION_H_

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "exported/argument.h"
#include "facade/facade.h"
#include "fuzz/native/handles.h"
#include "fuzz/native/rows.h"
#include "fuzz/native/script.h"
#include "fuzz/native/tame.h"

namespace Fuzz {

// Prints the failure and ends the process, so that the fuzzer keeps the input.
[[noreturn]] void fail(const std::string& what);

// The second argument as a number.
std::uint32_t item_of(const std::vector<Given>& given);

// The folder of the site scripts, with a slash at its end.
std::string site_folder();

// What is known of an experiment.
struct Site {
  std::string file;           // read with success
  std::vector<double> rates;  // in Hz, of the components and modifiers that were set
  Items items;
  std::set<std::uint32_t> finite_signals;  // definitions whose signals were found to be finite
  bool wild_records = false;               // whether the analysis holds one that is not tame
};

class Session {
 public:
  Session() = default;
  // Deletes what is left.
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // A line that names no function, or an object that does not exist, does nothing.
  void run(const Line& line);
  // Builds a known wave and separates a known measurement: on all experiments with the flume, or on
  // a new one if there is none.
  void check_usable();

  ArrayHost& host() { return host_; }
  Handles& handles() { return handles_; }
  std::map<jlong, Site>& sites() { return sites_; }

  // Whether the parameters that the last call was given were tame before it.
  bool tame_given = true;
  // Work that may still be asked for, in samples.
  double budget = 4e6;

 private:
  bool resolve(const Row& row, const Line& line, std::vector<Given>& given);
  void check_exception(const Row& row, const Thrown& thrown);
  void before(const Row& row, const std::vector<Given>& given);
  void after(const Row& row, const std::vector<Given>& given, const Returned& returned);
  void note_before(const Row& row, const std::vector<Given>& given);
  // Of a call that succeeded.
  void note_after(const Row& row, const std::vector<Given>& given, const Returned& returned);

  ArrayHost host_;
  Handles handles_;
  std::map<jlong, Site> sites_;
};

inline Kelpbox::Facade& facade_at(jlong address) {
  return *Kelpbox::pointer_from<Kelpbox::Facade>(address);
}
inline Base::Params& params_at(jlong address) {
  return *Kelpbox::pointer_from<Base::Params>(address);
}

// Whether a call asks for more time or memory than the fuzzer can spend, or is one that a host must
// not make.
bool asks_too_much(Session& session, const Row& row, const std::vector<Given>& given);
// To be called after a call that succeeded.
void check_finite(Session& session, const Row& row, const std::vector<Given>& given);

}  // namespace Fuzz

#endif  // KELPBOX_FUZZ_NATIVE_SESSION_H_
