# Writes the source file OUTPUT: NAMESPACE::FUNCTION returns the contents of the FILES. See
# KelpboxEmbed.cmake.
set(entries "")
foreach(file IN LISTS FILES)
  cmake_path(GET file FILENAME name)
  file(READ ${file} text)
  string(FIND "${text}" ")embedded\"" end)
  if(NOT end EQUAL -1)
    message(FATAL_ERROR "${file} contains the end mark of embedded files")
  endif()
  string(APPEND entries "    {\"${name}\", R\"embedded(${text})embedded\"},\n")
endforeach()
file(WRITE ${OUTPUT} "#include \"base/embedded_file.h\"

// Compilers need not support literals above 64 kB; g++ and clang do.
#pragma GCC diagnostic ignored \"-Woverlength-strings\"

namespace ${NAMESPACE} {
namespace {

constexpr Base::EmbeddedFile files[] = {
${entries}};

}  // namespace

std::span<const Base::EmbeddedFile> ${FUNCTION}();
std::span<const Base::EmbeddedFile> ${FUNCTION}() { return files; }

}  // namespace ${NAMESPACE}
")
