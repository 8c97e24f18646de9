# vlk_target_options(<target> [PRECOMPILE <header>...] [PRECOMPILED_BY <target>])
# Warnings, sanitizers and definitions shared by every target of the project, and its precompiled headers: the
# common ones and those named, or those of another target of the same kind.
function(vlk_target_options target)
  cmake_parse_arguments(arg "" "PRECOMPILED_BY" "PRECOMPILE" ${ARGN})
  target_compile_definitions(${target} PRIVATE QT_NO_KEYWORDS QT_NO_FOREACH QT_DEPRECATED_WARNINGS)
  if(MSVC)
    target_compile_options(${target} PRIVATE /W4 /permissive- /utf-8 /bigobj /Zc:__cplusplus)
    target_compile_definitions(${target} PRIVATE NOMINMAX)
  else()
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
      # gcc looks for precompiled headers by time stamp and reports every one that ccache restored.
      target_compile_options(${target} PRIVATE -fpch-preprocess)
    endif()
  endif()
  if(VLK_WARNINGS_AS_ERRORS)
    set_target_properties(${target} PROPERTIES COMPILE_WARNING_AS_ERROR ON)
  endif()
  if(VLK_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${VLK_SANITIZE} -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=${VLK_SANITIZE})
    if(VLK_SANITIZE MATCHES "undefined")
      target_compile_options(${target} PRIVATE -fno-sanitize-recover=undefined)
    endif()
  endif()
  if(arg_PRECOMPILED_BY)
    target_precompile_headers(${target} REUSE_FROM ${arg_PRECOMPILED_BY})
  else()
    target_precompile_headers(${target} PRIVATE ${VLK_PRECOMPILED_HEADERS} ${arg_PRECOMPILE})
  endif()
endfunction()

set(VLK_PRECOMPILED_HEADERS
  <QtCore/QHash> <QtCore/QList> <QtCore/QMap> <QtCore/QObject> <QtCore/QPointer> <QtCore/QString>
  <QtCore/QStringList> <QtCore/QVariant>
  <algorithm> <functional> <memory> <string> <utility> <vector>)
