# Writes the digest of the help file into a source of the program, in the current directory.

file(SHA256 ${QFR_HELP_FILE} QFR_HELP_DIGEST)
configure_file(${QFR_SOURCE_DIR}/platform/qt/HelpDigest.cpp.in ${CMAKE_BINARY_DIR}/HelpDigest.cpp @ONLY)
