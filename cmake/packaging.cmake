# What `cmake --install` lays down, and the packages. The programs find their data from where they stand:
# PREFIX/bin looks into PREFIX/share/counter-setup.
#
# The target `deb` makes counter-setup_VERSION-1_ARCHITECTURE.deb in the folder of the build, which needs dpkg-shlibdeps
# and file; `rpm` makes counter-setup-VERSION-1.ARCHITECTURE.rpm, which needs rpmbuild. ./run --package does it in
# build/package, with all that it needs.
include(GNUInstallDirs)
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)  # a package needs neither tests nor benchmarks
set(shipped ${CMAKE_SOURCE_DIR}/data)
set(made ${CMAKE_BINARY_DIR}/packaging)
set(docs ${CMAKE_INSTALL_DATADIR}/doc/counter-setup)

set(counter_programs counter-setup counterctl counter-record counter-sheet counter-link counter-sim counter-face)
install(TARGETS ${counter_programs} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
configure_file(${shipped}/desktop/counter-try ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/counter-try COPYONLY)
install(PROGRAMS ${shipped}/desktop/counter-try DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${CMAKE_BINARY_DIR}/share/help ${CMAKE_BINARY_DIR}/share/boards
        DESTINATION ${CMAKE_INSTALL_DATADIR}/counter-setup)

foreach(program counter-setup counter-link)
  install(FILES ${shipped}/desktop/${program}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${shipped}/desktop/${program}.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
endforeach()
install(FILES ${shipped}/desktop/counter-setup.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo
        RENAME org.counter_setup.counter_setup.metainfo.xml)
install(FILES ${shipped}/desktop/counter-setup.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES ${shipped}/completion/counterctl DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES ${shipped}/debian/copyright DESTINATION ${docs})
install(FILES ${shipped}/udev/78-counter-setup.rules DESTINATION ${docs}/examples)
install(FILES README.md ARCHITECTURE.md CONTRIBUTING.md CHANGELOG.md DESTINATION ${docs})
install(DIRECTORY docs DESTINATION ${docs})

# counter_gzipped(FROM TO FOLDER): FROM, compressed without name and time, is installed as FOLDER/TO.gz.
function(counter_gzipped from to folder)
  add_custom_command(OUTPUT ${made}/${to}.gz
    COMMAND ${CMAKE_COMMAND} -E copy ${from} ${made}/${to}
    COMMAND gzip -9nf ${made}/${to}
    DEPENDS ${from} VERBATIM)
  set_property(GLOBAL APPEND PROPERTY counter_gzipped_files ${made}/${to}.gz)
  install(FILES ${made}/${to}.gz DESTINATION ${folder})
endfunction()

foreach(page ${counter_programs} counter-try)
  configure_file(${shipped}/man/${page}.1 ${made}/pages/${page}.1 @ONLY)
  counter_gzipped(${made}/pages/${page}.1 ${page}.1 ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()
counter_gzipped(${shipped}/debian/changelog changelog.Debian ${docs})
counter_gzipped(${CMAKE_SOURCE_DIR}/CHANGELOG.md changelog ${docs})
get_property(gzipped_files GLOBAL PROPERTY counter_gzipped_files)
add_custom_target(gzipped ALL DEPENDS ${gzipped_files})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME counter-setup)
set(CPACK_PACKAGE_CONTACT "Counter Setup maintainers <maintainers@counter-setup.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "setup tool for a digital panel counter/timer")
set(CPACK_PACKAGE_DESCRIPTION
"Counter Setup reads the whole configuration of a digital panel counter/timer
over a serial line or an Ethernet node, shows it field by field, as the meter's
own front-panel menu and as a tabbed editor with all its rules, keeps it in
files, writes it back and proves what it wrote. It speaks the meter's Custom
ASCII protocol, Modbus RTU and Modbus ASCII.

The package holds the desktop tool, the same core for shells and scripts
(counterctl), and a simulated meter to try both on.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Windows need a plugin for the display, and the store of readings one for SQLite, that no library names.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins, libqt6sql6-sqlite")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS qt6-wayland)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_OUTPUT_FILE_PREFIX ${CMAKE_BINARY_DIR})
set(CPACK_RPM_FILE_NAME RPM-DEFAULT)
set(CPACK_RPM_PACKAGE_RELEASE 1)
set(CPACK_RPM_PACKAGE_LICENSE "MIT")
set(CPACK_RPM_PACKAGE_GROUP "Applications/Engineering")
set(CPACK_RPM_PACKAGE_REQUIRES "qt6-qtbase-gui")
# Folders that belong to the system.
set(CPACK_RPM_EXCLUDE_FROM_AUTO_FILELIST_ADDITION
    /usr/share/applications /usr/share/bash-completion /usr/share/bash-completion/completions /usr/share/icons
    /usr/share/icons/hicolor /usr/share/icons/hicolor/scalable /usr/share/icons/hicolor/scalable/apps
    /usr/share/man /usr/share/man/man1 /usr/share/mime /usr/share/mime/packages /usr/share/metainfo /usr/share/doc)
include(CPack)
foreach(kind deb rpm)
  string(TOUPPER ${kind} generator)
  add_custom_target(${kind}
    COMMAND ${CMAKE_CPACK_COMMAND} -G ${generator} --config ${CMAKE_BINARY_DIR}/CPackConfig.cmake
    DEPENDS ${counter_programs} help_files batch_texts board_drawings gzipped
    COMMENT "Making the ${kind} package" VERBATIM USES_TERMINAL)
endforeach()
