# Where an installed game puts its files, and the Debian package made from them.
#   cmake --install build --prefix /usr/local     install
#   cd build && cpack -G DEB                       make grumbo2_<version>_<arch>.deb
# The program looks for its data beside itself first, then in ../share/grumbo2, so the data
# folder below must stay the binary folder's sibling.
include(GNUInstallDirs)

set(GRUMBO_HOMEPAGE "https://grumbo2.example.org" CACHE STRING "The game's homepage")
set(GRUMBO_APP_ID org.example.grumbo2)
set(GRUMBO_ICON_SIZES 16 22 24 32 48 64 128 256)

if(TARGET grumbo2)
    install(TARGETS grumbo2 RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

# The icons are for the desktop, not for the game.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/data/ DESTINATION ${CMAKE_INSTALL_DATADIR}/grumbo2
        PATTERN icons EXCLUDE)
foreach(size IN LISTS GRUMBO_ICON_SIZES)
    install(FILES ${PROJECT_SOURCE_DIR}/data/icons/grumbo2-${size}.png
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps
            RENAME grumbo2.png)
endforeach()

install(FILES ${PROJECT_SOURCE_DIR}/dist/grumbo2.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)

configure_file(${PROJECT_SOURCE_DIR}/dist/${GRUMBO_APP_ID}.metainfo.xml.in
               ${PROJECT_BINARY_DIR}/dist/${GRUMBO_APP_ID}.metainfo.xml @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/dist/${GRUMBO_APP_ID}.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

# Debian keeps its man pages gzipped, without name or time stamp in the header.
set(GRUMBO_MANPAGE ${PROJECT_BINARY_DIR}/dist/grumbo2.6.gz)
add_custom_command(OUTPUT ${GRUMBO_MANPAGE}
                   COMMAND gzip -9 -n -c ${PROJECT_SOURCE_DIR}/dist/grumbo2.6 > ${GRUMBO_MANPAGE}
                   DEPENDS ${PROJECT_SOURCE_DIR}/dist/grumbo2.6)
add_custom_target(grumbo2_manpage ALL DEPENDS ${GRUMBO_MANPAGE})
install(FILES ${GRUMBO_MANPAGE} DESTINATION ${CMAKE_INSTALL_MANDIR}/man6)

set(CPACK_PACKAGE_NAME grumbo2)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "The Grumbo 2 developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "turn-based banana artillery for two or four players")
set(CPACK_PACKAGE_HOMEPAGE_URL ${GRUMBO_HOMEPAGE})
set(CPACK_GENERATOR DEB)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The Grumbo 2 developers <grumbo2@example.org>")
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Grumbo 2 - Kravenmoor is a turn-based artillery game for two or four
players sharing one computer. In every round a new city is built; the players
stand on its rooftops and take turns throwing bananas (normal, nuke, war,
magnetic) under gravity and wind, cratering the skyline and counting frags,
points and accuracy.")
# dpkg-shlibdeps names the libraries the program links (Qt 6 Widgets, SDL2_mixer, libsndfile,
# libc, libstdc++); what it only opens at run time, the SoundFont for the tunes and Wine's
# Tahoma, is named here.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "timgm6mb-soundfont, fonts-wine")
set(CPACK_STRIP_FILES ON)
include(CPack)
