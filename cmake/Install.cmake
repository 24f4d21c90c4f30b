# Where an installed game puts its files, and the Debian package made from them.
#   cmake --install build --prefix /usr/local     install
#   cd build && cpack -G DEB                       make grumbo2_<version>_<arch>.deb
include(GNUInstallDirs)

set(GRUMBO_HOMEPAGE "https://grumbo2.example.org" CACHE STRING "The game's homepage")
set(GRUMBO_APP_ID org.example.grumbo2)
set(GRUMBO_ICON_SIZES 16 22 24 32 48 64 128 256)
set(GRUMBO_DOCDIR ${CMAKE_INSTALL_DATADIR}/doc/grumbo2)

# Under /usr, the distribution's own prefix, the program and its data go where Debian keeps games:
# /usr/games and /usr/share/games/grumbo2. Under any other prefix (/usr/local, ~/.local, /opt/x)
# they go to bin/ and share/grumbo2, where a player's PATH looks. The choice is made as the files
# are installed, not at configure time, because cpack installs this same build tree under /usr.
# The program looks for its data beside itself, then in ../share/grumbo2 and ../share/games/grumbo2:
# both layouts keep the data folder where one of those finds it.
install(CODE [[
    string(REGEX REPLACE "/+$" "" grumbo_prefix "${CMAKE_INSTALL_PREFIX}")
    if(grumbo_prefix STREQUAL "/usr")
        set(grumbo_bindir games)
        set(grumbo_datadir share/games/grumbo2)
    else()
        set(grumbo_bindir bin)
        set(grumbo_datadir share/grumbo2)
    endif()
]])
install(TARGETS grumbo2 RUNTIME DESTINATION "\${grumbo_bindir}")
# A stripped program keeps no compiler notes either.
install(CODE "
    if(CMAKE_INSTALL_DO_STRIP)
        execute_process(COMMAND \"${CMAKE_STRIP}\" --remove-section=.comment --remove-section=.note
                        \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/\${grumbo_bindir}/grumbo2\")
    endif()
")

# The icons go with the game's data too: its windows show them.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/data/ DESTINATION "\${grumbo_datadir}")
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

# Debian keeps its man pages and changelogs gzipped, without name or time stamp in the header.
function(grumbo_gzip source gzipped)
    add_custom_command(OUTPUT ${gzipped}
                       COMMAND gzip -9 -n -c ${source} > ${gzipped}
                       DEPENDS ${source})
endfunction()
configure_file(${PROJECT_SOURCE_DIR}/dist/grumbo2.6 ${PROJECT_BINARY_DIR}/dist/grumbo2.6 @ONLY)
grumbo_gzip(${PROJECT_BINARY_DIR}/dist/grumbo2.6 ${PROJECT_BINARY_DIR}/dist/grumbo2.6.gz)
grumbo_gzip(${GRUMBO_CHANGELOG} ${PROJECT_BINARY_DIR}/dist/changelog.gz)
add_custom_target(grumbo2_dist ALL
                  DEPENDS ${PROJECT_BINARY_DIR}/dist/grumbo2.6.gz ${PROJECT_BINARY_DIR}/dist/changelog.gz)
install(FILES ${PROJECT_BINARY_DIR}/dist/grumbo2.6.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man6)

# Who may do what with it, and what changed, travel with every copy.
install(FILES ${PROJECT_BINARY_DIR}/dist/changelog.gz DESTINATION ${GRUMBO_DOCDIR})
install(FILES ${PROJECT_SOURCE_DIR}/COPYRIGHT DESTINATION ${GRUMBO_DOCDIR} RENAME copyright)
# What Debian's package checker is told, where only a package would put it: the credits are
# data that the credits screen scrolls, not documentation about the data folder.
install(CODE "
    if(grumbo_prefix STREQUAL /usr)
        file(INSTALL ${PROJECT_SOURCE_DIR}/dist/lintian-overrides
             DESTINATION \${CMAKE_INSTALL_PREFIX}/share/lintian/overrides RENAME grumbo2)
    endif()
")

set(CPACK_PACKAGE_NAME grumbo2)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "The Grumbo 2 developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "turn-based banana artillery for two or four players")
set(CPACK_PACKAGE_HOMEPAGE_URL ${GRUMBO_HOMEPAGE})
set(CPACK_GENERATOR DEB)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${GRUMBO_MAINTAINER})
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
