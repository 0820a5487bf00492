# `make package`: a Debian package of the installed tree (cmake/VeltoInstall.cmake), installed below
# /usr. Its dependencies are read from the shared libraries the programs really use; the desktop,
# MIME and icon caches are brought up to date by the triggers of the packages that own them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME velto)
set(CPACK_PACKAGE_VENDOR kolvarin)
set(CPACK_PACKAGE_CONTACT "kolvarin <velto@kolvarin.de>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Projekte als Zeitplan oder Mind Map planen")
set(CPACK_PACKAGE_DESCRIPTION
    "Velto plant Projekte als Gliederung aus Projektknoten, Aufgaben, Notizen und Meilensteinen und \
zeigt sie als Zeitplan oder als Mind Map. Jeder Knoten hat eine formatierte Notiz, eine Erinnerung, \
Stunden und Kosten. Ein Projekt ist eine Datei, die ein Team auf einem Netzlaufwerk teilt.")
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Hyperlinks in notes and the manual open through the desktop's own programs.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
include(CPack)
