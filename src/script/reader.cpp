#include "script/reader.h"

#include <boost/filesystem/operations.hpp>
#include <fstream>
#include <iostream>
#include <memory>

#include "script_parse.h"

namespace Script {

namespace fs = boost::filesystem;

namespace {

constexpr unsigned deepest_include = 200;

// On the heap: the nesting of includes, not their buffers, is what the call stack has to bear.
struct Source {
  explicit Source(const fs::path& file) : stream(file.string()), scan(stream) {}
  std::ifstream stream;
  ScriptScan scan;
};

}  // namespace

void SubSerial::Parser::report(const std::string& text) {
  std::cerr << "Failing at " << text;
  if (!open_.empty()) {
    std::cerr << " in " << open_.back().file << " at line " << open_.back().scan->line()
              << " column " << open_.back().scan->column();
  }
  std::cerr << std::endl;
}

bool SubSerial::Parser::read(const fs::path& file, unsigned depth) {
  boost::system::error_code ignored;
  if (fs::status(file, ignored).type() != fs::regular_file) {
    throw "File \"" + file.string() + "\" does not exist";
  }
  const fs::path canonical = fs::canonical(file, ignored);
  refuse_loop(file, canonical);

  auto source = std::make_unique<Source>(file);
  if (!source->stream.is_open()) {
    throw "Unable to open file \"" + file.string() + "\" for input";
  }
  const std::string indent(std::size_t{2} * depth, ' ');
  std::cout << indent << "Opened file  " << file << " for input\n" << std::flush;

  open_.push_back({file, canonical, &source->scan});
  if (!read_tokens(source->scan, file, depth)) return false;
  open_.pop_back();
  source.reset();

  std::cout << indent << "Leaving file " << file << '\n' << std::flush;
  return true;
}

bool SubSerial::Parser::read_tokens(ScriptScan& scan, const fs::path& file, unsigned depth) {
  while (const int token = scan.yylex()) {
    bool good = true;
    if (token == TOKEN_INCLUDE) {
      good = include(scan, file, depth);
    } else if (token == TOKEN_IDENT) {
      Variable found = find(scan.text());
      if (found.type() == VarType::empty) std::cout << "UNFOUND = " << scan.text() << '\n';
      const int kind = ident_token(found);
      good = push(kind, std::move(found));
    } else {
      good = push(token, std::move(scan.value()));
    }
    if (!good) return false;
  }
  return true;
}

bool SubSerial::Parser::include(ScriptScan& scan, const fs::path& file, unsigned depth) {
  if (scan.yylex() != TOKEN_STRING_VAL) {
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
