# What Debian asks of the documents in a package: both changelogs, and they and the manual pages compressed,
# without a time in them. Runs over the installed tree before it is packed.
set(SHARE ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share)
set(DOCUMENTS ${SHARE}/doc/dayward)
file(RENAME ${DOCUMENTS}/CHANGELOG.md ${DOCUMENTS}/changelog)
configure_file(${CMAKE_CURRENT_LIST_DIR}/changelog ${DOCUMENTS}/changelog.Debian COPYONLY)
file(GLOB MANUAL_PAGES ${SHARE}/man/man*/*)
execute_process(COMMAND gzip -9n ${DOCUMENTS}/changelog ${DOCUMENTS}/changelog.Debian ${MANUAL_PAGES}
                COMMAND_ERROR_IS_FATAL ANY)
