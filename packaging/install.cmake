# What a package of the program holds beside the executable, and how CPack names it.
install(FILES packaging/tessaro3d.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/tessaro3d.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES packaging/tessaro3d.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES resources/icons/app.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps RENAME tessaro3d.svg)
install(FILES examples/parcels.jpg examples/sample.script DESTINATION ${CMAKE_INSTALL_DATADIR}/tessaro3d/examples)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tessaro3d)
set(CPACK_PACKAGE_CONTACT "Tessaro 3D developers <dev@tessaro3d.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Turns scanned sheets and maps into measured drawings")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation, fonts-dejavu-core, qt6-image-formats-plugins, libqt6svg6")
include(CPack)
