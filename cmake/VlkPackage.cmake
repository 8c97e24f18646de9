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
    list(APPEND packed_plugins ${plugins}/${plugin}.dll)
  endif()
endforeach()

# The libraries that those need in their turn.
set(library_folders $<TARGET_FILE_DIR:Qt6::Core> $<TARGET_FILE_DIR:TBB::tbb>)
file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/package_libraries.cmake CONTENT "
set(CMAKE_GET_RUNTIME_DEPENDENCIES_PLATFORM windows+pe)
$<$<BOOL:${CMAKE_OBJDUMP}>:set(CMAKE_GET_RUNTIME_DEPENDENCIES_TOOL objdump)
set(CMAKE_GET_RUNTIME_DEPENDENCIES_COMMAND ${CMAKE_OBJDUMP})>
file(GET_RUNTIME_DEPENDENCIES
  EXECUTABLES \"$<TARGET_FILE:workbench>\" \"$<TARGET_FILE:workbench_mesh_reader>\"
  MODULES ${packed_plugins}
  DIRECTORIES ${library_folders}
  PRE_INCLUDE_REGEXES ^qt6 ^lib ^tbb ^assimp ^vlk_ ^tqm_ ^qskr ^vgs ^zlib ^minizip ^poly2tri ^pugixml
  PRE_EXCLUDE_REGEXES .
  RESOLVED_DEPENDENCIES_VAR libraries)
file(INSTALL \${libraries} DESTINATION \"\${CMAKE_INSTALL_PREFIX}\")
")
install(SCRIPT ${PROJECT_BINARY_DIR}/package_libraries.cmake COMPONENT workbench)

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_NAME vlk_workbench)
set(CPACK_PACKAGE_FILE_NAME vlk_workbench-${PROJECT_VERSION}-win64)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_COMPONENTS_ALL workbench)
set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY ON)
set(CPACK_STRIP_FILES ON)
include(CPack)
