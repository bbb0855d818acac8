// Files that can be opened and read to their end.
#ifndef KELPBOX_OUTPUTS_REGULAR_FILE_H_
#define KELPBOX_OUTPUTS_REGULAR_FILE_H_

#include <string>

namespace Outputs {

// Throws CannotRead with the name `shown` unless the path leads to a regular file. To open a FIFO
// waits until somebody writes to it, and a device may never end.
void require_regular_file(const std::string& path, const std::string& shown);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_REGULAR_FILE_H_
