# make install: the program in bin/, its resource tree in share/larkwood
# (where the program looks beside its bin/), the desktop entry and the icon.
include(GNUInstallDirs)
install(TARGETS larkwood RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${LARKWOOD_RESOURCE_DIR}/ DESTINATION ${CMAKE_INSTALL_DATADIR}/larkwood USE_SOURCE_PERMISSIONS)
install(FILES ${PROJECT_SOURCE_DIR}/desktop/larkwood.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${PROJECT_SOURCE_DIR}/Resources/larkwood.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
