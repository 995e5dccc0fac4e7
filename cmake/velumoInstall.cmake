# What `cmake --install` puts where.

include(CMakePackageConfigHelpers)

set(velumo_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/velumo)

# The pkg-config file finds its prefix from its own place, so that an installed tree can be moved.
file(RELATIVE_PATH velumo_pc_to_prefix /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
set(VELUMO_PC_PREFIX "\${pcfiledir}/${velumo_pc_to_prefix}")
set(VELUMO_PC_PRIVATE_REQUIRES SDL_image)
if(VELUMO_HAS_X11)
    string(APPEND VELUMO_PC_PRIVATE_REQUIRES " xcb")
endif()
if(VELUMO_HAS_FONTCONFIG)
    string(APPEND VELUMO_PC_PRIVATE_REQUIRES " fontconfig")
endif()
# Whoever links the static library names what that needs itself, with or without --static.
if(NOT BUILD_SHARED_LIBS)
    set(VELUMO_PC_STATIC_REQUIRES " ${VELUMO_PC_PRIVATE_REQUIRES}")
    set(VELUMO_PC_STATIC_LIBS " -lstdc++")
endif()
configure_file(cmake/velumo.pc.in ${PROJECT_BINARY_DIR}/velumo.pc @ONLY)

configure_package_config_file(
    cmake/velumoConfig.cmake.in ${PROJECT_BINARY_DIR}/velumoConfig.cmake
    INSTALL_DESTINATION ${velumo_package_dir}
)
write_basic_package_version_file(
    ${PROJECT_BINARY_DIR}/velumoConfigVersion.cmake
    COMPATIBILITY SameMajorVersion
)

install(TARGETS velumo EXPORT velumoTargets)
if(VELUMO_BUILD_TOOLS)
    install(TARGETS velform EXPORT velumoTargets)
    install(
        FILES tools/velform/velform.bash
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        RENAME velform
    )
endif()
install(FILES include/velumo.h TYPE INCLUDE)
install(FILES docs/man/velform.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES docs/man/velform-source.5 docs/man/velumo-form.5 DESTINATION ${CMAKE_INSTALL_MANDIR}/man5)
install(FILES docs/man/velumo.7 DESTINATION ${CMAKE_INSTALL_MANDIR}/man7)
install(EXPORT velumoTargets NAMESPACE velumo:: DESTINATION ${velumo_package_dir})
install(
    FILES
        ${PROJECT_BINARY_DIR}/velumoConfig.cmake
        ${PROJECT_BINARY_DIR}/velumoConfigVersion.cmake
        cmake/velumoSdl.cmake
        cmake/velumoForms.cmake
    DESTINATION ${velumo_package_dir}
)
install(FILES ${PROJECT_BINARY_DIR}/velumo.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
