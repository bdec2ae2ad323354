# Decides whether the test suite is built (VEKS_BUILD_TESTS: AUTO, ON or OFF) and sets
# VEKS_TESTS_ENABLED. GoogleTest comes from the installed package or, with
# -DVEKS_GTEST_SOURCE_DIR=<dir>, from a source tree (tests/CMakeLists.txt).

string(TOUPPER "${VEKS_BUILD_TESTS}" _veks_tests)
set(VEKS_TESTS_ENABLED OFF)
if(_veks_tests STREQUAL "AUTO")
    if(VEKS_GTEST_SOURCE_DIR)
        set(VEKS_TESTS_ENABLED ON)
    else()
        find_package(GTest QUIET)
        if(GTest_FOUND)
            set(VEKS_TESTS_ENABLED ON)
        else()
            message(STATUS "veks: GoogleTest not found, so the tests are not built. Install it "
                           "(Debian: apt-get install libgtest-dev, or run tools/install-deps tests) "
                           "or pass -DVEKS_BUILD_TESTS=OFF to silence this message.")
        endif()
    endif()
elseif(_veks_tests)
    # ON, YES, TRUE, 1: asked for; tests/CMakeLists.txt fails clearly without GoogleTest.
    set(VEKS_TESTS_ENABLED ON)
endif()
if(VEKS_TESTS_ENABLED)
    message(STATUS "veks: building the tests")
else()
    message(STATUS "veks: tests not built (VEKS_BUILD_TESTS=${VEKS_BUILD_TESTS})")
endif()
