# What an installation has beyond the programs and the example, and the Debian package of all of it.

# The commands are links: the programs find their files beside themselves.
foreach(program qfrforms qfrbatch)
  set(link ${CMAKE_BINARY_DIR}/links/${program})
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/links)
  file(CREATE_LINK ../${QFR_INSTALL_DIR}/${program} ${link} SYMBOLIC)
  install(FILES ${link} DESTINATION bin)
endforeach()

foreach(size 16 24 32 48 64 128 256)
  install(FILES app/icons/qfrforms-${size}.png RENAME qfrforms.png
          DESTINATION share/icons/hicolor/${size}x${size}/apps)
endforeach()
install(FILES app/icons/qfrforms.svg DESTINATION share/icons/hicolor/scalable/apps)
install(FILES packaging/qfrforms.desktop DESTINATION share/applications)
install(FILES packaging/qfrforms-mime.xml RENAME qfrforms.xml DESTINATION share/mime/packages)
install(FILES packaging/qfrforms.metainfo.xml RENAME example.qfrforms.qfrforms.metainfo.xml
        DESTINATION share/metainfo)

# qfr_install_compressed(FILE NAME DIRECTORY): the file is installed as NAME.gz, the same bytes each time.
function(qfr_install_compressed file name directory)
  set(compressed ${CMAKE_BINARY_DIR}/compressed/${name}.gz)
  add_custom_command(
    OUTPUT ${compressed}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/compressed
    COMMAND gzip -9nc ${CMAKE_SOURCE_DIR}/${file} > ${compressed}
    DEPENDS ${CMAKE_SOURCE_DIR}/${file}
    VERBATIM)
  set_property(GLOBAL APPEND PROPERTY QFR_COMPRESSED ${compressed})
  install(FILES ${compressed} DESTINATION ${directory})
endfunction()

qfr_install_compressed(packaging/qfrforms.1 qfrforms.1 share/man/man1)
qfr_install_compressed(packaging/qfrbatch.1 qfrbatch.1 share/man/man1)
qfr_install_compressed(packaging/changelog changelog.Debian share/doc/qfrforms)
qfr_install_compressed(CHANGELOG.md changelog share/doc/qfrforms)
install(FILES packaging/copyright packaging/qfrforms-values.schema.json
        DESTINATION share/doc/qfrforms)
install(FILES packaging/lintian-overrides RENAME qfrforms DESTINATION share/lintian/overrides)
get_property(compressedFiles GLOBAL PROPERTY QFR_COMPRESSED)
add_custom_target(qfr_compressed ALL DEPENDS ${compressedFiles})

set(CPACK_PACKAGE_NAME qfrforms)
set(CPACK_PACKAGE_VENDOR "QFR Forms developers")
set(CPACK_PACKAGE_CONTACT "QFR Forms developers <qfrforms@qfrforms.example>")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# The libraries, and what they load, follow from the programs; the typeface of the forms does not, nor
# one for the windows, without which a bare system shows them in a typewriter's.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-dejavu-core, fonts-liberation")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS cups)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "report forms for volatile organics by GC/MS")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "QFR Forms turns the quantitation reports of a GC/MS laboratory into the
printed report forms for volatile organics under statement of work TQW04.2
(5/2005): Forms 1 VOA, 1 VOA-TIC, 2, 4, 5, 6, 7 and 8.
.
The reports are loaded as a batch, what they lack is typed, and each form is
printed on paper, into a PDF file or on the screen. qfrbatch does the same
without a display.")
include(CPack)
