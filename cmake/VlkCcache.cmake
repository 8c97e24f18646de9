# Compiles through ccache where it is installed.
#
# ccache keeps precompiled headers only when told to look past the definitions they are made with. Definitions come
# from the build files, so what ccache keeps is bound to their contents.
find_program(VLK_CCACHE ccache)
if(VLK_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  file(GLOB_RECURSE build_files RELATIVE ${PROJECT_SOURCE_DIR} CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/CMakeLists.txt
    ${PROJECT_SOURCE_DIR}/cmake/*.cmake
    ${PROJECT_SOURCE_DIR}/platform/CMakeLists.txt
    ${PROJECT_SOURCE_DIR}/ui_base/CMakeLists.txt
    ${PROJECT_SOURCE_DIR}/examples/CMakeLists.txt
    ${PROJECT_SOURCE_DIR}/tests/CMakeLists.txt
    ${PROJECT_SOURCE_DIR}/benchmarks/CMakeLists.txt)
  list(FILTER build_files EXCLUDE REGEX "^build")
  set(digests "")
  foreach(build_file IN LISTS build_files)
    file(SHA256 ${PROJECT_SOURCE_DIR}/${build_file} digest)
    string(APPEND digests "${build_file} ${digest}\n")
  endforeach()
  set(digest_file ${PROJECT_BINARY_DIR}/build_files.sha256)
  file(CONFIGURE OUTPUT ${digest_file} CONTENT "${digests}" @ONLY)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
    CCACHE_EXTRAFILES=${digest_file}
    CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${VLK_CCACHE})
endif()
