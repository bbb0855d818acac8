# Writes the source file OUTPUT: FUNCTION returns the contents of the FILES. See KelpboxEmbed.cmake.
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
file(WRITE ${OUTPUT} "#include \"cli/embedded_file.h\"

namespace Cli {
namespace {

constexpr EmbeddedFile files[] = {
${entries}};

}  // namespace

std::span<const EmbeddedFile> ${FUNCTION}() { return files; }

}  // namespace Cli
")
