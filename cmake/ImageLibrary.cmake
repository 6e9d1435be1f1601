# The headers of stb, without the rest of the folder that they stand in: a build for another platform
# must not see this one's headers.
find_path(IMAGE_LIBRARY_FOLDER stb/stb_image.h NO_CMAKE_FIND_ROOT_PATH)
if(NOT IMAGE_LIBRARY_FOLDER)
    message(FATAL_ERROR "stb/stb_image.h is missing (Debian: libstb-dev)")
endif()
set(image_library_include ${PROJECT_BINARY_DIR}/image_library)
configure_file(${IMAGE_LIBRARY_FOLDER}/stb/stb_image_write.h
    ${image_library_include}/stb/stb_image_write.h COPYONLY)

# JPEG data that breaks off at a marker leaves the library's count of bits too low, later below zero,
# and it shifts by more than a word. Zeros take the place of the missing bits.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
    ${IMAGE_LIBRARY_FOLDER}/stb/stb_image.h)
file(READ ${IMAGE_LIBRARY_FOLDER}/stb/stb_image.h stock)
string(REPLACE "            j->nomore = 1;\n            return;\n"
               "            j->nomore = 1;\n            b = 0;\n" mended "${stock}")
if(mended STREQUAL stock)
    message(FATAL_ERROR "${IMAGE_LIBRARY_FOLDER}/stb/stb_image.h is of an unknown version")
endif()
set(mended_file ${image_library_include}/stb/stb_image.h)
set(present "")
if(EXISTS ${mended_file})
    file(READ ${mended_file} present)
endif()
if(NOT mended STREQUAL present)
    file(WRITE ${mended_file} "${mended}")
endif()

# The library reads damaged files with overflowing products and local tables that are filled only in
# part. Both are given a meaning.
set(image_library_options -w -fwrapv)
if(CMAKE_CXX_COMPILER_ID MATCHES Clang AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 16)
    list(APPEND image_library_options
        -enable-trivial-auto-var-init-zero-knowing-it-will-be-removed-from-clang)
endif()
list(APPEND image_library_options -ftrivial-auto-var-init=zero)
