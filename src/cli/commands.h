// The commands of `kelpbox`, one function each, in a file of the same name. Each returns an exit
// code of console.h.
#ifndef KELPBOX_CLI_COMMANDS_H_
#define KELPBOX_CLI_COMMANDS_H_

#include <string>
#include <vector>

#include "cli/console.h"

namespace Cli {

struct JobOptions {
  std::vector<std::string> jobs;
  std::vector<std::string> set;  // key=value
  std::string out;               // empty for the default
  unsigned workers = 1;
  bool strict = false;
};
int run(const JobOptions& options, Console& console);    // run_command.cpp
int check(const JobOptions& options, Console& console);  // check_command.cpp

// Makes the pages of these folders again.
int report_pages(const std::vector<std::string>& folders, Console& console);  // report_command.cpp

struct SiteOptions {
  std::string site;
  std::vector<std::string> set;  // tunable=value
};
int site(const SiteOptions& options, Console& console);

struct AnalyseOptions {
  std::string site;
  std::vector<std::string> records;
  std::string start, stop;  // with units; empty for the whole record
  std::string rate;         // for files without a time column
  std::string units;        // of the elevations, for heads without units
  std::string angle = "0 deg";
  std::vector<std::string> probes;   // "x=9 m,y=0 m" for each probe, for heads without positions
  std::vector<std::string> columns;  // all without any
};
int analyse(const AnalyseOptions& options, Console& console);

struct SeasOptions {
  std::string name;  // empty for the list
};
int seas(const SeasOptions& options, Console& console);

struct NewOptions {
  std::string name;  // empty for the list; "site" with a kind
  std::string kind;
  std::string to;  // a file; empty for <name>.toml or <kind>.site
  bool force = false;
};
int make_new(const NewOptions& options, Console& console);  // new_command.cpp

int units(const std::string& quantity, const std::string& to, Console& console);
int formulas(Console& console);
int explain(const std::vector<std::string>& message, Console& console);

}  // namespace Cli

#endif  // KELPBOX_CLI_COMMANDS_H_
