// The page of report/ around its data.
#ifndef KELPBOX_OUTPUTS_PAGE_SHELL_H_
#define KELPBOX_OUTPUTS_PAGE_SHELL_H_

#include <span>
#include <string>

#include "base/embedded_file.h"

namespace Outputs {

std::span<const Base::EmbeddedFile> embedded_report();  // one file, with marks for title and data

// The whole page. `json` is its data.
std::string filled_shell(const std::string& title, const std::string& json);

// JSON that may stand in a script element: no text in it ends that element, or starts a comment.
std::string json_for_html(const std::string& json);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_PAGE_SHELL_H_
