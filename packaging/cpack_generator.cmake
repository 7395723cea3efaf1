# Read by cpack once for each kind of package: what is in it, and under which folder. With a
# component named, cpack leaves alone the list of files that the target "uninstall" reads.
list(GET CPACK_INSTALL_CMAKE_PROJECTS 0 build)
if(CPACK_GENERATOR STREQUAL "DEB")
    set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
    set(CPACK_INSTALL_CMAKE_PROJECTS ${build} Rotavel Unspecified /)
else()
    set(CPACK_INSTALL_CMAKE_PROJECTS ${build} Rotavel portable /)
endif()
