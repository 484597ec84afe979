# The revision that the about box tells. It is asked for at every build, and only a new one compiles
# anything.

set(QFR_REVISION_SOURCE ${CMAKE_BINARY_DIR}/Revision.cpp)

if(CMAKE_SCRIPT_MODE_FILE)
  set(QFR_REVISION "")
  find_program(QFR_GIT git)
  # An archive of the source may have been unpacked inside somebody else's repository.
  if(QFR_GIT AND EXISTS ${QFR_SOURCE_DIR}/.git)
    execute_process(
      COMMAND ${QFR_GIT} -C ${QFR_SOURCE_DIR} describe --always --tags --dirty
      OUTPUT_VARIABLE QFR_REVISION
      OUTPUT_STRIP_TRAILING_WHITESPACE
      ERROR_QUIET)
  endif()
  configure_file(${QFR_SOURCE_DIR}/app/Revision.cpp.in ${QFR_REVISION_SOURCE} @ONLY)
  return()
endif()

add_custom_target(qfr_revision
  COMMAND ${CMAKE_COMMAND} -DQFR_SOURCE_DIR=${CMAKE_SOURCE_DIR} -P ${CMAKE_CURRENT_LIST_FILE}
  BYPRODUCTS ${QFR_REVISION_SOURCE}
  WORKING_DIRECTORY ${CMAKE_BINARY_DIR}
  COMMENT "Asking for the revision"
  VERBATIM)
