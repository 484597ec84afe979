# What is shipped for Windows: an installer, and an archive of the same files that runs where it is unpacked.
# Programs, libraries and what they look for beside themselves lie in one folder.

install(DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/platforms ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/styles
        ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/fonts DESTINATION . PATTERN qoffscreen.dll EXCLUDE)
set(libraries ${QFR_RUNTIME_FILES})
list(FILTER libraries EXCLUDE REGEX "/(platforms|styles)/|Qt6Test")
install(FILES ${libraries} DESTINATION .)
install(FILES packaging/copyright DESTINATION . RENAME copyright.txt)
# What comes along has its licences there; the packages are those that it is built from.
install(FILES packaging/windows/licences.txt DESTINATION licences RENAME README.txt)
foreach(entry Qt:qt6-base-dev qpdf:libqpdf-dev libjpeg-turbo:libjpeg62-turbo HarfBuzz:libharfbuzz-dev
        zlib:libz-mingw-w64-dev CHMLib:libchm-dev GCC:gcc-mingw-w64-x86-64-posix MinGW-w64:mingw-w64-x86-64-dev
        Liberation:fonts-liberation)
  string(REPLACE ":" ";" entry ${entry})
  list(GET entry 0 name)
  list(GET entry 1 package)
  install(FILES /usr/share/doc/${package}/copyright DESTINATION licences RENAME ${name}.txt)
endforeach()
foreach(licence LGPL-3 LGPL-2.1 GPL-3 GPL-2 Apache-2.0)
  install(FILES /usr/share/common-licenses/${licence} DESTINATION licences RENAME ${licence}.txt)
endforeach()

list(APPEND CMAKE_MODULE_PATH ${CMAKE_SOURCE_DIR}/packaging/windows)
set(CPACK_MONOLITHIC_INSTALL ON)
set(CPACK_PACKAGE_NAME qfrforms)
set(CPACK_PACKAGE_VENDOR "QFR Forms developers")
set(CPACK_PACKAGE_FILE_NAME qfrforms-${PROJECT_VERSION}-windows)
set(CPACK_PACKAGE_INSTALL_DIRECTORY "QFR Forms")
set(CPACK_PACKAGE_INSTALL_REGISTRY_KEY QFRForms)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)
set(CPACK_STRIP_FILES ON)
set(CPACK_NSIS_MUI_ICON ${QFR_ICON})
include(CPack)
