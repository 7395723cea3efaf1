# Writes the desktop entry with the launcher's full path: a session's PATH need not hold the
# prefix's bin. In an Exec line quotes keep blanks together, \\ stands before what keeps a meaning
# between quotes, and %% is a percent sign (freedesktop.org's desktop entries, "The Exec key").
set(program "${CMAKE_INSTALL_PREFIX}/${launcher}")
cmake_path(ABSOLUTE_PATH program NORMALIZE)
string(REGEX REPLACE "([\"`$])" "\\\\\\\\\\1" program "${program}")
string(REPLACE "%" "%%" program "${program}")
if(NOT program MATCHES "^[A-Za-z0-9_./-]+$")
    set(program "\"${program}\"")
endif()
configure_file("${entry_template}" "${entry}" @ONLY)
