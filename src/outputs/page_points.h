// The elevations at points of a page.
#ifndef KELPBOX_OUTPUTS_PAGE_POINTS_H_
#define KELPBOX_OUTPUTS_PAGE_POINTS_H_

#include <nlohmann/json_fwd.hpp>

#include "outputs/page_facts.h"
#include "outputs/page_source.h"
#include "outputs/progress.h"

namespace Outputs {

// An element for each point of the summary: PointSeries of report/src/data.ts. None if the folder
// lacks the elevation of any of them. Throws CannotRead and Cancelled.
nlohmann::ordered_json page_points(const PageSource& source, const nlohmann::ordered_json& summary,
                                   const PageFacts& facts, const Step& step);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_PAGE_POINTS_H_
