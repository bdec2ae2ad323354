# Installation: the shared library (runtime component), headers, CMake package, pkg-config file
# and static library (dev component), the licence, and the Debian packages CPack makes of them:
#
#   cmake -S . -B build -DCMAKE_INSTALL_PREFIX=/usr -DVEKS_BUILD_STATIC=ON
#   cmake --build build && (cd build && cpack -G DEB)     # libveks2_*.deb and libveks-dev_*.deb

include(CMakePackageConfigHelpers)

install(TARGETS veks EXPORT veksTargets
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime
                NAMELINK_COMPONENT dev
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev)
if(VEKS_BUILD_STATIC)
    install(TARGETS veks_static EXPORT veksTargets
            ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev)
endif()
install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev
        FILES_MATCHING PATTERN "*.h")
install(FILES ${PROJECT_BINARY_DIR}/include/veks_version.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev)
install(EXPORT veksTargets NAMESPACE veks:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/veks
        COMPONENT dev)
configure_package_config_file(cmake/veksConfig.cmake.in ${PROJECT_BINARY_DIR}/veksConfig.cmake
                              INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/veks)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/veksConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/veksConfig.cmake ${PROJECT_BINARY_DIR}/veksConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/veks COMPONENT dev)

# pkg-config: the prefix is computed from the file's own folder (${pcfiledir}), so the tree can
# be installed or unpacked anywhere. Libs.private lists what `pkg-config --static` adds for the
# static library: the C++ runtime and libm.
set(_veks_pcdir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
    message(FATAL_ERROR "veks: CMAKE_INSTALL_LIBDIR must be relative to the prefix for veks.pc")
endif()
file(RELATIVE_PATH VEKS_PC_PREFIX_FROM_PCDIR /root/${_veks_pcdir} /root)
string(REGEX REPLACE "/$" "" VEKS_PC_PREFIX_FROM_PCDIR "${VEKS_PC_PREFIX_FROM_PCDIR}")
set(VEKS_PC_LIBS_PRIVATE)
foreach(lib IN LISTS VEKS_STATIC_DEPS)
    string(APPEND VEKS_PC_LIBS_PRIVATE " -l${lib}")
endforeach()
string(STRIP "${VEKS_PC_LIBS_PRIVATE}" VEKS_PC_LIBS_PRIVATE)
configure_file(cmake/veks.pc.in ${PROJECT_BINARY_DIR}/veks.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/veks.pc DESTINATION ${_veks_pcdir} COMPONENT dev)

install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT runtime)
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/libveks-dev COMPONENT dev
        RENAME copyright)

# ---- Debian packages -------------------------------------------------------------------------
set(CPACK_PACKAGE_NAME veks)
set(CPACK_PACKAGE_VENDOR "The veks developers")
set(CPACK_PACKAGE_CONTACT "The veks developers <veks@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL runtime dev)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libveks${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS "libc6, libstdc++6, libgcc-s1")
# A shlibs file and the ldconfig trigger, so that the library loads right after installation.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_DEV_PACKAGE_NAME libveks-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS
    "libveks${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
    "shared library and the veks-info program of veks, one-dimensional signal processing")
set(CPACK_COMPONENT_DEV_DESCRIPTION
    "headers, static library, CMake package and pkg-config file of veks")
include(CPack)
