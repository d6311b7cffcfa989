# What `cmake --install` puts in place: the module, the headers, the schemas, the program, and the files by which CMake
# and pkg-config find them.
#
# A framework loads the module with dlopen() and needs the headers only; it finds the module's path as the file of the
# target oclacp::module, or as the variable `module` of the pkg-config package oclacp. The module's manifest stands
# beside it.
include(CMakePackageConfigHelpers)

set(OCLACP_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/oclacp)
set(OCLACP_SCHEMA_DIR ${CMAKE_INSTALL_DATADIR}/oclacp/yang)
set(OCLACP_MANIFEST ${CMAKE_INSTALL_LIBDIR}/libymap_oclacp.json)

target_include_directories(ymap_oclacp INTERFACE $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
                                                 $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
target_link_libraries(ymap_oclacp INTERFACE oclacp_platform)
set_target_properties(ymap_oclacp PROPERTIES EXPORT_NAME module)
set_target_properties(oclacp_platform PROPERTIES EXPORT_NAME platform)

install(TARGETS ymap_oclacp oclacp_platform EXPORT oclacp)
# The host has no stable interface yet: its library is installed for the program alone.
install(TARGETS oclacp_host oclacp)
install(EXPORT oclacp NAMESPACE oclacp:: FILE oclacp-targets.cmake DESTINATION ${OCLACP_PACKAGE_DIR})
install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY platform/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/oclacp-platform)
install(DIRECTORY yang/ DESTINATION ${OCLACP_SCHEMA_DIR})

configure_package_config_file(
  cmake/oclacp-config.cmake.in oclacp-config.cmake
  INSTALL_DESTINATION ${OCLACP_PACKAGE_DIR}
  PATH_VARS OCLACP_SCHEMA_DIR OCLACP_MANIFEST
  NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(oclacp-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/oclacp-config.cmake ${CMAKE_CURRENT_BINARY_DIR}/oclacp-config-version.cmake
        DESTINATION ${OCLACP_PACKAGE_DIR})

# An installed tree can be moved, so the pkg-config file finds the prefix from where it stands.
file(RELATIVE_PATH OCLACP_PREFIX_FROM_PKGCONFIG /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
configure_file(cmake/oclacp.pc.in oclacp.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/oclacp.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
