# What `cmake --install` puts where, following the freedesktop conventions: the programs in bin/,
# the files the program ships in share/velto (where it looks after its own folder), and the desktop
# entry, MIME type, icons, AppStream metainfo and man pages where the desktop finds them. `make
# package` turns the same tree into a Debian package (cmake/VeltoPackage.cmake).
include(GNUInstallDirs)
set(VELTO_DATA_DESTINATION ${CMAKE_INSTALL_DATADIR}/velto)
set(VELTO_ICON_THEME ${CMAKE_INSTALL_DATADIR}/icons/hicolor)

install(TARGETS velto velto-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${VELTO_MANUAL_PDF} ${VELTO_ALARM_SOUND} ${CMAKE_SOURCE_DIR}/examples/Beispielprojekt.VT5
        DESTINATION ${VELTO_DATA_DESTINATION})

# Qt's German texts for its own dialogs, so that an installation does not depend on a translation
# package being there.
find_program(VELTO_QTPATHS NAMES qtpaths6 qtpaths PATHS /usr/lib/qt6/bin)
if(VELTO_QTPATHS)
    execute_process(COMMAND ${VELTO_QTPATHS} --query QT_INSTALL_TRANSLATIONS
                    OUTPUT_VARIABLE VELTO_QT_TRANSLATIONS OUTPUT_STRIP_TRAILING_WHITESPACE)
endif()
find_file(VELTO_QT_GERMAN qtbase_de.qm PATHS ${VELTO_QT_TRANSLATIONS} /usr/share/qt6/translations NO_DEFAULT_PATH)
if(VELTO_QT_GERMAN)
    install(FILES ${VELTO_QT_GERMAN} DESTINATION ${VELTO_DATA_DESTINATION}/translations)
else()
    message(WARNING "Qt's German translation (qtbase_de.qm) was not found; it is not installed.")
endif()

install(FILES ${CMAKE_SOURCE_DIR}/res/de.kolvarin.Velto.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${CMAKE_SOURCE_DIR}/res/de.kolvarin.Velto.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${CMAKE_SOURCE_DIR}/res/velto-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages
        RENAME velto.xml)
install(FILES ${CMAKE_SOURCE_DIR}/docs/man/velto.1 ${CMAKE_SOURCE_DIR}/docs/man/velto-cli.1
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

# The icons are drawn once, as SVG; the sizes desktops ask for as pixels are rendered from them.
find_program(VELTO_RSVG_CONVERT rsvg-convert REQUIRED)
set(VELTO_ICONS velto:apps application-x-velto-project:mimetypes)
set(VELTO_ICON_PNGS)
foreach(icon IN LISTS VELTO_ICONS)
    string(REPLACE ":" ";" parts ${icon})
    list(GET parts 0 name)
    list(GET parts 1 context)
    set(svg ${CMAKE_SOURCE_DIR}/res/icons/${name}.svg)
    install(FILES ${svg} DESTINATION ${VELTO_ICON_THEME}/scalable/${context})
    foreach(size 16 22 24 32 48 64 128 256)
        set(png ${CMAKE_BINARY_DIR}/icons/${size}/${name}.png)
        add_custom_command(OUTPUT ${png}
                           COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/icons/${size}
                           COMMAND ${VELTO_RSVG_CONVERT} -w ${size} -h ${size} ${svg} -o ${png}
                           DEPENDS ${svg} VERBATIM)
        list(APPEND VELTO_ICON_PNGS ${png})
        install(FILES ${png} DESTINATION ${VELTO_ICON_THEME}/${size}x${size}/${context})
    endforeach()
endforeach()
add_custom_target(velto_icons ALL DEPENDS ${VELTO_ICON_PNGS})
