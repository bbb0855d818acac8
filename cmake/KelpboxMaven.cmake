# The jars in the form of a Maven repository, below maven/ of the build:
#
#   tidelab/kelpbox/<version>/kelpbox-<version>.jar, -sources.jar, -javadoc.jar, .pom
#
# kelpbox_maven(<jar> <pom> <sources>) adds the target kelpbox_maven to the build.
function(kelpbox_maven jar pom sources)
  set(folder ${CMAKE_BINARY_DIR}/maven/tidelab/kelpbox/${PROJECT_VERSION})
  set(name ${folder}/kelpbox-${PROJECT_VERSION})

  kelpbox_jar(${name}-sources.jar
    FOLDERS ${CMAKE_CURRENT_SOURCE_DIR}
    FILES ${sources}
    DEPENDS ${sources})

  # The functions below the interface have no comments one by one: pages of docs/ describe them.
  set(pages ${CMAKE_CURRENT_BINARY_DIR}/javadoc)
  set(stamp ${CMAKE_CURRENT_BINARY_DIR}/javadoc.stamp)
  list(TRANSFORM sources PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ OUTPUT_VARIABLE paths)
  add_custom_command(OUTPUT ${stamp}
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${pages}
    COMMAND ${Java_JAVADOC_EXECUTABLE} -quiet -Xdoclint:all
            -Xdoclint/package:-tidelab.KelpboxNativeLibrary -Werror -notimestamp -encoding UTF-8
            --release 17 -windowtitle "Kelpbox ${PROJECT_VERSION}" -d ${pages} ${paths}
    COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
    DEPENDS ${sources}
    COMMENT "Writing the pages of the Java interface"
    VERBATIM)
  kelpbox_jar(${name}-javadoc.jar FOLDERS ${pages} DEPENDS ${stamp})

  add_custom_command(OUTPUT ${name}.jar ${name}.pom
    COMMAND ${CMAKE_COMMAND} -E copy ${jar} ${name}.jar
    COMMAND ${CMAKE_COMMAND} -E copy ${pom} ${name}.pom
    DEPENDS ${jar} ${pom}
    VERBATIM)
  add_custom_target(kelpbox_maven ALL
    DEPENDS ${name}.jar ${name}.pom ${name}-sources.jar ${name}-javadoc.jar)
  # Both would build the jar otherwise.
  add_dependencies(kelpbox_maven kelpbox_java)
endfunction()
