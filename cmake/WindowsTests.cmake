# The test programs that run on Windows, or under Wine (scripts/run-windows-tests). GoogleTest is built
# from its source package, because Debian has no binary package for this compiler.
jotwright_sources(conformance_sources tests/conformance tests/conformance/win32)
jotwright_sources(driver_sources tests/windows)
set_source_files_properties(tests/windows/frmAboutDriverTest.cpp PROPERTIES
                            COMPILE_DEFINITIONS "JOTWRIGHT_PROJECT_VERSION=\"${PROJECT_VERSION}\"")

set(GOOGLETEST_SOURCE /usr/src/googletest CACHE PATH "Source folder of GoogleTest")
if(NOT EXISTS "${GOOGLETEST_SOURCE}/CMakeLists.txt")
    message(STATUS "GoogleTest not found in ${GOOGLETEST_SOURCE}: building only the program itself")
    return()
endif()
set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
add_subdirectory("${GOOGLETEST_SOURCE}" googletest EXCLUDE_FROM_ALL)

jotwright_precompile(precompiled_tests <windows.h> <commctrl.h> <gtest/gtest.h> <filesystem>
                     <fstream> <map> <sstream>)
target_compile_options(precompiled_tests PRIVATE -O1)
target_link_libraries(precompiled_tests PRIVATE gtest)

# jotwright_add_windows_tests(<name> <source>...): a console program with GoogleTest. It is built with
# -O1, because tests are built often and run once for each build.
function(jotwright_add_windows_tests name)
    add_executable(${name} ${ARGN})
    jotwright_flags(${name})
    target_compile_options(${name} PRIVATE -O1)
    target_link_libraries(${name} PRIVATE gtest gtest_main)
    jotwright_use_precompiled(${name} precompiled_tests)
endfunction()

# These tests also use some support sources of the driver tests.
set(driver_parts "${PROJECT_SOURCE_DIR}/tests/windows/SoundRecorder.cpp"
                 "${PROJECT_SOURCE_DIR}/tests/windows/Files.cpp"
                 "${PROJECT_SOURCE_DIR}/tests/windows/Needs.cpp"
                 "${PROJECT_SOURCE_DIR}/tests/windows/RegistryValue.cpp"
                 "${PROJECT_SOURCE_DIR}/tests/windows/Wait.cpp")
jotwright_add_windows_tests(conformance_win32 ${conformance_sources} ${driver_parts})
target_link_libraries(conformance_win32 PRIVATE jotwright_core win32)

# spare_windows shows, for the gallery, the windows that the program itself never opens. It uses the
# program's resources, so that the windows look the same.
add_executable(spare_windows WIN32 "${PROJECT_SOURCE_DIR}/tests/gallery/SpareWindows.cpp" ${resources})
jotwright_flags(spare_windows)
target_include_directories(spare_windows PRIVATE "${PROJECT_SOURCE_DIR}/assets"
                           "${PROJECT_BINARY_DIR}/manifest")
target_link_libraries(spare_windows PRIVATE jotwright_core win32)

jotwright_add_windows_tests(windows_driver ${driver_sources})
target_link_libraries(windows_driver PRIVATE win32 gdiplus oleacc oleaut32)

# The long tests of the real program. They share the support sources of the driver tests.
jotwright_sources(windows_long_sources tests/windows/long)
set(driver_support ${driver_sources})
list(FILTER driver_support EXCLUDE REGEX "/[A-Za-z]+Test\\.cpp$")
jotwright_add_windows_tests(windows_long ${windows_long_sources} ${driver_support}
                            "${PROJECT_SOURCE_DIR}/tests/windows/DriverTest.cpp")
target_link_libraries(windows_long PRIVATE win32 gdiplus oleacc oleaut32)

# For 32 bits, the target "syntax" checks the tests that call Windows without generating code, so that
# they keep compiling between releases. (Each release builds the program itself for 32 bits.) An empty
# object file records that a source has passed.
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
    jotwright_use_precompiled(syntax precompiled_tests)
endif()
