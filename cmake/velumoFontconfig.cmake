# Finds what vel_open_display() needs to find a font: PkgConfig::VELUMO_FC, which only the library
# itself uses. Without it, programs name the file of their font.

set(VELUMO_HAS_FONTCONFIG OFF)
if(VELUMO_FONTCONFIG)
    pkg_check_modules(VELUMO_FC IMPORTED_TARGET GLOBAL fontconfig)
    set(VELUMO_HAS_FONTCONFIG ${VELUMO_FC_FOUND})
endif()
if(VELUMO_FONTCONFIG AND NOT VELUMO_HAS_FONTCONFIG)
    message(STATUS "fontconfig is not there: programs will have to name the file of their font")
endif()
