# Cross-building for 64-bit Windows with Debian's mingw-w64.
set(QXTOOLS_TRIPLET x86_64-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
