// The jobs and sites that `kelpbox new` writes.
#ifndef KELPBOX_CLI_TEMPLATES_H_
#define KELPBOX_CLI_TEMPLATES_H_

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/embedded_file.h"

namespace Cli {

struct Template {
  std::string name;   // "regular", "flume"
  std::string title;  // its first comment, up to the first full stop or colon
  EmbeddedFile file;
  // Other templates that the file names: the site and the records of a job.
  std::vector<EmbeddedFile> needs;
};

// In the order of their names.
std::vector<Template> job_templates();
std::vector<Template> site_templates();

std::optional<Template> find_template(const std::vector<Template>& templates,
                                      const std::string& name);

}  // namespace Cli

#endif  // KELPBOX_CLI_TEMPLATES_H_
