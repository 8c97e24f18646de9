# Warnings, sanitizers and definitions shared by every target of the project.
function(vlk_target_options target)
  target_compile_definitions(${target} PRIVATE QT_NO_KEYWORDS QT_NO_FOREACH QT_DEPRECATED_WARNINGS)
  if(MSVC)
    target_compile_options(${target} PRIVATE /W4 /permissive-)
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
  target_precompile_headers(${target} PRIVATE ${VLK_PRECOMPILED_HEADERS})
endfunction()

set(VLK_PRECOMPILED_HEADERS
  <QtCore/QHash> <QtCore/QList> <QtCore/QMap> <QtCore/QObject> <QtCore/QPointer> <QtCore/QString>
  <QtCore/QStringList> <QtCore/QVariant>
  <algorithm> <functional> <memory> <string> <utility> <vector>)
