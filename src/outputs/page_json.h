// The data of a page as JSON. report/schema/page.schema.json describes it.
#ifndef KELPBOX_OUTPUTS_PAGE_JSON_H_
#define KELPBOX_OUTPUTS_PAGE_JSON_H_

#include <string>

#include "outputs/page_source.h"
#include "outputs/progress.h"

namespace Outputs {

struct PageText {
  std::string title;
  std::string json;
};

// Reads the folder. Files that it lacks are parts that the page lacks. Throws CannotRead and
// Cancelled.
PageText page_json(const PageSource& source, const Progress& progress);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_PAGE_JSON_H_
