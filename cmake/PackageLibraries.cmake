# CPack reads this before it packs. Which packages hold the libraries of qfrbatch: it depends on those of
# the program and of the module of PDF files, and recommends those of the module of printers.
if(NOT CPACK_GENERATOR STREQUAL "DEB")
  return()
endif()
set(work ${CPACK_PACKAGE_DIRECTORY}/libraries)
file(WRITE ${work}/debian/control "")
execute_process(
  COMMAND dpkg-shlibdeps -O
    -dDepends ${CPACK_QFR_BIN}/qfrbatch ${CPACK_QFR_BIN}/qfr-pdf.so
    -dRecommends ${CPACK_QFR_BIN}/qfr-cups.so
  WORKING_DIRECTORY ${work}
  OUTPUT_VARIABLE libraries
  ERROR_VARIABLE reason
  RESULT_VARIABLE failed)
file(REMOVE_RECURSE ${work})
if(failed)
  message(FATAL_ERROR "${reason}")
endif()
foreach(field Depends Recommends)
  string(TOUPPER CPACK_DEBIAN_QFRBATCH_PACKAGE_${field} variable)
  if(libraries MATCHES "shlibs:${field}=([^\n]+)")
    string(APPEND ${variable} ", ${CMAKE_MATCH_1}")
  else()
    message(FATAL_ERROR "No library is found for the field ${field} of qfrbatch in: ${libraries}")
  endif()
endforeach()
