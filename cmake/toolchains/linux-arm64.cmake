# 64-bit ARM under Linux, by Debian's cross compiler, with the libraries of a sysroot: the folder that
# `scripts/sysroot arm64` makes and prints. Programs run through QEMU.
set(KTPNAIPS_SYSROOT "$ENV{KTPNAIPS_SYSROOT}" CACHE PATH "Folder of the other system's libraries")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KTPNAIPS_SYSROOT)
if(NOT IS_DIRECTORY "${KTPNAIPS_SYSROOT}/usr/include")
  message(FATAL_ERROR "KTPNAIPS_SYSROOT has to name the folder that `scripts/sysroot arm64` prints")
endif()

set(triple aarch64-linux-gnu)
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_CXX_COMPILER ${triple}-g++)
set(CMAKE_C_COMPILER ${triple}-gcc)
set(CMAKE_LIBRARY_ARCHITECTURE ${triple})
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE arm64)

set(CMAKE_SYSROOT ${KTPNAIPS_SYSROOT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${CMAKE_SYSROOT})
set(ENV{PKG_CONFIG_LIBDIR} ${CMAKE_SYSROOT}/usr/lib/${triple}/pkgconfig:${CMAKE_SYSROOT}/usr/share/pkgconfig)

find_program(KTPNAIPS_QEMU NAMES qemu-aarch64-static qemu-aarch64 REQUIRED)
set(CMAKE_CROSSCOMPILING_EMULATOR ${KTPNAIPS_QEMU} -L ${CMAKE_SYSROOT})
