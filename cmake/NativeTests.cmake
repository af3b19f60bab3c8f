find_package(GTest REQUIRED)
find_package(Threads REQUIRED)
include(GoogleTest)

# jotwright_add_tests(<name> <source>...): a GoogleTest program on the headless stage; each of its
# tests is a test of ctest. Nothing is added while there is no source.
function(jotwright_add_tests name)
    if(NOT ARGN)
        message(STATUS "${name}: no source yet")
        return()
    endif()
    add_executable(${name} ${ARGN})
    jotwright_flags(${name})
    # The tests' own code is quick enough as it is, and long to compile.
    target_compile_options(${name} PRIVATE -O0)
    target_link_libraries(${name} PRIVATE jotwright_core headless forms
                          GTest::gtest GTest::gtest_main Threads::Threads)
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
                         WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}"
                         PROPERTIES TIMEOUT 180)
endfunction()

jotwright_sources(test_sources tests/forms tests/forms/headless tests/app tests/notes tests/alarms
                  tests/tools tests/info)
jotwright_sources(support_sources tests/support)
set_source_files_properties(tests/info/frmAboutTest.cpp tests/info/frmSplashTest.cpp PROPERTIES
                            COMPILE_DEFINITIONS "JOTWRIGHT_PROJECT_VERSION=\"${PROJECT_VERSION}\"")
if(test_sources)
    jotwright_add_tests(jotwright_tests ${test_sources} ${support_sources})
endif()

# The conformance suite: the same sources, once here and once for Windows.
jotwright_sources(conformance_sources tests/conformance)
if(conformance_sources)
    jotwright_sources(conformance_glue tests/conformance/headless)
    jotwright_add_tests(conformance_headless ${conformance_sources} ${conformance_glue})
endif()

# What takes long: here in its short form, in full with scripts/long-run.
jotwright_sources(long_sources tests/long)
if(long_sources)
    jotwright_add_tests(jotwright_long ${long_sources} ${support_sources})
endif()
