# kelpbox_jar(<output> FOLDERS <folders> DEPENDS <files> [FILES <files>] [OPTIONS <options of jar>])
#
# A jar of folders with the manifest of the project, the same bytes from the same contents. FILES
# restricts it to these files of its folder.
find_program(KELPBOX_STRIP NAMES ${CMAKE_STRIP} strip REQUIRED)
mark_as_advanced(KELPBOX_STRIP)
set(KELPBOX_MANIFEST ${CMAKE_CURRENT_BINARY_DIR}/manifest.txt)
file(CONFIGURE OUTPUT ${KELPBOX_MANIFEST} CONTENT
"Implementation-Title: Kelpbox
Implementation-Version: ${PROJECT_VERSION}
")

function(kelpbox_jar output)
  cmake_parse_arguments(ARG "" "" "FOLDERS;FILES;DEPENDS;OPTIONS" ${ARGN})
  set(script ${PROJECT_SOURCE_DIR}/cmake/make_jar.cmake)
  cmake_path(GET output PARENT_PATH folder)
  add_custom_command(OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
    COMMAND ${CMAKE_COMMAND} -DJAR=${Java_JAR_EXECUTABLE} -DOUTPUT=${output}
            -DMANIFEST=${KELPBOX_MANIFEST} "-DFOLDERS=${ARG_FOLDERS}" "-DFILES=${ARG_FILES}"
            "-DOPTIONS=${ARG_OPTIONS}" -P ${script}
    DEPENDS ${ARG_DEPENDS} ${KELPBOX_MANIFEST} ${script}
    COMMENT "Packing ${output}"
    VERBATIM)
endfunction()

# The library for the JVM, without debugging information, in a folder of the jar that
# Platform.java names.
function(kelpbox_native_folder folder file)
  string(TOLOWER ${CMAKE_SYSTEM_NAME} system)
  set(place ${folder}/native/${system}-${CMAKE_SYSTEM_PROCESSOR})
  set(stripped ${place}/libKelpboxSwig.so)
  add_custom_command(OUTPUT ${stripped}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${place}
    COMMAND ${KELPBOX_STRIP} --strip-unneeded -o ${stripped} $<TARGET_FILE:KelpboxSwig>
    DEPENDS KelpboxSwig
    COMMENT "Stripping the library for kelpbox.jar"
    VERBATIM)
  set(${file} ${stripped} PARENT_SCOPE)
endfunction()
