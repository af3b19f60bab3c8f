# The program. WinMain.cpp has a plain main() and needs no Windows header; the WIN32 subsystem alone
# makes it a program without a console. FailFast.cpp must not be in a library, or the linker would
# take the C++ library's handlers instead.
set(entry "${PROJECT_SOURCE_DIR}/app/WinMain.cpp" "${PROJECT_SOURCE_DIR}/app/FailFast.cpp")

set(resources "${PROJECT_SOURCE_DIR}/assets/jotwright.rc")

add_executable(Jotwright WIN32 ${entry} ${resources})
jotwright_flags(Jotwright)
target_include_directories(Jotwright PRIVATE "${PROJECT_SOURCE_DIR}/assets")
target_link_libraries(Jotwright PRIVATE jotwright_core win32)

file(GLOB embedded CONFIGURE_DEPENDS
     "${PROJECT_SOURCE_DIR}/assets/*.h"
     "${PROJECT_SOURCE_DIR}/assets/icons/*" "${PROJECT_SOURCE_DIR}/assets/images/*")
set(manifest_folder "${PROJECT_BINARY_DIR}/manifest")
configure_file("${PROJECT_SOURCE_DIR}/assets/jotwright.manifest.in"
               "${manifest_folder}/jotwright.manifest" @ONLY)
target_include_directories(Jotwright PRIVATE "${manifest_folder}")
string(REPLACE "." "," version_numbers "${PROJECT_VERSION}.0")
set_source_files_properties("${resources}" PROPERTIES
    OBJECT_DEPENDS "${embedded};${manifest_folder}/jotwright.manifest"
    COMPILE_DEFINITIONS
        "JOTWRIGHT_VERSION=${PROJECT_VERSION};JOTWRIGHT_VERSION_NUMBERS=${version_numbers}")

# The launcher of the portable copy.
set(launcher_resources "${PROJECT_SOURCE_DIR}/assets/portable.rc")
jotwright_sources(launcher_sources portable/win32)
add_executable(JotwrightPortable WIN32 ${launcher_sources} ${launcher_resources})
jotwright_flags(JotwrightPortable)
target_include_directories(JotwrightPortable PRIVATE "${PROJECT_SOURCE_DIR}/assets" "${manifest_folder}")
target_link_libraries(JotwrightPortable PRIVATE portable win32)
set_source_files_properties("${launcher_resources}" PROPERTIES
    OBJECT_DEPENDS "${manifest_folder}/jotwright.manifest"
    COMPILE_DEFINITIONS
        "JOTWRIGHT_VERSION=${PROJECT_VERSION};JOTWRIGHT_VERSION_NUMBERS=${version_numbers}")

# For the scripts that make the packages.
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/product.txt" @ONLY CONTENT
"version=@PROJECT_VERSION@
web_site=@JOTWRIGHT_WEB_SITE@
support=@JOTWRIGHT_SUPPORT@
downloads=@JOTWRIGHT_DOWNLOADS@
compiler=@CMAKE_CXX_COMPILER@
")

find_package(Python3 REQUIRED COMPONENTS Interpreter)
# The linker has no switch for these bits of the header.
foreach(program Jotwright JotwrightPortable)
    add_custom_command(TARGET ${program} POST_BUILD VERBATIM
        COMMAND Python3::Interpreter "${PROJECT_SOURCE_DIR}/scripts/run-from-swap"
                $<TARGET_FILE:${program}>)
endforeach()
