// Puts a finished folder in its place.
#ifndef KELPBOX_OUTPUTS_FOLDER_SWAP_H_
#define KELPBOX_OUTPUTS_FOLDER_SWAP_H_

#include <string>

namespace Outputs {

// Flushes all files below the folder, and the folders, to the disk. `shown` names the folder in
// messages. Throws CannotWrite.
void flush_folder(const std::string& folder, const std::string& shown);

// Moves the folder to its place. A folder that is there is exchanged with it in one step, if it may
// be replaced (earlier_results.h) and the file system can do that. Returns the path at which the
// old folder is now, or an empty text. Throws CannotWrite; then the old folder is in its place.
std::string put_in_place(const std::string& folder, const std::string& place,
                         const std::string& shown);

// The same in two steps, for file systems that cannot exchange. A process that is killed between
// them leaves no folder in the place.
std::string swap_in_two_steps(const std::string& folder, const std::string& place,
                              const std::string& shown);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_FOLDER_SWAP_H_
