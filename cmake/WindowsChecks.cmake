# The tests of the programs built for Windows, run under Wine by ctest --test-dir build/windows.
enable_testing()
set(scripts "${PROJECT_SOURCE_DIR}/scripts")

# jotwright_add_windows_check(<name> <cost> <inputs> <command>...): adds a test under Wine. ctest starts the
# tests with the highest cost first. Each test has its own display, clock, sound device and Wine prefix, and
# waits most of the time, so several tests can run in parallel. The prefixes are copies of one template.
#
# A test is skipped if it has passed and nothing that it uses has changed since then: the scripts, the
# shipped files, and its inputs, a list of programs and of paths in the source folder.
set(wine_template "JOTWRIGHT_WINE_TEMPLATE=${PROJECT_SOURCE_DIR}/build/wine-test/template")
function(jotwright_add_windows_check name cost inputs)
    list(TRANSFORM inputs PREPEND "${PROJECT_BINARY_DIR}/" REGEX "\\.exe$")
    add_test(NAME ${name} COMMAND "${scripts}/run-if-changed" "${PROJECT_BINARY_DIR}/passed/${name}"
             scripts assets LICENSE THIRD-PARTY-NOTICES ${inputs} -- ${ARGN}
             WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}")
    set_tests_properties(${name} PROPERTIES COST ${cost} TIMEOUT ${jotwright_hang_guard}
        SKIP_RETURN_CODE 77
        ENVIRONMENT "${wine_template};JOTWRIGHT_WINE_TEST=${PROJECT_SOURCE_DIR}/build/wine-test/${name}")
endfunction()

jotwright_add_windows_check(windows.conformance 250 conformance_win32.exe "${scripts}/run-windows-tests"
                            "${PROJECT_BINARY_DIR}" conformance_win32.exe)
set(driver_inputs windows_driver.exe Jotwright.exe spare_windows.exe)
set(package_inputs Jotwright.exe JotwrightPortable.exe "${PROJECT_BINARY_DIR}/product.txt" packaging docs
    tests/windows/kit CMakeLists.txt README.md CHANGELOG.md)
set(shards 8)
math(EXPR last_shard "${shards} - 1")
foreach(shard RANGE ${last_shard})
    jotwright_add_windows_check(windows.driver.${shard} 200 "${driver_inputs}" "${scripts}/run-windows-tests" --app
                                "${PROJECT_BINARY_DIR}" windows_driver.exe)
    set_property(TEST windows.driver.${shard} APPEND PROPERTY ENVIRONMENT
                 "GTEST_TOTAL_SHARDS=${shards}" "GTEST_SHARD_INDEX=${shard}")
endforeach()
# The long tests, in their short form. scripts/long-run runs them in full. YearRun needs a time zone with
# daylight saving time.
jotwright_add_windows_check(windows.long 100 "windows_long.exe;Jotwright.exe" "${scripts}/run-windows-tests" --app
                            "${PROJECT_BINARY_DIR}" windows_long.exe "--gtest_filter=-YearRun.*")
jotwright_add_windows_check(windows.year 300 "windows_long.exe;Jotwright.exe" "${scripts}/run-windows-tests" --app
                            "${PROJECT_BINARY_DIR}" windows_long.exe "--gtest_filter=YearRun.*")
set_property(TEST windows.year APPEND PROPERTY ENVIRONMENT
             "JOTWRIGHT_TEST_ZONE=EST5EDT,M3.2.0,M11.1.0")
jotwright_add_windows_check(check.hardening 1 "Jotwright.exe;JotwrightPortable.exe" "${scripts}/check-hardening"
                            "${PROJECT_BINARY_DIR}/Jotwright.exe"
                            "${PROJECT_BINARY_DIR}/JotwrightPortable.exe")
jotwright_add_windows_check(windows.first_start 10 Jotwright.exe "${scripts}/test-first-start"
                            "${PROJECT_BINARY_DIR}")
foreach(part packages archive installer)
    jotwright_add_windows_check(windows.package.${part} 150 "${package_inputs}" "${scripts}/test-package" ${part})
    set_property(TEST windows.package.${part} APPEND PROPERTY ENVIRONMENT
                 "JOTWRIGHT_PACKAGE_TEST=${PROJECT_SOURCE_DIR}/build/wine-test/windows.package.${part}")
endforeach()

# Runs a few tests in the kit for real Windows machines. scripts/windows-test-kit --try without a filter
# runs all of them.
jotwright_add_windows_check(windows.kit 30 "${package_inputs};${driver_inputs};conformance_win32.exe"
                            "${scripts}/windows-test-kit" --try
                            "TrayTest.ALeft*:PrintingTest.*:WinSettingsTest.*"
                            "${PROJECT_BINARY_DIR}/test-kit.zip")

# The pointer tests at the other scales; the driver tests run at 100 %.
foreach(scale 125 150 175 200)
    math(EXPR dpi "96 * ${scale} / 100" OUTPUT_FORMAT HEXADECIMAL)
    string(REPLACE "0x" "000000" dpi "${dpi}")
    file(WRITE "${PROJECT_BINARY_DIR}/scale-${scale}.reg"
         "REGEDIT4\n\n[HKEY_CURRENT_USER\\Control Panel\\Desktop]\n\"LogPixels\"=dword:${dpi}\n")
    math(EXPR width "1280 * ${scale} / 100")
    math(EXPR height "1024 * ${scale} / 100")
    jotwright_add_windows_check(windows.pointer.${scale} 60 "${driver_inputs}" "${scripts}/run-windows-tests" --app
                                "${PROJECT_BINARY_DIR}" windows_driver.exe
                                "--gtest_filter=PointerTest.*")
    set_property(TEST windows.pointer.${scale} APPEND PROPERTY ENVIRONMENT
                 "JOTWRIGHT_TEST_SCREEN=${width}x${height}"
                 "JOTWRIGHT_TEST_REGISTRY=${PROJECT_BINARY_DIR}/scale-${scale}.reg")
endforeach()
