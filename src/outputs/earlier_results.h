// Whether a folder may be replaced by new results.
#ifndef KELPBOX_OUTPUTS_EARLIER_RESULTS_H_
#define KELPBOX_OUTPUTS_EARLIER_RESULTS_H_

#include <string>

namespace Outputs {

// A place without a folder, an empty folder, and one in which everything is listed in its own
// summary.json may be replaced. Throws CannotWrite for any other, with one of the files that are
// not listed. `shown` names the folder in messages.
void require_replaceable(const std::string& place, const std::string& shown);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_EARLIER_RESULTS_H_
