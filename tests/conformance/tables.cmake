# Generates the conformance harness's tables from the sources of truth: the export table (one
# entry per name of src/veks.exports, typed by its declaration) and the text of the public
# headers (from which the harness reads parameter names). Run at build time as
#   cmake -DEXPORTS=<src/veks.exports> -DINCLUDE_DIR=<include> -DOUT_DIR=<dir> -P tables.cmake
cmake_policy(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/../../cmake/VeksExports.cmake)

function(write_if_changed file content)
    if(EXISTS ${file})
        file(READ ${file} old)
        if(old STREQUAL content)
            return()
        endif()
    endif()
    file(WRITE ${file} "${content}")
endfunction()

veks_read_export_list(${EXPORTS} names)
set(table "")
foreach(n IN LISTS names)
    string(APPEND table "entry(\"${n}\", &${n}),\n")
endforeach()
write_if_changed(${OUT_DIR}/conformance_exports.inc "${table}")

file(GLOB headers ${INCLUDE_DIR}/*.h)
list(SORT headers)
set(texts "const HeaderText kHeaders[] = {\n")
foreach(h IN LISTS headers)
    get_filename_component(name ${h} NAME)
    file(READ ${h} text)
    string(APPEND texts "{\"${name}\", R\"veks_header(${text})veks_header\"},\n")
endforeach()
string(APPEND texts "};\n")
write_if_changed(${OUT_DIR}/conformance_headers.inc "${texts}")
