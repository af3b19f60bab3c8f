# One Google Benchmark program for each source in bench/. Built with the rest so that they stay
# buildable; figures worth reading come from a release build (preset "bench").
jotwright_sources(bench_sources bench)
if(bench_sources)
    find_package(benchmark REQUIRED)
    foreach(source IN LISTS bench_sources)
        get_filename_component(name "${source}" NAME_WE)
        add_executable(bench_${name} "${source}")
        jotwright_flags(bench_${name})
        target_link_libraries(bench_${name} PRIVATE jotwright_core headless forms
                              benchmark::benchmark benchmark::benchmark_main)
    endforeach()
endif()
