# Flags for every target of the project. jotwright_flags() sets them for each target separately, so
# that third-party code built in the same tree (GoogleTest) does not get them.

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Debug CACHE STRING "Debug or Release" FORCE)
endif()

find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # ccache caches sources that use precompiled headers only with these settings.
    set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_SLOPPINESS=pch_defines,time_macros "${CCACHE}")
endif()

set(jotwright_warnings
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
set(jotwright_compile_flags ${jotwright_warnings} -fstack-protector-strong
    $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2>)
set(jotwright_link_flags)

if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    # clang++ includes this warning in -Wconversion; g++, the project's compiler, does not.
    list(APPEND jotwright_compile_flags -Wno-sign-conversion)
endif()

if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    # With optimisation, g++ 12 wrongly warns of overlapping copies in the library's operator+ for
    # strings.
    list(APPEND jotwright_compile_flags -Wno-restrict)
endif()

if(WIN32)
    # The program has only one thread: static locals need no locks.
    list(APPEND jotwright_compile_flags -ffunction-sections -fdata-sections
         -fno-threadsafe-statics)
    list(APPEND jotwright_link_flags
         -static -fstack-protector-strong -Wl,--gc-sections -Wl,--dynamicbase -Wl,--nxcompat $<$<CONFIG:Release>:-s>)
    # Reproducible builds: the same sources give the same bytes at any time.
    list(APPEND jotwright_link_flags -Wl,--no-insert-timestamp)
    # Align sections in the file as in memory, so that Windows maps pages on demand instead of copying
    # all sections.
    list(APPEND jotwright_link_flags -Wl,--file-alignment,4096)
    # Windows 7 and later. Below 6.0, Windows would measure the frames of windows as it did before.
    list(APPEND jotwright_link_flags
         -Wl,--major-os-version,6 -Wl,--minor-os-version,1
         -Wl,--major-subsystem-version,6 -Wl,--minor-subsystem-version,1 -Wl,--tsaware)
    if(CMAKE_SIZEOF_VOID_P EQUAL 8)
        list(APPEND jotwright_link_flags -Wl,--high-entropy-va)
    endif()
    # _GLIBCXX_ASSERTIONS: the library checks indices, iterators and optionals at run time.
    set(jotwright_definitions _GLIBCXX_ASSERTIONS UNICODE _UNICODE NOMINMAX _WIN32_WINNT=0x0A00)
    # Optimise for size: the program waits for its user most of the time.
    set(CMAKE_CXX_FLAGS_RELEASE "-Os -DNDEBUG")
else()
    # Sanitizer reports need only line tables (-g1).
    set(CMAKE_CXX_FLAGS_DEBUG "-O1 -g1")
    if(JOTWRIGHT_SANITIZE AND CMAKE_BUILD_TYPE STREQUAL Debug)
        set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all)
        list(APPEND jotwright_compile_flags ${sanitizers} -fno-omit-frame-pointer)
        list(APPEND jotwright_link_flags ${sanitizers})
    endif()
    if(JOTWRIGHT_COVERAGE)
        list(APPEND jotwright_compile_flags -O0 -fprofile-instr-generate -fcoverage-mapping)
        list(APPEND jotwright_link_flags -fprofile-instr-generate)
    endif()
    set(jotwright_definitions)
endif()

# jotwright_flags(<target>): sets the project's flags and adds the repository root to the include path.
function(jotwright_flags target)
    target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}")
    target_compile_definitions(${target} PRIVATE ${jotwright_definitions})
    target_compile_options(${target} PRIVATE ${jotwright_compile_flags})
    target_link_options(${target} PRIVATE ${jotwright_link_flags})
endfunction()

# jotwright_precompile(<name> <header>...): a library without code. Other targets of this build use
# its precompiled headers, so its flags must equal theirs. The project's own headers are not
# precompiled, because they change often. Every source must still include the headers that it needs:
# check-tidy reads the sources without precompiled headers.
function(jotwright_precompile name)
    file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/precompiled.cpp" CONTENT "")
    add_library(${name} OBJECT "${PROJECT_BINARY_DIR}/precompiled.cpp")
    jotwright_flags(${name})
    target_precompile_headers(${name} PRIVATE ${ARGN} <algorithm> <array> <cstdint> <functional>
        <memory> <optional> <string> <string_view> <utility> <vector>)
    jotwright_keep_for_ccache(${name})
endfunction()

function(jotwright_use_precompiled target name)
    target_precompile_headers(${target} REUSE_FROM ${name})
    jotwright_keep_for_ccache(${target})
endfunction()

# ccache caches sources that use precompiled headers only with these options.
function(jotwright_keep_for_ccache target)
    if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        target_compile_options(${target} PRIVATE -fpch-preprocess)
    else()
        target_compile_options(${target} PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
    endif()
endfunction()
