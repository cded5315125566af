# What `cmake --install` lays down, and the Debian package that `cpack` makes of it:
#   cmake --build --preset release && cpack --config build/release/CPackConfig.cmake
include(GNUInstallDirs)

install(TARGETS counter-setup counterctl counter-link counter-sim counter-face DESTINATION ${CMAKE_INSTALL_BINDIR})
# Beside the executable's folder, where the programs look for it.
install(DIRECTORY ${CMAKE_BINARY_DIR}/share/help ${CMAKE_BINARY_DIR}/share/boards
        DESTINATION ${CMAKE_INSTALL_DATADIR}/counter-setup)
install(FILES data/desktop/counter-setup.desktop data/desktop/counter-link.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES data/desktop/counter-setup.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES data/desktop/org.counter_setup.CounterSetup.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES data/completion/counterctl DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES data/udev/70-counter-setup.rules DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/counter-setup/examples)
install(FILES README.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/counter-setup)
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/counter-setup RENAME copyright)

# Debian wants manual pages and the changelog compressed, without a time in them.
find_program(COUNTER_GZIP gzip)
if(COUNTER_GZIP)
  set(packed "")
  foreach(page counter-setup counterctl counter-link counter-sim counter-face)
    list(APPEND packed ${page}.1)
  endforeach()
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/man)
  foreach(page ${packed})
    execute_process(COMMAND ${COUNTER_GZIP} -9nc ${CMAKE_SOURCE_DIR}/data/man/${page}
                    OUTPUT_FILE ${CMAKE_BINARY_DIR}/man/${page}.gz)
    install(FILES ${CMAKE_BINARY_DIR}/man/${page}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  endforeach()
  execute_process(COMMAND ${COUNTER_GZIP} -9nc ${CMAKE_SOURCE_DIR}/CHANGELOG.md
                  OUTPUT_FILE ${CMAKE_BINARY_DIR}/man/changelog.gz)
  install(FILES ${CMAKE_BINARY_DIR}/man/changelog.gz DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/counter-setup)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME counter-setup)
set(CPACK_PACKAGE_VENDOR "Counter Setup")
set(CPACK_PACKAGE_CONTACT "Counter Setup maintainers <maintainers@counter-setup.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "setup tool for a digital panel counter/timer")
set(CPACK_PACKAGE_DESCRIPTION "Reads the meter's whole configuration over a serial line or an Ethernet node,
shows it as a tabbed editor and as the meter's own menu, writes it back and
keeps it in files. A command line companion does the same from scripts, and a
simulated meter lets everything be tried without one.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                                WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
include(CPack)
