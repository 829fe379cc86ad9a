include(GNUInstallDirs)

# The installed program, as the Debian package has it.
install(TARGETS tavplan RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY template dives lang DESTINATION ${CMAKE_INSTALL_DATADIR}/tav)
install(FILES assets/logo.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/tav)
# Icons, manual pages and the like, which scripts/package makes.
install(DIRECTORY ${CMAKE_BINARY_DIR}/packaging/root/share DESTINATION . OPTIONAL)
# A folder to run from, to which scripts/carry.sh adds what the programs need of a system.
install(TARGETS tavplan RUNTIME DESTINATION bin COMPONENT portable EXCLUDE_FROM_ALL)
install(DIRECTORY template dives lang DESTINATION share/tav COMPONENT portable EXCLUDE_FROM_ALL)
install(FILES assets/logo.svg DESTINATION share/tav COMPONENT portable EXCLUDE_FROM_ALL)
install(FILES CHANGELOG.md DESTINATION . COMPONENT portable EXCLUDE_FROM_ALL)
install(FILES packaging/portable.txt DESTINATION . RENAME README.txt COMPONENT portable EXCLUDE_FROM_ALL)
if(TAV_DESKTOP)
  install(TARGETS tav RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES assets/Tav.wav DESTINATION ${CMAKE_INSTALL_DATADIR}/tav)
  install(TARGETS tav RUNTIME DESTINATION bin COMPONENT portable EXCLUDE_FROM_ALL)
  install(FILES assets/Tav.wav DESTINATION share/tav COMPONENT portable EXCLUDE_FROM_ALL)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tav)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "The owner of TAV")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What is shown and not linked: the fonts of reports, and the place of the icons.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation2, hicolor-icon-theme, qt6-translations-l10n")
# Without the one, the words of tavplan are not completed in the shell; without the other, windows need X11 or Xwayland.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "bash-completion, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "decompression planner for technical divers
Waypoints in, a decompression schedule out: ZH-L16 with gradient factors, VPM,
or a hybrid of both; open circuit with any number of gases, or a constant-PPO2
rebreather; altitude and repetitive dives; oxygen exposure, narcotic depth and
gas consumption. In windows, and as tavplan on the command line.")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
