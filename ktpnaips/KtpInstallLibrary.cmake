# Installs the library, its public headers, and what find_package and pkg-config read.
include(CMakePackageConfigHelpers)

foreach(header ${public_headers})
  cmake_path(GET header PARENT_PATH folder)
  install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ktpnaips/${folder}
    COMPONENT development)
endforeach()
install(FILES ${PROJECT_BINARY_DIR}/include/ktpnaips/ktpnaips.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ktpnaips COMPONENT development)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/KTPNaips)
install(TARGETS ktpnaips EXPORT KTPNaipsStatic
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(EXPORT KTPNaipsStatic NAMESPACE KTPNaips:: DESTINATION ${package_folder}
  COMPONENT development)
if(BUILD_SHARED_LIBS)
  install(TARGETS ktpnaips-shared EXPORT KTPNaipsShared
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library
    NAMELINK_COMPONENT development)
  install(EXPORT KTPNaipsShared NAMESPACE KTPNaips:: DESTINATION ${package_folder}
    COMPONENT development)
endif()

set(FIND_NEEDED "")
if(NOT WIN32)
  set(FIND_NEEDED "find_dependency(LibXml2)
  find_dependency(CURL 7.88)
  find_dependency(OpenSSL)")
endif()
configure_package_config_file(${PROJECT_SOURCE_DIR}/packaging/KTPNaipsConfig.cmake.in
  KTPNaipsConfig.cmake INSTALL_DESTINATION ${package_folder}
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(KTPNaipsConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/KTPNaipsConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/KTPNaipsConfigVersion.cmake
  DESTINATION ${package_folder} COMPONENT development)

# Without the shared library every program links the archive, and so what the archive needs.
list(TRANSFORM needed_names PREPEND -l)
list(JOIN needed_names " " needed_names)
if(NOT WIN32)
  string(PREPEND needed_names "-Wl,-z,nodelete ")
endif()
set(NEEDED_ALWAYS "")
set(NEEDED_BY_ARCHIVE ${needed_names})
if(NOT BUILD_SHARED_LIBS)
  set(NEEDED_ALWAYS " ${needed_names}")
  set(NEEDED_BY_ARCHIVE "")
endif()
set(pkg_config_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
string(REGEX REPLACE "[^/]+" ".." PREFIX_FROM_HERE ${pkg_config_folder})
configure_file(${PROJECT_SOURCE_DIR}/packaging/ktpnaips.pc.in ktpnaips.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ktpnaips.pc DESTINATION ${pkg_config_folder}
  COMPONENT development)
