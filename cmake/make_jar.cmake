# Packs folders into a jar that has the same bytes whenever its contents are the same: sorted
# entries, one date. The date is SOURCE_DATE_EPOCH if the environment has it.
#
#   cmake -DJAR=<tool> -DOUTPUT=<file> -DMANIFEST=<file> -DFOLDERS=<list> [-DFILES=<list>]
#         [-DOPTIONS=<list>] -P make_jar.cmake
#
# FILES are relative to the only folder; without them each folder is packed whole.
cmake_minimum_required(VERSION 3.25)

set(date 2026-01-01T00:00:00Z)
if(DEFINED ENV{SOURCE_DATE_EPOCH})
  string(TIMESTAMP date "%Y-%m-%dT%H:%M:%SZ" UTC)
endif()

set(arguments "")
foreach(folder IN LISTS FOLDERS)
  set(entries ${FILES})
  if(NOT FILES)
    file(GLOB_RECURSE entries LIST_DIRECTORIES false RELATIVE ${folder} ${folder}/*)
  endif()
  list(SORT entries)
  foreach(entry IN LISTS entries)
    string(APPEND arguments "-C \"${folder}\" \"${entry}\"\n")
  endforeach()
endforeach()
file(WRITE ${OUTPUT}.entries "${arguments}")

file(REMOVE ${OUTPUT})
execute_process(
  COMMAND ${JAR} --create --file ${OUTPUT} --manifest ${MANIFEST} --date=${date} ${OPTIONS}
          @${OUTPUT}.entries
  COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE ${OUTPUT}.entries)
