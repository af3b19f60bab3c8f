# One libFuzzer program for each source in fuzz/. The libraries that it links are instrumented too.
jotwright_sources(fuzz_sources fuzz)
foreach(source IN LISTS fuzz_sources)
    get_filename_component(name "${source}" NAME_WE)
    add_executable(fuzz_${name} "${source}")
    jotwright_flags(fuzz_${name})
    target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
    target_link_libraries(fuzz_${name} PRIVATE jotwright_core portable headless forms)
endforeach()
