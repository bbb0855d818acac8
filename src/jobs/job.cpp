#include "jobs/job.h"

#include <filesystem>
#include <utility>

#include "jobs/job_form.h"
#include "jobs/overrides.h"
#include "jobs/read_parts.h"
#include "jobs/read_toml.h"

namespace Jobs {
namespace {

std::string folder_of(const std::filesystem::path& path) {
  const std::string folder = path.parent_path().string();
  return folder.empty() ? "." : folder;
}

// A part that the job does not have.
Part no_part(const std::string& title, const Span& whole) {
  Value nothing;
  nothing.span = whole;
  return part_of(nothing, title);
}

class JobReader {
 public:
  JobReader(Job& job, Diagnostics& faults) : job_(job), form_(faults), whole_{job.source, 0, 0, 0} {
    job_.tune = no_part("[tune]", whole_);
    job_.run = no_part("[run]", whole_);
    job_.drive = no_part("[drive]", whole_);
    job_.field = no_part("[field]", whole_);
  }

  void read(const Value& tree) {
    for (const Member& member : tree.members) {
      read_member(member);
    }
    if (!has_site_) {
      form_.fault("the job has no `site`", whole_, "write site = \"...\" before the first table");
    }
    if (!has_run_) {
      form_.fault("the job has no [run]", whole_);
    }
    if (!has_sea_) {
      form_.fault("the job has no [[sea]]", whole_);
    }
  }

 private:
  void read_member(const Member& member) {
    const std::string& key = member.key;
    if (key == "title") {
      const std::string title = form_.text(member);
      job_.title = title.empty() ? job_.title : title;
    } else if (key == "site") {
      has_site_ = true;
      job_.site = form_.text(member);
      job_.site_span = member.value.span;
      if (is_several_lines(member.value)) {
        form_.fault("`site` must be a text on one line", job_.site_span);
      }
    } else if (key == "tune") {
      read_part(member, job_.tune);
    } else if (key == "run") {
      has_run_ = true;
      read_part(member, job_.run);
    } else if (key == "sea") {
      has_sea_ = !is_empty_list(member.value);
      job_.seas = read_seas(member, form_);
    } else if (key == "drive") {
      read_part(member, job_.drive);
    } else if (key == "point") {
      job_.points = read_points(member, form_);
    } else if (key == "field") {
      job_.has_field = true;
      read_part(member, job_.field);
    } else if (key == "outputs") {
      read_outputs(member);
    } else if (key != "set") {
      form_.unknown(
          member, "in the job",
          {"title", "site", "tune", "run", "sea", "drive", "point", "field", "outputs", "set"});
    }
  }

  void read_part(const Member& member, Part& part) {
    if (const Value* table = form_.table(member, part.title)) {
      part = part_of(*table, part.title);
    }
  }

  void read_outputs(const Member& member) {
    const Value* table = form_.table(member, "[outputs]");
    if (table == nullptr) {
      return;
    }
    for (const Member& output : table->members) {
      if (output.key == "csv") {
        job_.csv = form_.boolean(output, true);
      } else if (output.key == "netcdf") {
        job_.netcdf = form_.boolean(output, true);
      } else if (output.key == "report") {
        job_.report = form_.boolean(output, true);
      } else {
        form_.unknown(output, "in [outputs]", {"csv", "netcdf", "report"});
      }
    }
  }

  Job& job_;
  JobForm form_;
  Span whole_;
  bool has_site_ = false;
  bool has_run_ = false;
  bool has_sea_ = false;
};

}  // namespace

std::string job_stem(const std::string& path) {
  if (path == "-") return "stdin";
  const std::filesystem::path name = std::filesystem::path(path).filename();
  const std::string stem = name.extension() == ".toml" ? name.stem().string() : name.string();
  // Results go to folders with the name of the stem.
  return stem.empty() || stem == "." || stem == ".." ? "job" : stem;
}

Job read_job(const std::string& path, const std::vector<std::string>& options,
             Diagnostics& faults) {
  Job job;
  job.source = read_source(path);
  job.options = options;
  job.folder = folder_of(path);
  job.stem = job_stem(path);
  job.title = job.stem;
  Value tree = read_toml(job.source);
  if (tree.members.empty()) {
    throw bad_job("the job is empty", {job.source, 0, 0, 0}, "`kelpbox new` writes one");
  }
  apply_overrides(tree, options, faults);
  JobReader(job, faults).read(tree);
  return job;
}

}  // namespace Jobs
