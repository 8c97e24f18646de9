# The ZIP of the workbench for Windows (cpack): the program with what it needs beside it. What belongs to Windows itself
# and to the run-time libraries of Visual C++ is not in it.
set(VLK_LICENSE_FOLDERS "" CACHE STRING "Folders with the licences of the libraries that go into the package")
if(NOT WIN32 OR NOT TARGET workbench)
  return()
endif()

install(TARGETS workbench workbench_mesh_reader RUNTIME DESTINATION . COMPONENT workbench)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION . COMPONENT workbench)
install(DIRECTORY ${VLK_LICENSE_FOLDERS} DESTINATION licenses COMPONENT workbench)

# Plugins are found by name, not through a library.
get_target_property(platform_plugin Qt6::QWindowsIntegrationPlugin LOCATION)
cmake_path(GET platform_plugin PARENT_PATH plugins)
cmake_path(GET plugins PARENT_PATH plugins)
foreach(plugin IN ITEMS platforms/qwindows styles/qwindowsvistastyle styles/qmodernwindowsstyle iconengines/qsvgicon
    imageformats/qgif imageformats/qico imageformats/qjpeg imageformats/qsvg)
  if(EXISTS ${plugins}/${plugin}.dll)
    cmake_path(GET plugin PARENT_PATH folder)
    install(FILES ${plugins}/${plugin}.dll DESTINATION ${folder} COMPONENT workbench)
  endif()
endforeach()

install(FILES $<TARGET_RUNTIME_DLLS:workbench> DESTINATION . COMPONENT workbench)
if(MINGW)
  # The compiler's, as Qt brings them along.
  foreach(library IN ITEMS libgcc_s_seh-1 libstdc++-6 libwinpthread-1)
    install(FILES $<TARGET_FILE_DIR:Qt6::Core>/${library}.dll DESTINATION . COMPONENT workbench)
  endforeach()
endif()

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_NAME vlk_workbench)
set(CPACK_PACKAGE_FILE_NAME vlk_workbench-${PROJECT_VERSION}-win64)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_COMPONENTS_ALL workbench)
set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY ON)
set(CPACK_STRIP_FILES ON)
include(CPack)
