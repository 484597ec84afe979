# What the programs have on Windows alone: a resource with icon, version and publisher, and what says that they
# scale and take long paths; and the libraries that they start with, beside them.

find_program(QFR_CONVERT convert REQUIRED DOC "Makes the icon (Debian: imagemagick)")
set(QFR_ICON ${CMAKE_BINARY_DIR}/qfrforms.ico)
set(pictures "")
foreach(size 16 24 32 48 64 128 256)
  list(APPEND pictures ${CMAKE_SOURCE_DIR}/app/icons/qfrforms-${size}.png)
endforeach()
add_custom_command(
  OUTPUT ${QFR_ICON}
  COMMAND ${QFR_CONVERT} ${pictures} ${QFR_ICON}
  DEPENDS ${pictures}
  VERBATIM)

# qfr_windows_program(PROGRAM DESCRIPTION)
function(qfr_windows_program program description)
  enable_language(RC)
  set(QFR_PROGRAM ${program})
  set(QFR_DESCRIPTION ${description})
  set(resource ${CMAKE_BINARY_DIR}/${program}.rc)
  configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/program.rc.in ${resource} @ONLY)
  set_source_files_properties(${resource} PROPERTIES OBJECT_DEPENDS
    "${QFR_ICON};${CMAKE_SOURCE_DIR}/packaging/windows/program.manifest")
  target_sources(${program} PRIVATE ${resource})
endfunction()

# Parts of programs and libraries begin with a page of their file, so that a start maps them and copies nothing.
set(QFR_PAGES --file-alignment=4096)
add_link_options(LINKER:${QFR_PAGES})

# Stripped, as they are shipped; what they are needed for comes last.
set(QFR_RUNTIME_FILES "")
# qfr_runtime(FOLDER FILES...)
function(qfr_runtime folder)
  foreach(file IN LISTS ARGN)
    get_filename_component(name ${file} NAME)
    set(placed ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${folder}${name})
    add_custom_command(
      OUTPUT ${placed}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${folder}
      COMMAND ${CMAKE_OBJCOPY} --strip-all ${QFR_PAGES} ${file} ${placed}
      DEPENDS ${file}
      VERBATIM)
    list(APPEND QFR_RUNTIME_FILES ${placed})
  endforeach()
  set(QFR_RUNTIME_FILES ${QFR_RUNTIME_FILES} PARENT_SCOPE)
endfunction()

# Every program starts with the compiler's.
foreach(name libgcc_s_seh-1.dll libstdc++-6.dll libwinpthread-1.dll)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}
                  OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE)
  qfr_runtime("" ${file})
endforeach()
if(QFR_BUILD_UI)
  foreach(library Core Gui Widgets Test)
    qfr_runtime("" ${QFR_WINDOWS_LIBRARIES}/bin/Qt6${library}.dll)
  endforeach()
  qfr_runtime(platforms/ ${QFR_WINDOWS_LIBRARIES}/plugins/platforms/qwindows.dll
              ${QFR_WINDOWS_LIBRARIES}/plugins/platforms/qoffscreen.dll)
  qfr_runtime(styles/ ${QFR_WINDOWS_LIBRARIES}/plugins/styles/qwindowsvistastyle.dll)
endif()

# The typeface of the forms, for systems that have none of its kind.
set(QFR_SHIPPED_FONT ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/fonts/LiberationSerif-Regular.ttf)
find_file(QFR_LIBERATION_SERIF LiberationSerif-Regular.ttf
  PATHS /usr/share/fonts/truetype/liberation NO_CMAKE_FIND_ROOT_PATH REQUIRED)
add_custom_command(
  OUTPUT ${QFR_SHIPPED_FONT}
  COMMAND ${CMAKE_COMMAND} -E copy ${QFR_LIBERATION_SERIF} ${QFR_SHIPPED_FONT}
  VERBATIM)
add_custom_target(qfr_runtime ALL DEPENDS ${QFR_RUNTIME_FILES} ${QFR_SHIPPED_FONT})
