# The application in the desktop: its entry, its bus name, its description and its icon.
set(APPLICATION_ID org.dayward.Dayward)

install(FILES desktop/${APPLICATION_ID}.desktop desktop/${APPLICATION_ID}.Widget.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES desktop/${APPLICATION_ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES man/dayward-app.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES completion/dayward-app.bash
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME dayward-app)

install_bus_service(${APPLICATION_ID})

find_program(DAYWARD_RSVG_CONVERT rsvg-convert REQUIRED)
set(ICON ${CMAKE_CURRENT_SOURCE_DIR}/icons/${APPLICATION_ID})
set(ICON_THEME ${CMAKE_BINARY_DIR}/share/icons/hicolor)
set(ICON_FILES)
foreach(SIZE 16 22 24 32 48 64 128 256 512)
    set(DIRECTORY ${ICON_THEME}/${SIZE}x${SIZE}/apps)
    add_custom_command(
        OUTPUT ${DIRECTORY}/${APPLICATION_ID}.png
        COMMAND ${CMAKE_COMMAND} -E make_directory ${DIRECTORY}
        COMMAND ${DAYWARD_RSVG_CONVERT} -w ${SIZE} -h ${SIZE} -o ${DIRECTORY}/${APPLICATION_ID}.png ${ICON}.svg
        DEPENDS ${ICON}.svg
        VERBATIM)
    list(APPEND ICON_FILES ${DIRECTORY}/${APPLICATION_ID}.png)
endforeach()
add_custom_target(dayward_icon_files ALL DEPENDS ${ICON_FILES})
add_dependencies(dayward-app dayward_icon_files)
install(DIRECTORY ${ICON_THEME} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons)
install(FILES ${ICON}.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${ICON}-symbolic.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/symbolic/apps)
