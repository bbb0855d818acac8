// The page that shows the results of a run: report.html, made from the other files of its folder.
#ifndef KELPBOX_OUTPUTS_WRITE_PAGE_H_
#define KELPBOX_OUTPUTS_WRITE_PAGE_H_

#include <string>

#include "outputs/output_folder.h"
#include "outputs/page_source.h"
#include "outputs/progress.h"

namespace Outputs {

// Writes or replaces the page in its folder, whole or not at all. Throws CannotRead, CannotWrite
// and Cancelled.
void write_page(const PageSource& source, const Progress& progress);

// The same in a folder that is being written. Its summary.json must be there.
void write_page(OutputFolder& folder, const Progress& progress);

}  // namespace Outputs

#endif  // KELPBOX_OUTPUTS_WRITE_PAGE_H_
