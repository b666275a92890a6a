# The Debian package: cpack -G DEB in the build folder. werkzeuge/paket.sh makes it and tries it.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME liedwerk)
set(CPACK_PACKAGE_VENDOR "Liedwerk")
set(CPACK_PACKAGE_CONTACT "Liedwerk <liedwerk@liedwerk.invalid>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://liedwerk.invalid/")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "catalogue of media files")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Liedwerk reads folders with media files and keeps their technical data and
tags in one index file. The collection can be searched while typing, listed,
played, tagged, renamed, copied and exported, also while a medium is absent.
It hands files to an audio player of your choice and counts what is played.

The program speaks German. The package holds the desktop program and
liedwerk-cli, which runs the same without a window.")
# The libraries that the programs link come from dpkg-shlibdeps; what Qt loads while it runs does not.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-qpa-plugins, qt6-wayland, qt6-translations-l10n, dbus-user-session | dbus-x11")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "audacious | vlc | strawberry | celluloid")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
