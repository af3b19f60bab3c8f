# The baselines for bench/compare and bench/actions, and the programs that operate the windows.
add_library(bare_window STATIC "${PROJECT_SOURCE_DIR}/bench/BareWindow.cpp")
jotwright_flags(bare_window)
add_executable(baseline WIN32 "${PROJECT_SOURCE_DIR}/bench/Baseline.cpp")
add_executable(actions_baseline WIN32 "${PROJECT_SOURCE_DIR}/bench/ActionsBaseline.cpp"
               "${PROJECT_SOURCE_DIR}/bench/NoteControls.cpp" ${resources})
# The program's manifest gives it the same kind of controls.
target_include_directories(actions_baseline PRIVATE "${PROJECT_SOURCE_DIR}/assets"
                           "${PROJECT_BINARY_DIR}/manifest")
foreach(program IN ITEMS baseline actions_baseline)
    jotwright_flags(${program})
    target_link_libraries(${program} PRIVATE bare_window)
endforeach()
target_link_libraries(actions_baseline PRIVATE comctl32)

add_library(bench_driver STATIC "${PROJECT_SOURCE_DIR}/tests/windows/Program.cpp"
            "${PROJECT_SOURCE_DIR}/tests/windows/RemoteMemory.cpp"
            "${PROJECT_SOURCE_DIR}/tests/windows/Wait.cpp"
            "${PROJECT_SOURCE_DIR}/tests/windows/Window.cpp")
jotwright_flags(bench_driver)
target_link_libraries(bench_driver PUBLIC win32)
add_executable(operate "${PROJECT_SOURCE_DIR}/bench/Operate.cpp")
add_executable(actions
               "${PROJECT_SOURCE_DIR}/bench/Actions.cpp"
               "${PROJECT_SOURCE_DIR}/bench/AlarmScenario.cpp"
               "${PROJECT_SOURCE_DIR}/bench/NoteScenarios.cpp"
               "${PROJECT_SOURCE_DIR}/bench/Rest.cpp"
               "${PROJECT_SOURCE_DIR}/bench/StartScenario.cpp"
               "${PROJECT_SOURCE_DIR}/bench/Subject.cpp"
               "${PROJECT_SOURCE_DIR}/bench/TextScenario.cpp")
foreach(program IN ITEMS operate actions)
    jotwright_flags(${program})
    target_link_libraries(${program} PRIVATE bench_driver)
endforeach()
