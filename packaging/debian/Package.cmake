# The Debian package: `cpack -G DEB` in a build tree.
set(DAYWARD_PACKAGE_CONTACT "The Dayward developers <developers@dayward.example.org>" CACHE STRING
    "Who maintains the package: a name and an address")

# What no library of the programs says: zones, and for the application the QML modules, plug-ins and fonts
# that are marked "app" among the packages that building needs.
set(DEPENDS tzdata)
if(TARGET dayward-app)
    set_property(DIRECTORY ${CMAKE_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS packaging/packages.txt)
    file(STRINGS ${CMAKE_CURRENT_SOURCE_DIR}/packages.txt NEEDED REGEX "^[^#]+ app( |$)")
    list(TRANSFORM NEEDED REPLACE " .*" "")
    list(APPEND DEPENDS ${NEEDED})
    set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
        "fonts-noto-color-emoji, default-dbus-session-bus | dbus-session-bus, xdg-utils")
endif()
list(JOIN DEPENDS ", " CPACK_DEBIAN_PACKAGE_DEPENDS)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME dayward)
set(CPACK_PACKAGE_CONTACT ${DAYWARD_PACKAGE_CONTACT})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "countdowns and reminders")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Dayward tells how far away each of your days is: birthdays, holidays,
journeys, deadlines. Every event has dates and times, a rule by which it
repeats, alerts, a note and a look of its own, and counts down in the
units that it chooses, in English and Russian.
.
The program dayward does everything on the command line.")
if(TARGET dayward-app)
    string(APPEND CPACK_DEBIAN_PACKAGE_DESCRIPTION "\nThe program dayward-app shows it in a window.")
endif()
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/debian/Documents.cmake)
include(CPack)
