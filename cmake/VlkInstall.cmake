# Package configuration: find_package(vlk_ui_base) gives the Vela:: targets; its components are their names.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/vlk_ui_base)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/vlk_ui_baseConfig.cmake.in
  ${PROJECT_BINARY_DIR}/vlk_ui_baseConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/vlk_ui_baseConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)

install(EXPORT vlk_ui_base_targets NAMESPACE Vela:: DESTINATION ${package_dir} COMPONENT development)
install(FILES
  ${PROJECT_BINARY_DIR}/vlk_ui_baseConfig.cmake
  ${PROJECT_BINARY_DIR}/vlk_ui_baseConfigVersion.cmake
  DESTINATION ${package_dir} COMPONENT development)
# A program to begin with: docs/first_steps.md.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/template DESTINATION ${CMAKE_INSTALL_DATADIR}/vlk_ui_base
  COMPONENT development)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT library)
