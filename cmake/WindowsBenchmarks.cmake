# What bench/compare measures the program against, and what it works it with.
add_executable(floor WIN32 "${PROJECT_SOURCE_DIR}/bench/Floor.cpp")
jotwright_flags(floor)
add_executable(operate "${PROJECT_SOURCE_DIR}/bench/Operate.cpp"
               "${PROJECT_SOURCE_DIR}/tests/windows/Wait.cpp"
               "${PROJECT_SOURCE_DIR}/tests/windows/Window.cpp")
jotwright_flags(operate)
target_link_libraries(operate PRIVATE win32)
