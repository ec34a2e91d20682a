# What cpack makes of the components: `cpack -G TGZ` and `cpack -G DEB` (scripts/package.sh).
set(CPACK_PACKAGE_NAME orbisgrid)
set(CPACK_PACKAGE_VENDOR "The Orbisgrid developers")
set(CPACK_PACKAGE_CONTACT "The Orbisgrid developers <zz9qx@orbisgrid.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "distance, azimuth and position notations for radio amateurs")
set(CPACK_PACKAGE_DESCRIPTION
"Orbisgrid takes two Maidenhead locators, Home and Target, and gives the
distance in kilometres and miles, the azimuth, and both positions. It
converts one position between the locator (4 to 10 characters), decimal
degrees, degrees/minutes/seconds, the UI-View text of APRS and the
compressed text of APRS. From the command line it does the same without
a window, and orbisgrid-batch for whole lists and logs (csv, ADIF).")
set(CPACK_PACKAGE_HOMEPAGE_URL "http://www.orbisgrid.example/hamradio/orbisgrid.htm")
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_SOURCE_DIR}/package_components.cmake)
# Whoever builds it may have a narrow umask; the package's folders are for everybody.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_ARCHIVE_FILE_NAME orbisgrid-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_PACKAGE_FILE_NAME ${CPACK_ARCHIVE_FILE_NAME})

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION hamradio)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The platform plugins are opened at run time, which shlibdeps cannot see.
set(CPACK_DEBIAN_PACKAGE_DEPENDS qt6-qpa-plugins)
# The clipboard of a command line on Wayland, links and the map, the manual's font.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-liberation, wl-clipboard, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS qt6-wayland)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

include(CPack)
