# The agent's user unit: started by the bus, and at each log-in, so that alerts outlive log-out and reboot.
set(UNIT dayward-agent.service)
set(UNIT_DIRECTORY ${CMAKE_INSTALL_DATADIR}/systemd/user)

install(CODE "
    set(PROGRAM_DIRECTORY \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
    configure_file(\"${CMAKE_CURRENT_LIST_DIR}/${UNIT}.in\" \"${CMAKE_CURRENT_BINARY_DIR}/${UNIT}\" @ONLY)")
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${UNIT} DESTINATION ${UNIT_DIRECTORY})

file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/wanted)
file(CREATE_LINK ../${UNIT} ${CMAKE_CURRENT_BINARY_DIR}/wanted/${UNIT} SYMBOLIC)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/wanted/${UNIT} DESTINATION ${UNIT_DIRECTORY}/default.target.wants)
