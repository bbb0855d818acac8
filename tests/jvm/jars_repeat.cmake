# cmake -DJAR=<tool> -DSCRIPT=<make_jar.cmake> -DWORK=<folder> -P jars_repeat.cmake
#
# Files of another age and order make the same jar; another SOURCE_DATE_EPOCH makes another one.
cmake_minimum_required(VERSION 3.25)
file(REMOVE_RECURSE ${WORK})
file(WRITE ${WORK}/manifest.txt "Implementation-Title: Waves\n")

function(make_jar name)
  execute_process(
    COMMAND ${CMAKE_COMMAND} -DJAR=${JAR} -DOUTPUT=${WORK}/${name}.jar
            -DMANIFEST=${WORK}/manifest.txt -DFOLDERS=${WORK}/${name} -P ${SCRIPT}
    COMMAND_ERROR_IS_FATAL ANY)
  file(SHA256 ${WORK}/${name}.jar hash)
  set(${name} ${hash} PARENT_SCOPE)
endfunction()

unset(ENV{SOURCE_DATE_EPOCH})
set(names sea/b.txt sea/a.txt swell.txt)
foreach(folder one two three)
  foreach(name IN LISTS names)
    file(WRITE ${WORK}/${folder}/${name} ${name})
  endforeach()
  list(REVERSE names)
endforeach()
execute_process(COMMAND touch -d 2001-01-01 ${WORK}/two/swell.txt COMMAND_ERROR_IS_FATAL ANY)

make_jar(one)
make_jar(two)
if(NOT one STREQUAL two)
  message(FATAL_ERROR "the same contents make different jars")
endif()
set(ENV{SOURCE_DATE_EPOCH} 1000000000)
make_jar(three)
if(one STREQUAL three)
  message(FATAL_ERROR "SOURCE_DATE_EPOCH is ignored")
endif()
