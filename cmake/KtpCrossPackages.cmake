# Packages for a Windows build on another system: header-only libraries and GoogleTest come from
# the building system. Each library's folder is linked into the build folder by itself, so that no
# other header of that system is ever seen. find_package finds them as on the system itself.
set(KTPNAIPS_HEADER_ROOT /usr/include CACHE PATH "Where header-only libraries are")
set(KTPNAIPS_GOOGLETEST_SOURCE /usr/src/googletest CACHE PATH "Where GoogleTest's sources are")

set(ktp_header_links ${CMAKE_BINARY_DIR}/header-only)

# ktp_header_only(package target folder version): makes find_package(package) define the target.
function(ktp_header_only package target folder version)
  file(MAKE_DIRECTORY ${ktp_header_links}/${package})
  file(CREATE_LINK ${KTPNAIPS_HEADER_ROOT}/${folder} ${ktp_header_links}/${package}/${folder}
    SYMBOLIC)
  string(TOLOWER ${package} name)
  file(WRITE ${CMAKE_FIND_PACKAGE_REDIRECTS_DIR}/${name}-config.cmake "
if(NOT TARGET ${target})
  add_library(${target} INTERFACE IMPORTED)
  target_include_directories(${target} SYSTEM INTERFACE ${ktp_header_links}/${package})
  target_compile_definitions(${target} INTERFACE ${ARGN})
endif()
")
  file(WRITE ${CMAKE_FIND_PACKAGE_REDIRECTS_DIR}/${name}-config-version.cmake "
set(PACKAGE_VERSION ${version})
set(PACKAGE_VERSION_COMPATIBLE TRUE)
")
endfunction()

ktp_header_only(Boost Boost::headers boost 1.81)
ktp_header_only(CLI11 CLI11::CLI11 CLI 2)
ktp_header_only(nlohmann_json nlohmann_json::nlohmann_json nlohmann 3)
ktp_header_only(tomlplusplus tomlplusplus::tomlplusplus toml++ 3)
ktp_header_only(fmt fmt::fmt-header-only fmt 9 FMT_HEADER_ONLY=1)

file(WRITE ${CMAKE_FIND_PACKAGE_REDIRECTS_DIR}/gtest-config.cmake "
if(NOT TARGET GTest::gtest)
  set(INSTALL_GTEST OFF CACHE INTERNAL \"\")
  set(BUILD_GMOCK OFF CACHE INTERNAL \"\")
  add_subdirectory(${KTPNAIPS_GOOGLETEST_SOURCE} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
endif()
")

# Windows programs run through Wine, in a prefix of the build's own.
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64" OR EXISTS /usr/lib/i386-linux-gnu/wine)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${PROJECT_SOURCE_DIR}/tests/wine/run ${CMAKE_BINARY_DIR}/wine)
endif()
