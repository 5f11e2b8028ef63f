# What a package of the program holds beside the executable, and how CPack names it.

# Name, address and terms stand in one file, for all that tell them.
include(packaging/identity.cmake)
foreach(told changelog copyright io.github.tessaro3d.Tessaro3D.metainfo.xml)
  configure_file(packaging/${told}.in ${CMAKE_BINARY_DIR}/told/${told} @ONLY)
endforeach()

# Icons in the sizes that desktops look for, of the program and of its files, drawn from the one drawing.
add_executable(tessaro3d-icons EXCLUDE_FROM_ALL packaging/icone.cpp)
target_link_libraries(tessaro3d-icons PRIVATE Qt6::Gui Qt6::Svg)
set(icons)
foreach(size 16 22 24 32 48 64 128 256 512)
  set(icon ${CMAKE_BINARY_DIR}/icons/${size}.png)
  list(APPEND icons ${icon})
  list(APPEND icon_words ${size} ${icon})
  foreach(kind apps:tessaro3d mimetypes:application-x-tessaro3d)
    string(REPLACE ":" ";" kind ${kind})
    list(GET kind 0 folder)
    list(GET kind 1 name)
    install(FILES ${icon} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/${folder} RENAME ${name}.png)
  endforeach()
endforeach()
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/icons)
add_custom_command(OUTPUT ${icons}
  COMMAND tessaro3d-icons ${CMAKE_SOURCE_DIR}/resources/icons/app.svg ${icon_words}
  DEPENDS tessaro3d-icons resources/icons/app.svg VERBATIM)
install(FILES resources/icons/app.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps RENAME tessaro3d.svg)

# The manual pages and the list of changes are packed, as Debian has them.
foreach(from ${CMAKE_SOURCE_DIR}/packaging/tessaro3d.1 ${CMAKE_SOURCE_DIR}/packaging/tessaro3d.it.1 ${CMAKE_BINARY_DIR}/told/changelog)
  get_filename_component(packed ${from} NAME)
  add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/packed/${packed}.gz
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/packed
    COMMAND sh -c "gzip -9nc '${from}' > '${CMAKE_BINARY_DIR}/packed/${packed}.gz'"
    DEPENDS ${from} VERBATIM)
  list(APPEND packed_files ${CMAKE_BINARY_DIR}/packed/${packed}.gz)
endforeach()
# Only a package needs them: `cmake --build BUILD --target package-files` before `cpack`, as tools/make-package does.
add_custom_target(package-files DEPENDS ${icons} ${packed_files})

install(FILES packaging/tessaro3d.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/tessaro3d.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES packaging/tessaro3d.thumbnailer DESTINATION ${CMAKE_INSTALL_DATADIR}/thumbnailers)
install(FILES ${CMAKE_BINARY_DIR}/told/io.github.tessaro3d.Tessaro3D.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${CMAKE_BINARY_DIR}/packed/tessaro3d.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${CMAKE_BINARY_DIR}/packed/tessaro3d.it.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/it/man1 RENAME tessaro3d.1.gz)
install(FILES ${CMAKE_BINARY_DIR}/told/copyright ${CMAKE_BINARY_DIR}/packed/changelog.gz DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tessaro3d)
install(DIRECTORY ${CMAKE_BINARY_DIR}/guide/ DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tessaro3d)
if(NOT TESSARO_FUZZ)
  install(FILES ${CMAKE_BINARY_DIR}/sample.ts3d DESTINATION ${CMAKE_INSTALL_DATADIR}/tessaro3d)
endif()
install(FILES examples/parcels.jpg examples/sample.script DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tessaro3d/examples)
install(PROGRAMS examples/make-sheet DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tessaro3d/examples)
install(DIRECTORY examples/archive DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tessaro3d/examples USE_SOURCE_PERMISSIONS)
# The reader of DWG files, where npm has brought its library; what its tests alone need stays out.
install(DIRECTORY build/lettore/ DESTINATION ${CMAKE_INSTALL_DATADIR}/tessaro3d/lettore OPTIONAL
  FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ
  PATTERN ".*" EXCLUDE PATTERN "package-lock.json" EXCLUDE PATTERN "libdxfrw-web" EXCLUDE PATTERN "*.ts" EXCLUDE
  PATTERN "*.map" EXCLUDE)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tessaro3d)
set(CPACK_PACKAGE_VENDOR "${TESSARO_VENDOR}")
set(CPACK_PACKAGE_CONTACT "${TESSARO_CONTACT}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Turns scanned sheets and maps into measured drawings")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Surveyors, architects and draughtsmen register a scan or a photograph to real
coordinates by control points, trace over it, rectify it against perspective
and lens distortion, and exchange the result as DXF, DWG and point lists.
.
Commands without a window convert, register, rectify, measure and print.")
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation, fonts-dejavu-core, qt6-image-formats-plugins, qt6-translations-l10n, libqt6svg6")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "nodejs, libgdal32, libproj25, qt6-wayland, shared-mime-info, desktop-file-utils")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
