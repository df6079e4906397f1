# Debian packages, built by CPack's DEB generator from the install rules:
#   frontpanel      the daemon, its systemd unit and its log configuration (a conffile)
#   frontpanel-lab  unitd, panelsim, zorctl, libqbtools, libzor, the unit files and the
#                   serial panel bridge
# `cpack -G DEB` in a build folder writes both for that build's architecture;
# scripts/package.sh builds them for amd64 and armhf from clean Release builds.

install(FILES ${PROJECT_SOURCE_DIR}/packaging/frontpanel.service
  DESTINATION ${FP_INSTALL_SYSTEMD_DIR} COMPONENT daemon)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/frontpanel-log4cpp.init
  DESTINATION ${FP_INSTALL_LOGCONFIG_DIR} COMPONENT daemon)
install(PROGRAMS ${PROJECT_SOURCE_DIR}/scripts/serial-panel.sh
  DESTINATION ${FP_INSTALL_BINDIR} RENAME frontpanel-serial-panel COMPONENT lab)

if(NOT FP_UNITS_DIR STREQUAL "/usr/${FP_INSTALL_UNITSDIR}")
  message(STATUS "Packages of this build read the built-in unit from ${FP_UNITS_DIR}, not from "
    "the lab package (scripts/package.sh sets -DFP_UNITS_DIR=/usr/${FP_INSTALL_UNITSDIR})")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME frontpanel)
set(CPACK_PACKAGE_VENDOR "frontpanel developers")
set(CPACK_PACKAGE_CONTACT "frontpanel developers <frontpanel@localhost>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL daemon lab)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE ${FP_DEB_ARCH})
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# The build runs in a few seconds either way; gzip keeps it so on a loaded machine.
set(CPACK_DEBIAN_COMPRESSION_TYPE gzip)

# The daemon. It does not depend on libqbtools and libzor: on the receiver they come with
# the platform, outside dpkg's view, and a dependency would either be unsatisfiable there
# or pull in our lab builds over the platform's own. On a workstation they come with the
# lab package, which is therefore only suggested.
set(CPACK_DEBIAN_DAEMON_PACKAGE_NAME frontpanel)
set(CPACK_COMPONENT_DAEMON_DESCRIPTION "front-panel daemon of the receiver-decoder
The program behind the unit's 5 x 30 character display and six keys: it reads key
reports from the panel through the serial multiplexer's socket, draws the status and
settings screens and reads and writes the unit's managed objects through the
controller SDK (libqbtools and libzor, from the platform or frontpanel-lab).")
set(CPACK_DEBIAN_DAEMON_PACKAGE_DEPENDS "libc6 (>= 2.34), libstdc++6 (>= 12), libgcc-s1 (>= 3.0), liblog4cpp5v5 (>= 1.1.3)")
set(CPACK_DEBIAN_DAEMON_PACKAGE_SUGGESTS "frontpanel-lab (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DAEMON_PACKAGE_CONTROL_EXTRA
  ${PROJECT_SOURCE_DIR}/packaging/daemon/conffiles
  ${PROJECT_SOURCE_DIR}/packaging/daemon/postinst
  ${PROJECT_SOURCE_DIR}/packaging/daemon/prerm
  ${PROJECT_SOURCE_DIR}/packaging/daemon/postrm)
set(CPACK_DEBIAN_DAEMON_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# The lab tools and our builds of the platform libraries.
set(CPACK_DEBIAN_LAB_PACKAGE_NAME frontpanel-lab)
set(CPACK_COMPONENT_LAB_DESCRIPTION "lab tools of the front-panel daemon
unitd (a virtual unit playing the receiver's controller), panelsim (a panel emulator),
zorctl (a command-line client of unitd), frontpanel-serial-panel (a serial panel
bridge), the unit files, and the libqbtools and libzor that the daemon runs on away
from the receiver.")
# The libraries land in the multiarch folder: ldconfig must see them.
set(CPACK_DEBIAN_LAB_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/lab/triggers)
set(CPACK_DEBIAN_LAB_PACKAGE_DEPENDS "libc6 (>= 2.34), libstdc++6 (>= 12), libgcc-s1 (>= 3.0), libncursesw6 (>= 6), libtinfo6 (>= 6), socat")

include(CPack)
