# What is shipped for Windows: an installer, and an archive of the same files that runs where it is unpacked.
# Programs, libraries and what they look for beside themselves lie in one folder.

install(DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/platforms ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/styles
        ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/fonts DESTINATION . PATTERN qoffscreen.dll EXCLUDE)
set(libraries ${QFR_RUNTIME_FILES})
list(FILTER libraries EXCLUDE REGEX "/(platforms|styles)/|Qt6Test")
install(FILES ${libraries} DESTINATION .)
install(FILES packaging/copyright DESTINATION . RENAME copyright.txt)
# Those of what comes along, as far as this system has them.
foreach(package fonts-liberation qt6-base-dev libqpdf-dev libharfbuzz-dev libchm-dev libz-mingw-w64-dev
        gcc-mingw-w64-x86-64-posix)
  install(FILES /usr/share/doc/${package}/copyright DESTINATION licenses RENAME ${package}.txt OPTIONAL)
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
