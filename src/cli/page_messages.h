// Every message that the pages mention, with the place that explains it.
#ifndef KELPBOX_CLI_PAGE_MESSAGES_H_
#define KELPBOX_CLI_PAGE_MESSAGES_H_

#include <set>
#include <string>
#include <vector>

#include "cli/explanations.h"
#include "cli/message_pattern.h"

namespace Cli {

struct PageMessage {
  MessagePattern pattern;
  MessagePattern beginning;  // the same, and anything after it
  std::set<std::string> words;
  // Whether a table lists it as a message. Otherwise a text or another table mentions it.
  bool listed = false;
  Explanation explanation;
};

// Read from the embedded pages at the first call.
const std::vector<PageMessage>& page_messages();

}  // namespace Cli

#endif  // KELPBOX_CLI_PAGE_MESSAGES_H_
