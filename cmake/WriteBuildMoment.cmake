# Writes a source file that says when the module was built, as in "Jan  3 2013 03:34:43":
#   cmake -DSOURCE=FILE.cpp -P WriteBuildMoment.cmake
# The time is that of SOURCE_DATE_EPOCH, in UTC, when the environment has it.
if(DEFINED ENV{SOURCE_DATE_EPOCH})
    set(zone UTC)
endif()
string(TIMESTAMP moment "%b %d %Y %H:%M:%S" ${zone})
string(REGEX REPLACE "^(...) 0" "\\1  " moment "${moment}")
file(WRITE ${SOURCE} "#include \"plugin/build_moment.h\"\n\n"
                     "const wchar_t* const BuildMoment = L\"${moment}\";\n")
