# 32-bit x86 Linux with the host's multilib GCC (Debian: g++-12-multilib).
# The binaries run natively on an x86-64 kernel, so no emulator is needed.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_LIBRARY_ARCHITECTURE i386-linux-gnu)

set(CMAKE_C_COMPILER gcc)
set(CMAKE_CXX_COMPILER g++)
set(_veks_m32 "-m32")
# Debian's gcc-multilib metapackage (which conflicts with the cross compilers we also install)
# is what links /usr/include/asm to the kernel's x86 headers; those headers serve both 32- and
# 64-bit builds. Without that package, give -m32 builds the same link from the build tree.
if(NOT EXISTS /usr/include/asm AND EXISTS /usr/include/x86_64-linux-gnu/asm)
    set(_veks_sysinclude ${CMAKE_BINARY_DIR}/i686-sysinclude)
    if(NOT EXISTS ${_veks_sysinclude}/asm)
        file(MAKE_DIRECTORY ${_veks_sysinclude})
        file(CREATE_LINK /usr/include/x86_64-linux-gnu/asm ${_veks_sysinclude}/asm SYMBOLIC)
    endif()
    string(APPEND _veks_m32 " -idirafter ${_veks_sysinclude}")
endif()
set(CMAKE_C_FLAGS_INIT "${_veks_m32}")
set(CMAKE_CXX_FLAGS_INIT "${_veks_m32}")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-m32")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-m32")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-m32")

# GoogleTest has to be built for this target: take Debian's sources (libgtest-dev).
set(VEKS_GTEST_SOURCE_DIR /usr/src/googletest CACHE PATH "GoogleTest sources to build the tests with")
