# Compiles through ccache where it is installed, unless a launcher is chosen already. What was
# compiled once is found again from any checkout: paths in it count from the project's folder.
if(CMAKE_CXX_COMPILER_LAUNCHER OR NOT CMAKE_HOST_UNIX)
  return()
endif()
find_program(KTPNAIPS_CCACHE ccache DOC "Keeps what was compiled")
if(KTPNAIPS_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}
    ${CMAKE_CURRENT_LIST_DIR}/compile-cached)
  if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
    add_compile_options("SHELL:-Xclang -fno-pch-timestamp")
  endif()
endif()
