# Cross-building for 32-bit Windows with Debian's mingw-w64.
set(QXTOOLS_TRIPLET i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
