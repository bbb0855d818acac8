# kelpbox_folder(<name> [INTERNAL] SOURCES <files> [HEADERS <files>] [LINKS <folders>])
#
# One folder of src/ as one static target, kelpbox_<name>. Its headers are included as
# "<name>/x.h", and only by the folders that link it: each folder has its own include root, which
# contains only that one name. An include of any other folder does not compile. LINKS is the only
# place where the order of the folders is written; tests/house checks the includes against it.
# Users of the installed package have the folder as Kelpbox::<name>, unless it is INTERNAL.
function(kelpbox_folder name)
  cmake_parse_arguments(ARG "INTERNAL" "" "SOURCES;HEADERS;LINKS" ${ARGN})
  set(root ${CMAKE_BINARY_DIR}/include/${name})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${root}/${name} SYMBOLIC)

  set(target kelpbox_${name})
  add_library(${target} STATIC ${ARG_SOURCES} ${ARG_HEADERS})
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${root}> $<INSTALL_INTERFACE:${KELPBOX_INSTALL_HEADERS}>)
  foreach(link IN LISTS ARG_LINKS)
    target_link_libraries(${target} PUBLIC kelpbox_${link})
  endforeach()
  list(JOIN ARG_LINKS " " links)
  set_property(GLOBAL APPEND PROPERTY KELPBOX_ORDER "${name}: ${links}")
  if(NOT ARG_INTERNAL)
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})
    install(TARGETS ${target} EXPORT KelpboxTargets COMPONENT cpp)
    install(FILES ${ARG_HEADERS} DESTINATION ${KELPBOX_INSTALL_HEADERS}/${name} COMPONENT cpp)
  endif()

  # Each header compiles alone. A header with a .cpp is the first include there, which proves it;
  # tests/house checks that. The others are compiled here.
  set(units)
  foreach(header IN LISTS ARG_HEADERS)
    cmake_path(REPLACE_EXTENSION header cpp OUTPUT_VARIABLE source)
    if(source IN_LIST ARG_SOURCES)
      continue()
    endif()
    string(MAKE_C_IDENTIFIER ${header} unit)
    set(unit ${CMAKE_CURRENT_BINARY_DIR}/alone/${unit}.cpp)
    file(GENERATE OUTPUT ${unit} CONTENT "#include \"${name}/${header}\"\n")
    list(APPEND units ${unit})
  endforeach()
  if(units AND KELPBOX_TESTS)
    add_library(${target}_headers OBJECT ${units})
    target_link_libraries(${target}_headers PRIVATE ${target})
  endif()
endfunction()

# kelpbox_kernels(<files>)
#
# Sources with vector instructions. They are optimised in every build: without optimisation they are
# 10 to 25 times slower. For coverage they are compiled for one instruction set: clang counts nothing
# in a file that a system header includes, which is how the others are made.
function(kelpbox_kernels)
  set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS -O2)
  if(KELPBOX_COVERAGE)
    set_source_files_properties(${ARGN} PROPERTIES COMPILE_DEFINITIONS HWY_COMPILE_ONLY_STATIC)
  endif()
endfunction()

# kelpbox_test(<name> [SHARDS <n>] SOURCES <files> LINKS <targets>)
#
# The GoogleTest program tests_<name>, which ctest starts once, or once for each of <n> shards of
# about equal numbers of tests. Test data is found below the directory TEST_ROOT.
function(kelpbox_test name)
  cmake_parse_arguments(ARG "" "SHARDS" "SOURCES;LINKS" ${ARGN})
  set(target tests_${name})
  add_executable(${target} ${ARG_SOURCES})
  target_link_libraries(${target} PRIVATE ${ARG_LINKS} GTest::gtest_main)
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_precompile_headers(${target} REUSE_FROM tests_common)
  target_compile_definitions(${target} PRIVATE TEST_ROOT="${PROJECT_SOURCE_DIR}/tests")

  set(shards 1)
  if(ARG_SHARDS)
    set(shards ${ARG_SHARDS})
  endif()
  math(EXPR last "${shards} - 1")
  foreach(shard RANGE ${last})
    set(test ${name})
    if(shards GREATER 1)
      math(EXPR number "${shard} + 1")
      set(test ${name}.${number})
    endif()
    add_test(NAME ${test} COMMAND ${target} --gtest_brief=1)
    set_tests_properties(${test} PROPERTIES TIMEOUT 600
      ENVIRONMENT "GTEST_TOTAL_SHARDS=${shards};GTEST_SHARD_INDEX=${shard}")
  endforeach()
endfunction()
