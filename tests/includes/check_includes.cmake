# Holds the include lines of each folder against the folders that it may know:
#   cmake -DROOT=FOLDER -P check_includes.cmake
cmake_minimum_required(VERSION 3.25)

# may_include(FOLDER [STANDARD_ONLY] FOLDERS folder... [BUT folder...]): what the files of the folder,
# but not those of the folders BUT, may include: files whose paths begin so, and other headers, which
# are those of the standard library when STANDARD_ONLY is given.
function(may_include folder)
    cmake_parse_arguments(ARG "STANDARD_ONLY" "" "FOLDERS;BUT" ${ARGN})
    list(JOIN ARG_FOLDERS "|" allowed)
    file(GLOB_RECURSE files RELATIVE ${ROOT} ${ROOT}/${folder}/*.h ${ROOT}/${folder}/*.cpp
         ${ROOT}/${folder}/*.h.in)
    foreach(but ${ARG_BUT})
        list(FILTER files EXCLUDE REGEX "^${but}/")
    endforeach()
    if(NOT files)
        message(FATAL_ERROR "${ROOT}/${folder} holds no sources")
    endif()
    foreach(file ${files})
        file(STRINGS ${ROOT}/${file} lines REGEX "^[ \t]*#[ \t]*include")
        foreach(line ${lines})
            if(line MATCHES "\"" AND NOT line MATCHES "\"(${allowed})[/\"]")
                message(SEND_ERROR "${file} must not have the line ${line}")
            elseif(ARG_STANDARD_ONLY AND line MATCHES "<[^>]*[./]")
                message(SEND_ERROR "${file}: no header of the standard library: ${line}")
            endif()
        endforeach()
    endforeach()
endfunction()

may_include(host STANDARD_ONLY FOLDERS host)
may_include(objreader STANDARD_ONLY FOLDERS objreader host)
may_include(geometry STANDARD_ONLY FOLDERS geometry objreader host)
may_include(materials STANDARD_ONLY FOLDERS materials objreader host)
may_include(plugin STANDARD_ONLY FOLDERS plugin geometry materials objreader host)
may_include(console_host FOLDERS console_host host)
may_include(objimport BUT objimport/check objimport/exchange FOLDERS objimport console_host host)
if(EXISTS ${ROOT}/objimport/check)
    # The checker reads files as the importer does, without a document.
    may_include(objimport/check
        FOLDERS objimport/check objreader materials/mtl_statements.h host/geokit host/runtime)
endif()
if(EXISTS ${ROOT}/objimport/exchange)
    may_include(objimport/exchange FOLDERS objimport/exchange host)
endif()
