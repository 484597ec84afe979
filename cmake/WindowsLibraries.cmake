# What writes PDF files, of the libraries that packaging/windows/build-libraries.sh has made. They come with
# no description that CMake could use, but for qpdf.
set(ZLIB_USE_STATIC_LIBS ON)
find_package(ZLIB REQUIRED)

find_path(QFR_HARFBUZZ_DIR hb-subset.h PATH_SUFFIXES harfbuzz REQUIRED)
find_library(QFR_HARFBUZZ harfbuzz REQUIRED)
find_library(QFR_HARFBUZZ_SUBSET harfbuzz-subset REQUIRED)
add_library(QFRHarfBuzz INTERFACE)
add_library(PkgConfig::HarfBuzz ALIAS QFRHarfBuzz)
target_include_directories(QFRHarfBuzz SYSTEM INTERFACE ${QFR_HARFBUZZ_DIR})
# Both hold what they share, so that the second one only gives what the first one lacks.
target_link_libraries(QFRHarfBuzz INTERFACE ${QFR_HARFBUZZ} ${QFR_HARFBUZZ_SUBSET})

set(QFR_SYSTEM_FONTS dwrite)
