// The wave field of a page.
#ifndef KELPBOX_OUTPUTS_PAGE_FIELD_H_
#define KELPBOX_OUTPUTS_PAGE_FIELD_H_

#include <nlohmann/json_fwd.hpp>

#include "outputs/page_facts.h"
#include "outputs/page_source.h"
#include "outputs/progress.h"

namespace Outputs {

// Field of report/src/data.ts; null if the folder has no field. Reads field.nc once or twice and
// holds a small part of it. Throws CannotRead and Cancelled.
nlohmann::ordered_json page_field(const PageSource& source, const nlohmann::ordered_json& summary,
                                  const PageFacts& facts, const Step& step);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_PAGE_FIELD_H_
