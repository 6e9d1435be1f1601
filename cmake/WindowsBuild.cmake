# What a build for 64-bit Windows needs on top of the compiler: header-only libraries, the run-time
# libraries beside the programs, GoogleTest from its sources.

# Debian's header-only packages stand among headers for this machine, which a Windows build must not
# see; so only those packages are linked into a folder of the build.
set(windows_headers ${PROJECT_BINARY_DIR}/include)
file(MAKE_DIRECTORY ${windows_headers})
foreach(package CLI nlohmann tiny_gltf.h)
    if(NOT EXISTS /usr/include/${package})
        message(FATAL_ERROR "/usr/include/${package} is missing; run scripts/install-packages")
    endif()
    file(CREATE_LINK /usr/include/${package} ${windows_headers}/${package} SYMBOLIC)
endforeach()
include_directories(SYSTEM ${windows_headers})

# Names without the prefix "lib", as the host looks them up, and wide calls of the platform.
set(CMAKE_SHARED_LIBRARY_PREFIX "")
set(CMAKE_SHARED_MODULE_PREFIX "")
add_compile_definitions(UNICODE _UNICODE NOMINMAX _WIN32_WINNT=0x0A00
                        __USE_MINGW_ANSI_STDIO=1)

# The stack protector's functions and the checked forms of calls, in each library for itself.
string(APPEND CMAKE_CXX_STANDARD_LIBRARIES " -l:libssp.a")
string(APPEND CMAKE_C_STANDARD_LIBRARIES " -l:libssp.a")
add_link_options(-Wl,--exclude-libs,libssp.a)

# The compiler's run-time libraries stand beside the programs.
set(windows_runtime libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
foreach(library ${windows_runtime})
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}
                    OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT EXISTS ${path})
        message(FATAL_ERROR "The compiler has no ${library}")
    endif()
    get_filename_component(path ${path} REALPATH)
    configure_file(${path} ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${library} COPYONLY)
    install(FILES ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${library} DESTINATION ${CMAKE_INSTALL_BINDIR}
            COMPONENT Runtime)
endforeach()

# add_version_resource(TARGET DESCRIPTION): what the system shows of a program or library.
function(add_version_resource target description)
    get_target_property(type ${target} TYPE)
    set(file_type VFT_DLL)
    set(file_name ${target}.dll)
    if(type STREQUAL "EXECUTABLE")
        set(file_type VFT_APP)
        set(file_name ${target}.exe)
    endif()
    string(REPLACE "\"" "\"\"" company "${IMPORTOBJ_ORGANIZATION}")
    configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in
        ${PROJECT_BINARY_DIR}/generated/${target}_version.rc @ONLY)
    target_sources(${target} PRIVATE ${PROJECT_BINARY_DIR}/generated/${target}_version.rc)
endfunction()

# add_googletest(): GTest::gtest and the others, built for Windows.
macro(add_googletest)
    enable_language(C)
    set(INSTALL_GTEST OFF)
    set(BUILD_SHARED_LIBS OFF)
    add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
    foreach(library gtest gtest_main gmock gmock_main)
        target_compile_options(${library} PRIVATE -w)
        set_target_properties(${library} PROPERTIES CXX_CLANG_TIDY "" ARCHIVE_OUTPUT_DIRECTORY
                              ${PROJECT_BINARY_DIR}/googletest)
    endforeach()
endmacro()
