# What `cmake --install` puts where, below a prefix; <lib> is lib/x86_64-linux-gnu for /usr on
# Debian and lib elsewhere.
#
#   <lib>/jni/libKelpboxSwig.so     where Debian's Java looks: System.loadLibrary("KelpboxSwig")
#   share/java/kelpbox.jar
#   <lib>/libkelpbox_*.a, include/kelpbox/<folder>/, <lib>/cmake/Kelpbox/    for C++, by folder
#   share/doc/kelpbox/              README.md, docs/ and examples/, side by side as in the sources
#
# Components: java, cpp, doc. kelpbox_folder() installs the headers and libraries of the folders.
include(CMakePackageConfigHelpers)
set(CMAKE_INSTALL_DOCDIR share/doc/kelpbox CACHE PATH "Pages and examples")
include(GNUInstallDirs)

set(KELPBOX_INSTALL_HEADERS ${CMAKE_INSTALL_INCLUDEDIR}/kelpbox)
set(KELPBOX_INSTALL_JNI ${CMAKE_INSTALL_LIBDIR}/jni)
set(KELPBOX_INSTALL_JAVA ${CMAKE_INSTALL_DATADIR}/java)
set(package ${CMAKE_INSTALL_LIBDIR}/cmake/Kelpbox)

# Minor versions below 1.0 may break an interface.
set(version ${CMAKE_CURRENT_BINARY_DIR}/KelpboxConfigVersion.cmake)
write_basic_package_version_file(${version} COMPATIBILITY SameMinorVersion)
install(FILES cmake/KelpboxConfig.cmake cmake/FindFFTW3.cmake ${version}
  DESTINATION ${package} COMPONENT cpp)
install(EXPORT KelpboxTargets NAMESPACE Kelpbox:: DESTINATION ${package} COMPONENT cpp)

install(FILES README.md CHANGELOG.md CONTRIBUTING.md
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT doc)
install(DIRECTORY docs examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT doc)
