# The tests of the programs built for Windows, under Wine: ctest --test-dir build/windows.
enable_testing()
set(scripts "${PROJECT_SOURCE_DIR}/scripts")

# jotwright_add_windows_check(<name> <cost> <command>...): each has a display, a clock, a sound device and
# a Wine prefix of its own and waits most of the while, so that several at once do not hurt each other.
function(jotwright_add_windows_check name cost)
    add_test(NAME ${name} COMMAND ${ARGN} WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}")
    set_tests_properties(${name} PROPERTIES COST ${cost} TIMEOUT ${jotwright_hang_guard}
        ENVIRONMENT "JOTWRIGHT_WINE_TEST=${PROJECT_SOURCE_DIR}/build/wine-test/${name}")
endfunction()

jotwright_sources(conformance_sources tests/conformance)
if(conformance_sources)
    jotwright_add_windows_check(windows.conformance 50 "${scripts}/run-windows-tests"
                                "${PROJECT_BINARY_DIR}" conformance_win32.exe)
endif()
jotwright_sources(driver_sources tests/windows)
if(driver_sources)
    set(shards 4)
    math(EXPR last_shard "${shards} - 1")
    foreach(shard RANGE ${last_shard})
        jotwright_add_windows_check(windows.driver.${shard} 400 "${scripts}/run-windows-tests" --app
                                    "${PROJECT_BINARY_DIR}" windows_driver.exe)
        set_property(TEST windows.driver.${shard} APPEND PROPERTY ENVIRONMENT
                     "GTEST_TOTAL_SHARDS=${shards}" "GTEST_SHARD_INDEX=${shard}")
    endforeach()
endif()
jotwright_sources(windows_long_sources tests/windows/long)
if(windows_long_sources)
    # Short forms of what scripts/long-run does in full.
    jotwright_add_windows_check(windows.long 100 "${scripts}/run-windows-tests" --app
                                "${PROJECT_BINARY_DIR}" windows_long.exe)
endif()
jotwright_add_windows_check(check.hardening 1 "${scripts}/check-hardening"
                            "${PROJECT_BINARY_DIR}/Jotwright.exe")
jotwright_add_windows_check(windows.package 60 "${scripts}/test-package")
set_property(TEST windows.package APPEND PROPERTY ENVIRONMENT
             "JOTWRIGHT_PACKAGE_TEST=${PROJECT_SOURCE_DIR}/build/wine-test/windows.package")
