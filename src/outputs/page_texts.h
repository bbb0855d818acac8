// The texts of a folder of results.
#ifndef KELPBOX_OUTPUTS_PAGE_TEXTS_H_
#define KELPBOX_OUTPUTS_PAGE_TEXTS_H_

#include <cstddef>
#include <nlohmann/json_fwd.hpp>
#include <string>

#include "outputs/page_source.h"

namespace Outputs {

// summary.json as it stands. Throws CannotRead if the folder has none, or one that `kelpbox run`
// did not write.
nlohmann::ordered_json read_summary(const PageSource& source);

// The contents of a file of at most so many bytes; empty if there is none. Throws CannotRead.
std::string read_text(const PageSource& source, const std::string& name, std::size_t largest);

// A text of at most about `longest` bytes. The lines in the middle of a longer one are replaced by
// one that says how many they were.
std::string without_middle(const std::string& text, std::size_t longest);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_PAGE_TEXTS_H_
