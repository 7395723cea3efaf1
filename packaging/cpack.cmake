# What cpack makes: an archive that is unpacked and started anywhere, and on Debian and its children
# a package.
set(ROTAVEL_MAINTAINER "The Rotavel authors <rotavel@example.org>"
    CACHE STRING "Who answers for the Debian package")

find_program(DPKG dpkg)
set(CPACK_GENERATOR TGZ)
if(DPKG)
    list(APPEND CPACK_GENERATOR DEB)
endif()
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_SOURCE_DIR}/cpack_generator.cmake)
set(CPACK_PACKAGE_NAME rotavel)
set(CPACK_PACKAGE_CONTACT ${ROTAVEL_MAINTAINER})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "road speed of a motorcycle in each gear")
set(CPACK_STRIP_FILES ON)
# Whatever the umask of the one who builds.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-liberation, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"How fast a motorcycle goes in each of its gears at an engine speed, and
how fast the engine turns at a road speed, from the rear tyre, the primary
drive, the gearbox and the final drive; in km/h or mph, also as a chart.
.
It knows 59 motorcycles, and more can be added in a text file.")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_SOURCE_DIR}/postrm)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

include(CPack)
