# The conformance harness veks_conformance_harness, shared by the conformance suite (tests/) and
# the fuzzer (fuzz/), whichever asks first building it: the engine, the family rules (every
# rules_*.cpp of this folder) and the tables generated from src/veks.exports and include/*.h.
set(VEKS_CONF_DIR ${CMAKE_CURRENT_LIST_DIR})

function(veks_add_conformance_harness)
    set(target veks_conformance_harness)
    if(TARGET ${target})
        return()
    endif()
    set(gen ${CMAKE_CURRENT_BINARY_DIR}/${target}_gen)
    file(MAKE_DIRECTORY ${gen})
    file(GLOB headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/include/*.h)
    add_custom_command(
        OUTPUT ${gen}/conformance_exports.inc ${gen}/conformance_headers.inc
        COMMAND ${CMAKE_COMMAND} -DEXPORTS=${PROJECT_SOURCE_DIR}/src/veks.exports
                -DINCLUDE_DIR=${PROJECT_SOURCE_DIR}/include -DOUT_DIR=${gen}
                -P ${VEKS_CONF_DIR}/tables.cmake
        DEPENDS ${PROJECT_SOURCE_DIR}/src/veks.exports ${headers} ${VEKS_CONF_DIR}/tables.cmake
        COMMENT "Conformance tables from the export list and the headers")
    file(GLOB rules CONFIGURE_DEPENDS ${VEKS_CONF_DIR}/rules_*.cpp)
    # An object library: every rules file registers itself from a static object, which a static
    # archive would drop.
    add_library(${target} OBJECT ${VEKS_CONF_DIR}/harness.cpp ${VEKS_CONF_DIR}/heap.cpp
                                 ${VEKS_CONF_DIR}/match.cpp ${rules}
                                 ${gen}/conformance_exports.inc ${gen}/conformance_headers.inc)
    target_include_directories(${target} PUBLIC ${VEKS_CONF_DIR} ${PROJECT_SOURCE_DIR}/tests
                                         PRIVATE ${gen})
    target_link_libraries(${target} PUBLIC veks_internal veks_flags)
    veks_check_code(${target})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # GCC 12 warns about std::function members inside std::regex under the sanitizers
        # (-Wmaybe-uninitialized in libstdc++'s own headers).
        set_source_files_properties(${VEKS_CONF_DIR}/match.cpp PROPERTIES
                                    COMPILE_OPTIONS -Wno-maybe-uninitialized)
    endif()
    # ELF targets see the library's heap requests (--wrap=malloc, --wrap=free): object memory is
    # compared byte for byte, leaks are seen per call and allocations can be made to fail.
    if(CMAKE_EXECUTABLE_FORMAT STREQUAL "ELF")
        target_compile_definitions(${target} PUBLIC VEKS_CONF_WRAPPED_MALLOC=1)
        target_link_options(${target} INTERFACE "LINKER:--wrap=malloc" "LINKER:--wrap=free")
    else()
        target_compile_definitions(${target} PUBLIC VEKS_CONF_WRAPPED_MALLOC=0)
    endif()
endfunction()
