# Compiles through ccache where it is installed, unless a launcher is chosen already. What was
# compiled once is found again from any checkout: paths in it count from the project's folder.
if(CMAKE_CXX_COMPILER_LAUNCHER OR MSVC)
  return()
endif()
find_program(KTPNAIPS_CCACHE ccache DOC "Keeps what was compiled")
if(KTPNAIPS_CCACHE AND CMAKE_HOST_UNIX)
  # A precompiled header is found again although its macros and dates may differ from the last.
  set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1
    CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
    ${KTPNAIPS_CCACHE})
  if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
    add_compile_options("SHELL:-Xclang -fno-pch-timestamp")
  endif()
endif()
