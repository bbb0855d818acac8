# Finds FFTW 3, which has no CMake package in Debian: FFTW3::fftw3, and FFTW3::fftw3_threads with
# the guard that makes its planner safe to call from several threads. Installed with Kelpbox, whose
# users link both.
find_package(Threads QUIET)
find_path(FFTW3_INCLUDE_DIR fftw3.h)
find_library(FFTW3_LIBRARY fftw3)
find_library(FFTW3_THREADS_LIBRARY fftw3_threads)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(FFTW3
  REQUIRED_VARS FFTW3_LIBRARY FFTW3_THREADS_LIBRARY FFTW3_INCLUDE_DIR Threads_FOUND)
mark_as_advanced(FFTW3_INCLUDE_DIR FFTW3_LIBRARY FFTW3_THREADS_LIBRARY)

if(FFTW3_FOUND AND NOT TARGET FFTW3::fftw3)
  add_library(FFTW3::fftw3 UNKNOWN IMPORTED)
  set_target_properties(FFTW3::fftw3 PROPERTIES
    IMPORTED_LOCATION ${FFTW3_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${FFTW3_INCLUDE_DIR})
  add_library(FFTW3::fftw3_threads UNKNOWN IMPORTED)
  set_target_properties(FFTW3::fftw3_threads PROPERTIES
    IMPORTED_LOCATION ${FFTW3_THREADS_LIBRARY}
    INTERFACE_LINK_LIBRARIES "FFTW3::fftw3;Threads::Threads")
endif()
