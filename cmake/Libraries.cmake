# jotwright_sources(<variable> <folder>...): lists the sources directly in these folders. The next
# build finds new files. A folder may be missing or empty.
function(jotwright_sources variable)
    set(patterns)
    foreach(folder IN LISTS ARGN)
        list(APPEND patterns "${PROJECT_SOURCE_DIR}/${folder}/*.cpp")
    endforeach()
    file(GLOB found CONFIGURE_DEPENDS ${patterns})
    set(${variable} ${found} PARENT_SCOPE)
endfunction()

# jotwright_add_library(<name> <folder>...): a static library of the sources in these folders,
# without the program's entry point. If there are no sources yet, it is an interface library. Link
# further libraries to it with the keyword in <name>_SCOPE.
function(jotwright_add_library name)
    jotwright_sources(sources ${ARGN})
    list(FILTER sources EXCLUDE REGEX "/app/WinMain\\.cpp$")
    if(JOTWRIGHT_FUZZ)
        # The code that reads files does not depend on the windows.
        list(FILTER sources EXCLUDE REGEX "/(frm|dlg)[^/]*$")
    endif()
    if(sources)
        add_library(${name} STATIC ${sources})
        jotwright_flags(${name})
        set(${name}_SCOPE PUBLIC PARENT_SCOPE)
    else()
        add_library(${name} INTERFACE)
        set(${name}_SCOPE INTERFACE PARENT_SCOPE)
    endif()
endfunction()
