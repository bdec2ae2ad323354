# Multi-ISA kernel sources.
#
# A kernel source named <family>_simd.cpp (anywhere under src/, beside its family's entry points)
# is compiled once per instruction-set level that the target has: as `scalar` (the reference:
# auto-vectorisation off), and on x86 as `sse2`, `avx2` (AVX2 + FMA) and `avx512` (F, BW, DQ, VL).
# VEKS_AVX512=OFF leaves the last level out: processors with AVX-512 then run the AVX2 kernels.
# Each compilation sees VEK_ISA (the namespace name) and VEK_ISA_LEVEL (0, 1, 2, 3), so the file
# writes its loops once over the vector layer (src/simd/vec.hpp), which holds every intrinsic; an
# operation a kernel needs and the layer lacks is added there, on every level.

if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|amd64|i[3-6]86|x86)$")
    set(VEKS_X86 ON)
else()
    set(VEKS_X86 OFF)
endif()

set(VEKS_ISA_LEVELS scalar)
set(VEKS_ISA_FLAGS_scalar -fno-tree-vectorize)
set(VEKS_ISA_NUMBER_scalar 0)
if(VEKS_X86)
    list(APPEND VEKS_ISA_LEVELS sse2 avx2)
    if(VEKS_AVX512)
        list(APPEND VEKS_ISA_LEVELS avx512)
    endif()
    set(VEKS_ISA_FLAGS_sse2 -msse2 -ftree-vectorize)
    set(VEKS_ISA_FLAGS_avx2 -mavx2 -mfma -ftree-vectorize)
    set(VEKS_ISA_NUMBER_sse2 1)
    set(VEKS_ISA_FLAGS_avx512 -mavx512f -mavx512bw -mavx512dq -mavx512vl -mfma
                              -mprefer-vector-width=512 -ftree-vectorize)
    set(VEKS_ISA_NUMBER_avx2 2)
    set(VEKS_ISA_NUMBER_avx512 3)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        # GCC 12's AVX-512 intrinsic headers leave some operands deliberately undefined and then
        # warn about them at -O2 (-Wuninitialized inside avx512fintrin.h). The same kernel source
        # is still checked for that warning by the other levels.
        list(APPEND VEKS_ISA_FLAGS_avx512 -Wno-uninitialized)
    endif()
    if(WIN32)
        # GCC cannot rely on 32- or 64-byte stack alignment on Windows (the ABI guarantees 16
        # bytes at most, and 4 on 32-bit), yet may spill vector registers with aligned moves.
        # Have the assembler emit those moves unaligned: same speed on aligned data, no fault.
        foreach(isa sse2 avx2 avx512)
            list(APPEND VEKS_ISA_FLAGS_${isa} -Wa,-muse-unaligned-vector-move)
        endforeach()
    endif()
endif()

# The other library sources (entry points, plans, objects) are built for the baseline without
# straight-line vectorisation: it packs two scalar results into one vector through a stack slot
# (two 8-byte stores read back as one 16-byte load, e.g. a complex double result converted to
# complex float), and that load waits a dozen cycles for the stores to reach the cache, longer
# than a short call's whole kernel.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    set(VEKS_ENTRY_FLAGS -fno-tree-slp-vectorize)
elseif(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    set(VEKS_ENTRY_FLAGS -fno-slp-vectorize)
else()
    set(VEKS_ENTRY_FLAGS)
endif()

# Replaces every *_simd.cpp in the list by one generated wrapper per ISA level.
function(veks_filter_kernel_sources out_var)
    set(result)
    foreach(src IN LISTS ${out_var})
        if(src MATCHES "_simd\\.cpp$")
            # The wrapper keeps the source's path below src/, so that equal file names in two
            # family folders cannot collide.
            file(RELATIVE_PATH rel ${PROJECT_SOURCE_DIR}/src ${src})
            string(REGEX REPLACE "\\.cpp$" "" rel ${rel})
            foreach(isa IN LISTS VEKS_ISA_LEVELS)
                set(wrapper ${PROJECT_BINARY_DIR}/kernels/${rel}_${isa}.cpp)
                set(content "// Generated: ${rel} compiled for ${isa}.\n#define VEK_ISA ${isa}\n#define VEK_ISA_LEVEL ${VEKS_ISA_NUMBER_${isa}}\n#include \"${src}\"\n")
                if(EXISTS ${wrapper})
                    file(READ ${wrapper} old)
                else()
                    set(old "")
                endif()
                if(NOT old STREQUAL content)
                    file(WRITE ${wrapper} "${content}")
                endif()
                set_source_files_properties(${wrapper} PROPERTIES
                    COMPILE_OPTIONS "${VEKS_ISA_FLAGS_${isa}}"
                    OBJECT_DEPENDS ${src})
                list(APPEND result ${wrapper})
            endforeach()
        else()
            set_source_files_properties(${src} PROPERTIES COMPILE_OPTIONS "${VEKS_ENTRY_FLAGS}")
            list(APPEND result ${src})
        endif()
    endforeach()
    set(${out_var} ${result} PARENT_SCOPE)
endfunction()
