# cmake -DSOURCE=<header> -DOUTPUT=<staged header> -DPUBLIC_LIST=<file> -P StageHeader.cmake
# Copies a public header for installation, turning each #include "folder/Name.h" of the
# library into #include <vorelle/Name.h>. A header of the library that is not public
# (a *_p.h, an implementation header) is an error: it would not be installed.
cmake_minimum_required(VERSION 3.25)
file(STRINGS ${PUBLIC_LIST} public)
file(READ ${SOURCE} text)
string(REGEX MATCHALL "#include \"[^\"]+\"" includes "${text}")
foreach(line IN LISTS includes)
    string(REGEX REPLACE "#include \"([^\"]+)\"" "\\1" path "${line}")
    if(NOT path IN_LIST public)
        message(FATAL_ERROR "${SOURCE}: the public header includes \"${path}\", which is not "
            "installed; include it from the .cpp file or make it public")
    endif()
    get_filename_component(name ${path} NAME)
    string(REPLACE "${line}" "#include <vorelle/${name}>" text "${text}")
endforeach()
file(WRITE ${OUTPUT} "${text}")
