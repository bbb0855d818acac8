// A job: what a user asks for, checked in its form but not yet given to the library.
#ifndef KELPBOX_JOBS_JOB_H_
#define KELPBOX_JOBS_JOB_H_

#include <memory>
#include <string>
#include <vector>

#include "jobs/diagnostic.h"
#include "jobs/source_text.h"
#include "jobs/value.h"

namespace Jobs {

// A part of the job that takes parameters: the run, a sea's position, a wave, a change.
struct Part {
  std::string kind;   // of a wave or change: "jonswap"; empty otherwise
  std::string title;  // for messages: "a `jonswap` wave", "[run]"
  Span span;          // where it begins; without a line if the job does not have it
  Span kind_span;     // the value of `kind`
  Value parameters;   // a table, without "kind" and "name"
};

struct Sea {
  std::string name;
  Part holds;
  std::vector<Part> waves;
  std::vector<Part> changes;
};

struct PointPart {
  std::string name;
  Part part;
};

struct Job {
  std::shared_ptr<const SourceText> source;
  std::vector<std::string> options;  // of --set, in order
  std::string folder;                // that paths in the job are relative to
  std::string stem;                  // as job_stem
  std::string title;                 // the job's title, or its stem
  std::string site;                  // the path as the job gives it
  Span site_span;
  Part tune;
  Part run;
  std::vector<Sea> seas;
  Part drive;
  std::vector<PointPart> points;
  bool has_field = false;
  Part field;
  bool csv = true;
  bool netcdf = true;
  bool report = true;
};

// The name that a job gets from its path: the file's name without ".toml". "stdin" for "-".
std::string job_stem(const std::string& path);

// Reads a job file and applies the options. The path "-" is the standard input, and its folder is
// the current one. Faults are added; a job with faults is only partly filled. Throws BadJob for a
// file that cannot be read or is not TOML.
Job read_job(const std::string& path, const std::vector<std::string>& options, Diagnostics& faults);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_JOB_H_
