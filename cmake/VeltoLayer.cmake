# One library per source folder, linked in one direction only.
#
# Each folder's headers are reachable through an include root of its own that holds nothing but a
# link to that folder (build/layers/<target>/<folder>), and a library gets that root only by linking
# the folder's library. A source that includes a header of a folder it does not depend on therefore
# fails to compile, instead of waiting for a review to notice the wrong direction.
include_guard(GLOBAL)

# velto_layer(<target> FOLDER <folder> [PREFIX <prefix>] [DEPENDS <targets>...] [LIBS <libraries>...])
# <folder> is relative to the current source directory and is included as "<prefix><folder>/X.h"
# (the prefix defaults to none). A folder with headers only becomes an interface library.
function(velto_layer target)
    cmake_parse_arguments(LAYER "" "FOLDER" "DEPENDS;LIBS" ${ARGN})
    set(source_dir ${CMAKE_CURRENT_SOURCE_DIR}/${LAYER_FOLDER})
    set(include_root ${CMAKE_BINARY_DIR}/layers/${target})
    file(MAKE_DIRECTORY ${include_root})
    if(NOT EXISTS ${include_root}/${LAYER_FOLDER})
        file(CREATE_LINK ${source_dir} ${include_root}/${LAYER_FOLDER} SYMBOLIC)
    endif()
    file(GLOB sources CONFIGURE_DEPENDS ${source_dir}/*.cpp)
    file(GLOB headers CONFIGURE_DEPENDS ${source_dir}/*.h)
    if(sources)
        add_library(${target} STATIC ${sources} ${headers})
        target_include_directories(${target} PUBLIC ${include_root})
        target_link_libraries(${target} PUBLIC ${LAYER_DEPENDS} ${LAYER_LIBS})
    else()
        add_library(${target} INTERFACE ${headers})
        target_include_directories(${target} INTERFACE ${include_root})
        target_link_libraries(${target} INTERFACE ${LAYER_DEPENDS} ${LAYER_LIBS})
    endif()
endfunction()
