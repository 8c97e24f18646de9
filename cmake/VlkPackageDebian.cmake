# Debian packages (cpack): the library, its development files, the workbench, and the browser plugin where it is built.
if(NOT CMAKE_SYSTEM_NAME STREQUAL "Linux" OR NOT PROJECT_IS_TOP_LEVEL)
  return()
endif()

set(library_package libvlk-ui-base${PROJECT_VERSION_MAJOR})
set(CPACK_COMPONENTS_ALL library development)

if(TARGET workbench)
  list(APPEND CPACK_COMPONENTS_ALL workbench)
  set(program_folder ${CMAKE_INSTALL_LIBEXECDIR}/vlk_workbench)
  # Programs find the libraries wherever the package was unpacked.
  cmake_path(RELATIVE_PATH CMAKE_INSTALL_FULL_LIBDIR BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX}/${program_folder}
    OUTPUT_VARIABLE libraries)
  set_target_properties(workbench PROPERTIES INSTALL_RPATH $ORIGIN/${libraries})
  # The reader of meshes lies beside the program that starts it.
  install(TARGETS workbench workbench_mesh_reader RUNTIME DESTINATION ${program_folder} COMPONENT workbench)
  cmake_path(RELATIVE_PATH CMAKE_INSTALL_FULL_LIBEXECDIR BASE_DIRECTORY ${CMAKE_INSTALL_FULL_BINDIR}
    OUTPUT_VARIABLE programs)
  file(CREATE_LINK ${programs}/vlk_workbench/workbench ${PROJECT_BINARY_DIR}/vlk_workbench SYMBOLIC)
  install(FILES ${PROJECT_BINARY_DIR}/vlk_workbench DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT workbench)
  install(FILES ${PROJECT_SOURCE_DIR}/examples/workbench/vlk_workbench.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT workbench)
  install(FILES ${PROJECT_SOURCE_DIR}/platform/vlk_common_res/images/svg/smooth_shading.svg RENAME vlk_workbench.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT workbench)
endif()

if(TARGET vlk_web_view)
  list(APPEND CPACK_COMPONENTS_ALL web_view)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vlk-ui-base)
set(CPACK_PACKAGE_CONTACT "The vlk_ui_base authors")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})

set(this_library "${library_package} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libvlk-ui-base-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${this_library}, qt6-base-dev")
set(CPACK_DEBIAN_WORKBENCH_PACKAGE_NAME vlk-workbench)
set(CPACK_DEBIAN_WORKBENCH_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_WORKBENCH_PACKAGE_DEPENDS "${this_library}")
set(CPACK_DEBIAN_WORKBENCH_PACKAGE_RECOMMENDS qt6-translations-l10n)
set(CPACK_DEBIAN_WEB_VIEW_PACKAGE_NAME ${library_package}-web-view)
set(CPACK_DEBIAN_WEB_VIEW_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_WEB_VIEW_PACKAGE_DEPENDS "${this_library}")
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "The shared libraries.")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Headers, package configuration and a template of a program.")
set(CPACK_COMPONENT_WORKBENCH_DESCRIPTION "A program that shows meshes and photographs with all that the library has.")
set(CPACK_COMPONENT_WEB_VIEW_DESCRIPTION "Information panels drawn by a browser engine.")
include(CPack)
