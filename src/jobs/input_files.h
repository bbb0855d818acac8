// The files that a job names: how they are found, read, and named below inputs/.
#ifndef KELPBOX_JOBS_INPUT_FILES_H_
#define KELPBOX_JOBS_INPUT_FILES_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "jobs/job.h"
#include "jobs/run.h"

namespace Jobs {

// A path that the job gives, as it is opened: relative to the job's folder.
std::string opened_path(const Job& job, const std::string& given);

// "looked for in the folder sites", for a path that leads nowhere.
std::string searched_folder(const Job& job, const std::string& given);

inline constexpr std::uintmax_t largest_record = 1024;  // MiB, of a CSV file

// The contents of a regular file of at most so many MiB. Throws std::string that says what is wrong
// with it, such as "does not exist", to be put after the path.
std::string read_file(const std::string& path, std::uintmax_t most_mib);

// The path that the library writes in quotation marks.
std::string unquoted_path(std::string_view text);

// The files that the library reports as opened, in order, each once.
std::vector<std::string> opened_files(const std::string& progress);

// The place of a file that was read before, under this path or another spelling of it.
std::optional<std::size_t> find_input(const std::vector<InputFile>& inputs,
                                      const std::string& path);

// Gives each input its name. The first `site_files` are the site script and what it includes: they
// keep their places relative to one another, so that the script finds its includes below inputs/
// alone. The others go to the folder "records". A run of the copied job gives the same names.
void name_inputs(std::vector<InputFile>& inputs, std::size_t site_files);

// Replaces the paths of inputs in lines of the library by "inputs/<name>", so that the lines do not
// depend on where the job lies.
std::string without_paths(const std::string& lines, const std::vector<InputFile>& inputs);

}  // namespace Jobs

#endif  // KELPBOX_JOBS_INPUT_FILES_H_
