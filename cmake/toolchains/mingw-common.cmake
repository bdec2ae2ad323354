# Shared part of the MinGW-w64 toolchains; include after setting VEKS_CROSS_TRIPLE and
# VEKS_WINE_LOADER. Uses the posix-threads variant of the cross GCC, links libgcc, libstdc++ and
# winpthread statically (the DLL and the test programs need no runtime DLLs), and runs the test
# programs under Wine in a private prefix inside the build directory.
set(CMAKE_SYSTEM_NAME Windows)

find_program(VEKS_MINGW_CC NAMES ${VEKS_CROSS_TRIPLE}-gcc-posix ${VEKS_CROSS_TRIPLE}-gcc)
find_program(VEKS_MINGW_CXX NAMES ${VEKS_CROSS_TRIPLE}-g++-posix ${VEKS_CROSS_TRIPLE}-g++)
set(CMAKE_C_COMPILER ${VEKS_MINGW_CC})
set(CMAKE_CXX_COMPILER ${VEKS_MINGW_CXX})
set(CMAKE_RC_COMPILER ${VEKS_CROSS_TRIPLE}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${VEKS_CROSS_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static")

set(VEKS_WINEPREFIX "${CMAKE_BINARY_DIR}/wineprefix" CACHE PATH "Wine prefix the tests run in")
if(EXISTS ${VEKS_WINE_LOADER})
    set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_COMMAND} -E env WINEDEBUG=-all
        WINEPREFIX=${VEKS_WINEPREFIX} WINEDLLOVERRIDES=mscoree,mshtml= ${VEKS_WINE_LOADER})
endif()

set(VEKS_GTEST_SOURCE_DIR /usr/src/googletest CACHE PATH "GoogleTest sources to build the tests with")
