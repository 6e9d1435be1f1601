# Language, warnings and sanitizers: the same for every target.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# What is built stands in one folder.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)

add_compile_options(
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual -Wundef)
# A product of doubles must not turn into a fused one on some machines only.
add_compile_options(-ffp-contract=off)
# GCC 12 loses the rounding of (double)(float)x when it puts two such conversions side by side into
# one vector register.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-fno-tree-slp-vectorize)
endif()

# With it a compiler cache can serve sources that use precompiled headers.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-fpch-preprocess)
endif()
# What most sources include of the standard library, compiled once for a target.
set(standard_headers
    <algorithm> <array> <cmath> <cstdint> <filesystem> <limits> <map> <memory> <optional> <span>
    <string> <string_view> <utility> <vector>)

if(IMPORTOBJ_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(IMPORTOBJ_SANITIZE_THREADS)
    add_compile_options(-fsanitize=thread)
    add_link_options(-fsanitize=thread)
endif()
if(IMPORTOBJ_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# What makes a fault in memory hard to exploit. The sanitizers stop at the fault itself.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)
check_pie_supported()
if(NOT IMPORTOBJ_SANITIZE)
    add_compile_options(-fstack-protector-strong)
    # The library's checks of sizes need an optimising compiler.
    add_compile_options(
        "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:SHELL:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3>")
    check_cxx_compiler_flag(-fcf-protection=full compiler_protects_control_flow)
    if(compiler_protects_control_flow)
        add_compile_options(-fcf-protection=full)
    endif()
endif()
if(WIN32)
    add_link_options(-Wl,--dynamicbase -Wl,--high-entropy-va -Wl,--nxcompat)
else()
    add_link_options(-Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
endif()

# The importer's libraries and the module are optimised across their files in a release: reading is a
# tenth faster for it. The objects hold machine code as well, which tests link without that step.
set(optimise_across_files $<AND:$<CONFIG:Release>,$<CXX_COMPILER_ID:GNU>>)

# compile_across_files(TARGET...) prepares object libraries, link_across_files(TARGET) makes use of it.
function(compile_across_files)
    foreach(target ${ARGN})
        target_compile_options(${target} PRIVATE
            $<${optimise_across_files}:-flto=auto> $<${optimise_across_files}:-ffat-lto-objects>)
    endforeach()
endfunction()
function(link_across_files target)
    target_link_options(${target} PRIVATE $<${optimise_across_files}:-flto=auto>)
endfunction()
