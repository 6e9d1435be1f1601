# The host that the module is linked against: a library that implements host/. It is the console host
# of this project unless another one is named, by the CMake package that defines it, if any, and its
# target. Then neither the console host nor anything that needs it is built. See docs/hosts.md.
set(IMPORTOBJ_HOST_PACKAGE "" CACHE STRING "CMake package of another host")
set(IMPORTOBJ_HOST_TARGET kelvohost CACHE STRING "Library target of the host")

if(IMPORTOBJ_HOST_PACKAGE)
    find_package(${IMPORTOBJ_HOST_PACKAGE} REQUIRED)
endif()
if(IMPORTOBJ_HOST_TARGET STREQUAL "kelvohost" AND NOT IMPORTOBJ_HOST_PACKAGE)
    set(IMPORTOBJ_CONSOLE_HOST ON)
else()
    set(IMPORTOBJ_CONSOLE_HOST OFF)
    if(NOT TARGET ${IMPORTOBJ_HOST_TARGET})
        message(FATAL_ERROR "There is no target ${IMPORTOBJ_HOST_TARGET} (IMPORTOBJ_HOST_TARGET); "
            "IMPORTOBJ_HOST_PACKAGE names the CMake package that defines it")
    endif()
endif()
