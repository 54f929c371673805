# What `cmake --install` puts where (and so what the Debian package holds):
# the programs in bin, the worker in libexec/vellumo, the command line's
# manual page and bash completion, and, with the window, what a Linux
# desktop reads to list, show and start it: the desktop entry, the icon in
# the hicolor theme and the AppStream metadata.
include(GNUInstallDirs)

# The programs look for the worker at ../libexec/vellumo from their own
# folder (WorkerExecutablePath), so the two folders must stay in that
# relation whatever the prefix.
file(RELATIVE_PATH vellumo_worker_from_bin "${CMAKE_INSTALL_FULL_BINDIR}"
    "${CMAKE_INSTALL_FULL_LIBEXECDIR}/vellumo")
if(NOT vellumo_worker_from_bin STREQUAL "../libexec/vellumo")
    message(FATAL_ERROR "Vellumo's programs find their worker at ../libexec/vellumo from "
        "${CMAKE_INSTALL_BINDIR}; CMAKE_INSTALL_LIBEXECDIR=${CMAKE_INSTALL_LIBEXECDIR} breaks that")
endif()

install(TARGETS vellumo-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS vellumo-worker RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/vellumo)
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/vellumo RENAME copyright)

# The manual page carries the project's version, and is installed
# compressed, as Debian's manual pages are.
configure_file(docs/vellumo-cli.1 ${PROJECT_BINARY_DIR}/man/vellumo-cli.1 @ONLY)
find_program(VELLUMO_GZIP gzip REQUIRED)
add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/man/vellumo-cli.1.gz
    COMMAND ${VELLUMO_GZIP} -9 -n -k -f ${PROJECT_BINARY_DIR}/man/vellumo-cli.1
    DEPENDS ${PROJECT_BINARY_DIR}/man/vellumo-cli.1
    COMMENT "Compressing the manual page of vellumo-cli"
    VERBATIM)
add_custom_target(vellumo_manual ALL DEPENDS ${PROJECT_BINARY_DIR}/man/vellumo-cli.1.gz)
install(FILES ${PROJECT_BINARY_DIR}/man/vellumo-cli.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES resources/integration/vellumo-cli.bash-completion
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME vellumo-cli)

if(VELLUMO_BUILD_GUI)
    install(TARGETS vellumo RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    install(FILES resources/integration/org.vellumo.Vellumo.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
    install(FILES resources/integration/org.vellumo.Vellumo.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

    # The icon: the SVG for any size, and PNGs rendered from it at build
    # time for the sizes panels and menus ask for. Rendered, not kept in the
    # repository, so they can never fall behind the drawing.
    set(vellumo_icon_svg ${PROJECT_SOURCE_DIR}/resources/icons/app/org.vellumo.Vellumo.svg)
    install(FILES ${vellumo_icon_svg} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
    find_program(VELLUMO_RSVG_CONVERT rsvg-convert REQUIRED)
    set(vellumo_icon_pngs)
    foreach(size 16 24 32 48 64 128 256)
        set(png ${PROJECT_BINARY_DIR}/icons/${size}x${size}/org.vellumo.Vellumo.png)
        add_custom_command(OUTPUT ${png}
            COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/icons/${size}x${size}
            COMMAND ${VELLUMO_RSVG_CONVERT} --width ${size} --height ${size} --output ${png}
                ${vellumo_icon_svg}
            DEPENDS ${vellumo_icon_svg}
            COMMENT "Rendering the ${size}x${size} application icon"
            VERBATIM)
        list(APPEND vellumo_icon_pngs ${png})
        install(FILES ${png} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
    endforeach()
    add_custom_target(vellumo_app_icons ALL DEPENDS ${vellumo_icon_pngs})
endif()
