// The name of a page while it is written.
#ifndef KELPBOX_OUTPUTS_UNFINISHED_PAGE_H_
#define KELPBOX_OUTPUTS_UNFINISHED_PAGE_H_

#include <string>

namespace Outputs {

// ".report.html.kelpbox-<process>", beside the page.
std::string unfinished_page();

// Whether this is such a name, of any process: one that was killed leaves its file.
bool is_unfinished_page(const std::string& name);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_UNFINISHED_PAGE_H_
