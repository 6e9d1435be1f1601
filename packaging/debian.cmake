# The Debian package, made by `cpack` in a build folder whose installation prefix is /usr.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME objimport)
set(CPACK_PACKAGE_VENDOR ${IMPORTOBJ_ORGANIZATION})
set(CPACK_PACKAGE_CONTACT "${IMPORTOBJ_ORGANIZATION} <${IMPORTOBJ_SUPPORT_EMAIL}>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "import of Wavefront OBJ files: program and plug-in module")
set(CPACK_PACKAGE_DESCRIPTION
"objimport reads Wavefront OBJ files, polygons as well as free-form curves and
surfaces, and shows or writes the document that comes of them.

The package also holds the module that other applications load to import such
files, and what is needed to build against it: the headers and the CMake
package ImportOBJ.")
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${IMPORTOBJ_WEBSITE})
# What the built files are linked with. They find the host library beside themselves.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "cmake, g++")

if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    set(package_doc_folder ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_PACKAGE_NAME})
    file(READ ${PROJECT_SOURCE_DIR}/LICENSE licence)
    file(READ ${PROJECT_SOURCE_DIR}/THIRD-PARTY-NOTICES.md notices)
    file(WRITE ${PROJECT_BINARY_DIR}/copyright "${licence}\n${notices}\n"
         "Debian has the full texts of the GNU licences in /usr/share/common-licenses/GPL-3 and "
         "/usr/share/common-licenses/LGPL-2.\n")
    configure_file(${PROJECT_SOURCE_DIR}/CHANGELOG.md ${PROJECT_BINARY_DIR}/changelog COPYONLY)
    execute_process(COMMAND gzip -9nf ${PROJECT_BINARY_DIR}/changelog COMMAND_ERROR_IS_FATAL ANY)
    install(FILES ${PROJECT_BINARY_DIR}/copyright ${PROJECT_BINARY_DIR}/changelog.gz
        DESTINATION ${package_doc_folder} COMPONENT Runtime)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION ${package_doc_folder}
        COMPONENT Runtime)
endif()

include(CPack)
