#include "cli/templates.h"

namespace Cli {
namespace {

std::string title_of(std::string_view text) {
  std::string title;
  while (text.starts_with("# ")) {
    const std::size_t end = text.find('\n');
    title += (title.empty() ? "" : " ") + std::string(text.substr(2, end - 2));
    text.remove_prefix(end + 1);
  }
  // A full stop before a digit is a decimal point.
  for (std::size_t i = 0; i < title.size(); ++i) {
    const bool ends =
        title[i] == ':' || (title[i] == '.' && (i + 1 == title.size() || title[i + 1] == ' '));
    if (ends) return title.substr(0, i);
  }
  return title;
}

std::vector<Template> with_ending(std::string_view ending) {
  std::vector<Template> found;
  for (const EmbeddedFile& file : embedded_templates()) {
    if (!file.name.ends_with(ending)) continue;
    Template made{std::string(file.name.substr(0, file.name.size() - ending.size())),
                  title_of(file.text),
                  file,
                  {}};
    for (const EmbeddedFile& other : embedded_templates()) {
      const std::string quoted = '"' + std::string(other.name) + '"';
      if (file.text.find(quoted) != file.text.npos) made.needs.push_back(other);
    }
    found.push_back(std::move(made));
  }
  return found;
}

}  // namespace

std::vector<Template> job_templates() { return with_ending(".toml"); }
std::vector<Template> site_templates() { return with_ending(".site"); }

std::optional<Template> find_template(const std::vector<Template>& templates,
                                      const std::string& name) {
  for (const Template& candidate : templates) {
    if (candidate.name == name) return candidate;
  }
  return std::nullopt;
}

}  // namespace Cli
