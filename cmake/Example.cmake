# The example batch and a first QFRpaths.txt, which the programs look for beside themselves, so that the
# file dialogs of a fresh build or installation start in the example.

file(GLOB QFR_EXAMPLE_FILES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/example/*)
list(FILTER QFR_EXAMPLE_FILES EXCLUDE REGEX "/\\.[^/]*$")
set(QFR_PLACED_FILES ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/QFRpaths.txt)

# It depends on nothing: once it is there, it is the user's.
add_custom_command(
  OUTPUT ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/QFRpaths.txt
  COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_SOURCE_DIR}/packaging/QFRpaths.txt
          ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/QFRpaths.txt
  VERBATIM)

foreach(file IN LISTS QFR_EXAMPLE_FILES)
  get_filename_component(name ${file} NAME)
  set(placed ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/example/${name})
  add_custom_command(
    OUTPUT ${placed}
    COMMAND ${CMAKE_COMMAND} -E copy ${file} ${placed}
    DEPENDS ${file}
    VERBATIM)
  list(APPEND QFR_PLACED_FILES ${placed})
endforeach()
add_custom_target(qfr_example ALL DEPENDS ${QFR_PLACED_FILES})

# Where the programs are installed, below the installation prefix.
set(QFR_INSTALL_DIR lib/qfrforms CACHE STRING "Directory of the installed programs and their files")
foreach(program qfrbatch qfr-pdf qfr-cups)
  if(TARGET ${program})
    install(TARGETS ${program} DESTINATION ${QFR_INSTALL_DIR} COMPONENT qfrbatch)
  endif()
endforeach()
install(FILES ${CMAKE_SOURCE_DIR}/packaging/QFRpaths.txt DESTINATION ${QFR_INSTALL_DIR}
        COMPONENT qfrbatch)
install(FILES ${QFR_EXAMPLE_FILES} DESTINATION ${QFR_INSTALL_DIR}/example COMPONENT qfrbatch)
install(TARGETS qfrforms DESTINATION ${QFR_INSTALL_DIR} COMPONENT qfrforms)
if(QFR_HELP_FILE)
  install(FILES ${QFR_HELP_FILE} DESTINATION ${QFR_INSTALL_DIR} COMPONENT qfrforms)
endif()
