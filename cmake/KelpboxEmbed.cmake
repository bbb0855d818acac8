# kelpbox_embed(<target> <namespace> <function> <files>)
#
# Compiles the files into the target. `std::span<const Base::EmbeddedFile> <namespace>::<function>()`
# returns them, in the order given. A changed file is embedded again at the next build.
function(kelpbox_embed target namespace function)
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${function}.cpp)
  set(script ${PROJECT_SOURCE_DIR}/cmake/write_embedded.cmake)
  add_custom_command(OUTPUT ${source}
    COMMAND ${CMAKE_COMMAND} -D OUTPUT=${source} -D NAMESPACE=${namespace} -D FUNCTION=${function}
            -D "FILES=${ARGN}" -P ${script}
    DEPENDS ${ARGN} ${script}
    COMMENT "Embedding ${function}"
    VERBATIM)
  target_sources(${target} PRIVATE ${source})
endfunction()
