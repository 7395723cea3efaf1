# A floor of the house, or a room of one (gui/windows): one static library per folder, named after
# it (gui_windows). Its sources see the headers of their own folder and of what USES names, through
# folders of links made for each library; what TOOLKIT names stays private. SHOWS are the headers of
# the folder above that a room answers for: who may use the room sees those too.
function(add_floor name)
    cmake_parse_arguments(FLOOR "" "" "SOURCES;SHOWS;USES;TOOLKIT" ${ARGN})
    string(REPLACE "/" "_" library ${name})
    string(REPLACE "/" "_" uses "${FLOOR_USES}")
    add_library(${library} STATIC ${FLOOR_SOURCES})
    show_headers(${library} PUBLIC . *.h)
    if(FLOOR_SHOWS)
        show_headers(${library} PUBLIC .. ${FLOOR_SHOWS})
    endif()
    target_link_libraries(${library} PUBLIC ${uses} PRIVATE ${FLOOR_TOOLKIT})
endfunction()

# Lets those who link a library include the headers of a folder that match the patterns, by their
# path from the top.
function(show_headers library scope folder)
    list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/)
    file(GLOB headers RELATIVE ${PROJECT_SOURCE_DIR} CONFIGURE_DEPENDS ${ARGN})
    set(view ${PROJECT_BINARY_DIR}/include/${library})
    foreach(header ${headers})
        cmake_path(GET header PARENT_PATH place)
        file(MAKE_DIRECTORY ${view}/${place})
        file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${header} ${view}/${header} SYMBOLIC)
    endforeach()
    target_include_directories(${library} ${scope} ${view})
endfunction()
