// The drive signals of a page.
#ifndef KELPBOX_OUTPUTS_PAGE_DRIVE_H_
#define KELPBOX_OUTPUTS_PAGE_DRIVE_H_

#include <nlohmann/json_fwd.hpp>

#include "outputs/page_facts.h"
#include "outputs/page_source.h"
#include "outputs/progress.h"

namespace Outputs {

// An element for each bank with paddles whose signals are in the folder: BankSignals of
// report/src/data.ts. Throws CannotRead and Cancelled.
nlohmann::ordered_json page_drive(const PageSource& source, const nlohmann::ordered_json& summary,
                                  const PageFacts& facts, const Step& step);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_PAGE_DRIVE_H_
