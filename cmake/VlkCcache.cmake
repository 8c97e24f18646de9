# Compiles through ccache where it is installed.
find_program(VLK_CCACHE ccache)
if(VLK_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Precompiled headers change with every configure; these settings let ccache look past their time stamps.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
    CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${VLK_CCACHE})
endif()
