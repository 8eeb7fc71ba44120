# Debian packages, which `cpack` makes in the build folder: the library, what programs are built with, the programs.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME keocam)
set(CPACK_PACKAGE_CONTACT "The keocam maintainers <maintainers@keocam.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL library development programs)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS OFF)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libkeocam${abi_version})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_DESCRIPTION "The library finds GigE Vision thermal cameras on the network, connects to them,
configures their thermal cores, and receives frames and temperatures.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libkeocam-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libkeocam${abi_version} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "What programs that use the library are built with: headers, files for CMake and
pkg-config, and examples.")

set(CPACK_DEBIAN_PROGRAMS_PACKAGE_NAME keocam)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PROGRAMS_DESCRIPTION "The program keocam lists cameras, measures temperatures, saves frames, and
changes the settings and lenses of thermal cores. The program keocam-simulator
is a camera in software.")

# Of packages only: elsewhere there is one project, not three.
set(doc_folder ${CMAKE_INSTALL_DATADIR}/doc)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${doc_folder}/libkeocam${abi_version} RENAME copyright
  COMPONENT library EXCLUDE_FROM_ALL)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${doc_folder}/libkeocam-dev RENAME copyright
  COMPONENT development EXCLUDE_FROM_ALL)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION ${doc_folder}/libkeocam-dev
  COMPONENT development EXCLUDE_FROM_ALL)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${doc_folder}/keocam RENAME copyright
  COMPONENT programs EXCLUDE_FROM_ALL)

include(CPack)
