#include "jobs/failure.h"

namespace Jobs {

std::string comment_text(const std::string& comment) {
  for (const std::string prefix : {"Error::", "Warning::", "Detail::"}) {
    if (comment.starts_with(prefix)) return comment.substr(prefix.size());
  }
  return comment;
}

}  // namespace Jobs
