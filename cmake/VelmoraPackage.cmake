# The package for Debian: "cpack -G DEB" in the folder of a build. The caches of file types, menu entries and icons are brought up
# to date by the packages that keep them, whenever dpkg adds or removes files in their folders.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME velmora)
set(CPACK_PACKAGE_VENDOR "The makers of Velmora")
set(CPACK_PACKAGE_CONTACT "The makers of Velmora <packages@velmora.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://www.velmora.example/")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "diagram editor for business planning")
set(CPACK_PACKAGE_DESCRIPTION_FILE ${CMAKE_SOURCE_DIR}/product/desktop/description)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_CMAKE_PROJECTS "${CMAKE_BINARY_DIR};${PROJECT_NAME};system;/")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ
    WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libcups2, libzip4") # loaded when they are needed
# The fonts have the metrics of those that maps of other machines name; xdg-utils opens the help, attachments and addresses; the
# others keep the caches of the desktop.
set(recommended fonts-liberation fonts-crosextra-carlito fonts-crosextra-caladea xdg-utils shared-mime-info desktop-file-utils
    hicolor-icon-theme)
list(JOIN recommended ", " CPACK_DEBIAN_PACKAGE_RECOMMENDS)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "pdf-viewer, qt6-wayland")
include(CPack)
