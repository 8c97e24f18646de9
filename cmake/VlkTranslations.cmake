# vlk_add_translations(<target> PREFIX <path> <file.ts>...)
# Compiles translations into the resources of a target, each as <path>/<file>.qm. Without lrelease the target speaks the
# language of its source only.
find_program(VLK_LRELEASE lrelease HINTS ${QT6_INSTALL_PREFIX}/${QT6_INSTALL_BINS} ${QT6_INSTALL_PREFIX}/lib/qt6/bin)
mark_as_advanced(VLK_LRELEASE)
if(NOT VLK_LRELEASE)
  message(STATUS "lrelease was not found: everything is in English only")
endif()

function(vlk_add_translations target)
  cmake_parse_arguments(arg "" "PREFIX" "" ${ARGN})
  if(NOT VLK_LRELEASE)
    return()
  endif()
  foreach(source IN LISTS arg_UNPARSED_ARGUMENTS)
    cmake_path(ABSOLUTE_PATH source)
    cmake_path(GET source STEM name)
    set(compiled ${CMAKE_CURRENT_BINARY_DIR}/translations/${name}.qm)
    add_custom_command(OUTPUT ${compiled}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_CURRENT_BINARY_DIR}/translations
      COMMAND ${VLK_LRELEASE} -silent ${source} -qm ${compiled}
      DEPENDS ${source} VERBATIM)
    qt_add_resources(${target} "${target}_${name}" PREFIX ${arg_PREFIX}
      BASE ${CMAKE_CURRENT_BINARY_DIR}/translations FILES ${compiled})
  endforeach()
endfunction()
