# kelpbox_folder(<name> SOURCES <files> [HEADERS <files>] [LINKS <folders>])
#
# One folder of src/ as one static target, kelpbox_<name>. Its headers are seen as
# "<name>/x.h", and only by the folders that link it: each folder has an include root
# of its own that holds nothing but that one name. An include against the order of
# the house therefore finds no file.
function(kelpbox_folder name)
  cmake_parse_arguments(ARG "" "" "SOURCES;HEADERS;LINKS" ${ARGN})
  set(root ${CMAKE_BINARY_DIR}/include/${name})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${root}/${name} SYMBOLIC)

  set(target kelpbox_${name})
  add_library(${target} STATIC ${ARG_SOURCES} ${ARG_HEADERS})
  target_include_directories(${target} PUBLIC ${root})
  foreach(link IN LISTS ARG_LINKS)
    target_link_libraries(${target} PUBLIC kelpbox_${link})
  endforeach()

  # Each header compiles alone.
  set(units)
  foreach(header IN LISTS ARG_HEADERS)
    string(MAKE_C_IDENTIFIER ${header} unit)
    set(unit ${CMAKE_CURRENT_BINARY_DIR}/alone/${unit}.cpp)
    file(GENERATE OUTPUT ${unit} CONTENT "#include \"${name}/${header}\"\n")
    list(APPEND units ${unit})
  endforeach()
  if(units)
    add_library(${target}_headers OBJECT ${units})
    target_link_libraries(${target}_headers PRIVATE ${target})
  endif()
endfunction()

# kelpbox_test(<name> SOURCES <files> LINKS <folders>)
#
# The GoogleTest program tests_<name>; each of its tests is a test of ctest. Data files
# are found below the directory that the macro TEST_DATA names.
function(kelpbox_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  set(target tests_${name})
  add_executable(${target} ${ARG_SOURCES})
  foreach(link IN LISTS ARG_LINKS)
    target_link_libraries(${target} PRIVATE kelpbox_${link})
  endforeach()
  target_link_libraries(${target} PRIVATE GTest::gtest_main)
  target_compile_definitions(${target} PRIVATE TEST_DATA="${CMAKE_CURRENT_SOURCE_DIR}")
  gtest_discover_tests(${target} TEST_PREFIX "${name}." NO_PRETTY_VALUES DISCOVERY_TIMEOUT 60
                       PROPERTIES TIMEOUT 300)
endfunction()
