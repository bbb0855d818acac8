// The hidden folders beside a target: their names, their locks, and what killed runs left.
#ifndef KELPBOX_OUTPUTS_HIDDEN_FOLDERS_H_
#define KELPBOX_OUTPUTS_HIDDEN_FOLDERS_H_

#include <string>

namespace Outputs {

// "<parent>/.storm.out.kelpbox-<process>-<number>" for "<parent>/storm.out".
std::string hidden_name(const std::string& place, int number);

// Locks a folder that was just made until the file descriptor is closed. Returns -1 if another run
// has removed the folder.
int lock_hidden(const std::string& folder);

// What swap_in_two_steps (folder_swap.h) adds to the name of the folder that it replaces.
inline constexpr const char* old_ending = "-old";

// Removes the hidden folders of this target that no process has locked. What cannot be removed
// stays, and nothing is reported. Old results stay too if they are not at the target any more.
void remove_left_over(const std::string& place) noexcept;

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_HIDDEN_FOLDERS_H_
