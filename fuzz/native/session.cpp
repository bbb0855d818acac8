#include "fuzz/native/session.h"

#include <cstdio>
#include <cstdlib>
#include <map>
#include <stdexcept>

#include "base/utf8.h"
#include "fuzz/property.h"
#include "script/log.h"

namespace Fuzz {
namespace {

constexpr const char* domain = "tidelab/waves/component/WaveSynthesisException";

// What a call ends: the results of a definition that it makes anew.
std::optional<Lent> ended_by(const std::string& name) {
  static const std::map<std::string, Lent> ends = {
      {"Kelpbox_Params_param_list", Lent::snapshot},
      {"Kelpbox_Experiment_run_build", Lent::position},
      {"Kelpbox_Experiment_fronts__SWIG_0", Lent::set_fronts},
      {"Kelpbox_Experiment_fronts__SWIG_1", Lent::display_fronts},
      {"Kelpbox_Experiment_fronts__SWIG_2", Lent::display_fronts},
      {"Kelpbox_Experiment_paddle_motion_build", Lent::signal},
      {"Kelpbox_Experiment_animate_init", Lent::frame},
      {"Kelpbox_Experiment_animate_build", Lent::frame},
      {"Kelpbox_Experiment_animate_free", Lent::frame},
      {"Kelpbox_Experiment_twod_build", Lent::point},
  };
  const auto found = ends.find(name);
  if (found == ends.end()) return std::nullopt;
  return found->second;
}

bool changes_vector(const std::string& name) {
  if (name.find("StdVector") == std::string::npos) return false;
  for (const char* ending : {"_add", "_reserve", "_clear", "_set"}) {
    if (name.ends_with(ending)) return true;
  }
  return false;
}

// With the environment variable KELPBOX_FUZZ_SHOW, a replay shows the calls and their exceptions.
void show(const Line& line, const Thrown& thrown) {
  static const bool shows = std::getenv("KELPBOX_FUZZ_SHOW") != nullptr;
  if (!shows) return;
  std::fprintf(stderr, "%s   %s %s\n", write_script({line}).c_str(), thrown.class_name.c_str(),
               thrown.message.c_str());
}

}  // namespace

std::uint32_t item_of(const std::vector<Given>& given) {
  return given.size() > 1 ? static_cast<std::uint32_t>(given[1].integer) : 0;
}

void fail(const std::string& what) {
  require(false, what);
  std::abort();
}

std::string site_folder() { return KELPBOX_FUZZ_SITES "/"; }

Session::~Session() {
  while (const std::optional<Handle> handle = handles_.take_owned()) {
    for (const Row& row : rows()) {
      if (row.name.starts_with("delete_") && row.arguments[0].type == handle->type) {
        Given given;
        given.integer = handle->address;
        row.call(host_, {given});
        break;
      }
    }
  }
}

bool Session::resolve(const Row& row, const Line& line, std::vector<Given>& given) {
  for (std::size_t i = 0; i < row.arguments.size(); ++i) {
    Given one;
    one.argument = row.arguments[i];
    const std::string token = i < line.tokens.size() ? line.tokens[i] : "0";
    one.null = token == "null";
    switch (one.argument.kind) {
      case Kind::object: {
        if (one.null && one.argument.may_be_null) break;
        const auto back = static_cast<std::size_t>(integer_of(token) & 0xFF);
        const auto found = handles_.pick(one.argument.type, back, one.argument.owned);
        if (!found) return false;
        if (one.argument.owned && handles_.pinned(*found)) return false;
        one.integer = *found;
        break;
      }
      case Kind::text:
      case Kind::bytes:
        one.text = unescaped(token);
        // A string of Java without NUL, as the virtual machine passes it.
        if (one.argument.kind == Kind::text) std::erase(one.text, '\0');
        if (row.name.ends_with("initialise") && !one.null) {
          // Only files of this folder.
          std::erase(one.text, '/');
          one.text = site_folder() + one.text;
        }
        break;
      case Kind::real:
        one.real = real_of(token);
        break;
      case Kind::integer:
      case Kind::boolean:
        one.integer = integer_of(token);
        break;
      case Kind::reals:
      case Kind::integers:
      case Kind::texts:
        one.null = token == "none";
        one.list = list_of(token);
        break;
    }
    given.push_back(std::move(one));
  }
  return true;
}

void Session::run(const Line& line) {
  const Row* row = find_row(line.name);
  if (row == nullptr) return;
  std::vector<Given> given;
  if (!resolve(*row, line, given)) return;
  if (asks_too_much(*this, *row, given)) return;
  before(*row, given);
  Returned returned;
  bool left = false;
  try {
    returned = row->call(host_, given);
  } catch (const char*) {
    left = row->leaves == Leaves::site_missing;
    if (!left) fail(row->name + ": a text leaves it");
  } catch (const Script::LogItm&) {
    left = row->leaves == Leaves::site_missing;
    if (!left) fail(row->name + ": a log item leaves it");
  } catch (const std::length_error&) {
    left = row->leaves == Leaves::length;
    if (!left) fail(row->name + ": a length error leaves it");
  } catch (const std::exception& failure) {
    fail(row->name + ": an exception leaves it: " + failure.what());
  } catch (const std::string& message) {
    fail(row->name + ": a message leaves it: " + message);
  }
  const Thrown thrown = host_.take_thrown();
  show(line, thrown);
  if (left) {
    if (thrown != Thrown{}) fail(row->name + ": an exception is pending, and another leaves it");
    return;
  }
  if (thrown != Thrown{}) {
    check_exception(*row, thrown);
    if (returned.integer != 0 || returned.real != 0.0 || returned.object != nullptr) {
      fail(row->name + ": a result beside an exception");
    }
    return;
  }
  after(*row, given, returned);
  check_finite(*this, *row, given);
}

void Session::check_exception(const Row& row, const Thrown& thrown) {
  if (thrown.message.empty()) fail(row.name + ": an exception without a message");
  const bool safe = row.name.find("Kelpbox") == std::string::npos;
  if (thrown.class_name == domain) {
    if (safe && Base::find_invalid_utf8(thrown.message) != std::string::npos) {
      // Modified UTF-8 has two forms that UTF-8 does not have: for NUL and for halves of pairs.
      if (thrown.message.find('\xC0') == std::string::npos &&
          thrown.message.find('\xED') == std::string::npos) {
        fail(row.name + ": a message that is not a text: " + thrown.message);
      }
    }
    return;
  }
  if (safe) fail(row.name + ": " + thrown.class_name + ": " + thrown.message);
  if (thrown.class_name == "java/lang/NullPointerException") {
    if (thrown.message == "null std::string" || thrown.message.ends_with("reference is null")) {
      return;
    }
  }
  if (thrown.class_name == "java/lang/IndexOutOfBoundsException" &&
      thrown.message == "vector index out of range") {
    return;
  }
  fail(row.name + ": " + thrown.class_name + ": " + thrown.message);
}

void Session::before(const Row& row, const std::vector<Given>& given) {
  note_before(row, given);
  if (const auto lent = ended_by(row.name)) {
    const bool of_item = row.name != "Kelpbox_Params_param_list";
    handles_.end_lent(given[0].integer, of_item ? std::optional(item_of(given)) : std::nullopt,
                      lent);
  } else if (changes_vector(row.name)) {
    handles_.end_elements(given[0].integer);
  } else if (row.name == "Kelpbox_Experiment_remove") {
    handles_.end_lent(given[0].integer, item_of(given), std::nullopt);
  } else if (row.name == "Kelpbox_Experiment_clear" || row.name == "clear") {
    handles_.end_lent(given[0].integer, std::nullopt, std::nullopt);
    handles_.unpin(given[0].integer);
  } else if (row.name.starts_with("delete_") && given[0].integer != 0) {
    handles_.end(given[0].integer, row.arguments[0].type);
    if (row.arguments[0].type == Type::experiment) {
      handles_.unpin(given[0].integer);
      sites_.erase(given[0].integer);
    }
  }
}

void Session::after(const Row& row, const std::vector<Given>& given, const Returned& returned) {
  if (row.gives.object) {
    if (returned.integer == 0) fail(row.name + ": the address of the object is 0");
    Handle handle;
    handle.address = returned.integer;
    handle.type = row.gives.type;
    handle.lent = row.gives.lent;
    if (handle.lent != Lent::no) {
      handle.owner = given[0].integer;
      handle.item = item_of(given);
    }
    handles_.add(handle);
  }
  if (row.name == "Kelpbox_Experiment_add_timeseries" || row.name == "addTimeSeries") {
    handles_.pin(given[2].integer, given[0].integer);
  }
  note_after(row, given, returned);
  if (row.name.ends_with("initialise")) sites_[given[0].integer].file = given[1].text;
}

}  // namespace Fuzz
