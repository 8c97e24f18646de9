# vlk_link_qt_first(<program>)
# The loader looks for each symbol in one library after the other, and most symbols are those of Qt. CMake puts a
# library behind all that need it, unless it is named by its file. To be called before the program is given others.
function(vlk_link_qt_first program)
  if(UNIX AND NOT APPLE)
    target_link_libraries(${program} PRIVATE $<TARGET_LINKER_FILE:Qt6::Widgets> $<TARGET_LINKER_FILE:Qt6::Gui>
      $<TARGET_LINKER_FILE:Qt6::Core>)
  endif()
endfunction()
