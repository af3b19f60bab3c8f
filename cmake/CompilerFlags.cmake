# Flags of every target of the project. They are plain lists that jotwright_flags() puts on a
# target, so that third-party code built in the same tree (GoogleTest) is left alone.

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Debug CACHE STRING "Debug or Release" FORCE)
endif()

find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # The tests have precompiled headers, which ccache takes on these terms.
    set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_SLOPPINESS=pch_defines,time_macros "${CCACHE}")
endif()

set(jotwright_warnings
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
set(jotwright_compile_flags ${jotwright_warnings} -fstack-protector-strong
    $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2>)
set(jotwright_link_flags)

if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    # A part of -Wconversion here, but not with g++, which is what the code is written to.
    list(APPEND jotwright_compile_flags -Wno-sign-conversion)
endif()

if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    # Optimising, g++ 12 sees overlapping copies in the library's own operator+ of strings.
    list(APPEND jotwright_compile_flags -Wno-restrict)
endif()

if(WIN32)
    # The program has one thread.
    list(APPEND jotwright_compile_flags -ffunction-sections -fdata-sections
         -fno-threadsafe-statics)
    list(APPEND jotwright_link_flags
         -static -fstack-protector-strong -Wl,--gc-sections -Wl,--dynamicbase -Wl,--nxcompat $<$<CONFIG:Release>:-s>)
    # The same sources are the same program, whenever it is built.
    list(APPEND jotwright_link_flags -Wl,--no-insert-timestamp)
    # As the sections lie in memory: the system maps what is used instead of copying them all.
    list(APPEND jotwright_link_flags -Wl,--file-alignment,4096)
    if(CMAKE_SIZEOF_VOID_P EQUAL 8)
        list(APPEND jotwright_link_flags -Wl,--high-entropy-va)
    endif()
    # The library looks at indices, iterators and optionals as they are used.
    set(jotwright_definitions _GLIBCXX_ASSERTIONS UNICODE _UNICODE NOMINMAX _WIN32_WINNT=0x0A00)
    # Size matters more than speed: the program waits for its user.
    set(CMAKE_CXX_FLAGS_RELEASE "-Os -DNDEBUG")
else()
    # Sanitized code at -Og compiles twice as fast as at -O1 and runs twice as fast as unoptimised;
    # line tables are all that the reports need.
    set(CMAKE_CXX_FLAGS_DEBUG "-Og -g1")
    if(JOTWRIGHT_SANITIZE AND CMAKE_BUILD_TYPE STREQUAL Debug)
        set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all)
        list(APPEND jotwright_compile_flags ${sanitizers} -fno-omit-frame-pointer)
        list(APPEND jotwright_link_flags ${sanitizers})
    endif()
    if(JOTWRIGHT_FUZZ)
        list(APPEND jotwright_compile_flags -fsanitize=fuzzer-no-link)
    endif()
    set(jotwright_definitions)
endif()

# Puts the project's flags on a target and the repository root on its include path.
function(jotwright_flags target)
    target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}")
    target_compile_definitions(${target} PRIVATE ${jotwright_definitions})
    target_compile_options(${target} PRIVATE ${jotwright_compile_flags})
    target_link_options(${target} PRIVATE ${jotwright_link_flags})
endfunction()

# jotwright_precompile(<name> <headers>): a library without code whose precompiled headers other
# targets of this build use. Its flags must be theirs. Headers of the project are not among them:
# they change, and every source includes the headers that it needs (check-tidy reads the sources
# without precompiled ones).
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

# ccache takes a source with precompiled headers only if it is compiled so.
function(jotwright_keep_for_ccache target)
    if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        target_compile_options(${target} PRIVATE -fpch-preprocess)
    else()
        target_compile_options(${target} PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
    endif()
endfunction()
