# Where an installation puts things. The packages install under /usr with Debian's
# multiarch library folder; the daemon's own fixed paths (its log configuration, the
# systemd unit) are absolute, because the daemon and systemd look nowhere else.
if(CMAKE_LIBRARY_ARCHITECTURE)
  set(FP_INSTALL_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE})
else()
  set(FP_INSTALL_LIBDIR lib)
endif()
set(FP_INSTALL_BINDIR bin)
set(FP_INSTALL_SBINDIR sbin)
set(FP_INSTALL_UNITSDIR share/frontpanel/units)
set(FP_INSTALL_LOGCONFIG_DIR /var/config)
set(FP_INSTALL_SYSTEMD_DIR /lib/systemd/system)

# dpkg's name of the target architecture.
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(arm|armv7.*)$")
  set(FP_DEB_ARCH armhf)
elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64)$")
  set(FP_DEB_ARCH amd64)
else()
  set(FP_DEB_ARCH ${CMAKE_SYSTEM_PROCESSOR})
endif()

# The unit file that the embedded controller (--controller embedded) loads. A build tree
# uses the sources' copy; the package build points it at the installed one.
set(FP_UNITS_DIR "${PROJECT_SOURCE_DIR}/unit/units" CACHE PATH
  "Folder of the unit files the embedded controller's built-in unit is read from")
