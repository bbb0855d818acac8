#include "script/reader.h"

#include <boost/filesystem/operations.hpp>
#include <fstream>
#include <memory>
#include <ostream>

#include "base/streams.h"
#include "script_parse.h"

namespace Script {

namespace fs = boost::filesystem;

namespace {

constexpr unsigned deepest_include = 200;
// Files that include several others multiply.
constexpr unsigned most_files = 1000;
constexpr std::size_t longest_token = 1048576;

// On the heap: the nesting of includes, not their buffers, is what the call stack has to bear.
struct Source {
  explicit Source(const fs::path& file) : stream(file.string()), scan(stream) {}
  std::ifstream stream;
  ScriptScan scan;
};

// What to call a token that is kept and may have any length; null for others.
const char* kept_kind(int token) {
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

}  // namespace

void SubSerial::Parser::report(const std::string& text) {
  Base::script_faults() << "Failing at " << text;
  if (!open_.empty()) {
    Base::script_faults() << " in " << open_.back().file << " at line " << open_.back().scan->line()
                          << " column " << open_.back().scan->column();
  }
  Base::script_faults() << std::endl;
}

bool SubSerial::Parser::read(const fs::path& file, unsigned depth) {
  boost::system::error_code ignored;
  if (fs::status(file, ignored).type() != fs::regular_file) {
    throw "File \"" + file.string() + "\" does not exist";
  }
  const fs::path canonical = fs::canonical(file, ignored);
  refuse_loop(file, canonical);
  if (opened_ == most_files) {
    throw "File \"" + file.string() + "\" is not opened: one script can open at most " +
        std::to_string(most_files) + " files";
  }

  auto source = std::make_unique<Source>(file);
  if (!source->stream.is_open()) {
    throw "Unable to open file \"" + file.string() + "\" for input";
  }
  const std::string indent(std::size_t{2} * depth, ' ');
  Base::progress() << indent << "Opened file  " << file << " for input\n" << std::flush;

  ++opened_;
  open_.push_back({file, canonical, &source->scan});
  bool good = true;
  while (good) {
    const int token = next(source->scan, file);
    if (token == 0) break;
    if (token == TOKEN_INCLUDE) {
      // Only the file in which the parser gave up is left with a line.
      if (!include(source->scan, file, depth)) return false;
    } else {
      good = take(source->scan, token);
    }
  }
  open_.pop_back();
  source.reset();

  Base::progress() << indent << "Leaving file " << file << '\n' << std::flush;
  return good;
}

int SubSerial::Parser::next(ScriptScan& scan, const fs::path& file) const {
  const int token = scan.yylex();
  const char* kind = kept_kind(token);
  if (!kind) return token;
  const std::size_t quotes = token == TOKEN_STRING_VAL ? 2 : 0;
  const std::size_t length = static_cast<std::size_t>(scan.YYLeng()) - quotes;
  if (length <= longest_token) return token;
  throw "File \"" + file.string() + "\" has a " + kind + " of " + std::to_string(length) +
      " characters at line " + std::to_string(scan.line()) + ": at most " +
      std::to_string(longest_token) + " can be read";
}

bool SubSerial::Parser::take(ScriptScan& scan, int token) {
  if (token != TOKEN_IDENT) return push(token, std::move(scan.value()));
  Variable found = find(scan.text());
  if (found.type() == VarType::empty) Base::progress() << "UNFOUND = " << scan.text() << std::endl;
  const int kind = ident_token(found);
  return push(kind, std::move(found));
}

bool SubSerial::Parser::include(ScriptScan& scan, const fs::path& file, unsigned depth) {
  if (next(scan, file) != TOKEN_STRING_VAL) {
    throw std::string("Incorrect syntax in include directive");
  }
  return read(file.parent_path() / scan.value().as_string(), depth + 1);
}

void SubSerial::Parser::refuse_loop(const fs::path& file, const fs::path& canonical) const {
  for (const Open& open : open_) {
    if (open.canonical != canonical) continue;
    throw "File \"" + file.string() + "\" includes itself" +
        (&open == &open_.back() ? "" : " through \"" + open_.back().file.string() + "\"");
  }
  if (open_.size() > deepest_include) {
    throw "File \"" + file.string() + "\" is included too deeply";
  }
}

}  // namespace Script
