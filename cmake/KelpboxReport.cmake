# kelpbox_report_page(<file>)
#
# Makes the page of report/ without its data, as one HTML file, with each change of its sources.
find_program(KELPBOX_NODE node)
if(NOT KELPBOX_NODE)
  message(FATAL_ERROR "The command node is missing, which makes the report page: run scripts/setup")
endif()
foreach(package esbuild uplot)
  if(NOT EXISTS ${PROJECT_SOURCE_DIR}/report/node_modules/${package})
    message(FATAL_ERROR
      "report/node_modules/${package} is missing, which makes the report page: run scripts/setup")
  endif()
endforeach()

function(kelpbox_report_page file)
  set(report ${PROJECT_SOURCE_DIR}/report)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${report}/src/*)
  add_custom_command(OUTPUT ${file}
    COMMAND ${KELPBOX_NODE} ${report}/build.mjs ${file}
    DEPENDS ${sources} ${report}/build.mjs ${report}/package-lock.json
    COMMENT "Making the report page"
    VERBATIM)
endfunction()
