// A folder of results that appears whole or not at all.
//
// Files are written to a hidden folder beside the target. `commit` exchanges the two in one step.
// The hidden folder is locked while its process lives; those that killed processes left beside the
// same target are removed.
#ifndef KELPBOX_OUTPUTS_OUTPUT_FOLDER_H_
#define KELPBOX_OUTPUTS_OUTPUT_FOLDER_H_

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "outputs/cannot_write.h"

namespace Outputs {

struct FileRecord {
  std::uint64_t bytes = 0;
  std::string sha256;
};

class OutputFolder {
 public:
  // Makes missing folders above the target. A target that is a symbolic link stands for the folder
  // that it leads to. Throws CannotWrite for a target that is a file, that is the current folder or
  // contains it, whose parent cannot be written, or that holds files which an earlier run did not
  // write: those are never removed.
  explicit OutputFolder(const std::string& target);
  // Removes the hidden folder, unless committed.
  ~OutputFolder();
  OutputFolder(const OutputFolder&) = delete;
  OutputFolder& operator=(const OutputFolder&) = delete;

  // The path of a file of this name now: in the hidden folder, or after `commit` in the target.
  // Folders in the name are made. Throws CannotWrite, also for a name that leads out of the folder.
  std::string path_of(const std::string& name);
  // The path that messages give: in the target.
  std::string shown(const std::string& name) const { return target_ + "/" + name; }
  // Writes a whole file. Throws CannotWrite.
  void write(const std::string& name, std::string_view contents);
  // The names that path_of and write have seen, sorted.
  std::vector<std::string> names() const;
  // Size and checksum of a finished file, read once. Throws CannotWrite.
  const FileRecord& record(const std::string& name);

  // Throws CannotWrite if a file is gone again: something else has removed it.
  void require_files() const;

  // Flushes all files to the disk and puts the folder in its place. Throws CannotWrite.
  void commit();

  // Removes what was written so far. Safe in a process that is about to end because of a signal,
  // outside of the signal handler.
  void discard() noexcept;

 private:
  void make_parents();
  void make_hidden();

  std::string target_;                       // as given, for messages
  std::string place_;                        // absolute, without links
  std::string hidden_;                       // place_ after `commit`
  std::vector<std::string> made_;            // folders above the target, outermost first
  int lock_ = -1;                            // held on the hidden folder
  std::map<std::string, FileRecord> files_;  // without a checksum until it is asked for
  // Freed before files are removed, because that takes memory as well.
  std::unique_ptr<char[]> spare_ = std::make_unique<char[]>(std::size_t{1} << 17);
  bool done_ = false;
};

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_OUTPUT_FOLDER_H_
