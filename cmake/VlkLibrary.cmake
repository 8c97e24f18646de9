# vlk_add_library(<target>
#   EXPORT_NAME <Name>           the alias and installed name is Vela::<Name>
#   INCLUDE_DIR <dir>            folder name used in includes: #include <dir/header.h>
#   EXPORT_MACRO <MACRO>         in the generated <dir>/<dir>_export.h
#   SOURCES <file>...            sources and private headers
#   HEADERS <file>...            public headers; installed below include/<dir>
#   PUBLIC <target>...           link interface
#   PRIVATE <target>...
#   PRECOMPILE <header>...)      beside the headers precompiled everywhere
#
# Makes a shared library with hidden visibility and a generated export header, and installs it with its headers.
include(GenerateExportHeader)

function(vlk_add_library target)
  cmake_parse_arguments(arg "" "EXPORT_NAME;INCLUDE_DIR;EXPORT_MACRO" 
    "SOURCES;HEADERS;PUBLIC;PRIVATE;PRECOMPILE" ${ARGN})

  add_library(${target} SHARED ${arg_SOURCES} ${arg_HEADERS})
  add_library(Vela::${arg_EXPORT_NAME} ALIAS ${target})
  vlk_target_options(${target} PRECOMPILE ${arg_PRECOMPILE})

  set(generated ${PROJECT_BINARY_DIR}/generated)
  set(export_header ${generated}/${arg_INCLUDE_DIR}/${arg_INCLUDE_DIR}_export.h)
  generate_export_header(${target}
    BASE_NAME ${arg_INCLUDE_DIR} EXPORT_MACRO_NAME ${arg_EXPORT_MACRO} EXPORT_FILE_NAME ${export_header})

  # The folder that holds <INCLUDE_DIR>/ is the include root.
  cmake_path(GET CMAKE_CURRENT_SOURCE_DIR PARENT_PATH include_root)
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${include_root}>
    $<BUILD_INTERFACE:${generated}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_link_libraries(${target} PUBLIC ${arg_PUBLIC} PRIVATE ${arg_PRIVATE})
  if(UNIX AND NOT APPLE)
    # A library calls its own functions without looking for others of the same name, as those of Qt do: programs
    # load sooner.
    target_link_options(${target} PRIVATE LINKER:-Bsymbolic-functions)
  endif()
  set_target_properties(${target} PROPERTIES
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} EXPORT_NAME ${arg_EXPORT_NAME}
    # Installed libraries find one another wherever the tree was unpacked.
    INSTALL_RPATH $<IF:$<PLATFORM_ID:Darwin>,@loader_path,$ORIGIN>)
  list(TRANSFORM arg_HEADERS PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ OUTPUT_VARIABLE public_headers)
  set_property(GLOBAL APPEND PROPERTY VLK_PUBLIC_HEADERS ${public_headers} ${export_header})

  install(TARGETS ${target} EXPORT vlk_ui_base_targets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
  foreach(header IN LISTS arg_HEADERS)
    cmake_path(GET header PARENT_PATH folder)
    install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${arg_INCLUDE_DIR}/${folder}
      COMPONENT development)
  endforeach()
  install(FILES ${export_header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${arg_INCLUDE_DIR} COMPONENT development)
  vlk_install_pkg_config(${target} "${arg_PUBLIC}")
endfunction()

# vlk_install_pkg_config(<target> <libraries of its link interface>)
# <target>.pc, which finds the library wherever the tree was unpacked.
function(vlk_install_pkg_config target libraries)
  # Qt6::Widgets is Qt6Widgets there; a library of this project is named like its target.
  string(REPLACE "::" "" requires "${libraries}")
  list(JOIN requires ", " requires)
  cmake_path(RELATIVE_PATH CMAKE_INSTALL_FULL_INCLUDEDIR BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig
    OUTPUT_VARIABLE includes)
  set(file ${CMAKE_CURRENT_BINARY_DIR}/${target}.pc)
  file(CONFIGURE OUTPUT ${file} @ONLY CONTENT [[
libdir=${pcfiledir}/..
includedir=${pcfiledir}/@includes@

Name: @target@
Description: @PROJECT_DESCRIPTION@
Version: @PROJECT_VERSION@
Requires: @requires@
Cflags: -I${includedir}
Libs: -L${libdir} -l@target@
]])
  install(FILES ${file} DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endfunction()
