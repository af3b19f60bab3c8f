# jotwright_sources(<variable> <folder>...): the sources that stand directly in these folders.
# New files are picked up by the next build. A folder may be missing or empty.
function(jotwright_sources variable)
    set(patterns)
    foreach(folder IN LISTS ARGN)
        list(APPEND patterns "${PROJECT_SOURCE_DIR}/${folder}/*.cpp")
    endforeach()
    file(GLOB found CONFIGURE_DEPENDS ${patterns})
    set(${variable} ${found} PARENT_SCOPE)
endfunction()

# jotwright_add_floor(<name> <folder>...): a static library of the sources in these folders,
# without the program's entry point. <name>_SCOPE tells how to link further libraries to it:
# a floor that has no source yet is an interface library.
function(jotwright_add_floor name)
    jotwright_sources(sources ${ARGN})
    list(FILTER sources EXCLUDE REGEX "/app/WinMain\\.cpp$")
    if(JOTWRIGHT_FUZZ)
        # What reads files stands below the windows.
        list(FILTER sources EXCLUDE REGEX "/(frm|dlg)[^/]*$")
    endif()
    if(sources)
        add_library(${name} STATIC ${sources})
        jotwright_flags(${name})
        jotwright_use_precompiled(${name} precompiled)
        set(${name}_SCOPE PUBLIC PARENT_SCOPE)
    else()
        add_library(${name} INTERFACE)
        set(${name}_SCOPE INTERFACE PARENT_SCOPE)
    endif()
endfunction()
