# Installation and the Debian package: the program, its menu entry, icons, metainfo and
# manual page. `cpack -G DEB` in the build folder (scripts/package.sh) makes the package.
include(GNUInstallDirs)
set(SINGBOX_APP_ID cn.xinglan.singbox)
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

install(TARGETS singbox RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
# The .xls reader the program starts for each file, beside it in the package's own folder.
install(TARGETS singbox-xls RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/singbox)

if(UNIX AND NOT APPLE)
  set(linux ${PROJECT_SOURCE_DIR}/resources/linux)
  set(icon ${PROJECT_SOURCE_DIR}/resources/images/singbox.svg)
  set(out ${PROJECT_BINARY_DIR}/package)
  set(icon_sizes 16 24 32 48 64 128 256)

  # The PNG icons are drawn from the SVG at build time with Qt's own renderer.
  add_executable(render_icons tools/render_icons.cpp)
  target_link_libraries(render_icons PRIVATE singbox_settings Qt6::Svg Qt6::Gui)
  set(pngs)
  foreach(size ${icon_sizes})
    list(APPEND pngs ${out}/icons/${size}.png)
  endforeach()
  find_program(GZIP_PROGRAM gzip REQUIRED)
  add_custom_command(OUTPUT ${pngs}
    COMMAND render_icons ${icon} ${out}/icons ${icon_sizes}
    DEPENDS render_icons ${icon} VERBATIM)
  # Debian wants manual pages and changelogs compressed, without time stamps.
  add_custom_command(OUTPUT ${out}/singbox.1.gz ${out}/changelog.gz
    COMMAND ${CMAKE_COMMAND} -E make_directory ${out}
    COMMAND sh -c "${GZIP_PROGRAM} -9n -c '${linux}/singbox.1' > '${out}/singbox.1.gz'"
    COMMAND sh -c "${GZIP_PROGRAM} -9n -c '${linux}/changelog' > '${out}/changelog.gz'"
    DEPENDS ${linux}/singbox.1 ${linux}/changelog VERBATIM)
  add_custom_target(package_files ALL DEPENDS ${pngs} ${out}/singbox.1.gz ${out}/changelog.gz)

  install(FILES ${linux}/${SINGBOX_APP_ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${linux}/${SINGBOX_APP_ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES ${icon} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps
    RENAME ${SINGBOX_APP_ID}.svg)
  foreach(size ${icon_sizes})
    install(FILES ${out}/icons/${size}.png
      DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps RENAME ${SINGBOX_APP_ID}.png)
  endforeach()
  install(FILES ${out}/singbox.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES ${out}/changelog.gz ${linux}/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})
endif()

set(CPACK_PACKAGE_NAME singbox)
set(CPACK_PACKAGE_VENDOR "Xinglan KTV")
set(CPACK_PACKAGE_CONTACT "Xinglan KTV <packaging@xinglan.cn>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "till and back office of a karaoke venue")
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Plugins Qt loads at run time, which the library scan cannot see.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6sql6-sqlite, libqt6sql6-psql, libqt6svg6")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-noto-cjk, xdg-utils")
# The synopsis is the summary above; this is the long text, one paragraph per blank line.
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "Xinglan KTV (星澜KTV) is the desktop program a karaoke venue's cashiers and
managers use all day: rooms opened and priced by a tariff, food and drinks
ordered into the room's bill, checkout in cash, with member discount and
stored value, as a free or a deferred bill; members, stock, reservations,
reports, operators with fine-grained rights, an operation log and backups.

The user interface is in Simplified Chinese. One venue PC keeps an embedded
SQLite database; several cashier PCs share a PostgreSQL server.")
include(CPack)
