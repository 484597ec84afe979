# What an installation has beyond the programs and the example, and the Debian packages of all of it:
# qfrbatch for servers, and qfrforms for desktops, which needs the first.

# The commands are links: the programs find their files beside themselves.
foreach(program qfrforms qfrbatch)
  set(link ${CMAKE_BINARY_DIR}/links/${program})
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/links)
  file(CREATE_LINK ../${QFR_INSTALL_DIR}/${program} ${link} SYMBOLIC)
  install(FILES ${link} DESTINATION bin COMPONENT ${program})
endforeach()

foreach(size 16 24 32 48 64 128 256)
  install(FILES app/icons/qfrforms-${size}.png RENAME qfrforms.png
          DESTINATION share/icons/hicolor/${size}x${size}/apps COMPONENT qfrforms)
endforeach()
install(FILES app/icons/qfrforms.svg DESTINATION share/icons/hicolor/scalable/apps COMPONENT qfrforms)
install(FILES packaging/qfrforms.desktop DESTINATION share/applications COMPONENT qfrforms)
install(FILES packaging/qfrforms-mime.xml RENAME qfrforms.xml DESTINATION share/mime/packages
        COMPONENT qfrforms)
install(FILES packaging/qfrforms.metainfo.xml RENAME example.qfrforms.qfrforms.metainfo.xml
        DESTINATION share/metainfo COMPONENT qfrforms)

# qfr_compress(FILE NAME): makes NAME.gz of the file, the same bytes each time.
function(qfr_compress file name)
  set(compressed ${CMAKE_BINARY_DIR}/compressed/${name}.gz)
  add_custom_command(
    OUTPUT ${compressed}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/compressed
    COMMAND gzip -9nc ${CMAKE_SOURCE_DIR}/${file} > ${compressed}
    DEPENDS ${CMAKE_SOURCE_DIR}/${file}
    VERBATIM)
  set_property(GLOBAL APPEND PROPERTY QFR_COMPRESSED ${compressed})
endfunction()

qfr_compress(packaging/changelog changelog.Debian)
qfr_compress(CHANGELOG.md changelog)
foreach(package qfrforms qfrbatch)
  qfr_compress(packaging/${package}.1 ${package}.1)
  install(FILES ${CMAKE_BINARY_DIR}/compressed/${package}.1.gz DESTINATION share/man/man1
          COMPONENT ${package})
  install(FILES ${CMAKE_BINARY_DIR}/compressed/changelog.Debian.gz
                ${CMAKE_BINARY_DIR}/compressed/changelog.gz packaging/copyright
          DESTINATION share/doc/${package} COMPONENT ${package})
  # The packages come from the developers; no bug of Debian's tracker asked for them.
  file(WRITE ${CMAKE_BINARY_DIR}/overrides/${package} "${package}: initial-upload-closes-no-bugs *\n")
  install(FILES ${CMAKE_BINARY_DIR}/overrides/${package} DESTINATION share/lintian/overrides
          COMPONENT ${package})
endforeach()
install(FILES packaging/qfrforms-values.schema.json DESTINATION share/doc/qfrbatch COMPONENT qfrbatch)
get_property(compressedFiles GLOBAL PROPERTY QFR_COMPRESSED)
add_custom_target(qfr_compressed ALL DEPENDS ${compressedFiles})

set(CPACK_COMPONENTS_ALL qfrbatch qfrforms)
set(CPACK_COMPONENT_QFRFORMS_DEPENDS qfrbatch)
set(CPACK_PACKAGE_NAME qfrforms)
set(CPACK_PACKAGE_VENDOR "QFR Forms developers")
set(CPACK_PACKAGE_CONTACT "QFR Forms developers <qfrforms@qfrforms.example>")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_QFRBATCH_PACKAGE_NAME qfrbatch)
set(CPACK_DEBIAN_QFRFORMS_PACKAGE_NAME qfrforms)
set(CPACK_DEBIAN_QFRBATCH_PACKAGE_SOURCE qfrforms)

# The libraries, and what they load, follow from the programs; the typeface of the forms does not, nor
# one for the windows, without which a bare system shows them in a typewriter's. That one also has
# characters which the forms' typeface lacks. Fontconfig keeps the list of fonts for users without a home.
set(CPACK_DEBIAN_QFRBATCH_PACKAGE_DEPENDS fonts-liberation)
set(CPACK_DEBIAN_QFRBATCH_PACKAGE_RECOMMENDS "fontconfig, fonts-dejavu-core")
set(CPACK_DEBIAN_QFRFORMS_PACKAGE_DEPENDS fonts-dejavu-core)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS cups)
set(CPACK_DEBIAN_QFRFORMS_PACKAGE_SHLIBDEPS ON)
# CPack makes every library a condition. A server that prints into files needs no CUPS.
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_LIST_DIR}/PackageLibraries.cmake)
set(CPACK_QFR_BIN ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})

set(CPACK_DEBIAN_QFRBATCH_DESCRIPTION
    "report forms for volatile organics by GC/MS, without windows
qfrbatch turns the quantitation reports of a GC/MS laboratory into the
printed report forms for volatile organics under statement of work TQW04.2
(5/2005): Forms 1 VOA, 1 VOA-TIC, 2, 4, 5, 6, 7 and 8.
.
It puts reports together into batches and prints the forms of batches into
PDF files for the archive, or on the queues of CUPS. It needs no display,
and runs on servers and in containers.")
set(CPACK_DEBIAN_QFRFORMS_DESCRIPTION
    "report forms for volatile organics by GC/MS
QFR Forms turns the quantitation reports of a GC/MS laboratory into the
printed report forms for volatile organics under statement of work TQW04.2
(5/2005): Forms 1 VOA, 1 VOA-TIC, 2, 4, 5, 6, 7 and 8.
.
The reports are loaded as a batch, what they lack is typed, and each form is
printed on paper, into a PDF file or on the screen. The package qfrbatch does
the same without a display.")
include(CPack)
