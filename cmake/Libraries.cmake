# jotwright_sources(<variable> <folder>...): lists the sources directly in these folders. The next
# build finds new files.
function(jotwright_sources variable)
    set(patterns)
    foreach(folder IN LISTS ARGN)
        list(APPEND patterns "${PROJECT_SOURCE_DIR}/${folder}/*.cpp")
    endforeach()
    file(GLOB found CONFIGURE_DEPENDS ${patterns})
    set(${variable} ${found} PARENT_SCOPE)
endfunction()

# jotwright_instrument(<target>): libFuzzer follows the paths through the target's code.
function(jotwright_instrument target)
    if(JOTWRIGHT_FUZZERS)
        target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
    endif()
endfunction()

# jotwright_add_library(<name> <precompiled> <folder>...): a static library of the sources in these
# folders, except the sources that only the program file links. See jotwright_precompile.
function(jotwright_add_library name precompiled)
    jotwright_sources(sources ${ARGN})
    list(FILTER sources EXCLUDE REGEX "/app/(WinMain|FailFast)\\.cpp$")
    add_library(${name} STATIC ${sources})
    jotwright_flags(${name})
    jotwright_instrument(${name})
    # With -O3, g++ 12 warns of the library's own code if its headers are precompiled.
    if(WIN32 OR NOT CMAKE_BUILD_TYPE STREQUAL Release)
        jotwright_use_precompiled(${name} ${precompiled})
    endif()
endfunction()
