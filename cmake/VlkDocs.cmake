# The target "docs": the API reference, where doxygen is installed. What has no documentation is reported.
find_program(VLK_DOXYGEN doxygen)
mark_as_advanced(VLK_DOXYGEN)
if(NOT VLK_DOXYGEN)
  return()
endif()

get_property(public_headers GLOBAL PROPERTY VLK_PUBLIC_HEADERS)
# Private companions are installed for subclasses, which is no reason to read them.
list(FILTER public_headers EXCLUDE REGEX "_(p|export)\\.h$")
file(GLOB pages LIST_DIRECTORIES false RELATIVE ${PROJECT_SOURCE_DIR} CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/docs/*.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
# The index is for readers of the folder; the reference has its own.
list(REMOVE_ITEM pages docs/README.md)
list(JOIN public_headers " " public_headers)
list(JOIN pages " " pages)

file(READ ${PROJECT_SOURCE_DIR}/docs/Doxyfile doxyfile)
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/docs/Doxyfile @ONLY CONTENT "${doxyfile}
INPUT = README.md @pages@ @public_headers@
PROJECT_NUMBER = @PROJECT_VERSION@
OUTPUT_DIRECTORY = \"@PROJECT_BINARY_DIR@/docs\"
WARN_LOGFILE = \"@PROJECT_BINARY_DIR@/docs/warnings.txt\"
")
add_custom_target(docs
  COMMAND ${VLK_DOXYGEN} ${PROJECT_BINARY_DIR}/docs/Doxyfile
  COMMAND ${CMAKE_COMMAND} -E cat ${PROJECT_BINARY_DIR}/docs/warnings.txt
  WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
  COMMENT "Writing the API reference to ${PROJECT_BINARY_DIR}/docs/html"
  VERBATIM)

find_program(VLK_BASH bash)
mark_as_advanced(VLK_BASH)
if(VLK_BUILD_TESTS AND VLK_BASH)
  add_test(NAME api_reference
    COMMAND ${VLK_BASH} ${PROJECT_SOURCE_DIR}/scripts/check_docs.sh ${PROJECT_BINARY_DIR}/docs/Doxyfile
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
endif()
