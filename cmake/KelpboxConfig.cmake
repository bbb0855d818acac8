# find_package(Kelpbox): Kelpbox::facade with the classes Kelpbox::Experiment and Kelpbox::Analysis,
# and a target for each folder below it, such as Kelpbox::maths.
include(CMakeFindDependencyMacro)
find_dependency(Boost 1.74 COMPONENTS filesystem)
find_dependency(Threads)
find_dependency(hwy CONFIG)

# FindFFTW3.cmake lies beside this file.
set(Kelpbox_module_path ${CMAKE_MODULE_PATH})
list(PREPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR})
find_dependency(FFTW3 MODULE)
set(CMAKE_MODULE_PATH ${Kelpbox_module_path})
unset(Kelpbox_module_path)

include(${CMAKE_CURRENT_LIST_DIR}/KelpboxTargets.cmake)
