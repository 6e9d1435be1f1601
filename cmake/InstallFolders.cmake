# Where an installation has its parts: the program, the host library, the module, and what a build
# against them needs. Packages for users leave out the component Development.
include(GNUInstallDirs)
if(WIN32)
    # There a program and its libraries stand in one folder.
    set(CMAKE_INSTALL_BINDIR .)
    set(install_library_folder .)
    set(install_module_folder .)
    set(install_help_folder help)
    set(install_licence_folder licences)
else()
    set(install_library_folder ${CMAKE_INSTALL_LIBDIR})
    set(install_module_folder ${CMAKE_INSTALL_LIBDIR}/ImportOBJ)
    set(install_help_folder ${CMAKE_INSTALL_DATADIR}/ImportOBJ/help)
    set(install_licence_folder ${CMAKE_INSTALL_DOCDIR})
endif()
set(install_header_folder ${CMAKE_INSTALL_INCLUDEDIR}/ImportOBJ)
set(install_package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/ImportOBJ)

# Programs and modules find the host library beside themselves, as they are built, or where it is
# installed, and nowhere else. What is built has the run path of what is installed: otherwise CMake
# fills up the run path with colons, each of which means the current folder.
set(CMAKE_BUILD_WITH_INSTALL_RPATH ON)
file(RELATIVE_PATH to_library /${CMAKE_INSTALL_BINDIR} /${install_library_folder})
set(program_run_path "$ORIGIN" "$ORIGIN/${to_library}")
set(module_run_path "$ORIGIN" "$ORIGIN/..")
set(CMAKE_INSTALL_RPATH "$ORIGIN")
file(RELATIVE_PATH program_to_module_folder /${CMAKE_INSTALL_BINDIR} /${install_module_folder})
file(RELATIVE_PATH program_to_help_folder /${CMAKE_INSTALL_BINDIR} /${install_help_folder})
