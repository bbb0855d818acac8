# `cpack` makes one Debian package of the command, the library for the JVM, the jar, the manual page
# and the documentation. scripts/package calls it.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kelpbox)
set(CPACK_PACKAGE_CONTACT "Kelpbox <kelpbox@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "drive signals for laboratory wave tanks")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"From a description of the sea to the drive signal of each paddle of a wave tank.
The command kelpbox reads wave jobs, computes drive signals and the wave field,
and compares what was asked for with what will be made. The library for Java
hosts and its jar are included.")
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "default-jre-headless (>= 2:1.17), parallel, python3-xarray")
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# All in one package, without the headers and static libraries.
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_COMPONENTS_ALL command doc)
if(KELPBOX_JVM)
  list(APPEND CPACK_COMPONENTS_ALL java)
endif()
include(CPack)
