# A Debian package of what cmake/Install.cmake installs: `cpack -G DEB` in a
# build configured with CMAKE_INSTALL_PREFIX=/usr (scripts/package does it).
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vellumo)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "The Vellumo developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "batch image cropper")
set(CPACK_PACKAGE_DESCRIPTION
    "Vellumo crops hundreds of photos in one go: the largest rectangle of any
aspect ratio, placed at the centre, an edge, a corner or on the subject, or a
rectangle in pixels or percents of each image, optionally resized, written as
JPEG, PNG, TIFF, GIF, BMP or JPEG 2000 with the metadata kept on request.
Existing files are replaced only with consent and never left half-written.

The package holds the desktop window (vellumo) and a command line with the
same engine (vellumo-cli). Images are decoded in a separate worker process,
so a damaged file fails alone and the batch goes on.")
set(CPACK_PACKAGE_CONTACT "The Vellumo developers <maintainers@vellumo.org>")
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${CPACK_PACKAGE_CONTACT})
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://github.com/vellumo/vellumo")
# vellumo_<version>_<arch>.deb, as Debian names its packages.
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# Depends is worked out by dpkg-shlibdeps from the programs' shared
# libraries (libvips, Exiv2, Qt ...). The window needs two things more that
# no linked library names: Qt's SVG icon engine, a plugin, draws its
# file-kind icons; Qt opens folders and web pages through xdg-open. The
# programs start no other program. Vellumo's own translations are inside
# the program; Qt's (its standard buttons and file dialogs) come with
# qt6-translations-l10n, without which those stay English.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
if(VELLUMO_BUILD_GUI)
    set(CPACK_DEBIAN_PACKAGE_DEPENDS libqt6svg6)
    set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, qt6-translations-l10n")
endif()
# Installed programs carry no symbol tables, and the control files get the
# owners and modes Debian's tools expect.
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
