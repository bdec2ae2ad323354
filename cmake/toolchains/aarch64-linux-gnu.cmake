# aarch64 Linux with Debian's cross GCC (g++-aarch64-linux-gnu). Only the scalar kernels are
# compiled. Tests run under qemu-user with the cross toolchain's sysroot.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)

set(VEKS_CROSS_TRIPLE aarch64-linux-gnu)
set(CMAKE_C_COMPILER ${VEKS_CROSS_TRIPLE}-gcc)
set(CMAKE_CXX_COMPILER ${VEKS_CROSS_TRIPLE}-g++)

set(CMAKE_FIND_ROOT_PATH /usr/${VEKS_CROSS_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

find_program(VEKS_QEMU_AARCH64 qemu-aarch64 qemu-aarch64-static)
if(VEKS_QEMU_AARCH64)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${VEKS_QEMU_AARCH64} -L /usr/${VEKS_CROSS_TRIPLE})
endif()

set(VEKS_GTEST_SOURCE_DIR /usr/src/googletest CACHE PATH "GoogleTest sources to build the tests with")
