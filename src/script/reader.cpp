#include "script/reader.h"

#include <stdlib.h>

#include <boost/filesystem/operations.hpp>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <new>
#include <ostream>

#include "base/streams.h"
#include "script/division.h"
#include "script_parse.h"

namespace Script {

namespace fs = boost::filesystem;

namespace {

constexpr unsigned deepest_include = 200;
// Needed in addition to the limit of depth: files that each include several others multiply.
constexpr unsigned most_files = 1000;
constexpr std::size_t longest_token = 1048576;
constexpr std::size_t quotes = 2;  // of a string token

// Kept on the heap because includes nest and the buffers are too large for the call stack.
struct Source {
  explicit Source(const fs::path& file) : stream(file.string()), scan(stream) {}
  std::ifstream stream;
  ScriptScan scan;
};

// The word for a token of unlimited length in messages, if the token is kept in memory. Null for
// other tokens.
const char* long_token_name(int token) {
  switch (token) {
    case TOKEN_SIMPLE_VALUE:
      return "number";
    case TOKEN_STRING_VAL:
      return "string";
    case TOKEN_IDENT:
      return "name";
    default:
      return nullptr;
  }
}

// The path without links, or nothing if there is none. The function of Boost ends the process when
// memory runs out.
std::string canonical_path(const fs::path& file) {
  const std::unique_ptr<char, void (*)(void*)> path(realpath(file.c_str(), nullptr), std::free);
  if (!path && errno == ENOMEM) throw std::bad_alloc();
  return path ? path.get() : "";
}

}  // namespace

void SubSerial::Parser::report(const std::string& error) {
  Base::script_faults() << "Failing at " << error;
  if (!open_.empty()) {
    Base::script_faults() << " in " << open_.back().file << " at line " << open_.back().scan->line()
                          << " column " << open_.back().scan->column();
  }
  Base::script_faults() << std::endl;
}

bool SubSerial::Parser::read(const fs::path& file) {
  require_regular(file);
  const std::string canonical = canonical_path(file);
  require_no_loop(file, canonical);
  require_few_files(file);
  auto source = std::make_unique<Source>(file);
  if (!source->stream.is_open()) {
    throw "Unable to open file \"" + file.string() + "\" for input";
  }

  const std::string indent(2 * open_.size(), ' ');
  Base::progress() << indent << "Opened file  " << file << " for input\n" << std::flush;
  ++opened_;
  open_.push_back({file, canonical, &source->scan});
  bool good = true;
  while (good) {
    const int token = next_token(source->scan, file);
    if (token == TOKEN_END) break;
    if (token == TOKEN_INCLUDE) {
      // After a failed parse only the innermost file gets the line "Leaving file".
      if (!include(source->scan, file)) return false;
    } else {
      good = push_token(source->scan, token);
    }
  }
  open_.pop_back();
  source.reset();
  Base::progress() << indent << "Leaving file " << file << '\n' << std::flush;
  return good;
}

int SubSerial::Parser::next_token(ScriptScan& scan, const fs::path& file) const {
  const int token = scan.yylex();
  const char* name = long_token_name(token);
  if (!name) return token;
  auto length = static_cast<std::size_t>(scan.YYLeng());
  if (token == TOKEN_STRING_VAL) length -= quotes;
  if (length <= longest_token) return token;
  throw "File \"" + file.string() + "\" has a " + name + " of " + std::to_string(length) +
      " characters at line " + std::to_string(scan.line()) + ": at most " +
      std::to_string(longest_token) + " can be read";
}

bool SubSerial::Parser::push_token(ScriptScan& scan, int token) try {
  if (token != TOKEN_IDENT) return push(token, std::move(scan.value()));
  Variable found = find(scan.text());
  if (found.type() == VarType::empty) Base::progress() << "UNFOUND = " << scan.text() << std::endl;
  const int kind = ident_token(found);
  return push(kind, std::move(found));
} catch (const DivisionByZero&) {
  throw "File \"" + open_.back().file.string() + "\" divides an integer by zero at line " +
      std::to_string(scan.line());
}

bool SubSerial::Parser::include(ScriptScan& scan, const fs::path& file) {
  if (next_token(scan, file) != TOKEN_STRING_VAL) {
    throw std::string("Incorrect syntax in include directive");
  }
  return read(file.parent_path() / scan.value().as_string());
}

void SubSerial::Parser::require_regular(const fs::path& file) const {
  boost::system::error_code ignored;
  if (fs::status(file, ignored).type() == fs::regular_file) return;
  throw "File \"" + file.string() + "\" does not exist";
}

void SubSerial::Parser::require_no_loop(const fs::path& file, const std::string& canonical) const {
  for (const Open& open : open_) {
    if (open.canonical != canonical) continue;
    throw "File \"" + file.string() + "\" includes itself" +
        (&open == &open_.back() ? "" : " through \"" + open_.back().file.string() + "\"");
  }
  if (open_.size() > deepest_include) {
    throw "File \"" + file.string() + "\" is included too deeply";
  }
}

void SubSerial::Parser::require_few_files(const fs::path& file) const {
  if (opened_ < most_files) return;
  throw "File \"" + file.string() + "\" is not opened: one script can open at most " +
      std::to_string(most_files) + " files";
}

}  // namespace Script
