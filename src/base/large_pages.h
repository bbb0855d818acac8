// Large pages for long arrays.
#ifndef KELPBOX_BASE_LARGE_PAGES_H_
#define KELPBOX_BASE_LARGE_PAGES_H_

#include <cstddef>

namespace Base {

// Asks the system for large pages for this memory, which has not been written to yet. The system
// supplies each page at its first write, and for a long array of small pages that takes longer than
// the writes. Does nothing for arrays of less than a few large pages, and on systems without them.
void prefer_large_pages(void* memory, std::size_t bytes);

}  // namespace Base

#endif  // KELPBOX_BASE_LARGE_PAGES_H_
