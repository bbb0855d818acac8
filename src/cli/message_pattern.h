// A message as a page writes it, with its variable parts.
#ifndef KELPBOX_CLI_MESSAGE_PATTERN_H_
#define KELPBOX_CLI_MESSAGE_PATTERN_H_

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Cli {

// `...`, `<name>`, what stands in double quotes, a letter N or R alone, and each number can be
// different in a message. Case and the number of blanks do not matter.
class MessagePattern {
 public:
  explicit MessagePattern(std::string_view written);

  // How many characters agree literally if the whole message fits, otherwise nothing.
  std::optional<std::size_t> fit(std::string_view message) const;
  // The characters that are the same in each message.
  std::size_t literal() const { return literal_; }

 private:
  struct Token {
    enum class Kind { character, number, anything };
    Kind kind;
    char character = '\0';
  };

  void add_anything();

  std::vector<Token> tokens_;
  std::size_t literal_ = 0;
};

// Lower case, each run of blanks and line ends one blank.
std::string normal_form(std::string_view text);

// The words of three letters or more, in lower case.
std::set<std::string> words_of(std::string_view text);

}  // namespace Cli

#endif  // KELPBOX_CLI_MESSAGE_PATTERN_H_
