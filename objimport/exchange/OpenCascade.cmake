# Breps as Open CASCADE holds them: their triangles, and STEP files. Its headers are included here alone.
find_path(OCCT_INCLUDE_FOLDER NAMES STEPCAFControl_Writer.hxx PATH_SUFFIXES opencascade REQUIRED)
mark_as_advanced(OCCT_INCLUDE_FOLDER)

# find_open_cascade(VARIABLE library...): sets the variable to the files of the libraries.
function(find_open_cascade variable)
    set(found)
    foreach(library ${ARGN})
        find_library(OCCT_${library} NAMES ${library} REQUIRED)
        mark_as_advanced(OCCT_${library})
        list(APPEND found ${OCCT_${library}})
    endforeach()
    set(${variable} ${found} PARENT_SCOPE)
endfunction()
find_open_cascade(occt_libraries TKMesh TKTopAlgo TKBRep TKG3d TKG2d TKMath TKernel)
find_open_cascade(occt_step_libraries
    TKXDESTEP TKSTEP TKSTEPBase TKXSBase TKXCAF TKLCAF TKCDF)
add_library(open_cascade_step INTERFACE)
target_link_libraries(open_cascade_step INTERFACE ${occt_step_libraries} ${occt_libraries})

add_library(exchange_breps STATIC
    brep_fineness.cpp
    brep_geometry.cpp
    brep_shape.cpp
    brep_shells.cpp
    brep_triangles.cpp
    library_failure.cpp
    surface_mesh.cpp
    surface_mesh_refine.cpp)
target_include_directories(exchange_breps SYSTEM PUBLIC ${OCCT_INCLUDE_FOLDER})
target_link_libraries(exchange_breps PUBLIC exchange_texts kelvohost ${occt_libraries})
set_target_properties(exchange_breps PROPERTIES
    CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
