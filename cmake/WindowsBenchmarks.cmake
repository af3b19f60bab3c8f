# The baseline for bench/compare, and the program with which it operates the windows.
add_executable(baseline WIN32 "${PROJECT_SOURCE_DIR}/bench/Baseline.cpp"
               "${PROJECT_SOURCE_DIR}/bench/BareWindow.cpp")
jotwright_flags(baseline)
add_executable(operate "${PROJECT_SOURCE_DIR}/bench/Operate.cpp"
               "${PROJECT_SOURCE_DIR}/tests/windows/Wait.cpp"
               "${PROJECT_SOURCE_DIR}/tests/windows/Window.cpp")
jotwright_flags(operate)
target_link_libraries(operate PRIVATE win32)
