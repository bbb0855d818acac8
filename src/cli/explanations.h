// What the pages say about a message.
#ifndef KELPBOX_CLI_EXPLANATIONS_H_
#define KELPBOX_CLI_EXPLANATIONS_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Cli {

// A shorter part of a message is not searched for.
inline constexpr std::size_t least_part = 8;  // characters

struct Explanation {
  std::string message;             // as the page writes it
  std::vector<std::string> lines;  // plain text; each line is a paragraph of its own
  std::string page;                // "docs/limits.md"
  std::string section;
};

struct Answer {
  // Of messages that fit as a whole, that the given one begins with, or that hold the given part.
  // Several if several pages have them.
  std::vector<Explanation> fitting;
  // If none fits: those with the most words in common, best first.
  std::vector<Explanation> similar;
  // Whether the first of `similar` is likely to be meant.
  bool likely = false;
};

// A prefix such as "tidelab.waves.component.WaveSynthesisException: " or "Uncaught Exception in Run
// Build: " is removed if the rest is found.
Answer explain_message(std::string_view message);

}  // namespace Cli

#endif  // KELPBOX_CLI_EXPLANATIONS_H_
