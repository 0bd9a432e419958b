# The library, its development files and the tools, each a package. What only Debian asks for, such
# as copyright and changelog, finish.cmake adds.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL library development tools)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${CPACK_PACKAGE_CONTACT})
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
if(CMAKE_SYSROOT)
  list(APPEND CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    ${CMAKE_SYSROOT}/usr/lib/${CMAKE_LIBRARY_ARCHITECTURE})
endif()
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)

set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SOURCE ktpnaips)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each description begins with its own

set(version ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
set(library libktpnaips${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${library})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_SOURCE_DIR}/debian/triggers)
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "client library for the NAIPS flight-briefing service
Builds the requests of NAIPS, the flight-briefing and flight-notification
service, posts them over HTTP or HTTPS, and reads the answers.
.
This package has the shared library.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libktpnaips-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${library} (= ${version})")
# Programs that link the archive link these as well.
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "libxml2-dev, libcurl4-openssl-dev, libssl-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
  "client library for the NAIPS flight-briefing service (development files)
Builds the requests of NAIPS, the flight-briefing and flight-notification
service, posts them over HTTP or HTTPS, and reads the answers.
.
This package has the C++20 headers, the archive, and what find_package and
pkg-config read.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME naips)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${library} (= ${version})")
set(CPACK_DEBIAN_TOOLS_PACKAGE_RECOMMENDS "ca-certificates, fonts-dejavu-core")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION
  "flight briefings and notifications from NAIPS at the command line
naips asks for briefings, charts, bulletins and NOTAMs and files flight
notifications; naips-simulator is a service to try it and to develop against.")

# Debian's own changelog beside ours; the time is that of the sources where SOURCE_DATE_EPOCH tells.
string(TIMESTAMP now "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian @ONLY CONTENT
"ktpnaips (@version@) unstable; urgency=medium

  * New version: changelog.gz tells what is new.

 -- @CPACK_PACKAGE_CONTACT@  @now@
")
file(READ ${PROJECT_SOURCE_DIR}/LICENSE licence)
string(REGEX MATCH "Copyright \\(c\\) ([^\n]*)\n\n" holder "${licence}")
set(holder ${CMAKE_MATCH_1})
string(REGEX REPLACE "^.*Copyright[^\n]*\n\n" "\n" licence "${licence}")
string(REPLACE "\n\n" "\n.\n" licence "${licence}")
string(STRIP "${licence}" licence)
string(REPLACE "\n" "\n " licence " ${licence}")
configure_file(debian/copyright.in copyright @ONLY)
configure_file(debian/finish.cmake.in finish.cmake @ONLY)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_BINARY_DIR}/finish.cmake)
