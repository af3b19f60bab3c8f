# The test programs that run on Windows (or under Wine, see scripts/run-windows-tests). GoogleTest
# is built from its source package, as there is none for this compiler.
jotwright_sources(conformance_sources tests/conformance tests/conformance/win32)
jotwright_sources(driver_sources tests/windows)
if(NOT conformance_sources AND NOT driver_sources)
    return()
endif()

set(GOOGLETEST_SOURCE /usr/src/googletest CACHE PATH "Source folder of GoogleTest")
if(NOT EXISTS "${GOOGLETEST_SOURCE}/CMakeLists.txt")
    message(STATUS "No GoogleTest in ${GOOGLETEST_SOURCE}: only the program itself is built")
    return()
endif()
set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
add_subdirectory("${GOOGLETEST_SOURCE}" googletest EXCLUDE_FROM_ALL)

jotwright_precompile(<windows.h> <commctrl.h>)
target_compile_options(precompiled PRIVATE -O1)
target_link_libraries(precompiled PRIVATE gtest)

# jotwright_add_windows_tests(<name> <source>...): a console program with GoogleTest. -O1: these
# are built often and run once.
function(jotwright_add_windows_tests name)
    add_executable(${name} ${ARGN})
    jotwright_flags(${name})
    target_compile_options(${name} PRIVATE -O1)
    target_link_libraries(${name} PRIVATE gtest gtest_main)
    jotwright_use_precompiled(${name})
endfunction()

if(conformance_sources)
    set(recorder "${PROJECT_SOURCE_DIR}/tests/windows/SoundRecorder.cpp"
                 "${PROJECT_SOURCE_DIR}/tests/windows/Files.cpp"
                 "${PROJECT_SOURCE_DIR}/tests/windows/Wait.cpp")
    jotwright_add_windows_tests(conformance_win32 ${conformance_sources} ${recorder})
    target_link_libraries(conformance_win32 PRIVATE jotwright_core win32)
endif()
# For the gallery: what the program itself opens nowhere. Looks like the program, hence its resources.
add_executable(spare_windows WIN32 "${PROJECT_SOURCE_DIR}/tests/gallery/SpareWindows.cpp" ${resources})
jotwright_flags(spare_windows)
target_include_directories(spare_windows PRIVATE "${PROJECT_SOURCE_DIR}/assets"
                           "${PROJECT_BINARY_DIR}/manifest")
target_link_libraries(spare_windows PRIVATE jotwright_core win32)
if(driver_sources)
    jotwright_add_windows_tests(windows_driver ${driver_sources})
    target_link_libraries(windows_driver PRIVATE win32 gdiplus oleacc oleaut32)
endif()

# What takes long on the real program, with what the driver's tests are made of.
jotwright_sources(windows_long_sources tests/windows/long)
if(windows_long_sources)
    set(driver_support ${driver_sources})
    list(FILTER driver_support EXCLUDE REGEX "/[A-Za-z]+Test\\.cpp$")
    jotwright_add_windows_tests(windows_long ${windows_long_sources} ${driver_support}
                                "${PROJECT_SOURCE_DIR}/tests/windows/DriverTest.cpp")
    target_link_libraries(windows_long PRIVATE win32 gdiplus oleacc oleaut32)
endif()

# The tests that call the system, read by the compiler and not compiled: they do not rot while nobody
# builds for 32 bits. The program itself is built for 32 bits with each release. What was found good is
# remembered as an empty object.
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set(calling_sources)
    foreach(source IN LISTS conformance_sources driver_sources windows_long_sources)
        file(STRINGS "${source}" calls REGEX "(^|[^A-Za-z0-9_>])::[A-Z][A-Za-z]+\\(")
        if(calls)
            list(APPEND calling_sources "${source}")
        endif()
    endforeach()
    string(APPEND CMAKE_CXX_COMPILE_OBJECT " && ${CMAKE_COMMAND} -E touch <OBJECT>")
    add_library(syntax OBJECT EXCLUDE_FROM_ALL ${calling_sources})
    jotwright_flags(syntax)
    target_compile_options(syntax PRIVATE -O1 -fsyntax-only)
    target_link_libraries(syntax PRIVATE gtest)
    jotwright_use_precompiled(syntax)
endif()
