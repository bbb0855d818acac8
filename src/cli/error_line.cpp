#include "cli/error_line.h"

namespace Cli {
namespace {

constexpr const char* red = "\033[1;31m";
constexpr const char* blue = "\033[1;34m";
constexpr const char* plain = "\033[0m";

void labelled(Console& console, const char* colour, const char* label, const std::string& text) {
  if (console.err_colour) {
    console.err << colour << label << plain << text << '\n';
  } else {
    console.err << label << text << '\n';
  }
}

}  // namespace

void error_line(Console& console, const std::string& fault, const std::string& help) {
  labelled(console, red, "error: ", fault);
  if (!help.empty()) labelled(console, blue, "  help: ", help);
}

void note_line(Console& console, const std::string& remark) {
  if (!console.quiet) labelled(console, blue, "note: ", remark);
}

}  // namespace Cli
