# Installs BUILD_DIR, from its Debian packages where they can be made, moves the installed tree, builds consumer/
# against it and runs the result.
set(prefix ${WORK_DIR}/prefix)
set(consumer_build ${WORK_DIR}/build)

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# What an earlier run installed must not be found. The tree is moved because a package may be unpacked anywhere.
file(REMOVE_RECURSE ${prefix} ${WORK_DIR}/staging)
find_program(dpkg_deb dpkg-deb)
find_program(dpkg_shlibdeps dpkg-shlibdeps)
if(dpkg_deb AND dpkg_shlibdeps)
  file(REMOVE_RECURSE ${WORK_DIR}/packages)
  run(${CMAKE_CPACK_COMMAND} -G DEB -C ${CONFIG} -B ${WORK_DIR}/packages --config ${BUILD_DIR}/CPackConfig.cmake)
  file(GLOB packages ${WORK_DIR}/packages/*.deb)
  foreach(package IN LISTS packages)
    run(${dpkg_deb} -x ${package} ${WORK_DIR}/staging)
  endforeach()
  file(RENAME ${WORK_DIR}/staging/usr ${prefix})
else()
  run(${CMAKE_COMMAND} --install ${BUILD_DIR} --config ${CONFIG} --prefix ${WORK_DIR}/staging)
  file(RENAME ${WORK_DIR}/staging ${prefix})
endif()

file(GLOB_RECURSE installed_cmake ${prefix}/*.cmake)
foreach(file IN LISTS installed_cmake)
  file(STRINGS ${file} lines)
  foreach(folder IN ITEMS ${SOURCE_DIR} ${BUILD_DIR})
    string(FIND "${lines}" "${folder}/" position)
    if(NOT position EQUAL -1)
      message(FATAL_ERROR "${file} names ${folder}")
    endif()
  endforeach()
endforeach()

# The example in the README is one of the programs.
file(READ ${SOURCE_DIR}/README.md readme)
string(REGEX MATCH "```cpp\n.*" example "${readme}")
string(SUBSTRING "${example}" 7 -1 example)
string(FIND "${example}" "```" end)
string(SUBSTRING "${example}" 0 ${end} example)
file(WRITE ${WORK_DIR}/readme/main.cpp.new "${example}")
file(COPY_FILE ${WORK_DIR}/readme/main.cpp.new ${WORK_DIR}/readme/main.cpp ONLY_IF_DIFFERENT)

run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/consumer -B ${consumer_build} -G ${GENERATOR}
  -D CMAKE_BUILD_TYPE=${CONFIG}
  -D CMAKE_CXX_COMPILER=${CXX_COMPILER}
  -D CMAKE_CXX_COMPILER_LAUNCHER=${CXX_COMPILER_LAUNCHER}
  -D README_EXAMPLE=${WORK_DIR}/readme/main.cpp
  -D CMAKE_PREFIX_PATH=${prefix})
run(${CMAKE_COMMAND} --build ${consumer_build} --config ${CONFIG} --parallel 2)

# The template, as a user would begin with it.
run(${CMAKE_COMMAND} -S ${prefix}/share/vlk_ui_base/template -B ${WORK_DIR}/template -G ${GENERATOR}
  -D CMAKE_BUILD_TYPE=${CONFIG}
  -D CMAKE_CXX_COMPILER=${CXX_COMPILER}
  -D CMAKE_CXX_COMPILER_LAUNCHER=${CXX_COMPILER_LAUNCHER}
  -D CMAKE_PREFIX_PATH=${prefix})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/template --config ${CONFIG})

if(NOT DEFINED ENV{QT_QPA_PLATFORM})
  set(ENV{QT_QPA_PLATFORM} offscreen)
endif()
run(${consumer_build}/consumer)
if(EXISTS ${prefix}/bin/vlk_workbench)
  # The mesh is read by the program beside it.
  run(${prefix}/bin/vlk_workbench --screenshot ${WORK_DIR}/mesh.png ${SOURCE_DIR}/tests/workbench/meshes/cube_text.ply)
endif()
