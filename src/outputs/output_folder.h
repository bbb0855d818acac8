// A folder of results that appears whole or not at all.
//
// Files are written to a hidden folder beside the target. `commit` exchanges the two in one step.
#ifndef KELPBOX_OUTPUTS_OUTPUT_FOLDER_H_
#define KELPBOX_OUTPUTS_OUTPUT_FOLDER_H_

#include <string>
#include <string_view>
#include <vector>

namespace Outputs {

// Thrown when results cannot be written: "storm.out/drive.nc: No space left on device".
struct CannotWrite {
  std::string message;
};

class OutputFolder {
 public:
  // Throws CannotWrite for a target that is a file, whose parent cannot be written, or that holds
  // files which an earlier run did not write: those are never removed.
  explicit OutputFolder(const std::string& target);
  // Removes the hidden folder, unless committed.
  ~OutputFolder();
  OutputFolder(const OutputFolder&) = delete;
  OutputFolder& operator=(const OutputFolder&) = delete;

  // The path at which a file of this name is to be written now. Folders in the name are made.
  std::string path_of(const std::string& name);
  // Writes a whole file. Throws CannotWrite.
  void write(const std::string& name, std::string_view contents);
  // The names that path_of and write have seen, sorted.
  std::vector<std::string> names() const;

  // Flushes all files to the disk and puts the folder in its place. Throws CannotWrite.
  void commit();

  // Removes what was written so far. Safe in a process that is about to end because of a signal,
  // outside of the signal handler.
  void discard() noexcept;

 private:
  std::string target_;
  std::string hidden_;
  std::vector<std::string> names_;
  bool done_ = false;
};

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_OUTPUT_FOLDER_H_
