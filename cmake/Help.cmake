# The help file, compiled beside the programs, where they look for it.

# Its project file says which page each context number has. The compiler turns that into paths of the
# build directory, which no viewer can follow, so the program gets the pages as a source.
set(project ${CMAKE_SOURCE_DIR}/help/QFRHelp.hhp)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${project})
file(STRINGS ${project} topics REGEX "^#define ")
set(QFR_HELP_CASES "")
foreach(topic IN LISTS topics)
  string(REGEX MATCH "^#define ([A-Z0-9_]+) ([0-9]+)$" topic "${topic}")
  set(number ${CMAKE_MATCH_2})
  file(STRINGS ${project} page REGEX "^${CMAKE_MATCH_1}=")
  string(REGEX REPLACE "^.*=" "" page "${page}")
  list(APPEND QFR_HELP_CASES "        case ${number}:" "            return \"${page}\"$<SEMICOLON>")
endforeach()
list(JOIN QFR_HELP_CASES "\n" QFR_HELP_CASES)
string(REPLACE "$<SEMICOLON>" ";" QFR_HELP_CASES "${QFR_HELP_CASES}")
set(QFR_HELP_TOPICS ${CMAKE_BINARY_DIR}/HelpTopics.cpp)
configure_file(platform/qt/HelpTopics.cpp.in ${QFR_HELP_TOPICS} @ONLY)

find_program(QFR_CHMCMD chmcmd DOC "Compiler of the help file (Debian: fp-utils)")
set(QFR_HELP_DIGEST_SOURCE ${CMAKE_BINARY_DIR}/HelpDigest.cpp)
if(NOT QFR_CHMCMD)
  message(WARNING "chmcmd was not found: the programs are built without their help file.")
  set(QFR_HELP_DIGEST "")
  configure_file(platform/qt/HelpDigest.cpp.in ${QFR_HELP_DIGEST_SOURCE} @ONLY)
  return()
endif()

file(GLOB QFR_HELP_SOURCES CONFIGURE_DEPENDS
  ${CMAKE_SOURCE_DIR}/help/*.*
  ${CMAKE_SOURCE_DIR}/help/pictures/*.png)
set(QFR_HELP_FILE ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/QFRHelp.chm)

# The compiler writes beside what it reads, so it works on a copy.
add_custom_command(
  OUTPUT ${QFR_HELP_FILE} ${QFR_HELP_DIGEST_SOURCE}
  COMMAND ${CMAKE_COMMAND} -E rm -rf help
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${CMAKE_SOURCE_DIR}/help help
  COMMAND ${CMAKE_COMMAND} -E chdir help ${QFR_CHMCMD} --verbosity 0 QFRHelp.hhp
  COMMAND ${CMAKE_COMMAND} -E copy help/QFRHelp.chm ${QFR_HELP_FILE}
  COMMAND ${CMAKE_COMMAND} -DQFR_SOURCE_DIR=${CMAKE_SOURCE_DIR} -DQFR_HELP_FILE=${QFR_HELP_FILE}
          -P ${CMAKE_SOURCE_DIR}/cmake/HelpDigest.cmake
  DEPENDS ${QFR_HELP_SOURCES} platform/qt/HelpDigest.cpp.in cmake/HelpDigest.cmake
  WORKING_DIRECTORY ${CMAKE_BINARY_DIR}
  COMMENT "Compiling the help file"
  VERBATIM)
add_custom_target(qfr_help ALL DEPENDS ${QFR_HELP_FILE})
