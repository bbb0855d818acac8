// A file that is part of the program. cmake/KelpboxEmbed.cmake puts it there.
#ifndef KELPBOX_BASE_EMBEDDED_FILE_H_
#define KELPBOX_BASE_EMBEDDED_FILE_H_

#include <span>
#include <string_view>

namespace Base {

struct EmbeddedFile {
  std::string_view name;  // without its folder
  std::string_view text;
};

}  // namespace Base

#endif  // KELPBOX_BASE_EMBEDDED_FILE_H_
