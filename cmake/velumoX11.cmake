# Finds what the clipboard needs to be shared with other programs: PkgConfig::VELUMO_XCB, which only
# the library itself uses. Without it, the clipboard works within a program.

set(VELUMO_HAS_X11 OFF)
if(VELUMO_X11)
    pkg_check_modules(VELUMO_XCB IMPORTED_TARGET GLOBAL xcb)
    set(VELUMO_HAS_X11 ${VELUMO_XCB_FOUND})
endif()
if(VELUMO_X11 AND NOT VELUMO_HAS_X11)
    message(STATUS "libxcb is not there: the clipboard will work within a program only")
endif()
