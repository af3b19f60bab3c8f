# One Google Benchmark program for each source in bench/rules. Every native build includes them, so
# that they keep compiling. Measure with a release build (preset "bench").
jotwright_sources(bench_sources bench/rules)
find_package(benchmark REQUIRED)
foreach(source IN LISTS bench_sources)
    get_filename_component(name "${source}" NAME_WE)
    add_executable(bench_${name} "${source}")
    jotwright_flags(bench_${name})
    target_link_libraries(bench_${name} PRIVATE jotwright_core headless forms
                          benchmark::benchmark benchmark::benchmark_main)
endforeach()

# bench/compare starts programs with watch_windows.
find_package(X11 QUIET)
if(X11_FOUND)
    add_executable(watch_windows "${PROJECT_SOURCE_DIR}/bench/WatchWindows.cpp")
    jotwright_flags(watch_windows)
    target_link_libraries(watch_windows PRIVATE X11::X11)
else()
    message(STATUS "libx11-dev not found: not building watch_windows, which bench/compare needs")
endif()
