// The examples of `kelpbox seas`.
#ifndef KELPBOX_CLI_SEA_EXAMPLE_H_
#define KELPBOX_CLI_SEA_EXAMPLE_H_

#include <string>
#include <utility>
#include <vector>

#include "cli/sea_page.h"

namespace Cli {

// Keys and values as a job writes them: {"hs", "\"80 mm\""}.
using ExampleLines = std::vector<std::pair<std::string, std::string>>;

// A block of a job with the equals signs below each other.
std::string example_block(const SeaPage& page, const ExampleLines& lines);

// The block of a ready sea or change: its required parameters, and a few others that most users
// will want to see.
std::string ready_example(const SeaPage& page);

}  // namespace Cli

#endif  // KELPBOX_CLI_SEA_EXAMPLE_H_
