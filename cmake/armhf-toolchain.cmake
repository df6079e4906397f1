# 32-bit ARM (arm-linux-gnueabihf) cross build.
#   cmake -S . -B build-armhf -DCMAKE_TOOLCHAIN_FILE=cmake/armhf-toolchain.cmake
# The compiler brings libc and libstdc++; the other armhf libraries and headers (GoogleTest,
# log4cpp, ncurses, nlohmann-json) are unpacked into sysroot-armhf by scripts/cross-armhf.sh,
# because Debian cannot install the -dev packages of two architectures side by side.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)

set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)

get_filename_component(_fp_root "${CMAKE_CURRENT_LIST_DIR}/.." ABSOLUTE)
set(FP_ARMHF_SYSROOT "${_fp_root}/sysroot-armhf" CACHE PATH "Unpacked armhf packages")
set(FP_ARMHF_LIBC "/usr/arm-linux-gnueabihf" CACHE PATH "The cross compiler's own libc and loader")
set(_fp_libdirs "${FP_ARMHF_SYSROOT}/usr/lib/arm-linux-gnueabihf:${FP_ARMHF_SYSROOT}/lib/arm-linux-gnueabihf")

# Look for headers, libraries and package files only in the armhf trees; programs (the
# build's own tools) come from the host.
set(CMAKE_FIND_ROOT_PATH "${FP_ARMHF_SYSROOT}" "${FP_ARMHF_LIBC}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# pkg-config must read the armhf .pc files, never the host's.
set(ENV{PKG_CONFIG_DIR} "")
set(ENV{PKG_CONFIG_LIBDIR} "${FP_ARMHF_SYSROOT}/usr/lib/arm-linux-gnueabihf/pkgconfig:${FP_ARMHF_SYSROOT}/usr/share/pkgconfig")
set(ENV{PKG_CONFIG_SYSROOT_DIR} "${FP_ARMHF_SYSROOT}")

# Debian's libncurses*.so are linker scripts naming libncurses*.so.6 and -ltinfo, which the
# linker looks up on its search path (-L); their own needs are found through -rpath-link.
set(_fp_link "-L${FP_ARMHF_SYSROOT}/lib/arm-linux-gnueabihf -L${FP_ARMHF_SYSROOT}/usr/lib/arm-linux-gnueabihf -Wl,-rpath-link,${_fp_libdirs}")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${_fp_link}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${_fp_link}")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "${_fp_link}")

# GCC notes every std::vector<...> argument whose ARM calling convention changed in GCC 7.1;
# everything here is built by one compiler, so the note is noise.
set(CMAKE_CXX_FLAGS_INIT "-Wno-psabi")

# The unpacked packages' architecture-specific headers (OpenSSL's configuration, included by
# cpp-httplib) sit in the multiarch folder, which the cross compiler does not search there.
# A standard include folder, not an initial flag, so that a build folder configured before
# this line was added gets it too.
set(CMAKE_CXX_STANDARD_INCLUDE_DIRECTORIES "${FP_ARMHF_SYSROOT}/usr/include/arm-linux-gnueabihf")

# ctest and test discovery run the ARM binaries through user-mode qemu; -L points the
# guest's loader at the cross libc, LD_LIBRARY_PATH at the unpacked libraries.
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm -L "${FP_ARMHF_LIBC}" -E "LD_LIBRARY_PATH=${_fp_libdirs}")
