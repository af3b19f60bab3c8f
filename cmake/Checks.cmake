# What ctest runs besides the native tests: checks of the sources, short runs of the fuzzers and
# the programs built for Windows, under Wine. The other builds must stand (./test makes them all).
set(JOTWRIGHT_WINDOWS_BUILD "${PROJECT_SOURCE_DIR}/build/windows" CACHE PATH "Built preset windows")
set(JOTWRIGHT_FUZZ_BUILD "${PROJECT_SOURCE_DIR}/build/fuzz" CACHE PATH "Built preset fuzz")
set(scripts "${PROJECT_SOURCE_DIR}/scripts")

# jotwright_add_check(<name> <seconds> <command>...)
function(jotwright_add_check name seconds)
    add_test(NAME ${name} COMMAND ${ARGN} WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}")
    set_tests_properties(${name} PROPERTIES TIMEOUT ${seconds})
endfunction()

jotwright_add_check(check.layers 60 "${scripts}/check-layers")
jotwright_add_check(check.layers_self_test 60 "${scripts}/check-layers" --self-test)
jotwright_add_check(check.format 120 "${scripts}/check-format")
jotwright_add_check(check.help 60 "${scripts}/check-help")
jotwright_add_check(check.shell 60 shellcheck -x run test .ci/run scripts/lib.sh
                    scripts/check-format scripts/check-help scripts/gallery scripts/install-packages
                    scripts/check-hardening scripts/layout-app scripts/long-run
                    scripts/make-installer scripts/package scripts/run-fuzzer
                    scripts/run-windows-tests scripts/run-windows32-tests scripts/test-package)
# Long: it starts first, and gives way to what waits in real time beside it.
jotwright_add_check(check.tidy 1500 nice "${scripts}/check-tidy" "${PROJECT_BINARY_DIR}")
set_tests_properties(check.tidy PROPERTIES COST 1000)
jotwright_add_check(check.tidy_windows 900 nice "${scripts}/check-tidy"
                    --without "${PROJECT_BINARY_DIR}" "${JOTWRIGHT_WINDOWS_BUILD}")
set_tests_properties(check.tidy_windows PROPERTIES COST 900)

jotwright_sources(fuzz_sources fuzz)
foreach(source IN LISTS fuzz_sources)
    get_filename_component(name "${source}" NAME_WE)
    jotwright_add_check(fuzz.${name} 120 nice "${scripts}/run-fuzzer"
                        "${JOTWRIGHT_FUZZ_BUILD}/fuzz_${name}" 10)
endforeach()

# Each has a display, a clock and a sound device of its own and waits in real time most of the while:
# two at once do not hurt each other.
function(jotwright_add_windows_check name cost)
    jotwright_add_check(${name} 900 ${ARGN})
    set_tests_properties(${name} PROPERTIES LABELS windows COST ${cost})
endfunction()

jotwright_sources(conformance_sources tests/conformance)
if(conformance_sources)
    jotwright_add_windows_check(windows.conformance 100 "${scripts}/run-windows-tests"
                                "${JOTWRIGHT_WINDOWS_BUILD}" conformance_win32.exe)
endif()
jotwright_sources(driver_sources tests/windows)
if(driver_sources)
    foreach(shard 0 1)
        jotwright_add_windows_check(windows.driver.${shard} 500 "${scripts}/run-windows-tests" --app
                                    "${JOTWRIGHT_WINDOWS_BUILD}" windows_driver.exe)
        set_tests_properties(windows.driver.${shard} PROPERTIES ENVIRONMENT
            "GTEST_TOTAL_SHARDS=2;GTEST_SHARD_INDEX=${shard};JOTWRIGHT_WINE_TEST=${PROJECT_SOURCE_DIR}/build/wine-test/driver-${shard}")
    endforeach()
endif()
jotwright_sources(windows_long_sources tests/windows/long)
if(windows_long_sources)
    # Short forms of what scripts/long-run does in full.
    jotwright_add_windows_check(windows.long 100 "${scripts}/run-windows-tests" --app
                                "${JOTWRIGHT_WINDOWS_BUILD}" windows_long.exe)
    set_tests_properties(windows.long PROPERTIES ENVIRONMENT
        "JOTWRIGHT_WINE_TEST=${PROJECT_SOURCE_DIR}/build/wine-test/long")
endif()
jotwright_add_check(check.hardening 60 "${scripts}/check-hardening"
                    "${JOTWRIGHT_WINDOWS_BUILD}/Jotwright.exe")
jotwright_add_windows_check(windows.package 50 "${scripts}/test-package")

# The pointer at every scale but 100 %, at which the driver's tests run. All use one prefix, whose
# registry gets the scale.
foreach(scale 125 150 175 200)
    math(EXPR dpi "96 * ${scale} / 100" OUTPUT_FORMAT HEXADECIMAL)
    string(REPLACE "0x" "000000" dpi "${dpi}")
    file(WRITE "${PROJECT_BINARY_DIR}/scale-${scale}.reg"
         "REGEDIT4\n\n[HKEY_CURRENT_USER\\Control Panel\\Desktop]\n\"LogPixels\"=dword:${dpi}\n")
    math(EXPR width "1280 * ${scale} / 100")
    math(EXPR height "1024 * ${scale} / 100")
    jotwright_add_windows_check(windows.pointer.${scale} 60 "${scripts}/run-windows-tests" --app
                                "${JOTWRIGHT_WINDOWS_BUILD}" windows_driver.exe
                                --gtest_filter=Pointer.*)
    set_tests_properties(windows.pointer.${scale} PROPERTIES
        RESOURCE_LOCK windows_pointer ENVIRONMENT
        "JOTWRIGHT_WINE_TEST=${PROJECT_SOURCE_DIR}/build/wine-test/pointer;JOTWRIGHT_TEST_SCREEN=${width}x${height};JOTWRIGHT_TEST_REGISTRY=${PROJECT_BINARY_DIR}/scale-${scale}.reg")
endforeach()
