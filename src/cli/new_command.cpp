#include <fmt/format.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/error_line.h"
#include "cli/failure_report.h"
#include "cli/new_file.h"
#include "cli/templates.h"
#include "cli/tool_json.h"
#include "jobs/nearest.h"

namespace Cli {
namespace {

namespace fs = std::filesystem;

void show_list(const std::vector<Template>& templates, const char* before, Console& console) {
  for (const Template& entry : templates) {
    console.out << fmt::format("  {:<18} {}\n", before + entry.name, entry.title);
  }
}

int list_all(Console& console) {
  if (console.json) {
    console.out << templates_json();
    return Exit::good;
  }
  console.out << "Jobs, each for one common task:\n";
  show_list(job_templates(), "", console);
  console.out << "\nSites:\n";
  show_list(site_templates(), "site ", console);
  console.out
      << "\n`kelpbox new regular` writes regular.toml, and the site that it names if that is "
         "not there.\n";
  return Exit::good;
}

// The template, or nothing after a message.
std::optional<Template> chosen(const NewOptions& options, Console& console) {
  const bool site = options.name == "site";
  const std::vector<Template> templates = site ? site_templates() : job_templates();
  const std::string& name = site ? options.kind : options.name;
  const char* what = site ? "site" : "job";
  if (!site && !options.kind.empty()) {
    error_line(console, fmt::format("\"{}\" after the name of a job", options.kind),
               "a site is written by `kelpbox new site " + options.kind + "`");
    return std::nullopt;
  }
  if (auto found = find_template(templates, name)) return found;
  std::vector<std::string> names;
  names.reserve(templates.size());
  for (const Template& known : templates) names.push_back(known.name);
  const std::string all = fmt::format("{}", fmt::join(names, ", "));
  if (name.empty()) {
    error_line(console, fmt::format("which {}?", what), "there are " + all);
  } else if (!site && find_template(site_templates(), name)) {
    error_line(console, fmt::format("\"{}\" is a site", name),
               "write `kelpbox new site " + name + "`");
  } else {
    const auto near = Jobs::nearest(name, names);
    error_line(console, fmt::format("there is no {} \"{}\"", what, name),
               near ? "did you mean `" + *near + "`?" : "there are " + all);
  }
  return std::nullopt;
}

// Where the template goes: a file, a file in the given folder, or a file in the current one.
fs::path target_of(const NewOptions& options, const Template& chosen_one) {
  const std::string name(chosen_one.file.name);
  if (options.to.empty()) return name;
  const fs::path to(options.to);
  return fs::is_directory(to) ? to / name : to;
}

void show_next(const fs::path& target, bool site, Console& console) {
  const std::string path = target.string();
  if (site) {
    console.out << fmt::format("\nNext: kelpbox site {}    shows the tank\n", path);
    return;
  }
  console.out << fmt::format(
      "\nNext: kelpbox check {0}    what would be made, beside what is asked for\n"
      "      kelpbox run {0}      writes the drive signals to {1}.out\n",
      path, target.stem().string());
}

int write(const NewOptions& options, const Template& wanted, Console& console) {
  const fs::path target = target_of(options, wanted);
  NewFiles files;
  write_new_file(target.string(), wanted.file.text, options.force);
  files.written.push_back(target.string());
  for (const EmbeddedFile& needed : wanted.needs) {
    // A file of that name may be the user's own, so --force does not replace it.
    const std::string path = (target.parent_path() / needed.name).string();
    if (fs::exists(path)) {
      files.kept.push_back(path);
    } else {
      write_new_file(path, needed.text, false);
      files.written.push_back(path);
    }
  }
  if (console.json) {
    console.out << json_of(files);
    return Exit::good;
  }
  if (console.quiet) return Exit::good;
  for (const std::string& path : files.written) console.out << "wrote " << path << '\n';
  for (const std::string& path : files.kept) {
    console.out << path << " is there already and stays as it is\n";
  }
  show_next(target, options.name == "site", console);
  return Exit::good;
}

}  // namespace

int make_new(const NewOptions& options, Console& console) {
  if (options.name.empty()) return list_all(console);
  const std::optional<Template> wanted = chosen(options, console);
  if (!wanted) return Exit::bad_input;
  if (options.to == "-") {
    console.out << wanted->file.text;
    return Exit::good;
  }
  try {
    return write(options, *wanted, console);
  } catch (...) {
    return report_current("", console);
  }
}

}  // namespace Cli
