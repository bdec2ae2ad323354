# The HTML reference: Doxygen over the public headers and the pages in docs/. Warnings are
# errors, so an undocumented export fails the `docs` target. Enabled with -DVEKS_BUILD_DOCS=ON;
# the output goes to <build>/docs/html and is installed with the dev component.
if(NOT VEKS_BUILD_DOCS)
    return()
endif()
find_package(Doxygen REQUIRED)
file(GLOB VEKS_DOC_PAGES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/*.md)
# ARCHITECTURE.md is a page for the developers of the library, not part of the reference.
list(FILTER VEKS_DOC_PAGES EXCLUDE REGEX "/ARCHITECTURE\\.md$")
file(GLOB VEKS_DOC_HEADERS CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/include/*.h)
list(APPEND VEKS_DOC_HEADERS ${PROJECT_BINARY_DIR}/include/veks_version.h)
list(JOIN VEKS_DOC_PAGES " " VEKS_DOXYGEN_PAGES)
list(JOIN VEKS_DOC_HEADERS " " VEKS_DOXYGEN_HEADERS)
set(VEKS_DOXYGEN_OUT ${PROJECT_BINARY_DIR}/docs)
configure_file(${PROJECT_SOURCE_DIR}/docs/Doxyfile.in ${VEKS_DOXYGEN_OUT}/Doxyfile @ONLY)
add_custom_command(OUTPUT ${VEKS_DOXYGEN_OUT}/html/index.html
                   COMMAND ${DOXYGEN_EXECUTABLE} ${VEKS_DOXYGEN_OUT}/Doxyfile
                   DEPENDS ${VEKS_DOC_PAGES} ${VEKS_DOC_HEADERS} ${VEKS_DOXYGEN_OUT}/Doxyfile
                   WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
                   COMMENT "Doxygen: HTML reference (warnings are errors)" VERBATIM)
add_custom_target(docs ALL DEPENDS ${VEKS_DOXYGEN_OUT}/html/index.html)
install(DIRECTORY ${VEKS_DOXYGEN_OUT}/html/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/html COMPONENT dev)
