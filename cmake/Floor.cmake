# A floor of the house: one static library per folder. Its sources see the headers of their own
# folder and of the floors named in USES, through a folder of links made for each floor; the
# toolkit, where a floor names it, stays private to that floor.
function(add_floor name)
    cmake_parse_arguments(FLOOR "" "" "SOURCES;USES;TOOLKIT" ${ARGN})
    set(view ${PROJECT_BINARY_DIR}/floors/${name})
    file(MAKE_DIRECTORY ${view})
    file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${name} ${view}/${name} SYMBOLIC)

    add_library(${name} STATIC ${FLOOR_SOURCES})
    target_include_directories(${name} PUBLIC ${view})
    target_link_libraries(${name} PUBLIC ${FLOOR_USES} PRIVATE ${FLOOR_TOOLKIT})
endfunction()
