# `cpack -G DEB` in a build folder makes one package that `apt install ./korvel_....deb` installs.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME korvel)
set(CPACK_PACKAGE_VENDOR "The KORVEL front end developers")
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${KORVEL_MAINTAINER}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_CMAKE_PROJECTS "${CMAKE_BINARY_DIR};korvel;ALL;/")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "study the results of the KORVEL river water-quality model")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"The desktop front end of KORVEL, a river water-quality model for whole
catchments. Model runs are started on a data file; then their results are
studied: longitudinal profiles of flow and quality down the river, two runs
compared, ruled printed reports, spreadsheet files and listings.

A demonstration engine and a sample catchment are included.")
# What the linker sees, the libraries of the print system, of workbooks and of databases, which are loaded when
# something is printed or written first, and the fonts that the given forms are laid out for.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation, libcups2, libsqlite3-0, libxlsxwriter4")
# A desktop finds the program for a results file by what these two write down.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "desktop-file-utils, shared-mime-info")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "wine")
include(CPack)
