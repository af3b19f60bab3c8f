# The tests that ctest runs in addition to the native tests: source checks, and short runs of the
# fuzzers. WindowsChecks.cmake has the tests for Windows.
set(scripts "${PROJECT_SOURCE_DIR}/scripts")

# jotwright_add_check(<name> <command>...)
function(jotwright_add_check name)
    add_test(NAME ${name} COMMAND ${ARGN} WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}")
    set_tests_properties(${name} PROPERTIES LABELS checks TIMEOUT ${jotwright_hang_guard})
endfunction()

jotwright_add_check(check.layers "${scripts}/check-layers")
jotwright_add_check(check.layers_self_test "${scripts}/check-layers" --self-test)
jotwright_add_check(check.format "${scripts}/check-format")
jotwright_add_check(check.help "${scripts}/check-help")
jotwright_add_check(check.shell shellcheck -x run test .ci/run scripts/lib.sh
                    scripts/busy-run scripts/check-arm64 scripts/check-format scripts/check-help
                    scripts/gallery scripts/install-packages scripts/check-hardening
                    scripts/layout-app scripts/long-run scripts/make-installer scripts/package
                    scripts/run-fuzzer scripts/run-windows-tests scripts/run-windows32-tests
                    scripts/sign scripts/test-first-start scripts/test-on scripts/test-package
                    scripts/test-reproducible scripts/windows-test-kit)

if(NOT JOTWRIGHT_FUZZERS)
    return()
endif()
# In these short runs the time limit per input only ends a hang, because a busy machine may pause the
# fuzzer for long. Long runs have a strict limit.
foreach(source IN LISTS fuzz_sources)
    get_filename_component(name "${source}" NAME_WE)
    jotwright_add_check(fuzz.${name} nice "${scripts}/run-fuzzer" $<TARGET_FILE:fuzz_${name}> 5
                        -timeout=${jotwright_hang_guard})
    set_tests_properties(fuzz.${name} PROPERTIES COST 100)
endforeach()
