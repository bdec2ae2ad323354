# 64-bit Windows with MinGW-w64 (Debian: g++-mingw-w64-x86-64-posix); tests under 64-bit Wine
# (Debian: wine64, whose loader is not on the PATH).
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(VEKS_CROSS_TRIPLE x86_64-w64-mingw32)
set(VEKS_WINE_LOADER /usr/lib/wine/wine64 CACHE FILEPATH "Wine loader for 64-bit programs")
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
