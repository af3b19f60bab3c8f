find_package(GTest REQUIRED)
find_package(Threads REQUIRED)

# Test code takes long to compile and is fast enough without optimisation. It is built without the check
# for null pointers, because a crash shows the same fault, and without the sanitizer checks that cost most
# and find least. The program's own code is built with all checks.
set(test_flags -O0)
if(JOTWRIGHT_SANITIZE AND CMAKE_BUILD_TYPE STREQUAL Debug)
    list(APPEND test_flags -fno-sanitize=null,alignment,object-size,vptr)
endif()
jotwright_precompile(precompiled_tests <gtest/gtest.h> <filesystem> <fstream> <map> <sstream>)
target_compile_options(precompiled_tests PRIVATE ${test_flags})
target_link_libraries(precompiled_tests PRIVATE GTest::gtest Threads::Threads)

# jotwright_add_tests(<name> <source>...): a GoogleTest program on the headless stage. ctest runs it once
# for each test file, as native.<name>.<file>; one process for each test would take ten times as long.
function(jotwright_add_tests name)
    add_executable(${name} ${ARGN})
    jotwright_flags(${name})
    target_compile_options(${name} PRIVATE ${test_flags})
    target_link_libraries(${name} PRIVATE jotwright_core portable headless forms
                          GTest::gtest GTest::gtest_main Threads::Threads)
    jotwright_use_precompiled(${name} precompiled_tests)
    foreach(source IN LISTS ARGN)
        # Configure again if the file has changed, because it may contain a new suite.
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${source}")
        file(STRINGS "${source}" suites REGEX "^TEST(_F|_P)?\\(")
        if(NOT suites)
            continue()
        endif()
        list(TRANSFORM suites REPLACE "^TEST[_FP]*\\(([A-Za-z0-9]+),.*" "\\1.*:*/\\1.*")
        list(REMOVE_DUPLICATES suites)
        list(JOIN suites ":" filter)
        if(filter MATCHES "TEST")
            message(FATAL_ERROR "${source}: a test without its suite in the first line")
        endif()
        get_filename_component(file "${source}" NAME_WE)
        add_test(NAME native.${name}.${file} COMMAND ${name} --gtest_brief=1 "--gtest_filter=${filter}"
                 WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}")
        set_tests_properties(native.${name}.${file} PROPERTIES TIMEOUT ${jotwright_hang_guard})
    endforeach()
endfunction()

jotwright_sources(test_sources tests/base tests/forms tests/forms/headless tests/app tests/notes tests/alarms
                  tests/tools tests/info tests/portable)
jotwright_sources(support_sources tests/support)
set_source_files_properties(tests/info/frmAboutTest.cpp tests/info/frmSplashTest.cpp PROPERTIES
                            COMPILE_DEFINITIONS "JOTWRIGHT_PROJECT_VERSION=\"${PROJECT_VERSION}\"")
jotwright_add_tests(jotwright_tests ${test_sources} ${support_sources})

# The conformance suite. The build for Windows compiles the same sources (WindowsTests.cmake).
jotwright_sources(conformance_sources tests/conformance)
jotwright_sources(conformance_glue tests/conformance/headless)
jotwright_add_tests(conformance_headless ${conformance_sources} ${conformance_glue})

# The long tests, in their short form. scripts/long-run runs them in full.
jotwright_sources(long_sources tests/long)
jotwright_add_tests(jotwright_long ${long_sources} ${support_sources})
