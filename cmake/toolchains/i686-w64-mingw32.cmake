# 32-bit Windows (veksm6.dll) with MinGW-w64 (Debian: g++-mingw-w64-i686-posix); tests under
# 32-bit Wine (Debian: wine32:i386).
set(CMAKE_SYSTEM_PROCESSOR i686)
set(VEKS_CROSS_TRIPLE i686-w64-mingw32)
set(VEKS_WINE_LOADER /usr/lib/wine/wine CACHE FILEPATH "Wine loader for 32-bit programs")
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
